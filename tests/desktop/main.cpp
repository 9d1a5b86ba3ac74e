// The desktop's tests run the whole program without a screen. Settings and copies go to a folder of this run.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <clocale>

#include "atelier/exchange/exchange.h"
#include "atelier/render/sheets/plot_builtins.h"
#include "programs/applications.h"

namespace {

// An exception that leaves an event breaks the loops that it passes through.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what() << " leaves event " << event->type() << " of "
                    << receiver->metaObject()->className();
      return true;
    }
  }
};

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir folder;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
  qputenv("KAVEL_FRONTAL", KAVEL_SOURCE "/frontal");
  qputenv("KAVEL_SAUVEGARDES", folder.filePath("sauvegardes").toUtf8());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  Application application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setOrganizationName("kavel");
  QApplication::setApplicationName("essais");
  kavel::registerApplications();
  atelier::exchange::provideExchange();
  atelier::render::providePlots();
  return RUN_ALL_TESTS();
}
