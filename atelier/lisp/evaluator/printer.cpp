// prin1 and princ. Nested lists are kept on an explicit stack, without recursion.
#include "atelier/lisp/evaluator/printer.h"

#include <charconv>
#include <vector>

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {
namespace {

void printQuoted(std::string& out, std::string_view text) {
  out.push_back('"');
  for (char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\t': out += "\\t"; break;
      case '\r': out += "\\r"; break;
      case '\x1b': out += "\\e"; break;
      default:
        if (const auto byte = static_cast<unsigned char>(c); byte < 32) {
          out += {'\\', '0', static_cast<char>('0' + byte / 8), static_cast<char>('0' + byte % 8)};
        } else {
          out.push_back(c);
        }
    }
  }
  out.push_back('"');
}

std::string hexadecimal(std::uint64_t number) {
  char digits[20];
  return {digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr};
}

std::string integerText(std::int64_t number) {
  char digits[24];
  return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

void printAtom(std::string& out, Value value, bool quoting) {
  const auto function = [&](const char* kind, const std::string& name) {
    out += std::string("#<") + kind + " @" + hexadecimal(value.bits() >> 4) + " " + name + ">";
  };
  switch (value.type()) {
    case Type::Nil: out += "nil"; break;
    case Type::Integer: out += integerText(value.integer()); break;
    case Type::Real: out += printReal(value.real()); break;
    case Type::String: quoting ? printQuoted(out, value.text()) : void(out += value.text()); break;
    case Type::Symbol: out += value.name(); break;
    case Type::Subr:
    case Type::SpecialForm: function("SUBR", value.primitive()->name); break;
    case Type::External: function("EXRXSUBR", value.primitive()->name); break;
    case Type::UserSubr: function("USUBR", value.cdr().isSymbol() ? value.cdr().name() : "-lambda-"); break;
    case Type::EntityName: out += "<Entity name: " + hexadecimal(value.entity()) + ">"; break;
    case Type::SelectionSet: out += "<Selection set: " + hexadecimal(value.bits() >> 4) + ">"; break;
    case Type::File: out += "#<file @" + hexadecimal(value.bits() >> 4) + ">"; break;
    case Type::ErrorObject: out += "#<%catch-all-apply-error%>"; break;
    case Type::List: break;
  }
}

// Prints until the end, or until `goesOn`, called with the text so far, returns false.
template <class GoesOn>
std::string print(Value value, bool quoting, GoesOn goesOn) {
  std::string out;
  std::vector<Value> open;  // what is still to print of each list around the value
  for (;;) {
    if (!goesOn(out)) return out;
    if (value.isPair()) {
      out.push_back('(');
      open.push_back(value.cdr());
      value = value.car();
      continue;
    }
    printAtom(out, value, quoting);
    while (!open.empty() && !open.back().isPair()) {
      if (open.back()) {
        out += " . ";
        printAtom(out, open.back(), quoting);
      }
      out.push_back(')');
      open.pop_back();
    }
    if (open.empty()) return out;
    out.push_back(' ');
    value = open.back().car();
    open.back() = open.back().cdr();
  }
}

}  // namespace

Type Value::type() const {
  switch (tag()) {
    case kPair: return Type::List;
    case kSymbol: return Type::Symbol;
    case kText: return Type::String;
    case kSubr: return Type::Subr;
    case kSpecial: return Type::SpecialForm;
    case kUserSubr: return Type::UserSubr;
    case kExternal: return Type::External;
    case kEntity: return Type::EntityName;
    case kSelection: return Type::SelectionSet;
    case kFile: return Type::File;
    case kError: return Type::ErrorObject;
    case kNilTag: return Type::Nil;
    case kNumber: break;
  }
  return isInteger() ? Type::Integer : Type::Real;
}

std::string printReal(double number) {
  char digits[40];
  std::string text(digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 6).ptr);
  if (text.find_first_of(".ni") != std::string::npos) return text;  // "nan" and "inf" stay as they are
  return text.insert(std::min(text.find('e'), text.size()), ".0");
}

namespace {

constexpr auto kWhole = [](const std::string&) { return true; };

auto polling(Interpreter& in) {
  return [&in](const std::string&) {
    in.poll();
    return true;
  };
}

}  // namespace

std::string prin1(Value value) { return print(value, true, kWhole); }
std::string princ(Value value) { return print(value, false, kWhole); }
std::string prin1(Interpreter& in, Value value) { return print(value, true, polling(in)); }
std::string princ(Interpreter& in, Value value) { return print(value, false, polling(in)); }

std::string prin1Beginning(Value value, std::size_t most) {
  std::string text = print(value, true, [most](const std::string& out) { return out.size() <= most; });
  if (text.size() <= most) return text;
  std::size_t end = most;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) --end;
  return text.replace(end, std::string::npos, "...");
}

}  // namespace atelier::lisp
