// The guide stands with the documents of the installation, or in the source tree, beside the front-end.
#include "atelier/desktop/panels/guide_window.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScrollBar>

#include "atelier/application/front_end.h"

namespace atelier::desktop {
namespace {

QString guidePath() {
  const QDir frontal(QString::fromStdString(frontalFolder()));
  for (const char* place : {"../docs/guide.md", "../../doc/kavel/guide.md"})
    if (const QString path = frontal.filePath(place); QFile::exists(path)) return path;
  return {};
}

QTextBlock headingOf(const QTextDocument& guide, const QString& command) {
  const QRegularExpression name(
      "(?<![\\w-])" + QRegularExpression::escape(command) + "(?![\\w-])",
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  for (QTextBlock block = guide.begin(); !command.isEmpty() && block.isValid(); block = block.next())
    if (block.blockFormat().headingLevel() > 0 && block.text().contains(name)) return block;
  return guide.begin();
}

}  // namespace

GuideWindow::GuideWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setWindowTitle(QStringLiteral("Guide de Kavel"));
  setOpenExternalLinks(true);
  resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 45);
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
  const QTextBlock heading = headingOf(*document(), command);
  setTextCursor(QTextCursor(heading));
  verticalScrollBar()->setValue(static_cast<int>(document()->documentLayout()->blockBoundingRect(heading).top()));
  return true;
}

}  // namespace atelier::desktop
