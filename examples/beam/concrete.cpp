#include "examples/beam/concrete.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace brindle::beam {
namespace {

struct StrengthRow {
  int grade;
  double fc;
  double ft;
};

constexpr StrengthRow kStrengths[] = {
    {15, 7.2, 0.91},  {20, 9.6, 1.10},  {25, 11.9, 1.27}, {30, 14.3, 1.43}, {35, 16.7, 1.57},
    {40, 19.1, 1.71}, {45, 21.1, 1.80}, {50, 23.1, 1.89}, {55, 25.3, 1.96}, {60, 27.5, 2.04},
    {65, 29.7, 2.09}, {70, 31.8, 2.14}, {75, 33.8, 2.18}, {80, 35.9, 2.22},
};

constexpr Steel kSteels[] = {
    {L"HPB300", 130, 270, 270, 2.1e5, 22, 20},
    {L"HRB335", 131, 300, 300, 2.0e5, 50, 20},
    {L"HRB400", 132, 360, 360, 2.0e5, 50, 25},
    {L"HRB500", 134, 435, 410, 2.0e5, 50, 25},
};

// `at_c50` up to C50, `at_c80` at C80, linear between.
double between_c50_and_c80(int grade, double at_c50, double at_c80) {
  const double part = std::clamp((grade - 50) / 30.0, 0.0, 1.0);
  return at_c50 + (at_c80 - at_c50) * part;
}

}  // namespace

bool find_concrete(int grade, Concrete* out) {
  const auto row = std::find_if(std::begin(kStrengths), std::end(kStrengths),
                                [grade](const StrengthRow& r) { return r.grade == grade; });
  if (row == std::end(kStrengths)) return false;
  out->grade = grade;
  out->fc = row->fc;
  out->ft = row->ft;
  out->alpha1 = between_c50_and_c80(grade, 1.0, 0.94);
  out->beta1 = between_c50_and_c80(grade, 0.8, 0.74);
  out->beta_c = between_c50_and_c80(grade, 1.0, 0.8);
  out->epsilon_cu = std::min(0.0033, 0.0033 - (grade - 50) * 1e-5);
  return true;
}

const Steel* find_steel(const wchar_t* name) {
  for (const Steel& steel : kSteels) {
    if (std::wcscmp(steel.name, name) == 0) return &steel;
  }
  return nullptr;
}

double stirrup_strength(const Steel& steel) {
  return std::min(steel.fy, 360.0);
}

double balanced_depth_ratio(const Concrete& concrete, const Steel& steel) {
  return concrete.beta1 / (1 + steel.fy / (steel.es * concrete.epsilon_cu));
}

double minimum_steel_ratio(const Concrete& concrete, const Steel& steel) {
  return std::max(0.002, 0.45 * concrete.ft / steel.fy);
}

}  // namespace brindle::beam
