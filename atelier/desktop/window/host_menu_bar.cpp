// Running commands change the menus; they are built again when the event loop is reached.
#include "atelier/desktop/window/host_menu_bar.h"

#include <QTimer>

#include "atelier/plugin/host_menus.h"

namespace atelier::desktop {

HostMenuBar::HostMenuBar(QMenuBar& bar, QAction* before, Run run) : bar_(bar), before_(before), run_(std::move(run)) {
  hostMenus().onChange = [this] { QTimer::singleShot(0, &bar_, [this] { rebuild(); }); };
}

HostMenuBar::~HostMenuBar() { hostMenus().onChange = nullptr; }

void HostMenuBar::rebuild() {
  for (QMenu* menu : menus_) {
    bar_.removeAction(menu->menuAction());
    menu->deleteLater();
  }
  menus_.clear();
  for (const PopupMenu* popup : hostMenus().bar()) {
    auto* menu = new QMenu(QString::fromStdWString(popup->name()), &bar_);
    for (const auto& item : popup->items()) {
      if (item->isSeparator()) {
        menu->addSeparator();
        continue;
      }
      QAction* action = menu->addAction(QString::fromStdWString(item->label));
      QObject::connect(action, &QAction::triggered, &bar_,
                       [this, label = action->text().remove('&'), macro = item->macro] {
                         run_(label.toStdString(), linesOfMacro(macro));
                       });
    }
    bar_.insertMenu(before_, menu);
    menus_.push_back(menu);
  }
}

}  // namespace atelier::desktop
