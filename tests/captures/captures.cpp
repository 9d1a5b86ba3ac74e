// kavel-captures FOLDER [sombre]: pictures of the window, its forms and the dialogs, on the example profile.
// Run from exemples/, without a screen; outils/captures does so.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <clocale>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/form_command.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/desktop/window/driver.h"
#include "atelier/desktop/window/theme.h"
#include "atelier/render/sheets/plot_builtins.h"
#include "programs/applications.h"

namespace {

using namespace atelier::desktop;

QString name(const QString& folder, const char* picture) { return folder + "/" + picture + ".png"; }

template <class Form>
Form& form() {
  return *dynamic_cast<Form*>(QApplication::activeModalWidget());
}

void closeForm() { static_cast<QDialog*>(QApplication::activeModalWidget())->reject(); }

void profile(MainWindow& window, Driver& driver, const QString& folder) {
  driver.menu("Nouveau profil...").then([] {
    form<CommandForm>().field("Fichier du terrain naturel")->set("rue-du-moulin.csv");
    form<CommandForm>().look();
  });
  driver.shot(name(folder, "bureau-nouveau-profil")).press("Créer").type("0,0").play();
  QFile script("demo.scr");
  if (!script.open(QIODevice::ReadOnly)) qFatal("demo.scr is not here");
  // The profile of the script's first seven lines has been made already: the script goes on after them.
  const QStringList lines = QString::fromUtf8(script.readAll()).split('\n');
  for (qsizetype i = lines.indexOf("PLV-PROJET"); i < lines.size(); ++i)
    if (!lines[i].startsWith(';') && !(lines[i].isEmpty() && i + 1 == lines.size())) driver.type(lines[i]);
  driver.play();
  window.view()->zoomExtents();
}

void pictures(MainWindow& window, Driver& driver, const QString& folder) {
  driver.then([&window] { emit window.profiles().itemClicked(window.profiles().topLevelItem(0), 0); });
  driver.then([&window] { window.view()->onMoved(AcGePoint3d(152.3, 45.6, 0)); });
  driver.then([&window] { window.profiles().expandToDepth(1); }).shot(name(folder, "bureau-fenetre"));
  driver.menu("Matrices...").then([] {
    form<CommandForm>().field("Modèle")->set("route");
    form<CommandForm>().look();
  });
  driver.shot(name(folder, "bureau-matrices")).then(closeForm);
  driver.menu("Ligne optimale...").shot(name(folder, "bureau-ligne-optimale")).then(closeForm);
  driver.menu("Réseau d'une ligne...").then([] {
    form<CommandForm>().field("Remplir depuis")->set("La ligne");
    form<CommandForm>().look();
  });
  driver.shot(name(folder, "bureau-reseau")).then(closeForm);
  driver.menu("Tracer...").then([] {
    form<PlotForm>().scale->setText("1:1000");
    form<PlotForm>().paper->setCurrentIndex(3);
  });
  driver.shot(name(folder, "bureau-tracer")).then(closeForm);
  driver.menu("Métrés en une fois...").shot(name(folder, "bureau-metres-fiche")).then(closeForm);
  driver.menu("Métrés...").press("Ajouter Profils").type("_ALL").type("");
  driver.shot(name(folder, "bureau-metres-choix"));
  driver.select("", {0}).press("OK").shot(name(folder, "bureau-metres"));
  driver.press("Ajouter une classe").shot(name(folder, "bureau-classe")).then(closeForm).press("Fermer");
  driver.then(
      [&window] { window.view()->zoomAt(QPointF(window.view()->width() / 2.0, window.view()->height() / 2.0), 3); });
  driver.type("(setvar \"OSMODE\" 33)")
      .type("LINE")
      .type("150,40")
      .hover(200, 60)
      .shot(name(folder, "bureau-accrochage"))
      .key(Qt::Key_Escape);
  driver.play();
}

// The valley of the examples: its axis and the surface of its layers.
void surface(MainWindow& window, Driver& driver, const QString& folder) {
  driver.then([&window] { window.open("vallon.dxf"); }).type("ZOOM").type("_E").play();
  driver.menu("Profil d'une surface...").then([&window] {
    form<CommandForm>()
        .field("Courbes de l'axe")
        ->set(ask(window.drawing()->document(),
                  "(mapcar 'plv-handle (plv-entites-du-jeu (ssget \"X\" '((0 . \"LWPOLYLINE\") (8 . \"AXE\")))))"));
    form<CommandForm>()
        .field("Surface, d'une source ou de plusieurs")
        ->set(QVariantList{QStringList{"Fichier", "vallon.csv", ""}, QStringList{"Calques", "RUISSEAU", ""}});
    form<CommandForm>().look();
  });
  driver.shot(name(folder, "bureau-terrain")).then(closeForm).play();
}

// A line drawn, dragged and shown as a table, all with the mouse, on a profile of its own.
void line(MainWindow& window, Driver& driver, const QString& folder) {
  driver.menu("Nouveau").type("(progn (plv-nouveau \"rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil) (princ))").play();
  const auto at = [&window](double d, double z) {
    const QString call = QString("(plv-vers-dessin (plv-cadre (car (plv-profils))) %1 %2)").arg(number(d), number(z));
    const QVariantList p = ask(window.drawing()->document(), call).toList();
    return QPointF(p.value(0).toDouble(), p.value(1).toDouble());
  };
  const auto pick = [&](double d, double z) { driver.pick(at(d, z).x(), at(d, z).y()); };
  const auto hover = [&](double d, double z) { driver.hover(at(d, z).x(), at(d, z).y()); };
  window.view()->zoomExtents();
  driver.type("PLV-DESSINER").type("Assainissement");
  pick(0, 140.9);
  pick(100, 135.9);
  driver.type("C1500");
  hover(240, 130.3);
  driver.shot(name(folder, "bureau-dessiner"));
  pick(240, 130.3);
  pick(319, 128.2);
  driver.type("").play();
  driver.then([&window] {
    window.profiles().onShow(ask(window.drawing()->document(),
                                 "(plv-handle (car (plv-elements-du-projet (car (plv-profils)) \"Assainissement\")))")
                                 .toString());
    window.view()->zoomExtents();
  });
  driver.play();
  pick(100, 135.9);
  hover(130, 133.6);
  driver.shot(name(folder, "bureau-tirer"));
  pick(130, 133.6);
  driver.play();
  driver.menu("Table des sommets").then([&window] { window.lineTable().cells().setCurrentCell(1, 2); });
  driver.shot(name(folder, "bureau-sommets")).menu("Table des sommets").play();
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir settings;
  qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
  qputenv("KAVEL_SAUVEGARDES", settings.filePath("sauvegardes").toUtf8());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) qFatal("kavel-captures FOLDER [sombre]");
  QDir().mkpath(arguments[1]);
  kavel::registerApplications();
  atelier::render::providePlots();
  const bool dark = arguments.value(2) == "sombre";
  if (dark) QSettings().setValue("fond", "#202124");
  chooseTheme(dark);
  MainWindow window;
  window.questionAnswer = [](const QString&) { return QStringLiteral("non"); };
  window.resize(1280, 800);
  window.show();
  window.open();
  Driver driver(window);
  profile(window, driver, arguments[1]);
  pictures(window, driver, arguments[1]);
  surface(window, driver, arguments[1]);
  line(window, driver, arguments[1]);
  window.close();
  return 0;
}
