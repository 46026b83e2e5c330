// A chain of vertices with widths and arcs between them.
#pragma once

#include "brindle/dxf/acad_entity.h"
#include "brindle/platform/base/list.h"

namespace brindle::Varnholt {

// Segment i joins vertex i to vertex i + 1, and when m_nFlags is not 0 the last vertex to the
// first. The values 2 (fitted curve) and 4 (spline) of m_nFlags select vertices: a segment counts
// only when both its ends have the vertex flag 1, or 8.
class ACAD_POLYLINE : public ACAD_ENTITY {
 public:
  // A plain record, owned by its polyline.
  struct ACAD_VERTEX {
    ACAD_VERTEX() { Ini(); }

    void Ini();
    // Reads the vertex from the stream's position, the start of its "  0" pair, to the next pair of
    // code 0. The widths that the vertex has before the call are those of a file without any; they,
    // and those read, are kept in single precision. 1; 0 when another word stands there.
    int Read(FILE* stream);
    int read_from(DxfPairReader& reader);
    // The R12 form; 1.
    int Write(FILE* stream) const;
    // The AC1015 form; 1.
    int Write2000(FILE* stream) const;
    void write_to(DxfPairWriter& writer, DxfDialect dialect) const;

    WText<100> m_szLayer;
    WText<100> m_szLType;
    int m_nColor;
    std::uint32_t m_nHandle;
    double x, y, z;
    double m_dStartWidth, m_dEndWidth;  // of the segment that starts here
    // Tangent of a quarter of the included angle of the arc that starts here: above 0 the arc runs
    // counter-clockwise. Below 0.0001 in size the segment is straight.
    double m_dBulge;
    int m_nFlags;
  };

  ACAD_POLYLINE() { ACAD_POLYLINE::Ini(); }
  // Deep copies, vertex by vertex.
  ACAD_POLYLINE(const ACAD_POLYLINE& other);
  ACAD_POLYLINE& operator=(const ACAD_POLYLINE& other);
  ACAD_POLYLINE& Copy(const ACAD_POLYLINE& other) { return *this = other; }
  ~ACAD_POLYLINE() override { delete_vertices(); }

  int GetType() override { return kEntityPolyline; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  int HitTest(const CFRect& rect, int mode, double angle1, double angle2) override;
  // The test of the polyline as it lies in the plane: mode 1, all segments inside; else any hit.
  int HitTest(const CFRegion& region, int mode);
  void Draw3D_Opengl() override;
  CFPoint Get_Max_Point() override;
  CFPoint Get_Min_Point() override;
  // Bulges change sign when the polyline, seen from above, is turned over.
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;

  void Ini() override;
  ACAD_ENTITY* Clone() const override { return new ACAD_POLYLINE(*this); }
  const EntitySchema* schema() const override;
  int read_from(DxfPairReader& reader) override;
  // R12: POLYLINE with its vertices. AC1015: LWPOLYLINE, without z and extended record.
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;
  bool counts_for_extreme_points() const override { return true; }

  // A new vertex at the end, with its defaults.
  ACAD_VERTEX* add_vertex();
  void delete_vertices();

  double x1, y1, z1;                  // the first 10, 20, 30 of the file; not used in drawing
  double x2, y2, z2;                  // the second ones
  double m_dStartWidth, m_dEndWidth;  // defaults of the vertices
  int m_nFlags;                       // 0 open, 1 closed
  CPtrList m_Vertices{10};            // ACAD_VERTEX*, owned
  double m_dLtScale;

 private:
  // Calls visit(from, to) for each segment that counts, in order, until it returns false.
  template <class Visit>
  void visit_segments(Visit visit) const;
  // The vertices as they are seen under two axonometric angles.
  ACAD_POLYLINE seen_from(double angle1, double angle2) const;
  template <class T>
  void transfer(const T* rot, const T* move, const T* scale);
  void write_r12(DxfPairWriter& writer) const;
  void write_ac1015(DxfPairWriter& writer) const;
};

}  // namespace brindle::Varnholt
