// Strings: length, parts, case, codes. Positions count characters (code points), not bytes.
#include <charconv>

#include "atelier/base/real_reading.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

Value strcat(Interpreter& in, Arguments arguments) {
  for (Value part : arguments) stringArgument(in, part);
  return in.heap().concatenate(arguments.data(), arguments.size());
}

Value strlen(Interpreter& in, Arguments arguments) {
  std::uint32_t count = 0;
  for (Value part : arguments) {
    stringArgument(in, part);
    count += part.characters();
  }
  return Value::integerOrReal(count);
}

Value substr(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]);
  const std::int32_t start = integerArgument(in, arguments[1]);
  if (start < 1) in.fail("bad argument value: positive " + prin1(arguments[1]));
  const bool allAscii = text.size() == arguments[0].characters();
  const auto offset = [allAscii](std::string_view part, std::size_t character) {
    return allAscii ? std::min(character, part.size()) : byteOffset(part, character);
  };
  const std::string_view rest = text.substr(offset(text, static_cast<std::size_t>(start - 1)));
  if (!optional(arguments, 2)) return in.string(rest);
  const std::int32_t length = integerArgument(in, arguments[2]);
  if (length < 0) in.fail("bad argument value: non-negative: " + prin1(arguments[2]));
  return in.string(rest.substr(0, offset(rest, static_cast<std::size_t>(length))));
}

// Works piece by piece, so that the user can interrupt it in a long string.
Value strcase(Interpreter& in, Arguments arguments) {
  constexpr std::size_t kPiece = 4096;  // characters
  const bool lower = static_cast<bool>(optional(arguments, 1));
  std::string_view text = stringArgument(in, arguments[0]);
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    in.poll();
    const std::string_view piece = text.substr(0, byteOffset(text, kPiece));
    result += lower ? lowerCase(piece) : upperCase(piece);
    text.remove_prefix(piece.size());
  }
  return in.string(result);
}

Value ascii(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]);
  std::size_t position = 0;
  return Value::integer(text.empty() ? 0 : static_cast<std::int32_t>(nextCodePoint(text, position)));
}

// Codes 128 to 159 are those of Windows-1252, which programs have used for dashes, quotes and the euro sign.
void appendCode(Interpreter& in, std::string& text, Value value) {
  const std::int32_t code = integerArgument(in, value);
  if (code < 0 || code > 0x10ffff) in.fail("bad argument value: character code: " + prin1(value));
  if (code == 0) return;
  appendUtf8(text,
             code < 256 ? windows1252CodePoint(static_cast<unsigned char>(code)) : static_cast<std::uint32_t>(code));
}

Value chr(Interpreter& in, Arguments arguments) {
  std::string text;
  appendCode(in, text, arguments[0]);
  return in.string(text);
}

Value stringToList(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]);
  ValueStack codes(in);
  for (std::size_t i = 0; i < text.size();) {
    in.poll();
    codes.push(Value::integer(static_cast<std::int32_t>(nextCodePoint(text, i))));
  }
  return codes.list();
}

Value listToString(Interpreter& in, Arguments arguments) {
  std::string text;
  for (Value code : Items(listArgument(in, arguments[0]))) {
    in.poll();
    appendCode(in, text, code);
  }
  return in.string(text);
}

Value itoa(Interpreter& in, Arguments arguments) {
  integerArgument(in, arguments[0]);
  return in.string(prin1(arguments[0]));
}

// The number that a text begins with, zero when it begins with none.
Value atoi(Interpreter& in, Arguments arguments) {
  std::string_view text = stringArgument(in, arguments[0]);
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return Value::integer(static_cast<std::int32_t>(number));
}

Value atof(Interpreter& in, Arguments arguments) {
  std::string_view text = stringArgument(in, arguments[0]);
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  text = text.substr(0, text.find_first_not_of("0123456789.eE+-"));  // no "inf", no "nan"
  double number = 0;
  readReal(text.data(), text.data() + text.size(), number);
  return Value::real(number);
}

Value readFunction(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return nil;
  return in.read(stringArgument(in, arguments[0]));
}

Value princToString(Interpreter& in, Arguments arguments) { return in.string(princ(in, arguments[0])); }
Value prin1ToString(Interpreter& in, Arguments arguments) { return in.string(prin1(in, arguments[0])); }

constexpr Builtin kTable[] = {
    {"strcat", strcat, 0, kAnyNumber, "(strcat [chaîne...])", "Met des chaînes bout à bout."},
    {"strlen", strlen, 0, kAnyNumber, "(strlen [chaîne...])", "Nombre de caractères."},
    {"substr", substr, 2, 3, "(substr chaîne début [longueur])", "Partie d'une chaîne, comptée à partir de 1."},
    {"strcase", strcase, 1, 2, "(strcase chaîne [minuscules])", "La chaîne en majuscules, ou en minuscules."},
    {"ascii", ascii, 1, 1, "(ascii chaîne)", "Le code du premier caractère."},
    {"chr", chr, 1, 1, "(chr code)", "Le caractère d'un code."},
    {"vl-string->list", stringToList, 1, 1, "(vl-string->list chaîne)", "Les codes des caractères."},
    {"vl-list->string", listToString, 1, 1, "(vl-list->string liste)", "La chaîne d'une liste de codes."},
    {"itoa", itoa, 1, 1, "(itoa entier)", "L'entier en chaîne."},
    {"atoi", atoi, 1, 1, "(atoi chaîne)", "L'entier par lequel commence une chaîne."},
    {"atof", atof, 1, 1, "(atof chaîne)", "Le réel par lequel commence une chaîne."},
    {"read", readFunction, 0, 1, "(read [chaîne])", "La première expression d'une chaîne."},
    {"vl-princ-to-string", princToString, 1, 1, "(vl-princ-to-string valeur)", "Ce que princ écrirait."},
    {"vl-prin1-to-string", prin1ToString, 1, 1, "(vl-prin1-to-string valeur)", "Ce que prin1 écrirait."},
};

}  // namespace

std::span<const Builtin> stringFamily() { return kTable; }

}  // namespace atelier::lisp
