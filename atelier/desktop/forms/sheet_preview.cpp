// Sheets are painted by the plotter itself into a picture of the page; the printer gets pictures too, at its resolution up to a limit.
#include "atelier/desktop/forms/sheet_preview.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <algorithm>

#include "atelier/base/error.h"
#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/document/own_work.h"
#include "atelier/desktop/forms/form_parts.h"
#include "atelier/render/painters/cairo_painter.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/plot_builtins.h"

namespace atelier::desktop {
namespace {

constexpr double kInchMm = 25.4;
constexpr double kScreenPerMm = 96 / kInchMm;  // of a page at 100 %
constexpr double kMostPrinted =
    300 / kInchMm;                  // pixels in a millimetre: thin lines are sharp, and a sheet of A0 fits the memory
constexpr QSize kUsual(1100, 780);  // of the window, where the screen has room
constexpr double kScreenShare = 0.95;
constexpr int kFrame = 24;  // pixels about a page that fills the window

}  // namespace

SheetPreviewWindow::SheetPreviewWindow(render::SheetSet& sheets, QWidget* parent) : QDialog(parent), sheets_(sheets) {
  setWindowTitle(QStringLiteral("Aperçu des feuilles"));
  resize(kUsual.boundedTo(screen()->availableSize() * kScreenShare));
  page = new QSpinBox(this);
  page->setRange(1, static_cast<int>(sheets.size()));
  page->setSuffix(QStringLiteral(" / %1").arg(sheets.size()));
  zoom = new QComboBox(this);
  zoom->addItem(QStringLiteral("Page entière"), 0.0);
  for (const int percent : {50, 100, 200}) zoom->addItem(QStringLiteral("%1 %").arg(percent), percent / 100.0);
  inks = inksChoice(this, sheets.colours());
  auto* before = new QPushButton(QStringLiteral("Précédente"), this);
  auto* after = new QPushButton(QStringLiteral("Suivante"), this);
  auto* printer = new QPushButton(QStringLiteral("Imprimer..."), this);
  auto* close = new QPushButton(QStringLiteral("Fermer"), this);
  auto* bar = new QHBoxLayout;
  for (QWidget* widget : {static_cast<QWidget*>(before), static_cast<QWidget*>(page), static_cast<QWidget*>(after),
                          static_cast<QWidget*>(zoom), static_cast<QWidget*>(inks)})
    bar->addWidget(widget);
  bar->addStretch();
  bar->addWidget(printer);
  bar->addWidget(close);
  picture = new QLabel(this);
  picture->setAlignment(Qt::AlignCenter);
  area_ = new QScrollArea(this);
  area_->setWidget(picture);
  area_->setWidgetResizable(true);
  area_->setBackgroundRole(QPalette::Dark);
  auto* column = new QVBoxLayout(this);
  column->addLayout(bar);
  column->addWidget(area_);
  connect(before, &QPushButton::clicked, page, &QSpinBox::stepDown);
  connect(after, &QPushButton::clicked, page, &QSpinBox::stepUp);
  connect(page, &QSpinBox::valueChanged, this, &SheetPreviewWindow::showPage);
  connect(zoom, &QComboBox::currentIndexChanged, this, &SheetPreviewWindow::showPage);
  connect(inks, &QComboBox::currentIndexChanged, this, &SheetPreviewWindow::takeInks);
  connect(printer, &QPushButton::clicked, this, &SheetPreviewWindow::print);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  showPage();
}

QImage SheetPreviewWindow::painted(int sheet, double perMm) const {
  QImage image(std::max(1, qRound(sheets_.widthMm() * perMm)), std::max(1, qRound(sheets_.heightMm() * perMm)),
               QImage::Format_RGB32);
  render::PictureCanvas canvas(image.bits(), image.width(), image.height(), static_cast<int>(image.bytesPerLine()));
  canvas.ground({255, 255, 255});
  sheets_.paint(static_cast<std::size_t>(sheet), {canvas.context(), perMm, false});
  return image;
}

void SheetPreviewWindow::showPage() {
  const double ratio = devicePixelRatioF();
  double perMm = kScreenPerMm * zoom->currentData().toDouble();
  if (perMm == 0)
    perMm = std::max(
        0.1, std::min((area_->width() - kFrame) / sheets_.widthMm(), (area_->height() - kFrame) / sheets_.heightMm()));
  try {
    QImage image = painted(page->value() - 1, perMm * ratio);
    image.setDevicePixelRatio(ratio);
    picture->setPixmap(QPixmap::fromImage(image));
  } catch (const render::PlotError& error) {
    picture->setText(QString::fromUtf8(error.what()));
  }
  setWindowTitle(QString::fromStdString(sheets_.titleOf(static_cast<std::size_t>(page->value() - 1))));
}

void SheetPreviewWindow::takeInks() {
  try {
    sheets_.setColours(inks->currentData().toString().toStdString());
    showPage();
  } catch (const Error& error) {
    picture->setText(QString::fromUtf8(error.what()));
  }
}

void SheetPreviewWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  showPage();
}

void SheetPreviewWindow::printOn(QPagedPaintDevice& device) {
  device.setPageSize(QPageSize(
      QSizeF(std::min(sheets_.widthMm(), sheets_.heightMm()), std::max(sheets_.widthMm(), sheets_.heightMm())),
      QPageSize::Millimeter));
  device.setPageOrientation(sheets_.widthMm() > sheets_.heightMm() ? QPageLayout::Landscape : QPageLayout::Portrait);
  device.setPageMargins(QMarginsF());
  QPainter painter(&device);
  const double perMm = std::min(kMostPrinted, device.logicalDpiX() / kInchMm);
  const QRectF target(0, 0, sheets_.widthMm() * device.logicalDpiX() / kInchMm,
                      sheets_.heightMm() * device.logicalDpiY() / kInchMm);
  const OwnWork work(work_, QStringLiteral("Impression"));
  for (int i = 0; i < static_cast<int>(sheets_.size()); ++i) {
    if (i > 0) device.newPage();
    painter.drawImage(target, painted(i, perMm));
  }
}

void SheetPreviewWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QString::fromStdString(sheets_.info().title));
  printer.setFullPage(true);
  if (QPrintDialog dialog(&printer, this); dialog.exec() != QDialog::Accepted) return;
  try {
    printOn(printer);
  } catch (const Interrupted&) {
    printer.abort();
  } catch (const render::PlotError& error) {
    QMessageBox::warning(this, windowTitle(), QString::fromUtf8(error.what()));
  }
}

void provideSheetPreview() {
  render::sheetPreview() = [](render::SheetSet& sheets) {
    const Drawing::Waiting waiting;
    SheetPreviewWindow(sheets, QApplication::activeWindow()).exec();
  };
}

}  // namespace atelier::desktop
