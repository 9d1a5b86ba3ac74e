// (plv-bureau-proprietes handle) gives the fields as (name value) pairs.
#include "atelier/desktop/panels/properties_panel.h"

#include <QHeaderView>

#include "atelier/base/text.h"
#include "atelier/desktop/document/lisp_bridge.h"

namespace atelier::desktop {

PropertiesPanel::PropertiesPanel(QWidget* parent) : QTableWidget(0, 2, parent) {
  setHorizontalHeaderLabels({QStringLiteral("Propriété"), QStringLiteral("Valeur")});
  horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setAlternatingRowColors(true);
  setAccessibleName(QStringLiteral("Propriétés"));
}

void PropertiesPanel::show(Drawing* drawing, const std::vector<AcDbStub*>& selection) {
  QVariantList rows;
  if (drawing && selection.size() == 1)
    rows = ask(drawing->document(),
               QString("(plv-bureau-proprietes \"%1\")").arg(QString::fromStdString(handleText(selection[0]->handle))))
               .toList();
  else if (selection.size() > 1) rows = {QVariantList{QStringLiteral("Objets"), QString::number(selection.size())}};
  setRowCount(static_cast<int>(rows.size()));
  for (int i = 0; i < rows.size(); ++i)
    for (int column = 0; column < 2; ++column) {
      auto* item = new QTableWidgetItem(rows[i].toList().value(column).toString());
      item->setToolTip(item->text());
      setItem(i, column, item);
    }
}

}  // namespace atelier::desktop
