#include "brindle/platform/graphics/emf_device.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/platform/base/utf16.h"
#include "brindle/platform/graphics/byte_writer_internal.h"
#include "brindle/platform/graphics/dib_internal.h"
#include "brindle/platform/graphics/file_device_internal.h"
#include "brindle/platform/graphics/metafile_records_internal.h"

namespace brindle {

namespace {

enum Type : DWORD {
  kHeader = 1,
  kPolygon = 3,
  kPolyline = 4,
  kPolyPolygon = 8,
  kSetWindowExtEx = 9,
  kSetWindowOrgEx = 10,
  kSetViewportExtEx = 11,
  kSetViewportOrgEx = 12,
  kEof = 14,
  kSetPixelV = 15,
  kSetMapMode = 17,
  kSetBkMode = 18,
  kSetPolyFillMode = 19,
  kSetRop2 = 20,
  kSetStretchBltMode = 21,
  kSetTextAlign = 22,
  kSetTextColor = 24,
  kSetBkColor = 25,
  kMoveToEx = 27,
  kSelectObject = 37,
  kCreatePen = 38,
  kCreateBrushIndirect = 39,
  kDeleteObject = 40,
  kEllipse = 42,
  kRectangle = 43,
  kRoundRect = 44,
  kArc = 45,
  kChord = 46,
  kPie = 47,
  kLineTo = 54,
  kExtSelectClipRgn = 75,
  kBitBlt = 76,
  kStretchDibits = 81,
  kExtCreateFontIndirectW = 82,
  kExtTextOutW = 84,
  kPolygon16 = 86,
  kPolyline16 = 87,
  kPolyPolygon16 = 91,
  kCreateDibPatternBrushPt = 94,
  kExtCreatePen = 95,
  kAlphaBlend = 114,
};

constexpr int kLimit = 1 << 22;
constexpr int kFirstHandle = 1;  // 0 stands for the metafile itself
constexpr double kHundredthsPerInch = 2540;

class EmfRecords final : public MetafileRecords {
 public:
  EmfRecords(std::wstring_view description, double dpi)
      : description_(description),
        hundredths_per_unit_(static_cast<float>(kHundredthsPerInch / (dpi > 0 ? dpi : 96))) {}

  int limit() const override { return kLimit; }
  int most_corners() const override { return 1 << 24; }

  void set_mode(StateMode mode, DWORD value) override;
  void create(int slot, const DrawingObject& object) override;
  void select(int slot) override { record(kSelectObject, {slot + kFirstHandle}); }
  void remove(int slot) override { record(kDeleteObject, {slot + kFirstHandle}); }
  bool clip(const RegionData* region) override;

  void move_to(CPoint at) override { record(kMoveToEx, {at.x, at.y}); }
  void line_to(CPoint to) override { record(kLineTo, {to.x, to.y}); }
  bool polyline(const CPoint* points, int count) override;
  void poly_polygon(const CPoint* points, const int* counts, int rings) override;
  void rectangle(const CRect& box) override { boxed(kRectangle, box, {}); }
  void round_rectangle(const CRect& box, CSize corner) override {
    boxed(kRoundRect, box, {corner.cx, corner.cy});
  }
  void ellipse(const CRect& box) override { boxed(kEllipse, box, {}); }
  void arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) override;
  void pattern_blt(const CRect& box, DWORD rop) override;
  void set_pixel(CPoint at, COLORREF color) override {
    record(kSetPixelV, {at.x, at.y, LONG(color)});
  }
  void text(const TextRecord& record) override;
  void bitmap(const CRect& to, const RasterBitmap& picture, DWORD rop) override;
  void blend(const CRect& to, const RasterBitmap& picture, BYTE opacity, bool use_alpha) override;

  std::string file(const MetafilePicture& picture) override;

 private:
  void begin(Type type);
  void end();
  void record(Type type, std::initializer_list<LONG> parameters);
  // A box of the file: it holds its last row and column.
  void box(const CRect& box);
  // A figure in a box, told as such a box.
  void boxed(Type type, const CRect& box, std::initializer_list<LONG> parameters);
  // Points of 16 bits where all of them fit.
  static bool fit_16(const CPoint* points, int count) {
    return in_range(points, count, std::numeric_limits<SHORT>::max());
  }
  void points(const CPoint* points, int count, bool in_16);
  // Where header and pixels of a bitmap stand, as offsets and sizes; the bitmap follows the
  // parameters, which take `fixed_bytes` of the record.
  void dib_place(DWORD fixed_bytes, std::size_t dib_bytes);
  void create_pen(int slot, const PenData& pen);
  void create_brush(int slot, const BrushData& brush);
  void create_font(int slot, const LOGFONT& font);
  void unit_transform();

