// What a pen has drawn, as one text.
#pragma once

#include <cmath>
#include <string>

#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {

// A number to three decimals without needless zeros.
inline std::string number(double value) {
  std::wstring text = wformat(L"%.3f", std::fabs(value) < 5e-4 ? 0.0 : value);
  text.erase(text.find_last_not_of(L'0') + 1);
  if (text.back() == L'.') text.pop_back();
  return {text.begin(), text.end()};
}

inline std::string at(double x, double y) {
  return number(x) + "," + number(y);
}

inline std::string described(Varnholt::ACAD_ENTITY* entity) {
  using namespace Varnholt;
  if (auto* p = dynamic_cast<ACAD_POINT*>(entity)) return "point " + at(p->x, p->y);
  if (auto* l = dynamic_cast<ACAD_LINE*>(entity)) return at(l->x1, l->y1) + "-" + at(l->x2, l->y2);
  if (auto* c = dynamic_cast<ACAD_CIRCLE*>(entity))
    return "o" + at(c->x, c->y) + "r" + number(c->m_dRadius);
  if (auto* a = dynamic_cast<ACAD_ARC*>(entity)) {
    return "arc" + at(a->x, a->y) + "r" + number(a->m_dRadius) + "@" +
           at(a->m_dStartAngle, a->m_dEndAngle);
  }
  if (auto* t = dynamic_cast<ACAD_TEXT*>(entity)) {
    return "'" + std::string(t->m_szText.view().begin(), t->m_szText.view().end()) + "'" +
           at(t->x, t->y) + "h" + number(t->m_dHeight) + "@" + number(t->m_dAngle);
  }
  if (auto* s = dynamic_cast<ACAD_SOLID*>(entity)) {
    return "#" + at(s->x1, s->y1) + "," + at(s->x2, s->y2) + "," + at(s->x3, s->y3) + "," +
           at(s->x4, s->y4);
  }
  auto* line = dynamic_cast<ACAD_POLYLINE*>(entity);
  if (line == nullptr) return "?";
  std::string text = line->m_nFlags != 0 ? "closed" : "open";
  for (POSITION p = line->m_Vertices.GetHeadPosition(); p != nullptr;) {
    const auto& v = *static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(line->m_Vertices.GetNext(p));
    text += " " + at(v.x, v.y);
    if (v.m_dStartWidth != 0 || v.m_dEndWidth != 0) {
      text += "w" + number(v.m_dStartWidth) + ":" + number(v.m_dEndWidth);
    }
    if (v.m_dBulge != 0) text += "b" + number(v.m_dBulge);
  }
  return text;
}

// The entities since the last call, with "; " between them.
inline std::string drawn(CBase_SGT& pen) {
  std::string text;
  for (POSITION p = pen.m_Entities.GetHeadPosition(); p != nullptr;) {
    if (!text.empty()) text += "; ";
    text += described(static_cast<Varnholt::ACAD_ENTITY*>(pen.m_Entities.GetNext(p)));
  }
  pen.ClearAllEntity();
  return text;
}

// A pen in memory mode at scale 1.
struct ScribedPen : CBase_SGT {
  ScribedPen() {
    New_MemDxf();
    SetBiLiChi(1);
  }
};

// The same with the text style of sheets and charts.
struct SheetPen : ScribedPen {
  SheetPen() { Add_STyle(L"HZ", L"txt", L"hztxt", 0, 0.75); }
};

}  // namespace brindle
