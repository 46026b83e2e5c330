// Pictures of large drawings on the raster device, against a bare loop over the segments that they
// consist of, and against QPainter; the index's part in a small view; and the binary drawing file
// against the text.
//
//   bench_draw [COUNT]    lines of the first drawing, 1,000,000 without an argument; the drawing of
//                         mixed entities has a tenth of it
//
// The picture is 1600 by 1000 pixels, the drawing 16000 by 10000 units. The bare loop draws all
// segments by the raster device's own routine; QPainter draws them one by one, not antialiased;
// both in one colour. A number is the least of several rounds in which all sides take turns; that
// of the small view, which is drawn again and again as in panning, is the least of rounds of its
// own.
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#ifdef BRINDLE_BENCH_QT
#include <QtGui/QImage>
#include <QtGui/QPainter>
#endif

#include "benchmarks/support/child_run.h"
#include "benchmarks/support/drawn_segments.h"
#include "brindle/dxf/binary_drawing.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/base/stream.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace {

using namespace brindle;
using benchmarks::SegmentCollector;

constexpr int kWidth = 1600, kHeight = 1000;
constexpr double kUnitsPerPixel = 10;
constexpr const wchar_t* kLayers[] = {L"AXIS",  L"WALL",  L"BEAM",   L"COLUMN",
                                      L"STEEL", L"NOTES", L"HIDDEN", L"DIM1"};

// Entities at random places, of sizes in pixels.
class DrawingMaker {
 public:
  DrawingMaker(DXF& drawing, bool texts) : drawing_(drawing), texts_(texts) {
    drawing.New_MemDxf();
    int color = 0;
    for (const wchar_t* layer : kLayers) drawing.Add_Layer(layer, ++color, L"CONTINUOUS");
    const float dashed[] = {60, -30}, centre[] = {120, -30, 0, -30};
    drawing.Add_LType(L"DASHED", L"- - -", 2, 90, dashed, 1);
    drawing.Add_LType(L"CENTRE", L"- . -", 4, 180, centre, 1);
    drawing.Add_STyle(L"SHX", L"txt", L"hztxt", 0, 0.7);
  }

  void add_line(double least_px, double most_px, const wchar_t* ltype = L"BYLAYER") {
    const double length = between(least_px, most_px) * kUnitsPerPixel;
    const double angle = between(0, 6.2831853), x = any_x(), y = any_y();
    drawing_.Write_Line(x, y, 0, x + length * std::cos(angle), y + length * std::sin(angle), 0, 1,
                        layer(), L"BYLAYER", ltype);
  }
  void add_circle() {
    drawing_.Write_Circle(any_x(), any_y(), 0, radius(), 1, layer(), L"BYLAYER", L"BYLAYER");
  }
  void add_arc() {
    const double start = between(0, 360);
    drawing_.Write_Arc(any_x(), any_y(), 0, radius(), start, start + between(30, 300), 1, layer(),
                       L"BYLAYER", L"BYLAYER");
  }
  void add_polyline() {
    double x[5], y[5], zero[5] = {}, bulge[5] = {0, 0.5, 0, -0.3, 0};
    x[0] = any_x(), y[0] = any_y();
    for (int i = 1; i < 5; ++i) {
      x[i] = x[i - 1] + between(-40, 40) * kUnitsPerPixel;
      y[i] = y[i - 1] + between(-40, 40) * kUnitsPerPixel;
    }
    drawing_.Write_Pline(5, x, y, zero, bulge, 0, zero, zero, 1, layer(), L"BYLAYER", L"BYLAYER");
  }
  void add_text() {
    if (!texts_) return;
    static constexpr const wchar_t* kTexts[] = {L"KL-3(2) 250x550", L"4%%13225",   L"主梁配筋图",
                                                L"+3.600",          L"C30 混凝土", L"8@100/200"};
    drawing_.Write_Text(any_x(), any_y(), 0, between(8, 16) * kUnitsPerPixel,
                        between(0, 1) < 0.5 ? 0 : 90, kTexts[random_() % std::size(kTexts)], L"SHX",
                        layer(), L"BYLAYER", L"BYLAYER");
  }
  void add_mixed(int i) {
    switch (i % 10) {
      case 0:
        return add_circle();
      case 1:
        return add_arc();
      case 2:
        return add_polyline();
      case 3:
        return add_text();
      case 4:
        return add_line(20, 100, i % 20 < 10 ? L"DASHED" : L"CENTRE");
      default:
        return add_line(5, 60);
    }
  }

