// CDomainEdge: one edge of a domain, a closed ring of straight and circular edges.
#pragma once

#include "brindle/geometry/point.h"

namespace brindle {

class CFRegion;

// A plain value. An edge ends where the next one of its ring starts, the last at the first. An arc
// takes its radius from its start; one that ends where it starts has no length, so a full circle
// takes two edges.
class CDomainEdge {
 public:
  int reserved = 0;  // read by nothing
  int position = 1;  // while a ring is cut at an axis: 1 above it, -1 below, 0 on it
  int type = 0;      // 0 straight, 1 arc
  CFPoint start;
  CFPoint centre;  // of an arc
  int ccw = 1;     // 1: the arc runs counter-clockwise from start to end, 0: clockwise
};

// Turns a ring of vertices into a domain: an edge for each vertex, in the room that the caller
// provides. A positive half-angle makes an arc that runs clockwise.
void ChangeToEdge(const CFRegion& region, CDomainEdge* edges);

}  // namespace brindle
