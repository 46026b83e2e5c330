// Pages: PDF files and printers.
#pragma once

#include <memory>
#include <string>

#include "brindle/platform/graphics/paint_device.h"

namespace brindle {

// A PDF file of pages of `size` device units, `dpi` device units an inch. Text stays text. Hatch
// brushes are drawn as lines, raster operations that depend on what lies below as plain colour.
// The first page is there from the start: start_page() begins the next one from its second call on.
// Null while there is no QGuiApplication, and for an empty size or a dpi that isn't above 0.
std::unique_ptr<FileDevice> make_pdf_device(const wchar_t* path, CSize size, double dpi,
                                            const wchar_t* title = L"");

// What to print on and how.
struct PrintJob {
  std::wstring printer;   // its name; empty for the system's default
  std::wstring document;  // the name in the queue
  bool landscape = false;
};

// A printer's page; HORZRES and VERTRES tell its size in device units. finish() sends it off and
// tells whether the printer took it. A device that is destroyed unfinished prints nothing. Null
// when there is no QGuiApplication or no such printer.
std::unique_ptr<FileDevice> make_printer_device(const PrintJob& job);

}  // namespace brindle
