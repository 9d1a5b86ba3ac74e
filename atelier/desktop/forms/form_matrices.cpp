// Rows are read from the definition file for the preview only; (plv-matrices ...) draws them.
#include <QFile>
#include <QFormLayout>
#include <QPainter>
#include <QRegularExpression>

#include "atelier/base/text.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/form_parts.h"
#include "atelier/desktop/forms/forms.h"

namespace atelier::desktop {
namespace {

constexpr qint64 kMostRead = 100000;  // bytes of the file
constexpr int kWidth = 460, kEdge = 8, kLabels = 170, kGap = 10;
constexpr double kPixelsPerHeight = 5;  // for a unit of a row's height

struct DefinedRow {
  QString matrix, label;
  double height;
};

// Matrix, place, height, kind, tags in braces and label of each line, as the module reads them; others are left out.
QVector<DefinedRow> rowsOf(const QString& definition) {
  static const QRegularExpression line(
      QStringLiteral("^\\s*([^;\\s-]+)\\s*-\\s*([0-9.]+)\\s+[0-9]+\\s*(?:\\{.*\\})?\\s*(.*)$"));
  QVector<DefinedRow> rows;
  for (const QString& text : definition.split('\n'))
    if (const auto match = line.match(text); match.hasMatch())
      rows.push_back({match.captured(1), match.captured(3).trimmed(), match.captured(2).toDouble()});
  return rows;
}

// A picture of the tables: each row in its height, with gaps between matrices.
QPixmap tables(const QVector<DefinedRow>& rows, const QPalette& palette, const QFont& font, double ratio) {
  double height = 2 * kEdge + QFontMetrics(font).height() * static_cast<double>(rows.size());
  for (const DefinedRow& row : rows) height += row.height * kPixelsPerHeight + kGap;
  QPixmap pixmap(QSize(kWidth, static_cast<int>(height)) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(palette.color(QPalette::Base));
  QPainter painter(&pixmap);
  painter.setPen(palette.color(QPalette::Text));
  painter.setFont(font);
  double y = kEdge;
  for (qsizetype i = 0; i < rows.size(); ++i) {
    if (i > 0 && rows[i].matrix != rows[i - 1].matrix) y += kGap;
    const double h = std::max<double>(QFontMetrics(font).height(), rows[i].height * kPixelsPerHeight);
    painter.drawRect(QRectF(kEdge, y, kLabels, h));
    painter.drawRect(QRectF(kEdge + kLabels, y, kWidth - 2 * kEdge - kLabels, h));
    painter.drawText(QRectF(kEdge + 4, y, kLabels - 8, h), Qt::AlignVCenter | Qt::AlignLeft, rows[i].label);
    painter.drawText(QRectF(kEdge + kLabels + 4, y, kLabels, h), Qt::AlignVCenter | Qt::AlignLeft,
                     QStringLiteral("%1, hauteur %2").arg(rows[i].matrix).arg(rows[i].height));
    y += h;
  }
  painter.end();
  return pixmap.copy(QRect(QPoint(), QSize(kWidth, static_cast<int>(y) + kEdge) * ratio));
}

}  // namespace

MatricesForm::MatricesForm(Drawing& drawing, QWidget* parent) : QDialog(parent), drawing_(drawing) {
  setWindowTitle(QStringLiteral("Matrices du profil"));
  auto* fields = new QFormLayout(this);
  profile = new QComboBox(this);
  for (const QVariant& number : ask(drawing.document(), "(mapcar 'plv-numero-profil (plv-profils))").toList())
    profile->addItem(number.toString());
  fields->addRow(QStringLiteral("Profil"), profile);
  fields->addRow(QStringLiteral("Définition"), fileLine(this, file, QStringLiteral("Définition des matrices"),
                                                        QStringLiteral("Définitions (*.txt);;Tous (*)")));
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
    rows_->setText(profile->count() == 0 ? QStringLiteral("Le dessin n'a pas encore de profil.")
                                         : QStringLiteral("Choisissez un fichier de définition."));
    return;
  }
  const std::string bytes = in.read(kMostRead).toStdString();
  const auto rows =
      rowsOf(QString::fromStdString(isValidUtf8(bytes) ? bytes : CodePage::named("ANSI_1252").decode(bytes)));
  if (rows.isEmpty()) rows_->setText(QStringLiteral("Ce fichier ne définit aucune rangée."));
  else rows_->setPixmap(tables(rows, palette(), font(), devicePixelRatioF()));
  adjustSize();
}

void MatricesForm::accept() {
  if (profile->count() == 0 || file->text().isEmpty()) return file->setFocus();
  const QString call = QString("(progn (plv-matrices (plv-profil-de-numero %1) %2 %3) (princ))")
                           .arg(quoted(profile->currentText()), quoted(file->text()), every->isChecked() ? "T" : "nil");
  QDialog::accept();
  drawing_.feed({{call.toStdString(), {}, "PLV-MATRICES " + file->text().toStdString()}, {"ZOOM", {"_E"}}});
}

}  // namespace atelier::desktop
