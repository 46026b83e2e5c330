// `brindle render`: a picture of a drawing.
#include <algorithm>
#include <memory>

#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/drawing.h"
#include "apps/cli/picture.h"
#include "apps/cli/toolkit.h"
#include "brindle/dxf/drawing_picture.h"
#include "brindle/dxf/hatch_pattern.h"
#include "brindle/dxf/line_type_file.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/stream.h"
#include "brindle/platform/graphics/emf_device.h"
#include "brindle/platform/graphics/metafile_dc.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/svg_device.h"
#include "brindle/platform/graphics/wmf_device.h"

namespace brindle::cli {
namespace {

constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;
constexpr int kLargestSide = 32767;

PictureView view_of(const Arguments& arguments) {
  PictureView view;
  if (arguments.has("--size")) {
    double width = 0, height = 0;
    if (!two_numbers(arguments.value("--size"), 'x', width, height) || !(width >= 1) ||
        !(height >= 1) || width > kLargestSide || height > kLargestSide) {
      throw UsageError("--size takes WxH, such as 1600x1000, up to 32767 each");
    }
    view.size = CSize(static_cast<int>(width), static_cast<int>(height));
  }
  const std::string background =
      arguments.has("--background") ? arguments.value("--background") : "white";
  if (background != "black" && background != "white") {
    throw UsageError("--background takes black or white, not \"" + background + "\"");
  }
  view.background = background == "white" ? RGB(255, 255, 255) : RGB(0, 0, 0);
  if (arguments.has("--view")) {
    if (!two_numbers(arguments.value("--view"), ',', view.angle1, view.angle2)) {
      throw UsageError("--view takes two angles in degrees, such as 30,60");
    }
    view.axonometric = true;
    view.angle1 *= kRadiansOfDegree;
    view.angle2 *= kRadiansOfDegree;
  }
  return view;
}

// Line types and patterns that the drawing names and doesn't hold itself.
void load_assets() {
  const std::wstring line_types = find_asset(L"linetypes/brindle.lin");
  if (line_types.empty()) complain(L"the line type file brindle.lin is missing");
  remember_line_type_file(line_types.c_str());
  const std::wstring patterns = find_asset(L"hatches/brindle.pat");
  if (patterns.empty()) complain(L"the hatch pattern file brindle.pat is missing");
  Varnholt::set_hatch_pattern_file(patterns.c_str());
}

bool render_png(DXF& drawing, const PictureView& view, const std::wstring& path) {
  RasterDevice device(view.size.cx, view.size.cy, kPictureDpi);
  CDC dc(device);
  return draw_picture(drawing, dc, view) != 0 &&
         write_png(path.c_str(), device.bitmap(), kPictureDpi);
}

// `dc` of the kind that suits the device: entities tell a metafile from other devices.
template <class Context>
bool render_file(DXF& drawing, const PictureView& view, std::unique_ptr<FileDevice> device) {
  if (device == nullptr) return false;
  Context dc(*device);
  return draw_picture(drawing, dc, view) != 0 && device->finish();
}

// Pages and metafiles count in finer units than a screen's, as many as 16 bits allow.
double finer_units(PictureView& view) {
  const int finer = std::clamp(kLargestSide / std::max(view.size.cx, view.size.cy), 1, 3);
  view.size = CSize(view.size.cx * finer, view.size.cy * finer);
  return kPictureDpi * finer;
}

bool render(DXF& drawing, PictureView view, const std::wstring& path) {
  const std::wstring form = extension_of(path);
  const wchar_t* to = path.c_str();
  if (form == L"png") return render_png(drawing, view, path);
  // Pages are black on white by the draughtsman's rule; a picture keeps its colours.
  SetDXFPrintColor(1);
  if (form == L"svg") {
    return render_file<CDC>(drawing, view, std::make_unique<SvgDevice>(to, view.size, kPictureDpi));
  }
  const double dpi = finer_units(view);
  if (form == L"pdf") return render_file<CDC>(drawing, view, make_pdf(path, view.size, dpi));
  // Metafiles are black on whatever they are placed on, unless a background is part of the picture.
  view.fills_background = view.background == 0;
  SetDXFPrintColor(view.fills_background ? 1 : 0);
  if (form == L"wmf") {
    return render_file<CMetaFileDC>(drawing, view, std::make_unique<WmfDevice>(to, view.size, dpi));
  }
  return render_file<CMetaFileDC>(drawing, view, std::make_unique<EmfDevice>(to, view.size, dpi));
}

ExitStatus run_render(const Arguments& arguments) {
  const std::wstring from = from_path(arguments.operands[0]);
  const std::wstring to = from_path(arguments.operands[1]);
  const std::wstring form = extension_of(to);
  if (form != L"png" && form != L"pdf" && form != L"svg" && form != L"wmf" && form != L"emf") {
    throw UsageError("the picture's name ends with .png, .pdf, .svg, .wmf or .emf");
  }
  const PictureView view = view_of(arguments);
  if (!start_toolkit() && form == L"pdf") {
    complain(L"this program was built without the toolkit that writes PDF");
    return kBadInput;
  }
  load_fonts(arguments);
  load_assets();
  DXF drawing;
  if (!load_drawing(from, drawing)) return kBadInput;
  if (render(drawing, view, to)) return kDone;
  complain(wformat(L"can't write %s", to));
  return kBadInput;
}

}  // namespace

const Command kRenderCommand = {
    "render",
    {"IN", "OUT"},
    "",
    "make a picture of a drawing",
    "IN is a DXF file or a binary drawing; OUT ends with .png, .pdf, .svg, .wmf or .emf, which "
    "tells "
    "the\n"
    "form. The whole drawing is shown as large as the size allows. A metafile is drawn in black, "
    "with\n"
    "a black background in its colours.",
    {{"--size", "WxH", "pixels, 1600x1000 without it; 96 an inch in the other forms"},
     {"--background", "COLOUR", "black or white; white without it"},
     {"--fonts", "DIR", "the folder of TXT.SHX and HZTXT.SHX instead of the library's own"},
     {"--view", "A,B", "seen in space: degrees of turn about z, and of tilt away from it"}},
    run_render,
};

}  // namespace brindle::cli
