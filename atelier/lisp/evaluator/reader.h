// From text to forms. Syntax after the AutoLISP reference: quote, strings, both kinds of comments, dotted
// pairs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

// Reads the forms of a UTF-8 text one after the other. A fault throws an Error of kind Syntax with the line where the
// outermost open form began, counted from 1.
class SourceMap;

class Reader {
 public:
  // With `sources`, the place of every list is recorded there.
  Reader(Interpreter& interpreter, std::string_view text, std::string file, SourceMap* sources);

  // The next form, nothing at the end of the text.
  std::optional<Value> next();

 private:
  bool skipBlanks();  // false at the end of the text
  void skipBlockComment();
  Value form();
  // Reads an atom into the place, or opens a list there.
  void fill(Value* place);
  // Closes the lists that end here and gives the place of the next form; null when no list is open.
  Value* nextPlace();
  Value string();
  Value atom();
  void escape(std::string& text);
  std::uint32_t digits(int base, std::size_t most);
  std::string_view token();
  char peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
  bool atEnd() const { return at_ >= text_.size(); }
  char take();
  [[noreturn]] void fail(const char* message);

  // A list that is being read: its place, its last cell so far, the line it began on.
  struct Open {
    Value* start;
    Value last;
    int line;
    bool dotted = false;  // the value after the dot has been read
  };

  Interpreter& in_;
  std::string_view text_;
  std::string file_;
  SourceMap* sources_;
  std::vector<Open> open_;  // innermost last
  std::size_t at_ = 0;
  int line_ = 1;
  int formLine_ = 1;  // where the form that is being read began
};

// The number of a whole token, such as 12, -3, +4, 1.5, 1., 1e-8; nothing for any other token.
// Integers beyond 32 bits become reals.
std::optional<Value> parseNumber(std::string_view token);

}  // namespace atelier::lisp
