// The drawing objects that are always there.
#include <memory>

#include "brindle/platform/graphics/gdi_objects.h"

namespace brindle {
namespace {

constexpr int kStockObjects = DEFAULT_GUI_FONT + 1;

LOGFONT font(int height, const wchar_t* face, BYTE pitch) {
  LOGFONT font;
  font.lfHeight = height;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = GB2312_CHARSET;
  font.lfPitchAndFamily = pitch;
  for (int i = 0; face[i] != 0; ++i) font.lfFaceName[i] = face[i];
  return font;
}

std::unique_ptr<CGdiObject> brush_of(int style, COLORREF color) {
  auto brush = std::make_unique<CBrush>();
  const LOGBRUSH data{static_cast<UINT>(style), color, 0};
  brush->CreateBrushIndirect(&data);
  return brush;
}

std::unique_ptr<CGdiObject> font_of(const LOGFONT& data) {
  auto font = std::make_unique<CFont>();
  font->CreateFontIndirect(&data);
  return font;
}

std::unique_ptr<CGdiObject> make(int index) {
  switch (index) {
    case WHITE_BRUSH:
      return brush_of(BS_SOLID, RGB(255, 255, 255));
    case LTGRAY_BRUSH:
      return brush_of(BS_SOLID, RGB(192, 192, 192));
    case GRAY_BRUSH:
      return brush_of(BS_SOLID, RGB(128, 128, 128));
    case DKGRAY_BRUSH:
      return brush_of(BS_SOLID, RGB(64, 64, 64));
    case BLACK_BRUSH:
      return brush_of(BS_SOLID, RGB(0, 0, 0));
    case NULL_BRUSH:
      return brush_of(BS_NULL, 0);
    case WHITE_PEN:
      return std::make_unique<CPen>(PS_SOLID, 0, RGB(255, 255, 255));
    case BLACK_PEN:
      return std::make_unique<CPen>(PS_SOLID, 0, RGB(0, 0, 0));
    case NULL_PEN:
      return std::make_unique<CPen>(PS_NULL, 0, RGB(0, 0, 0));
    case OEM_FIXED_FONT:
    case ANSI_FIXED_FONT:
    case SYSTEM_FIXED_FONT:
      return font_of(font(16, L"Courier New", FIXED_PITCH | FF_MODERN));
    case SYSTEM_FONT:
    case DEVICE_DEFAULT_FONT:
      return font_of(font(16, L"System", VARIABLE_PITCH | FF_SWISS));
    case ANSI_VAR_FONT:
    case DEFAULT_GUI_FONT:
      return font_of(font(-12, L"宋体", VARIABLE_PITCH));
    default:
      return nullptr;
  }
}

}  // namespace

// Never destroyed, so that device contexts of static life can still let go of them.
CGdiObject* stock_object(int index) {
  struct Objects {
    std::unique_ptr<CGdiObject> all[kStockObjects];
    Objects() {
      for (int i = 0; i < kStockObjects; ++i) {
        all[i] = make(i);
        if (all[i] != nullptr) all[i]->stays_ = true;
      }
    }
  };
  static const Objects& objects = *new Objects;
  return index >= 0 && index < kStockObjects ? objects.all[index].get() : nullptr;
}

void set_default_gui_font(const LOGFONT& font) {
  static_cast<CFont*>(stock_object(DEFAULT_GUI_FONT))->CreateFontIndirect(&font);
}

HGDIOBJ GetStockObject(int index) {
  const CGdiObject* object = stock_object(index);
  return object != nullptr ? object->m_hObject : nullptr;
}

}  // namespace brindle
