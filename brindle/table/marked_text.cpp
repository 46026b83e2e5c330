#include "brindle/table/marked_text.h"

#include "brindle/platform/graphics/dc.h"

namespace brindle {

namespace {

// The sign of a mark's letter, 0 for none.
wchar_t sign_of(wchar_t letter) {
  switch (letter) {
    case L'd':
    case L'D':
      return L'\u00B0';
    case L'p':
    case L'P':
      return L'\u00B1';
    case L'c':
    case L'C':
      return L'\u03C6';
    case L'%':
      return L'%';
    default:
      return 0;
  }
}

int draw_piece(CDC* dc, int x, int y, const CString& piece, bool underlined) {
  if (piece.IsEmpty()) return 0;
  const CSize size = dc->GetTextExtent(piece);
  dc->TextOut(x, y, piece);
  if (underlined) dc->FillSolidRect(x, y + size.cy - 1, size.cx, 1, dc->GetTextColor());
  return size.cx;
}

}  // namespace

int Draw_Text_Ext(CDC* dc, int x, int y, const CString& text, bool underlined) {
  const int start = x, length = text.GetLength();
  CString piece;
  for (int i = 0; i < length; ++i) {
    const bool mark = text[i] == L'%' && i + 2 < length && text[i + 1] == L'%';
    if (mark && (text[i + 2] == L'u' || text[i + 2] == L'U')) {
      x += draw_piece(dc, x, y, piece, underlined);
      piece.Empty();
      underlined = !underlined;
      i += 2;
    } else if (const wchar_t sign = mark ? sign_of(text[i + 2]) : 0) {
      piece += sign;
      i += 2;
    } else {
      piece += text[i];
    }
  }
  return x + draw_piece(dc, x, y, piece, underlined) - start;
}

}  // namespace brindle
