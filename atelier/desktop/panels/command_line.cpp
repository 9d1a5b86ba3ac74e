// A blank acts as Enter, except at prompts for texts and inside an expression.
#include "atelier/desktop/panels/command_line.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace atelier::desktop {
namespace {

constexpr int kMostLines = 5000, kMostRemembered = 500;
constexpr int kVisibleLines = 5;

// The prompt as rich text: keywords to click are links.
QString marked(const PromptInfo& prompt) {
  QString text = QString::fromStdString(prompt.text).trimmed().toHtmlEscaped();
  if (prompt.tracks) text = QStringLiteral("Cliquez ou tapez");
  for (const std::string& word : prompt.keywords) {
    const QString keyword = QString::fromStdString(word);
    const QString escaped = keyword.toHtmlEscaped();
    qsizetype at = text.indexOf('[');
    at = text.indexOf(escaped, at < 0 ? 0 : at);
    const QString link = QString("<a href=\"%1\">%1</a>").arg(escaped);
    if (at >= 0) text.replace(at, escaped.size(), link);
    else text += ' ' + link;
  }
  return text;
}

}  // namespace

CommandLine::CommandLine(QWidget* parent) : QWidget(parent) {
  history_ = new QPlainTextEdit(this);
  history_->setReadOnly(true);
  history_->setMaximumBlockCount(kMostLines);
  history_->setAccessibleName(QStringLiteral("Historique"));
  history_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  history_->setMinimumHeight(history_->fontMetrics().height() * kVisibleLines);
  prompt_ = new QLabel(this);
  prompt_->setTextFormat(Qt::RichText);
  prompt_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  edit_ = new QLineEdit(this);
  edit_->setAccessibleName(QStringLiteral("Ligne de commande"));
  edit_->setPlaceholderText(QStringLiteral("Tapez une commande"));
  edit_->installEventFilter(this);
  completions_ = new CompletionList(*edit_);
  connect(edit_, &QLineEdit::textEdited, this, [this] {
    if (atCommand_) completions_->complete();
  });
  connect(prompt_, &QLabel::linkActivated, this, [this](const QString& keyword) {
    edit_->setFocus();  // the next Enter isn't the link's
    send(keyword);
  });
  auto* line = new QHBoxLayout;
  line->addWidget(prompt_);
  line->addWidget(edit_, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(4, 2, 4, 2);
  all->addWidget(history_, 1);
  all->addLayout(line);
  setFocusProxy(edit_);
  showPrompt(nullptr);
}

void CommandLine::print(const QString& text) {
  const bool atEnd = history_->verticalScrollBar()->value() >= history_->verticalScrollBar()->maximum() - 2;
  QTextCursor cursor(history_->document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(text);
  if (atEnd) history_->verticalScrollBar()->setValue(history_->verticalScrollBar()->maximum());
}

void CommandLine::showPrompt(const PromptInfo* prompt) {
  atCommand_ = !prompt;
  takesSpaces_ = prompt && prompt->takesSpaces;
  if (prompt) completions_->hide();
  prompt_->setText(prompt ? marked(*prompt) : QStringLiteral("Commande :"));
  edit_->setPlaceholderText(prompt ? QString() : QStringLiteral("Tapez une commande"));
}

void CommandLine::send(const QString& line) {
  edit_->clear();
  completions_->hide();
  if (!line.trimmed().isEmpty()) {
    lines_.removeAll(line);
    lines_.push_back(line);
    while (lines_.size() > kMostRemembered) lines_.removeFirst();
  }
  place_ = lines_.size();
  if (onLine) onLine(line);
}

void CommandLine::recall(qsizetype step) {
  place_ = std::clamp<qsizetype>(place_ + step, 0, lines_.size());
  edit_->setText(place_ < lines_.size() ? lines_[place_] : QString());
}

// Whether a key is for the names that are shown.
bool CommandLine::chooses(int key) {
  if (!completions_->isVisible()) return false;
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab: return completions_->take();
    case Qt::Key_Escape: completions_->hide(); return true;
    case Qt::Key_Up: completions_->step(-1); return true;
    case Qt::Key_Down: completions_->step(+1); return true;
    default: return false;
  }
}

void CommandLine::takeKey(QKeyEvent* event) {
  window()->activateWindow();
  edit_->setFocus();
  QApplication::sendEvent(edit_, event);
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event) {
  // While the line has text, keys such as Ctrl+Z and Ctrl+A act on it; otherwise on the window.
  if (watched == edit_ && event->type() == QEvent::ShortcutOverride && edit_->text().isEmpty()) {
    event->ignore();
    return true;
  }
  if (watched != edit_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const QString text = edit_->text();
  const bool expression = text.trimmed().startsWith('(') || text.trimmed().startsWith('!');
  if (chooses(key->key())) return true;
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: send(text); return true;
    case Qt::Key_Space:
      if (takesSpaces_ || expression) return false;
      send(text);
      return true;
    case Qt::Key_Escape:
      edit_->clear();
      if (onCancel) onCancel();
      return true;
    case Qt::Key_Up: recall(-1); return true;
    case Qt::Key_Down: recall(+1); return true;
    default: return false;
  }
}

}  // namespace atelier::desktop
