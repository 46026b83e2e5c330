#include "brindle/platform/qt/qt_system_look_internal.h"

#include "brindle/platform/qt/qt_units_internal.h"
#include "brindle/platform/qt/qt_window_peer_internal.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QToolTip>
#include <utility>

namespace brindle {
namespace {

constexpr int kPlainFontPixels = 12;  // 9 points of 96 to the inch

double g_zoom = 1;

COLORREF color_ref(const QColor& color) {
  return RGB(color.red(), color.green(), color.blue());
}

// `part` of the way from one colour to the other.
COLORREF between(const QColor& from, const QColor& to, double part) {
  const auto mixed = [part](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * part));
  };
  return RGB(mixed(from.red(), to.red()), mixed(from.green(), to.green()),
             mixed(from.blue(), to.blue()));
}

void tell_look() {
  set_system_colors(system_colors_of(QApplication::palette(), QToolTip::palette()));
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QFont font = QApplication::font();
  const double dpi = screen ? screen->logicalDotsPerInchY() : 96;
  const double pixels = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dpi / 72;
  const double zoom = std::clamp(std::round(pixels / kPlainFontPixels * 8) / 8, 1.0, 4.0);
  const bool zooms = std::exchange(g_zoom, zoom) != zoom;
  if (screen) set_screen_size(to_units(screen->size().width()), to_units(screen->size().height()));
  set_system_font(system_font_of(font, pixels));
  if (zooms) zoom_windows();
}

class LookWatcher : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == qApp && (event->type() == QEvent::ApplicationPaletteChange ||
                            event->type() == QEvent::ApplicationFontChange))
      tell_look();
    return false;
  }
};

}  // namespace

std::vector<SystemColor> system_colors_of(const QPalette& palette, const QPalette& tips) {
  const auto color = [&](QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
  };
  const QColor face = color(QPalette::Window), ink = color(QPalette::WindowText);
  // A palette's own shades are made for its style's bevels, and vanish on a dark face.
  const COLORREF shadow = between(face, ink, 0.35), frame = between(face, ink, 0.6);
  const COLORREF grey = readable_color(
      color_ref(palette.color(QPalette::Disabled, QPalette::WindowText)), color_ref(face));
  return {
      {COLOR_SCROLLBAR, between(face, ink, 0.12)},
      {COLOR_MENU, color_ref(face)},
      {COLOR_MENUBAR, color_ref(face)},
      {COLOR_MENUTEXT, color_ref(ink)},
      {COLOR_MENUHILIGHT, color_ref(color(QPalette::Highlight))},
      {COLOR_WINDOW, color_ref(color(QPalette::Base))},
      {COLOR_WINDOWTEXT, color_ref(color(QPalette::Text))},
      {COLOR_WINDOWFRAME, frame},
      {COLOR_APPWORKSPACE, shadow},
      {COLOR_HIGHLIGHT, color_ref(color(QPalette::Highlight))},
      {COLOR_HIGHLIGHTTEXT, color_ref(color(QPalette::HighlightedText))},
      {COLOR_BTNFACE, color_ref(face)},
      {COLOR_BTNTEXT, color_ref(ink)},
      {COLOR_BTNSHADOW, shadow},
      {COLOR_BTNHIGHLIGHT, color_ref(color(QPalette::Light))},
      {COLOR_3DDKSHADOW, frame},
      {COLOR_3DLIGHT, color_ref(color(QPalette::Midlight))},
      {COLOR_GRAYTEXT, grey},
      {COLOR_INFOTEXT, color_ref(tips.color(QPalette::ToolTipText))},
      {COLOR_INFOBK, color_ref(tips.color(QPalette::ToolTipBase))},
      {COLOR_HOTLIGHT, color_ref(color(QPalette::Link))},
  };
}

double system_zoom() {
  return g_zoom;
}

LOGFONT system_font_of(const QFont& font, double pixels) {
  LOGFONT result;
  // What is more than the plain size is in the units.
  result.lfHeight = -std::clamp(static_cast<int>(std::lround(pixels)), 1, kPlainFontPixels);
  result.lfWeight = font.weight();
  result.lfItalic = font.italic();
  result.lfCharSet = GB2312_CHARSET;
  result.lfPitchAndFamily = VARIABLE_PITCH;
  const std::wstring face = font.family().toStdWString();
  std::copy_n(face.begin(), std::min<size_t>(face.size(), LF_FACESIZE - 1), result.lfFaceName);
  return result;
}

void follow_system_look() {
  qApp->installEventFilter(new LookWatcher(qApp));
  QObject::connect(qApp, &QGuiApplication::primaryScreenChanged, qApp, [] { tell_look(); });
  tell_look();
}

}  // namespace brindle
