#include "brindle/dxf/binary_entities_internal.h"

#include <algorithm>
#include <memory>

#include "brindle/dxf/acad_3dface.h"
#include "brindle/dxf/acad_dimension.h"
#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_image.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/acad_solid.h"
#include "brindle/dxf/acad_wipeout.h"
#include "brindle/dxf/entity_kinds.h"

// Each exchange states the order of a kind's fields once, for both directions.
namespace brindle {

using namespace Varnholt;

namespace {

template <class Stream, class... Number>
void numbers(Stream& stream, Number&... values) {
  (stream.number(values), ...);
}

template <class Stream, class... Value>
void words(Stream& stream, Value&... values) {
  (stream.plain(values), ...);
}

// A list behind its count, for elements of at least so many bytes.
template <class Stream, class Element, class Each>
void list(Stream& stream, std::vector<Element>& elements, std::size_t smallest, Each each) {
  if constexpr (Stream::kReading) {
    elements.clear();
    elements.resize(static_cast<std::size_t>(stream.count(smallest)));
  } else {
    stream.plain(static_cast<int>(elements.size()));
  }
  for (Element& element : elements) each(element);
}

// The same for a list of owned pointers.
template <class Element, class Stream, class Each>
void list(Stream& stream, CPtrList& elements, std::size_t smallest, Each each) {
  if constexpr (Stream::kReading) {
    const int count = stream.count(smallest);
    for (int i = 0; i < count && stream.remaining() != 0; ++i) {
      auto element = std::make_unique<Element>();
      each(*element);
      elements.AddTail(element.release());
    }
  } else {
    stream.plain(static_cast<int>(elements.GetCount()));
    for (POSITION at = elements.GetHeadPosition(); at != nullptr;) {
      each(*static_cast<Element*>(elements.GetNext(at)));
    }
  }
}

// The smallest a list of numbers can be written in.
template <class Stream>
std::size_t number_size(const Stream& stream) {
  if constexpr (Stream::kReading) {
    return stream.number_size();
  } else {
    return sizeof(double);
  }
}

// Two arrays of one length behind their count.
template <class Stream, class T, class Each>
void pairs(Stream& stream, CArray<T>& x, CArray<T>& y, std::size_t smallest, Each each) {
  int count = static_cast<int>(std::min(x.GetSize(), y.GetSize()));
  if constexpr (Stream::kReading) {
    count = stream.count(smallest);
    x.SetSize(count);
    y.SetSize(count);
  } else {
    stream.plain(count);
  }
  for (int i = 0; i < count; ++i) {
    each(x[i]);
    each(y[i]);
  }
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_POINT& e) {
  numbers(stream, e.x, e.y, e.z);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_LINE& e) {
  numbers(stream, e.x1, e.y1, e.z1, e.x2, e.y2, e.z2, e.m_dLtScale);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_CIRCLE& e) {
  numbers(stream, e.x, e.y, e.z, e.m_dRadius, e.m_dLtScale);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_ARC& e) {
  numbers(stream, e.x, e.y, e.z, e.m_dRadius, e.m_dStartAngle, e.m_dEndAngle, e.m_dLtScale);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_TEXT& e) {
  words(stream, e.m_bHasWidth);
  numbers(stream, e.x, e.y, e.z, e.m_dHeight);
  stream.text(e.m_szText);
  stream.text(e.m_szStyle);
  numbers(stream, e.m_dAngle, e.m_dWidthFactor);
  words(stream, e.m_nHAlign, e.m_nVAlign);
  numbers(stream, e.x2, e.y2, e.z2);
  words(stream, e.m_bOpaque, e.m_bItalic);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames& names, ACAD_POLYLINE& e) {
  numbers(stream, e.x1, e.y1, e.z1, e.x2, e.y2, e.z2, e.m_dStartWidth, e.m_dEndWidth);
  words(stream, e.m_nFlags);
  list<ACAD_POLYLINE::ACAD_VERTEX>(
      stream, e.m_Vertices, 12 + 6 * number_size(stream), [&](ACAD_POLYLINE::ACAD_VERTEX& vertex) {
        names.layer(stream, vertex);
        names.line_type(stream, vertex);
        words(stream, vertex.m_nColor);
        numbers(stream, vertex.x, vertex.y, vertex.z, vertex.m_dStartWidth, vertex.m_dEndWidth,
                vertex.m_dBulge);
        words(stream, vertex.m_nFlags);
      });
  numbers(stream, e.m_dLtScale);
}

template <class Stream, class Corners>
void exchange_corners(Stream& stream, Corners& e) {
  numbers(stream, e.x1, e.y1, e.z1, e.x2, e.y2, e.z2, e.x3, e.y3, e.z3, e.x4, e.y4, e.z4);
}
template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_SOLID& e) {
  exchange_corners(stream, e);
}
template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_3DFACE& e) {
  exchange_corners(stream, e);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_INSERT& e) {
  stream.text(e.m_szBlock);
  numbers(stream, e.x, e.y, e.z, e.m_dScaleX, e.m_dScaleY, e.m_dAngle);
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_DIMENSION& e) {
  stream.text(e.m_szBlock);
  stream.text(e.m_szDimStyle);
  numbers(stream, e.x10, e.y10, e.z10, e.x11, e.y11, e.z11, e.x12, e.y12, e.z12);
  words(stream, e.m_nDimType);
  stream.text(e.m_szText);
  numbers(stream, e.x13, e.y13, e.z13, e.x14, e.y14, e.z14);
  numbers(stream, e.x15, e.y15, e.z15, e.x16, e.y16, e.z16);
  numbers(stream, e.m_dLeader, e.m_dAngle, e.m_dScale, e.m_dLengthFactor);
  stream.text(e.m_szTextPos);
  words(stream, e.m_nJust, e.m_nFit, e.m_nTad);
}

