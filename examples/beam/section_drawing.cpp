#include "examples/beam/section_drawing.h"

#include <cmath>
#include <string>
#include <vector>

#include "brindle/platform/base/format.h"
#include "examples/beam/bar_layout.h"
#include "examples/beam/drawing_sheet.h"
#include "examples/beam/section_notes.h"
#include "examples/beam/stirrup_drawing.h"

namespace brindle::beam {
namespace {

// Paper millimetres.
constexpr double kTextHeight = 3.5;
constexpr double kTitleHeight = 5;
constexpr double kFirstDimensionBelow = 7;
constexpr double kSecondDimensionBelow = 14;
// A number beside the cover's dimension still ends before the first line on the left.
constexpr double kFirstDimensionLeft = 9;
constexpr double kSecondDimensionLeft = 16;
constexpr double kTitleBase = 23;
constexpr double kNoteBase = 34;
constexpr double kNoteStep = 6;
constexpr double kNoteLeft = 19;
constexpr double kShelfStart = 5;   // from the section's right side
constexpr double kShelfStep = 6.5;  // least height from shelf to shelf
constexpr double kShelfRise = 3;    // of a leader over its target
constexpr double kTextGap = 1.4;    // between a line and the text above it: brackets hang below
constexpr double kRingStep = 0.15;  // of the rings that fill a bar's dot

struct Mark {
  std::wstring text;
  double x = 0;  // target
  double y = 0;
  double radius = 0;  // of the bar that the leader ends at
};

class SectionPicture {
 public:
  SectionPicture(const SectionInput& input, const SectionDesign& design, DXF& drawing)
      : input_(input),
        design_(design),
        sheet_(drawing, drawing_scale(input)),
        frame_(design.frame(input)),
        faces_(leg_faces(frame_, design.bottom.diameter)),
        bottom_(lay_out_bars(frame_, faces_, Face::kBottom, design.bottom)),
        top_(lay_out_bars(frame_, faces_, Face::kTop, design.top)),
        side_(lay_out_side_bars(frame_, design.bottom, design.top, design.side.per_side,
                                design.side.diameter)) {}

  bool draw() {
    if (!sheet_.good()) return false;
    sheet_.rectangle(Layer::kOutline, 0, 0, input_.width, input_.height);
    const double steel = input_.height - design_.effective_depth;
    sheet_.line(Layer::kAxis, 0, steel, input_.width, steel);
    draw_stirrups();
    draw_bars();
    draw_dimensions();
    draw_marks();
    draw_title();
    draw_note();
    return sheet_.good();
  }

 private:
  StirrupLoop loop_between(size_t left_leg, size_t right_leg) const {
    const double side = frame_.cover + frame_.diameter;
    return {faces_[left_leg],
            side,
            faces_[right_leg],
            input_.height - side,
            static_cast<double>(frame_.diameter),
            design_.bottom.diameter / 2.0,
            design_.top.diameter / 2.0};
  }

  void draw_stirrups() {
    const size_t last = faces_.size() - 1;
    draw_stirrup(sheet_, loop_between(0, last), true);
    for (size_t leg = 1; leg + 1 < last; leg += 2) {
      draw_stirrup(sheet_, loop_between(leg, leg + 1), false);
    }
    for (size_t i = 0; i + 1 < side_.size(); i += 2) {
      draw_tie(sheet_, side_[i].x, side_[i + 1].x, side_[i].y, side_[i].diameter,
               design_.side.tie_diameter);
    }
  }

  void draw_bars() {
    for (const std::vector<Bar>* bars : {&bottom_, &top_, &side_}) {
      for (const Bar& bar : *bars) {
        for (double r = bar.diameter / 2.0; r > 0; r -= sheet_.paper(kRingStep)) {
          sheet_.circle(Layer::kBars, bar.x, bar.y, r);
        }
      }
    }
  }

  void draw_dimensions() {
    const double steel = input_.height - design_.effective_depth;
    const double left = -sheet_.paper(kFirstDimensionLeft);
    sheet_.vertical_dimensions({0, steel, input_.height}, 0, left);
    sheet_.vertical_dimensions({0, input_.height}, left, -sheet_.paper(kSecondDimensionLeft));
    const double below = -sheet_.paper(kFirstDimensionBelow);
    sheet_.horizontal_dimensions({0, input_.cover}, 0, below);
    sheet_.horizontal_dimensions({0, input_.width}, below, -sheet_.paper(kSecondDimensionBelow));
  }

