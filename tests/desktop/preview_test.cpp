// PLV-APERCU: the sheets as they will be plotted, page by page, and on a device that takes pages.
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPdfWriter>
#include <QScreen>
#include <QSpinBox>

#include "atelier/desktop/forms/sheet_preview.h"
#include "atelier/render/sheets/plot_builtins.h"
#include "tests/desktop/desktop.h"

namespace {

using kaveltest::Desktop;

struct Preview : Desktop {
  Preview() {
    QFile survey(file("long.csv"));
    survey.open(QIODevice::WriteOnly);
    survey.write("distance;altitude\n");
    for (int d = 0; d <= 600; d += 20) survey.write(QStringLiteral("%1;%2\n").arg(d).arg(20 + d / 20 % 3).toUtf8());
    survey.close();
    driver.type(QStringLiteral("(progn (plv-nouveau \"%1\" \"L\" '(0.0 0.0 0.0) 10.0 2.5 nil nil) (princ))")
                    .arg(file("long.csv")));
    driver.play();
  }
  ~Preview() override { atelier::render::sheetPreview() = nullptr; }
  void show() {
    for (const char* line : {"PLV-APERCU", "A2", "1000", "Rue"}) driver.type(line);
    driver.play();
  }
};

// What is painted for it isn't the command's work: a button that stops that one would stand over the pages, and take the keys.
TEST_F(Preview, ACommandWaitsForItsSheets) {
  atelier::desktop::provideSheetPreview();
  atelier::desktop::LongWork::shownAfter = atelier::desktop::LongWork::pause = 0;
  int looks = 0;
  std::function<void()> look = [&] {
    auto* const preview = dynamic_cast<atelier::desktop::SheetPreviewWindow*>(QApplication::activeModalWidget());
    if (!preview && ++looks < 1000) return QTimer::singleShot(10, &window, look);
    ASSERT_TRUE(preview) << "something else is in front";
    for (int zoom = 3; zoom >= 0; --zoom) {
      until([] { return false; }, 100);  // the command is looked at every 50 milliseconds
      preview->zoom->setCurrentIndex(zoom);
      EXPECT_EQ(QApplication::activeModalWidget(), preview);
    }
    preview->accept();
  };
  look();
  show();
  EXPECT_FALSE(window.drawing()->isRunning());
  EXPECT_FALSE(history().contains("interruption")) << history().toStdString();
  atelier::desktop::LongWork::shownAfter = 500, atelier::desktop::LongWork::pause = 50;
}

// Whether a picture has both paper and ink.
bool drawn(const QImage& image) {
  bool white = false, dark = false;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) (qGray(image.pixel(x, y)) > 250 ? white : dark) = true;
  return white && dark;
}

bool coloured(const QImage& image) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const QColor pixel = image.pixelColor(x, y); pixel.saturation() > 100) return true;
  return false;
}

TEST_F(Preview, ShowsEachPageAndPrintsAll) {
  int shown = 0;
  atelier::render::sheetPreview() = [&](atelier::render::SheetSet& sheets) {
    ++shown;
    atelier::desktop::SheetPreviewWindow preview(sheets);
    preview.show();
    EXPECT_LE(preview.width(), preview.screen()->availableSize().width());
    EXPECT_LE(preview.height(), preview.screen()->availableSize().height());
    EXPECT_EQ(preview.page->maximum(), 2);
    EXPECT_TRUE(preview.windowTitle().startsWith("Feuille 1 - profil L"));
    const QImage whole = preview.picture->pixmap().toImage();
    EXPECT_TRUE(drawn(whole));
    // 594 mm at 96 pixels an inch, twice as large
    preview.zoom->setCurrentIndex(3);
    EXPECT_EQ(preview.picture->pixmap().width(), qRound(594 * 96 / 25.4 * 2));
    preview.zoom->setCurrentIndex(0);
    preview.page->setValue(2);
    EXPECT_TRUE(preview.windowTitle().startsWith("Feuille 2 - profil L"));
    EXPECT_TRUE(drawn(preview.picture->pixmap().toImage()));
    EXPECT_NE(preview.picture->pixmap().toImage(), whole);
    EXPECT_TRUE(coloured(preview.picture->pixmap().toImage()));
    preview.inks->setCurrentIndex(preview.inks->findData("monochrome"));
    EXPECT_FALSE(coloured(preview.picture->pixmap().toImage()));
    QPdfWriter printer(file("imprime.pdf"));
    printer.setResolution(100);
    preview.printOn(printer);
  };
  show();
  EXPECT_EQ(shown, 1) << history().toStdString();
  QFile printed(file("imprime.pdf"));
  ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
  const QByteArray bytes = printed.readAll();
  EXPECT_TRUE(bytes.contains("/Count 2"));
  EXPECT_TRUE(bytes.contains("/MediaBox [0 0 1684.0"));
}

TEST_F(Preview, WithoutAWindowTheSheetsAreListed) {
  show();
  EXPECT_TRUE(history().contains("Feuille 1 - profil L, 0.00 à"));
  EXPECT_TRUE(history().contains(", 1:1000."));
}

}  // namespace
