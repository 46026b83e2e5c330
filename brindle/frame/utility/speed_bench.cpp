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

CString CSpeedBench::full_time_text(const wchar_t* title) const {
  const auto total = std::chrono::duration_cast<std::chrono::milliseconds>(measured()).count();
  const int milliseconds = static_cast<int>(total % 1000);
  const auto seconds = total / 1000;
  return wformat(L"%s %d时%d分%d.%.3d秒\t", title ? title : L"", static_cast<int>(seconds / 3600),
                 static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60), milliseconds)
      .c_str();
}

void CSpeedBench::full_time_show(const wchar_t* title) const {
  tell_error(0, full_time_text(title));
}

}  // namespace brindle
