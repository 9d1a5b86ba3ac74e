// The fields of the selected entity and the keys that applications have stored with it.
#pragma once
#include <QTableWidget>

#include "atelier/desktop/document/drawing.h"

namespace atelier::desktop {

class PropertiesPanel : public QTableWidget {
 public:
  explicit PropertiesPanel(QWidget* parent);
  void show(Drawing* drawing, const std::vector<AcDbStub*>& selection);
};

}  // namespace atelier::desktop
