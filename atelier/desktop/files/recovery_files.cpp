// All files of a copy have one name with several extensions, the temporary ones of its writing too.
// The lock names process and machine, so that the lock of a process that is gone doesn't count.
#include "atelier/desktop/files/recovery_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QStandardPaths>
#include <QThreadPool>
#include <QUuid>
#include <algorithm>

#include "atelier/dxf/writing/writer.h"

namespace atelier::desktop {
namespace {

constexpr const char *kOrigin = ".origine", *kLock = ".verrou";

QDir folder() {
  const QString given = qEnvironmentVariable("KAVEL_SAUVEGARDES");
  QDir found(given.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/sauvegardes"
                             : given);
  found.mkpath(".");
  return found;
}

// Waits until a file is on the disk, where a loss of power leaves it. A crash of the program alone needs no waiting.
void flush(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  close(file);
}

QString counted(qint64 count, const QString& unit) {
  return QStringLiteral("il y a %1 %2%3").arg(count).arg(unit, count > 1 ? "s" : "");
}

QString age(const QDateTime& time) {
  constexpr qint64 kMinute = 60, kHour = 60 * kMinute, kDay = 24 * kHour;
  const qint64 seconds = time.secsTo(QDateTime::currentDateTime());
  if (seconds < kMinute) return QStringLiteral("il y a moins d'une minute");
  if (seconds < kHour) return counted(seconds / kMinute, QStringLiteral("minute"));
  if (seconds < kDay) return counted(seconds / kHour, QStringLiteral("heure"));
  return counted(seconds / kDay, QStringLiteral("jour"));
}

QString dated(const QDateTime& time) {
  return time.toString(QStringLiteral("dd/MM/yyyy 'à' HH:mm:ss")) + " (" + age(time) + ")";
}

}  // namespace

RecoveryFiles::RecoveryFiles(const QString& name) : name_(name), lock_(folder().filePath(name + kLock)) {
  lock_.setStaleLockTime(0);  // a lock doesn't age: it holds as long as its process lives
}

QString RecoveryFiles::path(const char* extension) const { return folder().filePath(name_ + extension); }

std::unique_ptr<RecoveryFiles> RecoveryFiles::fresh() {
  std::unique_ptr<RecoveryFiles> files(new RecoveryFiles(QUuid::createUuid().toString(QUuid::WithoutBraces)));
  files->lock_.tryLock(0);
  return files;
}

std::vector<std::unique_ptr<RecoveryFiles>> RecoveryFiles::abandoned() {
  QStringList names;
  for (const QString& file : folder().entryList(QDir::Files)) names << file.section('.', 0, 0);
  names.removeDuplicates();
  names.removeIf([](const QString& name) { return QUuid(name).isNull(); });  // whatever else the user keeps there
  std::vector<std::unique_ptr<RecoveryFiles>> found;
  for (const QString& name : names) {
    std::unique_ptr<RecoveryFiles> files(new RecoveryFiles(name));
    if (!files->lock_.tryLock(0)) continue;
    if (QFile::exists(files->drawing())) found.push_back(std::move(files));
    else files->remove();
  }
  std::ranges::sort(found, {}, [](const auto& files) { return QFileInfo(files->drawing()).lastModified(); });
  return found;
}

void RecoveryFiles::write(AcDbDatabase& database, const QString& origin) const {
  // Whole at every moment, as the copy is: the program may be killed while it writes.
  QSaveFile note(path(kOrigin));
  if (note.open(QIODevice::WriteOnly) && note.write(origin.toUtf8()) >= 0) note.commit();
  dxf::saveCopy(database, drawing().toStdString());
  QThreadPool::globalInstance()->start([path = drawing().toStdString()] { flush(path); });
}

// The lock stays until the files are given up, and goes with it.
void RecoveryFiles::remove() const {
  QDir all = folder();
  for (const QString& file : all.entryList({name_ + ".*"}, QDir::Files))
    if (file != name_ + kLock) all.remove(file);
}

QString RecoveryFiles::origin() const {
  QFile note(path(kOrigin));
  return note.open(QIODevice::ReadOnly) ? QString::fromUtf8(note.readAll()) : QFileInfo(drawing()).fileName();
}

QString RecoveryFiles::description() const {
  const QDateTime copied = QFileInfo(drawing()).lastModified();
  const QFileInfo file(origin());
  QString text = QStringLiteral("Kavel s'est arrêté sans enregistrer %1.\n\nCopie de sauvegarde : %2.\n")
                     .arg(origin(), dated(copied));
  if (!file.isAbsolute()) return text + QStringLiteral("Ce dessin n'a pas encore de fichier.");
  if (!file.exists()) return text + QStringLiteral("Le fichier n'existe plus.");
  return text + QStringLiteral("Fichier : %1, %2 que la copie.")
                    .arg(dated(file.lastModified()),
                         file.lastModified() > copied ? QStringLiteral("plus récent") : QStringLiteral("plus ancien"));
}

}  // namespace atelier::desktop
