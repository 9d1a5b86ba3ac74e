// Rows are read from the definition file as text, for the eye only; drawing is (plv-matrices ...).
#include <QFile>
#include <QFormLayout>
#include <QTimer>

#include "atelier/database/text.h"
#include "atelier/desktop/form_parts.h"
#include "atelier/desktop/forms.h"
#include "atelier/desktop/lisp_bridge.h"

namespace atelier::desktop {
namespace {

constexpr qint64 kMostShown = 4000;  // bytes of the file

}  // namespace

MatricesForm::MatricesForm(Drawing& drawing, QWidget* parent) : QDialog(parent), drawing_(drawing) {
  setWindowTitle(QStringLiteral("Matrices du profil"));
  auto* fields = new QFormLayout(this);
  profile = new QComboBox(this);
  for (const QVariant& number : ask(drawing.document(), "(mapcar 'plv-numero-profil (plv-profils))").toList()) profile->addItem(number.toString());
  fields->addRow(QStringLiteral("Profil"), profile);
  fields->addRow(QStringLiteral("Définition"),
                 fileLine(this, file, QStringLiteral("Définition des matrices"), QStringLiteral("Définitions (*.txt);;Tous (*)")));
  every = new QCheckBox(QStringLiteral("Coter tous les points, même serrés"), this);
  fields->addRow(every);
  rows_ = new QLabel(this);
  rows_->setTextFormat(Qt::PlainText);
  rows_->setMinimumSize(420, 200);
  rows_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  rows_->setFrameShape(QFrame::StyledPanel);
  fields->addRow(rows_);
  fields->addRow(okAndCancel(this, QStringLiteral("Dessiner")));
  connect(file, &QLineEdit::textChanged, this, [this] { preview(); });
  preview();
}

void MatricesForm::preview() {
  QFile in(file->text());
  if (file->text().isEmpty() || !in.open(QIODevice::ReadOnly)) {
    rows_->setText(profile->count() == 0 ? QStringLiteral("Le dessin n'a pas encore de profil.") : QStringLiteral("Choisissez un fichier de définition."));
    return;
  }
  const std::string bytes = in.read(kMostShown).toStdString();
  rows_->setText(QString::fromStdString(isValidUtf8(bytes) ? bytes : CodePage::named("ANSI_1252").decode(bytes)));
}

void MatricesForm::accept() {
  if (profile->count() == 0 || file->text().isEmpty()) return file->setFocus();
  const QString call = QString("(plv-matrices (plv-profil-de-numero %1) %2 %3)")
                           .arg(quoted(profile->currentText()), quoted(file->text()), every->isChecked() ? "T" : "nil");
  QDialog::accept();
  QTimer::singleShot(0, &drawing_, [&drawing = drawing_, call] { drawing.feed({call.toStdString()}); });
}

}  // namespace atelier::desktop
