// CBase_SGT: the schematic pen. A drawing document with a current transform, a stack of drawing
// environments, paper sizes under a scale, and the symbols of structural drawing.
#pragma once

#include <type_traits>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/array.h"
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/wide_text.h"
#include "brindle/sketch/pen/beam_bars.h"

namespace brindle {

template <class T>
concept PenNumber = std::is_arithmetic_v<T>;  // what a coordinate may be given as

// Coordinates are pen points: Convert_XY takes them into the drawing. Sizes of symbols are paper
// millimetres times m_fBiLiChi (the scale, bi li chi), kept in the fields that SetBiLiChi fills.
// Angles are degrees, counter-clockwise, unless a name ends in _rad. `den` and `num` tell a place
// on a line or an arc: num / den of it. What writes one entity gives it, or null as Write_* does;
// it lands in the current layer, colour, line type and, for a text, style. `ltScale` is the scale
// of the line type. Arrays that aren't const are changed by the call, which is meant.
//
// A pen belongs to one thread. The static tables are shared and not guarded.
class CBase_SGT : public DXF {
 public:
  using CLiangZongJin = ::brindle::CLiangZongJin;
  using CLiangGuJin = ::brindle::CLiangGuJin;
  // How Draw_XY shows a curve; lengths in metres.
  struct CURVEINFO {
    float fLabelFactor;  // value to label
    float fLimit;        // value of a horizontal line; exactly 0: none
    float fShiftX;       // added to every x
    float fBaseY;        // height of the zero line
    float fMaxValue;     // drawn at full height; values are cut at plus and minus it
    float fHeight;       // height of fMaxValue
  };

  // Scale 100; the document stays closed until New or New_MemDxf.
  CBase_SGT();
  ~CBase_SGT() override;

  // --- state
  // The pens keep their widths until the next SetBiLiChi. A row of m_fGF_BiKuan isn't checked.
  void SetBaseBiKuan(float width_mm) { m_fBaseBiKuan = width_mm; }
  void SetBaseBiKuan(double width_mm) { m_fBaseBiKuan = static_cast<float>(width_mm); }
  void SetBaseBiKuan(int row) { m_fBaseBiKuan = m_fGF_BiKuan[row]; }
  // Sets the scale and every size that follows from it, also those that the caller has set; the
  // current point becomes (0, 0). m_fDimOffset becomes 100 drawing units at any scale, as is meant.
  void SetBiLiChi(float scale);
  // 1; 0 and the old value for a text of 99 characters or more.
  int SetCurColor(int index);
  int SetCurColor(const wchar_t* colour);
  int SetCurLayer(const wchar_t* layer);
  int SetCurStyle(const wchar_t* style);
  int SetCurLType(const wchar_t* ltype);
  // "DASHED", "DOT" and "DASHDOT".
  void Add_Default_LineType();

  // --- environment: the fields from m_fBiLiChi on
  // Sizes that only SetBiLiChi sets, and the current point, stay.
  void Set_Default_ENV();
  // Saves the environment; takes the last saved one back. 1; 0 with nothing changed when memory is
  // out or the stack is empty.
  int Push_ENV();
  int Pop_ENV();
  // Takes over the environment of another pen, which stays as it is. 1, also for null.
  int Set_ENV(CBase_SGT* other);

  // --- transform: turned by m_fRotate, times m_fScaleXY, shifted by the origin
  void Convert_XY(float& x, float& y) const;
  void Convert_XY(double& x, double& y) const;

