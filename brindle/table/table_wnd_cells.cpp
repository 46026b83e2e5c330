// Painting one cell: its ground, its text, its marks.
#include <algorithm>
#include <cstdlib>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/table/marked_text.h"
#include "brindle/table/table_bitmaps.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

constexpr COLORREF kHeadGround = 0xC0C0C0, kSelectedGround = 0xE6DCA0, kHotGround = kSelectedGround;
constexpr COLORREF kCurrentHeadText = 0x646464, kClosedText = 0x808080;
constexpr COLORREF kMarkDark = 0x505050, kMarkLight = 0xFFFFFF;

COLORREF lighter(COLORREF color, int by) {
  const auto channel = [by](int value) { return std::clamp(value + by, 0, 255); };
  return RGB(channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)));
}

// The desktop chooses its face colour, and it may be dark: text on it is made readable. Thin
// strokes come out fainter than their colour, which shows on a dark ground, so there more is asked
// for.
COLORREF readable_on_face(COLORREF text) {
  constexpr int kFainter = 40, kDark = 0x60;
  const COLORREF face = GetSysColor(COLOR_3DFACE), readable = readable_color(text, face);
  const bool dark = GetRValue(face) + GetGValue(face) + GetBValue(face) < 3 * kDark;
  return dark ? readable_color(readable, lighter(face, kFainter)) : readable;
}

// Top five sixths in steps from a darker to a lighter tone of the face colour, the rest in the
// latter.
void fill_head(CDC* dc, const CRect& rect) {
  constexpr int kSteps = 64, kDepth = 10;
  const COLORREF face = GetSysColor(COLOR_3DFACE);
  const int part = rect.Height() * 5 / 6;
  const int step = std::max(1, part / kSteps);
  for (int y = 0; y < part; y += step) {
    const int by = -kDepth + (part > step ? 2 * kDepth * y / (part - step) : 2 * kDepth);
    dc->FillSolidRect(rect.left, rect.top + y, rect.Width(), std::min(step, part - y),
                      lighter(face, std::min(by, kDepth)));
  }
  dc->FillSolidRect(rect.left, rect.top + part, rect.Width(), rect.Height() - part,
                    lighter(face, kDepth));
}

bool is_centred(const CString& text, bool check) {
  return check || text == L"---";
}

}  // namespace

COLORREF CTableWnd::GetHangLieTextColor(int hang, int lie) {
  if (lie == 1) {
    RECT rect;
    GetHangLieRect(hang, lie, rect);
    return hang == m_nCurHang && rect.right - rect.left > 3 ? kCurrentHeadText : RGB(0, 0, 0);
  }
  return CanEdit(hang, lie) ? RGB(0, 0, 0) : kClosedText;
}

COLORREF CTableWnd::GetHangLieBkColor(int hang, int lie) {
  if (lie == 1) return kHeadGround;
  const BOOL open = CanEdit(hang, lie);
  if (m_bShowBckClor && open == TRUE && IfMutiSelection(hang)) return kSelectedGround;
  return open ? m_clrEdit : m_clrNoEdit;
}

// On the grid's and the tool's own colours text has the colour that it was given.
void CTableWnd::fill_cell(CDC* dc, const CRect& rect, COLORREF color, COLORREF& text_color) {
  const COLORREF face = GetSysColor(COLOR_3DFACE);
  const bool closed = color == m_clrNoEdit;
  if (color == m_clrHead) {
    fill_head(dc, rect);
  } else {
    dc->FillSolidRect(&rect, closed ? face : color);
  }
  if (color == m_clrHead || closed) text_color = readable_on_face(text_color);
}

void CTableWnd::draw_selection_mark(CDC* dc, const CRect& rect) {
  const int half = rect.Height() / 2 / 2;
  const CPoint tip(rect.right - 5, (rect.top + rect.bottom) / 2);
  const POINT corners[] = {tip, CPoint(tip.x - half, tip.y - half),
                           CPoint(tip.x - half, tip.y + half)};
  CPen dark(PS_SOLID, 1, kMarkDark), light(PS_SOLID, 1, kMarkLight);
  CBrush fill(m_clrBorderDark);
  CPen* const old_pen = dc->SelectObject(&dark);
  CBrush* const old_brush = dc->SelectObject(&fill);
  dc->Polygon(corners, 3);
  dc->SelectObject(&light);
  dc->MoveTo(corners[2]);
  dc->LineTo(corners[0]);
  dc->SelectObject(old_brush);
  dc->SelectObject(old_pen);
}

void CTableWnd::draw_small_button(CDC* dc, const CRect& rect, bool hot) {
  const COLORREF ground = hot ? kHotGround : GetSysColor(COLOR_3DFACE);
  dc->FillSolidRect(&rect, ground);
  dc->Draw3dRect(&rect, kMarkLight, kMarkDark);
  const int y = (rect.top + rect.bottom) / 2;
  for (int i = 0; i < 3; ++i) {
    dc->FillSolidRect(rect.left + 2 + 2 * i, y + 2, 1, 1, readable_color(kMarkDark, ground));
  }
}

