// The drawing as a whole on a device: which entities are drawn or tested, and in which order.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "brindle/dxf/dxf.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/quad_tree.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/recording_device.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle {
namespace {

using namespace Varnholt;

// An entity that writes its name down when it is drawn, and is hit when the region's box holds it.
template <class Base>
class Marker : public Base {
 public:
  Marker(std::string& log, char name, CFRect box) : log_(log), name_(name), box_(box) {}
  CFRect GetFRect() override { return box_; }
  void Draw(CDC* dc, CFCoor*, double, double) override {
    log_ += this->m_pDxf != nullptr && shared_safe_dc().m_pDC == dc ? name_ : '?';
  }
  void Draw3D(CDC*, CFCoor*, double angle1, double) override {
    log_ += name_ + std::to_string(static_cast<int>(angle1));
  }
  int HitTest(const CFRegion& region, int, double, double) override {
    log_ += name_;
    CFPoint low, high;
    region.GetRect(low, high);
    return CFRect(low, high).Contains(box_);
  }

 private:
  std::string& log_;
  char name_;
  CFRect box_;
};

class DrawingTest : public ::testing::Test {
 protected:
  DrawingTest() {
    drawing.New_MemDxf();
    drawing.Add_Layer(L"OFF", -7, L"CONTINUOUS");
    coor.Init({0, 1000, 0}, 1, 1);  // device y = 1000 - y
    coor.m_ViewRight = coor.m_ViewBottom = 1000;
    drawing.m_pCoor = &coor;
  }
  ~DrawingTest() override { G_cCADPlatOption = CQXCADPlatOption(); }

  template <class Base = ACAD_ENTITY>
  Base& add(char name, CFRect box, const wchar_t* layer = L"0") {
    auto* entity = new Marker<Base>(log, name, box);
    entity->m_szLayer = layer;
    drawing.m_Entities.AddTail(entity);
    return *entity;
  }
  std::string drawn(CRect visible) {
    log.clear();
    drawing.Draw(&dc, &coor, visible);
    EXPECT_EQ(shared_safe_dc().m_pDC, nullptr);
    return log;
  }
  std::string hit(CFRect box, int mode) {
    log.clear();
    return drawing.HitTest(box, mode, 0, 0) != 0 ? log + "+" : log + "-";
  }

