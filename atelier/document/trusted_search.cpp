// Deciding whether a program may be loaded.
// Paths are compared as the file system sees them, links and dots resolved.
#include "atelier/document/trusted_search.h"

#include <algorithm>
#include <filesystem>

#include "atelier/document/document.h"
#include "atelier/lisp/evaluator/file_object.h"

namespace atelier {
namespace {

namespace fs = std::filesystem;

fs::path resolved(const fs::path& path) {
  std::error_code error;
  const fs::path real = fs::weakly_canonical(path, error);
  return error ? path.lexically_normal() : real;
}

bool isBelow(const fs::path& file, const fs::path& folder) {
  const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
  return end == folder.end() || (std::next(end) == folder.end() && end->empty());  // a folder's last slash
}

}  // namespace

void TrustedSearch::trust(const std::string& file) { chosen_.insert(resolved(file).parent_path().string()); }

bool TrustedSearch::isTrusted(const std::string& file) const {
  const fs::path path = resolved(file);
  if (chosen_.contains(path.parent_path().string())) return true;
  if (std::any_of(folders.begin(), folders.end(), [&](const std::string& f) { return isBelow(path, resolved(f)); }))
    return true;
  std::string_view rest;
  const auto listed = document_.variables().value("TRUSTEDPATHS");
  if (listed)
    if (const std::string* text = std::get_if<std::string>(&*listed)) rest = *text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    std::string folder = lisp::nativePath(trimmed(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    const bool below = folder.ends_with("/...");
    if (below) folder.resize(folder.size() - 4);
    if (folder.empty()) continue;
    fs::path trusted = resolved(folder);
    if (!trusted.has_filename()) trusted = trusted.parent_path();
    if (below ? isBelow(path, trusted) : path.parent_path() == trusted) return true;
  }
  return false;
}

std::string TrustedSearch::refusal(const std::string& path) {
  const int mode = document_.variables().integer("SECURELOAD", 1);
  if (mode == 0 || isTrusted(path)) return {};
  const std::string refused = "SECURELOAD refuse de charger " + path + ": son dossier n'est pas dans TRUSTEDPATHS";
  if (mode == 2) return refused;
  Prompter& prompter = document_.prompter();
  if (!prompter.source || !prompter.source->echoes()) {
    document_.print("\n" + path + " est chargé hors des dossiers sûrs (TRUSTEDPATHS).\n");
    return {};
  }
  prompter.initGet(0, "Oui Non _Yes No");
  const Answer answer = prompter.getKeyword("\n" + path + " est hors des dossiers sûrs. Le charger? [Oui/Non] <N>: ");
  if (answer != Answer::keyword || prompter.lastKeyword() != "Yes") return refused;
  trust(path);
  return {};
}

}  // namespace atelier
