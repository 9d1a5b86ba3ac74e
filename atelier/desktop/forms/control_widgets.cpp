// Actions of the user reach the model through atelier::deliver; while the model's state is shown, the widget's own
// events are blocked.
#include "atelier/desktop/forms/control_widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>

#include "atelier/render/scene/colours.h"

namespace atelier::desktop {
namespace {

using namespace dialogues;

constexpr int kLabelCharacters = 22;  // width of labels, so that fields are aligned

QString text(const std::wstring& wide) { return QString::fromStdWString(wide); }

QColor paletteColour(int index) {
  const render::Colour c = render::aciColour(index);
  return c.kind == render::Colour::Kind::rgb ? QColor(c.r, c.g, c.b) : QColor(Qt::white);
}

QIcon swatch(int index) {
  QPixmap pixmap(16, 16);
  pixmap.fill(paletteColour(index));
  QPainter(&pixmap).drawRect(0, 0, 15, 15);
  return pixmap;
}

QString colourName(int index) {
  if (index == 0) return QStringLiteral("DuBloc");
  if (index == 256) return QStringLiteral("DuCalque");
  return QString::number(index);
}

template <class CONTROL, class WIDGET>
class Bound : public ControlWidget {
 public:
  Bound(CONTROL& control, Dialog& dialog, QWidget* parent)
      : control_(control), dialog_(dialog), outer_(new QWidget(parent)), widget_(new WIDGET(outer_)) {
    auto* row = new QHBoxLayout(outer_);
    row->setContentsMargins(0, 0, 0, 0);
    if (kLabelled) row->addWidget(label_ = new QLabel(outer_));
    row->addWidget(widget_, 1);
    if (label_) label_->setBuddy(widget_);
  }
  QWidget* widget() override { return outer_; }
  void show() override {
    const QSignalBlocker quiet(widget_);
    if (label_) label_->setText(text(control_.label()));
    if (label_) label_->setVisible(!control_.label().empty());
    if (label_) label_->setMinimumWidth(label_->fontMetrics().averageCharWidth() * kLabelCharacters);
    outer_->setVisible(control_.visible());
    outer_->setEnabled(control_.enabled());
    showValue();
  }

 protected:
  static constexpr bool kLabelled =
      std::is_same_v<CONTROL, Edit> || std::is_same_v<CONTROL, Combo> || std::is_same_v<CONTROL, Colour>;
  virtual void showValue() = 0;
  template <class ACTION>
  void act(ACTION action) {
    deliver(dialog_, action);
  }
  CONTROL& control_;
  Dialog& dialog_;
  QWidget* outer_;
  WIDGET* widget_;
  QLabel* label_ = nullptr;
};

class TextWidget final : public Bound<Text, QLabel> {
 public:
  using Bound::Bound;
  void showValue() override { widget_->setText(text(control_.label())); }
};

class EditWidget final : public Bound<Edit, QLineEdit> {
 public:
  EditWidget(Edit& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    QObject::connect(widget_, &QLineEdit::textEdited, widget_,
                     [this](const QString& t) { act([&] { control_.userType(t.toStdWString()); }); });
  }
  void showValue() override {
    if (widget_->text() != text(control_.value())) widget_->setText(text(control_.value()));
  }
};

class ButtonWidget final : public Bound<Button, QPushButton> {
 public:
  ButtonWidget(Button& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    widget_->setAutoDefault(false);
    widget_->setDefault(c.isDefault);
    QObject::connect(widget_, &QPushButton::clicked, widget_, [this] { act([&] { control_.userClick(); }); });
  }
  void showValue() override { widget_->setText(text(control_.label())); }
};

// The palette's colours, and those of the window itself.
QColor strokeColour(int colour, const QWidget& widget) {
  if (colour >= 0) return paletteColour(colour);
  if (colour == -15) return widget.palette().color(QPalette::Window);
  return colour == -16 ? widget.palette().color(QPalette::WindowText) : widget.palette().color(QPalette::Base);
}

class PictureWidget final : public Bound<Picture, QPushButton> {
 public:
  PictureWidget(Picture& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    widget_->setFlat(!c.onClick);
    widget_->setAutoDefault(false);
    widget_->setAccessibleName(text(c.label()));
    widget_->setIconSize({c.width(), c.height()});
    if (c.onClick)
      QObject::connect(widget_, &QPushButton::clicked, widget_, [this] { act([&] { control_.userClick(); }); });
    else widget_->setFocusPolicy(Qt::NoFocus);
  }
  void showValue() override {
    QPixmap pixmap(control_.width(), control_.height());
    pixmap.fill(strokeColour(control_.ground(), *widget_));
    QPainter painter(&pixmap);
    for (const Picture::Stroke& s : control_.strokes()) {
      const QColor colour = strokeColour(s.colour, *widget_);
      painter.setPen(colour);
      if (s.filled) painter.fillRect(s.x1, s.y1, s.x2 - s.x1, s.y2 - s.y1, colour);
      else painter.drawLine(s.x1, s.y1, s.x2, s.y2);
    }
    widget_->setIcon(pixmap);
  }
};

class CheckWidget final : public Bound<Check, QCheckBox> {
 public:
  CheckWidget(Check& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    QObject::connect(widget_, &QCheckBox::clicked, widget_, [this](bool on) { act([&] { control_.userCheck(on); }); });
  }
  void showValue() override {
    widget_->setText(text(control_.label()));
    widget_->setChecked(control_.value());
  }
};

class ComboWidget final : public Bound<Combo, QComboBox> {
 public:
  ComboWidget(Combo& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    for (const std::wstring& choice : c.choices()) widget_->addItem(text(choice));
    QObject::connect(widget_, &QComboBox::activated, widget_, [this](int i) { act([&] { control_.userChoose(i); }); });
  }
  void showValue() override { widget_->setCurrentIndex(control_.index()); }
};

class ColourWidget final : public Bound<Colour, QComboBox> {
 public:
  ColourWidget(Colour& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    for (int i = 0; i <= 256; ++i) widget_->addItem(swatch(i), colourName(i));
    QObject::connect(widget_, &QComboBox::activated, widget_, [this](int i) { act([&] { control_.userChoose(i); }); });
  }
  void showValue() override { widget_->setCurrentIndex(control_.index()); }
};

class ListWidget final : public Bound<List, QTableWidget> {
 public:
  ListWidget(List& c, Dialog& d, QWidget* parent) : Bound(c, d, parent) {
    widget_->setEditTriggers(QTableWidget::NoEditTriggers);
    widget_->setSelectionBehavior(QTableWidget::SelectRows);
    widget_->setSelectionMode(c.multiple() ? QTableWidget::ExtendedSelection : QTableWidget::SingleSelection);
    widget_->verticalHeader()->hide();
    widget_->verticalHeader()->setDefaultSectionSize(widget_->fontMetrics().height() + 6);
    widget_->setColumnCount(static_cast<int>(std::max<std::size_t>(1, c.columns().size())));
    widget_->horizontalHeader()->setVisible(!c.columns().empty());
    QStringList titles;
    for (const Column& column : c.columns()) titles << text(column.title);
    widget_->setHorizontalHeaderLabels(titles);
    widget_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    if (c.columns().empty()) widget_->horizontalHeader()->setStretchLastSection(true);
    outer_->installEventFilter(new Widths(*this));
    QObject::connect(widget_, &QTableWidget::itemSelectionChanged, widget_, [this] {
      std::vector<int> rows;
      for (const QModelIndex& index : widget_->selectionModel()->selectedRows()) rows.push_back(index.row());
      act([&] { control_.userSelect(rows); });
    });
  }