  // --- points, lines, curves
  Varnholt::ACAD_POINT* Draw_Point(float x, float y);
  Varnholt::ACAD_LINE* Draw_Line(float x1, float y1, float x2, float y2, float ltScale = 1);
  Varnholt::ACAD_CIRCLE* Draw_Circle(float x, float y, float r, float ltScale = 1);
  Varnholt::ACAD_ARC* Draw_Arc(float x, float y, float r, float start, float end,
                               float ltScale = 1);
  // A text that would read upside down (above 91 and at most 271 degrees) is turned over in place.
  Varnholt::ACAD_TEXT* Draw_Text(float x, float y, float height, float angle, const wchar_t* text);
  // One segment; widths times m_fScaleWidth.
  Varnholt::ACAD_POLYLINE* Draw_Pline(double x1, double y1, double x2, double y2, double startWidth,
                                      double endWidth, double ltScale = 1);
  // n vertices, null for n below 2. Leaves the drawing's coordinates in x and y, and the widths
  // times m_fScaleXY (not m_fScaleWidth) in theirs. Null bulges or widths stand for zeros.
  Varnholt::ACAD_POLYLINE* Draw_Pline(int n, float* x, float* y, const float* bulge, int closed,
                                      float* startWidth, float* endWidth, float ltScale = 1);
  Varnholt::ACAD_POLYLINE* Draw_Pline(int n, float* x, float* y, int closed, float ltScale = 1);
  // An arc from start to end as one bulged segment; the widths are drawing units.
  Varnholt::ACAD_POLYLINE* Draw_PArc(float x, float y, float r, float start, float end,
                                     float startWidth, float endWidth);
  Varnholt::ACAD_SOLID* Draw_Solid(float x1, float y1, float x2, float y2, float x3, float y3,
                                   float x4, float y4);
  Varnholt::ACAD_3DFACE* Draw_3DFace(float x1, float y1, float x2, float y2, float x3, float y3,
                                     float x4, float y4);
  // `angle` before `scale`, other than Write_Hatch. A y array shorter than x throws
  // CInvalidArgException. The pattern's scale isn't multiplied.
  Varnholt::ACAD_HATCH* Draw_Hatch(const CArray<float>& x, const CArray<float>& y,
                                   const CArray<float>& bulge, const wchar_t* patternFile,
                                   const wchar_t* patternName, float angle, float scale, bool solid,
                                   bool associative, int style);
  Varnholt::ACAD_HATCH* Draw_Hatch(const CArray<double>& x, const CArray<double>& y,
                                   const CArray<double>& bulge, const wchar_t* patternFile,
                                   const wchar_t* patternName, double angle, double scale,
                                   bool solid, bool associative, int style);
  // The n - 1 segments between n points.
  void Draw_Lines(int n, const float* x, const float* y);
  // Turned by an angle in radians, then shifted.
  Varnholt::ACAD_LINE* Draw_Line_Rotate_Shift(float angle_rad, float dx, float dy, float x1,
                                              float y1, float x2, float y2);
  Varnholt::ACAD_POLYLINE* Draw_PLine_Rotate_Shift(float angle_rad, float dx, float dy, float x1,
                                                   float y1, float x2, float y2, float width);
  // A ring between two radii; a ring of width w about radius r; a filled dot (yuan dian).
  Varnholt::ACAD_POLYLINE* Draw_DoNut(float x, float y, float innerR, float outerR);
  Varnholt::ACAD_POLYLINE* Draw_DoNut_RW(float x, float y, float r, float w);
  Varnholt::ACAD_POLYLINE* Draw_YuanDian(float x, float y, float r);

  // --- the current point; the relative forms count from it, the *To forms draw up to the new one
  void MoveTo(float x, float y);
  void MoveTo_Relative(float dx, float dy);
  Varnholt::ACAD_LINE* LineTo(float x, float y);
  Varnholt::ACAD_LINE* LineTo_Relative(float dx, float dy);
  Varnholt::ACAD_POLYLINE* PlineTo(float x, float y, float startWidth, float endWidth);
  Varnholt::ACAD_POLYLINE* PlineTo_Relative(float dx, float dy, float startWidth, float endWidth);
  void ArrowTo(float x, float y);
  void ArrowTo_Relative(float dx, float dy);

  // --- rectangles by centre (C) or lower left corner (LB); with a width `pen` as polylines, else
  // as lines. m_bRectSide tells the sides, but a polyline with only bottom and left off draws left.
  // Lines turn counter-clockwise, polylines clockwise; a corner's centre clockwise in both: meant.
  void Draw_Rect_C(float w, float h, float cx, float cy, float angle);
  void Draw_Rect_C(float w, float h, float cx, float cy, float angle, float pen);
  void Draw_Rect_LB(float w, float h, float left, float bottom, float angle);
  void Draw_Rect_LB(float w, float h, float left, float bottom, float angle, float pen);
  // With a gap about the height `cut` above the bottom, its edges with break symbols.
  void Draw_Rect_C_CutL(float w, float h, float cx, float cy, float angle, float cut, float gap);
  void Draw_Rect_C_CutL(float w, float h, float cx, float cy, float angle, float pen, float cut,
                        float gap);
  void Draw_Rect_LB_CutL(float w, float h, float left, float bottom, float angle, float cut,
                         float gap);
  void Draw_Rect_LB_CutL(float w, float h, float left, float bottom, float angle, float pen,
                         float cut, float gap);

