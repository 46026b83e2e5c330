// The base of all drawing elements: the fields they share, the contract of their operations, and
// reading, writing and moving by the table that each kind states.
#pragma once

#include <cstdint>
#include <cstdio>

#include "brindle/dxf/pair_writer.h"
#include "brindle/geometry/point.h"
#include "brindle/geometry/rect.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

class CDC;
class CFCoor;
class CFRegion;
class DXF;
class DxfPairReader;
struct DxfPair;

namespace Varnholt {

class ACAD_BLOCK;
class ACAD_LAYER;
class ACAD_LTYPE;
class ACAD_STYLE;
struct EntitySchema;

enum ACAD_Entity_Type {
  kEntityPoint = 0,
  kEntityLine = 1,
  kEntityText = 2,
  kEntityCircle = 3,
  kEntityArc = 4,
  kEntityPolyline = 5,
  kEntitySolid = 6,
  kEntity3dFace = 7,
  kEntityInsert = 8,
  kEntityDimension = 9,
  kEntityHatch = 10,
  kEntityImage = 11,
  kEntityWipeout = 12,
  kEntityNone = 13,  // no entity, or a failure
  kEntityEndOfSection = 14
};

// Coordinates are world units, y up. One thread uses an entity at a time.
class ACAD_ENTITY {
 public:
  ACAD_ENTITY();
  ACAD_ENTITY(const ACAD_ENTITY&) = default;
  ACAD_ENTITY& operator=(const ACAD_ENTITY&) = default;

  // Reads the entity from the stream's position, which must be the start of its "  0" pair; stops
  // before the next pair of code 0, whatever its word. 1, also at the end of the file; 0 when
  // another word stands there.
  virtual int Read(FILE* stream);
  // Writes the R12 form; 1.
  virtual int Write(FILE* stream);
  // Writes the AC1015 form, with handle and subclass markers; 1.
  virtual int Write2000(FILE* stream);
  // Takes a pair that the kind doesn't know. The pair "1000\n", "QXEX\n" starts the extended
  // record, which is read from the stream; any other pair is passed over. Always 1.
  virtual int ReadExtData(const wchar_t* code, const wchar_t* value, FILE* stream);
  // Writes the extended record; nothing when its first word is 0. Always 1.
  virtual int WriteExtData(FILE* stream);
  virtual int GetType() { return kEntityNone; }
  // The box in world units, the zero box for a kind without extent.
  virtual CFRect GetFRect() { return CFRect(); }
  // The box of the entity seen under two axonometric angles (radians).
  virtual CFRect GetFRect3D(double angle1, double angle2);
  // Draws the entity, shifted by (dx, dy) world units, from above. A selected one gets a mark at
  // each key point. Nothing when a name that it needs isn't in the tables.
  virtual void Draw(CDC* dc, CFCoor* coor, double dx, double dy);
  // The same as seen under two axonometric angles (radians).
  virtual void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2);
  // Whether the entity, seen under two angles, lies in a region (mode other than 0) or lies in it
  // or touches it (0).
  virtual int HitTest(const CFRegion& region, int mode, double angle1, double angle2);
  // The same for a box.
  virtual int HitTest(const CFRect& rect, int mode, double angle1, double angle2);
  // Draws in the current OpenGL context; see entity_opengl.h.
  virtual void Draw3D_Opengl() {}
  virtual CFPoint Get_Max_Point() { return CFPoint(); }
  virtual CFPoint Get_Min_Point() { return CFPoint(); }
  // Moves the entity: each point is turned by rot (3x3, row-major), scaled by scale (3x3), shifted
  // by move (3 values), in this order; a null array leaves its step out. Sizes scale by scale[0]
  // only, angles follow the rotation only. 1; the base, which has no points, answers 0.
  virtual int Transfer(double* rot, double* move, double* scale);
  virtual int Transfer(float* rot, float* move, float* scale);
  virtual ~ACAD_ENTITY() = default;

  // Sets every field to its default.
  virtual void Ini();
  // A copy on the heap, owned by the caller; null for the base.
  virtual ACAD_ENTITY* Clone() const { return nullptr; }
  // What the kind's file form is; null for a kind that has none.
  virtual const EntitySchema* schema() const { return nullptr; }
  // Reading from a window of pairs; the base reads by the schema.
  virtual int read_from(DxfPairReader& reader);
  // Writing; the base writes by the schema.
  virtual void write_to(DxfPairWriter& writer, DxfDialect dialect);
  // Called once an entity of a file has been read and knows its document; false drops it.
  virtual bool finish_reading() { return true; }
  // Called on the copy that a merge has put into a drawing.
  virtual void joined(DXF& drawing);
  // Whether the kind takes part in DXF::Get_Max_Point and Get_Min_Point.
  virtual bool counts_for_extreme_points() const { return false; }

