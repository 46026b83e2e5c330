#include "examples/plate/plate_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "brindle/dxf/drawing_picture.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/graphics/raster_device.h"
#include "examples/common/sheet.h"
#include "examples/plate/plate_outline.h"

namespace brindle::plate {
namespace {

constexpr double kMillimetres = 1000;  // in a metre
constexpr int kScales[] = {10,  20,  25,  30,  40,  50,  75,   100,
                           150, 200, 250, 300, 400, 500, 1000, 2000};
constexpr int kContours = 14;                           // at most
constexpr int kNegative = 5, kZero = 8, kPositive = 1;  // colours of contours, labels as the lines

// Paper millimetres on the sheets.
constexpr double kPlanLeft = 60, kPlanRight = 400, kPlanBottom = 80, kPlanTop = 275;
constexpr float kInnerDimension = 12, kOuterDimension = 20, kTitleBelow = 33;
constexpr double kLeastLabelled = 40;
constexpr float kLabelHeight = 2.5f, kLineMarkReach = 6;
constexpr float kNoteLeft = 32, kNoteTop = 38, kNoteStep = 6.5f;
constexpr float kChartLeft = 55, kChartBottom = 190, kChartHeight = 72;
constexpr double kChartWidth = 320;
constexpr float kDiagramZero = 115, kDiagramHeight = 32, kDiagramTitle = 60;

// The largest usual scale at which width by height millimetres fit the paper millimetres.
float scale_for(double width, double height, double paper_width, double paper_height) {
  for (const int s : kScales) {
    if (width <= paper_width * s && height <= paper_height * s) return static_cast<float>(s);
  }
  return static_cast<float>(*std::prev(std::end(kScales)));
}

std::unique_ptr<CBase_SGT> new_pen(float scale) {
  std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  if (pen == nullptr) return nullptr;
  pen->Add_Default_LineType();
  for (const wchar_t* layer : {L"FRAME", L"SLAB", L"CONTOUR", L"DIMENSION", L"NOTES", L"CHART"}) {
    pen->Add_Layer(layer, 7, L"CONTINUOUS");
  }
  pen->SetBiLiChi(scale);
  pen->SetCurStyle(L"HZ");
  pen->SetCurColor(7);
  pen->m_fDimOffset = 0;
  return pen;
}

void draw_notes(CBase_SGT& pen, const std::vector<std::wstring>& lines) {
  const float s = pen.m_fBiLiChi;
  float base = kNoteTop * s;
  for (const std::wstring& line : lines) {
    pen.Draw_Text(kNoteLeft * s, base, pen.m_fZiGao[1], 0, line.c_str());
    base -= kNoteStep * s;
  }
}

std::wstring slab_note(const PlateInput& plate) {
  return wformat(L"板厚 %g mm，E=%g N/mm2，泊松比 %g，均布荷载 %g kN/m2。", plate.thickness_mm,
                 plate.modulus, plate.poisson, plate.load);
}

// The different coordinates of the outline's corners, rising, in mm from the lowest.
std::vector<float> levels(const Ring& ring, double Point::*coordinate) {
  std::vector<double> found;
  for (const Point& p : ring.points) found.push_back(p.*coordinate);
  std::sort(found.begin(), found.end());
  std::vector<float> distances;
  for (const double v : found) {
    const auto d = static_cast<float>((v - found.front()) * kMillimetres);
    if (distances.empty() || d - distances.back() > 1) distances.push_back(d);
  }
  return distances;
}

// The origin of the pen is the slab's lower left corner, a unit a millimetre.
void draw_dimensions(CBase_SGT& pen, const PlateInput& plate) {
  const float s = pen.m_fBiLiChi;
  const std::vector<float> x = levels(plate.outline, &Point::x);
  const std::vector<float> y = levels(plate.outline, &Point::y);
  const auto chain = [](const std::vector<float>& at) { return static_cast<int>(at.size()); };
  const std::vector<float> below(x.size(), -kInnerDimension * s);
  const std::vector<float> left(y.size(), -kInnerDimension * s);
  pen.Push_ENV();
  pen.m_fDimExt1 = pen.m_fDimExt2 = 7 * s;
  pen.Draw_Dim_Points(chain(x), x.data(), below.data(), 0, 1, 1);
  pen.Draw_Dim_Points(chain(y), left.data(), y.data(), 0, 1, 0);
  const float outer = -kOuterDimension * s;
  if (x.size() > 2) pen.Draw_Dim_Points(0, outer, x.back(), outer, 1, 1);
  if (y.size() > 2) pen.Draw_Dim_Points(outer, 0, outer, y.back(), 1, 0);
  pen.Pop_ENV();
}

double line_extent(const CArray<CDengGaoDian, CDengGaoDian>& line) {
  double length = 0;
  for (INT_PTR i = 1; i < line.GetSize(); ++i) {
    length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  }
  return length;
}

// Draws the contours of one value; lines of less than `least` m, round a column say, go without a
// label, which would cover them.
void draw_level(CBase_SGT& pen, CChang& field, float value, double least) {
  field.TraceOne(value);
  CPtrArray lines;
  lines.Copy(field.m_arrayDGX);
  for (const bool labelled : {true, false}) {
    field.m_arrayDGX.RemoveAll();
    for (void* line : lines) {
      const auto& points = *static_cast<CArray<CDengGaoDian, CDengGaoDian>*>(line);
      if ((line_extent(points) >= least) == labelled) field.m_arrayDGX.Add(line);
    }
    field.m_bLabel = labelled;
    field.DrawDengGaoXian(&pen, 0, 0, 1, 0);
  }
  field.m_bLabel = 1;
  field.m_arrayDGX.Copy(lines);
}

void trace_contours(CBase_SGT& pen, CChang& field, const Component& component) {
  field.m_nCurField = component.slot;
  float low = 0, high = 0;
  field.GetMinMaxZ(low, high);
  const double step = round_step(high - low, kContours);
  field.m_nLabelDecimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
  field.m_nLabelColor = 7;
  field.m_fLabelHeight = kLabelHeight * pen.m_fBiLiChi;
  const double least = kLeastLabelled * pen.m_fBiLiChi / kMillimetres;
  for (auto k = static_cast<int>(std::ceil(low / step)); k * step <= high; ++k) {
    if (k == 0 && &component == &kDeflection) continue;  // the supports
    pen.SetCurColor(k < 0 ? kNegative : k > 0 ? kPositive : kZero);
    draw_level(pen, field, static_cast<float>(k * step), least);
  }
}

std::wstring extremes(CChang& field, const Component& component) {
  field.m_nCurField = component.slot;
  float low = 0, high = 0;
  field.GetMinMaxZ(low, high);
  return wformat(L"%s：最大 %.2f，最小 %.2f %s。", component.name, high, low, component.unit);
}

double line_length(const PlateInput& plate) {
  return std::hypot(plate.to.x - plate.from.x, plate.to.y - plate.from.y);
}

// --- charts along the line: the pen's origin is the left end of their zero line or frame

struct Range {
  double low = 0, high = 0;

