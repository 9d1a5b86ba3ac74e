// Numbers are sent as they were typed: the front-end reads them, with a point or a comma, and says what is wrong with them.
#include "atelier/desktop/forms/form_fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/file_choice.h"
#include "atelier/desktop/forms/form_rows.h"

namespace atelier::desktop {
namespace {

using Changed = std::function<void()>;

constexpr qsizetype kSeenWords = 6;
constexpr int kSeenCharacters = 18;  // at least, of a path or a point

QPushButton* pickButton(QWidget* row, std::function<void()> pick) {
  auto* button = new QPushButton(QStringLiteral("Choisir dans le dessin"), row);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, row, [pick = std::move(pick)] { pick(); });
  return button;
}

// A line of text.
class TextField : public FormField {
 public:
  TextField(const Changed& changed, QWidget* parent) : edit_(new QLineEdit(parent)) {
    QObject::connect(edit_, &QLineEdit::textChanged, edit_, [changed] { changed(); });
  }
  QWidget* widget() override { return edit_; }
  QString answer() const override { return quoted(edit_->text()); }
  void set(const QVariant& value) override { edit_->setText(value.toString()); }
  QVariant value() const override { return edit_->text(); }

 protected:
  QLineEdit* edit_;
};

// A line of text with a button beside it.
class ButtonField : public TextField {
 public:
  QWidget* widget() override { return row_; }

 protected:
  ButtonField(const Changed& changed, QWidget* parent) : TextField(changed, nullptr), row_(new QWidget(parent)) {
    auto* layout = new QHBoxLayout(row_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit_, 1);
    edit_->setMinimumWidth(edit_->fontMetrics().averageCharWidth() * kSeenCharacters);
    row_->setFocusProxy(edit_);
  }
  QWidget* row_;
};

class FileField : public ButtonField {
 public:
  FileField(const QString& title, const QString& filter, FileUse use, const Changed& changed, QWidget* parent)
      : ButtonField(changed, parent) {
    auto* look = new QPushButton(QStringLiteral("Parcourir..."), row_);
    row_->layout()->addWidget(look);
    QObject::connect(look, &QPushButton::clicked, edit_, [this, title, filter, use] {
      const QString path = askFile(row_, use, title, filter, edit_->text());
      if (!path.isEmpty()) edit_->setText(path);
    });
  }
};

class WordField : public FormField {
 public:
  WordField(const QVariant& choices, Changed changed, QWidget* parent) : box_(new QComboBox(parent)) {
    choose(choices);
    QObject::connect(box_, &QComboBox::currentTextChanged, box_, [changed = std::move(changed)] { changed(); });
  }
  QWidget* widget() override { return box_; }
  QString answer() const override { return box_->currentIndex() < 0 ? "nil" : quoted(box_->currentText()); }
  void set(const QVariant& value) override { box_->setCurrentText(value.toString()); }
  QVariant value() const override { return box_->currentText(); }
  void choose(const QVariant& choices) override {
    const QString kept = box_->currentText();
    if (choices.toStringList() == words_) return;
    words_ = choices.toStringList();
    box_->clear();
    box_->addItems(words_);
    if (words_.contains(kept)) box_->setCurrentText(kept);
  }

 private:
  QComboBox* box_;
  QStringList words_;
};

class WordsField : public FormField {
 public:
  WordsField(const QVariant& choices, Changed changed, QWidget* parent) : list_(new QListWidget(parent)) {
    list_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    choose(choices);
    QObject::connect(list_, &QListWidget::itemChanged, list_, [changed = std::move(changed)] { changed(); });
  }
  QWidget* widget() override { return list_; }
  QString answer() const override {
    QStringList words;
    for (const QString& word : value().toStringList()) words << quoted(word);
    return words.isEmpty() ? "nil" : '(' + words.join(' ') + ')';
  }
  void set(const QVariant& value) override {
    for (int i = 0; i < list_->count(); ++i)
      list_->item(i)->setCheckState(value.toStringList().contains(list_->item(i)->text()) ? Qt::Checked
                                                                                          : Qt::Unchecked);
  }
  QVariant value() const override {
    QStringList words;
    for (int i = 0; i < list_->count(); ++i)
      if (list_->item(i)->checkState() == Qt::Checked) words << list_->item(i)->text();
    return words;
  }
  void choose(const QVariant& choices) override {
    if (choices.toStringList() == words_) return;
    const QVariant kept = value();
    words_ = choices.toStringList();
    list_->clear();
    list_->addItems(words_);
    const qsizetype seen = std::clamp<qsizetype>(words_.size(), 1, kSeenWords);
    list_->setFixedHeight(list_->sizeHintForRow(0) * static_cast<int>(seen) + 4 * list_->frameWidth() + 2);
    set(kept);
  }

