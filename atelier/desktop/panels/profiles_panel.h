// The profiles of the drawing: planes, kinds of line, matrices and rows, as listed by the front-end.
#pragma once
#include <QTreeWidget>
#include <functional>

#include "atelier/desktop/document/drawing.h"

namespace atelier::desktop {

class ProfilesPanel : public QTreeWidget {
 public:
  explicit ProfilesPanel(QWidget* parent);
  void refresh(Drawing* drawing);

  // Marks the current profile; its number in words for the status bar, empty for none.
  QString showCurrent(Drawing* drawing);

  std::function<void(QString handle)> onShow;    // a click: answers a prompt for objects, else zooms and selects
  std::function<void(QString handle)> onChoose;  // a double click on a profile, or its menu
  std::function<void(QString handle, QString operation)> onOperate;  // of a profile's menu, in PLV-PROFIL's words

 private:
  void showMenu(const QPoint& at);
  QVariant shown_;
};

}  // namespace atelier::desktop
