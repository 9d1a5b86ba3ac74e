// The vertices of a project line beside the drawing, and the manholes of its network, as the front-end lists them: edited by cells, checked as one types, exchanged with
// spreadsheets through the clipboard.
#pragma once
#include <QComboBox>
#include <QLabel>
#include <QTableWidget>
#include <functional>
#include <optional>

#include "atelier/desktop/document/drawing.h"

namespace atelier::desktop {

class LineTable : public QWidget {
 public:
  explicit LineTable(QWidget* parent);
  // Reads the drawing again, if the table is seen.
  void refresh(Drawing* drawing);
  // While a line is dragged: shows it as it would be, with the row of the vertex in hand.
  void follow();
  // Shows the line that a curve of the drawing is part of.
  void showLineOf(const QString& handle);
  // Why the cell can't have this text; empty when it can. Said under the table, too.
  QString check(int row, int column, const QString& text);
  void change(int row, int column, const QString& text);
  void copy();
  void paste();
  // Locks the value of a cell, or unlocks it.
  void toggleLock(int row, int column);
  void insertAfter(int row);
  void removeRows();

  QTableWidget& cells() { return *cells_; }
  QString said() const { return fault_->text(); }

  std::function<void(QString order)> onOrder;                   // a call that changes the drawing
  std::function<void(std::optional<AcGePoint3d> at)> onVertex;  // the row in hand, nowhere for none

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  struct Column {
    QString title, field;
    bool changes, locks;
    bool operator==(const Column&) const = default;
  };
  struct Line {
    QString title, handle, kind;
    bool operator==(const Line&) const = default;
  };
  void readLines();
  void readColumns();
  void readRows();
  void choose(const QString& handle, const QString& kind);
  void fill(const QVariantList& rows);
  void showVertex();
  void showMenu(const QPoint& at);
  void order(const QString& function, const QString& arguments);
  QString asked(int row, int column, const QString& text) const;
  const Line* line() const;
  // Of a vertex its number, of a manhole its name, as orders take them; and as users read them.
  QString rowKey(int row) const;
  QString rowName(int row) const;
  bool isVertex(int row) const;

  Drawing* drawing_ = nullptr;
  QComboBox* choice_;
  QTableWidget* cells_;
  QLabel* fault_;
  QVector<Column> columns_;
  QVector<Line> lines_;
  QVector<AcGePoint3d> places_;
  bool stale_ = true;
};

}  // namespace atelier::desktop
