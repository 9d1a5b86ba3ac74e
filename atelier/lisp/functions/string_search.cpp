// Searching and replacing in strings: the vl-string functions and wcmatch. Positions count from 0, in
// characters.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier::lisp {
namespace {

Value characterIndex(std::string_view text, std::size_t offset) {
  return Value::integer(static_cast<std::int32_t>(countCharacters(text.substr(0, offset))));
}

// The byte offset of the character at which a search starts; the beginning by default.
std::size_t startOffset(Interpreter& in, std::string_view text, Value start) {
  if (!start) return 0;
  return byteOffset(text, static_cast<std::size_t>(std::max(integerArgument(in, start), 0)));
}

std::string codeText(Interpreter& in, Value code) {
  std::string text;
  appendUtf8(text, static_cast<std::uint32_t>(std::max(integerArgument(in, code), 0)));
  return text;
}

// As find() of a string, but in pieces, so that the user can interrupt a long search.
std::size_t findIn(Interpreter& in, std::string_view text, std::string_view pattern, std::size_t start) {
  constexpr std::size_t kCompared = std::size_t{1} << 26;
  if (pattern.empty()) return text.find(pattern, start);
  const std::size_t stretch = kCompared / pattern.size() + 1;
  for (; start + pattern.size() <= text.size(); start += stretch) {
    in.poll();
    const std::size_t found = text.substr(start, stretch - 1 + pattern.size()).find(pattern);
    if (found != std::string_view::npos) return start + found;
  }
  return std::string_view::npos;
}

Value search(Interpreter& in, Arguments arguments) {
  const std::string_view pattern = stringArgument(in, arguments[0]), text = stringArgument(in, arguments[1]);
  const std::size_t found = findIn(in, text, pattern, startOffset(in, text, optional(arguments, 2)));
  return found == std::string_view::npos ? nil : characterIndex(text, found);
}

Value position(Interpreter& in, Arguments arguments) {
  const std::string wanted = codeText(in, arguments[0]);
  const std::string_view text = stringArgument(in, arguments[1]);
  const std::size_t start = startOffset(in, text, optional(arguments, 2));
  const std::size_t found = optional(arguments, 3)
                                ? text.rfind(wanted, optional(arguments, 2) ? start : std::string_view::npos)
                                : text.find(wanted, start);
  return found == std::string_view::npos ? nil : characterIndex(text, found);
}

// Replaces the first occurrence.
Value substitute(Interpreter& in, Arguments arguments) {
  const std::string_view replacement = stringArgument(in, arguments[0]), pattern = stringArgument(in, arguments[1]);
  const std::string_view text = stringArgument(in, arguments[2]);
  const std::size_t found = findIn(in, text, pattern, startOffset(in, text, optional(arguments, 3)));
  if (found == std::string_view::npos || pattern.empty()) return arguments[2];
  return in.string(std::string(text).replace(found, pattern.size(), replacement));
}

// Replaces each character of the first set by the one in its place in the second.
Value translate(Interpreter& in, Arguments arguments) {
  const std::string_view from = stringArgument(in, arguments[0]), to = stringArgument(in, arguments[1]);
  const std::string_view text = stringArgument(in, arguments[2]);
  std::string result;
  for (std::size_t i = 0; i < text.size();) {
    in.poll();
    std::uint32_t code = nextCodePoint(text, i);
    for (std::size_t f = 0, t = 0; f < from.size() && t < to.size();) {
      const std::uint32_t old = nextCodePoint(from, f), replacement = nextCodePoint(to, t);
      if (old != code) continue;
      code = replacement;
      break;
    }
    appendUtf8(result, code);
  }
  return in.string(result);
}

bool contains(std::string_view set, std::string_view character) {
  return set.find(character) != std::string_view::npos;
}

std::string_view trimLeft(std::string_view set, std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = byteOffset(text, 1);
    if (!contains(set, text.substr(0, length))) break;
    text.remove_prefix(length);
  }
  return text;
}

