#include "atelier/desktop/forms/form_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <optional>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/file_choice.h"
#include "atelier/desktop/forms/form_picture.h"

namespace atelier::desktop {
namespace {

constexpr QSize kPicture(126, 36);
constexpr int kSeenChoices = 14, kWidest = 600, kScrollBar = 20;

// Cells of one of several words are edited with a list of them.
class ChoiceDelegate : public QStyledItemDelegate {
 public:
  ChoiceDelegate(QStringList words, const QMap<QString, QIcon>& icons, QObject* parent)
      : QStyledItemDelegate(parent), words_(std::move(words)), icons_(icons) {}
  void setWords(const QStringList& words) { words_ = words; }
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
    auto* box = new QComboBox(parent);
    for (const QString& word : words_) box->addItem(icons_.value(word), word);
    if (!icons_.isEmpty()) box->setIconSize(kPicture);
    box->setMaxVisibleItems(kSeenChoices);
    connect(box, &QComboBox::activated, box, [this, box] {
      auto* self = const_cast<ChoiceDelegate*>(this);
      emit self->commitData(box);
      emit self->closeEditor(box);
    });
    return box;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    static_cast<QComboBox*>(editor)->setCurrentText(index.data().toString());
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
    model->setData(index, static_cast<QComboBox*>(editor)->currentText());
  }

 private:
  QStringList words_;
  QMap<QString, QIcon> icons_;
};

class RowsField : public FormField {
 public:
  RowsField(const QVariant& columns, std::function<void()> changed, QWidget* parent)
      : box_(new QWidget(parent)), table_(new QTableWidget(box_)), changed_(std::move(changed)) {
    const QVariantList list = columns.toList();
    table_->setColumnCount(static_cast<int>(list.size()));
    QStringList titles;
    for (int i = 0; i < list.size(); ++i) {
      const QVariantList column = list[i].toList();
      titles << column.value(0).toString();
      if (column.value(1).toString() == "lire") files_ = FileColumn{i, column.value(2).toString()};
      if (column.value(1).toString() == "image") {
        giveWords(i, pictured(i, column.value(2).toList()));
      } else if (column.value(1).toString() == "mot") {
        giveWords(i, column.value(2).toStringList());
      } else {
        continue;
      }
      if (first_.size() <= i) first_.resize(i + 1);
      first_[i] = words_[i].value(0);
    }
    table_->setHorizontalHeaderLabels(titles);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->setSectionsMovable(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setMinimumHeight(200);
    layOut();
    QObject::connect(table_, &QTableWidget::itemChanged, table_, [this](QTableWidgetItem* item) {
      showPicture(*item);
      tell();
    });
    QObject::connect(table_->verticalHeader(), &QHeaderView::sectionMoved, table_, [this] { settle(); });
  }
  QWidget* widget() override { return box_; }
  QString answer() const override {
    QStringList rows;
    for (const QStringList& row : texts()) {
      QStringList cells;
      for (const QString& cell : row) cells << quoted(cell);
      rows << '(' + cells.join(' ') + ')';
    }
    return rows.isEmpty() ? "nil" : '(' + rows.join(' ') + ')';
  }
  void set(const QVariant& value) override {
    QList<QStringList> rows;
    for (const QVariant& row : value.toList()) rows << row.toStringList();
    fill(rows);
  }
  QVariant value() const override {
    QVariantList rows;
    for (const QStringList& row : texts()) rows << QVariant(row);
    return rows;
  }
  void choose(const QVariant& choices) override {
    for (const QVariant& each : choices.toList()) giveWords(each.toList().value(0).toInt(), each.toList().mid(1));
  }

 private:
  struct FileColumn {
    int column;
    QString filter;
  };

  // The words of choices that have pictures.
  QStringList pictured(int column, const QVariantList& choices) {
    QStringList words;
    for (const QVariant& choice : choices) {
      words << choice.toList().value(0).toString();
      icons_[column][words.back()] = QIcon(FormPicture::drawn(choice.toList().value(1), kPicture, *table_));
    }
    table_->setIconSize(kPicture);
    table_->verticalHeader()->setDefaultSectionSize(kPicture.height() + 2);
    return words;
  }

  void showPicture(QTableWidgetItem& item) {
    if (!icons_.contains(item.column())) return;
    const QSignalBlocker quiet(table_);
    item.setIcon(icons_[item.column()].value(item.text()));
  }

  void giveWords(int column, const QVariant& list) {
    const QStringList words = list.toStringList();
    if (words_.contains(column) && words_[column] == words) return;
    words_[column] = words;
    // An open editor still knows its delegate.
    if (auto* const delegate = dynamic_cast<ChoiceDelegate*>(table_->itemDelegateForColumn(column)))
      return delegate->setWords(words);
    table_->setItemDelegateForColumn(column, new ChoiceDelegate(words, icons_.value(column), table_));
  }

  void layOut() {
    auto* column = new QVBoxLayout(box_);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(table_, 1);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const char* words, auto action) {
      auto* button = new QPushButton(QString::fromUtf8(words), box_);
      button->setAutoDefault(false);
      buttons->addWidget(button);
      QObject::connect(button, &QPushButton::clicked, box_, action);
    };
    add("Ajouter", [this] { insert(); });
    add("Retirer", [this] { takeAway(); });
    add("Monter", [this] { move(-1); });
    add("Descendre", [this] { move(1); });
    if (files_) add("Fichier...", [this] { takeFile(); });
    buttons->addStretch(1);
    column->addLayout(buttons);
    const auto keys = [&](QKeySequence::StandardKey key, auto action) {
      auto* shortcut = new QShortcut(key, table_, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
      QObject::connect(shortcut, &QShortcut::activated, box_, action);
    };
    keys(QKeySequence::Copy, [this] { copy(); });
    keys(QKeySequence::Paste, [this] { paste(); });
  }

  // In the order in which they are shown.
  QList<QStringList> texts() const {
    QList<QStringList> rows;
    for (int i = 0; i < table_->rowCount(); ++i) {
      const int row = table_->verticalHeader()->logicalIndex(i);
      QStringList cells;
      for (int column = 0; column < table_->columnCount(); ++column) {
        const QTableWidgetItem* const item = table_->item(row, column);
        cells << (item ? item->text() : QString());
      }
      rows << cells;
    }
    return rows;
  }

  void fill(const QList<QStringList>& rows) {
    quiet_ = true;
    table_->setRowCount(0);
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rows.size(); ++row)
      for (int column = 0; column < table_->columnCount(); ++column)
        table_->setItem(row, column, new QTableWidgetItem(rows[row].value(column)));
    for (const int column : icons_.keys())
      for (int row = 0; row < rows.size(); ++row) showPicture(*table_->item(row, column));
    const int width = table_->horizontalHeader()->length() + table_->verticalHeader()->width() + kScrollBar;
    table_->setMinimumWidth(std::min(kWidest, width));
    quiet_ = false;
    tell();
  }

