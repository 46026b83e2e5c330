#include "brindle/table/easy_bmp_sel.h"

#include <algorithm>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/table/table_bitmaps.h"

namespace brindle {
namespace {

constexpr int kMostPerHang = 100;
constexpr int kChosenMessage = 0x1610;
constexpr int kNameWidth = 80, kNameHeight = 20;  // of a cell without a picture

}  // namespace

CEasyBmpSel::CEasyBmpSel() = default;

CEasyBmpSel::~CEasyBmpSel() {
  DestroyWindow();
}

void CEasyBmpSel::SetData(int* result, const int* bmpIds, int count, int perHang) {
  names_.RemoveAll();
  m_arBmp.RemoveAll();
  for (int i = 0; bmpIds && i < count; ++i) m_arBmp.Add(bmpIds[i]);
  set_data(result, bmpIds ? count : 0, perHang);
}

void CEasyBmpSel::SetData(int* result, const CString* names, int count, int perHang) {
  names_.RemoveAll();
  for (int i = 0; names && i < count; ++i) names_.Add(names[i]);
  if (m_arBmp.GetSize() != names_.GetSize()) m_arBmp.RemoveAll();
  set_data(result, names ? count : 0, perHang);
}

void CEasyBmpSel::set_data(int* result, int count, int perHang) {
  ClearEasyTable();  // its cells are bound to the old flags
  m_nCount = std::max(count, 0);
  m_nPerHang = std::clamp(perHang, 1, kMostPerHang);
  m_pResult = result;
  flags_.assign(static_cast<std::size_t>(m_nCount), 0);
  m_pSel = flags_.empty() ? nullptr : flags_.data();
  if (result && *result >= 0 && *result < m_nCount) m_pSel[*result] = 1;
  const auto first = m_arBmp.IsEmpty() ? nullptr : find_table_bitmap(m_arBmp[0]);
  m_nBmpWidth = first ? first->width() : 0;
  m_nBmpHeight = first ? first->height() : 0;
  if (GetSafeHwnd()) UpdateTable();
}

void CEasyBmpSel::Clear() {
  names_.RemoveAll();
  m_arBmp.RemoveAll();
  set_data(nullptr, 0, m_nPerHang);
}

void CEasyBmpSel::ReSetCellData() {
  ClearEasyTable();
  const int width = (m_nBmpWidth > 0 ? m_nBmpWidth : kNameWidth) + 2;
  std::vector<int> positions = {0};
  for (int i = 0; i <= m_nPerHang; ++i) positions.push_back(i * width);
  positions.push_back(-1);
  m_nHangHeight = m_nBmpHeight > 0 ? m_nBmpHeight : kNameHeight;
  const int rows = m_nCount / m_nPerHang + (m_nCount % m_nPerHang != 0);
  IniEasyTable(rows, 0, positions.data(), nullptr);
  AddReact(ETCR_MESSAGE, kChosenMessage);
  for (int i = 0; i < m_nCount; ++i) {
    CETCell* const cell = AddCheck(hang_of(i), lie_of(i), &m_pSel[i]);
    if (names_.IsEmpty()) continue;
    cell->SetTiShi(names_[i]);
    if (m_arBmp.IsEmpty()) cell->m_strCheckOn = cell->m_strCheckOff = names_[i];
  }
}

int CEasyBmpSel::picture_at(int hang, int lie) const {
  if (hang < 1 || lie < 2 || lie > m_nPerHang + 1) return -1;
  const LONGLONG index = (LONGLONG{hang} - 1) * m_nPerHang + lie - 2;
  return index < m_nCount ? static_cast<int>(index) : -1;
}

CETCell* CEasyBmpSel::FindCell(int index) {
  if (index < 0 || index >= m_nCount) return nullptr;
  return CEasyTableWnd::FindCell(hang_of(index), NewLie(lie_of(index)));
}

// One picture is chosen at any time: a click on it again doesn't undo that.
void CEasyBmpSel::AfterDataChange(int hang, int lie) {
  const int chosen = picture_at(hang, lie);
  if (chosen < 0) return;
  if (m_pResult) *m_pResult = chosen;
  for (int i = 0; i < m_nCount; ++i) {
    const int flag = i == chosen;
    if (m_pSel[i] == flag && i != chosen) continue;
    m_pSel[i] = flag;
    InvalidateCell(hang_of(i), NewLie(lie_of(i)));
  }
}

UINT CEasyBmpSel::GetCheckImage(int hang, int lie, int) {
  const int index = picture_at(hang, OldLie(lie));
  return index >= 0 && index < m_arBmp.GetSize() ? static_cast<UINT>(m_arBmp[index]) : 0;
}

void CEasyBmpSel::DrawContent(CDC* dc) {
  CEasyTableWnd::DrawContent(dc);
  for (int i = 0; i < m_nCount; ++i) {
    if (m_pSel[i] && FindCell(i)) DrawSelectTag(dc, hang_of(i), NewLie(lie_of(i)));
  }
}

}  // namespace brindle
