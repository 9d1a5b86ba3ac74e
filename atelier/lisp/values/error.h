// An error of an AutoLISP program as a C++ exception: message, place and call chain.
// Thrown to C++ callers after *error* has been called, see Interpreter::fail.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace atelier::lisp {

class Error : public std::runtime_error {
 public:
  enum class Kind {
    Failure,    // an ordinary error, vl-catch-all-apply catches it
    Exit,       // (exit) or (quit), likewise
    Interrupt,  // Interpreter::interrupt(); only the entry points for C++ catch it
    Syntax      // the text can't be read; file and line say where the open form began
  };

  explicit Error(const std::string& message, Kind kind_ = Kind::Failure) : std::runtime_error(message), kind(kind_) {}

  std::string message() const { return what(); }

  Kind kind;
  std::string file;                // empty when the code came from no file
  int line = 0;                    // 1-based, 0 when unknown
  std::vector<std::string> chain;  // calls that were running, innermost first, as prin1 prints their forms
  bool reported = false;           // *error* has been called with the message
};

}  // namespace atelier::lisp
