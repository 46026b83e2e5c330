// The canvas against recorded calls, on a screen of 1000 by 800.
#include "brindle/sketch/canvas/safe_dc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/recording_device.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {
namespace {

using Kind = RecordedCall::Kind;

constexpr double kPi = 3.141592653589793;

// What stands on a device, in short: "0,0-4,0" a line, "6,0" a pixel, "fill" with box and brush.
std::string told(const RecordingDevice& device) {
  std::string text;
  const auto point = [](const CPoint& p) {
    return std::to_string(p.x) + "," + std::to_string(p.y);
  };
  for (const RecordedCall& call : device.calls()) {
    if (!text.empty()) text += ' ';
    if (call.kind == Kind::kLine) {
      text += point(call.points[0]) + "-" + point(call.points[1]);
    } else if (call.kind == Kind::kSetPixel) {
      text += point(call.points[0]);
    } else if (call.kind == Kind::kFillRegion) {
      const CRect box = call.region->box();
      text += "fill " + point(box.TopLeft()) + "/" + point(box.BottomRight());
      if (call.state.brush.style == BS_HATCHED)
        text += "#" + std::to_string(call.state.brush.hatch);
    } else {
      text += "other";
    }
  }
  return text;
}

struct Screen {
  Screen() { set_screen_size(1000, 800); }
  ~Screen() { set_screen_size(1920, 1080); }
};

class SafeDcTest : public ::testing::Test {
 protected:
  std::string drawn(const std::function<void()>& draw) {
    device.clear();
    draw();
    return told(device);
  }
  // The box around the ends of all lines.
  CRect extent() const {
    CRect box(INT_MAX, INT_MAX, INT_MIN, INT_MIN);
    for (const RecordedCall& call : device.calls()) {
      for (const CPoint& p : call.points) {
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
      }
    }
    return box;
  }