  std::wstring description_;
  float hundredths_per_unit_;  // of a millimetre
  ByteWriter body_;
  std::size_t record_start_ = 0;
  DWORD records_ = 0;
  bool too_long_ = false;
};

void EmfRecords::begin(Type type) {
  record_start_ = body_.size();
  body_.u32(type);
  body_.u32(0);
  ++records_;
}

void EmfRecords::end() {
  body_.pad_to(4);
  body_.set_u32(record_start_ + 4, static_cast<DWORD>(body_.size() - record_start_));
}

void EmfRecords::record(Type type, std::initializer_list<LONG> parameters) {
  begin(type);
  for (const LONG parameter : parameters) body_.i32(parameter);
  end();
}

void EmfRecords::box(const CRect& box) {
  for (const LONG edge : {box.left, box.top, box.right - 1, box.bottom - 1}) body_.i32(edge);
}

void EmfRecords::boxed(Type type, const CRect& bounds, std::initializer_list<LONG> parameters) {
  begin(type);
  box(bounds);
  for (const LONG parameter : parameters) body_.i32(parameter);
  end();
}

void EmfRecords::points(const CPoint* points, int count, bool in_16) {
  for (int i = 0; i < count; ++i) {
    if (in_16) {
      body_.i16(points[i].x), body_.i16(points[i].y);
    } else {
      body_.i32(points[i].x), body_.i32(points[i].y);
    }
  }
}

void EmfRecords::set_mode(StateMode mode, DWORD value) {
  constexpr Type kTypes[kStateModes]{kSetRop2,          kSetPolyFillMode, kSetBkMode,
                                     kSetBkColor,       kSetTextColor,    kSetTextAlign,
                                     kSetStretchBltMode};
  record(kTypes[std::size_t(mode)], {LONG(value)});
}

void EmfRecords::create(int slot, const DrawingObject& object) {
  if (const auto* pen = std::get_if<PenData>(&object)) return create_pen(slot, *pen);
  if (const auto* brush = std::get_if<BrushData>(&object)) return create_brush(slot, *brush);
  create_font(slot, std::get<LOGFONT>(object));
}

void EmfRecords::create_pen(int slot, const PenData& pen) {
  const int width = std::clamp(pen.width, 0, kLimit);
  if ((pen.style & PS_TYPE_MASK) != PS_GEOMETRIC) {
    return record(kCreatePen,
                  {slot + kFirstHandle, pen.style & PS_STYLE_MASK, width, 0, LONG(pen.color)});
  }
  constexpr LONG kNoBitmap = 0, kNoDashes = 0;
  record(kExtCreatePen, {slot + kFirstHandle, kNoBitmap, kNoBitmap, kNoBitmap, kNoBitmap, pen.style,
                         width, BS_SOLID, LONG(pen.color), 0, kNoDashes});
}

void EmfRecords::create_brush(int slot, const BrushData& brush) {
  if (brush.style == BS_PATTERN && brush.pattern != nullptr && !brush.pattern->empty()) {
    const std::string dib = packed_dib(*brush.pattern, 24);
    if (!dib.empty()) {
      constexpr DWORD kFixedBytes = 32;
      begin(kCreateDibPatternBrushPt);
      body_.i32(slot + kFirstHandle);
      body_.u32(0);  // true colours
      dib_place(kFixedBytes, dib.size());
      body_.text(dib);
      return end();
    }
  }
  const int style = brush.style == BS_PATTERN ? BS_SOLID : brush.style;
  record(kCreateBrushIndirect, {slot + kFirstHandle, style, LONG(brush.color), brush.hatch});
}

void EmfRecords::create_font(int slot, const LOGFONT& font) {
  // Behind the plain font an extended one has its full and style names and how it looks.
  constexpr std::size_t kRecordBytes = 332;
  begin(kExtCreateFontIndirectW);
  body_.i32(slot + kFirstHandle);
  for (const LONG value :
       {font.lfHeight, font.lfWidth, font.lfEscapement, font.lfOrientation, font.lfWeight}) {
    body_.i32(value);
  }
  for (const BYTE value :
       {font.lfItalic, font.lfUnderline, font.lfStrikeOut, font.lfCharSet, font.lfOutPrecision,
        font.lfClipPrecision, font.lfQuality, font.lfPitchAndFamily}) {
    body_.u8(value);
  }
  std::string face = to_utf16_bytes(font.lfFaceName);
  face.resize((LF_FACESIZE - 1) * 2);
  body_.text(face);
  body_.text(std::string(kRecordBytes - (body_.size() - record_start_), '\0'));
  end();
}

// Back to no clip, then cut to the region: some readers pass over a region that is copied.
bool EmfRecords::clip(const RegionData* region) {
  record(kExtSelectClipRgn, {0, RGN_COPY});
  if (region == nullptr) return false;
  constexpr DWORD kHeaderBytes = 32, kRectangles = 1, kRectBytes = 16;
  const DWORD count = static_cast<DWORD>(region->rects().size());
  begin(kExtSelectClipRgn);
  for (const DWORD value : {kHeaderBytes + count * kRectBytes, DWORD{RGN_AND}, kHeaderBytes,
                            kRectangles, count, count * kRectBytes}) {
    body_.u32(value);
  }
  const auto edges = [this](const CRect& rect) {
    for (const LONG edge : {rect.left, rect.top, rect.right, rect.bottom}) {
      body_.i32(held_in(edge, kLimit));
    }
  };
  edges(region->box());
  for (const CRect& rect : *region) edges(rect);
  end();
  return false;
}

bool EmfRecords::polyline(const CPoint* points_, int count) {
  const bool in_16 = fit_16(points_, count);
  begin(in_16 ? kPolyline16 : kPolyline);
  box(box_around(points_, count));
  body_.i32(count);
  points(points_, count, in_16);
  end();
  return true;
}

void EmfRecords::poly_polygon(const CPoint* points_, const int* counts, int rings) {
  int corners = 0;
  for (int i = 0; i < rings; ++i) corners += counts[i];
  const bool in_16 = fit_16(points_, corners);
  if (rings == 1) {
    begin(in_16 ? kPolygon16 : kPolygon);
  } else {
    begin(in_16 ? kPolyPolygon16 : kPolyPolygon);
  }
  box(box_around(points_, corners));
  if (rings > 1) body_.i32(rings);
  body_.i32(corners);
  for (int i = 0; rings > 1 && i < rings; ++i) body_.i32(counts[i]);
  points(points_, corners, in_16);
  end();
}

void EmfRecords::arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) {
  const Type type = form == PaintDevice::ArcForm::kArc   ? kArc
                    : form == PaintDevice::ArcForm::kPie ? kPie
                                                         : kChord;
  boxed(type, box, {start.x, start.y, end.x, end.y});
}

