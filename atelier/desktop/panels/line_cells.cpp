// The drawing has the last word: a cell shows what is drawn, not what was typed.
#include "atelier/desktop/panels/line_cells.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "atelier/desktop/panels/line_table.h"

namespace atelier::desktop {

LineCells::LineCells(LineTable& table) : QStyledItemDelegate(&table), table_(table) {}

QWidget* LineCells::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  auto* const edit = new QLineEdit(parent);
  edit->setFrame(false);
  connect(edit, &QLineEdit::textEdited, this,
          [this, edit, row = index.row(), column = index.column()](const QString& text) {
            const QString fault = table_.check(row, column, text);
            edit->setStyleSheet(fault.isEmpty() ? QString() : QStringLiteral("background: #ffd6d6; color: black"));
            edit->setToolTip(fault);
          });
  return edit;
}

void LineCells::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
  table_.change(index.row(), index.column(), static_cast<QLineEdit*>(editor)->text());
}

LineKeys::LineKeys(LineTable& table) : QObject(&table), table_(table) {}

bool LineKeys::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.matches(QKeySequence::Copy)) table_.copy();
  else if (key.matches(QKeySequence::Paste)) table_.paste();
  else if (key.key() == Qt::Key_Delete) table_.removeRows();
  else return false;
  return true;
}

}  // namespace atelier::desktop