 private:
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(random_() >> 11) * 0x1p-53);
  }
  double any_x() { return between(0, kWidth * kUnitsPerPixel); }
  double any_y() { return between(0, kHeight * kUnitsPerPixel); }
  double radius() { return between(4, 40) * kUnitsPerPixel; }
  const wchar_t* layer() { return kLayers[random_() % std::size(kLayers)]; }

  DXF& drawing_;
  bool texts_;
  std::mt19937_64 random_{7};
};

// Processor time, so that other programs on the machine count little.
double seconds_used() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double timed(const std::function<void()>& work) {
  const double start = seconds_used();
  work();
  return seconds_used() - start;
}

// The least times of works that take turns.
std::vector<double> least_times(int rounds, const std::vector<std::function<void()>>& works) {
  std::vector<double> best(works.size(), HUGE_VAL);
  for (int k = 0; k < rounds; ++k) {
    for (std::size_t i = 0; i < works.size(); ++i) best[i] = std::min(best[i], timed(works[i]));
  }
  return best;
}

// The view of the whole drawing, or `zoom` times as large of its middle.
CFCoor view_of(float zoom) {
  const auto middle_x = static_cast<float>(kWidth * kUnitsPerPixel / 2);
  const auto middle_y = static_cast<float>(kHeight * kUnitsPerPixel / 2);
  CFCoor coor;
  coor.Init({middle_x - middle_x / zoom, middle_y + middle_y / zoom, 0},
            static_cast<float>(zoom / kUnitsPerPixel), 1);
  return coor;
}

