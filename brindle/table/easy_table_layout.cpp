#include <algorithm>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/table/easy_table_wnd.h"
#include "brindle/table/table_bitmaps.h"

namespace brindle {
namespace {

constexpr UINT kDiscardRetired = WM_APP + 0x61;

}  // namespace

void CEasyTableWnd::LieWid2LiePos(int* list) {
  if (!list || *list == -1) return;
  for (int i = 1; list[i] != -1; ++i) list[i] += list[i - 1];
}

void CEasyTableWnd::IniEasyTable(int hangCount, UINT titleBmp, const int* liePos,
                                 const CString* titles) {
  m_nEasyHang = std::max(hangCount, 0);
  m_nTitleBmp = titleBmp;
  m_arTitlePos.RemoveAll();
  tool_positions_.RemoveAll();
  m_bTextTitle = m_bTitleDragEnabled = titleBmp == 0 && titles != nullptr;

  std::vector<int> widths;
  for (int i = 0; liePos && liePos[i] != -1 && liePos[i + 1] != -1; ++i) {
    const bool is_set = i < m_arLieWidth2.GetSize() && m_arLieWidth2[i] != -1;
    widths.push_back(is_set ? m_arLieWidth2[i] : liePos[i + 1] - liePos[i]);
  }
  double total = 0, running = 0;
  for (int width : widths) total += width;
  const bool fits_window = m_bFixedWindowSize && total > 0;
  tool_positions_.Add(0);
  for (int width : widths) {
    running += width;
    // The sum is scaled before it is cut, so that the last column ends at the window's edge.
    tool_positions_.Add(static_cast<int>(fits_window ? running * m_nWidth / total : running));
  }
  m_arTitlePos.Copy(tool_positions_);
  if (m_bTextTitle) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      add_text(0, static_cast<int>(i) + 1, titles[i]);
    }
  }
  SetConctrlESC(1);
}

int CEasyTableWnd::column_count() const {
  if (!m_arLieXu.IsEmpty()) return static_cast<int>(m_arLieXu.GetSize());
  if (m_arTitlePos.IsEmpty()) return GetLieCount();
  const CArray<int, int>& boundaries = m_arDragLie.IsEmpty() ? m_arTitlePos : m_arDragLie;
  return static_cast<int>(boundaries.GetSize()) - 1;
}

// The widths of the columns displayed. With an order of columns the title's boundaries follow it,
// so that they are where the user sees them.
void CEasyTableWnd::lay_out_columns() {
  m_arLieWidth.RemoveAll();
  const auto add_width = [this](int from, int to) {
    m_arLieWidth.Add(static_cast<UINT>(std::max(to - from, 0)));
  };
  if (m_arLieXu.IsEmpty()) {
    const INT_PTR count = m_arDragLie.IsEmpty() ? m_arTitlePos.GetSize() : m_arDragLie.GetSize();
    const auto boundary = [this](INT_PTR i) {
      const INT_PTR index = m_arDragLie.IsEmpty() ? i : m_arDragLie[i];
      return m_arTitlePos[std::clamp<INT_PTR>(index, 0, m_arTitlePos.GetUpperBound())];
    };
    for (INT_PTR i = 1; i < count && !m_arTitlePos.IsEmpty(); ++i) {
      add_width(boundary(i - 1), boundary(i));
    }
    return;
  }
  m_arTitlePos.RemoveAll();
  m_arTitlePos.Add(0);
  for (int lie : m_arLieXu) {
    const bool exists = lie >= 1 && lie < tool_positions_.GetSize();
    exists ? add_width(tool_positions_[lie - 1], tool_positions_[lie]) : add_width(0, 0);
    m_arTitlePos.Add(m_arTitlePos[m_arTitlePos.GetUpperBound()] +
                     static_cast<int>(m_arLieWidth[m_arLieWidth.GetUpperBound()]));
  }
}

int CEasyTableWnd::title_height() {
  if (m_nTitleBmp != 0) {
    const auto bitmap = find_table_bitmap(m_nTitleBmp);
    return bitmap ? bitmap->height() : 1;
  }
  if (!m_bTextTitle) return 1;
  const bool is_tools = m_nTitleHeight > 1 && m_nTitleHeight != own_title_height_;
  if (is_tools) return m_nTitleHeight;
  own_title_height_ = std::max(GetTitleLineNumber(), 1) * (std::abs(m_nFontHeight) + 4) + 4;
  return own_title_height_;
}

void CEasyTableWnd::InitialAllData() {
  ReSetCellData();
  if (GetSafeHwnd()) {
    if (m_nEasyHang < m_nEditHang || column_count() < m_nEditLie) m_Edit.ShowWindow(SW_HIDE);
    for (void* control : m_arControl) static_cast<CETControl*>(control)->CreateCombo(this);
    if (!retired_.empty()) {
      for (const auto& control : retired_) {
        if (control->m_pCombo) control->m_pCombo->ShowWindow(SW_HIDE);
      }
      PostMessage(kDiscardRetired);
    }
  }
  lay_out_columns();
  m_nTitleHeight = title_height();
  m_nHangCount = m_nEasyHang;
  if (m_bSort && sorting_off_ == 0) SortCell(m_nSortLie);
}

// The cells were made before the window.
int CEasyTableWnd::OnCreate(LPCREATESTRUCT create) {
  const int result = CTableWnd::OnCreate(create);
  if (result == -1) return result;
  for (void* control : m_arControl) static_cast<CETControl*>(control)->CreateCombo(this);
  return result;
}

LRESULT CEasyTableWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kDiscardRetired) return CTableWnd::WindowProc(message, wParam, lParam);
  retired_.clear();
  return 0;
}

int CEasyTableWnd::OldLie(int lie) const {
  if (m_arLieXu.IsEmpty()) return lie;
  return lie >= 1 && lie <= m_arLieXu.GetSize() ? m_arLieXu[lie - 1] : -1;
}

int CEasyTableWnd::NewLie(int lie) const {
  if (m_arLieXu.IsEmpty()) return lie;
  const int* const found = std::find(m_arLieXu.begin(), m_arLieXu.end(), lie);
  return found == m_arLieXu.end() ? -1 : static_cast<int>(found - m_arLieXu.begin()) + 1;
}

void CEasyTableWnd::cells_moved() {
  cell_index_.forget();
  rule_list_.forget();
}

CETCell* CEasyTableWnd::find_tool_cell(int hang, int tool_lie) {
  if (hang < 0 || hang > m_nEasyHang) return nullptr;
  return cell_index_.find(m_arCell, hang, tool_lie);
}

CETCell* CEasyTableWnd::FindCell(int hang, int lie) {
  if (lie < 1 || lie > column_count()) return nullptr;
  return find_tool_cell(hang, OldLie(lie));
}

void CEasyTableWnd::SetCellColor(int hang, int lie, COLORREF color) {
  if (CETCell* const cell = FindCell(hang, lie)) cell->m_clrBk = color;
}

BOOL CreateEasyTable(CWnd* dialog, CTableWnd* table, DWORD id, int show) {
  CWnd* const place = dialog ? dialog->GetDlgItem(static_cast<int>(id)) : nullptr;
  if (!place || !table) return FALSE;
  RECT rect;
  place->GetWindowRect(&rect);
  dialog->ScreenToClient(&rect);
  if (!table->Create(rect, dialog, id)) return FALSE;
  // The grid takes the place's turn in the tab order, and its number is the grid's alone.
  table->SetWindowPos(place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  place->DestroyWindow();
  table->ShowWindow(show);
  return TRUE;
}

}  // namespace brindle
