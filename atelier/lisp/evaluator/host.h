// What the interpreter needs from its program: a console, a search path, system variables.
// Each has a default implementation, so that an interpreter without a host works.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace atelier::lisp {

// Where prompt, princ, prin1, print and terpri write, and read-line and read-char read.
class Console {
 public:
  virtual ~Console() = default;
  virtual void write(std::string_view utf8) = 0;
  // One line without its end; nothing at the end of the input.
  virtual std::optional<std::string> readLine() { return std::nullopt; }
};

// The standard output and input.
class StandardConsole : public Console {
 public:
  void write(std::string_view utf8) override;
  std::optional<std::string> readLine() override;
};

// Where `load` and `findfile` look. Names are given as programs write them, with either slash.
class PathSearch {
 public:
  virtual ~PathSearch() = default;
  // The absolute path of an existing file, or nothing.
  virtual std::optional<std::string> find(std::string_view name) const = 0;
  // The same for a program that is to be loaded.
  virtual std::optional<std::string> findProgram(std::string_view name) const { return find(name); }
  // Why the program at the path may not be loaded; empty when it may. May ask the user.
  virtual std::string refusal(const std::string& path) {
    static_cast<void>(path);
    return {};
  }
};

// An absolute name is used as it is; a relative one is looked for in the current folder, then in each folder of the
// list. Programs are looked for in the list first: a file beside a drawing must not replace one of ours.
class FolderSearch : public PathSearch {
 public:
  std::vector<std::string> folders;
  std::optional<std::string> find(std::string_view name) const override;
  std::optional<std::string> findProgram(std::string_view name) const override;

 private:
  std::optional<std::string> findInFolders(const std::string& wanted) const;
};

// The few system variables that the functions of this room depend on: LUNITS LUPREC AUNITS AUPREC DIMZIN
// UNITMODE ANGBASE (radians) ANGDIR. Names come in upper case.
class SystemVariables {
 public:
  using Setting = std::variant<int, double, std::string>;
  virtual ~SystemVariables() = default;
  virtual std::optional<Setting> get(std::string_view name) const = 0;

  int integer(std::string_view name, int otherwise) const;
  double real(std::string_view name, double otherwise) const;
};

class DefaultVariables : public SystemVariables {
 public:
  std::map<std::string, Setting, std::less<>> settings{{"LUNITS", 2},   {"LUPREC", 4},    {"AUNITS", 0}, {"AUPREC", 0},
                                                       {"UNITMODE", 0}, {"ANGBASE", 0.0}, {"ANGDIR", 0}, {"DIMZIN", 0}};
  std::optional<Setting> get(std::string_view name) const override;
};

// Null pointers stand for the defaults. The objects must outlive the interpreter.
struct Host {
  Console* console = nullptr;
  PathSearch* search = nullptr;
  SystemVariables* variables = nullptr;
};

}  // namespace atelier::lisp
