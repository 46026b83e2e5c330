// The desktop toolkit behind the program, which has no window: outline fonts and PDF.
#pragma once

#include <memory>
#include <string>

#include "brindle/platform/graphics/paint_device.h"

namespace brindle::cli {

// Starts the toolkit without a display, once. False in a program that was built without it: texts
// in outline fonts aren't drawn then.
bool start_toolkit();

// A PDF of one page; null without the toolkit.
std::unique_ptr<FileDevice> make_pdf(const std::wstring& path, CSize size, double dpi);

}  // namespace brindle::cli
