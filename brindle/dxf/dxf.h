// The drawing document: four symbol tables, blocks and entities, in memory or streamed to a file.
#pragma once

#include <cstdio>
#include <memory>

#include "brindle/dxf/acad_3dface.h"
#include "brindle/dxf/acad_arc.h"
#include "brindle/dxf/acad_block.h"
#include "brindle/dxf/acad_circle.h"
#include "brindle/dxf/acad_dimension.h"
#include "brindle/dxf/acad_dimstyle.h"
#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/acad_layer.h"
#include "brindle/dxf/acad_line.h"
#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/acad_point.h"
#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/acad_solid.h"
#include "brindle/dxf/acad_style.h"
#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/acad_wipeout.h"
#include "brindle/dxf/cad_platform_option.h"
#include "brindle/geometry/point.h"
#include "brindle/geometry/rect.h"
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

class CDC;
class CFCoor;
class CFRegion;
class CQxQuadTree;
class DxfPairReader;
struct DxfTableMessages;

// 0: everything is drawn black on a printer or a metafile; otherwise colours are kept.
void SetDXFPrintColor(int keep_colors);
int GetDXFPrintColor();
int GetDXFPrintColor(int ignored);

// One drawing, in one of two modes that are fixed when it is created:
//
// - file mode (New, Open): each Write_* goes straight to an open R12 file, nothing is kept;
// - memory mode (New_MemDxf, Open_MemDxf): each Write_* appends a copy to the entity list, and the
//   whole drawing is written, shown or merged later.
//
// Failures are reported through tell_error and give 0 or null; nothing throws. One thread uses a
// document at a time.
class DXF {
 public:
  enum State { kClosed = -1, kWriting = 0, kReading = 1 };

  DXF();
  virtual ~DXF();
  // The component-wise extremes of lines, 3D faces and polylines, from -1e10 and +1e10; (0, 0, 0)
  // outside memory mode.
  virtual CFPoint Get_Max_Point();
  virtual CFPoint Get_Min_Point();
  DXF(const DXF&) = delete;
  DXF& operator=(const DXF&) = delete;

  // --- life cycle
  // Only before the first New or New_MemDxf. A count below 1 is reported and becomes 1.
  int Set_MaxNum_of_Tables(long nLType, long nLayer, long nStyle, long nDimStyle);
  // Starts a file-mode drawing at a path; 0 when the file can't be opened.
  int New(const wchar_t* path);
  // The same, with 1 as the result in any case. Nothing is read.
  int Open(const wchar_t* path);
  int New_MemDxf();
  int Open_MemDxf();
  // File mode: writes the end of the section and of the file, and closes it.
  int Close();
  // Closes an open file as it is and frees tables, entities and blocks. State and mode stay.
  void Clear();
  void ClearAllEntity();
  void DeleteEntity(int id);
  void DeleteEntity(Varnholt::ACAD_ENTITY* entity);
  void SetCurEntityID(int id) { m_nCurEntityID = id; }

  // --- tables; an entry or null. An existing name gives null, but for the first Add_LType, which
  // gives the entry that has it. A full table gives null without a message.
  Varnholt::ACAD_LTYPE* Add_LType(const wchar_t* name, const wchar_t* desc, int n, float length,
                                  const float* dash, float scale);
  // Loads a definition from a line type file; failures are reported.
  Varnholt::ACAD_LTYPE* Add_LType(const wchar_t* file, const wchar_t* name);
  Varnholt::ACAD_LAYER* Add_Layer(const wchar_t* name, int color, const wchar_t* ltype);
  Varnholt::ACAD_STYLE* Add_STyle(const wchar_t* name, const wchar_t* font, const wchar_t* bigFont,
                                  double height, double width);
  Varnholt::ACAD_STYLE* Add_TrueType_STyle(const wchar_t* name, const wchar_t* face, double height,
                                           double width);
  Varnholt::ACAD_STYLE* Modifi_STyle(const wchar_t* oldName, const wchar_t* newName,
                                     const wchar_t* font, const wchar_t* bigFont, double height,
                                     double width);
  Varnholt::ACAD_STYLE* Modifi_TrueType_STyle(const wchar_t* oldName, const wchar_t* newName,
                                              const wchar_t* face, double height, double width);
  // The arguments are dimension variables in drawing units; DIMCLRT is a colour index.
  Varnholt::ACAD_DIMSTYLE* Add_DimStyle(const wchar_t* name, double DIMDLE, double DIMEXE,
                                        double DIMEXO, double DIMGAP, double DIMASZ, int DIMDEC,
                                        const wchar_t* txtStyle, double DIMTXT,
                                        const wchar_t* DIMBLK, double DIMSCALE, double DIMLFAC,
                                        double DIMRND, int DIMCLRT);

