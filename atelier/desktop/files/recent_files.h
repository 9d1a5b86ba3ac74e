// The files that were used last, by kind. They stay with the settings; files that are gone are left out.
#pragma once
#include <QStringList>
#include <span>

namespace atelier::desktop {

struct RecentKind {
  const char* name;     // as the front-end calls it
  const char* setting;  // the key of its list
  const char* command;  // the menu entry below which its menu stands; a form is opened with the file
  const char* title;    // of its menu
};
std::span<const RecentKind> recentKinds();
constexpr const char* kRecentDrawings = "dessin";

// The newest one first.
QStringList recentFiles(const RecentKind& kind);
void rememberFile(const QString& kind, const QString& path);

}  // namespace atelier::desktop
