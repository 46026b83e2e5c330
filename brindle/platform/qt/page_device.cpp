#include "brindle/platform/qt/page_device.h"

#include "brindle/platform/qt/page_painter_internal.h"
#include "brindle/platform/qt/qt_glyph_renderer_internal.h"

#include <cmath>
#include <QBuffer>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace brindle {
namespace {

bool gui_application_runs() {
  return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

class PdfDevice final : public PagePainter {
 public:
  PdfDevice(const wchar_t* path, CSize size, double dpi, const wchar_t* title)
      : PagePainter(size, dpi), path_(path), writer_(&bytes_) {
    constexpr double kPointsPerInch = 72;
    const int resolution = std::max(static_cast<int>(std::lround(dpi)), 1);
    bytes_.open(QIODevice::WriteOnly);
    writer_.setResolution(resolution);
    writer_.setTitle(QString::fromWCharArray(title));
    const QSizeF points(size.cx * kPointsPerInch / dpi, size.cy * kPointsPerInch / dpi);
    writer_.setPageLayout({QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
                           QPageLayout::Portrait, QMarginsF()});
    painting_ = begin(writer_, resolution / dpi);
  }
  ~PdfDevice() override { end(); }

  bool finish() override {
    if (!painting_ || finished_) return false;
    finished_ = true;
    if (!end()) return false;
    const QByteArray& bytes = bytes_.data();
    return write_whole_file(path_.c_str(), {bytes.constData(), std::size_t(bytes.size())});
  }

 private:
  std::wstring path_;
  QBuffer bytes_;
  QPdfWriter writer_;
  bool painting_ = false, finished_ = false;
};

class PrinterDevice final : public PagePainter {
 public:
  explicit PrinterDevice(std::unique_ptr<QPrinter> printer)
      : PagePainter({printer->width(), printer->height()}, printer->resolution()),
        printer_(std::move(printer)) {
    painting_ = begin(*printer_, 1);
  }
  ~PrinterDevice() override {
    if (painting_ && !finished_) printer_->abort();
    end();
  }

  bool finish() override {
    if (!painting_ || finished_) return false;
    finished_ = true;
    return end() && printer_->printerState() != QPrinter::Error &&
           printer_->printerState() != QPrinter::Aborted;
  }

 private:
  std::unique_ptr<QPrinter> printer_;
  bool painting_ = false, finished_ = false;
};

}  // namespace

std::unique_ptr<FileDevice> make_pdf_device(const wchar_t* path, CSize size, double dpi,
                                            const wchar_t* title) {
  if (!gui_application_runs() || size.cx <= 0 || size.cy <= 0 || !(dpi > 0)) return nullptr;
  substitute_chinese_faces();
  return std::make_unique<PdfDevice>(path, size, dpi, title);
}

std::unique_ptr<FileDevice> make_printer_device(const PrintJob& job) {
  if (!gui_application_runs()) return nullptr;
  const QPrinterInfo info = job.printer.empty()
                                ? QPrinterInfo::defaultPrinter()
                                : QPrinterInfo::printerInfo(QString::fromStdWString(job.printer));
  if (info.isNull()) return nullptr;
  substitute_chinese_faces();
  auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  printer->setDocName(QString::fromStdWString(job.document));
  printer->setPageOrientation(job.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  return std::make_unique<PrinterDevice>(std::move(printer));
}

}  // namespace brindle
