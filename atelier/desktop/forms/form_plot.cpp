// The sheet that is shown, or the model. The preview is laid out by the plotter itself and painted small.
#include <QFileInfo>
#include <QFormLayout>
#include <QMessageBox>
#include <QPainter>

#include "atelier/base/error.h"
#include "atelier/base/interruption.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/document/own_work.h"
#include "atelier/desktop/forms/form_parts.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/scene/transients.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/ink_tables.h"
#include "atelier/render/sheets/layout_page.h"

namespace atelier::desktop {
namespace {

constexpr int kPreview = 460;  // longer side of the sheet in pixels

QImage sheet(const render::PaintedPage& page, double ratio) {
  const double perMm = kPreview * ratio / std::max(page.widthMm, page.heightMm);
  QImage picture(std::max(1, static_cast<int>(page.widthMm * perMm)),
                 std::max(1, static_cast<int>(page.heightMm * perMm)), QImage::Format_RGB32);
  render::PaintOptions options;
  options.unitsPerMm = perMm;
  options.thinnest = 0.5 * ratio;
  options.greekBelow = 2 * ratio;
  options.inks = page.inks;
  options.step = checkInterruption;
  render::PictureCanvas canvas(picture.bits(), picture.width(), picture.height(),
                               static_cast<int>(picture.bytesPerLine()));
  canvas.ground(options.background);
  const auto toPixels = render::Affine::scaling(perMm, perMm);
  for (const render::PagePart& part : page.parts) {
    options.toSurface = toPixels * part.toPage;
    options.clip = part.clipMm.mapped(toPixels);
    render::Painting painting(canvas.context(), options);
    part.scene->each([&](const render::Primitive& item) { painting.item(item); });
  }
  QPainter painter(&picture);
  painter.setPen(Qt::gray);
  painter.drawRect(0, 0, picture.width() - 1, picture.height() - 1);
  painter.end();
  picture.setDevicePixelRatio(ratio);
  return picture;
}

// The whole sheet, also where there is less room than it has pixels.
class SheetPicture final : public QLabel {
 public:
  explicit SheetPicture(QWidget* parent) : QLabel(parent) { setMinimumSize(kPreview / 2, kPreview / 2); }
  QSize sizeHint() const override { return {kPreview, kPreview}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QPixmap sheet = pixmap();
    if (sheet.isNull()) return;
    QSizeF size = sheet.deviceIndependentSize();
    if (size.height() > height() || size.width() > width()) size.scale(this->size(), Qt::KeepAspectRatio);
    QRectF place({}, size);
    place.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, sheet, sheet.rect());
  }
};

}  // namespace

PlotForm::PlotForm(Drawing& drawing, QWidget* parent)
    : QDialog(parent), drawing_(drawing), scene_(drawing.document().database()) {
  AcDbStub* const shown = drawing.document().database().currentSpaceId();
  sheet_ = shown == drawing.document().imp().modelSpace() ? nullptr : shown;
  render::addTransients(scene_.above, drawing.document().transients());
  setWindowTitle(QStringLiteral("Tracer"));
  auto* fields = new QFormLayout(this);
  fields->addRow(QStringLiteral("Fichier"), fileLine(this, file, QStringLiteral("Tracer dans"),
                                                     QStringLiteral("PDF (*.pdf);;SVG (*.svg);;PNG (*.png)"), true));
  file->setText(besideDrawing(QString::fromStdString(drawing.document().path()),
                              QFileInfo(drawing.fileName()).completeBaseName() + ".pdf"));
  scale = new QLineEdit(this);
  scale->setPlaceholderText(QStringLiteral("ajustée à la feuille"));
  scale->setToolTip(QStringLiteral("1:200 par exemple; vide pour remplir la feuille"));
  paper = new QComboBox(this);
  paper->addItem(QStringLiteral("Selon le dessin"), QString());
  for (const char* name : {"A4", "A3", "A2", "A1", "A0"}) paper->addItem(name, QString(name));
  fields->addRow(QStringLiteral("Échelle"), scale);
  fields->addRow(QStringLiteral("Papier"), paper);
  inks = inksChoice(this, render::tableOf(space()));
  table_ = inks->currentData().toString();
  fields->addRow(QStringLiteral("Couleurs"), inks);
  picture_ = new SheetPicture(this);
  fields->addRow(picture_);
  message_ = new QLabel(this);
  message_->setWordWrap(true);
  fields->addRow(message_);
  fields->addRow(okAndCancel(this, QStringLiteral("Tracer")));
  connect(scale, &QLineEdit::editingFinished, this, [this] { preview(); });
  for (QComboBox* const choice : {paper, inks})
    connect(choice, &QComboBox::currentIndexChanged, this, [this] { preview(); });
  preview();
}

