#include "examples/beam/section_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "brindle/platform/base/format.h"
#include "examples/beam/bar_layout.h"
#include "examples/beam/section_notes.h"
#include "examples/common/sheet.h"

namespace brindle::beam {
namespace {

// Paper millimetres on the sheet.
constexpr float kSectionLeft = 285;
constexpr float kElevationLeft = 55, kElevationLength = 130;
constexpr float kFiguresBottom = 62, kFiguresTop = 287;
constexpr float kSectionTitleBelow = 45, kSectionLeadersAbove = 20;
constexpr float kElevationTitleBelow = 36;
constexpr float kNoteLeft = 35, kNoteTop = 72, kNoteStep = 6.5f;
constexpr float kBarPen = 0.5f, kThinBarPen = 0.3f, kLeastDot = 1.0f;
constexpr float kMarkRise = 8;  // of the elevation's marks above or below the beam

// Slots across a face of the symbol: fine enough to show bars where the layout has them.
constexpr int kSlots = 1001;

struct Span {
  double low, high;  // first and last place along a face

  float part(double place) const {
    return high > low ? static_cast<float>((place - low) / (high - low)) : 0.0f;
  }
  int slot(double place) const { return static_cast<int>(std::lround(part(place) * (kSlots - 1))); }
};

class SectionSheet {
 public:
  SectionSheet(const SectionInput& input, const SectionDesign& design, CBase_SGT& pen)
      : input_(input),
        design_(design),
        pen_(pen),
        frame_(design.frame(input)),
        faces_(leg_faces(frame_, design.bottom.diameter)),
        bottom_(lay_out_bars(frame_, faces_, Face::kBottom, design.bottom)),
        top_(lay_out_bars(frame_, faces_, Face::kTop, design.top)),
        side_(lay_out_side_bars(frame_, design.bottom, design.top, design.side.per_side,
                                design.side.diameter)),
        across_{bottom_.front().x, bottom_[static_cast<size_t>(design.bottom.first - 1)].x},
        up_{bottom_.front().y, top_.front().y},
        b_(static_cast<float>(input.width)),
        h_(static_cast<float>(input.height)) {}

  void draw() {
    begin();
    pen_.SetCurLayer(L"FRAME");
    examples::draw_a3_sheet(pen_, input_.name + L" 配筋图", input_.sheet);
    // The figures stand halfway between the title below them and the frame.
    const float middle = (kFiguresBottom + kSectionTitleBelow + kFiguresTop - kSectionLeadersAbove);
    const float base = (middle * s_ - h_) / 2;
    on_layer(L"SECTION", kSectionLeft * s_, base, [this] { draw_section_figure(); });
    on_layer(L"ELEVATION", kElevationLeft * s_, base, [this] { draw_elevation(); });
    on_layer(L"NOTES", kNoteLeft * s_, kNoteTop * s_, [this] { draw_notes(); });
  }

  // Section 1-1 alone, its lower left corner at the origin.
  void draw_figure() {
    begin();
    on_layer(L"SECTION", 0, 0, [this] { draw_section_figure(); });
  }

 private:
  void begin() {
    pen_.Add_Default_LineType();
    for (const wchar_t* layer : {L"FRAME", L"SECTION", L"ELEVATION", L"NOTES"}) {
      pen_.Add_Layer(layer, 7, L"CONTINUOUS");
    }
    pen_.SetBiLiChi(static_cast<float>(drawing_scale(input_)));
    pen_.SetCurStyle(L"HZ");
    pen_.SetCurColor(7);
    s_ = pen_.m_fBiLiChi;
    pen_.m_fDimOffset = 0;
    pen_.m_fGJPen = kBarPen * s_;
    const int thickest = std::max(design_.bottom.diameter, design_.top.diameter);
    pen_.m_fGJDot = std::max(static_cast<float>(thickest), kLeastDot * s_);
  }

  template <class Draw>
  void on_layer(const wchar_t* layer, float x, float y, Draw draw) {
    pen_.Push_ENV();
    pen_.SetCurLayer(layer);
    pen_.m_fOrgX = x;
    pen_.m_fOrgY = y;
    draw();
    pen_.Pop_ENV();
  }

  int grade(const Steel* steel) const { return steel->mark - 129; }

