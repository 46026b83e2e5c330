#include "brindle/platform/window/message_loop.h"

#include <algorithm>

#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

constexpr int kMostMessages = 10000;

bool is_live(const CWnd* window) {
  WindowSystem& system = window_system();
  const std::lock_guard lock(system.mutex);
  return system.live.contains(window);
}

// Sends WM_TIMER for each timer due now, once each.
int dispatch_timers() {
  WindowSystem& system = window_system();
  const ULONGLONG now = window_backend().now_ms();
  std::vector<std::pair<CWnd*, UINT_PTR>> due;
  for (Timer& timer : system.timers)
    if (timer.due <= now) {
      due.emplace_back(timer.window, timer.id);
      timer.due = std::max(timer.due + timer.elapse, now + 1);
    }
  int sent = 0;
  for (const auto& [window, id] : due) {
    const auto timer =
        std::find_if(system.timers.begin(), system.timers.end(),
                     [&](const Timer& t) { return t.window == window && t.id == id; });
    if (timer == system.timers.end()) continue;  // killed by one before
    window_backend().wake(timer->due);
    ++sent;
    if (const CWnd::TimerFunction function = timer->function)
      function(*window, id);
    else
      window->SendMessage(WM_TIMER, id);
  }
  return sent;
}

}  // namespace

BOOL IsWindow(HWND window) {
  return window != nullptr && is_live(CWnd::FromHandle(window));
}

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return IsWindow(window) ? CWnd::FromHandle(window)->SendMessage(message, wParam, lParam) : 0;
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowSystem& system = window_system();
  {
    const std::lock_guard lock(system.mutex);
    if (window == nullptr || !system.live.contains(CWnd::FromHandle(window))) return FALSE;
    system.queue.push_back({window, message, wParam, lParam, GetTickCount(), system.mouse});
  }
  window_backend().wake(0);
  return TRUE;
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return brindle::PostMessage(m_hWnd, message, wParam, lParam);
}

void PostQuitMessage(int exit_code) {
  WindowSystem& system = window_system();
  system.quit = true;
  system.exit_code = exit_code;
  window_backend().wake(0);
}

DWORD GetTickCount() {
  return static_cast<DWORD>(window_backend().now_ms());
}

BOOL PeekMessage(LPMSG message, HWND window, UINT first, UINT last, bool remove) {
  WindowSystem& system = window_system();
  const std::lock_guard lock(system.mutex);
  const auto wanted = [&](const MSG& m) {
    return (window == nullptr || m.hwnd == window) &&
           ((first == 0 && last == 0) || (m.message >= first && m.message <= last));
  };
  const auto found = std::find_if(system.queue.begin(), system.queue.end(), wanted);
  if (found == system.queue.end()) return FALSE;
  *message = *found;
  if (remove) system.queue.erase(found);
  return TRUE;
}

LRESULT DispatchMessage(const MSG* message) {
  return SendMessage(message->hwnd, message->message, message->wParam, message->lParam);
}

int dispatch_posted_messages() {
  int sent = 0;
  for (MSG message; sent < kMostMessages && PeekMessage(&message, nullptr, 0, 0); ++sent) {
    bool taken = false;
    const bool is_input = (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
                          (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST);
    if (is_input)
      for (CWnd* at = CWnd::FromHandle(message.hwnd); at != nullptr && !taken;
           at = window_state(*at).is_child() ? at->GetParent() : nullptr)
        taken = at->PreTranslateMessage(&message) != FALSE || !IsWindow(message.hwnd);
    if (!taken) DispatchMessage(&message);
  }
  return sent + dispatch_timers();
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT elapse_ms, TimerFunction function) {
  if (m_hWnd == nullptr) return 0;
  KillTimer(id);
  const UINT elapse = std::max(elapse_ms, 1u);
  const ULONGLONG due = window_backend().now_ms() + elapse;
  window_system().timers.push_back({this, id, elapse, due, std::move(function)});
  window_backend().wake(due);
  return id != 0 ? id : 1;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
  return std::erase_if(window_system().timers, [&](const Timer& timer) {
           return timer.window == this && timer.id == id;
         }) > 0;
}

int run_message_loop(CWnd* window) {
  WindowSystem& system = window_system();
  const auto finished = [&] {
    return system.quit || (window != nullptr && (!is_live(window) || window->m_hWnd == nullptr ||
                                                 !window->IsWindowVisible()));
  };
  while (!finished()) {
    if (dispatch_posted_messages() > 0) continue;
    if (finished() || !window_backend().wait_event()) break;
  }
  system.quit = false;
  return system.exit_code;
}

}  // namespace brindle
