// The steps of a wandering user. What ends the program or asks for other files' names is left out.
#include "tests/desktop/wandering.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabBar>
#include <utility>

#include "atelier/desktop/window/actions.h"

namespace kaveltest {
namespace {

constexpr int kPause = 2;           // milliseconds that a step gets
constexpr int kPatience = 60000;    // milliseconds until the window is at rest
constexpr int kMostCalmed = 30000;  // steps out of dialogs and commands, after which nothing will come to rest
constexpr int kUnwinding = 150;     // milliseconds after which nothing begins any more by itself
constexpr int kAlone = 10;          // seconds that a command may last with nobody there
constexpr int kMostTabs = 3;

const QStringList kLines{"",
                         "U",
                         "REDO",
                         "0,0",
                         "10,10",
                         "PLV-ETAT",
                         "LINE",
                         "CIRCLE",
                         "ERASE",
                         "n'importe quoi",
                         "(+ 1 2)",
                         "(car 5",
                         "12,5",
                         "PLV-PC",
                         "Ajouter",
                         "PLV-ACTUALISER",
                         "PLV-LEVE",
                         "ZOOM",
                         "_E",
                         "@5<30",
                         "MOVE",
                         "_ALL",
                         "COPY",
                         "ROTATE",
                         "PLV-SOMMETS",
                         "Lister",
                         "Projet",
                         "PLV-PROFIL",
                         "Oui",
                         "Non",
                         "PLV-DESSINER",
                         "1.20",
                         "50;130",
                         "PLV-STYLE",
                         "route",
                         "PLV-METRES",
                         "PLV-MATRICES",
                         "PLV-RESEAU",
                         "LAYER",
                         "_M",
                         "essai",
                         "TEXT",
                         "PLV-COTES",
                         "MIRROR",
                         "OFFSET",
                         "SETVAR",
                         "CTAB",
                         "~"};

constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Delete, Qt::Key_1,
                             Qt::Key_L,      Qt::Key_Space,  Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Backspace};

}  // namespace

void Wandering::click(QWidget& on) {
  const QPointF at(below(on.width()), below(on.height()));
  const Qt::MouseButton button = below(6) ? Qt::LeftButton : Qt::MiddleButton;
  const auto modifiers = below(8) ? Qt::NoModifier : Qt::ShiftModifier;
  for (const auto type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, on.mapToGlobal(at), button, button, modifiers);
    QApplication::sendEvent(&on, &event);
  }
}

void Wandering::press() {
  const Qt::Key key = oneOf(kKeys);
  QWidget* const to = QApplication::focusWidget() ? QApplication::focusWidget() : window.view();
  if (!to) return;
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_1 ? "1" : key == Qt::Key_L ? "l" : "");
  QApplication::sendEvent(to, &down);
}

void Wandering::type() { window.commandLine().onLine(oneOf(kLines)); }

void Wandering::menu() {
  const auto& row = oneOf(atelier::desktop::actionRows());
  static const QStringList kNot{"@quit", "@plot", "@open", "@saveAs", "@save", "@ground", "@close"};
  if (!row.text || kNot.contains(QString::fromUtf8(row.command))) return;
  for (QAction* const action : window.findChildren<QAction*>())
    if (action->text() == QString::fromUtf8(row.text) && action->isEnabled()) return action->trigger();
}

// As a hand can: while a command runs the tabs don't answer.
void Wandering::tab() {
  if (!window.tabs().tabBar()->isEnabled()) return;
  if (window.tabs().count() < kMostTabs && below(3) == 0 && window.drawing() && !window.drawing()->isRunning()) {
    window.open();
  } else {
    window.tabs().setCurrentIndex(below(window.tabs().count()));
  }
}

void Wandering::panel() {
  switch (below(4)) {
    case 0: return click(*window.profiles().viewport());
    case 1: return click(*window.layers().viewport());
    case 2: return click(*window.properties().viewport());
    default:
      if (window.layouts().isEnabled()) window.layouts().setCurrentIndex(below(window.layouts().count()));
  }
}