template <class Stream>
void exchange(Stream& stream, HATCH_EDGE_DATA& edge) {
  switch (edge.GetType()) {
    case kHatchLine: {
      auto& e = static_cast<HATCH_LINE_EDGEDATA&>(edge);
      numbers(stream, e.x1, e.y1, e.x2, e.y2);
      break;
    }
    case kHatchArc: {
      auto& e = static_cast<HATCH_ARC_EDGEDATA&>(edge);
      numbers(stream, e.x, e.y, e.m_dRadius, e.m_dStartAngle, e.m_dEndAngle);
      words(stream, e.m_bCounterClockwise);
      break;
    }
    case kHatchEllipse: {
      auto& e = static_cast<HATCH_ELLIPSE_EDGEDATA&>(edge);
      numbers(stream, e.x, e.y, e.m_dMajorX, e.m_dMajorY, e.m_dRatio, e.m_dStartAngle,
              e.m_dEndAngle);
      words(stream, e.m_bCounterClockwise);
      break;
    }
    case kHatchSpline: {
      auto& e = static_cast<HATCH_SPLINE_EDGEDATA&>(edge);
      words(stream, e.m_nDegree, e.m_bRational, e.m_bPeriodic);
      const std::size_t size = number_size(stream);
      list(stream, e.m_Knots, size, [&](double& knot) { stream.number(knot); });
      list(stream, e.m_Controls, 2 * size, [&](HatchPoint& p) { numbers(stream, p.x, p.y); });
      list(stream, e.m_Weights, size, [&](double& weight) { stream.number(weight); });
      break;
    }
    default:
      break;
  }
}

template <class Stream>
void exchange(Stream& stream, HATCH_BOUNDARY_DATA& path) {
  words(stream, path.m_nPathType, path.m_bHasBulge, path.m_bClosed);
  const std::size_t size = number_size(stream);
  list(stream, path.m_Vertices, 3 * size,
       [&](HatchVertex& vertex) { numbers(stream, vertex.x, vertex.y, vertex.bulge); });
  if constexpr (Stream::kReading) {
    const int count = stream.count(sizeof(int));
    for (int i = 0; i < count && stream.remaining() != 0; ++i) {
      int type = 0;
      stream.plain(type);
      std::unique_ptr<HATCH_EDGE_DATA> edge(HATCH_EDGE_DATA::create(type));
      if (edge == nullptr) continue;
      exchange(stream, *edge);
      path.m_Edges.push_back(std::move(edge));
    }
  } else {
    stream.plain(static_cast<int>(path.m_Edges.size()));
    for (const auto& edge : path.m_Edges) {
      stream.plain(edge->GetType());
      exchange(stream, *edge);
    }
  }
  list(stream, path.m_Sources, sizeof(unsigned), [&](unsigned& handle) { stream.plain(handle); });
}

