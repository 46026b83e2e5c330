// The point at which a section in space must be broken because of another one.
#pragma once

namespace brindle {

// For the sections p1 p2 and p3 p4 (three coordinates each): 1 and the point in `out` when an end
// of one lies strictly inside the other (asked in the order p3, p4, p1, p2) or when both cross
// strictly inside; strictly inside is what JudgePointOnLine says with `tol`. Else 0 with `out` left
// alone: for sections that share an end within `tol`, that are skew (the mixed product of p3 - p1,
// p2 - p1, p4 - p3 is above 1e-6 in size), parallel, that miss, or without length.
int get_break_point(const float* p1, const float* p2, const float* p3, const float* p4, float* out,
                    float tol);

}  // namespace brindle
