// Sheets as they will be printed, page by page, and the printer.
#pragma once

#include <QDialog>
#include <QImage>

#include "atelier/desktop/document/long_work.h"
#include "atelier/render/sheets/sheets.h"

class QLabel;
class QScrollArea;
class QSpinBox;
class QComboBox;
class QPagedPaintDevice;

namespace atelier::desktop {

class SheetPreviewWindow : public QDialog {
 public:
  // The sheets outlive the window.
  explicit SheetPreviewWindow(render::SheetSet& sheets, QWidget* parent = nullptr);

  QSpinBox* page = nullptr;  // from 1
  QComboBox *zoom = nullptr, *inks = nullptr;
  QLabel* picture = nullptr;
  // On any device that takes pages, each sheet a page of its own size. Throws Interrupted when the user stops it.
  void printOn(QPagedPaintDevice& device);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QImage painted(int sheet, double perMm) const;
  void showPage();
  void takeInks();
  void print();

  render::SheetSet& sheets_;
  QScrollArea* area_ = nullptr;
  LongWork work_{*this};
};

// Sheets are shown in such a window from now on.
void provideSheetPreview();

}  // namespace atelier::desktop
