// The default console, search path and system variables.
#include "atelier/lisp/evaluator/host.h"

#include <filesystem>
#include <iostream>

#include "atelier/base/files.h"
#include "atelier/lisp/evaluator/file_object.h"

namespace atelier::lisp {

void StandardConsole::write(std::string_view utf8) { std::cout << utf8 << std::flush; }

std::optional<std::string> StandardConsole::readLine() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

namespace {

std::optional<std::string> existing(const std::filesystem::path& path) {
  std::error_code error;
  const auto found = pathInAnyCase(path.string());
  if (!found || !std::filesystem::is_regular_file(*found, error)) return std::nullopt;
  return std::filesystem::absolute(*found, error).lexically_normal().string();
}

}  // namespace

std::optional<std::string> FolderSearch::findInFolders(const std::string& wanted) const {
  if (wanted.empty() || std::filesystem::path(wanted).is_absolute()) return std::nullopt;
  for (const std::string& folder : folders)
    if (auto found = existing(std::filesystem::path(folder) / wanted)) return found;
  return std::nullopt;
}

std::optional<std::string> FolderSearch::find(std::string_view name) const {
  const std::string wanted = nativePath(name);
  auto found = existing(wanted);
  return found ? found : findInFolders(wanted);
}

std::optional<std::string> FolderSearch::findProgram(std::string_view name) const {
  const std::string wanted = nativePath(name);
  auto found = findInFolders(wanted);
  return found ? found : existing(wanted);
}

int SystemVariables::integer(std::string_view name, int otherwise) const {
  const auto setting = get(name);
  if (!setting) return otherwise;
  if (const int* number = std::get_if<int>(&*setting)) return *number;
  return otherwise;
}

double SystemVariables::real(std::string_view name, double otherwise) const {
  const auto setting = get(name);
  if (!setting) return otherwise;
  if (const int* number = std::get_if<int>(&*setting)) return *number;
  const double* number = std::get_if<double>(&*setting);
  return number ? *number : otherwise;
}

std::optional<SystemVariables::Setting> DefaultVariables::get(std::string_view name) const {
  const auto found = settings.find(name);
  if (found == settings.end()) return std::nullopt;
  return found->second;
}

}  // namespace atelier::lisp
