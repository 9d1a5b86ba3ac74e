// (plv-bureau-proprietes handles) gives the fields as (name value code), the code nil for what is only shown.
#include "atelier/desktop/panels/properties_panel.h"

#include <QHeaderView>

#include "atelier/base/text.h"
#include "atelier/desktop/document/lisp_bridge.h"

namespace atelier::desktop {
namespace {

constexpr int kCode = Qt::UserRole;

}  // namespace

PropertiesPanel::PropertiesPanel(QWidget* parent) : QTableWidget(0, 2, parent) {
  setHorizontalHeaderLabels({QStringLiteral("Propriété"), QStringLiteral("Valeur")});
  horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  setEditTriggers(DoubleClicked | EditKeyPressed);
  setSelectionBehavior(SelectRows);
  setAlternatingRowColors(true);
  setAccessibleName(QStringLiteral("Propriétés"));
  connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
    if (showing_ || !onChange || item->data(kCode).isNull()) return;
    onChange(handles_, item->data(kCode).toInt(), item->text());
  });
}

void PropertiesPanel::show(Drawing* drawing, const std::vector<AcDbStub*>& selection) {
  QStringList handles;
  for (const AcDbStub* const stub : selection) handles << quoted(QString::fromStdString(handleText(stub->handle)));
  handles_ = "'(" + handles.join(' ') + ')';
  QVariantList rows;
  if (drawing && !handles.isEmpty())
    rows = ask(drawing->document(), "(plv-bureau-proprietes " + handles_ + ')').toList();
  showing_ = true;
  setRowCount(static_cast<int>(rows.size()));
  for (int i = 0; i < rows.size(); ++i)
    for (int column = 0; column < 2; ++column) {
      auto* item = new QTableWidgetItem(rows[i].toList().value(column).toString());
      item->setToolTip(item->text());
      const QVariant code = rows[i].toList().value(2);
      const bool editable = column == 1 && code.isValid() && code.toInt() != 0;
      if (editable) item->setData(kCode, code);
      else item->setFlags(item->flags() & ~Qt::ItemIsEditable);
      setItem(i, column, item);
    }
  showing_ = false;
}

bool PropertiesPanel::editField(const QString& name) {
  for (int row = 0; row < rowCount(); ++row)
    if (item(row, 0)->text() == name && !item(row, 1)->data(kCode).isNull()) {
      setCurrentCell(row, 1);
      setFocus();
      editItem(item(row, 1));
      return true;
    }
  return false;
}

}  // namespace atelier::desktop
