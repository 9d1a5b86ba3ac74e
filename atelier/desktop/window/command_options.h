// The arguments of kavel-bureau, read before there is a window or a screen.
#pragma once
#include <QStringList>
#include <optional>

namespace atelier::desktop {

// The drawings to open. Nothing when the program ends at once with that status: it has then printed its help, its version,
// or what it doesn't understand. Options of the toolkit (-platform, -style ...) are left to it.
std::optional<QStringList> drawingsAsked(int argc, char** argv, int& status);

}  // namespace atelier::desktop
