#include "brindle/platform/graphics/dc.h"

#include <gtest/gtest.h>

#include <memory>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"

namespace brindle {
namespace {

using Kind = RecordedCall::Kind;

class CMarkedDC : public CDC {
 public:
  using CDC::CDC;
};

TEST(DeviceContext, WithoutADeviceDoesNothing) {
  CDC dc;
  CPen pen(PS_SOLID, 1, 0);
  EXPECT_EQ(dc.SelectObject(&pen), nullptr);
  EXPECT_FALSE(dc.LineTo(1, 1));
  EXPECT_FALSE(dc.Rectangle(0, 0, 1, 1));
  EXPECT_EQ(dc.SetTextColor(5), 0u);
  EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
  CRect box;
  EXPECT_EQ(dc.GetClipBox(&box), ERROR);
  EXPECT_EQ(dc.DrawText(L"a", &box, 0), 0);
  EXPECT_FALSE(dc.RestoreDC(-1));
  dc.FillSolidRect(CRect(0, 0, 1, 1), 0);
}

TEST(DeviceContext, KeepsWhatWasSelected) {
  RecordingDevice device;
  CDC dc(device);
  CPen red(PS_DASH, 3, RGB(255, 0, 0));
  CPen* first = dc.SelectObject(&red);
  EXPECT_EQ(first, stock_object(BLACK_PEN));
  {
    auto blue = std::make_unique<CPen>(PS_SOLID, 1, RGB(0, 0, 255));
    EXPECT_EQ(dc.SelectObject(blue.get()), &red);
    EXPECT_EQ(dc.SaveDC(), 1);
  }
  red.DeleteObject();
  dc.MoveTo(1, 2);
  dc.LineTo(3, 4);
  EXPECT_EQ(device.calls().back().state.pen, (PenData{PS_SOLID, 1, RGB(0, 0, 255)}));
  // The destroyed pen's place is taken by one that draws the same.
  CPen* left = dc.SelectObject(first);
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left->data().color, RGB(0, 0, 255));
  EXPECT_TRUE(dc.RestoreDC(-1));
  EXPECT_EQ(dc.paint_state().pen.color, RGB(0, 0, 255));
  EXPECT_EQ(dc.SelectObject(&red), nullptr) << "a deleted pen can't be selected";
  // The context goes first.
  CBrush brush(HS_CROSS, RGB(1, 2, 3));
  {
    CDC short_lived(device);
    short_lived.SelectObject(&brush);
    short_lived.Rectangle(0, 0, 5, 5);
  }
  EXPECT_EQ(device.calls().back().state.brush.hatch, HS_CROSS);
  EXPECT_EQ(dc.SelectObject(&brush), stock_object(WHITE_BRUSH));
}

TEST(DeviceContext, RestoresAllOfItsState) {
  RecordingDevice device;
  CDC dc(device);
  const int level = dc.SaveDC();
  dc.SetTextColor(1);
  dc.SetBkMode(TRANSPARENT);
  dc.SetWindowOrg(5, 5);
  dc.IntersectClipRect(0, 0, 10, 10);
  dc.SelectStockObject(NULL_BRUSH);
  dc.MoveTo(9, 9);
  dc.SaveDC();
  EXPECT_FALSE(dc.RestoreDC(3));
  EXPECT_TRUE(dc.RestoreDC(level));
  EXPECT_FALSE(dc.RestoreDC(-1)) << "the inner level went with the outer one";
  EXPECT_EQ(dc.GetTextColor(), 0u);
  EXPECT_EQ(dc.GetBkMode(), OPAQUE);
  EXPECT_EQ(dc.GetWindowOrg(), CPoint());
  EXPECT_EQ(dc.paint_state().clip, nullptr);
  EXPECT_EQ(dc.paint_state().brush.style, BS_SOLID);
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint());
}

