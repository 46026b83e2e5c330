// Rebar marks: leaders from bars to their text and to the bubble with their number.
#include <algorithm>
#include <cmath>
#include <string>

#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_dimension_parts_internal.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"
#include "brindle/sketch/pen/pen_text_internal.h"

namespace brindle {

namespace {

// Paper mm.
constexpr float kBubbleRadius = 2.5f, kLeastShelf = 10, kTextInset = 1, kTrunkClear = 5;
constexpr float kLeastLength = 1e-5f, kSameDirection = 0.0001f;
constexpr float kNoLowest = 1e7f, kNoHighest = -1e7f;

enum Direction { kDown = 1, kRight = 2, kUp = 3, kLeft = 4 };

bool has_text(const wchar_t* text) {
  return text != nullptr && *text != L'\0';
}

// Room for a text on a shelf or along a trunk.
float text_room(const CBase_SGT& pen, const wchar_t* text) {
  return std::max(text_length(text, pen.m_fDimTextH), kLeastShelf * pen.m_fBiLiChi);
}

// A number in a circle, turned about its centre.
void draw_bubble(CBase_SGT& pen, float x, float y, float angle, int mark) {
  pen.Draw_Circle(x, y, kBubbleRadius * pen.m_fBiLiChi);
  const std::wstring number = wformat(L"%d", mark);
  float text_x = -text_length(number.c_str(), pen.m_fDimTextH) / 2, text_y = -pen.m_fDimTextH / 2;
  place_point(angle, x, y, &text_x, &text_y);
  pen.Draw_Text(text_x, text_y, pen.m_fDimTextH, angle, number.c_str());
}

// Leaders from bars that meet a trunk: an upright one at x for the directions down and up, else a
// level one at y.
class TrunkMark {
 public:
  TrunkMark(CBase_SGT& pen, float x, float y, float angle, int direction, int flip)
      : pen_(pen), x_(x), y_(y), direction_(direction), sign_(flip == 1 ? -1.0f : 1.0f) {
    const float sine = std::abs(std::sin(radians_of(angle)));
    if (upright()) {
      // Leaders along the trunk would never meet it.
      angle_ = std::abs(sine - 1) < kSameDirection ? 0 : angle;
    } else {
      angle_ = sine < kSameDirection ? 90 : angle;
    }
  }

  void draw_leader(float px, float py) {
    const float across = upright() ? x_ - px : y_ - py;
    const float b = radians_of(sign_ * leader_angle(across > 0));
    float meeting;
    if (upright()) {
      meeting = py + std::tan(b) * across;
      pen_.Draw_Line(px, py, x_, meeting);
    } else {
      meeting = px + across / std::sin(b) * std::cos(b);
      pen_.Draw_Line(px, py, meeting, y_);
    }
    lowest_ = std::min(lowest_, meeting);
    highest_ = std::max(highest_, meeting);
  }

  // Behind all leaders.
  void draw_trunk(int mark, const wchar_t* text) {
    const float s = pen_.m_fBiLiChi, r = kBubbleRadius * s, clear = kTrunkClear * s;
    const float gap = pen_.m_fDimTextGap, room = text_room(pen_, text), inset = kTextInset * s;
    switch (direction_) {
      case kDown:
        y_ = std::min(y_, lowest_ - r - clear);
        pen_.Draw_Line(x_, highest_, x_, y_ + r);
        draw_text(x_ - gap, y_ + r + inset, 90, text);
        break;
      case kUp:
        y_ = std::max(y_, highest_ + r + clear);
        pen_.Draw_Line(x_, lowest_, x_, y_ - r);
        draw_text(x_ - gap, y_ - r - room, 90, text);
        break;
      case kRight:
        x_ = std::max(x_, highest_ + r + clear);
        pen_.Draw_Line(lowest_, y_, x_ - r, y_);
        draw_text(x_ - r - room, y_ + gap, 0, text);
        break;
      case kLeft:
        x_ = std::min(x_, lowest_ - r - clear);
        pen_.Draw_Line(x_ + r, y_, highest_, y_);
        draw_text(x_ + r + inset, y_ + gap, 0, text);
        break;
      default:
        break;
    }
    if (mark > 0) draw_bubble(pen_, x_, y_, 0, mark);
  }

