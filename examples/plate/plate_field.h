// The results as a field: its components and how they are shown.
#pragma once

#include <vector>

#include "brindle/mesh/chang.h"
#include "examples/plate/plate_solution.h"

namespace brindle::plate {

// A value slot of the field.
struct Component {
  int slot;
  const wchar_t* key;  // in file names
  const wchar_t* name;
  const wchar_t* unit;
};
inline constexpr Component kComponents[] = {
    {0, L"w", L"挠度 f", L"mm"},
    {1, L"mx", L"弯矩 Mx", L"kN·m/m"},
    {2, L"my", L"弯矩 My", L"kN·m/m"},
    {3, L"mxy", L"扭矩 Mxy", L"kN·m/m"},
};
inline constexpr const Component& kDeflection = kComponents[0];

// Replaces what the field holds; positions in m.
void fill_field(const PlateMesh& mesh, const std::vector<NodeResult>& results, CChang* field);

// A step of 1, 2 or 5 times a power of ten that divides the range into at most `parts`.
double round_step(double range, int parts);

// A place on the line that is drawn, with the deflection and the moment that bends along the line.
struct LinePoint {
  double distance = 0, deflection = 0, moment = 0;
};
// The pieces of the line that lie on the slab, two points each at least.
std::vector<std::vector<LinePoint>> sample_line(const PlateInput& plate, CChang& field);

}  // namespace brindle::plate