  // Lookups in the owning document, null without one. GetStyle, GetLayer: a miss is reported with
  // number 0 and gives null.
  ACAD_LAYER* GetLayer(const wchar_t* name) const;
  ACAD_STYLE* GetStyle(const wchar_t* name) const;
  // "BYLAYER" stands for the line type of this entity's layer (null when the layer is missing);
  // an unknown name falls back to entry 0 of the table.
  ACAD_LTYPE* GetLType(const wchar_t* name) const;
  ACAD_BLOCK* GetBlock(const wchar_t* name) const;

  // The colour (0x00bbggrr) of an index for drawing: 256 and -1 are the layer's colour (a missing
  // layer gives -99999), 0 to 255 the palette, below -1 the negated value itself. Where it would
  // vanish in the background of the shared canvas's device, it is inverted; on a metafile it is
  // black unless colours are kept (SetDXFPrintColor).
  COLORREF GetColor(int index) const;
  // The same without any rule of the device.
  COLORREF GetColorNew(int index) const;
  // 2 (dashed) for a selected entity, else 0.
  int GetPenStyle() const { return m_bSelected != 0 ? 2 : 0; }
  // The dash pattern of a line type in pixels, as n integers that the caller frees with delete[];
  // null and n = 0 for "CONTINUOUS".
  int* LineType_FP2DP(ACAD_LTYPE* lt, CFCoor* coor, double scale, int& n) const;

  // One point by rotation, scale and shift; see Transfer.
  static void TransOne(float& x, float& y, float& z, const float* rot, const float* move,
                       const float* scale);
  static void TransOne(double& x, double& y, double& z, const float* rot, const float* move,
                       const float* scale);
  static void TransOne(double& x, double& y, double& z, const double* rot, const double* move,
                       const double* scale);

  // The extended record ties an entity to the component that drew it. Excess high bits of an
  // argument are dropped.
  void SetXData1(unsigned index) { m_nXData1 = index; }
  void SetXData2(unsigned type, unsigned xt_type, unsigned xt_index);
  void SetXData3(unsigned ts_type1, unsigned ts_type2, unsigned ts_index, unsigned ty_index);
  unsigned GetGJIndex() const { return m_nXData1; }       // GouJian: component
  unsigned GetGJType() const { return m_nXData2 >> 26; }  // 6 bits
  unsigned GetXTType() const { return (m_nXData2 >> 19) & 0x7f; }
  unsigned GetXTIndex() const { return (m_nXData2 >> 9) & 0x3ff; }
  unsigned GetTSType1() const { return m_nXData3 >> 25; }  // 7 bits
  unsigned GetTSType2() const { return (m_nXData3 >> 21) & 0xf; }
  unsigned GetTSIndex() const { return (m_nXData3 >> 6) & 0x7fff; }
  unsigned GetTYIndex() const { return m_nXData3 & 0x3f; }

  DXF* m_pDxf = nullptr;  // owning document, re-set by it before each view
  int m_nID = 0;          // the caller's id
  int m_bSelected = 0;
  int m_bWrite = 1;  // 0: a hatch is left out of an R12 file
  WText<100> m_szLayer;
  WText<100> m_szLType;
  int m_nColor = -1;  // -1, 256 by layer; 0 to 255 index; below -1 negated 24-bit value
  std::uint32_t m_nHandle = 0;
  std::uint32_t m_nXData1 = 0;
  std::uint32_t m_nXData2 = 0;
  std::uint32_t m_nXData3 = 0;

 protected:
  // Angle fields under a Transfer: the turn about z, folded to 0..360. No change for other turns.
  template <class T>
  static void turn_angle(double& degrees, const T* rot);

  // A pair of code 1000, and what is written behind an entity's own groups. A kind with extended
  // data of its own adds to them.
  virtual void read_extended_pair(const DxfPair& pair, DxfPairReader& reader);
  virtual void write_extended_record(DxfPairWriter& writer) const;
};

extern template void ACAD_ENTITY::turn_angle<float>(double&, const float*);
extern template void ACAD_ENTITY::turn_angle<double>(double&, const double*);

}  // namespace Varnholt
}  // namespace brindle
