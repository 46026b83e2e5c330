// The arc that rounds a corner.
#pragma once

namespace brindle {

// The fillet of radius r in the corner at (x0, y0) between the directions to p1 and p2, on the side
// where they enclose less than pi: writes the arc's centre and the points where it touches the
// first and the second leg, and returns 0. The legs' lengths don't limit the touching points. Legs
// along one line (the size of the triangle's double area is below 1e-6): all outputs 0, result -1.
int Fillet(float x0, float y0, float x1, float y1, float x2, float y2, float r, float& cx,
           float& cy, float& ax, float& ay, float& bx, float& by);
int Fillet(double x0, double y0, double x1, double y1, double x2, double y2, double r, double& cx,
           double& cy, double& ax, double& ay, double& bx, double& by);

}  // namespace brindle
