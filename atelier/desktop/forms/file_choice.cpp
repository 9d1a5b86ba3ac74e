// The folder of the last choice is a setting of the user.
#include "atelier/desktop/forms/file_choice.h"

#include <QDir>
#include <QFileDialog>
#include <QSettings>
#include <QStandardPaths>

namespace atelier::desktop {
namespace {

constexpr const char* kFolder = "dossier";

QDir lastFolder() {
  const QString last = QSettings().value(kFolder).toString();
  return !last.isEmpty() && QDir(last).exists()
             ? QDir(last)
             : QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

}  // namespace

QString askFile(QWidget* over, FileUse use, const QString& title, const QString& filter, const QString& suggested) {
  QFileDialog dialog(over, title, QString(), filter);
  dialog.setAcceptMode(use == FileUse::toWrite ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(use == FileUse::toRead ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  const QFileInfo start(lastFolder().filePath(suggested));
  dialog.setDirectory(suggested.isEmpty() ? lastFolder() : start.absoluteDir());
  if (!suggested.isEmpty()) dialog.selectFile(start.fileName());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString path = dialog.selectedFiles().front();
  QSettings().setValue(kFolder, QFileInfo(path).absolutePath());
  return path;
}

QString besideDrawing(const QString& drawing, const QString& name) {
  return drawing.isEmpty() ? lastFolder().filePath(name) : QFileInfo(drawing).absoluteDir().filePath(name);
}

}  // namespace atelier::desktop
