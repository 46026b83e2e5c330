// NewMemDxf: a pen whose drawing has the standard tables.
#include <memory>
#include <new>

#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {
namespace {

// Dimensions by paper sizes: the scale of a dimension multiplies them all.
constexpr double kStrokeWidth_mm = 0.5, kStrokeSize_mm = 2.0;
constexpr double kLineOver = 0;  // dimension line beyond the extension lines: none
constexpr double kExtensionOver_mm = 2.5;
constexpr double kExtensionGap_mm = 2.0;  // what is measured to the extension line
constexpr double kTextGap_mm = 0.5;
constexpr double kArrowSize = 1.0;  // the block has its paper size
constexpr double kTextHeight_mm = 3.0;
constexpr double kOverallScale = 100.0;
constexpr double kLengthFactor = 1.0, kRounding = 0;
constexpr int kDecimals = 0, kTextColor = 7;

}  // namespace

CBase_SGT* NewMemDxf(CBase_SGT* from) {
  std::unique_ptr<CBase_SGT> pen(new (std::nothrow) CBase_SGT);
  if (pen == nullptr || pen->New_MemDxf() == 0) return nullptr;
  pen->Add_STyle(L"HZ", L"txt", L"hztxt", 0, 0.75);
  pen->Add_DimBlock(L"ARCHITECTURE", static_cast<float>(kStrokeWidth_mm),
                    static_cast<float>(kStrokeSize_mm), 0, 0, 0, 0, L"0", L"7", L"BYLAYER");
  pen->Add_DimStyle(L"QX", kLineOver, kExtensionOver_mm, kExtensionGap_mm, kTextGap_mm, kArrowSize,
                    kDecimals, L"STANDARD", kTextHeight_mm, L"ARCHITECTURE", kOverallScale,
                    kLengthFactor, kRounding, kTextColor);
  pen->Write_Tables();
  pen->Set_ENV(from);
  return pen.release();
}

}  // namespace brindle
