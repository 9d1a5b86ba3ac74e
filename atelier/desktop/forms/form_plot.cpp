// The preview is laid out by the plotter itself and painted small.
#include <QFileInfo>
#include <QFormLayout>
#include <QMessageBox>
#include <QPainter>

#include "atelier/desktop/forms/form_parts.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/scene/transients.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/plot.h"

namespace atelier::desktop {
namespace {

constexpr int kPreview = 460;  // longer side of the sheet in pixels

QImage sheet(const render::WholeScene& scene, const render::Page& page, double ratio) {
  const double perMm = kPreview * ratio / std::max(page.widthMm, page.heightMm);
  QImage picture(std::max(1, static_cast<int>(page.widthMm * perMm)),
                 std::max(1, static_cast<int>(page.heightMm * perMm)), QImage::Format_RGB32);
  render::PaintOptions options;
  options.toSurface = render::Affine::scaling(perMm, perMm) * page.toPage;
  options.unitsPerMm = perMm;
  options.thinnest = 0.5 * ratio;
  options.greekBelow = 2 * ratio;
  options.clip = {page.clipMm.xMin * perMm, page.clipMm.yMin * perMm, page.clipMm.xMax * perMm,
                  page.clipMm.yMax * perMm};
  render::PictureCanvas canvas(picture.bits(), picture.width(), picture.height(),
                               static_cast<int>(picture.bytesPerLine()));
  canvas.ground(options.background);
  render::Painting painting(canvas.context(), options);
  scene.each([&](const render::Primitive& item) { painting.item(item); });
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

void PlotForm::preview() {
  try {
    const render::Page page = render::layOutPage(scene_.bounds(), request());
    picture_->setPixmap(QPixmap::fromImage(sheet(scene_, page, devicePixelRatioF())));
    QString text = QStringLiteral("Feuille de %1 x %2 mm, échelle 1:%3")
                       .arg(page.widthMm)
                       .arg(page.heightMm)
                       .arg(page.scale, 0, 'g', 6);
    for (const std::string& warning : page.warnings) text += "\n" + QString::fromStdString(warning);
    message_->setText(text);
  } catch (const render::PlotError& error) {
    picture_->clear();
    message_->setText(QString::fromUtf8(error.what()));
  }
}

void PlotForm::accept() {
  try {
    render::PlotOptions options;
    options.page = request();
    for (const std::string& warning : render::plot(scene_, file->text().toStdString(), options))
      drawing_.document().print("\n" + warning);
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
