// The guide stands with the documents of the installation, or in the source tree, beside the front-end.
#include "atelier/desktop/panels/guide_window.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTextList>
#include <functional>

#include "atelier/application/front_end.h"

namespace atelier::desktop {
namespace {

constexpr double kScreenShare = 0.95;

QString guidePath() {
  const QDir frontal(QString::fromStdString(frontalFolder()));
  for (const char* place : {"../docs/guide.md", "../../doc/kavel/guide.md"})
    if (const QString path = frontal.filePath(place); QFile::exists(path)) return path;
  return {};
}

// The heading of a command, else the paragraph that begins with it, else the item of a list that names it; the guide's beginning for one
// that it doesn't explain.
QTextBlock placeOf(const QTextDocument& guide, const QString& command) {
  const QRegularExpression name(
      "(?<![\\w-])" + QRegularExpression::escape(command) + "(?![\\w-])",
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  const std::function<bool(const QTextBlock&)> explains[] = {
      [&](const QTextBlock& block) { return block.blockFormat().headingLevel() > 0 && block.text().contains(name); },
      [&](const QTextBlock& block) {
        return name.match(block.text()).capturedStart() == 0 && block.text().contains(' ');
      },
      [&](const QTextBlock& block) { return block.textList() && block.text().contains(name); }};
  for (const auto& isPlace : explains)
    for (QTextBlock block = guide.begin(); !command.isEmpty() && block.isValid(); block = block.next())
      if (isPlace(block)) return block;
  return guide.begin();
}

}  // namespace

GuideWindow::GuideWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setWindowTitle(QStringLiteral("Guide de Kavel"));
  setOpenExternalLinks(true);
  resize(QSize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 45)
             .boundedTo(screen()->availableSize() * kScreenShare));
}

bool GuideWindow::openAt(const QString& command) {
  QFile file(guidePath());
  if (document()->isEmpty()) {
    if (!file.open(QIODevice::ReadOnly)) return false;
    setSearchPaths({QFileInfo(file).absolutePath()});
    setMarkdown(QString::fromUtf8(file.readAll()));
  }
  show();
  raise();
  activateWindow();
  setFocus();  // a window without children has no focus by itself
  const QTextBlock heading = placeOf(*document(), command);
  setTextCursor(QTextCursor(heading));
  verticalScrollBar()->setValue(static_cast<int>(document()->documentLayout()->blockBoundingRect(heading).top()));
  return true;
}

}  // namespace atelier::desktop
