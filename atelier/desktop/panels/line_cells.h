// The editor of a cell of the table of vertices, and the keys of its cells.
#pragma once
#include <QStyledItemDelegate>

namespace atelier::desktop {

class LineTable;

// A text that can't be a value is red while it is typed, and isn't taken.
class LineCells final : public QStyledItemDelegate {
 public:
  explicit LineCells(LineTable& table);
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

 private:
  LineTable& table_;
};

// Ctrl+C, Ctrl+V and Delete.
class LineKeys final : public QObject {
 public:
  explicit LineKeys(LineTable& table);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  LineTable& table_;
};

}  // namespace atelier::desktop