TEST(DeviceContext, MapsLogicalUnits) {
  RecordingDevice device;
  CDC dc(device);
  CPen pen(PS_SOLID, 4, 0);
  dc.SelectObject(&pen);
  dc.SetWindowOrg(10, 20);
  dc.SetViewportOrg(1, 2);
  const CPoint corners[] = {{10, 20}, {20, 20}, {10, 30}};
  dc.Polygon(corners, 3);
  EXPECT_EQ(device.calls().back().points, (std::vector<CPoint>{{1, 2}, {11, 2}, {1, 12}}));
  EXPECT_EQ(device.calls().back().state.pen.width, 4);

  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowExt(100, 100);
  dc.SetViewportExt(50, -200);
  dc.MoveTo(10, 20);
  dc.LineTo(15, 21);
  EXPECT_EQ(device.calls().back().points, (std::vector<CPoint>{{1, 2}, {4, 0}}));
  EXPECT_EQ(device.calls().back().state.pen.width, 2);
  dc.Rectangle(10, 20, 30, 40);
  EXPECT_EQ(device.calls().back().box, CRect(1, -38, 11, 2));
  POINT back{11, -38};
  dc.DPtoLP(&back);
  EXPECT_EQ(back, (POINT{30, 40}));
  EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_ANISOTROPIC);
  EXPECT_EQ(dc.paint_state().pen.width, 4);

  dc.SetMapMode(MM_LOMETRIC);  // a tenth of a millimetre, y up
  SIZE size{254, 254};
  dc.LPtoDP(&size);
  EXPECT_EQ(size, (SIZE{96, 96}));
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetWindowExt(100, 100);
  dc.SetViewportExt(200, 300);
  EXPECT_EQ(dc.GetViewportExt(), CSize(200, 200));
}

TEST(DeviceContext, Clips) {
  RecordingDevice device(CSize(100, 80));
  CDC dc(device);
  CRect box;
  EXPECT_EQ(dc.GetClipBox(&box), SIMPLEREGION);
  EXPECT_EQ(box, CRect(0, 0, 100, 80));
  dc.SetWindowOrg(-10, 0);  // device x is 10 more
  EXPECT_EQ(dc.IntersectClipRect(0, 0, 50, 50), SIMPLEREGION);
  EXPECT_EQ(dc.ExcludeClipRect(10, 10, 20, 20), COMPLEXREGION);
  EXPECT_EQ(dc.GetClipBox(&box), COMPLEXREGION);
  EXPECT_EQ(box, CRect(0, 0, 50, 50));
  EXPECT_FALSE(dc.PtVisible(15, 15));
  EXPECT_TRUE(dc.PtVisible(20, 15));
  EXPECT_FALSE(dc.RectVisible(CRect(11, 11, 19, 19)));
  EXPECT_EQ(dc.SetPixel(15, 15, 7), CLR_INVALID);
  EXPECT_EQ(dc.SetPixel(1, 1, 7), 7u);
  ASSERT_EQ(device.calls().size(), 1u);
  EXPECT_EQ(device.calls()[0].points[0], CPoint(11, 1));
  EXPECT_EQ(device.calls()[0].clip->box(), CRect(10, 0, 60, 50));

  CRgn region;
  EXPECT_EQ(dc.SelectClipRgn(&region), ERROR) << "it isn't made";
  region.CreateRectRgn(0, 0, 5, 5);
  EXPECT_EQ(dc.SelectClipRgn(&region, RGN_OR), COMPLEXREGION);
  EXPECT_EQ(dc.SelectClipRgn(&region), SIMPLEREGION);
  region.OffsetRgn(50, 50);
  EXPECT_EQ(dc.paint_state().clip->box(), CRect(0, 0, 5, 5)) << "a copy";
  EXPECT_EQ(dc.SelectClipRgn(nullptr), SIMPLEREGION);
  EXPECT_EQ(dc.paint_state().clip, nullptr);
}

TEST(DeviceContext, FillsAreasInDeviceUnits) {
  RecordingDevice device;
  CDC dc(device);
  dc.SetWindowOrg(5, 0);
  CRgn region, frame;
  region.CreateRectRgn(5, 0, 15, 10);
  CBrush brush(RGB(9, 8, 7));
  EXPECT_TRUE(dc.FillRgn(&region, &brush));
  EXPECT_EQ(device.calls().back().region->box(), CRect(0, 0, 10, 10));
  EXPECT_EQ(device.calls().back().state.brush, brush.data());
  EXPECT_TRUE(dc.FrameRgn(&region, &brush, 2, 1));
  EXPECT_EQ(*device.calls().back().region,
            RegionData(CRect(0, 0, 10, 10)) - RegionData(CRect(2, 1, 8, 9)));
  dc.FillSolidRect(CRect(5, 5, 7, 7), 3);
  EXPECT_EQ(device.calls().back().kind, Kind::kPatternBlt);
  EXPECT_EQ(device.calls().back().state.brush.color, 3u);
  EXPECT_EQ(dc.paint_state().brush.color, 0xffffffu) << "for that call only";

  const TRIVERTEX corners[] = {{5, 0, 0xff00, 0, 0, 0}, {15, 20, 0, 0x8000, 0, 0}};
  const GRADIENT_RECT rect{0, 1}, wrong{0, 2};
  EXPECT_FALSE(dc.GradientFill(corners, 2, &wrong, 1, GRADIENT_FILL_RECT_H));
  EXPECT_TRUE(dc.GradientFill(corners, 2, &rect, 1, GRADIENT_FILL_RECT_H));
  const RecordedCall& call = device.calls().back();
  ASSERT_EQ(call.indexes.size(), 6u);
  for (const GradientVertex& v : call.vertices) EXPECT_EQ(v.red, v.x == 0 ? 0xff : 0);
}