  // --- section 1-1

  // A row that isn't the first keeps its clear distance from the one before: rows of the symbol
  // touch each other, so an empty one stands between them.
  CLiangZongJin face_record(const std::vector<Bar>& bars, const BarRows& rows) const {
    CLiangZongJin record;
    record.m_nSlots = kSlots;
    record.SetRows(rows.second > 0 ? 3 : 1);
    for (size_t i = 0; i < bars.size(); ++i) {
      const bool first = i < static_cast<size_t>(rows.first);
      record.m_Rows[first ? 0 : 2].AddBar(grade(input_.main_steel), rows.diameter,
                                          across_.slot(bars[i].x), 0);
    }
    return record;
  }

  CLiangZongJin side_record() const {
    CLiangZongJin record;
    record.m_nSlots = kSlots;
    record.SetRows(1);
    for (size_t i = 0; i < side_.size(); i += 2) {  // left and right alternate
      record.m_Rows[0].AddBar(grade(input_.main_steel), design_.side.diameter, up_.slot(side_[i].y),
                              0);
    }
    return record;
  }

  float edge() const { return 2 * pen_.m_fGJPen + pen_.m_fGJDot / 2; }
  float drawn_x(double x) const { return edge() + across_.part(x) * (b_ - 2 * edge()); }
  float drawn_y(double y) const { return edge() + up_.part(y) * (h_ - 2 * edge()); }

  void draw_section_figure() {
    CLiangZongJin top = face_record(top_, design_.top),
                  bottom = face_record(bottom_, design_.bottom);
    CLiangZongJin left = side_record(), right = left;
    CLiangZongJin* sides = side_.empty() ? nullptr : &left;
    CLiangGuJin stirrup;
    stirrup.m_nGrade = grade(input_.stirrup_steel);
    stirrup.m_nDiameter = design_.stirrups.diameter;
    stirrup.m_nSpacing = design_.stirrups.spacing;
    pen_.Draw_Liang_Section(0, 0, s_, b_, h_, 0, 0, 0, 0, 0, 0, 0, nullptr,
                            input_.sheet.axis.c_str(), &top, &bottom, sides,
                            sides != nullptr ? &right : nullptr, &stirrup, nullptr);
    draw_second_leader(Face::kTop, top_, design_.top);
    draw_second_leader(Face::kBottom, bottom_, design_.bottom);
    draw_inner_stirrups();
    for (size_t i = 0; i + 1 < side_.size(); i += 2) {
      const float y = drawn_y(side_[i].y);
      pen_.Draw_LaJieJin(edge(), y, b_ - edge(), y, 0);
    }
    examples::draw_title(pen_, b_ / 2, -kSectionTitleBelow * s_, L"1-1");
  }

  // As the symbol marks a second row.
  void draw_second_leader(Face face, const std::vector<Bar>& bars, const BarRows& rows) {
    if (rows.second == 0) return;
    const float inward = edge() + 2 * pen_.m_fGJDot;
    const float y = face == Face::kTop ? h_ - inward : inward;
    std::vector<float> xs, ys(static_cast<size_t>(rows.second), y);
    for (size_t i = static_cast<size_t>(rows.first); i < bars.size(); ++i) {
      xs.push_back(drawn_x(bars[i].x));
    }
    wchar_t text[40] = L"";
    CBase_SGT::FormString_GJ_nqd(text, rows.second, grade(input_.main_steel), rows.diameter);
    const float at = face == Face::kTop ? h_ + 12 * s_ : -12 * s_;
    pen_.Draw_GangJin_BiaoZhu(b_ + 24 * s_, at, rows.second, xs.data(), ys.data(), 60, 2, 0, 0,
                              text);
  }

  // Each encloses the bars that its two legs hold; its horizontal parts lie on the outer stirrup's.
  void draw_inner_stirrups() {
    for (size_t leg = 1; leg + 2 < faces_.size(); leg += 2) {
      const double radius = design_.bottom.diameter / 2.0;
      const float left = drawn_x(faces_[leg] + radius), right = drawn_x(faces_[leg + 1] - radius);
      const float around = pen_.m_fGJDot + pen_.m_fGJPen;
      pen_.Draw_RectGangJin_C(right - left + around, h_ - 3 * pen_.m_fGJPen, (left + right) / 2,
                              h_ / 2, 0, 0);
    }
  }

