// Which font file serves a name in a drawing, and the open faces.
// File name first, then family, then a family of like metrics, then osifont.
#include "atelier/fonts/faces.h"

#include <memory>
#include <unordered_map>

#include "atelier/fonts/installed.h"

namespace atelier::fonts {

namespace {

struct Faces {
  // By file and index, and by name asked for; never emptied.
  std::unordered_map<std::string, std::unique_ptr<Face>> byFile;
  std::unordered_map<std::string, const Face*> byName;

  const Face& open(const FontFile& file) {
    auto& slot = byFile[file.path + '#' + std::to_string(file.index)];
    if (!slot) slot = std::make_unique<Face>(file.path, file.index);
    return *slot;
  }
};

Faces& faces() {
  static Faces& only = *std::make_unique<Faces>().release();
  return only;
}

}  // namespace

std::recursive_mutex& fontLock() {
  static std::recursive_mutex& only = *std::make_unique<std::recursive_mutex>().release();
  return only;
}

const Face* faceWith(char32_t c) {
  const auto file = installedWith(c);
  if (!file) return nullptr;
  try {
    const Face& face = faces().open(*file);
    return face.has(c) ? &face : nullptr;
  } catch (const FontError&) {
    return nullptr;
  }
}

namespace {

bool equalFolded(std::string_view a, std::string_view b) {
  const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (fold(a[i]) != fold(b[i])) return false;
  return true;
}

// Families with the metrics of fonts that drawings name by file: the file's stem, its family, the stand-in.
struct KnownFile {
  std::string_view stem, family, standIn;
};
constexpr KnownFile kKnownFiles[] = {
    {"arial", "Arial", "Liberation Sans"},
    {"arialbd", "Arial", "Liberation Sans"},
    {"ariali", "Arial", "Liberation Sans"},
    {"arialn", "Arial Narrow", "Liberation Sans Narrow"},
    {"times", "Times New Roman", "Liberation Serif"},
    {"cour", "Courier New", "Liberation Mono"},
    {"calibri", "Calibri", "Carlito"},
    {"verdana", "Verdana", "DejaVu Sans"},
};

std::optional<FontFile> knownFamily(std::string_view stem, bool bold, bool italic) {
  for (const KnownFile& known : kKnownFiles) {
    if (!equalFolded(stem, known.stem) && !equalFolded(stem, known.family)) continue;
    const bool heavy = bold || known.stem.ends_with("bd"), slanted = italic || known.stem.ends_with("li");
    if (const auto file = installedFamily(known.family, heavy, slanted)) return file;
    return installedFamily(known.standIn, heavy, slanted);
  }
  return std::nullopt;
}

std::optional<FontFile> standIn() {
  if (const auto file = installedFile("osifont.ttf")) return file;
  if (const auto file = installedFamily("osifont", false, false)) return file;
  return installedWith(U'H');
}

std::optional<FontFile> locate(std::string_view font, bool bold, bool italic) {
  font.remove_prefix(font.find_last_of("/\\") == std::string_view::npos ? 0 : font.find_last_of("/\\") + 1);
  const std::size_t dot = font.rfind('.');
  const std::string_view stem = font.substr(0, dot), extension = dot < font.size() ? font.substr(dot) : "";
  if (stem.empty() || equalFolded(extension, ".shx")) return standIn();
  if (const auto file = installedFile(font)) return file;
  if (const auto file = installedFamily(stem, bold, italic)) return file;
  if (const auto file = knownFamily(stem, bold, italic)) return file;
  return standIn();
}

}  // namespace

const Face& findFace(std::string_view font, bool bold, bool italic) {
  const std::lock_guard guard(fontLock());
  std::string key(font);
  key += bold ? "|b" : "|";
  key += italic ? "i" : "";
  auto& slot = faces().byName[key];
  if (!slot) {
    const auto file = locate(font, bold, italic);
    if (!file) throw FontError("aucune police n'est installée: \"" + std::string(font) + "\" en demande une (osifont)");
    slot = &faces().open(*file);
  }
  return *slot;
}

}  // namespace atelier::fonts