template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_HATCH& e) {
  const std::size_t size = number_size(stream);
  numbers(stream, e.m_dElevation[0], e.m_dElevation[1], e.m_dElevation[2]);
  numbers(stream, e.m_dNormal[0], e.m_dNormal[1], e.m_dNormal[2]);
  stream.text(e.m_szPattern);
  words(stream, e.m_bSolid, e.m_bAssociative, e.m_nBoundary, e.m_nHatchStyle, e.m_nPatternType);
  numbers(stream, e.m_dAngle, e.m_dScale);
  words(stream, e.m_bDouble, e.m_nPatLines, e.m_nSeeds);
  pairs(stream, e.m_SeedX, e.m_SeedY, 2 * size, [&](double& value) { stream.number(value); });
  list<HATCH_BOUNDARY_DATA>(stream, e.m_Boundaries, 6 * sizeof(int),
                            [&](HATCH_BOUNDARY_DATA& path) { exchange(stream, path); });
  list<HATCH_PATTERN_DATA>(
      stream, e.m_Patterns, 5 * size + sizeof(int), [&](HATCH_PATTERN_DATA& family) {
        numbers(stream, family.m_dAngle, family.m_dBaseX, family.m_dBaseY, family.m_dOffsetX,
                family.m_dOffsetY);
        list(stream, family.m_Dashes, size, [&](double& dash) { stream.number(dash); });
      });
  numbers(stream, e.m_dPixelSize);
}

// An image's fields are single precision in memory and in both forms of the file.
template <class Stream>
void exchange(Stream& stream, BinaryNames&, ACAD_IMAGE& e) {
  words(stream, e.x, e.y, e.z, e.ux, e.uy, e.uz, e.vx, e.vy, e.vz, e.m_fWidth, e.m_fHeight);
  words(stream, e.m_nDisplay, e.m_nBrightness, e.m_nContrast, e.m_nFade, e.m_nClip, e.m_nClipType);
  pairs(stream, e.m_ClipX, e.m_ClipY, 2 * sizeof(float), [&](float& v) { stream.plain(v); });
}

template <class Stream, class Entity>
void exchange_as(Stream& stream, BinaryNames& names, ACAD_ENTITY& entity) {
  Entity& e = static_cast<Entity&>(entity);
  names.layer(stream, e);
  names.line_type(stream, e);
  words(stream, e.m_nColor);
  if (names.extended_words()) words(stream, e.m_nXData1, e.m_nXData2, e.m_nXData3);
  exchange(stream, names, e);
}

// False for a kind that the file doesn't hold.
template <class Stream>
bool exchange_entity(Stream& stream, BinaryNames& names, ACAD_ENTITY& entity, int kind) {
  switch (kind) {
    case kEntityPoint:
      exchange_as<Stream, ACAD_POINT>(stream, names, entity);
      return true;
    case kEntityLine:
      exchange_as<Stream, ACAD_LINE>(stream, names, entity);
      return true;
    case kEntityText:
      exchange_as<Stream, ACAD_TEXT>(stream, names, entity);
      return true;
    case kEntityCircle:
      exchange_as<Stream, ACAD_CIRCLE>(stream, names, entity);
      return true;
    case kEntityArc:
      exchange_as<Stream, ACAD_ARC>(stream, names, entity);
      return true;
    case kEntityPolyline:
      exchange_as<Stream, ACAD_POLYLINE>(stream, names, entity);
      return true;
    case kEntitySolid:
      exchange_as<Stream, ACAD_SOLID>(stream, names, entity);
      return true;
    case kEntity3dFace:
      exchange_as<Stream, ACAD_3DFACE>(stream, names, entity);
      return true;
    case kEntityInsert:
      exchange_as<Stream, ACAD_INSERT>(stream, names, entity);
      return true;
    case kEntityDimension:
      exchange_as<Stream, ACAD_DIMENSION>(stream, names, entity);
      return true;
    case kEntityHatch:
      exchange_as<Stream, ACAD_HATCH>(stream, names, entity);
      return true;
    case kEntityImage:
    case kEntityWipeout:
      exchange_as<Stream, ACAD_IMAGE>(stream, names, entity);
      return true;
    default:
      return false;
  }
}

}  // namespace

// Copying an entity is quicker than setting each of its fields to its default.
ACAD_ENTITY* BinaryNames::create(int kind) {
  if (kind < 0 || kind >= kEntityNone) return nullptr;
  if (patterns_[kind] == nullptr) {
    const EntityKind* known = find_entity_kind(kind);
    if (known == nullptr) return nullptr;
    patterns_[kind].reset(known->create());
  }
  return patterns_[kind]->Clone();
}

ACAD_ENTITY* read_binary_entity(BinaryReader& stream, BinaryNames& names) {
  int kind = kEntityNone;
  if (!stream.plain(kind)) return nullptr;
  std::unique_ptr<ACAD_ENTITY> entity(names.create(kind));
  if (entity == nullptr) return nullptr;
  if (!exchange_entity(stream, names, *entity, kind)) return nullptr;
  return entity.release();
}

void write_binary_entity(BinaryWriter& stream, BinaryNames& names, ACAD_ENTITY& entity) {
  const int kind = entity.GetType();
  stream.plain(kind);
  exchange_entity(stream, names, entity, kind);
}

}  // namespace brindle