void CTableWnd::DrawACell(CDC* dc, int hang, int lie, const CString& text) {
  if (!VisibleHang(hang) || !VisibleLie(lie)) return;
  const bool shifted = !m_arShiftedLie.IsEmpty() && IsLieShifted(lie);
  if (shifted && hang == m_nHangCount && hang > 0) return;
  CRect rect;
  GetHangLieRect(hang, lie, rect);
  if (rect.Width() < 3) return;
  // The title of a column that stands lower keeps to the band.
  if (shifted && hang == 0) rect.OffsetRect(0, -(m_nHangHeight / 2));
  // Grid lines stay free: the line below at the row's last pixel, the one at the right.
  CRect ground(rect.left, rect.top + 1, rect.right - 1, rect.bottom);
  if (lie == GetLieCount()) ground.right = rect.right + 1;
  COLORREF text_color = hang == 0 ? RGB(0, 0, 0) : GetHangLieTextColor(hang, lie);
  fill_cell(dc, ground, hang == 0 ? m_clrHead : GetHangLieBkColor(hang, lie), text_color);

  const bool check = hang > 0 && IsCheck(hang, lie);
  const UINT image = check ? GetCheckImage(hang, lie, GetCheckValue(hang, lie)) : 0;
  if (image != 0) {
    CenterImage(dc, rect, image);
  } else {
    CFont* const old = dc->SelectObject(check ? &m_CheckFont : &m_hFont);
    dc->SetBkMode(TRANSPARENT);
    dc->SetTextColor(text_color);
    CenterText(dc, hang, lie, rect, text);
    dc->SelectObject(old);
  }
  const bool marked = lie == 1 && hang > 0 && m_bSelMark && m_nHangCount > 1;
  if (marked && IfMutiSelection(hang)) draw_selection_mark(dc, rect);
  CRect button;
  if (m_bCellBtn && small_button_rect(hang, lie, button)) {
    draw_small_button(dc, button, hang == m_nHotHang && lie == m_nHotLie);
  }
  const bool entered = hang == m_nEditHang && lie == m_nEditLie && hang > 0;
  if (entered && has_window() && GetFocus() == this && takes_only_clicks(hang, lie)) {
    ground.DeflateRect(1, 1);
    dc->DrawFocusRect(&ground);
  }
}

void CTableWnd::CenterImage(CDC* dc, const RECT& rect, UINT id) {
  const auto picture = find_table_bitmap(id);
  if (picture == nullptr) return;
  draw_table_bitmap(dc, (rect.left + rect.right - picture->width()) / 2,
                    (rect.top + rect.bottom - picture->height()) / 2, id);
}

void CTableWnd::CenterText(CDC* dc, int hang, int lie, const RECT& rect, const CString& text) {
  if (hang > m_nHangCount || rect.top > m_nHeight) return;
  if (hang > 0 && rect.top < 1) return;
  const int font_height = std::abs(static_cast<int>(m_LogFont.lfHeight));
  CPoint at(rect.left + 5, (rect.top + rect.bottom) / 2 - font_height / 2 + 1);
  const bool wide_button = hang > 0 && IsButton(hang, lie) && GetButtonID(hang, lie) < 0;
  if (wide_button) {
    const CRect face(rect.left + 4, rect.top + 2, rect.right - 4, rect.bottom - 1);
    const bool sunk = m_bBtnDown && hang == m_nBtnHang && lie == m_nBtnLie;
    dc->FillSolidRect(&face, GetSysColor(COLOR_3DFACE));
    dc->SetTextColor(readable_on_face(dc->GetTextColor()));
    dc->Draw3dRect(&face, sunk ? kMarkDark : kMarkLight, sunk ? kMarkLight : kMarkDark);
    if (sunk) at.Offset(1, 1);
  }
  if (text.IsEmpty()) return;
  const CRect inside(rect.left, rect.top, rect.right, rect.bottom);
  if (wide_button || is_centred(text, hang > 0 && IsCheck(hang, lie))) {
    const int shift = wide_button ? at.x - rect.left - 5 : 0;
    at.x = (rect.left + rect.right - dc->GetTextExtent(text).cx) / 2 + shift;
    dc->ExtTextOut(at.x, at.y, ETO_CLIPPED, inside, text, nullptr);
  } else if (IsTextUnderLine(hang, lie) && IsTextEscape(hang, lie)) {
    const int level = dc->SaveDC();
    dc->IntersectClipRect(&rect);
    Draw_Text_Ext(dc, at.x, at.y, text, true);
    dc->RestoreDC(level);
  } else if (hang == 0 || IsMutiLine(hang, lie)) {
    draw_lines(dc, inside, hang, font_height, at, text);
  } else {
    dc->ExtTextOut(at.x, at.y, ETO_CLIPPED, inside, text, nullptr);
  }
}

// Lines split at carriage returns and line feeds, each a font height below the one before. The
// title's stand in the middle together.
void CTableWnd::draw_lines(CDC* dc, const CRect& rect, int hang, int font_height, CPoint at,
                           const CString& text) {
  CStringArray lines;
  int position = 0;
  for (;;) {
    const CString piece = text.Tokenize(L"\r\n", position);
    if (position < 0) break;
    lines.Add(piece);
  }
  const int count = static_cast<int>(lines.GetSize());
  int y = hang == 0 ? at.y - (count - 1) * font_height / 2 : rect.top + 3;
  for (const CString& piece : lines) {
    dc->ExtTextOut(at.x, y, ETO_CLIPPED, rect, piece, nullptr);
    y += font_height;
  }
}

}  // namespace brindle
