// The framework's names for what painting is told in numbers: styles of pens and brushes, raster
// operations, text flags, and the plain structures that describe fonts, pens and bitmaps.
#pragma once

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// Handles. A handle of a drawing object stays good as long as the object that gave it.
struct DeviceContext;
using HDC = DeviceContext*;
using HGDIOBJ = struct HGDIOBJ__*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HFONT = struct HFONT__*;
using HBITMAP = struct HBITMAP__*;
using HRGN = struct HRGN__*;

inline constexpr COLORREF CLR_INVALID = 0xffffffff;

// Pens: the style in the low four bits.
inline constexpr int PS_SOLID = 0, PS_DASH = 1, PS_DOT = 2, PS_DASHDOT = 3, PS_DASHDOTDOT = 4,
                     PS_NULL = 5, PS_INSIDEFRAME = 6, PS_USERSTYLE = 7, PS_ALTERNATE = 8,
                     PS_STYLE_MASK = 15;
inline constexpr int PS_ENDCAP_ROUND = 0, PS_ENDCAP_SQUARE = 0x100, PS_ENDCAP_FLAT = 0x200,
                     PS_ENDCAP_MASK = 0xf00, PS_JOIN_ROUND = 0, PS_JOIN_BEVEL = 0x1000,
                     PS_JOIN_MITER = 0x2000, PS_JOIN_MASK = 0xf000, PS_COSMETIC = 0,
                     PS_GEOMETRIC = 0x10000, PS_TYPE_MASK = 0xf0000;
// Brushes and their hatches: 0 to 5 are horizontal, vertical, falling, rising, cross, slant cross.
inline constexpr int BS_SOLID = 0, BS_NULL = 1, BS_HOLLOW = 1, BS_HATCHED = 2, BS_PATTERN = 3;
inline constexpr int HS_HORIZONTAL = 0, HS_VERTICAL = 1, HS_FDIAGONAL = 2, HS_BDIAGONAL = 3,
                     HS_CROSS = 4, HS_DIAGCROSS = 5;
// Binary raster operations of pens and brushes.
inline constexpr int R2_BLACK = 1, R2_NOTMERGEPEN = 2, R2_MASKNOTPEN = 3, R2_NOTCOPYPEN = 4,
                     R2_MASKPENNOT = 5, R2_NOT = 6, R2_XORPEN = 7, R2_NOTMASKPEN = 8,
                     R2_MASKPEN = 9, R2_NOTXORPEN = 10, R2_NOP = 11, R2_MERGENOTPEN = 12,
                     R2_COPYPEN = 13, R2_MERGEPENNOT = 14, R2_MERGEPEN = 15, R2_WHITE = 16,
                     R2_LAST = 16;
// Raster operations of blits.
inline constexpr DWORD SRCCOPY = 0x00CC0020, SRCPAINT = 0x00EE0086, SRCAND = 0x008800C6,
                       SRCINVERT = 0x00660046, SRCERASE = 0x00440328, NOTSRCCOPY = 0x00330008,
                       NOTSRCERASE = 0x001100A6, MERGECOPY = 0x00C000CA, MERGEPAINT = 0x00BB0226,
                       PATCOPY = 0x00F00021, PATPAINT = 0x00FB0A09, PATINVERT = 0x005A0049,
                       DSTINVERT = 0x00550009, BLACKNESS = 0x00000042, WHITENESS = 0x00FF0062;

inline constexpr int TRANSPARENT = 1, OPAQUE = 2;
inline constexpr int ALTERNATE = 1, WINDING = 2;
inline constexpr int AD_COUNTERCLOCKWISE = 1, AD_CLOCKWISE = 2;
inline constexpr int BLACKONWHITE = 1, WHITEONBLACK = 2, COLORONCOLOR = 3, HALFTONE = 4;
inline constexpr int MM_TEXT = 1, MM_LOMETRIC = 2, MM_HIMETRIC = 3, MM_LOENGLISH = 4,
                     MM_HIENGLISH = 5, MM_TWIPS = 6, MM_ISOTROPIC = 7, MM_ANISOTROPIC = 8;
// Regions: how two are combined, and what came out.
inline constexpr int RGN_AND = 1, RGN_OR = 2, RGN_XOR = 3, RGN_DIFF = 4, RGN_COPY = 5;
inline constexpr int ERROR = 0, NULLREGION = 1, SIMPLEREGION = 2, COMPLEXREGION = 3;

// Text.
inline constexpr UINT TA_NOUPDATECP = 0, TA_UPDATECP = 1, TA_LEFT = 0, TA_RIGHT = 2, TA_CENTER = 6,
                      TA_TOP = 0, TA_BOTTOM = 8, TA_BASELINE = 24, TA_RTLREADING = 256,
                      TA_HORIZONTAL_MASK = 6, TA_VERTICAL_MASK = 24;