  Screen screen;
  RecordingDevice device;
  CDC dc{device};
  CSafeDC canvas{&dc};
};

TEST_F(SafeDcTest, CutsLines) {
  struct Case {
    const char* name;
    float in[4];
    int result;
    float out[4];
  };
  const Case cases[] = {
      {"inside", {1, 2, 3, 4}, 1, {1, 2, 3, 4}},
      {"left of the limit", {-10, 5, -1, 700}, 0, {-10, 5, -1, 700}},
      {"below", {5, 801, 900, 900}, 0, {5, 801, 900, 900}},
      {"both sides", {-100, 100, 1100, 700}, 1, {0, 150, 1000, 650}},
      {"both sides, backwards", {1100, 700, -100, 100}, 1, {1000, 650, 0, 150}},
      {"way along y cut to a whole number", {-1, 10, 3, 12}, 1, {0, 10, 3, 12}},
      {"negative way cut towards zero", {-3, 10, 1, 8}, 1, {0, 9, 1, 8}},
      {"vertical", {50, -100, 50, 2000}, 1, {50, 0, 50, 800}},
      {"by top and bottom", {100, -200, 600, 1000}, 1, {183, 0, 517, 800}},
      {"past a corner", {-100, 700, 100, 1000}, 0, {0, 850, 100, 1000}},
      {"level", {-5, 7, 2000, 7}, 1, {0, 7, 1000, 7}},
  };
  for (const bool metafile : {false, true}) {
    device.set_kind(metafile ? PaintDevice::Kind::kMetafile : PaintDevice::Kind::kRecorder);
    for (const Case& item : cases) {
      SCOPED_TRACE(item.name);
      float ends[4];
      std::copy(item.in, item.in + 4, ends);
      canvas.SetLimit(0);
      EXPECT_EQ(canvas.CutLine(ends[0], ends[1], ends[2], ends[3]), metafile ? 1 : item.result);
      for (int i = 0; i < 4; ++i) EXPECT_EQ(ends[i], (metafile ? item.in : item.out)[i]);
    }
  }
}

TEST_F(SafeDcTest, LimitIsTheScreenOrThePage) {
  const auto limit = [&] {
    return CRect(static_cast<int>(canvas.m_fLimit[0]), static_cast<int>(canvas.m_fLimit[1]),
                 static_cast<int>(canvas.m_fLimit[2]), static_cast<int>(canvas.m_fLimit[3]));
  };
  EXPECT_EQ(limit(), CRect(0, 0, 1000, 800));
  EXPECT_EQ(canvas.SetLimit(7), 1);
  EXPECT_EQ(limit(), CRect(-7, -7, 1007, 807));
  RecordingDevice page({300, 200});
  CDC printer(page);
  printer.m_bPrinting = TRUE;
  canvas.m_pDC = &printer;
  canvas.SetLimit(0);
  EXPECT_EQ(limit(), CRect(0, 0, 300, 200));
  EXPECT_NE(canvas.m_bPrinting, 0);
}

TEST_F(SafeDcTest, DrawsLinesAndPatterns) {
  const int dashes[] = {4, -2, 0, -2}, gaps_last[] = {4, -4}, finest[] = {1, -1}, dots[] = {0, 0};
  const auto line = [&](int x1, int y1, int x2, int y2, int n, const int* dash, float w1, float w2,
                        int style = 0) {
    return drawn([&] {
      canvas.m_nPenStyle = style;
      EXPECT_EQ(canvas.PolyLine({x1, y1}, {x2, y2}, 0x123456, n, dash, w1, w2), 1);
      canvas.m_nPenStyle = 0;
    });
  };
  EXPECT_EQ(line(3, 4, 10, 40, 0, nullptr, 0, 0), "3,4-10,40");
  EXPECT_EQ(device.calls()[0].state.pen, (PenData{PS_SOLID, 1, 0x123456}));
  EXPECT_EQ(line(3, 4, 3, 4, 0, nullptr, 0, 0), "");
  EXPECT_EQ(line(-9, 4, -1, 4, 0, nullptr, 0, 0), "");
  EXPECT_EQ(line(0, 0, 20, 0, 4, dashes, 0, 0), "0,0-4,0 6,0 8,0-12,0 14,0 16,0-20,0");
  EXPECT_EQ(line(20, 10, 20, 0, 4, dashes, 0, 0), "20,10-20,6 20,4 20,2-20,0");
  EXPECT_EQ(line(-3, 5, 10, 5, 2, gaps_last, 0, 0), "0,5-4,5 8,5-10,5");  // anew at the limit
  EXPECT_EQ(line(0, 0, 4, 0, 2, finest, 0, 0), "0,0-1,0 2,0-3,0");
  EXPECT_EQ(line(0, 0, 4, 0, 2, finest, 0, 0, 2), "0,0-4,0");
  EXPECT_EQ(device.calls()[0].state.pen.style, 2);
  EXPECT_EQ(line(0, 0, 9, 0, 2, dots, 0, 0), "0,0-9,0");
  EXPECT_EQ(drawn([&] { canvas.DrawPolyLine(0, 0, 9, 0, 0, 2, dots, 0, 0); }), "0,0-9,0");
  // Wide.
  EXPECT_EQ(line(100, 100, 200, 100, 0, nullptr, 10, 20), "fill 100,91/200,110");
  EXPECT_EQ(line(100, 100, 200, 100, 0, nullptr, 10, 20, 2),
            "100,95-200,90 200,90-200,110 200,110-100,105 100,105-100,95 fill 100,91/200,110#5");
  EXPECT_EQ(line(100, 100, 104, 100, 4, dashes, 4, 4), "fill 100,98/104,102");
  EXPECT_EQ(line(100, 100, 108, 100, 4, dashes, 4, 4), "fill 100,98/104,102 106,98-106,102");
  // What was selected stays selected.
  CPen* const before = dc.GetCurrentPen();
  line(0, 0, 9, 9, 4, dashes, 0, 0);
  EXPECT_EQ(dc.GetCurrentPen(), before);
}

TEST_F(SafeDcTest, DrawsPointByPoint) {
  const tagPOINT triangle[] = {{1, 1}, {9, 1}, {5, 7}};
  EXPECT_EQ(drawn([&] { canvas.Polygon(triangle, 3); }), "1,1-9,1 9,1-5,7 5,7-1,1");
  EXPECT_EQ(drawn([&] { canvas.Rectangle(1, 2, 8, 9); }), "1,2-1,9 1,9-8,9 8,9-8,2 8,2-1,2");
  canvas.MoveTo(-8, 3);
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.LineTo(-2, 3), 0); }), "");
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.LineTo(6, 3), 1); }), "0,3-6,3");
  EXPECT_EQ(canvas.m_ptCur, CPoint(6, 3));
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.SetPixel(1001, 3, 5), 5u); }), "");
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.SetPixel(1000, 3, 5), 5u); }), "1000,3");
  device.set_kind(PaintDevice::Kind::kMetafile);
  EXPECT_EQ(drawn([&] { canvas.SetPixel(-7, 3, 5); }), "-7,3");
  canvas.m_pDC = nullptr;
  EXPECT_EQ(drawn([&] {
              canvas.SetPixel(1, 1, 5);
              canvas.LineTo(3, 3);
              canvas.Ellipse(0, 0, 9, 9);
              canvas.PolyLine({1, 1}, {5, 5}, 0, 0, nullptr, 9, 9);
            }),
            "");
}