 private:
  bool upright() const { return direction_ == kDown || direction_ == kUp; }

  // By the side of the trunk on which the bar lies.
  float leader_angle(bool before) const {
    switch (direction_) {
      case kDown:
        return before ? -angle_ : -(180 - angle_);
      case kLeft:
        return before ? 180 - angle_ : angle_;
      default:
        return before ? angle_ : 180 - angle_;
    }
  }

  void draw_text(float x, float y, float angle, const wchar_t* text) {
    if (has_text(text)) pen_.Draw_Text(x, y, pen_.m_fDimTextH, angle, text);
  }

  CBase_SGT& pen_;
  float x_, y_;
  int direction_;
  float sign_, angle_;
  float lowest_ = kNoLowest, highest_ = kNoHighest;
};

}  // namespace

void CBase_SGT::Draw_GangJin_BiaoZhu(float x, float y, float dx, float dy, float length, int mark,
                                     const wchar_t* text) {
  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Convert_XY(x, y);
  reset_transform(*this);
  const float s = m_fBiLiChi, r = kBubbleRadius * s;
  dx *= s;
  dy *= s;
  length *= s;
  const float elbow_x = x + dx, elbow_y = y + dy;
  Draw_Line(x, y, elbow_x, elbow_y);

  if (std::abs(length) > kLeastLength) {
    const float room = text_room(*this, text);
    const bool right = length > 0;
    const float end = elbow_x + length + (right ? room : -room);
    Draw_Line(elbow_x, elbow_y, end, elbow_y);
    if (has_text(text)) {
      Draw_Text(right ? end - room : end + kTextInset * s, elbow_y + m_fDimTextGap, m_fDimTextH, 0,
                text);
    }
    if (mark > 0) draw_bubble(*this, right ? end + r : end - r, elbow_y, 0, mark);
  } else if (mark > 0) {
    const float reach = get_dist(0.0f, 0.0f, dx, dy) + r;
    const double a = get_line_angle(0.0f, 0.0f, dx, dy);
    draw_bubble(*this, x + reach * static_cast<float>(std::cos(a)),
                y + reach * static_cast<float>(std::sin(a)), 0, mark);
  }
}

void CBase_SGT::Draw_GangJin_BiaoZhu(float x, float y, int n, float* xs, float* ys, float angle,
                                     int direction, int flip, int mark, const wchar_t* text) {
  if (n < 1 || direction < kDown || direction > kLeft) return;
  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Convert_XY(x, y);
  for (int i = 0; i < n; ++i) Convert_XY(xs[i], ys[i]);
  reset_transform(*this);
  TrunkMark trunk(*this, x, y, angle, direction, flip);
  for (int i = 0; i < n; ++i) trunk.draw_leader(xs[i], ys[i]);
  trunk.draw_trunk(mark, text);
}

void CBase_SGT::Draw_Line_BiaoZhu(float x1, float y1, float x2, float y2) {
  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  reset_transform(*this);
  Draw_Line(x1, y1, x2, y2);
}

void CBase_SGT::Draw_GJH(float x, float y, float angle, int mark) {
  draw_bubble(*this, x, y, angle, mark);
}

void CBase_SGT::Draw_GJH_And_Text_Along_Line(float x1, float y1, float x2, float y2, int mark,
                                             float den, float num, const wchar_t* text,
                                             float /*height*/, float offset) {
  Draw_Text_Along_Line(x1, y1, x2, y2, den, num, text, m_fDimTextH, offset);
  const float back = kBubbleRadius * m_fBiLiChi;
  float x = num * get_dist(x1, y1, x2, y2) / den - back, y = offset + back;
  const float angle = line_angle_deg(x1, y1, x2, y2);
  place_point(angle, x1, y1, &x, &y);
  Draw_GJH(x, y, angle, mark);
}

}  // namespace brindle
