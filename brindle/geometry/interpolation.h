// Piecewise linear tables, with and without steps, their sums, and the plane through three points.
// A table is n nodes in rising order of x.
#pragma once

namespace brindle {

// The value at v of the table x[], y[]; beyond its ends the first or last interval is prolonged. n
// below 1 gives 0, n of 1 gives y[0]. Nodes nearer than 1e-20 are told as error 202
// ("线性插值函数发现错误,两点距离太近 !"), and the slope is then taken over 1e-20. Linear in n.
float liner_inter(const float* x, const float* y, int n, float v);
double liner_inter(const double* x, const double* y, int n, double v);

// The value at v of a table with steps: at node i it comes in with yl[i] and goes on with yr[i], as
// shear forces do. Within 1e-5 of a node (the first one counts) the one function gives yl, the
// other yr; between nodes the line from yr[i] to yl[i+1]; outside the table, or for n below 1, 0.
float liner_inter_2_left(int n, const float* x, const float* yl, const float* yr, float v);
double liner_inter_2_left(int n, const double* x, const double* yl, const double* yr, double v);
float liner_inter_2_right(int n, const float* x, const float* yl, const float* yr, float v);
double liner_inter_2_right(int n, const double* x, const double* yl, const double* yr, double v);

// Adds two tables: writes the nodes of both, merged and rising, to x[] and the sums there to y[],
// and returns their number. Nodes within 1e-5 of the one before are left out. Each table counts
// beyond its ends as liner_inter prolongs it, so the sum's value is the sum of values everywhere. x
// and y, which may not overlap the inputs, take n1 + n2 values. A table without nodes adds nothing.
int add_segment_function(int n1, const float* x1, const float* y1, int n2, const float* x2,
                         const float* y2, float* x, float* y);
int add_segment_function(int n1, const double* x1, const double* y1, int n2, const double* x2,
                         const double* y2, double* x, double* y);

// The same for tables with steps; values at the merged nodes are those of liner_inter_2_left and
// liner_inter_2_right, so a table that ends within the other's range must end in 0 on its outside.
int add_segment_function_2(int n1, const float* x1, const float* yl1, const float* yr1, int n2,
                           const float* x2, const float* yl2, const float* yr2, float* x, float* yl,
                           float* yr);
int add_segment_function_2(int n1, const double* x1, const double* yl1, const double* yr1, int n2,
                           const double* x2, const double* yl2, const double* yr2, double* x,
                           double* yl, double* yr);

// PinMianChaZhi: plane interpolation. The value at (px, py) of the plane through the three points
// x[0..2], y[0..2], z[0..2]. Where twice the triangle's area is below 1e-5 in size it is taken as
// 1e-5 whatever its sign, so that a degenerate triangle still gives a number.
float PinMianChaZhi(const float* x, const float* y, const float* z, float px, float py);

}  // namespace brindle
