// Moment and shear of a beam of one span under one load.
#pragma once

namespace brindle::QxJGFunEx {

// The moment m (sagging is positive), the shear and the peak moment of a beam of length L and
// constant stiffness under one load q that presses down, at the section `a` from the left end (held
// to the span). Returns 1; 0 for L below 0.001, with everything left alone, and for what can't be
// computed. Null outputs are passed over. Units are the caller's: forces and lengths.
//
// ends[0] is the left end, ends[1] the right one: 1 hinged, 2 fixed, any other value free. With a
// free end the other one must be fixed, else "此种支承条件下不能计算！\n" is told with code 0 and
// the result is 0.
//
// type, the load form:
//   0  distributed, from q at the left of its stretch down to nothing at the right
//   1  distributed, uniformly q
//   2  distributed, from nothing at the left of its stretch up to q at the right
//   3  a single force q
//   4  a couple q, turning clockwise
// any other: "此种条件下计算需要你来完善 ...\n" with code 0, result 0.
//
// b, the load's position, is at most L, and c, its length, at least 0. When c is within 0.001 of
// zero and b within 0.001 of L, b becomes -1: the load runs to the end of the span. A distributed
// load whose b is below 0.001 covers the whole span whatever c is; else it covers c from b on, all
// the rest for a c below 0.001. A single force or couple stands at b, or at the right end for a
// negative b; at its own section m and shear are those right of it, at the right end left of it.
//
// shear is dm/da. The peak is the largest moment in the span in the direction of q, for a beam with
// a free end the moment of the largest size. For form 0 over the whole span the rows of the usual
// table stand as they are printed: hinged and hinged, and fixed and hinged, have their shear
// against an abscissa from the right end, hence the opposite sign; free and fixed has the peak -q a
// a 2.5 0.25 / 6; the other peaks have three or four figures.
int JG_CalOneSpanBeamForce(float L, const int ends[2], float q, float a, float& m,
                           float* shear = nullptr, float* peak = nullptr, int type = 0, float b = 0,
                           float c = 0);

}  // namespace brindle::QxJGFunEx