// Whether the recorded chain of chords follows an arc: angles counter-clockwise as seen.
void expect_chain(const RecordingDevice& device, double cx, double cy, double r, double from,
                  double to) {
  const auto& calls = device.calls();
  ASSERT_GE(calls.size(), 6u);
  double last = from;
  for (const RecordedCall& call : calls) {
    const CPoint p = call.points[1];
    EXPECT_NEAR(std::hypot(p.x - cx, p.y - cy), r, 1.0);
    double angle = std::atan2(cy - p.y, p.x - cx);
    while (angle < last - 2.0 / r) angle += 2 * kPi;
    EXPECT_LE(angle, last + 6.0 / r);
    last = angle;
  }
  EXPECT_NEAR(last, to, 2.0 / r);
}

TEST_F(SafeDcTest, DrawsArcsAndCircles) {
  const CRect box(400, 300, 600, 500);
  EXPECT_EQ(drawn([&] { canvas.DrawArc(500, 400, 0, 0, 3, 1); }), "");
  drawn([&] { canvas.DrawArc(500, 400, 1, 0, 6, 1); });
  EXPECT_EQ(device.calls().size(), 6u);  // five chords and the last one to the end

  drawn([&] { canvas.Arc(&box, {600, 400}, {500, 300}); });
  expect_chain(device, 500, 400, 100, 0, kPi / 2);
  drawn([&] { canvas.Arc(&box, {500, 300}, {600, 400}); });
  expect_chain(device, 500, 400, 100, kPi / 2, 2 * kPi);
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.Arc(&box, {600, 400}, {600, 400}), 0); }), "");
  drawn([&] { EXPECT_EQ(canvas.Arc(400, 300, 600, 500, 600, 400, 600, 400), 1); });
  expect_chain(device, 500, 400, 100, 0, 2 * kPi);
  EXPECT_EQ(drawn([&] { EXPECT_EQ(canvas.Arc(-90, 0, -1, 9, -1, 4, -90, 4), 0); }), "");

  drawn([&] { canvas.Ellipse(box.left, box.top, box.right, box.bottom); });
  EXPECT_EQ(extent(), CRect(400, 300, 600, 500));
  drawn([&] { canvas.Ellipse(&box); });
  EXPECT_EQ(extent(), CRect(359, 259, 641, 541));

  drawn([&] { canvas.PolyArc(&box, {600, 400}, {400, 400}, 0, 0, nullptr, 0, 0); });
  EXPECT_EQ(extent(), CRect(400, 300, 600, 400));  // the upper half
  EXPECT_EQ(drawn([&] {
              EXPECT_EQ(canvas.PolyArc(&box, {600, 400}, {600, 400}, 0, 0, nullptr, 0, 0), 0);
            }),
            "");
}

TEST_F(SafeDcTest, CutsArcs) {
  float starts[CSafeDC::kMostArcPieces], ends[CSafeDC::kMostArcPieces];
  struct Case {
    const char* name;
    float cx, cy, r, start, end;
    std::vector<double> pieces;  // start, end ...
  };
  const double b = std::asin(0.8), c = std::asin(400.0 / 450);
  const Case cases[] = {
      {"inside", 500, 400, 100, 1, 4, {1, 4}},
      {"outside", -500, 400, 100, 1, 4, {}},
      {"around the screen", 500, 400, 5000, 0, 6, {}},
      {"out at the bottom and in again", 500, 400, 450, 0, 3, {0, c, kPi - c, 3}},
      {"beyond a full turn", 0, 400, 500, 5, 8, {2 * kPi - b, 2 * kPi + b}},
      {"at a corner", 1000, 800, 500, 0, 6, {kPi, kPi * 1.5}},
      {"first and last within", 500, 0, 500, 0.5f, 3, {0.5, 3}},
  };
  for (const Case& item : cases) {
    SCOPED_TRACE(item.name);
    canvas.SetLimit(0);
    const int n = canvas.CutArc(item.cx, item.cy, item.r, item.start, item.end, starts, ends);
    std::vector<double> pieces;
    for (int i = 0; i < n; ++i) {
      // Neighbours that meet count as one.
      if (!pieces.empty() && pieces.back() == starts[i])
        pieces.pop_back();
      else
        pieces.push_back(starts[i]);
      pieces.push_back(ends[i]);
    }
    ASSERT_EQ(pieces.size(), item.pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) EXPECT_NEAR(pieces[i], item.pieces[i], 1e-4);
  }
  const CRect corner(-100, -100, 100, 100);
  drawn([&] { canvas.PolyArc(&corner, {-100, 0}, {100, 0}, 0, 0, nullptr, 0, 0); });
  EXPECT_EQ(extent(), CRect(0, 0, 100, 100));
}

