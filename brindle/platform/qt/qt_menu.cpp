#include "brindle/platform/qt/qt_menu_internal.h"

#include "brindle/platform/qt/qt_units_internal.h"
#include "brindle/platform/qt/qt_window_internal.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/wnd.h"

#include <cmath>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <vector>

namespace brindle {
namespace {

bool is_grey(const CMenu::Item& item) {
  return (item.flags & (MF_GRAYED | MF_DISABLED)) != 0;
}

void tell_popup(CWnd* told, CMenu& popup, UINT index) {
  if (told != nullptr && told->m_hWnd != nullptr)
    told->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.m_hMenu),
                      static_cast<LPARAM>(index));
}

}  // namespace

void fill_menu(QMenu& menu, CMenu& from, CWnd* told) {
  UINT index = 0;
  for (const CMenu::Item& item : std::vector<CMenu::Item>(from.items())) {
    const QString text = QString::fromStdWString(item.text);
    if (item.popup) {
      tell_popup(told, *item.popup, index);
      QMenu* popup = menu.addMenu(text);
      popup->setEnabled(!is_grey(item));
      fill_menu(*popup, *item.popup, told);
    } else if ((item.flags & MF_SEPARATOR) != 0) {
      menu.addSeparator();
    } else {
      QAction* action = menu.addAction(text);
      action->setData(item.id);
      action->setEnabled(!is_grey(item));
      action->setCheckable((item.flags & MF_CHECKED) != 0);
      action->setChecked((item.flags & MF_CHECKED) != 0);
      if ((item.flags & MF_DEFAULT) != 0) menu.setDefaultAction(action);
    }
    ++index;
  }
}

int QtWindow::set_menu(CMenu* menu) {
  if (menu == nullptr) {
    delete menu_bar_;
    menu_bar_ = nullptr;
    return 0;
  }
  if (menu_bar_ == nullptr) {
    menu_bar_ = new QMenuBar(this);
    menu_bar_->setNativeMenuBar(false);
    menu_bar_->setCursor(Qt::ArrowCursor);
    connect(menu_bar_, &QMenuBar::triggered, this, [this](const QAction* action) {
      if (window_ != nullptr && action->data().toUInt() != 0)
        PostMessage(window_->m_hWnd, WM_COMMAND, action->data().toUInt(), 0);
    });
  }
  menu_bar_->clear();
  UINT index = 0;
  for (const CMenu::Item& item : menu->items()) {
    const QString text = QString::fromStdWString(item.text);
    if (item.popup) {
      QMenu* popup = menu_bar_->addMenu(text);
      popup->setEnabled(!is_grey(item));
      // The items as they are when the popup opens.
      connect(popup, &QMenu::aboutToShow, this, [this, popup, index, from = item.popup] {
        tell_popup(window_, *from, index);
        popup->clear();
        fill_menu(*popup, *from, window_);
      });
      fill_menu(*popup, *item.popup, nullptr);
    } else if ((item.flags & MF_SEPARATOR) == 0) {
      QAction* action = menu_bar_->addAction(text);
      action->setData(item.id);
      action->setEnabled(!is_grey(item));
    }
    ++index;
  }
  const int height = static_cast<int>(std::ceil(menu_bar_->sizeHint().height() / system_zoom()));
  menu_bar_->setGeometry(0, 0, width(), to_pixels(height));
  menu_bar_->show();
  return height;
}

}  // namespace brindle
