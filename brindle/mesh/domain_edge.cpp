#include "brindle/mesh/domain_edge.h"

#include "brindle/geometry/region.h"

namespace brindle {

void ChangeToEdge(const CFRegion& region, CDomainEdge* edges) {
  for (INT_PTR i = 0; i < region.GetSize(); ++i) {
    const CFShoot& vertex = region[i];
    const CFShoot& next = region[i + 1 < region.GetSize() ? i + 1 : 0];
    CDomainEdge& edge = edges[i] = CDomainEdge();
    edge.start = vertex;
    if (!vertex.IsArc()) continue;
    edge.type = 1;
    edge.centre = CFShape(vertex, next, vertex.c);
    edge.ccw = vertex.c > 0 ? 0 : 1;
  }
}

}  // namespace brindle