TEST_F(SafeDcTest, DrawsWideArcsAndPatterns) {
  const CRect box(400, 300, 600, 500);
  const int dashes[] = {40, -20, 0, -20};
  EXPECT_EQ(drawn([&] {
              canvas.PolyArc(&box, {600, 400}, {400, 400}, 0, 0, nullptr, 20, 10);
            }),
            "fill 394,292/610,400");
  EXPECT_EQ(drawn([&] { canvas.DrawPolyArc(500, 400, 1, 0, 1, 0, 0.5f, 0.5f); }), "");
  canvas.m_nPenStyle = 2;
  drawn([&] { canvas.DrawPolyArc(500, 400, 100, 0, 1, 0, 10.0f, 10.0f); });
  const auto& calls = device.calls();
  ASSERT_EQ(calls.size(), 2u * 22 + 2 + 1);  // 110 / 5 steps
  EXPECT_EQ(calls.back().state.brush.hatch, 5);
  for (const std::size_t i : {43, 44, 45}) EXPECT_EQ(calls[i].points[1], calls[0].points[0]);
  EXPECT_NE(calls[42].points[1], calls[0].points[0]);
  canvas.m_nPenStyle = 0;

  // A pattern of 80 along a quarter of 157: two strokes and two dots.
  drawn([&] { canvas.DrawPolyArc(500, 400, 100, 0, 1.5707964f, 0, 4, dashes, 0, 0); });
  int pixels = 0;
  for (const RecordedCall& call : calls) pixels += call.kind == Kind::kSetPixel;
  EXPECT_EQ(pixels, 2);
  EXPECT_EQ(extent().left, 516);  // the second dot, past the second stroke
  drawn([&] { canvas.DrawPolyArc(500, 400, 100, 0, 1.5707964f, 0, 4, dashes, 8, 8); });
  EXPECT_EQ(calls.size(), 4u);
  EXPECT_EQ(calls[1].kind, Kind::kLine);
  EXPECT_EQ(calls[2].kind, Kind::kFillRegion);
}

TEST_F(SafeDcTest, FillsRegionsWithinTheSafeRange) {
  struct Case {
    CRect box;
    BOOL screen, metafile;
  };
  const Case cases[] = {{{0, 0, 10, 10}, 1, 1},
                        {{-30000, 0, 30000, 10}, 1, 1},
                        {{0, 0, 30001, 10}, 0, 1},
                        {{0, -30001, 10, 10}, 0, 1},
                        {{-10, 0, -1, 10}, 0, 1}};
  CBrush brush(0xff);
  for (const Case& item : cases) {
    CRgn region;
    region.CreateRectRgnIndirect(&item.box);
    for (const bool metafile : {false, true}) {
      device.set_kind(metafile ? PaintDevice::Kind::kMetafile : PaintDevice::Kind::kRecorder);
      device.clear();
      EXPECT_EQ(canvas.FillRgn(&region, &brush), metafile ? item.metafile : item.screen);
      EXPECT_EQ(device.calls().size(), metafile || item.screen ? 1u : 0u);
    }
  }
}

TEST_F(SafeDcTest, EndsOnFiguresBeyondAnyDevice) {
  const int dashes[] = {1, -1};
  constexpr int kFar = 1000000000;
  device.set_kind(PaintDevice::Kind::kMetafile);
  EXPECT_EQ(drawn([&] {
              canvas.PolyLine({-kFar, 0}, {kFar, 0}, 0, 2, dashes, 0, 0);
            }),
            "-1000000000,0-1000000000,0");
  drawn([&] { canvas.DrawArc(0, 0, kFar, 0, 6, 1); });
  EXPECT_LE(device.calls().size(), 100001u);
  device.set_kind(PaintDevice::Kind::kRecorder);
  const float nan = std::nanf(""), huge = 1e38f;
  EXPECT_EQ(drawn([&] {
              canvas.DrawPolyLine(nan, 0, 1, 1, 0, 2, dashes, 0, 0);
              canvas.DrawPolyArc(0, 0, nan, 0, nan, 0, 2, dashes, 0, 0);
              canvas.DrawPolyArc(100, 100, -50, 0, 6, 0, 2, dashes, 0, 0);
            }),
            "");
  canvas.DrawPolyArc(huge, huge, huge, 0, 6, 0, 2, dashes, 0, 0);
  canvas.DrawPolyLine(-huge, huge, huge, -huge, 0, 2, dashes, 9, 9);
}

}  // namespace
}  // namespace brindle
