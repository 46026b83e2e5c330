// Reading and writing drawing files, measured against dxflib on the same generated file.
//
//   bench_dxf [COUNT...]    entities, 100,000 and 1,000,000 without an argument
//
// Each run has a process of its own, which starts with nothing and uses one core. The sides take
// turns, so that other work on the machine disturbs both; a number is the median of its runs.
// Reading is the whole way from the file to the model, the file lying in the system's cache.
// Writing is from the model to an R12 file in the folder for temporary files.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "benchmarks/support/child_run.h"
#include "benchmarks/support/dxflib_model.h"
#include "benchmarks/support/generated_drawing.h"
#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/stream.h"

namespace {

using namespace brindle;
using namespace brindle::benchmarks;

struct Report {
  bool ok = false;
  double seconds = 0;
  DrawingSummary summary;
};

DrawingSummary summary_of(const DXF& drawing) {
  using namespace Varnholt;
  DrawingSummary sum;
  for (POSITION at = drawing.m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(drawing.m_Entities.GetNext(at));
    sum.characters += entity->m_szLayer.size();
    if (const auto* line = dynamic_cast<ACAD_LINE*>(entity)) {
      ++sum.lines;
      sum.coordinates += line->x1 + line->y1 + line->z1 + line->x2 + line->y2 + line->z2;
    } else if (const auto* text = dynamic_cast<ACAD_TEXT*>(entity)) {
      ++sum.texts;
      sum.coordinates += text->x + text->y + text->z + text->m_dHeight + text->m_dAngle;
      sum.characters += text->m_szText.size();
    } else if (const auto* circle = dynamic_cast<ACAD_CIRCLE*>(entity)) {
      ++sum.circles;
      sum.coordinates += circle->x + circle->y + circle->z + circle->m_dRadius;
    } else if (const auto* arc = dynamic_cast<ACAD_ARC*>(entity)) {
      ++sum.arcs;
      sum.coordinates +=
          arc->x + arc->y + arc->z + arc->m_dRadius + arc->m_dStartAngle + arc->m_dEndAngle;
    }
  }
  return sum;
}

// --- brindle

Report read_with_brindle(const std::string& path) {
  Report report;
  DXF drawing;
  drawing.New_MemDxf();
  const double start = seconds_now();
  report.ok = drawing.Read_FileDxf_To_Mem(from_path(path).c_str()) == 1;
  report.seconds = seconds_now() - start;
  report.summary = summary_of(drawing);
  return report;
}

Report write_with_brindle(const std::string& path, const std::string& target) {
  Report report;
  DXF drawing;
  drawing.New_MemDxf();
  report.ok = drawing.Read_FileDxf_To_Mem(from_path(path).c_str()) == 1;
  const std::wstring wide_target = from_path(target);
  const double start = seconds_now();
  report.ok = drawing.Write_MemDxf_To_File(wide_target.c_str(), 1) == 1 && report.ok;
  report.seconds = seconds_now() - start;
  return report;
}

// --- dxflib

Report read_with_dxflib(const std::string& path) {
  Report report;
  DxflibModel model;
  const double start = seconds_now();
  report.ok = model.read(path);
  report.seconds = seconds_now() - start;
  report.summary = model.summary();
  return report;
}

Report write_with_dxflib(const std::string& path, const std::string& target) {
  Report report;
  DxflibModel model;
  report.ok = model.read(path);
  const double start = seconds_now();
  report.ok = model.write(target) && report.ok;
  report.seconds = seconds_now() - start;
  return report;
}

// --- the floor: what any reader of such a file has to do at least

struct PlainEntity {
  char kind;
  unsigned char layer;
  double numbers[6];
};

// Splits the file into lines, turns codes and numbers into binary, and stores a plain struct for
// each entity; nothing is looked up, no text is kept, and all lines are as they should be.
Report read_into_plain_structs(const std::string& path) {
  Report report;
  std::vector<PlainEntity> entities;
  std::vector<char> buffer(std::size_t{1} << 18);
  const double start = seconds_now();
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return report;
  std::size_t kept = 0;
  int code = -1;
  std::size_t number = 0;
  PlainEntity entity{};
  while (const std::size_t got = std::fread(buffer.data() + kept, 1, buffer.size() - kept, file)) {
    const char* at = buffer.data();
    const char* const end = at + kept + got;
    while (const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
      const char* newline = static_cast<const char*>(found);
      if (code < 0) {
        while (*at == ' ') ++at;
        std::from_chars(at, newline, code);
      } else {
        if (code == 0) {
          if (entity.kind != 0) entities.push_back(entity);
          entity = PlainEntity{*at, 0, {}};
          number = 0;
        } else if (code == 8) {
          entity.layer = static_cast<unsigned char>(*at);
        } else if (code >= 10 && code < 60 && number < 6) {
          std::from_chars(at, newline, entity.numbers[number++]);
        }
        code = -1;
      }
      at = newline + 1;
    }
    kept = static_cast<std::size_t>(end - at);
    std::memmove(buffer.data(), at, kept);
  }
  std::fclose(file);
  report.seconds = seconds_now() - start;
  report.ok = !entities.empty();
  return report;
}

// --- the table

// One row's work, and what its runs came to.
struct Task {
  std::function<Report()> work;
  std::vector<double> seconds{}, peaks_mb{};
  DrawingSummary summary{};

