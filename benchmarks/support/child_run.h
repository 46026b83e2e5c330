// Measuring a piece of work in a process of its own: its time and the peak of its memory.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace brindle::benchmarks {

inline double seconds_now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// What the work tells: a small trivial struct that fits a pipe.
template <class Report>
struct ChildRun {
  bool done = false;  // false when the process died or could not be made
  Report report{};
  double peak_mb = 0;  // peak of the process's resident memory, in 10^6 bytes
};

// Runs `work` in a fork of this process and waits for it. This process should have little memory of
// its own: what it has counts for the child, too.
template <class Report, class Work>
ChildRun<Report> run_in_child(Work work) {
  ChildRun<Report> run;
  int ends[2];
  if (pipe(ends) != 0) return run;
  const pid_t child = fork();
  if (child == 0) {
    const Report report = work();
    const bool told = write(ends[1], &report, sizeof report) == sizeof report;
    _exit(told ? 0 : 1);
  }
  close(ends[1]);
  run.done = child > 0 && read(ends[0], &run.report, sizeof run.report) == sizeof run.report;
  close(ends[0]);
  int status = 0;
  rusage usage{};
  if (child > 0) run.done = wait4(child, &status, 0, &usage) == child && status == 0 && run.done;
  run.peak_mb = static_cast<double>(usage.ru_maxrss) * 1024 / 1e6;
  return run;
}

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace brindle::benchmarks
