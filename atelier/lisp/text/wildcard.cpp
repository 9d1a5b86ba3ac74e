// wcmatch: a pattern is split at its commas, then each part is matched; on a mismatch matching resumes at the last
// star.
#include "atelier/lisp/text/wildcard.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

using Codes = std::u32string;
using CodesView = std::u32string_view;
using Step = std::function<void()>;

constexpr std::size_t kStride = 4096;  // characters between two steps

Codes decode(std::string_view text, const Step& step) {
  Codes codes;
  for (std::size_t i = 0; i < text.size();) {
    codes.push_back(nextCodePoint(text, i));
    if (codes.size() % kStride == 0 && step) step();
  }
  return codes;
}

bool isDigit(char32_t c) { return c >= '0' && c <= '9'; }
bool isLetter(char32_t c) {
  const auto code = static_cast<std::uint32_t>(c);
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || upperCase(code) != code || lowerCase(code) != code;
}

// The first element of a pattern: its length, and whether it matches the character.
struct Element {
  std::size_t length;
  bool takes;
};

// [...]: the bracket is closed by the first "]" that isn't its first member; a hyphen at an end stands for itself.
Element bracket(CodesView pattern, char32_t c) {
  std::size_t i = 1;
  const bool negated = i < pattern.size() && pattern[i] == '~';
  if (negated) ++i;
  bool found = false;
  for (bool first = true; i < pattern.size() && (pattern[i] != ']' || first); first = false) {
    if (pattern[i] == '`' && i + 1 < pattern.size()) ++i;
    const char32_t low = pattern[i];
    if (i + 2 < pattern.size() && pattern[i + 1] == '-' && pattern[i + 2] != ']') {
      found |= low <= c && c <= pattern[i + 2];
      i += 3;
    } else {
      found |= low == c;
      ++i;
    }
  }
  if (i == pattern.size()) return {1, c == '['};  // not closed: it stands for itself
  return {i + 1, found != negated};
}

Element element(CodesView pattern, char32_t c) {
  switch (pattern[0]) {
    case '#': return {1, isDigit(c)};
    case '@': return {1, isLetter(c)};
    case '.': return {1, !isDigit(c) && !isLetter(c)};
    case '?': return {1, true};
    case '[': return bracket(pattern, c);
    case '`':
      if (pattern.size() > 1) return {2, pattern[1] == c};
      [[fallthrough]];
    default: return {1, pattern[0] == c};
  }
}

bool matchesWhole(CodesView text, CodesView pattern, const Step& step) {
  std::size_t t = 0, p = 0, starPattern = CodesView::npos, starText = 0, looks = 0;
  while (t < text.size()) {
    if (++looks % kStride == 0 && step) step();
    if (p < pattern.size() && pattern[p] == '*') {
      starPattern = ++p;
      starText = t;
      continue;
    }
    if (p < pattern.size()) {
      const Element next = element(pattern.substr(p), text[t]);
      if (next.takes) {
        p += next.length;
        ++t;
        continue;
      }
    }
    if (starPattern == CodesView::npos) return false;
    p = starPattern;  // the last star matches one more character
    t = ++starText;
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

bool matchesOne(CodesView text, CodesView pattern, const Step& step) {
  if (pattern.starts_with(U'~')) return !matchesWhole(text, pattern.substr(1), step);
  return matchesWhole(text, pattern, step);
}

// The end of the pattern that begins at `start`: the next comma outside brackets that no backquote precedes.
std::size_t patternEnd(CodesView patterns, std::size_t start) {
  for (std::size_t i = start; i < patterns.size(); ++i) {
    if (patterns[i] == '`') {
      ++i;
    } else if (patterns[i] == ',') {
      return i;
    } else if (patterns[i] == '[') {
      const std::size_t close = patterns.find(U']', i + 2);
      if (close != CodesView::npos) i = close;
    }
  }
  return patterns.size();
}

// Which nothing but itself matches.
bool isPlain(std::string_view pattern) {
  return std::ranges::none_of(pattern, [](char c) {
    return static_cast<unsigned char>(c) > 127 || std::string_view("#@.*?~[]`,").find(c) != std::string_view::npos;
  });
}

}  // namespace

bool matchesWildcard(std::string_view text, std::string_view patterns, const Step& step) {
  if (isPlain(patterns)) return text == patterns;
  const Codes subject = decode(text, step), all = decode(patterns, step);
  for (std::size_t start = 0; start <= all.size();) {
    const std::size_t end = patternEnd(all, start);
    if (matchesOne(subject, CodesView(all).substr(start, end - start), step)) return true;
    start = end + 1;
  }
  return false;
}

bool matchesFileName(std::string_view name, std::string_view pattern) {
  std::string quoted;
  for (char c : pattern) {
    if (std::string_view("#@.~[]`,").find(c) != std::string_view::npos) quoted.push_back('`');
    quoted.push_back(c);
  }
  return matchesWildcard(name, quoted);
}

}  // namespace atelier::lisp