inline constexpr UINT ETO_OPAQUE = 2, ETO_CLIPPED = 4, ETO_GLYPH_INDEX = 0x10, ETO_PDY = 0x2000;
inline constexpr UINT DT_TOP = 0, DT_LEFT = 0, DT_CENTER = 1, DT_RIGHT = 2, DT_VCENTER = 4,
                      DT_BOTTOM = 8, DT_WORDBREAK = 0x10, DT_SINGLELINE = 0x20,
                      DT_EXPANDTABS = 0x40, DT_TABSTOP = 0x80, DT_NOCLIP = 0x100,
                      DT_EXTERNALLEADING = 0x200, DT_CALCRECT = 0x400, DT_NOPREFIX = 0x800,
                      DT_INTERNAL = 0x1000, DT_EDITCONTROL = 0x2000, DT_PATH_ELLIPSIS = 0x4000,
                      DT_END_ELLIPSIS = 0x8000, DT_MODIFYSTRING = 0x10000, DT_RTLREADING = 0x20000,
                      DT_WORD_ELLIPSIS = 0x40000, DT_NOFULLWIDTHCHARBREAK = 0x80000,
                      DT_HIDEPREFIX = 0x100000, DT_PREFIXONLY = 0x200000;

// Fonts.
inline constexpr int FW_DONTCARE = 0, FW_THIN = 100, FW_EXTRALIGHT = 200, FW_LIGHT = 300,
                     FW_NORMAL = 400, FW_REGULAR = 400, FW_MEDIUM = 500, FW_SEMIBOLD = 600,
                     FW_BOLD = 700, FW_EXTRABOLD = 800, FW_HEAVY = 900, FW_BLACK = 900;
inline constexpr BYTE ANSI_CHARSET = 0, DEFAULT_CHARSET = 1, SYMBOL_CHARSET = 2,
                      SHIFTJIS_CHARSET = 128, HANGUL_CHARSET = 129, GB2312_CHARSET = 134,
                      CHINESEBIG5_CHARSET = 136, GREEK_CHARSET = 161, RUSSIAN_CHARSET = 204,
                      OEM_CHARSET = 255;
inline constexpr BYTE OUT_DEFAULT_PRECIS = 0, OUT_STRING_PRECIS = 1, OUT_CHARACTER_PRECIS = 2,
                      OUT_STROKE_PRECIS = 3, OUT_TT_PRECIS = 4, OUT_TT_ONLY_PRECIS = 7;
inline constexpr BYTE CLIP_DEFAULT_PRECIS = 0, CLIP_CHARACTER_PRECIS = 1, CLIP_STROKE_PRECIS = 2,
                      CLIP_LH_ANGLES = 16;
inline constexpr BYTE DEFAULT_QUALITY = 0, DRAFT_QUALITY = 1, PROOF_QUALITY = 2,
                      NONANTIALIASED_QUALITY = 3, ANTIALIASED_QUALITY = 4, CLEARTYPE_QUALITY = 5;
inline constexpr BYTE DEFAULT_PITCH = 0, FIXED_PITCH = 1, VARIABLE_PITCH = 2, FF_DONTCARE = 0,
                      FF_ROMAN = 16, FF_SWISS = 32, FF_MODERN = 48, FF_SCRIPT = 64,
                      FF_DECORATIVE = 80;
inline constexpr int LF_FACESIZE = 32;

// What GetDeviceCaps is asked, and some answers.
inline constexpr int DRIVERVERSION = 0, TECHNOLOGY = 2, HORZSIZE = 4, VERTSIZE = 6, HORZRES = 8,
                     VERTRES = 10, BITSPIXEL = 12, PLANES = 14, NUMBRUSHES = 16, NUMPENS = 18,
                     NUMFONTS = 22, NUMCOLORS = 24, ASPECTX = 40, ASPECTY = 42, ASPECTXY = 44,
                     LOGPIXELSX = 88, LOGPIXELSY = 90, RASTERCAPS = 38, SIZEPALETTE = 104,
                     NUMRESERVED = 106, COLORRES = 108, PHYSICALWIDTH = 110, PHYSICALHEIGHT = 111,
                     PHYSICALOFFSETX = 112, PHYSICALOFFSETY = 113;
inline constexpr int DT_PLOTTER = 0, DT_RASDISPLAY = 1, DT_RASPRINTER = 2, DT_METAFILE = 5;