  // --- elevation: a length of the beam between two breaks

  void draw_elevation() {
    const float length = kElevationLength * s_;
    pen_.Draw_Line(0, 0, length, 0);
    pen_.Draw_Line(0, h_, length, h_);
    pen_.Draw_Cut_Sym(0, 0, 0, h_);
    pen_.Draw_Cut_Sym(length, 0, length, h_);
    pen_.Push_ENV();
    for (const std::vector<Bar>* bars : {&bottom_, &top_, &side_}) draw_levels(*bars, length);
    pen_.m_fGJPen = kThinBarPen * s_;
    const float inset = 1.5f * kBarPen * s_;
    const auto spacing = static_cast<float>(design_.stirrups.spacing);
    for (float x = spacing / 2; x < length; x += spacing) {
      pen_.Draw_XianGangJin(x, inset, x, h_ - inset);
    }
    pen_.Pop_ENV();
    draw_elevation_marks(length, spacing);
    // The cut of section 1-1, seen to the right.
    const float cut = (std::floor(length / 2 / spacing) + 1) * spacing;
    const float reach = (kMarkRise + 7) * s_;
    pen_.Draw_PouXian(cut, h_ + reach, cut, -reach, L"1", 0, 1);
    examples::draw_title(pen_, length / 2, -kElevationTitleBelow * s_, input_.name);
  }

  void draw_levels(const std::vector<Bar>& bars, float length) {
    float drawn = -1;
    for (const Bar& bar : bars) {
      const float y = drawn_y(bar.y);
      if (y != drawn) pen_.Draw_XianGangJin(0, y, length, y);
      drawn = y;
    }
  }

  void draw_elevation_marks(float length, float spacing) {
    const MarkForm form = MarkForm::kShapeFont;
    const auto mark = [&](float x, float y, bool up, const std::wstring& text) {
      const float rise = (up ? h_ - y : y) / s_ + kMarkRise;
      pen_.Draw_GangJin_BiaoZhu(x, y, 4, up ? rise : -rise, 2, 0, text.c_str());
    };
    const float left = 0.12f * length, right = 0.62f * length;
    mark(left, drawn_y(top_.front().y), true,
         rows_mark(design_.top, Face::kTop, *input_.main_steel, form));
    mark(left, drawn_y(bottom_.front().y), false,
         rows_mark(design_.bottom, Face::kBottom, *input_.main_steel, form));
    const float leg = (std::floor(right / spacing) + 0.5f) * spacing;
    mark(leg, 0.7f * h_, true, stirrup_mark(design_.stirrups, *input_.stirrup_steel, form));
    if (side_.empty()) return;
    mark(right, drawn_y(side_.front().y), false, side_mark(design_.side, *input_.main_steel, form));
  }

  void draw_notes() {
    float base = 0;
    const auto line = [&](const std::wstring& text) {
      pen_.Draw_Text(0, base, pen_.m_fZiGao[1], 0, text.c_str());
      base -= kNoteStep * s_;
    };
    line(L"说明：");
    for (const std::wstring& text : note_lines(input_, design_, MarkForm::kShapeFont)) line(text);
  }

  const SectionInput& input_;
  const SectionDesign& design_;
  CBase_SGT& pen_;
  StirrupFrame frame_;
  std::vector<double> faces_;
  std::vector<Bar> bottom_;
  std::vector<Bar> top_;
  std::vector<Bar> side_;
  Span across_;
  Span up_;
  float b_, h_;
  float s_ = 1;
};

}  // namespace

double drawing_scale(const SectionInput& input) {
  return input.height < 300 ? 10 : 20;
}

std::unique_ptr<CBase_SGT> draw_section(const SectionInput& input, const SectionDesign& design) {
  std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  if (pen != nullptr) SectionSheet(input, design, *pen).draw();
  return pen;
}

std::unique_ptr<CBase_SGT> draw_section_figure(const SectionInput& input,
                                               const SectionDesign& design) {
  std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  if (pen != nullptr) SectionSheet(input, design, *pen).draw_figure();
  return pen;
}

}  // namespace brindle::beam
