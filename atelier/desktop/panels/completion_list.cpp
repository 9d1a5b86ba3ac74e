#include "atelier/desktop/panels/completion_list.h"

#include <QEvent>
#include <QScreen>
#include <algorithm>

namespace atelier::desktop {
namespace {

constexpr int kMostRows = 7, kFewestLetters = 2;

}  // namespace

CompletionList::CompletionList(QLineEdit& line) : QListView(&line), line_(line) {
  setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  setEditTriggers(NoEditTriggers);
  setUniformItemSizes(true);
  setAccessibleName(QStringLiteral("Noms qui commencent ainsi"));
  completer_.setModel(&names_);
  completer_.setCaseSensitivity(Qt::CaseInsensitive);
  completer_.setModelSorting(QCompleter::CaseInsensitivelySortedModel);
  setModel(completer_.completionModel());
  connect(this, &QListView::clicked, this, [this] { take(); });
  line_.installEventFilter(this);
}

void CompletionList::setNames(QStringList names) {
  names.sort(Qt::CaseInsensitive);
  names_.setStringList(names);
}

void CompletionList::complete() {
  const QString text = line_.text();
  completer_.setCompletionPrefix(text);
  const int count = text.size() < kFewestLetters || text.startsWith('(') ? 0 : completer_.completionCount();
  if (count == 0 || completer_.currentCompletion().compare(text, Qt::CaseInsensitive) == 0) return hide();
  setCurrentIndex({});
  place();
  show();
}

// Below the line, above it where the screen ends.
void CompletionList::place() {
  line_.window()->installEventFilter(this);
  const int rows = std::min(kMostRows, model()->rowCount());
  const int height = rows * sizeHintForRow(0) + 2 * frameWidth();
  QPoint at = line_.mapToGlobal(QPoint(0, line_.height()));
  if (at.y() + height > line_.screen()->availableGeometry().bottom())
    at = line_.mapToGlobal(QPoint(0, 0)) - QPoint(0, height);
  setGeometry(QRect(at, QSize(line_.width(), height)));
}

void CompletionList::step(int by) {
  const int row = currentIndex().isValid() ? currentIndex().row() + by : by > 0 ? 0 : model()->rowCount() - 1;
  setCurrentIndex(model()->index(std::clamp(row, 0, model()->rowCount() - 1), 0));
}

bool CompletionList::take() {
  if (!isVisible() || !currentIndex().isValid()) return false;
  line_.setText(currentIndex().data().toString());
  hide();
  return true;
}

bool CompletionList::eventFilter(QObject* watched, QEvent* event) {
  const bool leaves = event->type() == QEvent::FocusOut || event->type() == QEvent::Hide;
  const bool moves = event->type() == QEvent::Move || event->type() == QEvent::Resize;
  if ((watched == &line_ && leaves) || (watched == line_.window() && moves)) hide();
  return QListView::eventFilter(watched, event);
}

}  // namespace atelier::desktop
