// The pieces of a hatch's boundary: sections, arcs, elliptic arcs and splines.
#pragma once

#include <cstddef>
#include <cstdio>
#include <vector>

#include "brindle/dxf/pair_reader.h"
#include "brindle/dxf/pair_writer.h"

namespace brindle::Varnholt {

// A point of a boundary, world units, y up.
struct HatchPoint {
  double x = 0, y = 0;
};

// The part of a Transfer that acts in the plane: (x, y) goes to (xx x + xy y + x0, yx x + yy y +
// y0), and sizes grow by `size`.
struct PlaneMap {
  double xx = 1, xy = 0, yx = 0, yy = 1, x0 = 0, y0 = 0, size = 1;

  template <class T>
  static PlaneMap of(const T* rot, const T* move, const T* scale);

  HatchPoint point(HatchPoint p) const {
    return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0};
  }
  HatchPoint direction(HatchPoint d) const { return {xx * d.x + xy * d.y, yx * d.x + yy * d.y}; }
  // Whether figures come out turned over, as in a mirror.
  bool turns_over() const { return xx * yy - xy * yx < 0; }
};

extern template PlaneMap PlaneMap::of<float>(const float*, const float*, const float*);
extern template PlaneMap PlaneMap::of<double>(const double*, const double*, const double*);

// How finely curves are replaced by chords: the largest distance from the curve, world units (0 for
// none), and the largest number of chords for one edge.
struct Flattening {
  double tolerance = 0;
  int most_chords = 256;
};

// The edge's kinds, as group 72 numbers them.
enum HatchEdgeType { kHatchLine = 1, kHatchArc = 2, kHatchEllipse = 3, kHatchSpline = 4 };

class HATCH_EDGE_DATA {
 public:
  // Reads from the stream's position, the start of the edge's pair of code 72, up to the first pair
  // that isn't the edge's. 1; 0 when that pair isn't there or names another kind.
  virtual int Read(FILE* stream);
  // Writes the edge, alike in both forms; 1.
  virtual int Write(FILE* stream) const;
  virtual int Write2000(FILE* stream) const;
  virtual int GetType() const = 0;
  virtual ~HATCH_EDGE_DATA() = default;

  // Takes a pair; false when it isn't the edge's.
  virtual bool take(const DxfPair& pair) = 0;
  virtual void write_to(DxfPairWriter& writer) const = 0;
  virtual HATCH_EDGE_DATA* Clone() const = 0;
  virtual void transfer(const PlaneMap& map) = 0;
  // Appends the edge's points in its order, both ends included.
  virtual void flatten(std::vector<HatchPoint>& points, const Flattening& how) const = 0;

  // A new edge of a kind, owned by the caller; null for another number.
  static HATCH_EDGE_DATA* create(int type);
};

class HATCH_LINE_EDGEDATA : public HATCH_EDGE_DATA {
 public:
  int GetType() const override { return kHatchLine; }
  bool take(const DxfPair& pair) override;
  void write_to(DxfPairWriter& writer) const override;
  HATCH_EDGE_DATA* Clone() const override { return new HATCH_LINE_EDGEDATA(*this); }
  void transfer(const PlaneMap& map) override;
  void flatten(std::vector<HatchPoint>& points, const Flattening& how) const override;

  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// Runs from the start to the end angle counter-clockwise. Otherwise, as drawing files have it, the
// angles count clockwise and the arc runs clockwise. The end takes one more turn when it doesn't
// lie beyond the start.
class HATCH_ARC_EDGEDATA : public HATCH_EDGE_DATA {
 public:
  int GetType() const override { return kHatchArc; }
  bool take(const DxfPair& pair) override;
  void write_to(DxfPairWriter& writer) const override;
  HATCH_EDGE_DATA* Clone() const override { return new HATCH_ARC_EDGEDATA(*this); }
  void transfer(const PlaneMap& map) override;
  void flatten(std::vector<HatchPoint>& points, const Flattening& how) const override;

  double x = 0, y = 0;  // centre
  double m_dRadius = 0;
  double m_dStartAngle = 0, m_dEndAngle = 360;  // degrees
  int m_bCounterClockwise = 1;
};

// As the arc, on an ellipse: its angles are those of a circle that was pressed together across the
// major axis.
class HATCH_ELLIPSE_EDGEDATA : public HATCH_EDGE_DATA {
 public:
  int GetType() const override { return kHatchEllipse; }
  bool take(const DxfPair& pair) override;
  void write_to(DxfPairWriter& writer) const override;
  HATCH_EDGE_DATA* Clone() const override { return new HATCH_ELLIPSE_EDGEDATA(*this); }
  void transfer(const PlaneMap& map) override;
  void flatten(std::vector<HatchPoint>& points, const Flattening& how) const override;

  double x = 0, y = 0;                          // centre
  double m_dMajorX = 0, m_dMajorY = 0;          // from the centre to the end of the major axis
  double m_dRatio = 1;                          // of the minor axis to the major one
  double m_dStartAngle = 0, m_dEndAngle = 360;  // degrees
  int m_bCounterClockwise = 1;
};

// A spline whose numbers don't fit together is drawn as its control polygon.
class HATCH_SPLINE_EDGEDATA : public HATCH_EDGE_DATA {
 public:
  int GetType() const override { return kHatchSpline; }
  bool take(const DxfPair& pair) override;
  void write_to(DxfPairWriter& writer) const override;
  HATCH_EDGE_DATA* Clone() const override { return new HATCH_SPLINE_EDGEDATA(*this); }
  void transfer(const PlaneMap& map) override;
  void flatten(std::vector<HatchPoint>& points, const Flattening& how) const override;

  int m_nDegree = 3;
  int m_bRational = 0;
  int m_bPeriodic = 0;
  std::vector<double> m_Knots;
  std::vector<HatchPoint> m_Controls;
  std::vector<double> m_Weights;  // one a control point, or empty
};

}  // namespace brindle::Varnholt
