#include "brindle/dxf/entity_drawing.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>
#include <vector>

#include "brindle/dxf/acad_entity.h"
#include "brindle/dxf/dxf.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/region.h"
#include "brindle/geometry/shape.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr COLORREF kGripColor = RGB(0, 0, 255);
constexpr int kGripReach = 3;  // pixels to each side of the middle
constexpr int kGripLimit = 2000;

bool all_inside(const CFRegion& region, std::initializer_list<CFPoint> points) {
  return std::all_of(points.begin(), points.end(),
                     [&](const CFPoint& p) { return region.InRegion(p) != 0; });
}

// The same arc as a counter-clockwise one that starts in [0, 2 pi): crossings with any other are
// looked for on the rest of its circle.
CFShape in_first_turn(const CFShape& arc) {
  constexpr double kTurn = 2 * 3.14159265358979323846;
  const double sweep = arc.GetB();
  const double start = std::fmod(arc.GetStartAngle() + std::min(sweep, 0.0), kTurn);
  return CFShape(arc, arc.GetR(), static_cast<float>(start < 0 ? start + kTurn : start),
                 static_cast<float>(std::fabs(sweep)));
}

bool meets_an_edge(const CFShape& shape, const CFRegion& region) {
  constexpr INT_PTR kFew = 16;
  const INT_PTR most = 2 * region.GetSize();
  CFPoint few[kFew];
  std::vector<CFPoint> many(most > kFew ? static_cast<std::size_t>(most) : 0);
  return region.Intersect(shape.IsArc() ? in_first_turn(shape) : shape,
                          many.empty() ? few : many.data()) != 0;
}

}  // namespace

CanvasScope::CanvasScope(CDC* dc) : canvas_(shared_safe_dc()), previous_(canvas_.m_pDC) {
  canvas_.m_pDC = dc;
}
CanvasScope::~CanvasScope() {
  canvas_.m_pDC = previous_;
}

PenStyleScope::PenStyleScope(const ACAD_ENTITY& entity) {
  shared_safe_dc().m_nPenStyle = entity.GetPenStyle();
}
PenStyleScope::~PenStyleScope() {
  shared_safe_dc().m_nPenStyle = 0;
}

DashPattern::DashPattern(const ACAD_ENTITY& entity, ACAD_LTYPE* ltype, CFCoor* coor, double scale)
    : dashes_(entity.LineType_FP2DP(ltype, coor, scale, count_)) {}
DashPattern::~DashPattern() {
  delete[] dashes_;
}

bool is_metafile(const CDC* dc) {
  if (dc == nullptr) return false;
  const PaintDevice* device = dc->device();
  return device != nullptr && device->kind() == PaintDevice::Kind::kMetafile;
}

bool draws_black(const CDC* dc) {
  return dc != nullptr && GetDXFPrintColor() == 0 && (dc->m_bPrinting != 0 || is_metafile(dc));
}

COLORREF drawing_color(const ACAD_ENTITY& entity) {
  return drawing_color(entity, entity.m_nColor);
}
COLORREF drawing_color(const ACAD_ENTITY& entity, int index) {
  const CDC* const dc = shared_safe_dc().m_pDC;
  const bool on_paper = dc != nullptr && dc->m_bPrinting != 0;
  return on_paper && GetDXFPrintColor() == 0 ? 0 : entity.GetColor(index);
}

CPoint to_device(const CFCoor* coor, double x, double y, double dx, double dy) {
  return coor->FP2toDP({static_cast<float>(x + dx), static_cast<float>(y + dy), 0});
}

CRect circle_box(const CFCoor* coor, double x, double y, double radius) {
  return coor->FPtoDP(CFRect(static_cast<float>(x - radius), static_cast<float>(y - radius),
                             static_cast<float>(x + radius), static_cast<float>(y + radius)));
}

int length_to_pixels(double pixels) {
  constexpr double kLimit = std::numeric_limits<int>::max();
  if (pixels >= kLimit) return std::numeric_limits<int>::max();
  if (pixels <= -kLimit) return -std::numeric_limits<int>::max();
  return pixels == pixels ? static_cast<int>(pixels) : 0;
}

void draw_grip(CDC* dc, CPoint at) {
  if (dc == nullptr || at.x < 0 || at.x > kGripLimit || at.y < 0 || at.y > kGripLimit) return;
  const bool black = dc->m_bPrinting != 0 || is_metafile(dc);
  CPen pen(PS_SOLID, 1, black ? 0 : kGripColor);
  CPen* const old_pen = dc->SelectObject(&pen);
  CGdiObject* const old_brush = dc->SelectStockObject(NULL_BRUSH);
  dc->Rectangle(at.x - kGripReach, at.y - kGripReach, at.x + kGripReach + 1, at.y + kGripReach + 1);
  dc->SelectObject(old_pen);
  dc->SelectObject(static_cast<CBrush*>(old_brush));
}

bool is_symbol_line_type(const wchar_t* name) {
  if (name == nullptr) return false;
  std::size_t length = 0;  // every line asks: one pass decides for nearly all names
  for (; name[length] != L'\0'; ++length) {
    if (name[length] == L'Z' && std::wcsncmp(name + length, L"ZDY_", 4) == 0) return true;
  }
  if (length != 3 && length != 5 && length != 6) return false;
  for (const wchar_t* special : {L"fhx", L"swx", L"bzhjcx", L"jdbzh", L"pxbzh"}) {
    if (_wcsicmp(name, special) == 0) return true;
  }
  return false;
}

int hit_shape(const CFShape& shape, const CFRegion& region, int mode) {
  if (region.IsEmpty()) return 0;
  bool inside = false;
  if (shape.IsLine()) {
    inside = all_inside(region, {shape.GetStartPoint(), shape.GetEndPoint()});
  } else if (shape.IsArc()) {
    inside =
        all_inside(region, {shape.GetStartPoint(), shape.GetEndPoint(), shape.GetMiddlePoint()});
  } else if (shape.IsCircle()) {
    const float r = shape.GetR();
    inside = all_inside(region, {{shape.x + r, shape.y, 0},
                                 {shape.x, shape.y + r, 0},
                                 {shape.x - r, shape.y, 0},
                                 {shape.x, shape.y - r, 0}});
  } else {
    return region.InRegion(shape.GetStartPoint());
  }
  return inside || (mode == 0 && meets_an_edge(shape, region));
}

int hit_area(const CFRegion& area, const CFRegion& region, int mode) {
  if (area.IsEmpty() || region.IsEmpty()) return 0;
  return region.Intersect(area, mode != 0);
}

}  // namespace brindle::Varnholt
