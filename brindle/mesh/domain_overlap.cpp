// CPointInDomain: overlaps with other figures.
#include <algorithm>

#include "brindle/mesh/domain_internal.h"
#include "brindle/mesh/domain_location.h"

namespace brindle {

// Both tests end with a look at the edges whose answer doesn't matter: past the boxes it is 1.

int CPointInDomain::Test_CrossRegon_Domain_Circle(int n, const CDomainEdge* edges, float x, float y,
                                                  float r, float tol) {
  if (n <= 0) return 0;
  if (Point_In_Domain(n, edges, x, y, tol)) return 1;
  for (int i = 0; i < n; ++i) {
    if (JH_TestPointIn_Circle(edges[i].start.x, edges[i].start.y, x, y, r, tol)) return 1;
  }
  float left, bottom, right, top;
  Get_OutLook_Domain(n, edges, left, bottom, right, top);
  return JH_TestPointIn_Rect(left, bottom, right, top, x, y, r + tol);
}

int CPointInDomain::Test_CrossRegon_Domain_Rect(int n, const CDomainEdge* edges, const float* x,
                                                const float* y, float tol) {
  if (n <= 0) return 0;
  for (int k = 0; k < 4; ++k) {
    if (Point_In_Domain(n, edges, x[k], y[k], tol)) return 1;
  }
  for (int i = 0; i < n; ++i) {
    if (JH_TestPointIn_TuPolygon(edges[i].start.x, edges[i].start.y, 4, x, y, tol)) return 1;
  }
  float left, bottom, right, top;
  Get_OutLook_Domain(n, edges, left, bottom, right, top);
  const auto [min_of_x, max_of_x] = std::minmax_element(x, x + 4);
  const auto [min_of_y, max_of_y] = std::minmax_element(y, y + 4);
  return JH_TestCrossRegon_Rect(left, bottom, right, top, *min_of_x, *min_of_y, *max_of_x,
                                *max_of_y, tol);
}

int CPointInDomain::Test_CrossRegon_Domain_Domain(int, const CDomainEdge*, int, const CDomainEdge*,
                                                  float) const {
  return 0;
}

}  // namespace brindle
