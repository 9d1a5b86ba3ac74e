// (plv-bureau-ligne handle kind) gives (number-or-name run lock (x y) texts columns-that-stay) for each vertex and manhole. A change is an
// order of the window: one step of undo, refused as a whole.
#include "atelier/desktop/panels/line_table.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/panels/line_cells.h"

namespace atelier::desktop {
namespace {

constexpr int kRow = Qt::UserRole;  // the number of a vertex, or the name of a manhole
constexpr int kSeenRows = 6;        // at least, the titles among them
const QColor kLocked(255, 236, 170);

QStringList fieldsOf(const QString& line) { return line.contains('\t') ? line.split('\t') : line.split(';'); }

}  // namespace

LineTable::LineTable(QWidget* parent) : QWidget(parent) {
  choice_ = new QComboBox(this);
  choice_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  choice_->setAccessibleName(QStringLiteral("Ligne"));
  cells_ = new QTableWidget(this);
  cells_->setAccessibleName(QStringLiteral("Sommets"));
  cells_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  cells_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed |
                          QAbstractItemView::EditKeyPressed);
  cells_->setAlternatingRowColors(true);
  cells_->setContextMenuPolicy(Qt::CustomContextMenu);
  cells_->setItemDelegate(new LineCells(*this));
  cells_->installEventFilter(new LineKeys(*this));
  fault_ = new QLabel(this);
  fault_->setStyleSheet(QStringLiteral("color: #b00020"));
  auto* const layout = new QVBoxLayout(this);
  auto* const head = new QHBoxLayout;
  head->addWidget(choice_);
  head->addWidget(fault_, 1);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(head);
  layout->addWidget(cells_);
  cells_->setMinimumHeight((fontMetrics().height() + 6) * kSeenRows);
  connect(choice_, &QComboBox::activated, this, [this] { readRows(); });
  connect(cells_, &QTableWidget::currentCellChanged, this, [this] { showVertex(); });
  connect(cells_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) { showMenu(at); });
}

void LineTable::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (stale_) refresh(drawing_);
}

void LineTable::refresh(Drawing* drawing) {
  drawing_ = drawing;
  stale_ = !isVisible();
  if (stale_) return;
  readLines();
  readRows();
}

void LineTable::readLines() {
  QVector<Line> now;
  if (drawing_)
    for (const QVariant& each : ask(drawing_->document(), "(plv-bureau-lignes)").toList()) {
      const QVariantList parts = each.toList();
      now.push_back({parts.value(0).toString(), parts.value(1).toString(), parts.value(2).toString()});
    }
  if (now == lines_) return;
  const Line before = line() ? *line() : Line();
  lines_ = now;
  choice_->clear();
  for (const Line& each : lines_) choice_->addItem(each.title);
  choice_->setCurrentIndex(std::max<int>(static_cast<int>(lines_.indexOf(before)), lines_.isEmpty() ? -1 : 0));
}

void LineTable::readColumns() {
  const Line* const shown = line();
  if (!shown) return;
  QVector<Column> now;
  QStringList titles;
  for (const QVariant& each :
       ask(drawing_->document(), QString("(plv-bureau-champs %1 %2)").arg(quoted(shown->handle), quoted(shown->kind)))
           .toList()) {
    const QVariantList parts = each.toList();
    now.push_back({parts.value(0).toString(), parts.value(1).toString(), parts.value(2).toInt() != 0,
                   parts.value(3).toInt() != 0});
    titles << now.back().title;
  }
  if (now == columns_) return;
  columns_ = now;
  const QSignalBlocker quiet(cells_);
  cells_->setColumnCount(static_cast<int>(titles.size()));
  cells_->setHorizontalHeaderLabels(titles);
}

void LineTable::readRows() {
  readColumns();
  const Line* const shown = line();
  fill(shown ? ask(drawing_->document(),
                   QString("(plv-bureau-ligne %1 %2)").arg(quoted(shown->handle), quoted(shown->kind)))
                   .toList()
             : QVariantList());
}

void LineTable::follow() {
  if (!drawing_ || !isVisible()) return;
  const QVariantList dragged = ask(drawing_->document(), "(plv-bureau-ligne-suivie)").toList();
  if (dragged.size() != 3) return;
  choose(dragged[0].toString(), dragged[1].toString());
  readRows();
  for (int row = 0; row < cells_->rowCount(); ++row)
    if (rowKey(row) == dragged[2].toString() && row != cells_->currentRow())
      cells_->setCurrentCell(row, std::max(0, cells_->currentColumn()));
}