// A dialog gets random answers, and is closed in the end.
void Wandering::answerModal() {
  const QList<QPushButton*> buttons = QApplication::activeModalWidget()->findChildren<QPushButton*>();
  if (below(3) && !buttons.isEmpty()) {
    QPushButton* const button = oneOf(buttons);
    if (button->isEnabled() && !button->text().startsWith("Parcourir")) return button->click();
  }
  if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
}

void Wandering::step() {
  answer = below(2) ? "oui" : "non";
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  if (QApplication::activeModalWidget()) return answerModal();
  switch (below(12)) {
    case 0:
    case 1: return menu();
    case 2:
    case 3:
      if (window.view()) click(*window.view());
      return;
    case 4: return press();
    case 5: return tab();
    case 6: return panel();
    default: return type();
  }
}

bool Wandering::rests() const {
  const atelier::desktop::Drawing* const d = window.drawing();
  return !QApplication::activeModalWidget() && !QApplication::activePopupWidget() && !(d && d->isBusy());
}

// Why the window isn't at rest.
std::string Wandering::restless() const {
  const QWidget *const modal = QApplication::activeModalWidget(), *const popup = QApplication::activePopupWidget();
  const atelier::desktop::Drawing* const d = window.drawing();
  const auto named = [](const char* what, const QWidget* widget) {
    return widget ? std::string(what) + widget->metaObject()->className() + " " + widget->windowTitle().toStdString()
                  : std::string();
  };
  return (due_ ? "" : "between steps ") + named("modal ", modal) + named(" popup ", popup) +
         (d && d->isRunning() ? " runs " + d->commandName().toStdString() : "") +
         (d && d->hasMore() ? " has more" : "") + (d && d->isAwaited ? " is awaited" : "");
}

// What waits may stand in a loop of its own, which nothing but the end of the program leaves.
void Wandering::complain() {
  std::string text = "stuck at step " + std::to_string(taken) + " in tab " +
                     std::to_string(window.tabs().currentIndex()) + ": " + restless();
  for (int tab = 0; tab < window.tabs().count(); ++tab) {
    window.tabs().setCurrentIndex(tab);
    text +=
        "\ntab " + std::to_string(tab) + " shows " + std::to_string(window.tabs().currentIndex()) + ": " + restless();
  }
  std::fprintf(stderr, "%s\n%s\n", text.c_str(), history().right(3000).toStdString().c_str());
  std::abort();
}

void Wandering::calm() {
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
  else if (!rests()) window.drawing()->cancel();
}

// A tab may be opened by a menu, too, when the command before it has ended.
void Wandering::welcome() {
  const int count = window.tabs().count();
  if (count > std::exchange(tabs_, count) && onTab && window.drawing()) onTab(*window.drawing());
}

// The next step is planned before the one at hand is taken: that one may only return when its command has ended.
void Wandering::tick() {
  if (!wanders_) return;
  QTimer::singleShot(kPause, &window, [this] { tick(); });
  welcome();
  if (due_) {
    if (++calmed_ > kMostCalmed) complain();
    return calm();
  }
  calmed_ = 0;
  due_ = ++taken % between_ == 0;
  step();
}

// A command that begins by itself while the window is looked at would wait for ever for answers that nobody gives.
void Wandering::guard() {
  auto* const watch = new QTimer(&window);
  QObject::connect(watch, &QTimer::timeout, &window, [this, busy = 0]() mutable {
    busy = wanders_ || rests() ? 0 : busy + 1;
    if (busy > kAlone) calm();
  });
  watch->start(1000);
}

void Wandering::wander(unsigned seed, int steps, int between, const std::function<void()>& check) {
  random_.seed(seed);
  between_ = between;
  tabs_ = window.tabs().count();
  guard();
  while (taken < steps && !HasFailure()) {
    due_ = false;
    wanders_ = true;
    QTimer::singleShot(0, &window, [this] { tick(); });
    QElapsedTimer still;
    until(
        [&] {
          if (!due_ || !rests()) still.invalidate();
          else if (!still.isValid()) still.start();
          return still.isValid() && still.elapsed() > kUnwinding;
        },
        kPatience);
    wanders_ = false;
    if (!due_ || !rests()) {
      ADD_FAILURE() << "stuck at step " << taken << ": " << restless() << "\n" << history().right(2000).toStdString();
      return;
    }
    check();
  }
}

}  // namespace kaveltest
