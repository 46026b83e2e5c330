#include "brindle/dxf/acad_insert.h"

#include <cmath>
#include <numbers>

#include "brindle/dxf/block_walk_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/geometry/region.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

template <class T>
void transfer(ACAD_INSERT& insert, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(insert.x, insert.y, insert.z, rot, move, scale);
  if (scale != nullptr) {
    insert.m_dScaleX *= scale[0];
    insert.m_dScaleY *= scale[4];
  }
}

bool is_zero(const CFRect& box) {
  return box.left == 0 && box.bottom == 0 && box.right == 0 && box.top == 0;
}

// The union of the boxes that box_of gives for the entities; false when there is none. Inner
// inserts answer in the same way, so that one without a block doesn't pull the box to the origin.
template <class BoxOf>
bool box_of_insert(const ACAD_INSERT& insert, const BoxOf& box_of, CFRect& box) {
  bool found = false;
  BlockWalk walk(insert);
  while (ACAD_ENTITY* entity = walk.next()) {
    CFRect part;
    if (entity->GetType() == kEntityInsert) {
      if (!box_of_insert(static_cast<ACAD_INSERT&>(*entity), box_of, part)) continue;
    } else {
      part = box_of(*entity);
      if (is_zero(part)) continue;
    }
    box = found ? box.UnionFRect(part) : part;
    found = true;
  }
  return found;
}

enum class Verdict { kNothingThere, kMiss, kHit };

struct HitQuery {
  const CFRegion& region;
  int mode;
  double angle1, angle2;
};

Verdict hit_insert(const ACAD_INSERT& insert, const HitQuery& query) {
  Verdict verdict = Verdict::kNothingThere;
  BlockWalk walk(insert);
  while (ACAD_ENTITY* entity = walk.next()) {
    Verdict part;
    if (entity->GetType() == kEntityInsert) {
      part = hit_insert(static_cast<ACAD_INSERT&>(*entity), query);
      if (part == Verdict::kNothingThere) continue;
    } else {
      const int hit = entity->HitTest(query.region, query.mode, query.angle1, query.angle2);
      part = hit != 0 ? Verdict::kHit : Verdict::kMiss;
    }
    const Verdict decisive = query.mode != 0 ? Verdict::kMiss : Verdict::kHit;
    verdict = part;
    if (part == decisive) break;
  }
  return verdict;
}

}  // namespace

const EntitySchema* ACAD_INSERT::schema() const {
  static const EntitySchema table(
      "INSERT", false,
      {entity_text<&ACAD_INSERT::m_szBlock>(2, "m_szBlock", L""),
       entity_number<&ACAD_INSERT::x>(10, "x", 0), entity_number<&ACAD_INSERT::y>(20, "y", 0),
       entity_number<&ACAD_INSERT::z>(30, "z", 0),
       entity_number<&ACAD_INSERT::m_dScaleX>(41, "m_dScaleX", 1),
       entity_number<&ACAD_INSERT::m_dScaleY>(42, "m_dScaleY", 1),
       entity_number<&ACAD_INSERT::m_dAngle>(50, "m_dAngle", 0)},
      {EntityStep(2), EntityStep(10), EntityStep(20), EntityStep(30), EntityStep(41),
       EntityStep(42), EntityStep(50)},
      {EntityStep("100\nAcDbBlockReference\n"), EntityStep(2), EntityStep(10), EntityStep(20),
       EntityStep(30), EntityStep(41), EntityStep(42), EntityStep(50)});
  return &table;
}

void ACAD_INSERT::SetTransferCondition(float* move, float* rot, float* scale) const {
  const float c = static_cast<float>(std::cos(m_dAngle * kDegree));
  const float s = static_cast<float>(std::sin(m_dAngle * kDegree));
  const float position[] = {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
  const float turn[] = {c, -s, 0, s, c, 0, 0, 0, 1};
  const float stretch[] = {
      static_cast<float>(m_dScaleX), 0, 0, 0, static_cast<float>(m_dScaleY), 0, 0, 0, 1};
  std::copy(std::begin(position), std::end(position), move);
  std::copy(std::begin(turn), std::end(turn), rot);
  std::copy(std::begin(stretch), std::end(stretch), scale);
}

CFRect ACAD_INSERT::GetFRect() {
  CFRect box;
  box_of_insert(
      *this, [](ACAD_ENTITY& entity) { return entity.GetFRect(); }, box);
  return box;
}

CFRect ACAD_INSERT::GetFRect3D(double angle1, double angle2) {
  CFRect box;
  box_of_insert(
      *this, [=](ACAD_ENTITY& entity) { return entity.GetFRect3D(angle1, angle2); }, box);
  return box;
}

void ACAD_INSERT::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  BlockWalk walk(*this);
  while (ACAD_ENTITY* entity = walk.next()) {
    const bool inner = entity->GetType() == kEntityInsert;
    entity->Draw(dc, coor, inner ? 0 : dx, inner ? 0 : dy);
  }
}

void ACAD_INSERT::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  if (dc == nullptr || coor == nullptr) return;
  BlockWalk walk(*this);
  while (ACAD_ENTITY* entity = walk.next()) entity->Draw3D(dc, coor, angle1, angle2);
}

int ACAD_INSERT::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  return hit_insert(*this, {region, mode, angle1, angle2}) == Verdict::kHit ? 1 : 0;
}

void ACAD_INSERT::Draw3D_Opengl() {
  BlockWalk walk(*this);
  while (ACAD_ENTITY* entity = walk.next()) entity->Draw3D_Opengl();
}

int ACAD_INSERT::Transfer(double* rot, double* move, double* scale) {
  transfer(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

int ACAD_INSERT::Transfer(float* rot, float* move, float* scale) {
  transfer(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

}  // namespace brindle::Varnholt