  // --- texts on lines, `offset` to the left of the line (on an arc: towards the centre)
  Varnholt::ACAD_TEXT* Draw_Text_Along_Line(float x1, float y1, float x2, float y2, float den,
                                            float num, const wchar_t* text, float height,
                                            float offset);
  // alignment 0: centred on the place, 1: ends there, else starts there.
  Varnholt::ACAD_TEXT* Draw_Text_Along_Line_Exact(float x1, float y1, float x2, float y2,
                                                  float fraction, int alignment,
                                                  const wchar_t* text, float height, float offset);
  Varnholt::ACAD_TEXT* Draw_Text_Vertical_Line(float x1, float y1, float x2, float y2, float den,
                                               float num, const wchar_t* text, float height,
                                               float offset);
  Varnholt::ACAD_TEXT* Draw_Text_Along_Arc(float cx, float cy, float r, float start_rad,
                                           float end_rad, float den, float num, const wchar_t* text,
                                           float height, float offset);

  // --- arrows: two barbs back from the tip
  void DrawArrow(float x, float y, float angle);
  void DrawLineArrow(float x1, float y1, float x2, float y2);
  // flag: the arrow is at the start, else at the end.
  void DrawArcArrow(float cx, float cy, float r, float start, float end, int flag);

  // --- lines without their part inside a strip of width `gap` about a line. One that lies within
  // the strip as a whole is drawn whole: meant.
  void Set_Para_Draw_Out_2PraLine(float x1, float y1, float x2, float y2, float gap);
  void Draw_Line_Out_2PraLine(float x1, float y1, float x2, float y2);
  void Draw_PLine_Out_2PraLine(float x1, float y1, float x2, float y2, float width);
  // A ground line (tu mian xian): pen 0 wide, 1 middle, 2 thin, and strokes on its right-hand side.
  void Draw_TuMianXian(float x1, float y1, float x2, float y2, float spacing, int pen);

  // --- dimensions of loose lines; they leave the annotation colour set. side: text above (not 0)
  // or below the line; mode: extension lines go up (not 0) or down.
  void Draw_Dim_Polar(float x, float y, float length, float angle, int side, int mode);
  void Draw_Dim_Polar(float x, float y, float length, const wchar_t* text, float angle, int side,
                      int mode);
  void Draw_Dim_Points(float x1, float y1, float x2, float y2, int side, int mode);
  void Draw_Dim_Points(float x1, float y1, float x2, float y2, const wchar_t* text, int side,
                       int mode);
  void Draw_Dim_Points(int n, const float* x, const float* y, int reverse, int side, int mode);
  // For whole numbers: zeros among them would pass for arrays.
  void Draw_Dim_Points(PenNumber auto x1, PenNumber auto y1, PenNumber auto x2, PenNumber auto y2,
                       int side, int mode) {
    Draw_Dim_Points(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                    static_cast<float>(y2), side, mode);
  }
  // Where the text of a dimension goes. A text that doesn't fit, with no known m_nDimTextFlag,
  // leaves x and y unwritten.
  void Cal_Text_Position(int side, float length, float textWidth, float* x, float* y) const;
  // An angle (jiao du); the radius in paper mm. Restores the environment.
  void Draw_DimJiaoDu(float x, float y, float start, float end, const wchar_t* text, float radius);

  // --- dimension entities in a named style; a null text prints the distance
  Varnholt::ACAD_DIMENSION* Draw_AlignedDim(float x1, float y1, float x2, float y2, float lineX,
                                            float lineY, const wchar_t* text, const wchar_t* style);
  Varnholt::ACAD_DIMENSION* Draw_Dim_Polar_zhuxd(float x, float y, float length,
                                                 const wchar_t* style, const wchar_t* text,
                                                 float angle, int unused1, int unused2);
  Varnholt::ACAD_DIMENSION* Draw_Dim_Points_zhuxd(float x1, float y1, float x2, float y2,
                                                  const wchar_t* style, const wchar_t* text,
                                                  int unused1, int unused2);
  void Draw_Dim_Points_zhuxd(int n, const float* x, const float* y, const wchar_t* style,
                             int reverse, int unused1, int unused2);
  // An arrow block of one 45 degree stroke; 1, or 0 with a message (301) for an unknown layer or
  // line type. Leaves the annotation colour set, which the stroke takes in place of `colour`.
  int Add_DimBlock(const wchar_t* name, float width, float size, int flags, float x, float y,
                   float z, const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype);