// Objects that are always there.
inline constexpr int WHITE_BRUSH = 0, LTGRAY_BRUSH = 1, GRAY_BRUSH = 2, DKGRAY_BRUSH = 3,
                     BLACK_BRUSH = 4, NULL_BRUSH = 5, HOLLOW_BRUSH = 5, WHITE_PEN = 6,
                     BLACK_PEN = 7, NULL_PEN = 8, OEM_FIXED_FONT = 10, ANSI_FIXED_FONT = 11,
                     ANSI_VAR_FONT = 12, SYSTEM_FONT = 13, DEVICE_DEFAULT_FONT = 14,
                     SYSTEM_FIXED_FONT = 16, DEFAULT_GUI_FONT = 17;

inline constexpr DWORD GRADIENT_FILL_RECT_H = 0, GRADIENT_FILL_RECT_V = 1,
                       GRADIENT_FILL_TRIANGLE = 2;
inline constexpr BYTE AC_SRC_OVER = 0, AC_SRC_ALPHA = 1;

// Logical units; a negative height is the em square's, a positive one the cell's, 0 a usual size.
// Angles in tenths of a degree, counter-clockwise as seen.
struct LOGFONT {
  LONG lfHeight = 0;
  LONG lfWidth = 0;  // of the average character; 0: as the height asks
  LONG lfEscapement = 0;
  LONG lfOrientation = 0;
  LONG lfWeight = 0;
  BYTE lfItalic = 0;
  BYTE lfUnderline = 0;
  BYTE lfStrikeOut = 0;
  BYTE lfCharSet = 0;
  BYTE lfOutPrecision = 0;
  BYTE lfClipPrecision = 0;
  BYTE lfQuality = 0;
  BYTE lfPitchAndFamily = 0;
  wchar_t lfFaceName[LF_FACESIZE] = {};  // ends with a zero
  bool operator==(const LOGFONT&) const = default;
};
struct LOGPEN {
  UINT lopnStyle = PS_SOLID;
  POINT lopnWidth = {};  // x only
  COLORREF lopnColor = 0;
};
struct LOGBRUSH {
  UINT lbStyle = BS_SOLID;
  COLORREF lbColor = 0;
  UINT_PTR lbHatch = 0;
};
struct TEXTMETRIC {
  LONG tmHeight = 0;  // tmAscent + tmDescent
  LONG tmAscent = 0;
  LONG tmDescent = 0;
  LONG tmInternalLeading = 0;
  LONG tmExternalLeading = 0;
  LONG tmAveCharWidth = 0;
  LONG tmMaxCharWidth = 0;
  LONG tmWeight = 0;
  LONG tmOverhang = 0;
  LONG tmDigitizedAspectX = 0;
  LONG tmDigitizedAspectY = 0;
  wchar_t tmFirstChar = 0;
  wchar_t tmLastChar = 0;
  wchar_t tmDefaultChar = 0;
  wchar_t tmBreakChar = 0;
  BYTE tmItalic = 0;
  BYTE tmUnderlined = 0;
  BYTE tmStruckOut = 0;
  BYTE tmPitchAndFamily = 0;
  BYTE tmCharSet = 0;
};
struct DRAWTEXTPARAMS {
  UINT cbSize = sizeof(DRAWTEXTPARAMS);
  int iTabLength = 0;  // average characters; 0 is 8
  int iLeftMargin = 0;
  int iRightMargin = 0;
  UINT uiLengthDrawn = 0;  // out: characters used
};
// A bitmap's extent; rows from the top down, each bmWidthBytes long.
struct BITMAP {
  LONG bmType = 0;
  LONG bmWidth = 0;
  LONG bmHeight = 0;
  LONG bmWidthBytes = 0;
  WORD bmPlanes = 1;
  WORD bmBitsPixel = 32;
  void* bmBits = nullptr;
};
// Colours from 0 to 0xff00.
struct TRIVERTEX {
  LONG x = 0;
  LONG y = 0;
  WORD Red = 0;
  WORD Green = 0;
  WORD Blue = 0;
  WORD Alpha = 0;
};
struct GRADIENT_TRIANGLE {
  ULONG Vertex1 = 0;
  ULONG Vertex2 = 0;
  ULONG Vertex3 = 0;
};
struct GRADIENT_RECT {
  ULONG UpperLeft = 0;
  ULONG LowerRight = 0;
};
struct BLENDFUNCTION {
  BYTE BlendOp = AC_SRC_OVER;
  BYTE BlendFlags = 0;
  BYTE SourceConstantAlpha = 255;
  BYTE AlphaFormat = 0;
};
struct DOCINFO {
  int cbSize = sizeof(DOCINFO);
  LPCTSTR lpszDocName = nullptr;
  LPCTSTR lpszOutput = nullptr;
  LPCTSTR lpszDatatype = nullptr;
  DWORD fwType = 0;
};

}  // namespace brindle