TEST(DeviceContext, TurnsArcsAround) {
  RecordingDevice device;
  CDC dc(device);
  dc.SetArcDirection(AD_CLOCKWISE);
  dc.Pie(0, 0, 10, 10, 10, 5, 5, 0);
  EXPECT_EQ(device.calls().back().points, (std::vector<CPoint>{{5, 0}, {10, 5}}));
  dc.ArcTo(0, 0, 100, 50, 200, 25, 50, -80);
  EXPECT_EQ(device.calls()[1].points[1], CPoint(100, 25));
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint(50, 0));
}

TEST(DeviceContext, DrawsInMemory) {
  RecordingDevice screen(CSize(100, 100), 120);
  CDC target(screen), memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(&target));
  EXPECT_EQ(memory.GetDeviceCaps(LOGPIXELSX), 120);
  auto bitmap = std::make_unique<CBitmap>();
  EXPECT_FALSE(bitmap->CreateCompatibleBitmap(&target, 0, 5));
  ASSERT_TRUE(bitmap->CreateCompatibleBitmap(&target, 20, 10));
  EXPECT_EQ(target.SelectObject(bitmap.get()), nullptr) << "no memory device context";
  CBitmap* one_pixel = memory.SelectObject(bitmap.get());
  ASSERT_NE(one_pixel, nullptr);
  memory.SetWindowOrg(100, 100);
  memory.FillSolidRect(CRect(105, 105, 110, 110), RGB(255, 0, 0));
  EXPECT_EQ(memory.GetPixel(105, 105), RGB(255, 0, 0));
  EXPECT_EQ(memory.GetPixel(104, 105), RGB(0, 0, 0));
  EXPECT_EQ(memory.GetPixel(120, 105), CLR_INVALID);
  EXPECT_TRUE(target.BitBlt(1, 2, 20, 10, &memory, 100, 100, SRCCOPY));
  const RecordedCall& blit = screen.calls().back();
  EXPECT_EQ(blit.box, CRect(1, 2, 21, 12));
  EXPECT_EQ(blit.from, CRect(0, 0, 20, 10));
  EXPECT_EQ(color_of(blit.picture->at(5, 5)), RGB(255, 0, 0));
  EXPECT_FALSE(target.BitBlt(1, 2, 20, 10, &target, 0, 0, SRCCOPY)) << "nothing to read";
  EXPECT_TRUE(target.BitBlt(1, 2, 20, 10, nullptr, 0, 0, BLACKNESS));
  // A move over itself reads before it writes.
  EXPECT_TRUE(memory.BitBlt(106, 105, 5, 5, &memory, 105, 105, SRCCOPY));
  EXPECT_EQ(memory.GetPixel(110, 107), RGB(255, 0, 0));
  // Pixels outlive their bitmap while they are drawn on.
  const auto pixels = bitmap->pixels();
  bitmap.reset();
  memory.SetPixel(100, 100, RGB(1, 2, 3));
  EXPECT_EQ(color_of(pixels->at(0, 0)), RGB(1, 2, 3));
  EXPECT_NE(memory.SelectObject(one_pixel), nullptr);
  EXPECT_EQ(memory.GetDeviceCaps(HORZRES), 1);
}

// A polygon sets the same pixels by itself, as a region, and as a clip.
TEST(DeviceContext, PolygonsAreTheirRegions) {
  RasterBitmap bitmaps[3];
  for (int seed = 1; seed <= 40; ++seed) {
    std::vector<CPoint> ring;
    for (unsigned i = 0, n = seed; i < 3u + seed % 9; ++i) {
      n = n * 1103515245u + 12345u * (i + 1);
      ring.emplace_back(static_cast<int>(n >> 16 & 127) - 14, static_cast<int>(n >> 24) / 2 - 14);
    }
    const int count = static_cast<int>(ring.size()), mode = seed % 2 != 0 ? WINDING : ALTERNATE;
    for (int way = 0; way < 3; ++way) {
      bitmaps[way].create(100, 100);
      RasterDevice device(bitmaps[way]);
      CDC dc(device);
      CBrush brush(RGB(1, 2, 3));
      CRgn region;
      region.CreatePolygonRgn(ring.data(), count, mode);
      dc.SelectObject(&brush);
      dc.SelectStockObject(NULL_PEN);
      dc.SetPolyFillMode(mode);
      if (way == 0) dc.Polygon(ring.data(), count);
      if (way == 1) dc.FillRgn(&region, &brush);
      if (way == 2) dc.SelectClipRgn(&region), dc.PatBlt(0, 0, 100, 100, PATCOPY);
    }
    EXPECT_EQ(bitmaps[0], bitmaps[1]) << seed;
    EXPECT_EQ(bitmaps[1], bitmaps[2]) << seed;
  }
}