  // --- rebar (gang jin) in m_szGJColor
  Varnholt::ACAD_POLYLINE* Draw_XianGangJin(float x1, float y1, float x2, float y2);
  // The first 20 points.
  Varnholt::ACAD_POLYLINE* Draw_XianGangJin(int n, const float* x, const float* y);
  // A bar in section, pushed by fx and fy radii into a corner.
  Varnholt::ACAD_POLYLINE* Draw_YuanDianGangJin(float x, float y, float fx, float fy);
  Varnholt::ACAD_POLYLINE* Draw_DoNutGangJin(float x, float y, float innerR, float outerR);
  // Stirrups; the C forms are k pen widths smaller than w by h.
  void Draw_RectGangJin_C(float w, float h, float cx, float cy, float angle, float k);
  void Draw_RectGangJin_LB(float w, float h, float left, float bottom, float angle);
  void Draw_RectGangJin_C_CutL(float w, float h, float cx, float cy, float angle, float cut,
                               float gap, float k);
  void Draw_RectGangJin_LB_CutL(float w, float h, float left, float bottom, float angle, float cut,
                                float gap);
  void Draw_XianGangJin_Out_2PraLine(float x1, float y1, float x2, float y2);
  // A tie with two hooks (la jie jin); flip 1 mirrors it.
  void Draw_LaJieJin(float x1, float y1, float x2, float y2, int flip);

  // --- rebar marks in m_szBZColor
  // One bar: leader to (x + dx, y + dy), shelf, text, bubble with the mark; dx, dy and length in
  // paper mm, length below 0 to the left.
  void Draw_GangJin_BiaoZhu(float x, float y, float dx, float dy, float length, int mark,
                            const wchar_t* text);
  // Several bars: leaders to a trunk that runs to the bubble at (x, y). direction 1 down, 2 right,
  // 3 up, 4 left. Leaves the drawing's coordinates in the arrays. n below 1 or another direction:
  // nothing.
  void Draw_GangJin_BiaoZhu(float x, float y, int n, float* xs, float* ys, float angle,
                            int direction, int flip, int mark, const wchar_t* text);
  void Draw_Line_BiaoZhu(float x1, float y1, float x2, float y2);
  // A bubble with the bar's number, in the current colour; the same beside a text along a line. The
  // text is as high as the number: its height is ignored.
  void Draw_GJH(float x, float y, float angle, int mark);
  void Draw_GJH_And_Text_Along_Line(float x1, float y1, float x2, float y2, int mark, float den,
                                    float num, const wchar_t* text, float height, float offset);
  // Texts of bars (count, grade q, diameter; grade, diameter, spacing) and strands. `out` has room
  // for 40 characters; it stays as it is for a grade outside 1 to 14.
  static void FormString_GJ_nqd(wchar_t* out, int count, int grade, int diameter);
  static void FormString_GJ_qdas(wchar_t* out, int grade, int diameter, int spacing);
  static void FormString_GJX_nqd(wchar_t* out, int count, int diameter);

  // --- sheets
  void Draw_BiaoTiLan(float right, float bottom, float pen);  // title block
  void Draw_HuiQianLan(float x, float y, float angle);        // countersign block
  // A drawing frame A0 to A3 (size 0 to 3); `extra` paper mm lengthen it.
  void Draw_TuKuang(float x, float y, int size, float extra, int portrait);
  void Draw_TuMing(float x, float y, const wchar_t* text, int wide, int thin);  // drawing title

  // --- marks
  void Draw_BiaoGao(float x, float y, float value, int left);  // elevation
  void Draw_PouXian(float x1, float y1, float x2, float y2, const wchar_t* text, float length,
                    float pen, float height, int along, int outside);  // section mark
  void Draw_PouXian(float x1, float y1, float x2, float y2, const wchar_t* text, int along,
                    int outside);
  void Draw_Cut_Sym(float x1, float y1, float x2, float y2, float overrun, float height,
                    float step);  // break symbol
  void Draw_Cut_Sym(float x1, float y1, float x2, float y2);
  void Draw_ZhouFu(float x1, float y1, float x2, float y2, const wchar_t* text);  // axis bubble
  // A reinforced beam section with its lower left corner at (x, y), all sizes times m_fBiLiChi /
  // unit. Finds the groups of the bars and raises slot counts to 2 in the records, which may be
  // null.
  void Draw_Liang_Section(float x, float y, float unit, float b, float h, float leftWidth,
                          float leftThickness, float rightWidth, float rightThickness, int leftCut,
                          int rightCut, float unusedSize, const wchar_t* unusedText,
                          const wchar_t* axisText, CLiangZongJin* top, CLiangZongJin* bottom,
                          CLiangZongJin* left, CLiangZongJin* right, CLiangGuJin* stirrup,
                          CLiangGuJin* unusedStirrup);