void EmfRecords::unit_transform() {
  for (const float value : {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f}) body_.f32(value);
}

// A copy without a source.
void EmfRecords::pattern_blt(const CRect& to, DWORD rop) {
  begin(kBitBlt);
  box(to);
  for (const LONG value : {to.left, to.top, LONG(to.Width()), LONG(to.Height())}) body_.i32(value);
  body_.u32(rop);
  body_.i32(0), body_.i32(0);
  unit_transform();
  for (int field = 0; field < 6; ++field) body_.u32(0);  // no colour, no bitmap
  end();
}

void EmfRecords::text(const TextRecord& text) {
  constexpr DWORD kGraphicsModeCompatible = 1, kTextOffset = 76;
  const std::string units = to_utf16_bytes(text.words);
  begin(kExtTextOutW);
  box(text.around);
  body_.u32(kGraphicsModeCompatible);
  body_.f32(hundredths_per_unit_), body_.f32(hundredths_per_unit_);
  body_.i32(text.at.x), body_.i32(text.at.y);
  body_.u32(static_cast<DWORD>(units.size() / 2));
  body_.u32(kTextOffset);
  body_.u32(text.options);
  for (const LONG edge : {text.box.left, text.box.top, text.box.right, text.box.bottom}) {
    body_.i32(edge);
  }
  body_.u32(static_cast<DWORD>((kTextOffset + units.size() + 3) / 4 * 4));  // of the advances
  body_.text(units);
  body_.pad_to(4);
  for (std::size_t i = 0; i < text.words.size(); ++i) {
    body_.i32(text.advances[i]);
    if (to_utf16_bytes(text.words.substr(i, 1)).size() > 2) body_.i32(0);  // of a second half
  }
  end();
}

void EmfRecords::dib_place(DWORD fixed_bytes, std::size_t dib_bytes) {
  body_.u32(fixed_bytes);
  body_.u32(kDibHeaderBytes);
  body_.u32(fixed_bytes + kDibHeaderBytes);
  body_.u32(static_cast<DWORD>(dib_bytes - kDibHeaderBytes));
}

void EmfRecords::bitmap(const CRect& to, const RasterBitmap& picture, DWORD rop) {
  constexpr DWORD kFixedBytes = 80;
  const std::string dib = packed_dib(picture, 24);
  too_long_ |= dib.empty();
  if (dib.empty()) return;
  begin(kStretchDibits);
  box(to);
  for (const LONG value :
       {to.left, to.top, LONG(0), LONG(0), LONG(picture.width()), LONG(picture.height())}) {
    body_.i32(value);
  }
  dib_place(kFixedBytes, dib.size());
  body_.u32(0);  // true colours
  body_.u32(rop);
  body_.i32(to.Width());
  body_.i32(to.Height());
  body_.text(dib);
  end();
}

