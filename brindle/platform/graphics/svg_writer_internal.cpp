#include "brindle/platform/graphics/svg_writer_internal.h"

#include <algorithm>
#include <cstdint>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/png_bytes_internal.h"

namespace brindle {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPixelEdge = 0.5;

std::string base64(const std::string& bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8 | (i + k < bytes.size() ? BYTE(bytes[i + k]) : 0u);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out.push_back(i + k > bytes.size() ? '=' : kDigits[group >> (18 - 6 * k) & 63]);
    }
  }
  return out;
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

std::string image_element(const CRect& box, const RasterBitmap& pixels) {
  return "image" + attribute("width", std::to_string(box.Width())) +
         attribute("height", std::to_string(box.Height())) +
         attribute("preserveAspectRatio", "none") + attribute("image-rendering", "optimizeSpeed") +
         attribute("xlink:href", "data:image/png;base64," + base64(png_bytes(pixels)));
}

void append_point(std::string& out, char command, double x, double y) {
  out += command + svg_number(x) + ' ' + svg_number(y);
}

// The lines of a family that cross the tile, with those of its corners.
std::string tile_path(const HatchFamily& family) {
  constexpr int kPeriod = kHatchPeriod;
  if (family.a == 0) return "M0 " + svg_number(family.offset) + 'H' + std::to_string(kPeriod);
  if (family.b == 0) return 'M' + svg_number(family.offset) + " 0V" + std::to_string(kPeriod);
  std::string out;
  for (int i = -1; i <= 1; ++i) {
    const int from = -1 + i * kPeriod, to = kPeriod + 1 + i * kPeriod;
    append_point(out, 'M', from, family.a < 0 ? -1 : kPeriod + 1);
    append_point(out, 'L', to, family.a < 0 ? kPeriod + 1 : -1);
  }
  return out;
}

}  // namespace

std::string svg_number(double value) {
  constexpr double kMost = 1e9;
  char buffer[kFixedBufferSize];
  const double held = value >= -kMost && value <= kMost ? value : 0;
  std::string text(buffer, format_fixed(buffer, held, 2));
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string svg_color(COLORREF color) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string out = "#";
  for (const BYTE part : {GetRValue(color), GetGValue(color), GetBValue(color)}) {
    out += kDigits[part >> 4];
    out += kDigits[part & 15];
  }
  return out;
}

std::string figure_path(const CPoint* points, int count, bool closed) {
  std::string out;
  for (int i = 0; i < count; ++i) append_point(out, i == 0 ? 'M' : 'L', points[i].x, points[i].y);
  if (closed && count > 0) out += 'Z';
  return out;
}

std::string area_path(const Rings& rings) {
  std::string out;
  const CPoint* at = rings.points.data();
  for (const int count : rings.counts) {
    for (int i = 0; i < count; ++i, ++at) {
      append_point(out, i == 0 ? 'M' : 'L', at->x - kPixelEdge, at->y - kPixelEdge);
    }
    out += 'Z';
  }
  return out;
}

std::string area_path(const CRect& box) {
  return area_path(Rings{
      {{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}},
      {4}});
}

std::string polygon_path(const std::vector<FigurePoint>& corners) {
  std::string out;
  for (const FigurePoint& corner : corners) {
    append_point(out, out.empty() ? 'M' : 'L', corner.x, corner.y);
  }
  return out + 'Z';
}

std::string xml_text(std::wstring_view text) {
  constexpr wchar_t kReplacement = 0xFFFD;
  std::wstring out;
  for (const wchar_t character : text) {
    const auto code = static_cast<std::uint32_t>(character);
    // Halves of pairs stay where wchar_t has 16 bits: they stand for characters there.
    const bool half = code >= 0xD800 && code < 0xE000 && sizeof(wchar_t) > 2;
    if (character == L'&') {
      out += L"&amp;";
    } else if (character == L'<') {
      out += L"&lt;";
    } else if (character == L'>') {
      out += L"&gt;";
    } else if (character == L'"') {
      out += L"&quot;";
    } else if ((code < 0x20 && code != '\t') || half || code == 0xFFFE || code == 0xFFFF ||
               code > 0x10FFFF) {
      out += kReplacement;
    } else {
      out += character;
    }
  }
  return CodePage::find(65001u)->encode(out);
}

std::string SvgWriter::reference(const std::string& kind, const std::string& attributes,
                                 const std::string& content) {
  const std::string whole = kind + attributes + '>' + content;
  const auto [found, fresh] = references_.try_emplace(whole);
  if (fresh) {
    const std::string id = 'd' + std::to_string(references_.size());
    definitions_ +=
        '<' + kind + attribute("id", id) + attributes + '>' + content + "</" + kind + ">\n";
    found->second = "url(#" + id + ')';
  }
  return found->second;
}

void SvgWriter::end_lines() {
  if (lines_.empty()) return;
  body_ += "<path" + line_attributes_ + attribute("d", lines_) + "/>\n";
  lines_.clear();
}

void SvgWriter::element(const PaintState& state, const std::string& start,
                        const std::string& content) {
  end_lines();
  body_ += '<' + start;
  if (state.clip != nullptr) {
    const std::string inside = "<path" + attribute("clip-rule", "evenodd") +
                               attribute("d", area_path(region_outline(*state.clip, false))) + "/>";
    body_ += attribute("clip-path", reference("clipPath", {}, inside));
  }
  if (content.empty()) {
    body_ += "/>\n";
  } else {
    body_ += '>' + content + "</" + start.substr(0, start.find(' ')) + ">\n";
  }
}

