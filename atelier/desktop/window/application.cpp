// Qt sets the user's locale when it starts; the locale of numbers is set back to the decimal point.
#include "atelier/desktop/window/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <functional>

#include "atelier/desktop/forms/sheet_preview.h"
#include "atelier/desktop/window/command_options.h"
#include "atelier/desktop/window/icons.h"
#include "atelier/desktop/window/main_window.h"
#include "atelier/desktop/window/theme.h"
#include "atelier/exchange/exchange.h"
#include "atelier/plugin/installation.h"
#include "atelier/render/sheets/plot_builtins.h"

namespace atelier::desktop {
namespace {

// An exception ends the event in which it is thrown, not the program with its open drawings.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;
  std::function<void(const QString&)> onFault;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      if (onFault) onFault(QString::fromUtf8(error.what()));
      return true;
    }
  }
};

}  // namespace

int run(int argc, char** argv) {
  int status = 0;
  const std::optional<QStringList> drawings = drawingsAsked(argc, argv, status);
  if (!drawings) return status;
  Application application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale(QLocale::French));
  QApplication::setOrganizationName("kavel");
  QApplication::setApplicationName("kavel-bureau");
  QApplication::setApplicationDisplayName("Kavel");
  applyTheme();
  QTranslator translator;
  if (translator.load("qtbase_fr", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&translator);
  QApplication::setWindowIcon(iconNamed("profil"));
  exchange::provideExchange();
  render::providePlots();
  provideSheetPreview();
  MainWindow window;
  application.onFault = [&window](const QString& text) { window.commandLine().print("\n" + text + "\n"); };
  window.show();
  bool opened = false;
  for (const QString& path : *drawings) opened = window.open(path) || opened;
  if (!opened) window.open();
  if (const std::string trouble = installationTrouble(); !trouble.empty())
    window.commandLine().print("\n" + QString::fromStdString(trouble) + "\n");
  return QApplication::exec();
}

}  // namespace atelier::desktop