  // --- entities; the stored copy (memory mode) or the scratch entity (file mode), null on failure.
  // World units, angles in degrees. Layer, line type ("BYLAYER" or a table name) and text style
  // must be in the tables; colour is "BYLAYER" or an index as text.
  Varnholt::ACAD_POINT* Write_Point(double x, double y, double z, const wchar_t* layer);
  Varnholt::ACAD_LINE* Write_Line(double x1, double y1, double z1, double x2, double y2, double z2,
                                  double ltScale, const wchar_t* layer, const wchar_t* colour,
                                  const wchar_t* ltype);
  // A height below 1e-6 takes the style's fixed height. A text of more than 499 characters is cut,
  // in the first form in the caller's buffer too.
  Varnholt::ACAD_TEXT* Write_Text(double x, double y, double z, double height, double angle,
                                  wchar_t* text, const wchar_t* style, const wchar_t* layer,
                                  const wchar_t* colour, const wchar_t* ltype);
  Varnholt::ACAD_TEXT* Write_Text(double x, double y, double z, double height, double angle,
                                  const wchar_t* text, const wchar_t* style, const wchar_t* layer,
                                  const wchar_t* colour, const wchar_t* ltype);
  Varnholt::ACAD_CIRCLE* Write_Circle(double x, double y, double z, double r, double ltScale,
                                      const wchar_t* layer, const wchar_t* colour,
                                      const wchar_t* ltype);
  Varnholt::ACAD_ARC* Write_Arc(double x, double y, double z, double r, double startDeg,
                                double endDeg, double ltScale, const wchar_t* layer,
                                const wchar_t* colour, const wchar_t* ltype);
  // n vertices; flags 0 open, 1 closed. A null array stands for zeros. The polyline's own widths
  // are those of the first vertex.
  Varnholt::ACAD_POLYLINE* Write_Pline(int n, const double* x, const double* y, const double* z,
                                       const double* bulge, int flags, const double* startWidth,
                                       const double* endWidth, double ltScale, const wchar_t* layer,
                                       const wchar_t* colour, const wchar_t* ltype);
  Varnholt::ACAD_POLYLINE* Write_Pline(int n, const float* x, const float* y, const float* z,
                                       const float* bulge, int flags, const float* startWidth,
                                       const float* endWidth, float ltScale, const wchar_t* layer,
                                       const wchar_t* colour, const wchar_t* ltype);
  // Two vertices.
  Varnholt::ACAD_POLYLINE* Write_Pline(double x1, double y1, double z1, double x2, double y2,
                                       double z2, double bulge, double startWidth, double endWidth,
                                       const wchar_t* layer, const wchar_t* colour,
                                       const wchar_t* ltype);
  // Filled, with the outline 1, 2, 4, 3.
  Varnholt::ACAD_SOLID* Write_Solid(double x1, double y1, double z1, double x2, double y2,
                                    double z2, double x3, double y3, double z3, double x4,
                                    double y4, double z4, const wchar_t* layer,
                                    const wchar_t* colour, const wchar_t* ltype);
  // Outlined 1, 2, 3, 4.
  Varnholt::ACAD_3DFACE* Write_3DFace(double x1, double y1, double z1, double x2, double y2,
                                      double z2, double x3, double y3, double z3, double x4,
                                      double y4, double z4, const wchar_t* layer,
                                      const wchar_t* colour, const wchar_t* ltype);
  // One polyline path. A pattern that its file lacks is reported, and the hatch is made without
  // lines. `style`: 0 by turns from outside, 1 outermost areas, 2 all.
  Varnholt::ACAD_HATCH* Write_Hatch(const CArray<double>& x, const CArray<double>& y,
                                    const CArray<double>& bulge, const wchar_t* patternFile,
                                    const wchar_t* patternName, double scale, double angle,
                                    bool solid, bool associative, int style, const wchar_t* layer,
                                    const wchar_t* colour);
  Varnholt::ACAD_HATCH* Write_Hatch(const CArray<float>& x, const CArray<float>& y,
                                    const CArray<float>& bulge, const wchar_t* patternFile,
                                    const wchar_t* patternName, float scale, float angle,
                                    bool solid, bool associative, int style, const wchar_t* layer,
                                    const wchar_t* colour);