std::string_view trimRight(std::string_view set, std::string_view text) {
  while (!text.empty()) {
    std::size_t start = text.size() - 1;
    while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xc0) == 0x80) --start;
    if (!contains(set, text.substr(start))) break;
    text = text.substr(0, start);
  }
  return text;
}

Value leftTrim(Interpreter& in, Arguments arguments) {
  return in.string(trimLeft(stringArgument(in, arguments[0]), stringArgument(in, arguments[1])));
}

Value rightTrim(Interpreter& in, Arguments arguments) {
  return in.string(trimRight(stringArgument(in, arguments[0]), stringArgument(in, arguments[1])));
}

Value trim(Interpreter& in, Arguments arguments) {
  const std::string_view set = stringArgument(in, arguments[0]);
  return in.string(trimRight(set, trimLeft(set, stringArgument(in, arguments[1]))));
}

Value elementAt(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]);
  const std::int32_t index = integerArgument(in, arguments[1]);
  if (index < 0 || static_cast<std::uint32_t>(index) >= arguments[0].characters())
    in.fail("bad argument value: index out of range: " + std::to_string(index));
  std::size_t offset = byteOffset(text, static_cast<std::size_t>(index));
  return Value::integer(static_cast<std::int32_t>(nextCodePoint(text, offset)));
}

// The length of the common beginning of two strings, from the given positions on, with or without regard to
// case.
Value mismatch(Interpreter& in, Arguments arguments) {
  std::string_view a = stringArgument(in, arguments[0]), b = stringArgument(in, arguments[1]);
  a.remove_prefix(startOffset(in, a, optional(arguments, 2)));
  b.remove_prefix(startOffset(in, b, optional(arguments, 3)));
  const bool ignoreCase = static_cast<bool>(optional(arguments, 4));
  std::int32_t common = 0;
  for (std::size_t i = 0, k = 0; i < a.size() && k < b.size(); ++common) {
    in.poll();
    const std::uint32_t x = nextCodePoint(a, i), y = nextCodePoint(b, k);
    if (ignoreCase ? upperCase(x) != upperCase(y) : x != y) break;
  }
  return Value::integer(common);
}

Value wcmatch(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]), patterns = stringArgument(in, arguments[1]);
  return in.boolean(matchesWildcard(text, patterns, [&in] { in.poll(); }));
}

constexpr Builtin kTable[] = {
    {"vl-string-search", search, 2, 3, "(vl-string-search motif chaîne [début])", "La position du motif, ou nil."},
    {"vl-string-position", position, 2, 4, "(vl-string-position code chaîne [début [depuis-la-fin]])",
     "La position d'un caractère, ou nil."},
    {"vl-string-subst", substitute, 3, 4, "(vl-string-subst nouveau ancien chaîne [début])",
     "Remplace la première occurrence."},
    {"vl-string-translate", translate, 3, 3, "(vl-string-translate anciens nouveaux chaîne)",
     "Remplace chaque caractère d'un jeu par celui de même rang de l'autre."},
    {"vl-string-left-trim", leftTrim, 2, 2, "(vl-string-left-trim jeu chaîne)", "Ôte à gauche les caractères du jeu."},
    {"vl-string-right-trim", rightTrim, 2, 2, "(vl-string-right-trim jeu chaîne)",
     "Ôte à droite les caractères du jeu."},
    {"vl-string-trim", trim, 2, 2, "(vl-string-trim jeu chaîne)", "Ôte des deux côtés les caractères du jeu."},
    {"vl-string-elt", elementAt, 2, 2, "(vl-string-elt chaîne n)", "Le code du caractère de rang n."},
    {"vl-string-mismatch", mismatch, 2, 5, "(vl-string-mismatch a b [début-a début-b sans-casse])",
     "Longueur du début commun de deux chaînes."},
    {"wcmatch", wcmatch, 2, 2, "(wcmatch chaîne motifs)",
     "T si la chaîne répond à l'un des motifs (# @ . * ? ~ [] `)."},
};

}  // namespace

std::span<const Builtin> stringSearchFamily() { return kTable; }

}  // namespace atelier::lisp
