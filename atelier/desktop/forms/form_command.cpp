// The answers stay with the settings: a form opens as it was last accepted, but for the profile and what belongs to one drawing, which
// a sixth part of a field says.
#include "atelier/desktop/forms/form_command.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QSettings>
#include <algorithm>
#include <cmath>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/form_parts.h"

namespace atelier::desktop {
namespace {

constexpr int kPause = 120;  // milliseconds between the last key and the look at the answers
constexpr int kPickPause = 60;
constexpr int kMostDecimals = 3;
constexpr QSize kRoomy(1060, 560);  // of a form with a picture

QString settingOf(const QString& command, const QString& key) { return "fiches/" + command + '/' + key; }

bool isKept(const QString& kind) {
  return !QStringList{"profil", "ecrire", "rangees", "objets", "point", "mots"}.contains(kind);
}

}  // namespace

bool CommandForm::exists(Drawing& drawing, const QString& command) {
  return ask(drawing.document(), "(if (member " + quoted(command) + " (plv-fiches)) T)").toBool();
}

CommandForm::CommandForm(Drawing& drawing, const QString& command, QWidget* parent)
    : QDialog(parent), drawing_(drawing), command_(command) {
  const QVariant form = ask(drawing.document(), "(plv-fiche " + quoted(command) + ")");
  const QVariantList parts = form.toList();
  connect(&drawing, &QObject::destroyed, this, [this] { deleteLater(); });
  setWindowTitle(title_ = parts.value(0).toString());
  auto* columns = new QHBoxLayout;
  fields_ = new QFormLayout;
  columns->addLayout(fields_);
  side_ = new QVBoxLayout;
  columns->addLayout(side_, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(columns, 1);
  words_ = new QLabel(this);
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  refusal_ = new QLabel(this);
  refusal_->setTextFormat(Qt::PlainText);
  refusal_->setWordWrap(true);
  refusal_->setStyleSheet("color: #c02020");
  refusal_->setVisible(false);
  side_->addWidget(words_);
  all->addWidget(refusal_);
  for (const QVariant& field : parts.value(2).toList()) addRow(field.toList(), *fields_);
  if (rows_.empty()) refusal_->setText(form.toString()), refusal_->setVisible(true);
  QDialogButtonBox* const buttons = okAndCancel(this, parts.value(1, "D'accord").toString());
  buttons->buttons().constFirst()->setEnabled(!rows_.empty());
  all->addWidget(buttons);
  connect(this, &QDialog::finished, this, [this] { deleteLater(); });
  soon_.setSingleShot(true);
  connect(&soon_, &QTimer::timeout, this, [this] { look(); });
  look();
}

void CommandForm::addRow(const QVariantList& parts, QFormLayout& rows) {
  const QString key = parts.value(0).toString(), label = parts.value(1).toString(), kind = parts.value(2).toString();
  QVariant value = parts.value(3);
  const bool kept = isKept(kind) && !parts.value(5).toBool();
  if (const QVariant former = QSettings().value(settingOf(command_, key)); kept && former.isValid()) value = former;
  auto field = makeField(
      label, kind, value, parts.value(4), [this, key] { changed(key); }, [this, key] { pick(key); }, this);
  auto* box = new QWidget(this);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(1);
  auto* fault = new QLabel(box);
  fault->setStyleSheet("color: #c02020");
  fault->setWordWrap(true);
  fault->setVisible(false);
  column->addWidget(field->widget());
  column->addWidget(fault);
  if (kind == "oui") rows.addRow(box);
  else rows.addRow(label, box);
  rows_.push_back({key, label, kept, std::move(field), box, fault});
}

FormField* CommandForm::field(const QString& label) {
  for (Row& r : rows_)
    if (r.label == label) return r.field.get();
  return nullptr;
}

QString CommandForm::fault(const QString& label) const {
  for (const Row& r : rows_)
    if (r.label == label) return r.fault->text();
  return {};
}

CommandForm::Row* CommandForm::row(const QString& key) {
  for (Row& r : rows_)
    if (r.key == key) return &r;
  return nullptr;
}

QString CommandForm::answers() const {
  QStringList pairs{"(\"*\" . " + quoted(last_) + ')'};
  for (const Row& r : rows_) pairs << '(' + quoted(r.key) + " . " + r.field->answer() + ')';
  return "'(" + pairs.join(' ') + ')';
}

void CommandForm::look() {
  soon_.stop();
  if (!rows_.empty())
    show(ask(drawing_.document(), "(plv-fiche-regarder " + quoted(command_) + ' ' + answers() + ')').toList());
}

void CommandForm::show(const QVariantList& seen) {
  for (Row& r : rows_) r.fault->clear();
  refusal_->clear();
  for (const QVariant& fault : seen.value(0).toList()) {
    Row* const at = row(fault.toList().value(0).toString());
    (at ? at->fault : refusal_)->setText(fault.toList().value(1).toString());
  }
  const QStringList hidden = seen.value(3).toStringList();
  for (Row& r : rows_) {
    r.fault->setVisible(!r.fault->text().isEmpty());
    fields_->setRowVisible(r.caption, !hidden.contains(r.key));
  }
  refusal_->setVisible(!refusal_->text().isEmpty());
  for (const QVariant& choice : seen.value(4).toList())
    if (Row* const at = row(choice.toList().value(0).toString())) at->field->choose(choice.toList().mid(1));
  showPictures(seen.value(1).toList());
  words_->setText(seen.value(2).toStringList().join('\n'));
  last_.clear();
  for (const QVariant& value : seen.value(5).toList())
    if (Row* const at = row(value.toList().value(0).toString())) at->field->set(value.toList().value(1));
}

void CommandForm::changed(const QString& key) {
  last_ = key;
  soon_.start(kPause);
}

// The form is out of the way while entities are picked, and comes back with them, or as it was.
void CommandForm::pick(const QString& key) {
  hide();
  drawing_.isAwaited = picks_ = true;
  const QString call = "(plv-fiche-choisir " + quoted(command_) + ' ' + quoted(key) + ')';
  drawing_.feed(
      {{"(setq plv-fiches-pris nil)", {}, command_.toStdString()}, {call.toStdString(), {}, command_.toStdString()}});
  QTimer::singleShot(kPickPause, this, [this, key] { takePicked(key); });
}

void CommandForm::takePicked(const QString& key) {
  if (drawing_.isRunning() || drawing_.hasMore()) {
    QTimer::singleShot(kPickPause, this, [this, key] { takePicked(key); });
    return;
  }
  drawing_.isAwaited = picks_ = false;
  const QVariant picked = ask(drawing_.document(), "plv-fiches-pris");
  Row* const at = row(key);
  if (at && picked.isValid()) at->field->set(picked);
  open();
}

// A form that has grown stays on the screen.
void CommandForm::makeRoom() {
  roomy_ = true;
  const QRect screen = this->screen()->availableGeometry();
  resize(sizeHint().expandedTo(kRoomy).boundedTo(screen.size()));
  if (!isVisible()) return;
  const QPoint most = screen.bottomRight() - QPoint(frameGeometry().width(), frameGeometry().height());
  move(std::max(screen.left(), std::min(x(), most.x())), std::max(screen.top(), std::min(y(), most.y())));
}

void CommandForm::showPictures(const QVariantList& pictures) {
  while (pictures_.size() < pictures.size()) {
    auto* picture = new FormPicture(this);
    picture->onDragged = [this](const auto& changes, bool released) { dragged(changes, released); };
    side_->insertWidget(static_cast<int>(pictures_.size()), picture, 1);
    pictures_ << picture;
  }
  if (!roomy_ && !pictures.isEmpty()) makeRoom();
  for (qsizetype i = 0; i < pictures_.size(); ++i) {
    pictures_[i]->setVisible(i < pictures.size());
    if (i < pictures.size()) pictures_[i]->show(pictures[i]);
  }
}

QString CommandForm::text(const QString& path) {
  const QStringList parts = path.split('/');
  const Row* const at = row(parts.front());
  if (!at) return {};
  const QVariant value = at->field->value();
  return parts.size() < 3 ? value.toString()
                          : value.toList().value(parts[1].toInt()).toStringList().value(parts[2].toInt());
}

void CommandForm::write(const QString& path, const QString& text) {
  const QStringList parts = path.split('/');
  Row* const at = row(parts.front());
  if (!at) return;
  if (parts.size() < 3) return at->field->set(text);
  QVariantList rows = at->field->value().toList();
  if (parts[1].toInt() >= rows.size()) return;
  QStringList cells = rows[parts[1].toInt()].toStringList();
  cells[parts[2].toInt()] = text;
  rows[parts[1].toInt()] = cells;
  at->field->set(rows);
}

// As many decimals as a pixel tells apart.
QString CommandForm::rounded(double value, double pixel) {
  const double step = std::pow(10, std::max<double>(-kMostDecimals, std::floor(std::log10(pixel))));
  return QString::number(std::round(value / step) * step, 'f', std::max(0, static_cast<int>(-std::log10(step) + 0.5)));
}

// The numbers go with the hand; the answers are looked at each time.
void CommandForm::dragged(const FormPicture::Changes& changes, bool released) {
  for (const auto& [path, by, pixel] : changes) {
    const QString from = dragFrom_.try_emplace(path, text(path)).first->second;
    write(path, std::abs(by) < pixel / 2 ? from : rounded(QString(from).replace(',', '.').toDouble() + by, pixel));
  }
  if (released) dragFrom_.clear();
  look();
}

void CommandForm::remember() const {
  QSettings settings;
  for (const Row& r : rows_)
    if (r.kept) settings.setValue(settingOf(command_, r.key), r.field->value());
}

// A key may still reach the form when it is out of the way: Escape ends the pick, which brings the form back.
void CommandForm::reject() {
  if (picks_) drawing_.cancel();
  else QDialog::reject();
}

void CommandForm::accept() {
  if (picks_) return;
  look();
  for (Row& r : rows_)
    if (!r.fault->text().isEmpty()) return r.field->widget()->setFocus();
  if (!refusal_->text().isEmpty()) return;
  remember();
  const QString call = "(progn (plv-fiche-faire " + quoted(command_) + ' ' + answers() + ") (princ))";
  QDialog::accept();
  drawing_.feed({{call.toStdString(), {}, command_.toStdString()}});
}

}  // namespace atelier::desktop
