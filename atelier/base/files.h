// Files by names that other systems wrote, and the folder of settings.
#pragma once
#include <optional>
#include <string>

namespace atelier {

// The path of an existing file or folder: as given, or else the one whose names differ by capitals only, since programs come
// from systems that don't tell them apart. Nothing when there is none.
std::optional<std::string> pathInAnyCase(const std::string& path);

// A file that a drawing names: as it is written, below the drawing's folder, or by its name alone beside the drawing. Names
// may have a drive and backslashes.
std::optional<std::string> fileBeside(const std::string& drawing, std::string name);

// Where settings are kept, and tables and styles of one's own: KAVEL_CHEMIN when set, else the user's data folder.
std::string installationFolder();

}  // namespace atelier
