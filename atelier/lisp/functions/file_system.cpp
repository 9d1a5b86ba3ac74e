// Files and folders by name: vl-file-*, vl-filename-*, vl-directory-files, vl-mkdir.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier::lisp {
namespace {

namespace fs = std::filesystem;

std::string pathArgument(Interpreter& in, Value value) { return nativePath(stringArgument(in, value)); }

Value fileDelete(Interpreter& in, Arguments arguments) {
  const std::string path = pathArgument(in, arguments[0]);
  std::error_code error;
  return in.boolean(!fs::is_directory(path, error) && fs::remove(path, error));
}

// An existing target is not replaced, as in the AutoLISP reference.
Value fileRename(Interpreter& in, Arguments arguments) {
  const std::string from = pathArgument(in, arguments[0]), to = pathArgument(in, arguments[1]);
  std::error_code error;
  if (fs::exists(to, error)) return nil;
  fs::rename(from, to, error);
  return in.boolean(!error);
}

// The number of bytes copied, nil when not all could be; a copy that had to be broken off is removed.
Value fileCopy(Interpreter& in, Arguments arguments) {
  const std::string from = pathArgument(in, arguments[0]), to = pathArgument(in, arguments[1]);
  const auto bytes = readWholeFile(from);
  std::error_code error;
  if (!bytes || (fs::exists(to, error) && !optional(arguments, 2))) return nil;
  const bool fresh = !fs::exists(to, error);
  std::ofstream out(to, std::ios::binary | (optional(arguments, 2) ? std::ios::app : std::ios::trunc));
  out.write(bytes->data(), static_cast<std::streamsize>(bytes->size()));
  out.close();
  if (!out) {
    if (fresh) fs::remove(to, error);
    return nil;
  }
  return Value::integerOrReal(static_cast<std::int64_t>(bytes->size()));
}

// 0 for a folder, nil for a file that doesn't exist.
Value fileSize(Interpreter& in, Arguments arguments) {
  const std::string path = pathArgument(in, arguments[0]);
  std::error_code error;
  if (fs::is_directory(path, error)) return Value::integer(0);
  const auto size = fs::file_size(path, error);
  return error ? nil : Value::integerOrReal(static_cast<std::int64_t>(size));
}

// (year month day-of-week day hours minutes seconds milliseconds) of the last change, local time.
Value fileTime(Interpreter& in, Arguments arguments) {
  std::error_code error;
  const auto changed = fs::last_write_time(pathArgument(in, arguments[0]), error);
  if (error) return nil;
  const auto system = std::chrono::file_clock::to_sys(changed);
  const std::time_t seconds =
      std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto number = [](int value) { return Value::integer(value); };
  return in.list({number(local.tm_year + 1900), number(local.tm_mon + 1), number(local.tm_wday), number(local.tm_mday),
                  number(local.tm_hour), number(local.tm_min), number(local.tm_sec), number(0)});
}

Value isFolder(Interpreter& in, Arguments arguments) {
  std::error_code error;
  return in.boolean(fs::is_directory(pathArgument(in, arguments[0]), error));
}

Value makeFolder(Interpreter& in, Arguments arguments) {
  std::error_code error;
  return in.boolean(fs::create_directory(pathArgument(in, arguments[0]), error));
}

// (vl-directory-files [dossier motif quoi]): names without folder, sorted; `quoi` -1 folders, 1 files, 0
// both.
Value directoryFiles(Interpreter& in, Arguments arguments) {
  const std::string folder = optional(arguments, 0) ? pathArgument(in, arguments[0]) : ".";
  const Value pattern = optional(arguments, 1), kinds = optional(arguments, 2);
  const std::string wanted = pattern ? upperCase(stringArgument(in, pattern)) : "*";
  const std::int32_t kind = kinds ? integerArgument(in, kinds) : 0;
  std::vector<std::string> names;
  if (kind <= 0) names = {".", ".."};
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const bool directory = entry->is_directory(error);
    if ((kind < 0 && !directory) || (kind > 0 && directory)) continue;
    names.push_back(entry->path().filename().string());
  }
  if (!fs::is_directory(folder, error)) return nil;
  // "*.*" means every file, also those without an extension.
  std::erase_if(names,
                [&](const std::string& name) { return wanted != "*.*" && !matchesFileName(upperCase(name), wanted); });
  std::sort(names.begin(), names.end());
  ValueStack found(in);
  for (const std::string& name : names) found.push(in.string(name));
  return found.list();
}

