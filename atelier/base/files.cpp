// Folders are searched part by part, so that only what differs is looked for.
#include "atelier/base/files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "atelier/base/text.h"

namespace atelier {

std::optional<std::string> pathInAnyCase(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (path.empty()) return std::nullopt;
  if (fs::exists(path, error)) return path;
  fs::path found;
  for (const fs::path& part : fs::path(path)) {
    const fs::path exact = found / part;
    if (part == "/" || fs::exists(exact, error)) {
      found = exact;
      continue;
    }
    const fs::path folder = found.empty() ? fs::path(".") : found;
    std::string name;
    for (const auto& entry : fs::directory_iterator(folder, fs::directory_options::skip_permission_denied, error)) {
      const std::string candidate = entry.path().filename().string();
      // The first by name, so that the same one is found each time.
      if (equalNoCase(candidate, part.string()) && (name.empty() || candidate < name)) name = candidate;
    }
    if (name.empty()) return std::nullopt;
    found /= name;
  }
  return found.string();
}

std::optional<std::string> fileBeside(const std::string& drawing, std::string name) {
  namespace fs = std::filesystem;
  std::ranges::replace(name, '\\', '/');
  const bool drive = name.size() > 1 && name[1] == ':';
  const fs::path folder = fs::path(drawing).parent_path();
  const fs::path below = drive ? fs::path(name.substr(2)).relative_path() : fs::path(name);
  for (const fs::path& candidate : {folder / below, folder / below.filename()}) {
    std::error_code error;
    const auto found = pathInAnyCase(candidate.string());
    if (found && fs::is_regular_file(*found, error)) return found;
  }
  return std::nullopt;
}

std::string installationFolder() {
  if (const char* given = std::getenv("KAVEL_CHEMIN"); given && *given) return given;
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
    return (std::filesystem::path(data) / "kavel").string();
  const char* home = std::getenv("HOME");
  return (std::filesystem::path(home ? home : ".") / ".local" / "share" / "kavel").string();
}

}  // namespace atelier
