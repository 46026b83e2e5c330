// Figures of every kind, and readers of little-endian numbers: what the tests of the devices that
// end in a file share.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>
#include <string>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/region_data.h"
#include "tests/support/temporary_folder.h"

namespace brindle {

// `bytes` as a number of that type at `offset`; the test fails beyond the end.
template <class Number>
Number number_at(const std::string& bytes, std::size_t offset) {
  std::uint64_t value = 0;
  EXPECT_LE(offset + sizeof(Number), bytes.size());
  for (std::size_t i = 0; i < sizeof(Number) && offset + i < bytes.size(); ++i) {
    value |= std::uint64_t{BYTE(bytes[offset + i])} << 8 * i;
  }
  return static_cast<Number>(value);
}

inline PaintState plain_state() {
  PaintState state;
  state.pen = {PS_SOLID, 1, RGB(200, 0, 0)};
  state.brush = {BS_SOLID, RGB(0, 0, 200), 0, nullptr};
  state.font.lfHeight = -20;
  std::wcscpy(state.font.lfFaceName, L"宋体");
  state.bk_mode = TRANSPARENT;
  return state;
}

// Each operation at least once, with coordinates far beyond what a form may hold among them.
inline void draw_everything(PaintDevice& device) {
  PaintState state = plain_state();
  constexpr int kFar = 2000000000;
  device.line(state, {0, 0}, {50, 60});
  device.line(state, {-kFar, -kFar}, {kFar, kFar});
  device.line(state, {-kFar, 10}, {-kFar + 5, 10});
  const CPoint corners[]{{10, 10}, {90, 20}, {kFar, 80}, {-kFar, 90}, {20, 20}, {30, 20}, {30, 30}};
  const int counts[]{4, 3};
  const CPoint near[]{{10, 10}, {90, 20}, {20, 80}}, wide[]{{0, 0}, {40000, 5}, {0, 9}};
  device.polyline(state, corners, 7);
  device.polyline(state, near, 3);
  device.polyline(state, wide, 3);
  device.poly_polygon(state, corners, counts, 2);
  for (int hatch = HS_HORIZONTAL; hatch <= HS_DIAGCROSS; ++hatch) {
    state.brush = {BS_HATCHED, RGB(0, 90, 0), hatch, nullptr};
    state.bk_mode = hatch % 2 == 0 ? OPAQUE : TRANSPARENT;
    device.rectangle(state, CRect(hatch * 10, 100, hatch * 10 + 10, 110));
  }
  for (const int style : {PS_DASH, PS_DOT, PS_NULL, PS_GEOMETRIC | PS_DASH | PS_ENDCAP_FLAT}) {
    state.pen = {style, style > PS_STYLE_MASK ? 6 : 1, RGB(0, 0, 90)};
    device.round_rectangle(state, CRect(10, 120, 60, 150), {8, 8});
  }
  for (const CRect& box :
       {CRect(0, 0, 40, 30), CRect(-kFar, -kFar, kFar, kFar), CRect(5, 5, 5, 9)}) {
    device.ellipse(state, box);
    device.rectangle(state, box);
    for (const auto form :
         {PaintDevice::ArcForm::kArc, PaintDevice::ArcForm::kPie, PaintDevice::ArcForm::kChord}) {
      device.arc(state, form, box, {kFar, 15}, {20, -kFar});
    }
    device.pattern_blt(state, box, PATCOPY);
  }
  const RegionData ring =
      RegionData::ellipse(CRect(0, 0, 50, 40)) - RegionData(CRect(20, 15, 30, 25));
  state.clip = &ring;
  device.line(state, {0, 0}, {90, 90});
  device.fill_region(state, ring, {BS_SOLID, RGB(9, 9, 9), 0, nullptr});
  state.clip = nullptr;
  device.invert_region(state, ring);
  device.set_pixel(state, {3, 4}, RGB(1, 2, 3));
  device.set_pixel(state, {kFar, 4}, RGB(1, 2, 3));
  for (int turn = 0; turn < 3600; turn += 450) {
    state.font.lfEscapement = turn;
    state.text_align = turn % 900 == 0 ? TA_CENTER | TA_BASELINE : TA_RIGHT | TA_BOTTOM;
    device.text(state, {100, 100}, 0, nullptr, L"梁 KL-3<&>", nullptr);
  }
  const CRect box(10, 10, 60, 30);
  const int advances[]{30, 12};
  state.char_extra = 3;
  device.text(state, {10, 10}, ETO_OPAQUE | ETO_CLIPPED, &box, L"剪裁\x1", nullptr);
  device.text(state, {10, 40}, 0, nullptr, L"间A", advances);
  device.text(state, {kFar, kFar}, 0, nullptr, L"far", nullptr);
  TransformedText run;
  run.face = L"黑体";
  run.em_size = 12.5;
  run.words = L"变换";
  run.m11 = 2, run.m12 = 0.5, run.dx = 30, run.dy = 30;
  device.transformed_text(state, run);
  auto picture = std::make_shared<RasterBitmap>(3, 2, 0x80ff0000);
  state.brush = {BS_PATTERN, 0, 0, picture};
  device.rectangle(state, CRect(0, 0, 20, 20));
  device.bitmap(state, CRect(60, 0, 0, 40), *picture, CRect(-1, 0, 5, 2), SRCCOPY);
  device.bitmap(state, CRect(0, 0, 9, 9), *picture, CRect(10, 10, 12, 12), SRCCOPY);
  device.blend(state, CRect(0, 0, 30, 20), *picture, CRect(0, 0, 3, 2), 128, true);
  const GradientVertex vertices[]{{0, 0, 255, 0, 0}, {100, 0, 0, 255, 0}, {50, 80, 0, 0, 255}};
  const unsigned indexes[]{0, 1, 2, 0, 1, 7};
  device.gradient_triangles(state, vertices, 3, indexes, 2);
  EXPECT_EQ(device.get_pixel({3, 4}), CLR_INVALID);
}

}  // namespace brindle
