// Design strengths of concrete and bars by GB50010-2010, in N/mm2, and the factors of the
// rectangular stress block that follow from them.
#pragma once

namespace brindle::beam {

// One concrete grade. Grades are told by their number: 30 is C30.
struct Concrete {
  int grade = 0;
  double fc = 0;          // axial compressive strength, table 4.1.4-1
  double ft = 0;          // axial tensile strength, table 4.1.4-2
  double alpha1 = 0;      // stress of the block over fc, 6.2.6
  double beta1 = 0;       // depth of the block over the neutral axis, 6.2.6
  double beta_c = 0;      // strength influence on the section limit of shear, 6.3.1
  double epsilon_cu = 0;  // ultimate compressive strain, 6.2.1
};

// Fills `out` and returns true for C15 to C80 in steps of five; false for any other number, `out`
// untouched then.
bool find_concrete(int grade, Concrete* out);

// One bar grade of tables 4.2.3-1 and 4.2.5.
struct Steel {
  const wchar_t* name;    // "HRB400"
  wchar_t mark;           // its symbol in shape fonts: a character of 130 to 143
  double fy;              // tensile design strength
  double fy_compression;  // compressive design strength
  double es;              // modulus of elasticity
  int max_diameter_mm;    // largest nominal diameter of the grade
  int lowest_concrete;    // lowest concrete grade that 4.1.2 allows with it
};

// The grade of that exact name: HPB300, HRB335, HRB400, HRB500; null for any other. The records
// live for ever.
const Steel* find_steel(const wchar_t* name);

// Tensile strength of stirrups in shear: fy, but at most 360 (4.2.3).
double stirrup_strength(const Steel& steel);

// Depth of the stress block over h0 at balanced failure, for bars with a yield point (6.2.7-1).
double balanced_depth_ratio(const Concrete& concrete, const Steel& steel);

// Least ratio of tension steel to b*h of a beam: the larger of 0.2 % and 0.45 ft/fy (8.5.1).
double minimum_steel_ratio(const Concrete& concrete, const Steel& steel);

}  // namespace brindle::beam