 private:
  QListWidget* list_;
  QStringList words_;
};

class TruthField : public FormField {
 public:
  TruthField(const QString& label, Changed changed, QWidget* parent) : box_(new QCheckBox(label, parent)) {
    QObject::connect(box_, &QCheckBox::toggled, box_, [changed = std::move(changed)] { changed(); });
  }
  QWidget* widget() override { return box_; }
  QString answer() const override { return box_->isChecked() ? "T" : "nil"; }
  void set(const QVariant& value) override { box_->setChecked(value.toBool()); }
  QVariant value() const override { return box_->isChecked(); }

 private:
  QCheckBox* box_;
};

// A point of the drawing, typed as x,y or picked.
class PointField : public ButtonField {
 public:
  PointField(const Changed& changed, std::function<void()> pick, QWidget* parent) : ButtonField(changed, parent) {
    row_->layout()->addWidget(pickButton(row_, std::move(pick)));
  }
};

// Entities of the drawing, by their handles.
class ObjectsField : public FormField {
 public:
  ObjectsField(Changed changed, std::function<void()> pick, QWidget* parent)
      : row_(new QWidget(parent)), count_(new QLabel(row_)), changed_(std::move(changed)) {
    auto* layout = new QHBoxLayout(row_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(count_, 1);
    layout->addWidget(pickButton(row_, std::move(pick)));
  }
  QWidget* widget() override { return row_; }
  QString answer() const override {
    QStringList handles;
    for (const QString& handle : handles_) handles << quoted(handle);
    return handles.isEmpty() ? "nil" : '(' + handles.join(' ') + ')';
  }
  void set(const QVariant& value) override {
    handles_ = value.toStringList();
    count_->setText(handles_.isEmpty()     ? QStringLiteral("aucun objet")
                    : handles_.size() == 1 ? QStringLiteral("1 objet")
                                           : QStringLiteral("%1 objets").arg(handles_.size()));
    changed_();
  }
  QVariant value() const override { return handles_; }

 private:
  QWidget* row_;
  QLabel* count_;
  Changed changed_;
  QStringList handles_;
};

}  // namespace

std::unique_ptr<FormField> makeField(const QString& label, const QString& kind, const QVariant& value,
                                     const QVariant& choices, std::function<void()> changed, std::function<void()> pick,
                                     QWidget* parent) {
  std::unique_ptr<FormField> field;
  if (kind == "profil" || kind == "mot") field = std::make_unique<WordField>(choices, std::move(changed), parent);
  else if (kind == "mots") field = std::make_unique<WordsField>(choices, std::move(changed), parent);
  else if (kind == "oui") field = std::make_unique<TruthField>(label, std::move(changed), parent);
  else if (kind == "point") field = std::make_unique<PointField>(std::move(changed), std::move(pick), parent);
  else if (kind == "objets") field = std::make_unique<ObjectsField>(std::move(changed), std::move(pick), parent);
  else if (kind == "rangees") field = makeRowsField(choices, std::move(changed), parent);
  else if (kind == "lire" || kind == "ecrire")
    field = std::make_unique<FileField>(label, choices.toString(), kind == "lire" ? FileUse::toRead : FileUse::toWrite,
                                        std::move(changed), parent);
  else field = std::make_unique<TextField>(std::move(changed), parent);
  field->set(value);
  return field;
}

}  // namespace atelier::desktop