// The cell in hand stays in hand.
void LineTable::fill(const QVariantList& rows) {
  const QSignalBlocker quiet(cells_);
  const int row = cells_->currentRow(), column = cells_->currentColumn();
  places_.clear();
  fault_->clear();
  cells_->setRowCount(static_cast<int>(rows.size()));
  for (int i = 0; i < rows.size(); ++i) {
    const QVariantList parts = rows[i].toList(), place = parts.value(3).toList(), texts = parts.value(4).toList();
    places_.push_back({place.value(0).toDouble(), place.value(1).toDouble(), 0});
    const QVariantList fixed = parts.value(5).toList();
    auto* const head = new QTableWidgetItem(parts.value(0).toString());
    head->setData(kRow, parts.value(0));
    cells_->setVerticalHeaderItem(i, head);
    for (int j = 0; j < columns_.size(); ++j) {
      auto* const item = new QTableWidgetItem(texts.value(j).toString());
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (!columns_[j].changes || fixed.contains(j)) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
      if (parts.value(2).toInt() == j) {
        item->setBackground(kLocked);
        item->setForeground(Qt::black);
        item->setToolTip(QStringLiteral("Valeur verrouillée"));
      }
      cells_->setItem(i, j, item);
    }
  }
  cells_->resizeColumnsToContents();
  if (row >= 0 && row < rows.size()) cells_->setCurrentCell(row, std::max(0, column));
  if (cells_->hasFocus()) showVertex();
  else if (onVertex) onVertex({});
}

const LineTable::Line* LineTable::line() const {
  const int at = choice_->currentIndex();
  return at >= 0 && at < lines_.size() ? &lines_[at] : nullptr;
}

bool LineTable::isVertex(int row) const {
  return cells_->verticalHeaderItem(row)->data(kRow).typeId() != QMetaType::QString;
}

QString LineTable::rowKey(int row) const {
  const QString text = cells_->verticalHeaderItem(row)->data(kRow).toString();
  return isVertex(row) ? text : quoted(text);
}

QString LineTable::rowName(int row) const {
  return (isVertex(row) ? QStringLiteral("Sommet %1") : QStringLiteral("Regard %1"))
      .arg(cells_->verticalHeaderItem(row)->text());
}

void LineTable::showLineOf(const QString& handle) {
  if (!drawing_ || !isVisible()) return;
  const QVariantList found =
      ask(drawing_->document(), QString("(plv-bureau-ligne-de %1)").arg(quoted(handle))).toList();
  if (found.size() == 2) choose(found[0].toString(), found[1].toString());
}

void LineTable::choose(const QString& handle, const QString& kind) {
  for (int i = 0; i < lines_.size(); ++i)
    if (lines_[i].handle == handle && lines_[i].kind == kind && i != choice_->currentIndex()) {
      choice_->setCurrentIndex(i);
      readRows();
    }
}

void LineTable::showVertex() {
  const int row = cells_->currentRow();
  if (onVertex) onVertex(row >= 0 && row < places_.size() ? std::optional(places_[row]) : std::nullopt);
}

QString LineTable::asked(int row, int column, const QString& text) const {
  return QString("(%1 %2 %3)").arg(rowKey(row), quoted(columns_[column].field), quoted(text));
}

QString LineTable::check(int row, int column, const QString& text) {
  const Line* const shown = line();
  if (!shown || !drawing_) return {};
  const QString fault =
      ask(drawing_->document(), QString("(plv-bureau-ligne-faute %1 %2 '(%3))")
                                    .arg(quoted(shown->handle), quoted(shown->kind), asked(row, column, text)))
          .toString();
  fault_->setText(fault.isEmpty() ? QString() : rowName(row) + " : " + fault);
  return fault;
}

void LineTable::order(const QString& function, const QString& arguments) {
  const Line* const shown = line();
  if (shown && onOrder)
    onOrder(QString("(%1 %2 %3 %4)").arg(function, quoted(shown->handle), quoted(shown->kind), arguments));
}

void LineTable::change(int row, int column, const QString& text) {
  if (text == cells_->item(row, column)->text() || !check(row, column, text).isEmpty()) return;
  order("plv-bureau-ligne-corriger", QString("'(%1)").arg(asked(row, column, text)));
}

