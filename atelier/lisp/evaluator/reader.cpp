// The reader. Each list is built in its final place while it is read, so that deep nesting needs no machine stack, and
// no work when reading stops at an error.
#include "atelier/lisp/evaluator/reader.h"

#include <charconv>

#include "atelier/base/real_reading.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

constexpr std::size_t kDeepest = 500'000;  // lists in lists; deeper nesting could not be evaluated
constexpr char kEndOfFile = '\x1a';        // Ctrl-Z, with which old editors end a file

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r') || c == kEndOfFile || c == '\0'; }
bool isDelimiter(char c) { return isBlank(c) || c == '(' || c == ')' || c == '\'' || c == '"' || c == ';'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Digits, at most one dot, an exponent. Checked first, because from_chars would also accept "inf" and "nan".
bool looksLikeNumber(std::string_view token) {
  std::size_t i = !token.empty() && (token[0] == '+' || token[0] == '-') ? 1 : 0;
  std::size_t count = 0;
  const auto skipDigits = [&] {
    for (; i < token.size() && isDigit(token[i]); ++i) ++count;
  };
  skipDigits();
  if (i < token.size() && token[i] == '.') {
    ++i;
    skipDigits();
  }
  if (count == 0) return false;
  if (i < token.size() && (token[i] == 'e' || token[i] == 'E')) {
    ++i;
    if (i < token.size() && (token[i] == '+' || token[i] == '-')) ++i;
    count = 0;
    skipDigits();
  }
  return count > 0 && i == token.size();
}

}  // namespace

std::optional<Value> parseNumber(std::string_view token) {
  if (!looksLikeNumber(token)) return std::nullopt;
  if (token[0] == '+') token.remove_prefix(1);
  const char* const end = token.data() + token.size();
  std::int32_t whole = 0;
  if (const auto [rest, error] = std::from_chars(token.data(), end, whole); rest == end && error == std::errc())
    return Value::integer(whole);
  double number = 0;
  readReal(token.data(), end, number);
  return Value::real(number);
}

Reader::Reader(Interpreter& interpreter, std::string_view text, std::string file, SourceMap* sources)
    : in_(interpreter), text_(text), file_(std::move(file)), sources_(sources) {}

void Reader::fail(const char* message) {
  Error error(message, Error::Kind::Syntax);
  error.file = file_;
  error.line = formLine_;
  in_.fail(std::move(error));
}

char Reader::take() {
  const char c = text_[at_++];
  if (c == '\n') ++line_;
  return c;
}

bool Reader::skipBlanks() {
  while (!atEnd()) {
    const char c = peek();
    if (c == ';' && peek(1) == '|') {
      skipBlockComment();
    } else if (c == ';') {
      while (!atEnd() && peek() != '\n') ++at_;
    } else if (isBlank(c)) {
      take();
    } else {
      return true;
    }
  }
  return false;
}

void Reader::skipBlockComment() {
  const int began = line_;
  for (at_ += 2; !atEnd(); take()) {
    if (peek() == '|' && peek(1) == ';') {
      at_ += 2;
      return;
    }
  }
  formLine_ = began;
  fail("malformed comment on input");
}

std::optional<Value> Reader::next() {
  formLine_ = line_;
  if (!skipBlanks()) return std::nullopt;
  formLine_ = line_;
  if (peek() == ')') fail("extra right paren on input");
  return form();
}

Value Reader::form() {
  const Root whole(in_, in_.cons(nil, nil));  // keeps all lists that are being read alive
  open_.clear();
  for (Value* place = &whole.get().pair()->car; place; place = nextPlace()) fill(place);
  return whole.get().car();
}

void Reader::fill(Value* place) {
  while (peek() == '\'') {
    in_.poll();
    take();
    if (!skipBlanks() || peek() == ')') fail("malformed list on input");
    const Value quoted = in_.list({in_.symbol("QUOTE"), nil});
    *place = quoted;
    place = &quoted.cdr().pair()->car;
  }
  if (peek() == '(') {
    if (open_.size() == kDeepest) in_.fail("hard stack overflow");
    open_.push_back({place, nil, line_});
    take();
  } else {
    *place = peek() == '"' ? string() : atom();
  }
}

