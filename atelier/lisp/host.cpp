// The default console, search path and system variables.
#include "atelier/lisp/host.h"

#include <filesystem>
#include <iostream>

#include "atelier/lisp/file_object.h"

namespace atelier::lisp {

void StandardConsole::write(std::string_view utf8) {
  std::cout << utf8 << std::flush;
}

std::optional<std::string> StandardConsole::readLine() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::optional<std::string> FolderSearch::find(std::string_view name) const {
  namespace fs = std::filesystem;
  const fs::path wanted = nativePath(name);
  std::error_code error;
  const auto existing = [&error](const fs::path& path) -> std::optional<std::string> {
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    return fs::absolute(path, error).lexically_normal().string();
  };
  if (wanted.empty()) return std::nullopt;
  if (auto found = existing(wanted); found || wanted.is_absolute()) return found;
  for (const std::string& folder : folders)
    if (auto found = existing(fs::path(folder) / wanted)) return found;
  return std::nullopt;
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
