// The preview shows the results of (plv-bureau-terrain) and (plv-bureau-plans); (plv-nouveau ...) makes the profile.
#include <QFormLayout>
#include <QPainter>
#include <QPainterPath>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/form_parts.h"
#include "atelier/desktop/forms/forms.h"

namespace atelier::desktop {
namespace {

constexpr int kWidth = 460, kHeight = 180, kEdge = 14;
constexpr double kRoom = 60;  // drawn height, in text heights

// Takes a decimal comma for a point.
class NumberBox : public QDoubleSpinBox {
 public:
  using QDoubleSpinBox::QDoubleSpinBox;
  QValidator::State validate(QString& text, int& position) const override {
    text = withPoint(text);
    return QDoubleSpinBox::validate(text, position);
  }
  double valueFromText(const QString& text) const override { return QDoubleSpinBox::valueFromText(withPoint(text)); }

 private:
  QString withPoint(QString text) const {
    return text.replace(',', locale().decimalPoint()).replace('.', locale().decimalPoint());
  }
};

QDoubleSpinBox* spin(QWidget* parent, double value, double most) {
  auto* box = new NumberBox(parent);
  box->setRange(0.01, most);
  box->setValue(value);
  return box;
}

QVector<QPointF> pointsOf(const QVariant& list) {
  QVector<QPointF> points;
  for (const QVariant& pair : list.toList())
    points << QPointF(pair.toList().value(0).toDouble(), pair.toList().value(1).toDouble());
  return points;
}

}  // namespace

NewProfileForm::NewProfileForm(Drawing& drawing, QWidget* parent) : QDialog(parent), drawing_(drawing) {
  setWindowTitle(QStringLiteral("Nouveau profil"));
  auto* fields = new QFormLayout(this);
  fields->addRow(QStringLiteral("Fichier du terrain naturel"),
                 fileLine(this, file, QStringLiteral("Fichier du terrain naturel"),
                          QStringLiteral("Levés (*.csv *.txt *.xml);;Tous (*)")));
  number = new QLineEdit(QString::number(ask(drawing.document(), "(plv-identifiant-libre)").toInt()), this);
  scale = spin(this, 10, 1000);
  textHeight = spin(this, 2.5, 100);
  fields->addRow(QStringLiteral("Numéro du profil"), number);
  fields->addRow(QStringLiteral("Échelle verticale"), scale);
  fields->addRow(QStringLiteral("Hauteur de texte"), textHeight);
  picture_ = new QLabel(this);
  picture_->setFixedSize(kWidth, kHeight);
  fields->addRow(picture_);
  fields->addRow(okAndCancel(this, QStringLiteral("Créer")));
  connect(file, &QLineEdit::textChanged, this, [this] { preview(); });
  connect(scale, &QDoubleSpinBox::valueChanged, this, [this] { preview(); });
  connect(textHeight, &QDoubleSpinBox::valueChanged, this, [this] { preview(); });
  preview();
}

void NewProfileForm::preview() {
  QPixmap pixmap(QSize(kWidth, kHeight) * devicePixelRatioF());
  pixmap.setDevicePixelRatio(devicePixelRatioF());
  pixmap.fill(palette().color(QPalette::Base));
  const QRect sheet(0, 0, kWidth, kHeight);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Text));
  const QString path = quoted(file->text());
  const QVector<QPointF> ground = file->text().isEmpty()
                                      ? QVector<QPointF>()
                                      : pointsOf(ask(drawing_.document(), "(plv-bureau-terrain " + path + ")"));
  if (ground.size() < 2) {
    painter.drawText(sheet, Qt::AlignCenter,
                     file->text().isEmpty() ? QStringLiteral("Choisissez un fichier")
                                            : QStringLiteral("Ce fichier ne donne pas de terrain"));
  } else {
    const QVector<QPointF> planes =
        pointsOf(ask(drawing_.document(), QString("(plv-bureau-plans %1 %2 %3)")
                                              .arg(path, atelier::desktop::number(scale->value()),
                                                   atelier::desktop::number(kRoom * textHeight->value()))));
    double low = ground[0].y(), high = low;
    for (const QPointF& p : ground + planes) low = std::min(low, p.y()), high = std::max(high, p.y());
    const double length = std::max(1e-9, ground.back().x()), rise = std::max(1e-9, high - low);
    const auto at = [&](double d, double z) {
      return QPointF(kEdge + d / length * (kWidth - 2 * kEdge),
                     kHeight - kEdge - (z - low) / rise * (kHeight - 2 * kEdge));
    };
    painter.setPen(QPen(QColor(60, 120, 200), 1.5));
    for (qsizetype i = 0; i < planes.size(); ++i) {
      const double end = i + 1 < planes.size() ? planes[i + 1].x() : length;
      painter.drawLine(at(planes[i].x(), planes[i].y()), at(end, planes[i].y()));
      painter.drawText(at(planes[i].x(), planes[i].y()) + QPointF(3, -3), QString::number(planes[i].y(), 'f', 2));
    }
    QPolygonF line;
    for (const QPointF& p : ground) line << at(p.x(), p.y());
    painter.setPen(QPen(QColor(130, 80, 30), 1.8));
    painter.drawPolyline(line);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(sheet.adjusted(4, 2, -4, 0), Qt::AlignTop | Qt::AlignRight,
                     QStringLiteral("%1 points, %2 m").arg(ground.size()).arg(length, 0, 'f', 2));
  }
  painter.end();
  picture_->setPixmap(pixmap);
}

void NewProfileForm::accept() {
  if (file->text().isEmpty()) return file->setFocus();
  const QString call =
      QString("(progn (plv-nouveau %1 %2 (getpoint \"\\nPoint d'insertion <0,0>: \") %3 %4 nil nil) (princ))")
          .arg(quoted(file->text()), quoted(number->text()), atelier::desktop::number(scale->value()),
               atelier::desktop::number(textHeight->value()));
  QDialog::accept();
  // The command line asks for the place, so that it can be clicked in the drawing.
  drawing_.feed({{call.toStdString(), {}, "PLV-NOUVEAU " + file->text().toStdString()}, {"ZOOM", {"_E"}}});
}

}  // namespace atelier::desktop