void EmfRecords::blend(const CRect& to, const RasterBitmap& picture, BYTE opacity, bool use_alpha) {
  constexpr DWORD kFixedBytes = 108;
  // The form wants colours multiplied by their alpha: mixed with black.
  RasterBitmap multiplied = picture;
  std::uint32_t* pixels = multiplied.data();
  const std::size_t count = std::size_t(picture.width()) * std::size_t(picture.height());
  std::transform(pixels, pixels + count, pixels,
                 [](std::uint32_t pixel) { return (pixel & 0xff000000u) | mixed_with(pixel, 0); });
  const std::string dib = packed_dib(use_alpha ? multiplied : picture, 32);
  too_long_ |= dib.empty();
  if (dib.empty()) return;
  begin(kAlphaBlend);
  box(to);
  for (const LONG value : {to.left, to.top, LONG(to.Width()), LONG(to.Height())}) body_.i32(value);
  for (const unsigned value :
       {unsigned(AC_SRC_OVER), 0u, unsigned(opacity), unsigned(use_alpha ? AC_SRC_ALPHA : 0)}) {
    body_.u8(value);
  }
  body_.i32(0), body_.i32(0);
  unit_transform();
  body_.u32(0);  // background
  body_.u32(0);  // true colours
  dib_place(kFixedBytes, dib.size());
  body_.i32(picture.width());
  body_.i32(picture.height());
  body_.text(dib);
  end();
}

std::string EmfRecords::file(const MetafilePicture& picture) {
  constexpr DWORD kSignature = 0x464D4520, kVersion = 0x10000, kHeaderBytes = 108;
  // A reference device of ten inches each way, so that its size is whole in both units.
  constexpr int kReferenceInches = 10, kReferenceMillimetres = 254;
  const std::string drawn = body_.bytes();
  body_ = {};
  record(kSetMapMode, {MM_ANISOTROPIC});
  record(kSetWindowOrgEx, {0, 0});
  record(kSetWindowExtEx, {picture.frame.Width(), picture.frame.Height()});
  record(kSetViewportOrgEx, {0, 0});
  record(kSetViewportExtEx, {picture.frame.Width(), picture.frame.Height()});
  body_.text(drawn);
  constexpr LONG kNoPalette = 0, kPaletteOffset = 16, kLastSize = 20;
  record(kEof, {kNoPalette, kPaletteOffset, kLastSize});

  std::string description = to_utf16_bytes(description_);
  if (!description.empty()) description.append(4, '\0');
  const std::size_t header = (kHeaderBytes + description.size() + 3) / 4 * 4;
  if (too_long_ || header + body_.size() > std::numeric_limits<DWORD>::max()) return {};

  ByteWriter file;
  file.u32(kHeader);
  file.u32(static_cast<DWORD>(header));
  const CRect& seen = picture.drawn;
  for (const LONG edge : {seen.left, seen.top, seen.right - 1, seen.bottom - 1}) file.i32(edge);
  const CRect& frame = picture.frame;
  for (const LONG edge : {frame.left, frame.top, frame.right, frame.bottom}) {
    file.i32(static_cast<LONG>(std::lround(edge * kHundredthsPerInch / picture.dpi)));
  }
  file.u32(kSignature);
  file.u32(kVersion);
  file.u32(static_cast<DWORD>(header + body_.size()));
  file.u32(records_ + 1);
  file.u16(unsigned(picture.object_slots + kFirstHandle));
  file.u16(0);
  file.u32(static_cast<DWORD>(description.size() / 2));
  file.u32(description.empty() ? 0 : kHeaderBytes);
  file.u32(0);  // palette entries
  const LONG reference =
      std::max(static_cast<LONG>(std::lround(picture.dpi * kReferenceInches)), 1);
  file.i32(reference), file.i32(reference);
  file.i32(kReferenceMillimetres), file.i32(kReferenceMillimetres);
  for (int field = 0; field < 3; ++field) file.u32(0);  // no pixel format, no OpenGL
  file.i32(kReferenceMillimetres * 1000), file.i32(kReferenceMillimetres * 1000);
  file.text(description);
  file.pad_to(4);
  file.text(body_.bytes());
  return file.bytes();
}

}  // namespace

EmfDevice::EmfDevice(const wchar_t* path, CSize size, double dpi, std::wstring_view description)
    : MetafileDevice(path, size, dpi, std::make_unique<EmfRecords>(description, dpi)) {}

}  // namespace brindle
