// `brindle field`: contours, a colour plot, or one value of a field file.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/picture.h"
#include "apps/cli/toolkit.h"
#include "brindle/dxf/drawing_picture.h"
#include "brindle/mesh/chang.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/exception.h"
#include "brindle/platform/base/stream.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/sketch/pen/base_sgt.h"

namespace brindle::cli {
namespace {

constexpr double kMostLevels = 1000;
constexpr double kLabelSize = 1.0 / 80;  // of the mesh's larger side

// A number and nothing behind it.
double number(const Arguments& arguments, std::string_view option, const char* what) {
  const std::string& text = arguments.value(option);
  const char* end = text.data() + text.size();
  const char* at = nullptr;
  const double value = parse_double(text.data(), end, &at);
  if (text.empty() || at != end || !std::isfinite(value)) {
    throw UsageError(std::string(option) + " takes " + what + ", not \"" + text + "\"");
  }
  return value;
}

int whole_number(const Arguments& arguments, std::string_view option, double low, double high,
                 const char* what) {
  const double value = number(arguments, option, what);
  if (value != std::floor(value) || value < low || value > high) {
    throw UsageError(std::string(option) + " takes " + what + ", not \"" + arguments.value(option) +
                     "\"");
  }
  return static_cast<int>(value);
}

// What the command line asks for.
struct Request {
  bool value = false;
  double x = 0, y = 0;
  int levels = 0;   // or
  double step = 0;  // between levels
  std::wstring out;
  int component = 0;
  bool bands = false;
};

Request request_of(const Arguments& arguments) {
  Request request;
  if (arguments.has("--component")) {
    request.component = whole_number(arguments, "--component", 0, CChangNode::kValues - 1,
                                     "a value slot from 0 to 9");
  }
  request.value = arguments.has("--value");
  const bool contours = arguments.has("--contours"), step = arguments.has("--step");
  if (request.value) {
    if (contours || step || arguments.has("--out") || arguments.has("--bands")) {
      throw UsageError("--value goes with --component only");
    }
    if (!two_numbers(arguments.value("--value"), ',', request.x, request.y)) {
      throw UsageError("--value takes X,Y, such as 1.5,2");
    }
    return request;
  }
  if (contours == step) throw UsageError("one of --contours, --step and --value is needed");
  if (contours) {
    request.levels =
        whole_number(arguments, "--contours", 1, kMostLevels, "a number of levels from 1 to 1000");
  } else {
    request.step = number(arguments, "--step", "a step above 0");
    if (!(request.step > 0)) throw UsageError("--step takes a step above 0");
  }
  if (arguments.has("--bands")) {
    request.bands = whole_number(arguments, "--bands", 19, 19, "19") == 19;
  }
  request.out = from_path(arguments.value("--out"));
  const std::wstring form = extension_of(request.out);
  if (form != L"dxf" && form != L"png") throw UsageError("--out ends with .dxf or .png");
  if (form == L"dxf" && request.bands) throw UsageError("--bands goes with a .png only");
  return request;
}

// Sides of one triangle only.
void draw_rim(CChang& field, CBase_SGT& pen) {
  std::map<std::pair<std::int64_t, std::int64_t>, int> sides;
  const auto each_side = [&](auto visit) {
    for (const CChangTri& t : std::as_const(field.m_arrayTri)) {
      const std::int64_t n[4] = {t.n1, t.n2, t.n3, t.n1};
      for (int k = 0; k < 3; ++k) visit(std::min(n[k], n[k + 1]), std::max(n[k], n[k + 1]));
    }
  };
  each_side([&](std::int64_t a, std::int64_t b) { ++sides[{a, b}]; });
  for (const auto& [side, count] : sides) {
    if (count != 1) continue;
    const CChangNode& a = std::as_const(field.m_arrayNode)[side.first - 1];
    const CChangNode& b = std::as_const(field.m_arrayNode)[side.second - 1];
    pen.Draw_Line(a.x, a.y, b.x, b.y);
  }
}

// False, with a complaint, when the step asks for too many contours.
bool trace(const Request& request, CChang& field, CBase_SGT& pen, int colour) {
  float low = 0, high = 0;
  field.GetMinMaxZ(low, high);
  const double range = static_cast<double>(high) - low;
  const double step = request.levels > 0 ? range / (request.levels + 1) : request.step;
  const CFRect box = field.GetFRect();
  const double side = std::max<double>(box.right - box.left, box.top - box.bottom);
  field.m_fLabelHeight = static_cast<float>(side * kLabelSize);
  field.m_nLabelColor = 7;
  field.m_nLabelDecimals =
      step > 0 ? std::clamp(1 - static_cast<int>(std::floor(std::log10(step))), 0, 9) : 1;
  if (request.levels == 0) {
    if (range / step > kMostLevels) {
      complain(L"the step asks for more than 1000 contours");
      return false;
    }
    field.m_arrayColor.Add(static_cast<DWORD>(colour));
    return field.Trace(static_cast<float>(step), &pen, 1) != 0;
  }
  for (int i = 1; i <= request.levels && range > 0; ++i) {
    field.AddDengGaoZhi(static_cast<float>(low + step * i), 0, field.m_fLabelHeight, colour);
  }
  return field.Trace(&pen, 1) != 0;
}

bool plot(const Request& request, CChang& field, CBase_SGT& pen) {
  PictureView view;
  view.background = RGB(255, 255, 255);
  view.margin = 0.12;  // the legend stands in it
  CFCoor transform = picture_transform(pen, view);
  RasterDevice device(view.size.cx, view.size.cy, kPictureDpi);
  CDC dc(device);
  CRect area(0, 0, view.size.cx, view.size.cy);
  dc.FillSolidRect(area, view.background);
  field.m_bLevel19 = request.bands;
  field.m_nLegendTextColor = 0;
  field.Draw_CaiSeTu(&dc, &area, &transform, 1, 1);
  view.fills_background = false;
  return draw_picture(pen, dc, view) != 0 &&
         write_png(request.out.c_str(), device.bitmap(), kPictureDpi);
}

bool draw(const Request& request, CChang& field) {
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  if (pen == nullptr) return false;
  const bool picture = extension_of(request.out) == L"png";
  if (picture) start_toolkit();
  load_fonts(Arguments{});
  pen->Add_Layer(L"CONTOUR", 1, L"CONTINUOUS");
  pen->Add_Layer(L"RIM", 7, L"CONTINUOUS");
  pen->SetCurLayer(L"RIM");
  pen->SetCurColor(7);
  draw_rim(field, *pen);
  pen->SetCurLayer(L"CONTOUR");
  if (!trace(request, field, *pen, picture ? 7 : 1)) return false;
  if (picture ? plot(request, field, *pen)
              : pen->Write_MemDxf_To_File(request.out.c_str(), 0) != 0) {
    return true;
  }
  complain(L"can't write " + printable(request.out));
  return false;
}

void print_value(const Request& request, CChang& field) {
  const auto x = static_cast<float>(request.x), y = static_cast<float>(request.y);
  const bool inside = field.PointInChang(x, y) != 0;
  print(inside ? L"%g" : L"%g (outside; of the nearest node)", field.Get_Value(x, y));
}

ExitStatus run_field(const Arguments& arguments) {
  const Request request = request_of(arguments);
  const std::wstring path = from_path(arguments.operands[0]);
  CChang field;
  if (field.LoadData(path.c_str()) == 0 || field.m_arrayNode.IsEmpty()) {
    complain(L"can't read the field " + printable(path));
    return kBadInput;
  }
  field.m_nCurField = request.component;
  try {
    if (!request.value) return draw(request, field) ? kDone : kBadInput;
    print_value(request, field);
    return kDone;
  } catch (const CInvalidArgException&) {
    complain(L"a triangle of " + printable(path) + L" has a node that isn't there");
    return kBadInput;
  }
}

}  // namespace

const Command kFieldCommand = {
    "field",
    {"IN.chg"},
    "--contours N|--step S|--value X,Y",
    "draw the contours of a field, or tell one value",
    "IN.chg has nodes with ten values each and triangles. The contours go into a drawing, with "
    "the\n"
    "rim of the mesh, or over a colour plot with its legend.",
    {{"--contours", "N", "so many contours, evenly between the least and the largest value"},
     {"--step", "S", "contours at the multiples of S"},
     {"--out", "FILE", "the drawing, .dxf, or the picture, .png"},
     {"--component", "K", "which of the values, 0 to 9; 0 without it"},
     {"--bands", "19", "the plot in 19 bands instead of a smooth scale"},
     {"--value", "X,Y", "print the value there"}},
    run_field,
};

}  // namespace brindle::cli
