// A step may open an event loop of its own (a prompt, a dialog), so the next one is scheduled before it runs.
#include "atelier/desktop/window/driver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

namespace atelier::desktop {
namespace {

constexpr int kPause = 5;      // milliseconds between two looks at the window
constexpr int kSettle = 8000;  // at most, for a picture to be painted

QString plain(QString text) { return text.remove('&'); }

QAction* actionNamed(const QList<QAction*>& actions, const QString& name) {
  for (QAction* action : actions) {
    if (action->menu())
      if (QAction* found = actionNamed(action->menu()->actions(), name)) return found;
    if (!action->menu() && plain(action->text()) == name) return action;
  }
  return nullptr;
}

void click(QWidget& widget, QPointF at) {
  for (const QEvent::Type type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace

Driver& Driver::then(std::function<void()> step) {
  steps_.push_back(std::move(step));
  return *this;
}
Driver& Driver::type(const QString& line) {
  return then([this, line] { window_.commandLine().onLine(line); });
}
Driver& Driver::pick(double x, double y) {
  return then([this, x, y] { click(*window_.view(), window_.view()->viewport().pixel(x, y)); });
}
Driver& Driver::hover(double x, double y) {
  return then([this, x, y] {
    const QPointF at = window_.view()->viewport().pixel(x, y);
    QMouseEvent event(QEvent::MouseMove, at, window_.view()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(window_.view(), &event);
  });
}
Driver& Driver::menu(const QString& entry) {
  return then([this, entry] {
    QAction* const action = actionNamed(window_.menuBar()->actions(), entry);
    if (!action) qFatal("no menu entry %s", qPrintable(entry));
    action->trigger();
  });
}
Driver& Driver::until(std::function<bool()> condition) {
  return then([this, condition = std::move(condition)] { await(condition); });
}
void Driver::await(const std::function<bool()>& condition) {
  if (!condition()) steps_.push_front([this, condition] { await(condition); });
}
Driver& Driver::press(const QString& button) {
  return then([button] {
    for (QPushButton* candidate : front()->findChildren<QPushButton*>())
      if (plain(candidate->text()) == button && candidate->isVisible()) return candidate->click();
    qFatal("no button %s", qPrintable(button));
  });
}
Driver& Driver::select(const QString& list, std::vector<int> rows) {
  return then([list, rows = std::move(rows)] {
    for (QTableWidget* table : front()->findChildren<QTableWidget*>()) {
      if (!table->isVisible() || (table->horizontalHeaderItem(0) && table->horizontalHeaderItem(0)->text() != list))
        continue;
      table->clearSelection();
      for (const int row : rows)
        table->selectionModel()->select(table->model()->index(row, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
      return;
    }
    qFatal("no list %s", qPrintable(list));
  });
}
Driver& Driver::key(Qt::Key key) {
  return then([this, key] {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(window_.view(), &event);
  });
}
Driver& Driver::shot(const QString& file) {
  return then([this, file] {
    shooting_ = true;  // the next step waits
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kSettle && (timer.elapsed() < 200 || (window_.view() && !window_.view()->isSettled())))
      QApplication::processEvents(QEventLoop::AllEvents, 20);
    if (!front()->grab().save(file)) qFatal("no picture %s", qPrintable(file));
    shooting_ = false;
  });
}

QWidget* Driver::front() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (qobject_cast<QMainWindow*>(widget)) return widget;
  return nullptr;
}

bool Driver::isReady() const {
  if (shooting_ || (window_.asksForFile() && !QApplication::activeModalWidget())) return false;
  if (QWidget* const modal = QApplication::activeModalWidget()) {
    if (modal->objectName() == LongWork::kName) return false;
    const auto* const dialog = dynamic_cast<DialogWindow*>(modal);
    return !dialog || !dialog->model().result();  // a dialog with a result is about to close
  }
  const Drawing* const d = window_.drawing();
  return !d || d->waits() || !d->isBusy();
}

void Driver::step() {
  if (steps_.empty()) {
    const Drawing* const d = window_.drawing();
    if (d && d->waits()) qFatal("no step answers the last prompt of: %s", qPrintable(window_.commandLine().text()));
    return;
  }
  if (!isReady()) {
    QTimer::singleShot(kPause, this, [this] { step(); });
    return;
  }
  const std::function<void()> action = std::move(steps_.front());
  steps_.pop_front();
  QTimer::singleShot(kPause, this, [this] { step(); });
  action();
}

void Driver::play() {
  QTimer::singleShot(0, this, [this] { step(); });
  do QApplication::processEvents(QEventLoop::AllEvents, 20);
  while (!steps_.empty() || (window_.drawing() && window_.drawing()->isBusy()) || QApplication::activeModalWidget());
}

}  // namespace atelier::desktop