  void add(double v) { low = std::min(low, v), high = std::max(high, v); }
};

void draw_deflection_curve(CBase_SGT& pen, const std::vector<std::vector<LinePoint>>& pieces,
                           double length) {
  Range range;
  for (const auto& piece : pieces) {
    for (const LinePoint& p : piece) range.add(-p.deflection);
  }
  const double step = round_step(range.high - range.low, 5);
  const auto low = static_cast<float>(std::floor(range.low / step) * step);
  const auto high = static_cast<float>(std::ceil(range.high / step) * step);
  const auto end = static_cast<float>(length), width = static_cast<float>(length * kMillimetres);
  const float height = kChartHeight * pen.m_fBiLiChi;
  const int across = 10, up = 8;
  pen.m_nAxisDecX = 1;
  pen.m_nAxisDecY = step < 0.1 ? 2 : 1;
  const auto draw = [&](const std::vector<LinePoint>& piece, int axis, int curve) {
    std::vector<float> x, y;
    for (const LinePoint& p : piece) {
      x.push_back(static_cast<float>(p.distance));
      y.push_back(static_cast<float>(-p.deflection));
    }
    pen.Draw_Curve(0, 0, static_cast<int>(x.size()), x.data(), y.data(), 0, end, low, high, width,
                   height, across, up, L"距 A 端 (m)", L"竖向位移 (mm)", axis, curve, 0);
  };
  draw({}, 1, 0);
  pen.Push_ENV();
  pen.SetCurColor(kPositive);
  for (const auto& piece : pieces) draw(piece, 0, 1);
  pen.Pop_ENV();
}

// Moments stand on the side of their tension: positive ones hang down.
void draw_moment_diagram(CBase_SGT& pen, const std::vector<std::vector<LinePoint>>& pieces) {
  double largest = 0;
  for (const auto& piece : pieces) {
    for (const LinePoint& p : piece) largest = std::max(largest, std::fabs(p.moment));
  }
  if (largest == 0) return;
  CBase_SGT::CURVEINFO info{};
  info.fLabelFactor = -1;
  info.fMaxValue = static_cast<float>(largest);
  info.fHeight = static_cast<float>(kDiagramHeight * pen.m_fBiLiChi / kMillimetres);
  for (const auto& piece : pieces) {
    CArray<float, float> x, y;
    for (const LinePoint& p : piece) {
      x.Add(static_cast<float>(p.distance));
      y.Add(static_cast<float>(-p.moment));
    }
    pen.Draw_XY(info, x, y);
    const auto mm = [](double metres) { return static_cast<float>(metres * kMillimetres); };
    for (const LinePoint& p : piece) {
      const double at = -p.moment * static_cast<double>(info.fHeight) / largest;
      const bool end = &p == &piece.front() || &p == &piece.back();
      pen.Push_ENV();
      if (!end) pen.SetCurColor(kZero);
      pen.Draw_Line(mm(p.distance), 0, mm(p.distance), mm(at));
      pen.Pop_ENV();
    }
    pen.Draw_Line(mm(piece.front().distance), 0, mm(piece.back().distance), 0);
  }
}

}  // namespace

std::unique_ptr<CBase_SGT> draw_contours(const PlateInput& plate, CChang& field,
                                         const Component& component) {
  const Box box = bounding_box(plate.outline);
  const double width = box.width() * kMillimetres, height = box.height() * kMillimetres;
  const float s = scale_for(width, height, kPlanRight - kPlanLeft, kPlanTop - kPlanBottom);
  std::unique_ptr<CBase_SGT> pen = new_pen(s);
  if (pen == nullptr) return nullptr;
  const std::wstring title = wformat(L"%s 等值线图", component.name);
  pen->SetCurLayer(L"FRAME");
  examples::draw_a3_sheet(*pen, plate.name + L" " + title, plate.sheet);

  const auto x = static_cast<float>(((kPlanLeft + kPlanRight) * s - width) / 2);
  const auto y = static_cast<float>(((kPlanBottom + kPlanTop) * s - height) / 2);
  pen->Push_ENV();
  pen->m_fOrgX = x - static_cast<float>(box.left * kMillimetres);
  pen->m_fOrgY = y - static_cast<float>(box.bottom * kMillimetres);
  pen->SetCurLayer(L"CONTOUR");
  pen->m_fScaleXY = static_cast<float>(kMillimetres);  // the field is in metres
  trace_contours(*pen, field, component);
  pen->m_fScaleXY = 1;
  pen->SetCurLayer(L"SLAB");
  pen->SetCurColor(7);
  draw_slab(*pen, plate, kMillimetres);
  pen->SetCurLayer(L"DIMENSION");
  const double reach = kLineMarkReach * s / (line_length(plate) * kMillimetres);
  const auto mark = [&](Point p, Point q, double Point::*c) {
    return static_cast<float>((p.*c + (p.*c - q.*c) * reach) * kMillimetres);
  };
  pen->Draw_PouXian(mark(plate.from, plate.to, &Point::x), mark(plate.from, plate.to, &Point::y),
                    mark(plate.to, plate.from, &Point::x), mark(plate.to, plate.from, &Point::y),
                    L"A", 1, 1);
  pen->m_fOrgX = x;
  pen->m_fOrgY = y;
  draw_dimensions(*pen, plate);
  examples::draw_title(*pen, static_cast<float>(width / 2), -kTitleBelow * s, title);
  pen->Pop_ENV();

  pen->SetCurLayer(L"NOTES");
  draw_notes(*pen, {L"说明：", slab_note(plate),
                    extremes(field, component) +
                        (&component == &kDeflection ? L"向下为正。" : L"板底受拉为正。"),
                    L"虚线边为简支，带短线边为固定，其余边自由；涂黑为柱。"});
  return pen;
}

std::unique_ptr<CBase_SGT> draw_line(const PlateInput& plate, CChang& field) {
  const double length = line_length(plate);
  const float s = scale_for(length * kMillimetres, 0, kChartWidth, 1);
  std::unique_ptr<CBase_SGT> pen = new_pen(s);
  if (pen == nullptr) return nullptr;
  pen->SetCurLayer(L"FRAME");
  examples::draw_a3_sheet(*pen, plate.name + L" A-A 内力图", plate.sheet);
  const std::vector<std::vector<LinePoint>> pieces = sample_line(plate, field);
  const auto middle = static_cast<float>(length * kMillimetres / 2);
  pen->Push_ENV();
  pen->SetCurLayer(L"CHART");
  pen->m_fOrgX = kChartLeft * s;
  pen->m_fOrgY = kChartBottom * s;
  draw_deflection_curve(*pen, pieces, length);
  examples::draw_title(*pen, middle, -22 * s, L"A-A 位移曲线", false);
  pen->m_fOrgY = kDiagramZero * s;
  draw_moment_diagram(*pen, pieces);
  pen->m_fOrgY = kDiagramTitle * s;
  examples::draw_title(*pen, middle, 0, L"A-A 弯矩图 (kN·m/m)", false);
  pen->Pop_ENV();
  pen->SetCurLayer(L"NOTES");
  draw_notes(*pen, {L"说明：", slab_note(plate),
                    wformat(L"A-A 自 (%g, %g) 至 (%g, %g) m，弯矩画在受拉一侧。", plate.from.x,
                            plate.from.y, plate.to.x, plate.to.y)});
  return pen;
}

bool plot_colours(const PlateInput& plate, CChang& field, const Component& component,
                  const wchar_t* path) {
  // One device unit of the pen's sizes a hundredth of the slab's width.
  const Box box = bounding_box(plate.outline);
  const double size = std::max(box.width(), box.height());
  const std::unique_ptr<CBase_SGT> pen = new_pen(static_cast<float>(size / 250));
  if (pen == nullptr) return false;
  draw_slab(*pen, plate, 1);
  const std::wstring title = wformat(L"%s %s (%s)", plate.name, component.name, component.unit);
  pen->Draw_Text(static_cast<float>(box.left), static_cast<float>(box.bottom - size * 0.06),
                 pen->m_fZiGao[3], 0, title.c_str());

  PictureView view;
  view.margin = 0.12;  // the legend stands in it
  view.background = RGB(255, 255, 255);
  CFCoor transform = picture_transform(*pen, view);
  RasterDevice device(view.size.cx, view.size.cy, 96);
  CDC dc(device);
  CRect area(0, 0, view.size.cx, view.size.cy);
  dc.FillSolidRect(area, view.background);
  field.m_nCurField = component.slot;
  field.m_nLegendFontSize = 14;
  field.m_nLegendRowHeight = 16;
  field.m_nLegendTextColor = 0;
  field.Draw_CaiSeTu(&dc, &area, &transform, 1, 1);
  view.fills_background = false;
  return draw_picture(*pen, dc, view) != 0 && write_png(path, device.bitmap(), 96);
}

}  // namespace brindle::plate
