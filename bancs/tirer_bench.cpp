// Pictures a second while the cursor moves over a profile: alone, while a line is drawn, while a vertex of it is dragged.
//   tirer_bench [POINTS ...]     on the example, then on grounds of so many points; without a screen under QT_QPA_PLATFORM=offscreen
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <clocale>
#include <cmath>
#include <cstdio>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/window/driver.h"
#include "programs/applications.h"

namespace {

using namespace atelier::desktop;

constexpr int kMoves = 300;

// Moves the cursor over the middle of the view, each time once the picture of the place before has been painted; then Escape. Each
// step returns to the event loop, in which a program that follows the cursor waits.
class Moves : public QObject {
 public:
  Moves(DrawingView& view, const Drawing& drawing) : view_(view), drawing_(drawing) {
    view.installEventFilter(this);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { step(); });
  }
  void begin() {
    clock_.start();
    timer_.start(0);
  }
  bool isDone() const { return seconds_ > 0 && !timer_.isActive(); }
  double picturesASecond() const { return kMoves / seconds_; }

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    painted_ |= event->type() == QEvent::Paint;
    return false;
  }
  void step() {
    if (moved_ > 0 && !painted_) return;
    painted_ = false;
    if (moved_ == kMoves) return end();
    ++moved_;
    const QPointF at(view_.width() * (0.3 + 0.4 * moved_ / kMoves), view_.height() * (0.4 + 0.1 * (moved_ % 20) / 20));
    QMouseEvent move(QEvent::MouseMove, at, view_.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&view_, &move);
  }

  // The command that waits is given up.
  void end() {
    if (seconds_ == 0) seconds_ = static_cast<double>(clock_.nsecsElapsed()) / 1e9;
    painted_ = true;
    if (drawing_.isRunning()) return view_.escape();
    timer_.stop();
    view_.removeEventFilter(this);
  }

  DrawingView& view_;
  const Drawing& drawing_;
  QTimer timer_;
  QElapsedTimer clock_;
  int moved_ = 0;
  bool painted_ = false;
  double seconds_ = 0;
};

// A ground of half-metre steps with a line of forty curves.
QString made(int points, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("%s can't be written", qPrintable(path));
  for (int i = 0; i < points; ++i)
    file.write(QString("%1;%2\n").arg(0.5 * i, 0, 'f', 2).arg(50 + 3 * std::sin(i / 300.0), 0, 'f', 3).toUtf8());
  const double step = points / 82.0;
  QString vertices;
  for (int i = 0; i <= 40; ++i)
    vertices +=
        QString("(%1 %2 %3)").arg(i * step).arg(49.0 + i % 2).arg(i % 40 ? QString::number(20 * step, 'f', 1) : "");
  return QString("(progn (plv-projet (plv-nouveau \"%1\" \"1\" nil 10.0 2.5 nil nil) \"Voirie\" '(%2)) (princ))")
      .arg(path, vertices);
}

QString example() {
  return "(progn (setq p (plv-nouveau \"rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil))"
         " (plv-projet-fichier p \"Voirie\" \"rue-du-moulin-projet.csv\")"
         " (plv-matrices p \"matrices-route.txt\" nil) (princ))";
}

void measure(const char* name, const QString& profile) {
  MainWindow window;
  window.questionAnswer = [](const QString&) { return QString("non"); };
  window.resize(1280, 900);
  window.show();
  window.open();
  Driver driver(window);
  driver.type(profile).play();
  window.view()->zoomExtents();
  const auto measured = [&](const QStringList& lines) {
    Moves moves(*window.view(), *window.drawing());
    for (const QString& line : lines) driver.type(line);
    driver.then([&] { moves.begin(); }).play();
    while (!moves.isDone() || window.drawing()->isRunning()) QApplication::processEvents(QEventLoop::AllEvents, 20);
    return moves.picturesASecond();
  };
  const double alone = measured({}), drawn = measured({"PLV-DESSINER", "AEp", "0;49"}),
               dragged = measured({"PLV-TIRER", "Voirie", "2"});
  std::printf("%-16s %8.0f %8.0f %8.0f\n", name, alone, drawn, dragged);
  std::fflush(stdout);
  window.close();
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir folder;
  qputenv("KAVEL_SAUVEGARDES", folder.filePath("sauvegardes").toUtf8());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  kavel::registerApplications();
  std::printf("pictures/s          alone    drawn  dragged\n");
  measure("example", example());
  for (int i = 1; i < argc; ++i) measure(argv[i], made(QString(argv[i]).toInt(), folder.filePath("sol.csv")));
}
