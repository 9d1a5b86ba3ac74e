// Whose a key is. Letters, digits, Enter and Escape are the command line's wherever the focus is, but in fields for text.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

// Fields for text, and cells that are edited where they stand.
bool isTextField(const QWidget& widget) {
  if (const auto* cells = qobject_cast<const QAbstractItemView*>(&widget))
    return cells->editTriggers() & QAbstractItemView::AnyKeyPressed;
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget)) return !text->isReadOnly();
  return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget) ||
         qobject_cast<const QComboBox*>(&widget);
}

bool isForCommands(const QKeyEvent& key) {
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Backspace: return true;
    default: return !key.text().isEmpty() && key.text().front().isPrint();
  }
}

}  // namespace

// Also for panels and the guide, which stand in windows of their own; dialogs have their own keys.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget()) return false;
  auto& widget = static_cast<QWidget&>(*watched);
  const bool own = widget.window() == this || widget.window() == guide_ ||
                   (qobject_cast<QDockWidget*>(widget.window()) && isAncestorOf(&widget));
  if (!own || QApplication::activePopupWidget() || QApplication::activeModalWidget()) return false;
  auto& key = static_cast<QKeyEvent&>(*event);
  if (commands_->isInput(&widget)) return takesForDrawing(key);
  if (isTextField(widget) || &widget == view() || !isForCommands(key)) return false;
  const bool presses = key.key() == Qt::Key_Space || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (presses && qobject_cast<QAbstractButton*>(&widget)) return false;
  if (widget.window() == guide_ && key.key() == Qt::Key_Escape) return guide_->close();
  commands_->takeKey(&key);
  return true;
}

// Keys that mean nothing to an empty command line mean something to the drawing.
bool MainWindow::takesForDrawing(QKeyEvent& key) {
  DrawingView* const v = view();
  if (!v || !commands_->typed().isEmpty()) return false;
  const bool next = key.key() == Qt::Key_Tab || (key.key() == Qt::Key_Space && key.modifiers() & Qt::ShiftModifier);
  if (next) return v->goOn();
  // Without anything to erase the view gives the key back.
  if (key.key() != Qt::Key_Delete || drawing()->isRunning() || v->selection().empty()) return false;
  QApplication::sendEvent(v, &key);
  return true;
}

}  // namespace atelier::desktop