  // A dimension with its block "*D%d". Type 0 rotated by the angle, 1 aligned, 4 radial, 5 angular;
  // 2 and 3 get a name and no block. The points are those of ACAD_DIMENSION. textPos "TL", "BL",
  // "TR", "BR" also set the overrides of justification and fit.
  Varnholt::ACAD_DIMENSION* Write_Dimension(
      const wchar_t* style, double x10, double y10, double z10, double x11, double y11, double z11,
      double x12, double y12, double z12, int type, const wchar_t* text, double x13, double y13,
      double z13, double x14, double y14, double z14, double x15, double y15, double z15,
      double x16, double y16, double z16, double leader, double angle, double scale,
      double lengthFactor, const wchar_t* textPos, const wchar_t* layer, const wchar_t* colour,
      const wchar_t* ltype);
  // Makes the block of a dimension (memory mode) in place of one that has its name; 1, or 0 when
  // the style, an arrow block or the line type is missing. A dimension without extent gets an empty
  // block.
  int Write_DimVirtualBlock(const Varnholt::ACAD_DIMENSION* dim);
  int Write_LengthDimVirtualBlock(const Varnholt::ACAD_DIMENSION* dim);
  int Write_RadiusDimVirtualBlock(const Varnholt::ACAD_DIMENSION* dim);
  int Write_AngularDimVirtualBlock(const Varnholt::ACAD_DIMENSION* dim);
  // A block for the ends of dimension lines: one stroke, `width` wide, centred on (x, y, z), that
  // goes sizeX / 2 to the right and sizeY / 2 up; upright for a sizeX of 1e-6 at most. 1, also when
  // the name is there already; 0 for an unknown layer or line type, without a message.
  int Write_DimBlock(const wchar_t* name, double sizeX, double sizeY, double width, int flags,
                     double x, double y, double z, const wchar_t* layer, const wchar_t* colour,
                     const wchar_t* ltype);
  // Hides what was drawn before it: the rectangle between two corners, or a polygon. R12 files have
  // no such entity.
  Varnholt::ACAD_WIPEOUT* Write_Wipeout(float x1, float y1, float x2, float y2,
                                        const wchar_t* layer, const wchar_t* colour,
                                        const wchar_t* ltype);
  Varnholt::ACAD_WIPEOUT* Write_Wipeout(double x1, double y1, double x2, double y2,
                                        const wchar_t* layer, const wchar_t* colour,
                                        const wchar_t* ltype);
  Varnholt::ACAD_WIPEOUT* Write_Wipeout(const CArray<float>& xs, const CArray<float>& ys,
                                        const wchar_t* layer, const wchar_t* colour,
                                        const wchar_t* ltype);
  Varnholt::ACAD_WIPEOUT* Write_Wipeout(const CArray<double>& xs, const CArray<double>& ys,
                                        const wchar_t* layer, const wchar_t* colour,
                                        const wchar_t* ltype);

  // --- sequence markers of a file-mode drawing; in memory mode they do nothing and answer 1
  int Write_Tables();
  int Begin_AllBlocks();
  int End_AllBlocks();
  int Begin_OneBlock(const wchar_t* name, double x, double y, double z, const wchar_t* layer,
                     const wchar_t* unused, int flags);
  int End_OneBlock();
  int Begin_Entity();
  // Ends the entities and the file. Close() behind it writes the two end marks again.
  int End_Entity();