void LineTable::toggleLock(int row, int column) {
  const bool locked = cells_->item(row, column)->background() == QBrush(kLocked);
  order("plv-bureau-ligne-verrouiller",
        QString("%1 %2").arg(rowKey(row), locked ? QString("nil") : quoted(columns_[column].field)));
}

void LineTable::insertAfter(int row) { order("plv-bureau-ligne-inserer", rowKey(row)); }

void LineTable::removeRows() {
  QStringList rows;
  for (const QModelIndex& index : cells_->selectionModel()->selectedRows()) rows << rowKey(index.row());
  if (rows.isEmpty() && cells_->currentRow() >= 0) rows << rowKey(cells_->currentRow());
  order("plv-bureau-ligne-supprimer", QString("'(%1)").arg(rows.join(' ')));
}

// Several cells as they are; one cell or all of them as the whole line, with titles, as paste takes it back.
void LineTable::copy() {
  const auto ranges = cells_->selectedRanges();
  const bool some = ranges.size() == 1 && (ranges[0].rowCount() > 1 || ranges[0].columnCount() > 1) &&
                    (ranges[0].rowCount() < cells_->rowCount() || ranges[0].columnCount() < cells_->columnCount());
  QStringList rows;
  if (some)
    for (int i = ranges[0].topRow(); i <= ranges[0].bottomRow(); ++i) {
      QStringList texts;
      for (int j = ranges[0].leftColumn(); j <= ranges[0].rightColumn(); ++j) texts << cells_->item(i, j)->text();
      rows << texts.join('\t');
    }
  else if (const Line* const shown = line())
    rows << ask(drawing_->document(),
                QString("(plv-bureau-ligne-texte %1 %2)").arg(quoted(shown->handle), quoted(shown->kind)))
                .toString();
  QGuiApplication::clipboard()->setText(rows.join('\n'));
}

// Behind a line of titles it is a whole line of vertices; else cells from the current one on.
void LineTable::paste() {
  QStringList rows = QGuiApplication::clipboard()->text().split('\n');
  for (QString& row : rows) row.remove('\r');
  while (!rows.isEmpty() && rows.back().isEmpty()) rows.removeLast();
  if (rows.isEmpty()) return;
  if (rows[0].startsWith(QStringLiteral("station"), Qt::CaseInsensitive)) {
    QStringList lines;
    for (const QString& row : rows) lines << quoted(QStringList(fieldsOf(row).mid(0, 4)).join(';'));
    return order("plv-bureau-ligne-remplacer", QString("'(%1)").arg(lines.join(' ')));
  }
  QStringList changes;
  for (int i = 0; i < rows.size() && cells_->currentRow() + i < cells_->rowCount(); ++i) {
    const QStringList texts = fieldsOf(rows[i]);
    for (int j = 0; j < texts.size() && cells_->currentColumn() + j < columns_.size(); ++j) {
      const int row = cells_->currentRow() + i, column = cells_->currentColumn() + j;
      if ((cells_->item(row, column)->flags() & Qt::ItemIsEditable) && texts[j] != cells_->item(row, column)->text())
        changes << asked(row, column, texts[j]);
    }
  }
  if (!changes.isEmpty()) order("plv-bureau-ligne-corriger", QString("'(%1)").arg(changes.join(' ')));
}

void LineTable::showMenu(const QPoint& at) {
  const QTableWidgetItem* const item = cells_->itemAt(at);
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto entry = [&](const QString& text, std::function<void()> action) {
    connect(menu->addAction(text), &QAction::triggered, this, std::move(action));
  };
  if (item) {
    const int row = item->row(), column = item->column();
    if (columns_[column].locks && isVertex(row))
      entry(item->toolTip().isEmpty() ? QStringLiteral("Verrouiller cette valeur") : QStringLiteral("Déverrouiller"),
            [this, row, column] { toggleLock(row, column); });
    entry(isVertex(row) ? QStringLiteral("Insérer un sommet après") : QStringLiteral("Insérer un sommet à ce regard"),
          [this, row] { insertAfter(row); });
    entry(isVertex(row) ? QStringLiteral("Supprimer le sommet") : QStringLiteral("Supprimer le regard"),
          [this] { removeRows(); });
    menu->addSeparator();
  }
  entry(QStringLiteral("Copier"), [this] { copy(); });
  entry(QStringLiteral("Coller"), [this] { paste(); });
  menu->popup(cells_->viewport()->mapToGlobal(at));
}

}  // namespace atelier::desktop
