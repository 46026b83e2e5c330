// CChang: a field (chang) of up to ten values at the nodes of a triangle mesh: its file, values at
// points, contours, colour plots and legends.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "brindle/geometry/point.h"
#include "brindle/geometry/rect.h"
#include "brindle/mesh/chang_array.h"
#include "brindle/mesh/chang_records.h"
#include "brindle/mesh/contour_records.h"
#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

class CBase_SGT;
class CDC;
class CDXF_3D;
class CFCoor;
class CQxQuadTree;
class ChangSearch;
class ContourTracer;

// Depth and overlap of the tree that CChang::CreateQuadTree makes. At 0 and 0 the tree is one node
// that holds everything, and triangles at the rim of the mesh stay out of it.
extern int G_nChangTreeDepth;
extern float G_fChangTreeOverlap;

// The slot in force is m_nField2 when m_bUseField2 is 1, else m_nCurField. Operations whose result
// isn't told give 1. A triangle with a node number outside the mesh, or a value slot outside 0 to
// 9, throws CInvalidArgException where an operation comes to it; a file isn't checked for that.
//
// One thread at a time: searches keep an index and tracing keeps its state in the mesh.
class CChang {
 public:
  CChang();
  CChang(const CChang&) = delete;
  CChang& operator=(const CChang&) = delete;

  // --- the mesh
  // Empties nodes, triangles and contours. Settings stay, and so does the quad tree, then stale.
  void Clear();
  // Number, from 1, of the first node less than 0.0001 away (x and y), whose values stay; else of
  // a new one with p.z as its first value.
  int AddNode(CFPoint* p);
  // The first triangle over the nodes of the points in this turn, from any corner on; else a new
  // one. Valid until the next add.
  CChangTri* AddTri(CFPoint p[3]);
  // Sets the flags of all nodes and edges to 1: no open contour point.
  int IniFlag();
  // Box of the nodes, kept in m_rect; all 0 without nodes.
  CFRect GetFRect();
  // Of the slot in force; 1e20 and -1e20 for an empty mesh.
  int GetMinMaxZ(float& min, float& max);

  // --- the file. Loading replaces nodes and triangles. A file with fewer records than its first
  // line tells is told as error 301; what was there is kept. A path that can't be opened gives 0, a
  // failure to write 0 with error 301 and the old file whole.
  int LoadData(std::FILE* stream);
  int LoadData(const wchar_t* path);
  int SaveData(std::FILE* stream);
  int SaveData(const wchar_t* path);

  // --- values of m_nCurField
  // In the plane of the first triangle that holds the point (within 1e-5 of twice an area). Without
  // a tree a point outside takes the value of the nearest node, 0 when none is within 1e10. With a
  // tree the point is first moved into m_rect, and 0 is the answer outside of its triangles.
  float Get_Value(float x, float y);
  // 1 when a triangle holds the point, with a tree one that is in it; else 0.
  int PointInChang(float x, float y);
  // Only for a mesh that no longer changes. Searches without a tree are the faster ones unless
  // G_nChangTreeDepth is raised.
  void CreateQuadTree();
  // CChangTri* from back to front as the transform's two angles see them; equal depths in order.
  void SortTriByDeep(CPtrArray& out, CFCoor* coor);

  // --- contours (deng gao xian: lines of equal height), step by step; these search plainly
  // Marks the crossings of z on the edges of triangles. A corner within 1e-7 of z is moved off it
  // for the test, so that no line runs through a node.
  int FormDengGaoDian(float z);
  // The first open point, by nodes, then triangles and their edges; 0 when none is left.
  int FindFirstDengGaoDian(CDengGaoDian* p);
  int SetDengGaoDianFlag(CDengGaoDian* p, unsigned char f);
  // The first triangle with an edge from node a to node b (from 0): its index, the edge, its nodes
  // with the first one repeated. -1 without one.
  int FindNeiborTri(int a, int b, int& edge, int idx[4]);
  // The next open point in the triangle with the nodes idx, the given edge first; 0 without one.
  int FindNextDian(int tri, int edge, int idx[], CDengGaoDian* out);
  // The open point after `cur`, in its triangle or across its edge in the neighbour of equal turn.
  int FindNextDengGaoDian(CDengGaoDian* cur, CDengGaoDian* next);
  int SetDengGaoDianXY(CDengGaoDian* p, float z);