  // --- whole files. Writing needs memory mode and leaves the drawing as it was; the old file stays
  // whole when the new one can't be completed, which is reported with code 301. A path that can't
  // hold a file gives 0 without a message. bHatch 0 leaves hatches out.
  int Write_MemDxf_To_File(const wchar_t* path, int bHatch);
  int Write_MemDxf_To_File2000(const wchar_t* path);
  // Replaces the drawing by a file's; needs a drawing made with New_MemDxf, else 0. The stream form
  // reads from the start of the stream and leaves it open.
  int Read_FileDxf_To_Mem(const wchar_t* path);
  int Read_FileDxf_To_Mem(FILE* stream);
  // The reader's steps, for a drawing in state 1 with m_pFile open.
  int Find_Start_Head();
  int Find_Start_Tables();
  int Find_Start_Blocks();
  int Find_Start_Entities();
  int Read_Head();
  int Read_Tables();
  int Read_One_Table();
  int Read_One_Block();
  // The kind of the entity read into scratch_entity(kind), 14 at the end of the section.
  int Read_One_Entity();

  // --- merging: src's tables and blocks by name, then all its entities, moved as Transfer tells.
  // 1; 0 with a message (201) when a table is full. src must be another drawing.
  int InsertDxf(DXF* src, double dx, double dy, double angleDeg, double sx, double sy);
  int InsertDxf(DXF* src, float* move, float* rot, float* scale);
  int InsertDxf(DXF* src, double* move, double* rot, double* scale);

