// Courses of wandering users. Whatever they do, the window at rest shows what the drawing in front has, its picture is the one that
// is drawn from nothing, the copy for a crash holds the last command, and undo goes back to the beginning.
// KAVEL_GRAINE is the seed of the only course, KAVEL_PAS its number of steps.
#include <QDir>
#include <QFile>
#include <QTabBar>
#include <map>
#include <numeric>

#include "atelier/desktop/picture/scene_painter.h"
#include "atelier/dxf/writing/writer.h"
#include "tests/desktop/wandering.h"

namespace {

using atelier::desktop::Drawing;

constexpr int kCourses = 8, kSteps = 300, kBetweenChecks = 50;
constexpr int kCopySoon = 20000;  // milliseconds at most: on a busy machine copies cost more, and are made less often
const QString kExamples = KAVEL_SOURCE "/exemples/";

std::vector<int> seeds() {
  if (qEnvironmentVariableIsSet("KAVEL_GRAINE")) return {qEnvironmentVariableIntValue("KAVEL_GRAINE")};
  const int courses = qEnvironmentVariableIsSet("KAVEL_COURS") ? qEnvironmentVariableIntValue("KAVEL_COURS") : kCourses;
  std::vector<int> all(static_cast<std::size_t>(std::max(1, courses)));
  std::iota(all.begin(), all.end(), 1);
  return all;
}

// Where two drawings first differ, with the lines before.
std::string firstDifference(const QByteArray& has, const QByteArray& expected) {
  const QList<QByteArray> a = has.split('\n'), b = expected.split('\n');
  qsizetype at = 0;
  while (at < a.size() && at < b.size() && a[at] == b[at]) ++at;
  const auto around = [at](const QList<QByteArray>& lines) {
    return lines.mid(std::max<qsizetype>(0, at - 12), 16).join(" | ").toStdString();
  };
  return "has: " + around(a) + "\nexpected: " + around(b);
}

// How many pixels differ; all of them for pictures of two sizes.
int differentPixels(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return a.width() * a.height();
  int count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y);
  return count;
}

struct Course : kaveltest::Wandering, ::testing::WithParamInterface<int> {
  // All that is saved of a drawing but its header, whose times and next handle go on.
  QByteArray saved(Drawing& drawing) {
    const QString path = file("etat.dxf");
    atelier::dxf::saveCopy(drawing.document().database(), path.toStdString());
    return contentOf(path);
  }
  static QByteArray contentOf(const QString& path) {
    QFile of(path);
    if (!of.open(QIODevice::ReadOnly)) return {};
    const QByteArray all = of.readAll();
    return all.mid(all.indexOf("ENDSEC"));
  }

  QStringList words(const QString& expression) {
    QStringList out;
    for (const QVariant& each : lisp(expression).toList()) out << each.toString();
    return out;
  }

  void checkPanels() {
    QStringList expected, shown;
    for (const QString& number : words("(mapcar 'plv-numero-profil (plv-profils))")) expected << "Profil " + number;
    if (expected.isEmpty()) expected << "Aucun profil";
    for (int k = 0; k < window.profiles().topLevelItemCount(); ++k) shown << window.profiles().topLevelItem(k)->text(0);
    EXPECT_EQ(shown, expected) << place();
    const QString current = lisp("(plv-numero-courant)").toString();
    EXPECT_EQ(window.currentProfile(), current.isEmpty() ? QString() : "Profil courant : " + current) << place();
    QStringList layers;
    for (int k = 0; k < window.layers().rowCount(); ++k) layers << window.layers().item(k, 0)->text();
    QStringList has = words(
        "(progn (setq kt-noms nil kt-un (tblnext \"LAYER\" T)) (while kt-un (setq kt-noms (cons (cdr (assoc 2 kt-un)) "
        "kt-noms) "
        "kt-un (tblnext \"LAYER\"))) kt-noms)");
    layers.sort(), has.sort();
    EXPECT_EQ(layers, has) << place();
    QStringList sheets = words("(layoutlist)");
    EXPECT_EQ(window.layouts().count(), sheets.size() + 1) << place();
    EXPECT_EQ(window.properties().rowCount() == 0, window.view()->selection().empty()) << place();
  }