  double time() const { return median(seconds); }
  double peak_mb() const { return median(peaks_mb); }
};

bool run_all(std::initializer_list<Task*> tasks, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (Task* task : tasks) {
      const ChildRun<Report> run = run_in_child<Report>(task->work);
      if (!run.done || !run.report.ok) return false;
      task->seconds.push_back(run.report.seconds);
      task->peaks_mb.push_back(run.peak_mb);
      task->summary = run.report.summary;
    }
  }
  return true;
}

void print_row(const char* what, double brindle, double dxflib, double ratio, const char* wanted) {
  std::printf("%-44s %12.0f %12.0f %9.2f  %s\n", what, brindle, dxflib, ratio, wanted);
}

bool run_count(int count, const std::string& folder) {
  const std::string path = folder + "/drawing.dxf";
  const std::string target = folder + "/written.dxf";
  if (!DrawingGenerator().write(path, count)) {
    std::fprintf(stderr, "%s can't be written\n", path.c_str());
    return false;
  }
  const double bytes = static_cast<double>(std::filesystem::file_size(path));
  const std::string their_target = folder + "/written_by_dxflib.dxf";
  Task ours{[&] { return read_with_brindle(path); }};
  Task theirs{[&] { return read_with_dxflib(path); }};
  Task floor{[&] { return read_into_plain_structs(path); }};
  Task our_writing{[&] { return write_with_brindle(path, target); }};
  Task their_writing{[&] { return write_with_dxflib(path, their_target); }};
  const int rounds = count <= 200000 ? 5 : 3;
  if (!run_all({&ours, &theirs, &floor, &our_writing, &their_writing}, rounds)) {
    std::fprintf(stderr, "a run has failed\n");
    return false;
  }
  const double our_bytes = static_cast<double>(std::filesystem::file_size(target));
  const double their_bytes = static_cast<double>(std::filesystem::file_size(their_target));
  if (ours.summary.entities() != count || !ours.summary.agrees_with(theirs.summary)) {
    std::fprintf(stderr, "the two models of the drawing differ\n");
    return false;
  }

  const DrawingSummary& sum = ours.summary;
  std::printf("\n%d entities: %ld lines, %ld texts, %ld circles, %ld arcs; %.1f MB read,\n", count,
              sum.lines, sum.texts, sum.circles, sum.arcs, bytes / 1e6);
  std::printf("%.1f MB written by brindle, %.1f MB by dxflib\n\n", our_bytes / 1e6,
              their_bytes / 1e6);
  std::printf("%-44s %12s %12s %9s  %s\n", "", "brindle", "dxflib", "ratio", "wanted");
  const double rates[] = {count / ours.time(), count / theirs.time(), count / our_writing.time(),
                          count / their_writing.time()};
  print_row("read into the model, entities/s", rates[0], rates[1], rates[0] / rates[1],
            ">= 5, aim 8");
  print_row("peak memory after reading, MB", ours.peak_mb(), theirs.peak_mb(),
            ours.peak_mb() / theirs.peak_mb(), "<= 2.5");
  print_row("write R12 from the model, entities/s", rates[2], rates[3], rates[2] / rates[3],
            ">= 8");
  std::printf("%-44s %12.0f\n", "floor: lines and numbers into plain structs",
              count / floor.time());
  std::fflush(stdout);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<int> counts;
  for (int i = 1; i < argc; ++i) counts.push_back(std::atoi(argv[i]));
  if (counts.empty()) counts = {100000, 1000000};

  const char* temporary = std::getenv("TMPDIR");
  std::string folder = std::string(temporary != nullptr ? temporary : "/tmp") + "/bench_dxf.XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) {
    std::perror(folder.c_str());
    return 1;
  }
  bool ok = true;
  for (int count : counts) ok = ok && count > 0 && run_count(count, folder);
  std::filesystem::remove_all(folder);
  return ok ? 0 : 1;
}
