#include "brindle/frame/utility/speed_bench.h"

#include "brindle/frame/utility/tell_error.h"

namespace brindle {

void CSpeedBench::Start() {
  m_start = Clock::now();
  m_bRunning = true;
}

void CSpeedBench::End() {
  m_sum = measured();
  m_bRunning = false;
}

CSpeedBench::Clock::duration CSpeedBench::measured() const {
  return m_bRunning ? m_sum + (Clock::now() - m_start) : m_sum;
}

double CSpeedBench::Run() const {
  return std::chrono::duration<double, std::milli>(measured()).count();
}

CString CSpeedBench::time_text(const wchar_t* title, std::chrono::milliseconds time) {
  const auto total = time.count();
  return wformat(L"%s %d时%d分%d.%.3d秒\t", title ? title : L"", total / 3600000,
                 total / 60000 % 60, total / 1000 % 60, total % 1000)
      .c_str();
}

void CSpeedBench::full_time_show(const wchar_t* title) const {
  tell_error(0,
             time_text(title, std::chrono::duration_cast<std::chrono::milliseconds>(measured())));
}

}  // namespace brindle
