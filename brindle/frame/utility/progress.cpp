#include "brindle/frame/utility/progress.h"

#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/progress_ctrl.h"

#include <algorithm>

namespace brindle {

CProgressCtrl* g_pJsProgress = nullptr;
CEdit* g_pJsInfo = nullptr;

void Show_JsProgress(int percent) {
  if (g_pJsProgress) g_pJsProgress->SetPos(std::clamp(percent, 1, 100));
}

void Show_JsInfo(const CString& text) {
  if (!g_pJsInfo) return;
  CString content;
  g_pJsInfo->GetWindowText(content);
  if (!content.IsEmpty()) content += L"\r\n";
  content += text;
  g_pJsInfo->SetWindowText(content);
  g_pJsInfo->LineScroll(g_pJsInfo->GetLineCount());
}

}  // namespace brindle
