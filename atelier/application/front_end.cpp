// Finds the front-end from the place of the program.
// Its folder is on the search path of `load` and `findfile`, so that its files find each other.
#include "atelier/application/front_end.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "atelier/document/document.h"

namespace atelier {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMain = "kavel.lsp";

}  // namespace

std::string frontalFolder() {
  std::error_code error;
  std::vector<fs::path> places;
  if (const char* given = std::getenv("KAVEL_FRONTAL")) places.emplace_back(given);
  const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
  places.push_back(program / ".." / "share" / "kavel" / "frontal");
  // The program is in build/<preset>/bin of the source tree.
  places.push_back(program / ".." / ".." / ".." / "frontal");
  for (const fs::path& place : places)
    if (fs::exists(place / kMain, error)) return fs::weakly_canonical(place, error).string();
  return {};
}

bool loadFrontal(Document& document) {
  const std::string folder = frontalFolder();
  if (folder.empty()) {
    std::fprintf(stderr,
                 "kavel: le dossier du frontal est introuvable (variable KAVEL_FRONTAL); --no-frontal s'en passe\n");
    return false;
  }
  document.addSupport(folder);
  // The folder of templates and definitions that commands propose.
  const fs::path examples = fs::path(folder).parent_path() / "exemples";
  if (std::error_code error; fs::is_directory(examples, error)) document.addSupport(examples.string());
  return document.load((fs::path(folder) / kMain).string());
}

}  // namespace atelier