  // --- contours as a whole; a polyline holds each inner crossing twice, once for each triangle
  void Clear_m_arrayDGX();
  // All polylines of one value, as the steps above give them, in m_arrayDGX.
  int TraceOne(float z);
  // Traces and draws all multiples of `step` from min / step to max / step, cut towards zero. A
  // step that isn't a number, or that asks for over a hundred thousand lines, gives 0 with error
  // 301. Without a pen nothing is drawn.
  int Trace(float step, CBase_SGT* pen, float scale);
  int Trace3D(float step, CDXF_3D* drawing, float scale);
  // The same for m_arrayDengGaoZhi in its order; m_fLabelHeight stays that of the last one.
  int Trace(CBase_SGT* pen, float scale);
  int Trace3D(CDXF_3D* drawing, float scale);
  // Draws m_arrayDGX at p * scale + (dx, dy), as polylines if width is not 0. With m_bLabel a line
  // is labelled at the start of its segment of index (points / 2), in its direction; a line of two
  // points has no such segment.
  int DrawDengGaoXian(CBase_SGT* pen, float dx, float dy, float scale, float width);
  int DrawDengGaoXian3D(CDXF_3D* drawing, float dx, float dy, float dz, float scale, float width);
  int AddDengGaoZhi(float value, float width, float height, int color);
  int ClearDengGaoZhi();
  // The pen's colour by m_arrayColor, going round; "0" when that is empty.
  int SetCurColor(int level, CBase_SGT* pen);
  int SetCurColor3D(int level, CDXF_3D* drawing);

  // --- colours of values
  // Place in m_arrayIndexColor counted down from the greatest value, cut to it; 0 in a flat field,
  // and with error 100 without a table. GetIndexColor takes it from a table that runs upwards, or
  // with m_bUseRange by range; without a table it throws.
  int GetColorIndex(float v);
  DWORD GetIndexColor(float v);
  // In g_cChangColorIndex, by v * m_fColorScale within m_fRangeMin to m_fRangeMax, cut to it.
  DWORD GetIndexColorByRange(float v);
  void GetRangeIndex(float a, float b, int& ia, int& ib);
  // Of the first range that holds v, limits included; -1 without one.
  int GetModeColor(float v);
  int AddModeRange(float min, float max, int color);
  int ClearModeRange();

  // --- painting: colour plot (cai se tu, yun tu) and legend (tu li). A value's colour is that of
  // its mode range with m_bUseModeRange (none: unpainted), else by range with m_bUseRange, else of
  // 20 palette colours with m_bLevel19, else on the hue wheel from red at the least value to
  // magenta at the greatest. The last two place value * m_fValueScale between least and greatest
  // value as they are without that factor: meant so. Legends have their top left corner at (x, y),
  // the least value on top; `scale` is of all sizes. Ticks stop one short of the greatest value:
  // meant so. DrawTuLi has rows with m_bUseModeRange.
  void DrawTuLi(CDC* dc, float scale, float min, float max, int x, int y);
  void DrawTuLiUsingRange(CDC* dc, float scale, float min, float max, int x, int y);
  // Draws the plot into a new bitmap of GetFRect's size on the device, selected into `mem`, where
  // `dc`'s background colour is left elsewhere; 0 and 0 when there can't be such a bitmap.
  void DrawBaseMap(CDC* dc, CDC* mem, CFCoor* coor, int& width, int& height, float scale);
  // In 20 colours whatever is set, in the scene's coordinates, without lighting.
  void DrawYunTu_OpenGL();

  // The edges of all triangles as lines, or the triangles as faces in space; with labels
  // "(number)value" at the nodes.
  virtual int DrawNet(CBase_SGT* pen, float dx, float dy, float scale, int labels);
  virtual int DrawNet3D(CDXF_3D* drawing, float dx, float dy, float dz, float scale, int labels);
  // The plot within `rc` (a printer's whole page), seen under the angles of `coor`, back to front,
  // with the legend if legend is 1 and m_bDrawLegend set. Heights are values times scale and
  // m_fZScale. Sets m_b3D, which stays. 0 for an empty mesh. Draw_TuLi draws the legend alone.
  virtual int Draw_CaiSeTu(CDC* dc, CRect* rc, CFCoor* coor, int legend, float scale);
  virtual int Draw_TuLi(CDC* dc, CRect* rc, CFCoor* coor);
  virtual ~CChang();  // last, so that the operations above keep their slots

