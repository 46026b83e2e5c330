// Loads the bytes as a field file. What was loaded is searched, traced and drawn, and saved and
// loaded again: searches answer as the plain walks do, and no record is lost on the way.
#include <cmath>
#include <memory>

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/base/exception.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "fuzz/support/fuzz_support.h"
#include "tests/mesh/plain_field.h"

namespace {

using namespace brindle;
using namespace brindle::fuzz;

// Plain walks go through so many triangles at most.
constexpr INT_PTR kFewTriangles = 300;

// A triangle with a node outside the mesh throws, in the plain walk as in the search.
template <class F>
bool throws(F f) {
  try {
    f();
  } catch (const CInvalidArgException&) {
    return true;
  }
  return false;
}

void search(CChang& field) {
  const bool few = field.m_arrayTri.GetSize() < kFewTriangles;
  for (int i = 0; i < 12; ++i) {
    const CChangNode* const nodes = field.m_arrayNode.data();
    const bool on_node = i < field.m_arrayNode.GetSize();
    const float x = on_node ? nodes[i].x : static_cast<float>(i) * 0.3f;
    const float y = on_node ? nodes[i].y : static_cast<float>(i % 5) * 0.4f;
    float got = 0, wanted = 0;
    const bool got_none = throws([&] { got = field.Get_Value(x, y); });
    if (!few) continue;
    const bool wanted_none = throws([&] { wanted = testing::plain_value(field, x, y); });
    BRINDLE_FUZZ_REQUIRE(got_none == wanted_none);
    BRINDLE_FUZZ_REQUIRE(got == wanted || (std::isnan(got) && std::isnan(wanted)));
  }
  CPtrArray order;
  CFCoor coor;
  throws([&] { field.SortTriByDeep(order, &coor); });
}

void trace(CChang& field) {
  const float z = field.m_arrayNode.IsEmpty() ? 0 : field.m_arrayNode[0].values[0];
  for (const float value : {z, 0.5f}) {
    if (throws([&] { field.TraceOne(value); })) return;
    const auto got = testing::lines_of(field);
    if (field.m_arrayTri.GetSize() >= kFewTriangles) continue;
    testing::plain_trace(field, value);
    const auto wanted = testing::lines_of(field);
    BRINDLE_FUZZ_REQUIRE(got.size() == wanted.size());
    for (std::size_t k = 0; k < got.size(); ++k) {
      BRINDLE_FUZZ_REQUIRE(got[k].size() == wanted[k].size());
      for (std::size_t i = 0; i < got[k].size(); ++i) {
        BRINDLE_FUZZ_REQUIRE(testing::same_points(got[k][i], wanted[k][i]));
      }
    }
  }
  float min = 0, max = 0;
  field.GetMinMaxZ(min, max);
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  field.Trace((max - min) / 5, pen.get(), 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static SilentUser user;
  static const ScratchFile written("field.chg");

  CChang field;
  {
    const File file = open_bytes(as_bytes(data, size));
    if (file == nullptr) return 0;
    BRINDLE_FUZZ_REQUIRE(field.LoadData(file.get()) == 1);
  }
  // A record takes a byte at least, but for the last one.
  const auto records =
      static_cast<std::size_t>(field.m_arrayNode.GetSize() + field.m_arrayTri.GetSize());
  BRINDLE_FUZZ_REQUIRE(records <= size);
  search(field);
  trace(field);
  throws([&] {
    field.CreateQuadTree();
    field.Get_Value(0.5f, 0.5f);
  });

  bool fits = true;  // a line of very long numbers comes back as two
  for (const CChangNode& n : field.m_arrayNode) {
    for (const float v : n.values) fits = fits && !(std::fabs(v) > 1e12f);
    fits = fits && !(std::fabs(n.x) > 1e12f || std::fabs(n.y) > 1e12f);
  }
  BRINDLE_FUZZ_REQUIRE(field.SaveData(written.path()) == 1);
  CChang copy;
  BRINDLE_FUZZ_REQUIRE(copy.LoadData(written.path()) == 1);
  if (!fits) return 0;
  BRINDLE_FUZZ_REQUIRE(copy.m_arrayNode.GetSize() == field.m_arrayNode.GetSize());
  BRINDLE_FUZZ_REQUIRE(copy.m_arrayTri.GetSize() == field.m_arrayTri.GetSize());
  for (INT_PTR i = 0; i < copy.m_arrayTri.GetSize(); ++i) {
    BRINDLE_FUZZ_REQUIRE(copy.m_arrayTri[i].n3 == field.m_arrayTri[i].n3);
  }
  return 0;
}