  void showValue() override {
    const QSignalBlocker quiet(widget_->selectionModel());
    const auto& rows = control_.rows();
    widget_->clearSpans();
    widget_->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < widget_->rowCount(); ++i) showRow(i, rows[static_cast<std::size_t>(i)]);
    widget_->clearSelection();
    for (const int row : control_.selection())
      widget_->selectionModel()->select(widget_->model()->index(row, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }

 private:
  // Keeps the columns' shares of the list's width.
  class Widths : public QObject {
   public:
    explicit Widths(ListWidget& list) : QObject(list.outer_), list_(list) {}
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Resize || event->type() == QEvent::Show) list_.fitColumns();
      return false;
    }

   private:
    ListWidget& list_;
  };

  void fitColumns() {
    double total = 0;
    for (const Column& column : control_.columns()) total += column.width;
    const double room = outer_->width() - 24;
    for (std::size_t i = 0; i < control_.columns().size() && total > 0; ++i)
      widget_->setColumnWidth(static_cast<int>(i), static_cast<int>(room * control_.columns()[i].width / total));
  }

  // A row with only a first cell is a title over the whole width.
  void showRow(int row, const Row& content) {
    const bool title =
        !content.cells.empty() && !content.cells[0].empty() &&
        std::all_of(content.cells.begin() + 1, content.cells.end(), [](const std::wstring& c) { return c.empty(); });
    if (title && widget_->columnCount() > 1) widget_->setSpan(row, 0, 1, widget_->columnCount());
    for (int column = 0; column < widget_->columnCount(); ++column) {
      const auto index = static_cast<std::size_t>(column);
      QTableWidgetItem* item = widget_->item(row, column);
      if (!item) widget_->setItem(row, column, item = new QTableWidgetItem);
      item->setText(index < content.cells.size() ? text(content.cells[index]) : QString());
      item->setTextAlignment((title ? Qt::AlignLeft : alignment(index)) | Qt::AlignVCenter);
      item->setBackground(control_.colourColumn == column ? QBrush(paletteColour(content.data)) : QBrush());
    }
  }
  Qt::Alignment alignment(std::size_t column) const {
    if (column >= control_.columns().size()) return Qt::AlignLeft;
    switch (control_.columns()[column].alignment) {
      case Alignment::right: return Qt::AlignRight;
      case Alignment::centred: return Qt::AlignHCenter;
      default: return Qt::AlignLeft;
    }
  }
};

}  // namespace

std::unique_ptr<ControlWidget> widgetFor(Control& control, Dialog& dialog, QWidget* parent) {
  switch (control.kind()) {
    case Control::Kind::text: return std::make_unique<TextWidget>(static_cast<Text&>(control), dialog, parent);
    case Control::Kind::edit: return std::make_unique<EditWidget>(static_cast<Edit&>(control), dialog, parent);
    case Control::Kind::list: return std::make_unique<ListWidget>(static_cast<List&>(control), dialog, parent);
    case Control::Kind::button: return std::make_unique<ButtonWidget>(static_cast<Button&>(control), dialog, parent);
    case Control::Kind::check: return std::make_unique<CheckWidget>(static_cast<Check&>(control), dialog, parent);
    case Control::Kind::combo: return std::make_unique<ComboWidget>(static_cast<Combo&>(control), dialog, parent);
    case Control::Kind::picture: return std::make_unique<PictureWidget>(static_cast<Picture&>(control), dialog, parent);
    case Control::Kind::colour: return std::make_unique<ColourWidget>(static_cast<Colour&>(control), dialog, parent);
  }
  return nullptr;
}

}  // namespace atelier::desktop