  // --- views of the whole drawing
  // Union of the entities' boxes; the zero box for an empty drawing.
  CFRect GetFRect();
  CFRect GetFRect3D(double angle1, double angle2);
  // Draws the entities that the rectangle (device pixels) shows, all of them for an empty one;
  // nothing outside memory mode. The first form keeps the transform for the second. Texts with an
  // opaque background come last; entities on a layer that is off are left out.
  void Draw(CDC* dc, CFCoor* coor, CRect visible);
  void Draw(CDC* dc, CRect visible);
  // Draws all entities seen under two axonometric angles (radians), and keeps the transform.
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2);
  // Draws into the current OpenGL context; texts only with a device context, which fonts need.
  void Draw3D_Opengl(CDC* dc);
  // Whether entities meet the box or region (world units, seen under two angles): with mode 1 all
  // must lie inside, so an empty drawing gives 1; else one that passes its own HitTest is enough.
  int HitTest(const CFRect& box, int mode, double angle1, double angle2);
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2);
  // Indexes the entities as they are now for Draw and HitTest, which use the index as long as the
  // number of entities stays. Entities that are moved need a new one.
  void CreateQuadTree();
  // Width of a text in a style, in the units of the height.
  double GetTextWidth(const wchar_t* text, double height, double widthFactor,
                      const wchar_t* styleName);

  // --- lookups by exact name; null on a miss
  Varnholt::ACAD_LTYPE* find_ltype(const wchar_t* name) const;
  Varnholt::ACAD_LAYER* find_layer(const wchar_t* name) const;
  Varnholt::ACAD_STYLE* find_style(const wchar_t* name) const;
  Varnholt::ACAD_DIMSTYLE* find_dimstyle(const wchar_t* name) const;
  Varnholt::ACAD_BLOCK* find_block(const wchar_t* name) const;
  // The next "*D%d", which no block has.
  WText<100> next_dimension_block();
  // Tells the user, the first time only, that inserts go too deep or show too much.
  void tell_nesting(const wchar_t* block);
  // Entry 0 for a name that isn't there; null only without tables.
  Varnholt::ACAD_LTYPE* find_ltype_or_first(const wchar_t* name) const;
  // The entity of a kind that a Write_* or Read_One_Entity fills; null for a kind without one.
  Varnholt::ACAD_ENTITY* scratch_entity(int kind);

  // --- data
  wchar_t m_szCode[300] = {};   // group code line of the pair that a reading step ended on
  wchar_t m_szValue[300] = {};  // its value line, both with their line end
  int m_bMemMode = 0;
  wchar_t m_szFileName[300] = {};
  FILE* m_pFile = nullptr;
  int m_nState = kClosed;
  int m_nMaxLType = 100, m_nMaxLayer = 250, m_nMaxStyle = 100, m_nMaxDimStyle = 100;
  int m_nDimBlockCount = 0;            // "*D%d" blocks made so far
  CFCoor* m_pCoor;                     // the current transform, not owned
  CQxQuadTree* m_pQuadTree = nullptr;  // made by CreateQuadTree, owned
  CPtrList m_Entities{10};             // ACAD_ENTITY*, in drawing order, owned
  CPtrList m_Blocks{10};               // ACAD_BLOCK*, owned
  int m_nNumLType = 0, m_nNumLayer = 0, m_nNumStyle = 0, m_nNumDimStyle = 0;
  Varnholt::ACAD_LTYPE* m_pLType = nullptr;  // arrays of the capacities above, owned
  Varnholt::ACAD_LAYER* m_pLayer = nullptr;
  Varnholt::ACAD_STYLE* m_pStyle = nullptr;
  Varnholt::ACAD_DIMSTYLE* m_pDimStyle = nullptr;
  double m_dLtScale = 1.0;  // $LTSCALE
  int m_nCurEntityID = 0;   // stamped on each entity that memory mode stores

 private:
  struct ReadingState;
  class Walk;

  bool allocate_tables();
  void free_tables();
  bool can_write() const;
  bool set_layer(Varnholt::ACAD_ENTITY& entity, const wchar_t* layer);
  bool set_names(Varnholt::ACAD_ENTITY& entity, const wchar_t* layer, const wchar_t* colour,
                 const wchar_t* ltype);
  template <class Entity>
  Entity& fresh_scratch(int kind);
  template <class Entity>
  Entity* keep(Entity& scratch);
  template <class T>
  Varnholt::ACAD_POLYLINE* write_polyline(int n, const T* x, const T* y, const T* z, const T* bulge,
                                          int flags, const T* startWidth, const T* endWidth,
                                          double ltScale, const wchar_t* layer,
                                          const wchar_t* colour, const wchar_t* ltype);
  template <class Entity>
  Entity* write_corners(int kind, const double (&at)[12], const wchar_t* layer,
                        const wchar_t* colour, const wchar_t* ltype);
  template <class T>
  Varnholt::ACAD_HATCH* write_hatch(const CArray<T>& x, const CArray<T>& y, const CArray<T>& bulge,
                                    const wchar_t* patternFile, const wchar_t* patternName,
                                    double scale, double angle, bool solid, bool associative,
                                    int style, const wchar_t* layer, const wchar_t* colour);

  // Drawing.
  bool has_index() const;
  void drop_quad_tree();
  void find_visible_nodes(CRect device, CPtrArray& nodes) const;
  void draw_nodes(CDC* dc, const CRect& visible, Walk& walk);
  void draw_list(CDC* dc, const CRect& visible, Walk& walk);

  // Reading.
  DxfPairReader* reader();
  void start_reading(FILE* stream);
  void stop_reading();
  bool find_section(const char* name);
  void detect_code_page();
  void count_table_records();
  template <class Record>
  bool prepare_table(const DxfTableMessages& messages, Record*& records, int& count, int& capacity);
  template <class Record>
  void read_adjacent_records(Record* records, int count, const char* keyword);
  template <class Record>
  void read_listed_records(Record* records, int count, const char* keyword);
  void read_entities();
  int read_one_entity(Varnholt::ACAD_ENTITY*& entity);

  // Writing.
  int write_whole_file(const wchar_t* path, bool ac1015, int bHatch);
  void write_body_r12(int bHatch);
  void write_body_ac1015();
  int write_tables_r12(DxfPairWriter& writer);
  void write_tables_ac1015(DxfPairWriter& writer, std::uint32_t& handle);
  void write_blocks_ac1015(DxfPairWriter& writer, std::uint32_t& handle);
  int write_marker(const char* text);

  template <class T>
  int merge(DXF* src, T* move, T* rot, T* scale);
  template <class T>
  Varnholt::ACAD_WIPEOUT* write_wipeout(const T* xs, const T* ys, INT_PTR n, const wchar_t* layer,
                                        const wchar_t* colour, const wchar_t* ltype);
  // New dimensions count on from the blocks that were read.
  void count_dimension_block(const Varnholt::ACAD_BLOCK& block);
  int keep_dimension_block(const Varnholt::ACAD_DIMENSION& dim,
                           std::unique_ptr<Varnholt::ACAD_BLOCK> block);

  std::unique_ptr<Varnholt::ACAD_ENTITY> scratch_[Varnholt::kEntityNone];
  Varnholt::ACAD_BLOCK scratch_block_;
  std::unique_ptr<ReadingState> reading_;
  DxfPairWriter* writer_ = nullptr;  // while a whole file is written
  bool nesting_told_ = false;
  int fresh_dimension_block_ = 0;  // the number given out last, until its block is there
};

}  // namespace brindle