  CChangArray<CChangNode> m_arrayNode;
  CChangArray<CChangTri> m_arrayTri;
  int m_nCurField = 0;   // slot of the values
  int m_b3D = 0;         // set by the colour plot: values are heights times m_fZScale
  int m_bUseField2 = 0;  // 1: contours and ranges use m_nField2, the first value is the height
  int m_nField2 = 1;
  float m_fUnused1 = 0, m_fUnused2 = 0;
  int m_bUseRange = 0;  // colours by the range below
  float m_fRangeMin = -99999, m_fRangeMax = 99999;
  CQxQuadTree* m_pQuadTree = nullptr;  // owned
  CFRect m_rect;                       // by GetFRect
  float m_fCurValue = 0;               // of the contour last traced
  float m_fLabelHeight = 0.5f;
  int m_nLabelDecimals = 1;
  float m_fZero = 1e-5f;  // smaller counts as zero where a corner is moved off a contour
  CPtrArray m_arrayDGX;   // polylines, CArray<CDengGaoDian, CDengGaoDian>*, owned
  int m_bLevel19 = 0;     // colour plot in 19 bands
  float m_fValueScale = 1;
  CDWordArray m_arrayColor;  // pen colours of contour levels
  CArray<CDengGaoZhi, CDengGaoZhi> m_arrayDengGaoZhi;
  int m_bUseModeRange = 0;  // colours by the list below
  CArray<CModeRange, CModeRange> m_arrayModeRange;
  int m_bDrawLegend = 1;
  CFPoint m_LegendPos;  // world; counts when x and y exceed 0.0001 in size
  int m_nLegendFontSize = 9;
  int m_nLegendTextColor = 0xffffff;
  int m_nLegendRowHeight = 10;
  float m_fLegendMin = -1e10f, m_fLegendMax = 1e10f;
  int m_nLegendTicks = 10;
  int m_nLegendStyle = 6;
  float m_fZScale = 1;
  int m_nLegendMode = 0;  // not 0: negated values as well
  float m_fColorScale = 1;
  CDWordArray m_arrayIndexColor;  // of GetColorIndex
  int m_nLabelColor = 5;
  int m_bLegendBar = 1;
  int m_bLabel = 1;
  int m_nLabelFlag = 1;

 protected:
  int value_slot() const;  // in force; throws outside 0 to 9

 private:
  friend class ContourTracer;  // walks for TraceOne
  using Line = CArray<CDengGaoDian, CDengGaoDian>;

  // By its number, not noted as changed; throws outside of the mesh.
  CChangNode& node(std::int64_t number) {
    return m_arrayNode.unnoted(number < 1 ? -1 : static_cast<INT_PTR>(number - 1));
  }
  int current_slot() const;
  // The colour plot within `area`, each pixel moved by `shift`.
  void plot_pixels(CDC& dc, const CRect& area, CSize shift, CFCoor& coor, float scale);
  const CChangTri* find_in_tree(float x, float y);
  const CChangTri* find_without_tree(float x, float y);
  float value_in(const CChangTri& triangle, float x, float y);
  template <class ValueOf, class Act>
  void trace_each(int count, ValueOf value_of, Act act);
  template <class Pen, class SetColour, class Draw>
  int trace_steps(float step, Pen* pen, SetColour set_colour, Draw draw);
  template <class Pen, class Draw>
  int trace_list(Pen* pen, float scale, Draw draw);
  std::wstring label_text() const;

  std::unique_ptr<ChangSearch> search_;
  CQxQuadTree* indexed_tree_ = nullptr;       // made by CreateQuadTree
  const CChangTri* indexed_start_ = nullptr;  // the triangles that it was made from
  INT_PTR indexed_count_ = 0;
};

}  // namespace brindle
