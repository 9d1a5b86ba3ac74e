// The user's guide in a window of its own, opened at what it says of a command.
#pragma once
#include <QTextBlock>
#include <QTextBrowser>

namespace atelier::desktop {

class GuideWindow : public QTextBrowser {
 public:
  explicit GuideWindow(QWidget* parent);

  // Opens where the command is explained, at the beginning when it isn't. False when the guide isn't there.
  bool openAt(const QString& command);
  // The heading, or the paragraph, at which it was opened.
  QString heading() const { return textCursor().block().text(); }
};

}  // namespace atelier::desktop