  void checkPicture() {
    window.view()->select({});
    window.view()->refresh();
    until([this] { return window.view()->isSettled(); });
    Drawing& drawing = *window.drawing();
    atelier::desktop::SpaceScene anew(drawing.document().database());
    anew.refresh();
    const QImage expected = atelier::desktop::paintScene(
        {anew.parts(), window.view()->viewport(), window.view()->devicePixelRatioF(), window.view()->ground()}, false);
    EXPECT_EQ(differentPixels(window.view()->picture(), expected), 0) << "pixels aren't the drawing's: " << place();
  }

  // Of the drawing in front; nothing is asked for.
  void checkCopy() {
    if (!window.drawing()->isModified()) return;
    const QDir copies(qEnvironmentVariable("KAVEL_SAUVEGARDES"));
    const QByteArray now = saved(*window.drawing());
    // What was made and taken back while a form was filled in leaves nothing to lose.
    if (const auto begun = beginnings.find(window.drawing()); begun != beginnings.end() && begun->second == now) return;
    QByteArray newest;
    const auto held = [&] {
      for (const QFileInfo& copy : copies.entryInfoList({"*.dxf"}, QDir::Files, QDir::Time | QDir::Reversed))
        if (newest = contentOf(copy.filePath()); newest == now) return true;
      return false;
    };
    until(held, kCopySoon);
    EXPECT_TRUE(held()) << "no copy holds the drawing: " << place() << "\n" << firstDifference(newest, now);
  }

  // In every tab that was new.
  void checkUndo() {
    for (int tab = 0; tab < window.tabs().count(); ++tab) {
      window.tabs().setCurrentIndex(tab);
      Drawing& drawing = *window.drawing();
      if (!beginnings.contains(&drawing)) continue;
      driver.type("UNDO").type("100000").play();
      const QByteArray now = saved(drawing);
      EXPECT_TRUE(now == beginnings[&drawing]) << "undo leaves something in tab " << tab << ": " << place() << "\n"
                                               << firstDifference(now, beginnings[&drawing]);
    }
  }

  std::string place() const { return "KAVEL_GRAINE=" + std::to_string(GetParam()) + " step " + std::to_string(taken); }

  std::map<Drawing*, QByteArray> beginnings;
};

TEST_P(Course, LosesNothingAndShowsWhatThereIs) {
  const int steps = qEnvironmentVariableIsSet("KAVEL_PAS") ? qEnvironmentVariableIntValue("KAVEL_PAS") : kSteps;
  chosenFile = kExamples + "rue-du-moulin.csv";
  QDir::setCurrent(folder.path());
  onTab = [this](Drawing& drawing) { beginnings[&drawing] = saved(drawing); };
  onTab(*window.drawing());
  driver.type(QString("(plv-nouveau \"%1rue-du-moulin.csv\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 nil nil)").arg(kExamples));
  driver.type(
      QString("(plv-projet-fichier (car (plv-profils)) \"Projet\" \"%1rue-du-moulin-projet.csv\")").arg(kExamples));
  driver.type("ZOOM").type("_E").play();
  until([] { return false; }, 50);  // the driver has looked for a further step
  wander(static_cast<unsigned>(GetParam()), steps, kBetweenChecks, [this] {
    if (!window.drawing()) return;
    checkPanels();
    checkPicture();
    checkCopy();
  });
  if (!HasFailure()) checkUndo();
  QDir::setCurrent("/");
}

INSTANTIATE_TEST_SUITE_P(Wandering, Course, ::testing::ValuesIn(seeds()),
                         [](const auto& course) { return "Seed" + std::to_string(course.param); });

}  // namespace
