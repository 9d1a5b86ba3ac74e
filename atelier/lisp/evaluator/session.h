// What an interpreter keeps besides values: where forms were read, the environment of getenv and setenv, and the
// registry.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "atelier/lisp/values/heap.h"
#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

struct Place {
  std::string file;
  int line = 0;
};

// File and line of the lists that were read from files, for error messages. Lists that the garbage collector frees are
// forgotten.
class SourceMap {
 public:
  void enter(const std::string& file);
  void record(Value list, int line) { places_[list.pair()] = {file_, line}; }
  Place find(Value list) const;
  void purge();

 private:
  struct Entry {
    int file, line;
  };
  std::vector<std::string> files_;
  int file_ = 0;
  std::unordered_map<const Pair*, Entry> places_;
};

struct Session {
  std::map<std::string, std::string, std::less<>> environment;         // by upper-case name
  std::map<std::string, std::map<std::string, std::string>> registry;  // by upper-case key and value name
  std::shared_ptr<void> dialogs;                                       // of the host's functions for DCL
  std::string pendingInput;                                            // the rest of the line for read-char
  bool inputStarted = false;
};

}  // namespace atelier::lisp
