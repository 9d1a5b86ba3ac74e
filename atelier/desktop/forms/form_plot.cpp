// The sheet that is shown, or the model. The preview is laid out by the plotter itself and painted small.
#include <QFileInfo>
#include <QFormLayout>
#include <QMessageBox>
#include <QPainter>

#include "atelier/database/objects/layouts.h"
#include "atelier/desktop/forms/form_parts.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/scene/transients.h"
#include "atelier/render/shapes/plot_error.h"
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

}  // namespace

PlotForm::PlotForm(Drawing& drawing, QWidget* parent)
    : QDialog(parent), drawing_(drawing), scene_(drawing.document().database()) {
  AcDbStub* const space = drawing.document().database().currentSpaceId();
  sheet_ = space == drawing.document().imp().modelSpace() ? nullptr : space;
  render::addTransients(scene_.above, drawing.document().transients());
  setWindowTitle(QStringLiteral("Tracer"));
  auto* fields = new QFormLayout(this);
  fields->addRow(QStringLiteral("Fichier"), fileLine(this, file, QStringLiteral("Tracer dans"),
                                                     QStringLiteral("PDF (*.pdf);;SVG (*.svg);;PNG (*.png)"), true));
  file->setText(besideDrawing(QString::fromStdString(drawing.document().path()),
                              QFileInfo(drawing.fileName()).completeBaseName() + ".pdf"));
  scale = new QLineEdit(QStringLiteral("fit"), this);
  scale->setToolTip(QStringLiteral("1:200, ou fit pour remplir la feuille"));
  paper = new QComboBox(this);
  paper->addItem(QStringLiteral("Selon le dessin"), QString());
  for (const char* name : {"A4", "A3", "A2", "A1", "A0"}) paper->addItem(name, QString(name));
  fields->addRow(QStringLiteral("Échelle"), scale);
  fields->addRow(QStringLiteral("Papier"), paper);
  picture_ = new QLabel(this);
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setMinimumSize(kPreview, kPreview * 3 / 4);
  fields->addRow(picture_);
  message_ = new QLabel(this);
  message_->setWordWrap(true);
  fields->addRow(message_);
  fields->addRow(okAndCancel(this, QStringLiteral("Tracer")));
  connect(scale, &QLineEdit::editingFinished, this, [this] { preview(); });
  connect(paper, &QComboBox::currentIndexChanged, this, [this] { preview(); });
  preview();
}

render::PlotRequest PlotForm::request() const {
  render::PlotRequest request;
  request.scale = render::parseScale(scale->text().toStdString());
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
    if (sheet_) {
      const render::LayoutPage laidOut(drawing_.document().database(), *sheet_, request());
      return show(laidOut.page(), {}, laidOut.warnings);
    }
    const render::Page page = render::layOutPage(scene_.bounds(), request());
    show({page.widthMm, page.heightMm, {{&scene_, page.toPage, page.clipMm}}},
         QStringLiteral(", échelle 1:%1").arg(page.scale, 0, 'g', 6), page.warnings);
  } catch (const render::PlotError& error) {
    picture_->clear();
    message_->setText(QString::fromUtf8(error.what()));
  }
}

void PlotForm::accept() {
  try {
    render::PlotOptions options;
    options.page = request();
    const std::string target = file->text().toStdString();
    const auto warnings =
        sheet_ ? render::plotLayouts(drawing_.document().database(), {layoutNameOf(*sheet_)}, target, options)
               : render::plot(scene_, target, options);
    for (const std::string& warning : warnings) drawing_.document().print("\n" + warning);
    drawing_.document().print("\nDessin tracé dans " + file->text().toStdString() + ".\n");
    QDialog::accept();
  } catch (const render::PlotError& error) {
    message_->setText(QString::fromUtf8(error.what()));
  }
}

void plotByForm(Drawing& drawing, QWidget* parent) {
  try {
    PlotForm(drawing, parent).exec();
  } catch (const render::PlotError& error) {
    QMessageBox::warning(parent, QStringLiteral("Tracer"), QString::fromUtf8(error.what()));
  }
}

}  // namespace atelier::desktop