#ifdef BRINDLE_BENCH_QT
constexpr bool kHasQt = true;
void draw_with_qpainter(const SegmentCollector& drawn) {
  static QImage image(kWidth, kHeight, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setPen(Qt::red);
  for (const Segment& s : drawn.segments()) {
    painter.drawLine(s.from.x, s.from.y, s.to.x, s.to.y);
  }
}
#else
constexpr bool kHasQt = false;
void draw_with_qpainter(const SegmentCollector&) {}
#endif

void print_time(const char* what, double seconds) {
  std::printf("  %-58s %11.2f ms\n", what, seconds * 1e3);
}

void print_ratio(const char* what, double ratio, const char* wanted) {
  std::printf("  %-58s %11.3f     %s\n", what, ratio, wanted);
}

// The rows of a drawing; returns whether a bare loop could be made of it.
bool print_drawing(const char* name, DXF& drawing, const char* wanted, int rounds) {
  CFCoor whole = view_of(1), part = view_of(10);
  const CRect screen(0, 0, kWidth, kHeight);
  SegmentCollector drawn;
  {
    CDC dc(drawn);
    drawing.Draw(&dc, &whole, screen);
  }
  std::printf("%s: %zu segments\n", name, drawn.segments().size());
  if (drawn.others() != 0 || drawn.segments().empty()) {
    std::fprintf(stderr, "%ld figures besides\n", drawn.others());
    return false;
  }
  RasterDevice device(kWidth, kHeight);
  CDC dc(device);
  RasterBitmap bare;
  bare.create(kWidth, kHeight);
  const auto draw = [&] { drawing.Draw(&dc, &whole, screen); };
  const auto loop = [&] {
    draw_segments(bare, drawn.segments().data(), drawn.segments().size(), 0xff);
  };
  const auto best = least_times(rounds, {draw, loop});
  print_time("bare loop over the segments", best[1]);
  print_time("DXF::Draw", best[0]);
  print_ratio("DXF::Draw / bare loop", best[0] / best[1], wanted);
  drawing.CreateQuadTree();
  const double indexed = least_times(rounds, {draw})[0];
  print_time("DXF::Draw with the index", indexed);
  const auto repaint = [&] {
    drawing.Draw(&dc, &whole, CRect(720, 450, 720 + kWidth / 10, 450 + kHeight / 10));
  };
  const auto enlarge = [&] { drawing.Draw(&dc, &part, screen); };
  const double repainted = least_times(10 * rounds, {repaint})[0];
  const double enlarged = least_times(10 * rounds, {enlarge})[0];
  print_time("a hundredth of the picture, with the index", repainted);
  print_ratio("a hundredth of the picture / full picture", repainted / best[0], "<= 0.04");
  // An enlarged arc has more chords: what the view costs the bare loop is the measure here.
  SegmentCollector seen;
  {
    CDC seen_dc(seen);
    drawing.Draw(&seen_dc, &part, screen);
  }
  const double bare_view = least_times(
      10 * rounds,
      {[&] { draw_segments(bare, seen.segments().data(), seen.segments().size(), 0xff); }})[0];
  print_time("a hundredth of the area enlarged, with the index", enlarged);
  print_ratio("a hundredth of the area enlarged / full picture", enlarged / best[0], "<= 0.04");
  print_ratio("  the same ratio of the bare loops", bare_view / best[1], "");
  if (!kHasQt) return true;
  const double painter = least_times(rounds, {[&] { draw_with_qpainter(drawn); }})[0];
  print_time("QPainter, one at a time", painter);
  print_ratio("DXF::Draw / QPainter", best[0] / painter, "<= 0.5");
  return true;
}

// The rows of the binary file against the text; returns whether all was written and read.
bool print_storing(const char* name, DXF& drawing) {
  const std::string folder = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp";
  const std::string stem = folder + "/bench_draw." + std::to_string(getpid());
  const std::wstring text = from_path(stem + ".dxf"), binary = from_path(stem + ".dxb");
  bool whole = true;
  const auto check = [&](int done) { whole = whole && done != 0; };
  const auto saved = least_times(3, {[&] { check(drawing.Write_MemDxf_To_File2000(text.c_str())); },
                                     [&] { check(SaveDxb(&drawing, binary.c_str())); }});
  double loaded[2] = {HUGE_VAL, HUGE_VAL};
  for (int i = 0; i < 6; ++i) {
    DXF copy;  // freed outside of the time
    copy.New_MemDxf();
    loaded[i % 2] = std::min(loaded[i % 2], timed([&] {
                               check(i % 2 == 0 ? copy.Read_FileDxf_To_Mem(text.c_str())
                                                : LoadDxb(&copy, binary.c_str(), 1));
                             }));
    check(copy.m_Entities.GetCount() == drawing.m_Entities.GetCount());
  }
  _wremove(text.c_str());
  _wremove(binary.c_str());
  std::printf("%s, files\n", name);
  print_time("saving as text (AC1015)", saved[0]);
  print_time("SaveDxb", saved[1]);
  print_ratio("text / SaveDxb", saved[0] / saved[1], ">= 10");
  print_time("loading the text", loaded[0]);
  print_time("LoadDxb", loaded[1]);
  print_ratio("text / LoadDxb", loaded[0] / loaded[1], ">= 10");
  return whole;
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 1000000;
  if (count < 100) {
    std::fprintf(stderr, "usage: bench_draw [COUNT]\n");
    return 2;
  }
  set_screen_size(kWidth, kHeight);
  const bool texts = LoadShx(from_path(BRINDLE_SOURCE_DIR "/assets/fonts/").c_str()) != 0;
  if (!texts) std::fprintf(stderr, "the fonts can't be loaded: texts are left out\n");
  // Each drawing in a process of its own: the second isn't scattered over what the first has left.
  const auto measured = [](auto work) {
    std::fflush(stdout);
    const auto run = benchmarks::run_in_child<bool>([&] {
      const bool done = work();
      std::fflush(stdout);
      return done;
    });
    return run.done && run.report;
  };
  bool whole = measured([&] {
    DXF lines;
    DrawingMaker maker(lines, texts);
    for (int i = 0; i < count; ++i) maker.add_line(5, 60);
    return print_drawing("lines", lines, "<= 4", 7) && print_storing("lines", lines);
  });
  whole = measured([&] {
            DXF mixed;
            DrawingMaker maker(mixed, texts);
            for (int i = 0; i < count / 10; ++i) maker.add_mixed(i);
            return print_drawing("mixed entities", mixed, "<= 3", 9) &&
                   print_storing("mixed entities", mixed);
          }) &&
          whole;
  if (!kHasQt) std::printf("Qt isn't installed: the rows of QPainter are left out\n");
  return whole ? 0 : 1;
}
