// Text in TrueType faces, fitted to the nominal heights of drawings.
#pragma once

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CDC;
namespace Varnholt {
class ACAD_STYLE;
}

// Draws with measured factors, so that capitals of a face come out about as high as the text is
// told to be.
class TrueTypeDraw {
 public:
  struct FaceFactors {
    double size;   // em against the nominal text height
    double width;  // measured width against half an em a byte
  };

  // By the name: a face with "GB", with "黑体", or any other.
  const FaceFactors& factors(const wchar_t* face) const;

  // One line of text with its insertion point (device units, y down) on the base line; the angle in
  // degrees, counter-clockwise on the screen. The pen, the alignment and the background mode of the
  // device don't matter. Nothing without a device, or when it has no glyphs.
  void DrawText(CDC* dc, double x, double y, double angle, double h, double widthFactor,
                COLORREF color, const wchar_t* face, const wchar_t* text);

  // Width in the units of h: each byte of the text in the ANSI code page counts half an em.
  double GetTextWidth(const wchar_t* text, double h, double widthFactor, const wchar_t* face) const;

  int m_bOn = 1;  // 0: callers draw through the device's own fonts
  int m_nReserved[3] = {};
  FaceFactors m_factorGB{1.34, 1.026};
  FaceFactors m_factorHei{1.42, 1.015};
  FaceFactors m_factorOther{1.4, 1.015};
  double m_dX = 0, m_dY = 0;  // insertion point of the last text
  double m_dFactorX = 1.36;   // origin of the string: a sixth of this height to the left,
  double m_dFactorY = 1.186;  // and this height up
  CString m_strFace;          // face of the last text
};

// 1 with the face when texts of the style are to be drawn in a TrueType face: one of the four that
// styles name (宋体, 黑体, 楷体_GB2312, 仿宋_GB2312), or 宋体 while a shape font isn't loaded. Else
// 0, and `face` is left alone. A null style names no face.
int IsTrueTypeStyle(const Varnholt::ACAD_STYLE* style, CString& face);

}  // namespace brindle