Value* Reader::nextPlace() {
  while (!open_.empty()) {
    in_.poll();
    Open& list = open_.back();
    if (!skipBlanks()) fail("malformed list on input");
    if (peek() == ')') {
      take();
      if (sources_ && *list.start) sources_->record(*list.start, list.line);
      open_.pop_back();
    } else if (list.dotted) {
      fail("extra cdrs in dotted pair on input");
    } else if (peek() == '.' && (at_ + 1 == text_.size() || isDelimiter(peek(1)))) {
      if (!list.last) fail("misplaced dot on input");
      take();
      if (!skipBlanks()) fail("malformed list on input");
      if (peek() == ')') fail("misplaced dot on input");
      list.dotted = true;
      return &list.last.pair()->cdr;
    } else {
      const Value cell = in_.cons(nil, nil);
      (list.last ? list.last.pair()->cdr : *list.start) = cell;
      list.last = cell;
      return &cell.pair()->car;
    }
  }
  return nullptr;
}

Value Reader::string() {
  take();
  std::string text;
  for (;;) {
    in_.poll();
    if (atEnd()) fail("malformed string on input");
    const char c = take();
    if (c == '"') return in_.string(text);
    if (c == '\\') {
      escape(text);
    } else if (c != '\r' || peek() != '\n') {  // a string over several lines of a CR LF file
      text.push_back(c);
    }
  }
}

// Reads the characters after a backslash.
void Reader::escape(std::string& text) {
  if (atEnd()) return;
  const char c = take();
  switch (c) {
    case 'n': text.push_back('\n'); return;
    case 't': text.push_back('\t'); return;
    case 'r': text.push_back('\r'); return;
    case 'e': text.push_back('\x1b'); return;
    case 'U':
      if (peek() == '+') {
        ++at_;
        appendUtf8(text, digits(16, 4));
        return;
      }
      break;
    default:
      if (c >= '0' && c <= '7') {
        --at_;
        appendUtf8(text, windows1252CodePoint(static_cast<unsigned char>(digits(8, 3))));
        return;
      }
  }
  text.push_back(c);
}

std::uint32_t Reader::digits(int base, std::size_t most) {
  const std::string_view rest = text_.substr(at_, most);
  std::uint32_t number = 0;
  const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), number, base);
  at_ += static_cast<std::size_t>(result.ptr - rest.data());
  return number;
}

std::string_view Reader::token() {
  const std::size_t start = at_;
  while (!atEnd() && !isDelimiter(peek())) ++at_;
  return text_.substr(start, at_ - start);
}

Value Reader::atom() {
  const std::string_view text = token();
  if (text == "." || (text[0] == '.' && isDigit(text.size() > 1 ? text[1] : ' '))) fail("misplaced dot on input");
  if (const auto number = parseNumber(text)) return *number;
  return in_.symbol(text);
}

Value Interpreter::read(std::string_view text) { return Reader(*this, text, {}, nullptr).next().value_or(nil); }

// Reads and evaluates form by form, as the AutoLISP reference does: forms before a broken one take effect.
Value Interpreter::runForms(std::string_view text, std::string_view file) {
  if (!file.empty()) sources_->enter(std::string(file));
  Reader reader(*this, text, std::string(file), file.empty() ? nullptr : sources_.get());
  Value result = nil;
  Frame frame{frame_, nil};
  while (const auto form = reader.next()) {
    frame.form = *form;
    frame_ = form->isPair() ? &frame : frame.previous;
    result = eval(*form);
    frame_ = frame.previous;
    if (!file.empty()) sources_->enter(std::string(file));  // a nested load has left another file current
  }
  return result;
}

}  // namespace atelier::lisp
