#include "brindle/platform/graphics/metafile_dc.h"

#include <cmath>
#include <string_view>

#include "brindle/platform/graphics/emf_device.h"
#include "brindle/platform/graphics/wmf_device.h"

namespace brindle {

namespace {

constexpr double kHundredthsPerInch = 2540;

// Two texts, each with its zero behind it, less the last zero.
std::wstring_view whole_description(LPCTSTR description) {
  if (description == nullptr) return {};
  const std::wstring_view program(description);
  const std::wstring_view picture(description + program.size() + 1);
  return {description, program.size() + 1 + picture.size()};
}

}  // namespace

CMetaFileDC::CMetaFileDC() = default;

CMetaFileDC::CMetaFileDC(PaintDevice& device) : CDC(device) {}

CMetaFileDC::~CMetaFileDC() {
  if (file_ != nullptr) DeleteDC();
}

BOOL CMetaFileDC::Create(std::unique_ptr<FileDevice> file) {
  if (file == nullptr || m_hDC != nullptr) return FALSE;
  file_ = std::move(file);
  return Attach(new DeviceContext(file_.get()));
}

BOOL CMetaFileDC::Create(LPCTSTR path, SIZE size, double dpi) {
  if (path == nullptr || *path == 0) return FALSE;
  return Create(std::make_unique<WmfDevice>(path, size, dpi));
}

BOOL CMetaFileDC::CreateEnhanced(CDC* reference, LPCTSTR path, LPCRECT bounds,
                                 LPCTSTR description) {
  if (path == nullptr || *path == 0) return FALSE;
  const int told = reference != nullptr ? reference->GetDeviceCaps(LOGPIXELSX) : 0;
  const double dpi = told > 0 ? told : 96;
  CSize size;
  if (bounds != nullptr) {
    const auto units = [=](int from, int to) {
      return static_cast<int>(std::lround((double(to) - from) * dpi / kHundredthsPerInch));
    };
    size = {units(bounds->left, bounds->right), units(bounds->top, bounds->bottom)};
  }
  return Create(std::make_unique<EmfDevice>(path, size, dpi, whole_description(description)));
}

BOOL CMetaFileDC::Close() {
  if (file_ == nullptr) return FALSE;
  DeleteDC();
  const bool written = file_->finish();
  file_.reset();
  return written;
}

}  // namespace brindle