render::PlotRequest PlotForm::request() const {
  render::PlotRequest request;
  const QString asked = scale->text().trimmed();
  request.scale = render::parseScale(asked.isEmpty() ? "fit" : asked.toStdString());
  if (const QString name = paper->currentData().toString(); !name.isEmpty())
    request.paper = render::parsePaper(name.toStdString());
  return request;
}

void PlotForm::show(const render::PaintedPage& page, const QString& scaleText,
                    const std::vector<std::string>& warnings) {
  picture_->setPixmap(QPixmap::fromImage(sheet(page, devicePixelRatioF())));
  QString text = QStringLiteral("Feuille de %1 x %2 mm%3").arg(page.widthMm).arg(page.heightMm).arg(scaleText);
  for (const std::string& warning : warnings) text += "\n" + QString::fromStdString(warning);
  message_->setText(text);
}

void PlotForm::preview() {
  try {
    const OwnWork work(work_, QStringLiteral("Aperçu"));
    const render::Inks chosen = render::inksNamed(inks->currentData().toString().toStdString());
    if (sheet_) {
      const render::LayoutPage laidOut(drawing_.document().database(), *sheet_, request());
      render::PaintedPage page = laidOut.page();
      page.inks = chosen;
      return show(page, {}, laidOut.warnings);
    }
    const render::Page page = render::layOutPage(scene_.bounds(), request());
    show({page.widthMm, page.heightMm, {{&scene_, page.toPage, page.clipMm}}, chosen},
         QStringLiteral(", échelle 1:%1").arg(page.scale, 0, 'g', 6), page.warnings);
  } catch (const Interrupted&) {
    picture_->clear();
    message_->setText(QStringLiteral("Aperçu arrêté."));
  } catch (const Error& error) {
    picture_->clear();
    message_->setText(QString::fromUtf8(error.what()));
  }
}

AcDbStub& PlotForm::space() const { return sheet_ ? *sheet_ : *drawing_.document().imp().modelSpace(); }

// The layout names the table that was chosen, for the next plot and for sheets.
void PlotForm::keepTable() {
  const QString chosen = inks->currentData().toString();
  if (chosen == table_ || !layoutOf(space())) return;
  drawing_.feed(
      {{"(table-de-trace " + quoted(chosen).toStdString() + ")", {}, "Table de tracé: " + chosen.toStdString()}});
}

void PlotForm::accept() {
  try {
    const OwnWork work(work_, QStringLiteral("Tracé"));
    render::PlotOptions options;
    options.page = request();
    options.inks = render::inksNamed(inks->currentData().toString().toStdString());
    const std::string target = file->text().toStdString();
    const auto warnings =
        sheet_ ? render::plotLayouts(drawing_.document().database(), {layoutNameOf(*sheet_)}, target, options)
               : render::plot(scene_, target, options);
    for (const std::string& warning : warnings) drawing_.document().print("\n" + warning);
    drawing_.document().print("\nDessin tracé dans " + file->text().toStdString() + ".\n");
    keepTable();
    QDialog::accept();
  } catch (const Interrupted&) {
    message_->setText(QStringLiteral("Tracé arrêté : le fichier est resté comme il était."));
  } catch (const Error& error) {
    message_->setText(QString::fromUtf8(error.what()));
  }
}

QComboBox* inksChoice(QWidget* parent, const std::string& table) {
  auto* const choice = new QComboBox(parent);
  choice->addItem(QStringLiteral("Couleurs du dessin"), QStringLiteral("couleurs"));
  choice->addItem(QStringLiteral("Gris"), QStringLiteral("gris"));
  choice->addItem(QStringLiteral("Noir"), QStringLiteral("noir"));
  for (const std::string& name : render::inkTables())
    choice->addItem(QStringLiteral("Table %1").arg(QString::fromStdString(name)), QString::fromStdString(name));
  choice->setToolTip(
      QStringLiteral("Une table de tracé dit, par couleur du dessin, la couleur et l'épaisseur sur le papier.\n"
                     "Les vôtres sont dans %1")
          .arg(QString::fromStdString(render::inkFolder())));
  choice->setCurrentIndex(
      std::max(0, choice->findData(QString::fromStdString(table), Qt::UserRole, Qt::MatchFixedString)));
  return choice;
}

void plotByForm(Drawing& drawing, QWidget* parent) {
  try {
    PlotForm(drawing, parent).exec();
  } catch (const render::PlotError& error) {
    QMessageBox::warning(parent, QStringLiteral("Tracer"), QString::fromUtf8(error.what()));
  }
}

}  // namespace atelier::desktop
