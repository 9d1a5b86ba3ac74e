// The command line: the printed lines, the running prompt with keywords to click, and the line being typed.
#pragma once
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWidget>
#include <functional>

#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/panels/completion_list.h"

namespace atelier::desktop {

class CommandLine : public QWidget {
 public:
  explicit CommandLine(QWidget* parent);

  void print(const QString& text);
  void clear() { history_->clear(); }
  QString text() const { return history_->toPlainText(); }
  // Null: the command prompt.
  void showPrompt(const PromptInfo* prompt);
  // Names of commands and functions for completion.
  void setNames(QStringList names) { completions_->setNames(std::move(names)); }
  void setHistory(QStringList lines) { lines_ = std::move(lines), place_ = lines_.size(); }
  const QStringList& lines() const { return lines_; }
  bool isInput(const QWidget* widget) const { return widget == edit_; }
  QString typed() const { return edit_->text(); }
  // Takes a key that another widget has received and doesn't use.
  void takeKey(QKeyEvent* event);

  std::function<void(QString)> onLine;
  std::function<void()> onCancel;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void send(const QString& line);
  void recall(qsizetype step);
  bool chooses(int key);

  QPlainTextEdit* history_;
  QLabel* prompt_;
  QLineEdit* edit_;
  CompletionList* completions_;
  QStringList lines_;
  qsizetype place_ = 0;
  bool atCommand_ = true;
  bool takesSpaces_ = false;
};

}  // namespace atelier::desktop
