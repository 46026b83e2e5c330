// CSpeedBench: a stopwatch for long calculations.
#pragma once

#include <chrono>

#include "brindle/platform/base/string.h"

namespace brindle {

// Sums up the spans between Start and End.
class CSpeedBench {
 public:
  // Begins a span; a span that runs already is begun anew, and what it had measured is lost.
  void Start();
  // Ends the span and adds it. Nothing when none runs.
  void End();
  // Milliseconds measured so far, with those of the span that runs.
  double Run() const;
  // Tells the time measured so far, in the form of time_text, as a line of running commentary
  // (tell_error code 0).
  void full_time_show(const wchar_t* title) const;

  // "%s %d时%d分%d.%.3d秒\t": the title, hours, minutes, seconds and milliseconds.
  static CString time_text(const wchar_t* title, std::chrono::milliseconds time);

 private:
  using Clock = std::chrono::steady_clock;

  Clock::duration measured() const;

  Clock::duration m_sum{};
  Clock::time_point m_start{};
  bool m_bRunning = false;
};

}  // namespace brindle