  // --- axes and curves
  void Draw_Axis(float x0, float y0, float xmin, float xmax, float ymin, float ymax, float width,
                 float height, int nx, int ny, const wchar_t* xlabel, const wchar_t* ylabel);
  void Draw_Curve(float x0, float y0, int n, const float* x, const float* y, float xmin, float xmax,
                  float ymin, float ymax, float width, float height, int nx, int ny,
                  const wchar_t* xlabel, const wchar_t* ylabel, int drawAxis, int drawCurve,
                  int swap);
  void Draw_Curve2(float x0, float y0, int n, const float* x, const float* ylow, const float* yhigh,
                   float xmin, float xmax, float ymin, float ymax, float width, float height,
                   int nx, int ny, const wchar_t* xlabel, const wchar_t* ylabel, int drawAxis,
                   int drawCurve, int swap);
  // 1; 0 for fewer than two points. A y array shorter than x throws CInvalidArgException.
  int Draw_XY(CURVEINFO info, CArray<float, float>& x, CArray<float, float>& y);

  // --- tables of the drawing standard, paper mm; tools may change them
  static float m_fGF_BiKuan[6];  // pen widths
  static float m_fGF_ZiGao[7];   // text heights
  static float m_fGF_ZiKuan[7];  // their widths

  // --- data outside of the environment
  float m_fBaseBiKuan;  // paper mm
  float m_fBiKuan;      // the base width x scale: the wide pen
  float m_fBiKuan05;    // half of it: the middle pen
  float m_fBiKuan035;   // 0.35 of it: the thin pen
  float m_fZiGao[6];    // the first six rows of the tables x scale
  float m_fZiKuan[6];
  int m_nAxisDecX, m_nAxisDecY;  // decimals of axis labels
  wchar_t m_szDimText[500];      // text of the last dimension in number form
  wchar_t m_szDimFormat[100];    // and the format made for it
  CPtrList m_EnvStack{10};       // saved environments, the last one at the head; owned

  // --- the environment
  float m_fBiLiChi;  // drawing units for one paper mm
  WText<100> m_szCurColor, m_szCurLayer, m_szCurStyle, m_szCurLType;  // colour: an index as text
  float m_fOrgX, m_fOrgY;
  float m_fScaleXY;
  float m_fRotate;
  float m_fScaleText, m_fScaleWidth;        // factors on text heights and on widths
  int m_nDimTextFlag;                       // bits; where a text goes that doesn't fit
  int m_nDimMark1, m_nDimMark2;             // settings that no drawing reads
  float m_fDimOffset;                       // measured points to dimension line
  float m_fDimExt1, m_fDimExt2;             // extension lines
  float m_fDimTick, m_fDimPen;              // length and width of the ticks
  float m_fDimTextH;                        // height of dimension texts and rebar marks
  float m_fDimOver;                         // extension beyond the dimension line
  float m_fDimTextGap;                      // between a line and its text
  int m_nDimDec;                            // decimals
  float m_fCutExt, m_fCutH, m_fCutW;        // break symbol: overrun, height, step
  float m_fPouLen, m_fPouPen, m_fPouTextH;  // section mark: length, width, text height
  float m_fGJDot, m_fGJPen;                 // rebar: dot diameter, line width
  float m_fTuMingH, m_fTuMingPen;           // drawing title: text height, width of its line
  int m_bRectSide[4];                       // sides to draw: bottom, right, top, left
  int m_bCutLow, m_bCutHigh;                // break symbols on the lower and upper cut edge
  WText<100> m_szGJColor, m_szBZColor;      // colours of rebar and of annotation
  float m_fPraLine[4];                      // line of the strip: x1, x2, y1, y2
  float m_fPraGap;                          // width of the strip
  float m_fArrowLen, m_fArrowHalf;          // barbs of an arrow: along the shaft, half width
  float m_fCurX, m_fCurY;
};

// A new pen in memory mode with the text style "HZ", the arrow block "ARCHITECTURE", the dimension
// style "QX", and the environment of `from` (may be null). Owned by the caller; null when memory is
// out. Without `from` the current colour is that of annotation.
CBase_SGT* NewMemDxf(CBase_SGT* from);

}  // namespace brindle