TEST(DeviceContext, TellsItsClass) {
  RecordingDevice device;
  CDC plain(device);
  CMarkedDC marked(device);
  for (int round = 0; round < 2; ++round) {  // the second answer comes from memory
    EXPECT_FALSE(plain.IsKindOf(RUNTIME_CLASS(CMarkedDC)));
    EXPECT_TRUE(marked.IsKindOf(RUNTIME_CLASS(CMarkedDC)));
    EXPECT_TRUE(marked.IsKindOf(RUNTIME_CLASS(CDC)));
    EXPECT_FALSE(marked.IsKindOf(RUNTIME_CLASS(CPen)));
  }
}

TEST(Region, FollowsTheFramework) {
  CRgn a, b, unmade;
  EXPECT_TRUE(a.CreateRectRgn(10, 10, 0, 0));
  const CPoint triangle[] = {{0, 0}, {20, 0}, {0, 20}};
  EXPECT_FALSE(b.CreatePolygonRgn(triangle, 1, WINDING));
  EXPECT_FALSE(b.CreatePolygonRgn(triangle, 3, 3));
  EXPECT_TRUE(b.CreatePolygonRgn(triangle, 3, WINDING));
  EXPECT_EQ(unmade.CombineRgn(&a, &b, RGN_AND), ERROR);
  CRect box;
  EXPECT_EQ(unmade.GetRgnBox(&box), ERROR);
  EXPECT_EQ(a.CombineRgn(&a, &b, RGN_DIFF), NULLREGION);
  EXPECT_EQ(b.GetRgnBox(&box), COMPLEXREGION);
  EXPECT_EQ(box, CRect(0, 0, 20, 20));
  EXPECT_TRUE(b.RectInRegion(CRect(2, 2, -5, -5)));
  EXPECT_FALSE(b.RectInRegion(CRect(15, 15, 20, 20)));
  EXPECT_EQ(a.CopyRgn(&b), COMPLEXREGION);
  EXPECT_TRUE(a.EqualRgn(&b));
}

// Replaying makes the very calls that were recorded.
TEST(RecordingDevice, Replays) {
  RecordingDevice device, copy;
  CDC dc(device);
  dc.IntersectClipRect(0, 0, 50, 50);
  dc.LineTo(5, 5);
  dc.Ellipse(0, 0, 9, 9);
  dc.RoundRect(0, 0, 9, 9, 3, 4);
  dc.Chord(0, 0, 9, 9, 1, 2, 3, 4);
  const int steps[] = {1, 2};
  dc.ExtTextOut(1, 2, ETO_OPAQUE, CRect(0, 0, 3, 3), L"ab", 2, steps);
  TransformedText run;
  run.words = L"words";
  run.face = L"face";
  dc.DrawTransformedText(run);
  dc.InvertRect(CRect(0, 0, 2, 2));
  dc.DrawFocusRect(CRect(0, 0, 4, 4));
  dc.StartPage();
  device.replay(copy);
  ASSERT_EQ(copy.calls().size(), device.calls().size());
  for (size_t i = 0; i < copy.calls().size(); ++i) {
    const RecordedCall &a = device.calls()[i], &b = copy.calls()[i];
    EXPECT_EQ(a.kind, b.kind);
    EXPECT_EQ(a.points, b.points);
    EXPECT_EQ(a.counts, b.counts);
    EXPECT_EQ(a.box, b.box);
    EXPECT_EQ(a.extent, b.extent);
    EXPECT_EQ(a.words, b.words);
    EXPECT_EQ(a.face, b.face);
    EXPECT_EQ(a.rop, b.rop);
    EXPECT_EQ(a.clip != nullptr, b.clip != nullptr);
    if (a.region != nullptr) {
      EXPECT_EQ(*a.region, *b.region);
    }
  }
}

}  // namespace
}  // namespace brindle