  void tell() const {
    if (!quiet_) changed_();
  }

  // Rows that were dragged take their numbers by their new places.
  void settle() {
    if (quiet_) return;
    const QList<QStringList> rows = texts();
    quiet_ = true;
    for (int i = 0; i < table_->rowCount(); ++i)
      table_->verticalHeader()->moveSection(table_->verticalHeader()->visualIndex(i), i);
    quiet_ = false;
    fill(rows);
  }

  int current() const { return std::max(0, table_->currentRow()); }

  void insert() {
    QList<QStringList> rows = texts();
    const int at = rows.isEmpty() ? 0 : current() + 1;
    QStringList row = rows.value(at - 1);
    if (row.isEmpty()) row = first_;
    rows.insert(at, row);
    fill(rows);
    table_->selectRow(at);
  }

  void takeAway() {
    QList<QStringList> rows = texts();
    QList<int> chosen;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows()) chosen << index.row();
    std::sort(chosen.rbegin(), chosen.rend());
    for (const int row : chosen) rows.removeAt(row);
    fill(rows);
  }

  void move(int by) {
    QList<QStringList> rows = texts();
    const int from = current(), to = from + by;
    if (from >= rows.size() || to < 0 || to >= rows.size()) return;
    rows.move(from, to);
    fill(rows);
    table_->selectRow(to);
  }

  // Of the row in hand, or of a new one.
  void takeFile() {
    const QString path =
        askFile(box_, FileUse::toRead, table_->horizontalHeaderItem(files_->column)->text(), files_->filter, {});
    if (path.isEmpty()) return;
    if (table_->currentRow() < 0) insert();
    table_->item(table_->currentRow(), files_->column)->setText(path);
  }

  void copy() const {
    QStringList lines;
    for (const QStringList& row : texts()) lines << row.join('\t');
    QApplication::clipboard()->setText(lines.join('\n'));
  }

  // Cells take the place of those from the current one on; rows are added as needed.
  void paste() {
    QList<QStringList> rows = texts();
    int row = table_->currentRow() < 0 ? static_cast<int>(rows.size()) : table_->currentRow();
    const int left = std::max(0, table_->currentColumn());
    for (const QString& line : QApplication::clipboard()->text().trimmed().split('\n')) {
      if (row >= rows.size()) rows << QStringList();
      rows[row].resize(table_->columnCount());
      const QStringList cells = line.split('\t');
      for (int i = 0; i < cells.size() && left + i < table_->columnCount(); ++i)
        rows[row][left + i] = cells[i].trimmed();
      ++row;
    }
    fill(rows);
  }

  QWidget* box_;
  QTableWidget* table_;
  std::function<void()> changed_;
  QStringList first_;
  QMap<int, QStringList> words_;
  QMap<int, QMap<QString, QIcon>> icons_;
  std::optional<FileColumn> files_;
  bool quiet_ = false;
};

}  // namespace

std::unique_ptr<FormField> makeRowsField(const QVariant& columns, std::function<void()> changed, QWidget* parent) {
  return std::make_unique<RowsField>(columns, std::move(changed), parent);
}

}  // namespace atelier::desktop
