// Drawing of texts: coarse forms for the smallest, TrueType faces, and shape fonts.
#include <cmath>
#include <string>

#include "brindle/dxf/acad_style.h"
#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/cad_platform_option.h"
#include "brindle/dxf/drawing_globals.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/global_object_manager.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/dxf/text_escape.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;
constexpr BYTE kChineseCharset = 0x86;
constexpr double kCellHeight = 1.3;  // font cell against the text's height

// What one text is drawn with.
struct TextPicture {
  CDC& dc;
  const ACAD_TEXT& text;
  CPoint at;     // insertion point, device units
  float height;  // device units
  COLORREF color;
};

// A text of few pixels: a dot for the smallest, a bar for the next. False for a larger one.
bool draw_coarsely(const TextPicture& picture) {
  if (G_cCADPlatOption.m_bLodText == 0) return false;
  if (picture.height <= static_cast<float>(G_cCADPlatOption.m_nLodDotPixels)) {
    shared_safe_dc().SetPixel(picture.at, picture.color);
    return true;
  }
  if (!(picture.height <= static_cast<float>(G_cCADPlatOption.m_nLodBoxPixels))) return false;
  const std::wstring_view words = picture.text.m_szText.view();
  const CSize extent = picture.dc.GetTextExtent(words.data(), static_cast<int>(words.size()));
  const CPoint at = picture.at;
  const CPoint corner = at + CSize(extent.cx / 2, -length_to_pixels(picture.height));
  const CRect bar(at.x, corner.y, corner.x, at.y);
  CBrush brush(picture.color);
  picture.dc.FillRect(&bar, &brush);
  return true;
}

// Covers what lies behind a text.
void fill_background(const TextPicture& picture, const CFCoor& coor, double dx, double dy) {
  float xs[4], ys[4];
  picture.text.GetOutLook(xs, ys);
  CPoint corners[4];
  for (int i = 0; i < 4; ++i) corners[i] = to_device(&coor, xs[i], ys[i], dx, dy);
  CDC& dc = picture.dc;
  CBrush brush(dc.GetBkColor());
  CGdiObject* const old_pen = dc.SelectStockObject(NULL_PEN);
  CBrush* const old_brush = dc.SelectObject(&brush);
  dc.Polygon(corners, 4);
  dc.SelectObject(old_pen);
  dc.SelectObject(old_brush);
}

LOGFONT font_of(const TextPicture& picture, const wchar_t* face) {
  const ACAD_TEXT& text = picture.text;
  const double cell = picture.height * kCellHeight;
  LOGFONT font{};
  font.lfHeight = length_to_pixels(cell);
  font.lfWidth = length_to_pixels(cell * text.m_dWidthFactor * GetSystemMetrics(SM_CYSCREEN) /
                                  GetSystemMetrics(SM_CXSCREEN));
  font.lfEscapement = length_to_pixels(text.m_dAngle * 10);
  font.lfWeight = FW_NORMAL;
  font.lfItalic = static_cast<BYTE>(text.m_bItalic);
  font.lfCharSet = kChineseCharset;
  font.lfQuality = PROOF_QUALITY;
  lstrcpyn(font.lfFaceName, face, LF_FACESIZE);
  return font;
}

// With the device's own fonts.
void draw_by_device(const TextPicture& picture, const wchar_t* face, const std::wstring& words) {
  CDC& dc = picture.dc;
  const LOGFONT logical = font_of(picture, face);
  CFont font;
  if (!font.CreateFontIndirect(&logical)) return;
  CFont* const old_font = dc.SelectObject(&font);
  const COLORREF old_color = dc.SetTextColor(picture.color);
  const UINT old_align = dc.SetTextAlign(0);
  const int old_mode = dc.SetBkMode(picture.text.m_bOpaque != 0 ? OPAQUE : TRANSPARENT);
  // The font's cell hangs below its reference point.
  const double angle = picture.text.m_dAngle * kRadiansOfDegree;
  dc.TextOut(length_to_pixels(picture.at.x - picture.height * std::sin(angle)),
             length_to_pixels(picture.at.y - picture.height * std::cos(angle)), words.c_str(),
             static_cast<int>(words.size()));
  dc.SetBkMode(old_mode);
  dc.SetTextAlign(old_align);
  dc.SetTextColor(old_color);
  dc.SelectObject(old_font);
}

void draw_in_face(const TextPicture& picture, const CString& face, const CFCoor& coor, double dx,
                  double dy) {
  const ACAD_TEXT& text = picture.text;
  std::wstring words(text.m_szText.view());
  reduce_percents(words);
  TrueTypeDraw* const drawer = GetObjectManager()->GetTTDraw();
  if (is_metafile(&picture.dc) || drawer == nullptr || drawer->m_bOn == 0) {
    draw_by_device(picture, face, words);
    return;
  }
  if (text.m_bOpaque != 0) fill_background(picture, coor, dx, dy);
  drawer->DrawText(&picture.dc, picture.at.x, picture.at.y, text.m_dAngle, picture.height,
                   text.m_dWidthFactor, picture.color, face, words.c_str());
}

void draw_in_shapes(const TextPicture& picture, const ACAD_STYLE& style, const CFCoor& coor,
                    double dx, double dy) {
  const ACAD_TEXT& text = picture.text;
  if (text.m_bOpaque != 0) fill_background(picture, coor, dx, dy);
  CPen pen(text.GetPenStyle(), 1, picture.color);
  CPen* const old_pen = picture.dc.SelectObject(&pen);
  const auto draw = [&](auto operation) {
    (G_ShapeFont.*operation)(&picture.dc, picture.at.x, picture.at.y, text.m_szText, picture.height,
                             static_cast<float>(text.m_dAngle),
                             static_cast<float>(text.m_dWidthFactor), 1);
  };
  using Operation = void (CShx::*)(CDC*, int, int, const wchar_t*, float, float, float, int);
  draw(style.m_szBigFont.empty() ? static_cast<Operation>(&CShx::DrawTxtShx)
                                 : static_cast<Operation>(&CShx::DrawHzShx));
  picture.dc.SelectObject(old_pen);
}

}  // namespace

void ACAD_TEXT::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  CanvasScope scope(dc);
  const ACAD_STYLE* const style = GetStyle(m_szStyle);
  if (style == nullptr) return;
  const TextPicture picture{*dc, *this, to_device(coor, x, y, dx, dy),
                            static_cast<float>(coor->FPtoDP(G_RatioText * m_dHeight)),
                            drawing_color(*this)};
  if (m_bSelected != 0) draw_grip(dc, picture.at);
  if (draw_coarsely(picture)) return;
  CString face;
  if (IsTrueTypeStyle(style, face) != 0 && picture.height > 0) {
    draw_in_face(picture, face, *coor, dx, dy);
  } else {
    draw_in_shapes(picture, *style, *coor, dx, dy);
  }
}

void ACAD_TEXT::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_TEXT::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const ACAD_TEXT seen = seen_from(angle1, angle2);
  float xs[4], ys[4];
  seen.GetOutLook(xs, ys);
  CFRegion area;
  area.Init(xs, ys, 4);
  return hit_area(area, region, mode);
}

void ACAD_TEXT::Draw3D_Opengl(CDC* dc) {
  if (dc == nullptr) return;
  scene_color(GetColorNew(m_nColor));
  scene_enter_plane({x, y, z});
  G_ShapeFont.DrawTxtTrueType_OpenGL(0, 0, 0, m_szText, G_RatioText * m_dHeight, m_dAngle,
                                     m_dWidthFactor, 0, 0);
  scene_leave_plane();
}

}  // namespace brindle::Varnholt
