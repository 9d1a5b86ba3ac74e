// The fields of the selected entities, which can be changed, and the keys that applications have stored with one.
#pragma once
#include <QTableWidget>
#include <functional>

#include "atelier/desktop/document/drawing.h"

namespace atelier::desktop {

class PropertiesPanel : public QTableWidget {
 public:
  explicit PropertiesPanel(QWidget* parent);
  void show(Drawing* drawing, const std::vector<AcDbStub*>& selection);
  // Begins to edit a field by its name; false when what is selected has none that can be changed.
  bool editField(const QString& name);
  // A typed value of the field with that group code, for the shown entities, whose handles are a list as AutoLISP reads it.
  std::function<void(const QString& handles, int code, const QString& value)> onChange;

 private:
  QString handles_;
  bool showing_ = false;
};

}  // namespace atelier::desktop
