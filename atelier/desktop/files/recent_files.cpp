// A file may come back with its disk, so that only what is shown passes over it.
#include "atelier/desktop/files/recent_files.h"

#include <QFileInfo>
#include <QSettings>

namespace atelier::desktop {
namespace {

constexpr int kMostRecent = 10;

constexpr RecentKind kKinds[] = {
    {kRecentDrawings, "recents", "@open", "Fichiers récents"},
    {"leve", "levesRecents", "PLV-NOUVEAU", "Levés récents"},
    {"definition", "definitionsRecentes", "PLV-MATRICES", "Définitions récentes"},
};

}  // namespace

std::span<const RecentKind> recentKinds() { return kKinds; }

QStringList recentFiles(const RecentKind& kind) {
  QStringList files = QSettings().value(kind.setting).toStringList();
  files.removeIf([](const QString& path) { return !QFileInfo::exists(path); });
  return files;
}

void rememberFile(const QString& kind, const QString& path) {
  for (const RecentKind& known : kKinds) {
    if (known.name != kind) continue;
    QSettings settings;
    QStringList files = settings.value(known.setting).toStringList();
    const QString whole = QFileInfo(path).absoluteFilePath();
    files.removeAll(whole);
    files.prepend(whole);
    settings.setValue(known.setting, files.mid(0, kMostRecent));
  }
}

}  // namespace atelier::desktop