// --- Parts of names. Separators are kept as written.

std::size_t nameStart(std::string_view path) {
  const std::size_t slash = path.find_last_of("/\\:");
  return slash == std::string_view::npos ? 0 : slash + 1;
}

std::size_t extensionStart(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string_view::npos || dot < nameStart(path) ? path.size() : dot;
}

Value fileBase(Interpreter& in, Arguments arguments) {
  const std::string_view path = stringArgument(in, arguments[0]);
  const std::size_t start = nameStart(path);
  return in.string(path.substr(start, extensionStart(path) - start));
}

Value fileDirectory(Interpreter& in, Arguments arguments) {
  std::string_view path = stringArgument(in, arguments[0]);
  path = path.substr(0, nameStart(path));
  const bool isRoot = path.size() == 1 || path.ends_with(":") || path.ends_with(":\\") || path.ends_with(":/");
  if (!path.empty() && !isRoot) path.remove_suffix(1);
  return in.string(path);
}

Value fileExtension(Interpreter& in, Arguments arguments) {
  const std::string_view path = stringArgument(in, arguments[0]);
  const std::size_t start = extensionStart(path);
  return start == path.size() ? nil : in.string(path.substr(start));
}

// A name that no file has yet: the pattern followed by three digits, with folder and extension.
Value makeTemporaryName(Interpreter& in, Arguments arguments) {
  const Value pattern = optional(arguments, 0), directory = optional(arguments, 1), ending = optional(arguments, 2);
  const fs::path given = pattern ? pathArgument(in, pattern) : std::string("$VL~~");
  std::error_code error;
  fs::path folder = directory ? fs::path(pathArgument(in, directory)) : given.parent_path();
  if (folder.empty()) folder = fs::temp_directory_path(error);
  const std::string extension = ending ? std::string(stringArgument(in, ending)) : given.extension().string();
  for (int number = 1; number < 1000; ++number) {
    const std::string digits = std::to_string(1000 + number).substr(1);
    const fs::path candidate = folder / (given.stem().string() + digits + extension);
    if (!fs::exists(candidate, error)) return in.string(candidate.string());
  }
  return nil;
}

constexpr Builtin kTable[] = {
    {"vl-file-delete", fileDelete, 1, 1, "(vl-file-delete nom)", "Supprime un fichier."},
    {"vl-file-rename", fileRename, 2, 2, "(vl-file-rename ancien nouveau)", "Renomme un fichier."},
    {"vl-file-copy", fileCopy, 2, 3, "(vl-file-copy source cible [ajouter])",
     "Copie un fichier, ou l'ajoute à un autre."},
    {"vl-file-size", fileSize, 1, 1, "(vl-file-size nom)", "Taille d'un fichier en octets, ou nil."},
    {"vl-file-systime", fileTime, 1, 1, "(vl-file-systime nom)", "Date et heure de la dernière modification."},
    {"vl-file-directory-p", isFolder, 1, 1, "(vl-file-directory-p nom)", "T si le nom est celui d'un dossier."},
    {"vl-mkdir", makeFolder, 1, 1, "(vl-mkdir dossier)", "Crée un dossier."},
    {"vl-directory-files", directoryFiles, 0, 3, "(vl-directory-files [dossier motif quoi])",
     "Les noms d'un dossier : -1 dossiers, 0 tous, 1 fichiers."},
    {"vl-filename-base", fileBase, 1, 1, "(vl-filename-base nom)", "Le nom sans dossier ni extension."},
    {"vl-filename-directory", fileDirectory, 1, 1, "(vl-filename-directory nom)", "Le dossier d'un nom."},
    {"vl-filename-extension", fileExtension, 1, 1, "(vl-filename-extension nom)", "L'extension d'un nom, ou nil."},
    {"vl-filename-mktemp", makeTemporaryName, 0, 3, "(vl-filename-mktemp [modèle dossier extension])",
     "Un nom de fichier qui n'existe pas encore."},
};

}  // namespace

std::span<const Builtin> fileSystemFamily() { return kTable; }

}  // namespace atelier::lisp
