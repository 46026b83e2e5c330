// CShx: text drawn with strokes from CAD shape fonts, one small (Western) and one big (GB2312).
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CDC;

// How the outline of a character lies, in units of the font's size, y up.
struct POINTFLOAT {
  float x = 0, y = 0;
};
struct GLYPHMETRICSFLOAT {
  float gmfBlackBoxX = 0, gmfBlackBoxY = 0;
  POINTFLOAT gmfptGlyphOrigin;  // the top left corner of the black box
  float gmfCellIncX = 0, gmfCellIncY = 0;
};

// The two fonts of a process and their drawing. All drawing goes through the shared canvas, whose
// device becomes `dc` and stays so; the caller selects the pen. One thread at a time.
//
// Heights are in device units for drawing, in any unit for widths. Angles are degrees, counter-
// clockwise in a frame with y up; mode 1 tells that the device has y down. A text starts at its
// insertion point on the base line and runs on by the way that each shape leaves the pen.
//
// Files are not trusted: shapes outside of a file are as good as missing, operands past its end
// read as 0, sub-shapes go kMaxDepth deep, and a character ends after kMaxSteps codes.
class CShx {
 public:
  static constexpr int kMaxDepth = 32;
  static constexpr int kMaxSteps = 20000;

  CShx();
  ~CShx();
  CShx(const CShx&) = delete;
  CShx& operator=(const CShx&) = delete;

  // --- fonts; the path is dir and file joined as they stand. 1; 0 and no change when a font of the
  // kind is loaded already, or when the file can't be read or holds no font.
  int SetTxtFont(const wchar_t* dir, const wchar_t* file);
  int SetHzFont(const wchar_t* dir, const wchar_t* file);
  // Frees both fonts, so that others can be loaded.
  void initialize();

  // --- drawing; nothing without a device, a text, or the fonts that the operation needs.
  // The low byte of each character picks a shape of the small font: that of "?", or else the first
  // one, where the font has none and for bytes above 160, which belong to double-byte characters.
  void DrawTxtShx(CDC* dc, int x, int y, const wchar_t* text, float h, float angle,
                  float widthFactor, int mode);
  // An older form: the angle is in radians, and the scale along the text is factor / m_fTxtHeight
  // without the height. Both are meant.
  void DrawTxtShx(CDC* dc, const CPoint& at, const wchar_t* text, float h, float angle,
                  float factor, int mode);
  // Characters from 161 on are taken from the big font, by their two bytes in the ANSI code page
  // (in page 936 when that is UTF-8). One that the font lacks is the small font's default shape
  // twice. A character that the page lacks is left out; one of a single byte is drawn in the small
  // font and ends the text.
  void DrawHzShx(CDC* dc, int x, int y, const wchar_t* text, float h, float angle,
                 float widthFactor, int mode);

  // --- widths of the same texts in the units of h; 0 without the fonts.
  float GetTxtWidth(const wchar_t* text, float h, float widthFactor);
  float GetHzWidth(const wchar_t* text, float h, float widthFactor);

  // --- OpenGL; a context must be current.
  // Makes 256 display lists of the outlines of "Arial", each a character filled with polygons and
  // the way to the next one, one unit the font's size. Nothing without a glyph renderer. The device
  // is not needed.
  void FormTxtList(CDC* dc);
  // Draws from those lists with `angle` about z, then rotX about x and rotY about y, all degrees,
  // and sizes times 0.001. Nothing without lists or without a small font. As many bytes as the text
  // has characters are read from its 16-bit units, low byte first: that is meant.
  void DrawTxtTrueType_OpenGL(double x, double y, double z, const wchar_t* text, double h,
                              double angle, double widthFactor, double rotX, double rotY);

  // --- data
  int m_bTxtLoaded = 0, m_bHzLoaded = 0;
  int m_nListBase = 0, m_bListMade = 0;
  GLYPHMETRICSFLOAT m_glyphMetrics[256];
  float m_fTxtHeight = 0;                       // "above" of the small font
  std::vector<int> m_pTxtIndex;                 // 256 offsets into m_pTxtData
  std::vector<BYTE> m_pTxtData;                 // what stands behind the small font's description
  int m_nTxtDefault = 0;                        // offset of the shape of "?", or 0
  float m_fHzHeight = 0;                        // "above" plus "below" of the big font
  std::vector<std::array<int, 94>> m_pHzIndex;  // [trail][lead], each less 161; -1: none
  std::vector<BYTE> m_pHzData;                  // the big font's file from its shapes on
  std::vector<int> m_pHzSingleIndex;            // 256 offsets into m_pHzHead; -1: none
  std::vector<BYTE>
      m_pHzHead;  // the file up to its shapes, or as far as single-byte shapes need it

 private:
  static const float kUnknownWidth;

  float small_width(unsigned char byte);
  float small_width(int offset);
  float big_width(unsigned trail, unsigned lead);
  void free_small_font();
  void free_big_font();

  // Widths of shapes in font units, kUnknownWidth until they are asked for.
  std::vector<float> small_widths_;
  std::vector<float> big_widths_;
};

// The fonts of the process; empty until LoadShx.
extern CShx G_ShapeFont;

// Loads TXT.SHX and HZTXT.SHX of a folder into G_ShapeFont; `dir` ends with its separator. 1 when
// both were loaded by this call.
int LoadShx(const CString& dir);

}  // namespace brindle
