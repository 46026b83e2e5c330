#include "examples/beam/bar_layout.h"

#include <algorithm>
#include <numbers>

namespace brindle::beam {
namespace {

double bar_area(int diameter) {
  return std::numbers::pi * diameter * diameter / 4;
}

// Clear distance between two rows is 25 and d (9.2.1), so their axes are this far apart.
double row_step(int diameter) {
  return diameter + std::max(25, diameter);
}

double first_row_distance(const StirrupFrame& frame, int diameter) {
  return frame.cover + frame.diameter + diameter / 2.0;
}

double innermost_row_distance(const StirrupFrame& frame, const BarRows& bars) {
  return first_row_distance(frame, bars.diameter) +
         (bars.second > 0 ? row_step(bars.diameter) : 0.0);
}

// How many of `extra` bars stand in each of `gaps` gaps (odd number): the same in all, the rest
// given to the middle gap when it is odd, and in pairs from the outer gaps inwards.
std::vector<int> share_out(int extra, int gaps) {
  std::vector<int> shares(static_cast<size_t>(gaps), extra / gaps);
  int rest = extra % gaps;
  if (rest % 2 == 1) {
    ++shares[static_cast<size_t>(gaps / 2)];
    --rest;
  }
  for (size_t i = 0; rest > 0; ++i, rest -= 2) {
    ++shares[i];
    ++shares[shares.size() - 1 - i];
  }
  return shares;
}

}  // namespace

double BarRows::area() const {
  return count() * bar_area(diameter);
}

double Stirrups::area_per_length() const {
  return legs * bar_area(diameter) / spacing;
}

double SideBars::area() const {
  return per_side * bar_area(diameter);
}

double least_clear_distance(Face face, int diameter) {
  return face == Face::kBottom ? std::max(25.0, 1.0 * diameter) : std::max(30.0, 1.5 * diameter);
}

double centroid_distance(const StirrupFrame& frame, const BarRows& bars) {
  return first_row_distance(frame, bars.diameter) +
         row_step(bars.diameter) * bars.second / std::max(1, bars.count());
}

bool holds_to_the_right(const StirrupFrame& frame, int leg) {
  return leg == 0 || (leg % 2 == 1 && leg != frame.legs - 1);
}

std::vector<double> leg_faces(const StirrupFrame& frame, int bottom_diameter) {
  const double side = frame.cover + frame.diameter;
  const double radius = bottom_diameter / 2.0;
  const double first = side + radius;
  const double step = (frame.width - 2 * first) / (frame.legs - 1);
  std::vector<double> faces;
  for (int leg = 0; leg < frame.legs; ++leg) {
    const double axis = first + leg * step;
    faces.push_back(holds_to_the_right(frame, leg) ? axis - radius : axis + radius);
  }
  return faces;
}

std::vector<double> row_axes(const StirrupFrame& frame, const std::vector<double>& faces, int count,
                             int diameter) {
  const double radius = diameter / 2.0;
  const auto held_axis = [&](int leg) {
    const double face = faces[static_cast<size_t>(leg)];
    return holds_to_the_right(frame, leg) ? face + radius : face - radius;
  };
  const std::vector<int> shares = share_out(count - frame.legs, frame.legs - 1);
  std::vector<double> axes{held_axis(0)};
  for (int leg = 1; leg < frame.legs; ++leg) {
    const double from = axes.back();
    const double to = held_axis(leg);
    const int between = shares[static_cast<size_t>(leg - 1)];
    for (int k = 1; k <= between; ++k) axes.push_back(from + (to - from) * k / (between + 1));
    axes.push_back(to);
  }
  return axes;
}

std::vector<int> second_row_places(int first, int second) {
  if (second < 2 || second > first || (first % 2 == 0 && second % 2 == 1)) return {};
  std::vector<int> places;
  for (int i = 0; i < second / 2; ++i) {
    places.push_back(i);
    places.push_back(first - 1 - i);
  }
  if (second % 2 == 1) places.push_back(first / 2);
  std::sort(places.begin(), places.end());
  return places;
}

bool bars_fit(const StirrupFrame& frame, const std::vector<double>& faces, Face face,
              const BarRows& bars) {
  if (bars.first < std::max(2, frame.legs)) return false;
  if (bars.second > 0 && second_row_places(bars.first, bars.second).empty()) return false;
  if (frame.cover + frame.diameter < bars.diameter) return false;
  const double least = bars.diameter + least_clear_distance(face, bars.diameter);
  const std::vector<double> axes = row_axes(frame, faces, bars.first, bars.diameter);
  for (size_t i = 1; i < axes.size(); ++i) {
    if (axes[i] - axes[i - 1] < least - 1e-9) return false;
  }
  return true;
}

std::vector<Bar> lay_out_bars(const StirrupFrame& frame, const std::vector<double>& faces,
                              Face face, const BarRows& bars) {
  const auto height_at = [&](double distance) {
    return face == Face::kBottom ? distance : frame.height - distance;
  };
  const std::vector<double> axes = row_axes(frame, faces, bars.first, bars.diameter);
  const double first = first_row_distance(frame, bars.diameter);
  std::vector<Bar> placed;
  for (const double x : axes) placed.push_back({x, height_at(first), bars.diameter});
  for (const int place : second_row_places(bars.first, bars.second)) {
    placed.push_back({axes[static_cast<size_t>(place)], height_at(first + row_step(bars.diameter)),
                      bars.diameter});
  }
  return placed;
}

double height_between_rows(const StirrupFrame& frame, const BarRows& bottom, const BarRows& top) {
  return frame.height - innermost_row_distance(frame, bottom) - innermost_row_distance(frame, top);
}

std::vector<Bar> lay_out_side_bars(const StirrupFrame& frame, const BarRows& bottom,
                                   const BarRows& top, int per_side, int diameter) {
  const double from = innermost_row_distance(frame, bottom);
  const double step = height_between_rows(frame, bottom, top) / (per_side + 1);
  const double left = first_row_distance(frame, diameter);
  std::vector<Bar> placed;
  for (int k = 1; k <= per_side; ++k) {
    placed.push_back({left, from + k * step, diameter});
    placed.push_back({frame.width - left, from + k * step, diameter});
  }
  return placed;
}

}  // namespace brindle::beam
