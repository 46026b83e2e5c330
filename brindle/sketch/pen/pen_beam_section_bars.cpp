// The longitudinal bars of a beam section: dots in rows along a face and a leader for each group.
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "brindle/sketch/pen/pen_beam_section_internal.h"

namespace brindle {
namespace {

using Bars = CLiangZongJin;

struct Place {
  float x, y;
};

// Where the bubble of a row's leaders stands: paper mm from a corner of the section, or from the
// middle of its left or right side.
struct Leader {
  BeamFace face;
  int row;
  float across_mm, up_mm;
  float angle;
  int direction;
};
constexpr int kToTheRight = 2, kToTheLeft = 4;
constexpr Leader kLeaders[] = {
    {BeamFace::kTop, 0, 20, 5, 45, kToTheRight},
    {BeamFace::kTop, 1, 20, 12, 60, kToTheRight},
    {BeamFace::kBottom, 0, 20, -5, 45, kToTheRight},
    {BeamFace::kBottom, 1, 20, -12, 60, kToTheRight},
    {BeamFace::kLeft, 0, -23, 0, 60, kToTheLeft},
    {BeamFace::kRight, 0, 23, 0, 60, kToTheRight},
};

// Null for rows further inside, which have none.
const Leader* find_leader(BeamFace face, int row) {
  const auto* found =
      std::find_if(std::begin(kLeaders), std::end(kLeaders),
                   [&](const Leader& leader) { return leader.face == face && leader.row == row; });
  return found != std::end(kLeaders) ? found : nullptr;
}

Place leader_place(const Leader& leader, float b, float h, float s) {
  constexpr float kSideHeight = 0.5f;
  const float x = leader.face == BeamFace::kLeft ? 0 : b;
  const float y = leader.face == BeamFace::kTop      ? h
                  : leader.face == BeamFace::kBottom ? 0
                                                     : h * kSideHeight;
  return {x + leader.across_mm * s, y + leader.up_mm * s};
}

// The slots of one row, from its first to its last. `step` is the thickness of a row.
class RowLine {
 public:
  RowLine(BeamFace face, int row, float b, float h, float edge, float step) {
    const float in = edge + static_cast<float>(row) * step;
    const float right = b - edge, high = h - edge;
    switch (face) {
      case BeamFace::kTop:
        from_ = {edge, h - in}, to_ = {right, h - in};
        break;
      case BeamFace::kBottom:
        from_ = {edge, in}, to_ = {right, in};
        break;
      case BeamFace::kLeft:
        from_ = {in, edge}, to_ = {in, high};
        break;
      case BeamFace::kRight:
        from_ = {b - in, edge}, to_ = {b - in, high};
        break;
    }
  }

  // A slot beyond the ends is the end.
  Place slot(int index, int slots) const {
    const auto k = static_cast<float>(std::clamp(index, 0, slots - 1));
    const auto last = static_cast<float>(slots - 1);
    return {from_.x + k * (to_.x - from_.x) / last, from_.y + k * (to_.y - from_.y) / last};
  }

 private:
  Place from_, to_;
};

void find_groups(Bars::CRow& row, int bars) {
  row.m_nGroups = 0;
  for (int i = 0; i < bars; ++i) {
    const int group = row.m_Bars[i].m_nGroup;
    int* end = row.m_Groups + row.m_nGroups;
    if (std::find(row.m_Groups, end, group) == end) row.m_Groups[row.m_nGroups++] = group;
  }
}

// The leader of each group. The count in a group's text goes on from the groups before it, which
// is meant.
void draw_leaders(CBase_SGT& pen, const Leader& leader, Place bubble, const Bars::CRow& row,
                  int bars, const Place* places) {
  int count = 0;
  for (int g = 0; g < row.m_nGroups; ++g) {
    float x[Bars::kMaxBars], y[Bars::kMaxBars];
    int n = 0;
    const Bars::CBar* last = nullptr;
    for (int i = 0; i < bars; ++i) {
      if (row.m_Bars[i].m_nGroup != row.m_Groups[g]) continue;
      last = &row.m_Bars[i];
      x[n] = places[i].x;
      y[n++] = places[i].y;
    }
    count += n;
    wchar_t text[kBarTextRoom] = L"";
    CBase_SGT::FormString_GJ_nqd(text, count, last->m_nGrade, last->m_nDiameter);
    pen.Draw_GangJin_BiaoZhu(bubble.x, bubble.y, n, x, y, leader.angle, leader.direction, 0, 0,
                             text);
  }
}

}  // namespace

// The first row touches the stirrup, each further one the row before it.
void draw_beam_face(CBase_SGT& pen, BeamFace face, float b, float h, CLiangZongJin* bars) {
  if (bars == nullptr) return;
  bars->m_nSlots = std::max(bars->m_nSlots, 2);
  const float edge = 2 * pen.m_fGJPen + pen.m_fGJDot / 2;
  const int rows = std::min(bars->m_nRows, static_cast<int>(bars->m_Rows.size()));
  for (int r = 0; r < rows; ++r) {
    Bars::CRow& row = bars->m_Rows[static_cast<std::size_t>(r)];
    const int count = std::clamp(row.m_nBars, 0, Bars::kMaxBars);
    const RowLine line(face, r, b, h, edge, pen.m_fGJDot);
    Place places[Bars::kMaxBars];
    for (int i = 0; i < count; ++i) {
      places[i] = line.slot(row.m_Bars[i].m_nSlot, bars->m_nSlots);
      pen.Draw_YuanDianGangJin(places[i].x, places[i].y, 0, 0);
    }
    find_groups(row, count);
    if (const Leader* leader = find_leader(face, r); leader != nullptr) {
      draw_leaders(pen, *leader, leader_place(*leader, b, h, pen.m_fBiLiChi), row, count, places);
    }
  }
}

}  // namespace brindle
