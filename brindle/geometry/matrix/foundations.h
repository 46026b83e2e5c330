// Earth pressure and the pressure under a round footing.
#pragma once

namespace brindle::QxJGFunEx {

// The coefficient of active earth pressure, tan(pi/4 - phi/2) squared, for the angle of internal
// friction in radians.
float DJ_GetKa(float phi);

// ChongFenBu: redistribution. The pressure of a round base of radius R on soil that takes no
// tension, under a vertical force N in its middle and a moment M (of which only the size counts),
// linear over the base: `most` and `least` at the two ends of the diameter in M's direction, and
// how deep the contact reaches from the first end. Returns 1 while the whole base is in contact (M
// / N at most R / 4: least is not negative, contact is 2 R), 2 when part of it has lifted (least is
// 0), and 0 with zeros when nothing balances: N or R not positive, M / N not below R.
int DJ_CalCircle_ChongFenBu(float R, float N, float M, float& most, float& least, float& contact);

}  // namespace brindle::QxJGFunEx