  std::string log;
  DXF drawing;
  CFCoor coor;
  RecordingDevice device;
  CDC dc{device};
};

TEST_F(DrawingTest, DrawsWhatIsVisible) {
  add<ACAD_TEXT>('t', {10, 10, 20, 20}).m_bOpaque = 1;
  add('a', {10, 10, 20, 20});
  add('o', {10, 10, 20, 20}, L"OFF");
  add<ACAD_TEXT>('T', {500, 500, 600, 600}).m_bOpaque = 1;
  add('m', {500, 500, 600, 600}, L"no such layer");
  add('z', {0, 0, 0, 0});
  const CRect all, whole(0, 0, 1000, 1000), corner(0, 900, 100, 1000);
  EXPECT_EQ(drawn(all), "amztT");
  EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
  EXPECT_EQ(drawn(whole), "amtT");  // a box at the origin counts as none
  EXPECT_EQ(drawn(corner), "at");
  EXPECT_EQ(drawing.m_pCoor, &coor);

  log.clear();
  drawing.Draw3D(&dc, &coor, 3, 0);
  EXPECT_EQ(log, "t3a3o3T3m3z3");
  drawing.m_bMemMode = 0;
  EXPECT_EQ(drawn(all), "");
  drawing.m_bMemMode = 1;
}

TEST_F(DrawingTest, DrawsByTheIndex) {
  const CRect whole(0, 0, 1000, 1000);
  add('a', {100, 100, 102, 102});
  add('o', {100, 100, 102, 102}, L"OFF");
  add<ACAD_TEXT>('t', {100, 100, 102, 102}).m_bOpaque = 1;
  add('b', {900, 900, 902, 902});
  add('c', {0, 0, 1000, 1000});
  add('e', {5, 5, 6, 6});
  drawing.CreateQuadTree();
  EXPECT_EQ(drawing.m_pQuadTree->m_item_count, 6);
  EXPECT_EQ(drawn(whole), "cbat");  // without 'e', in the margin of 30 pixels
  EXPECT_EQ(drawn({800, 0, 1000, 200}), "cb");
  EXPECT_EQ(drawn({}), "abcet");
  // Small nodes, of about 8.5 units.
  G_cCADPlatOption.m_bLodQuadNode = 1;
  EXPECT_EQ(drawn(whole), "cbat");
  coor.SetScale(0.2f);
  EXPECT_EQ(drawn(whole), "c");
  EXPECT_EQ(device.calls().size(), 0u);
  coor.SetScale(0.5f);
  EXPECT_EQ(drawn(whole), "c");
  ASSERT_EQ(device.calls().size(), 2u);
  EXPECT_EQ(device.calls()[0].kind, RecordedCall::Kind::kRectangle);
  EXPECT_TRUE(device.calls()[0].box.PtInRect({450, 49}));
  EXPECT_TRUE(device.calls()[1].box.PtInRect({50, 449}));
}

TEST_F(DrawingTest, KeepsTheIndexOnlyWhileItIsWhole) {
  add('a', {10, 10, 12, 12});
  ACAD_ENTITY& b = add('b', {90, 90, 92, 92});
  const CRect whole(0, 0, 1000, 1000);
  drawing.CreateQuadTree();
  add('c', {50, 50, 60, 60});
  EXPECT_EQ(drawn(whole), "abc");
  drawing.CreateQuadTree();
  drawing.DeleteEntity(&b);
  EXPECT_EQ(drawing.m_pQuadTree, nullptr);
  EXPECT_EQ(drawn(whole), "ac");
  drawing.CreateQuadTree();
  drawing.ClearAllEntity();
  EXPECT_EQ(drawn(whole), "");
  // No box to index by; a box without height, that holds nothing strictly.
  add('n', {std::numeric_limits<float>::infinity(), 0, 1, 1});
  drawing.CreateQuadTree();
  EXPECT_EQ(drawing.m_pQuadTree, nullptr);
  drawing.ClearAllEntity();
  add('h', {100, 100, 200, 100});
  drawing.CreateQuadTree();
  EXPECT_EQ(drawn(whole), "h");
}

TEST_F(DrawingTest, PicksAnyOrAll) {
  for (const bool indexed : {false, true}) {
    log.clear();
    drawing.ClearAllEntity();
    if (indexed) drawing.CreateQuadTree();
    EXPECT_EQ(hit({0, 0, 1, 1}, 0), "-");
    EXPECT_EQ(hit({0, 0, 1, 1}, 1), "+");
    add('a', {100, 100, 110, 110});
    add('b', {300, 300, 310, 310});
    add('c', {900, 900, 910, 910}, L"OFF");
    if (indexed) drawing.CreateQuadTree();
    EXPECT_EQ(hit({95, 95, 350, 350}, 0), indexed ? "cb+" : "a+");
    EXPECT_EQ(hit({95, 95, 350, 350}, 1), indexed ? "c-" : "abc-");
    EXPECT_EQ(hit({50, 50, 950, 950}, 1), indexed ? "cba+" : "abc+");
    EXPECT_EQ(hit({200, 200, 201, 201}, 0), indexed ? "cba-" : "abc-");
  }
  // Only what the view shows is tested.
  coor.m_ViewLeft = 800;
  coor.m_ViewBottom = 200;
  EXPECT_EQ(hit({95, 95, 350, 350}, 0), "c-");
  G_cCADPlatOption.m_bQuadTreeHitTest = 0;
  EXPECT_EQ(hit({95, 95, 350, 350}, 0), "a+");
}

}  // namespace
}  // namespace brindle