  std::vector<Mark> marks() const {
    const MarkForm form = MarkForm::kShapeFont;
    const auto at_bar = [](const std::wstring& text, const Bar& bar) {
      return Mark{text, bar.x, bar.y, bar.diameter / 2.0};
    };
    std::vector<Mark> found;
    found.push_back(
        at_bar(top_mark(input_, design_, form), top_[static_cast<size_t>(design_.top.first - 1)]));
    if (!side_.empty()) found.push_back(at_bar(side_mark(input_, design_, form), side_.back()));
    // The stirrup is marked on its right leg, halfway between the lowest bars along that side.
    const double above =
        height_between_rows(frame_, design_.bottom, design_.top) / (design_.side.per_side + 1);
    const double below = bottom_.back().y;
    found.push_back({stirrup_mark(input_, design_, form),
                     input_.width - frame_.cover - frame_.diameter / 2.0, below + above / 2, 0});
    found.push_back(at_bar(bottom_mark(input_, design_, form),
                           bottom_[static_cast<size_t>(design_.bottom.first - 1)]));
    return found;
  }

  // Heights of the shelves, from the top down: near the targets and far enough from each other.
  std::vector<double> shelf_heights(const std::vector<Mark>& marks) const {
    std::vector<double> heights;
    double drop = 0;
    for (const Mark& mark : marks) {
      const double wanted = mark.y + sheet_.paper(kShelfRise);
      const double highest = heights.empty() ? wanted : heights.back() - sheet_.paper(kShelfStep);
      heights.push_back(std::fmin(wanted, highest));
      drop += wanted - heights.back();
    }
    for (double& height : heights) height += drop / static_cast<double>(heights.size());
    return heights;
  }

  void draw_marks() {
    const std::vector<Mark> all = marks();
    const std::vector<double> heights = shelf_heights(all);
    const double start = input_.width + sheet_.paper(kShelfStart);
    for (size_t i = 0; i < all.size(); ++i) {
      const Mark& mark = all[i];
      const double width = sheet_.paper(sheet_.text_width(mark.text, kTextHeight));
      const double reach = std::hypot(start - mark.x, heights[i] - mark.y);
      const double part = mark.radius / reach;
      sheet_.line(Layer::kDimension, mark.x + part * (start - mark.x),
                  mark.y + part * (heights[i] - mark.y), start, heights[i]);
      sheet_.line(Layer::kDimension, start, heights[i], start + width + sheet_.paper(2),
                  heights[i]);
      sheet_.text(start + sheet_.paper(1), heights[i] + sheet_.paper(kTextGap), kTextHeight,
                  mark.text);
    }
  }

  void draw_title() {
    const std::wstring title = input_.name + L"  1-1";
    const double half = sheet_.paper(sheet_.text_width(title, kTitleHeight) / 2 + 1);
    const double middle = input_.width / 2;
    const double base = -sheet_.paper(kTitleBase);
    sheet_.text(middle, base, kTitleHeight, title, Align::kCentre);
    for (const double below : {2.0, 2.6}) {
      const double y = base - sheet_.paper(below);
      sheet_.line(Layer::kText, middle - half, y, middle + half, y);
    }
    sheet_.text(middle + half + sheet_.paper(2), base, kTextHeight,
                wformat(L"1:%g", sheet_.scale()));
  }

  void draw_note() {
    const double left = -sheet_.paper(kNoteLeft);
    double base = -sheet_.paper(kNoteBase);
    sheet_.text(left, base, kTextHeight, L"说明：");
    for (const std::wstring& line : note_lines(input_, design_, MarkForm::kShapeFont)) {
      base -= sheet_.paper(kNoteStep);
      sheet_.text(left, base, kTextHeight, line);
    }
  }

  const SectionInput& input_;
  const SectionDesign& design_;
  DrawingSheet sheet_;
  StirrupFrame frame_;
  std::vector<double> faces_;
  std::vector<Bar> bottom_;
  std::vector<Bar> top_;
  std::vector<Bar> side_;
};

}  // namespace

double drawing_scale(const SectionInput& input) {
  return input.height < 300 ? 10 : 20;
}

bool draw_section(const SectionInput& input, const SectionDesign& design, DXF& drawing) {
  return SectionPicture(input, design, drawing).draw();
}

}  // namespace brindle::beam