std::string SvgWriter::fill_of(const PaintState& state, const BrushData& brush) {
  COLORREF color = brush.color;
  if (brush.style == BS_NULL || !plain_color(state.rop2, color)) return {};
  if (brush.style == BS_SOLID) return svg_color(color);
  const std::string place = attribute("patternUnits", "userSpaceOnUse");
  const std::string origin = "translate(" + svg_number(state.brush_origin.x - kPixelEdge) + ' ' +
                             svg_number(state.brush_origin.y - kPixelEdge) + ')';
  if (brush.style == BS_PATTERN) {
    if (brush.pattern == nullptr || brush.pattern->empty()) return {};
    const CRect tile(0, 0, brush.pattern->width(), brush.pattern->height());
    return reference("pattern",
                     place + attribute("width", std::to_string(tile.Width())) +
                         attribute("height", std::to_string(tile.Height())) +
                         attribute("patternTransform", origin),
                     '<' + image_element(tile, *brush.pattern) + "/>");
  }
  std::string content;
  const std::string side = std::to_string(kHatchPeriod);
  if (state.bk_mode == OPAQUE) {
    content = "<rect" + attribute("width", side) + attribute("height", side) +
              attribute("fill", svg_color(state.bk_color)) + "/>";
  }
  std::string lines;
  for (const HatchFamily& family : hatch_families(brush.hatch)) lines += tile_path(family);
  content += "<path" + attribute("stroke", svg_color(color)) + attribute("d", lines) + "/>";
  // As large as on a screen whatever the units.
  const double scale = extent.dpi / 96;
  return reference("pattern",
                   place + attribute("width", side) + attribute("height", side) +
                       attribute("patternTransform", origin + " scale(" + svg_number(scale) + ')'),
                   content);
}

std::string SvgWriter::stroke_of(const PaintState& state, const PenData& pen) {
  COLORREF color = pen.color;
  if ((pen.style & PS_STYLE_MASK) == PS_NULL || !plain_color(state.rop2, color)) return {};
  std::string out = attribute("stroke", svg_color(color));
  if (pen.width > 1) {
    const int end = pen.style & PS_ENDCAP_MASK, join = pen.style & PS_JOIN_MASK;
    out += attribute("stroke-width", std::to_string(pen.width));
    if (end != PS_ENDCAP_FLAT) {
      out += attribute("stroke-linecap", end == PS_ENDCAP_SQUARE ? "square" : "round");
    }
    if (join == PS_JOIN_BEVEL) out += attribute("stroke-linejoin", "bevel");
    if (join == PS_JOIN_MITER) out += attribute("stroke-linejoin", "miter");
  }
  return out;
}

void SvgWriter::figure(const PaintState& state, const std::string& path) {
  constexpr std::size_t kMostLines = 1 << 16;
  if (path.empty()) return;
  const std::string stroke = stroke_of(state, state.pen), fill = fill_of(state, state.brush);
  std::string dashes;
  for (const double length : dash_lengths(state.pen)) {
    dashes += (dashes.empty() ? "" : " ") + svg_number(length);
  }
  const bool gaps = !dashes.empty() && !stroke.empty() && state.bk_mode == OPAQUE;
  std::string attributes;
  if (!fill.empty()) {
    attributes = attribute("fill", fill);
    if (state.poly_fill_mode == ALTERNATE) attributes += attribute("fill-rule", "evenodd");
  }
  if (gaps) {
    PenData below = state.pen;
    below.color = state.bk_color;
    element(state, "path" + attributes + stroke_of(state, below) + attribute("d", path));
    attributes.clear();
  }
  if (stroke.empty() && attributes.empty()) return;
  attributes += stroke;
  if (!dashes.empty() && !stroke.empty()) attributes += attribute("stroke-dasharray", dashes);
  if (!fill.empty() || gaps || state.clip != nullptr) {
    return element(state, "path" + attributes + attribute("d", path));
  }
  if (attributes != line_attributes_ || lines_.size() > kMostLines) end_lines();
  line_attributes_ = attributes;
  lines_ += path;
}

void SvgWriter::area(const PaintState& state, const std::string& path, const BrushData& brush) {
  const std::string fill = fill_of(state, brush);
  if (fill.empty() || path.empty()) return;
  element(state, "path" + attribute("fill", fill) + attribute("fill-rule", "evenodd") +
                     attribute("d", path));
}

void SvgWriter::area(const PaintState& state, const std::string& path, COLORREF color) {
  element(state, "path" + attribute("fill", svg_color(color)) + attribute("d", path));
}

void SvgWriter::picture(const PaintState& state, const CRect& to, const RasterBitmap& pixels) {
  element(state, image_element(to, pixels) + attribute("x", svg_number(to.left - kPixelEdge)) +
                     attribute("y", svg_number(to.top - kPixelEdge)));
}

bool SvgWriter::finish() {
  if (finished_) return false;
  finished_ = true;
  end_lines();
  const auto millimetres = [this](int units) {
    return svg_number(units * kMillimetresPerInch / extent.dpi) + "mm";
  };
  const std::string edge = svg_number(-kPixelEdge);
  std::string file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg";
  file += attribute("xmlns", "http://www.w3.org/2000/svg") +
          attribute("xmlns:xlink", "http://www.w3.org/1999/xlink") + attribute("version", "1.1") +
          attribute("width", millimetres(extent.size.cx)) +
          attribute("height", millimetres(extent.size.cy)) +
          attribute("viewBox", edge + ' ' + edge + ' ' + std::to_string(extent.size.cx) + ' ' +
                                   std::to_string(extent.size.cy)) +
          attribute("fill", "none") + attribute("stroke-linejoin", "round") + ">\n";
  if (!definitions_.empty()) file += "<defs>\n" + definitions_ + "</defs>\n";
  file += body_ + "</svg>\n";
  return write_whole_file(path_.c_str(), file);
}

}  // namespace brindle
