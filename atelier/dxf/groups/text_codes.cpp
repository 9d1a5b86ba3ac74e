// Texts of a drawing: \U+XXXX, \M+nXXXX and the caret forms of control characters.
// Characters above U+FFFF are written as a pair of \U+ surrogates; a lone surrogate is no character.
#include <algorithm>
#include <charconv>

#include "atelier/dxf/groups/value_codec.h"

namespace atelier::dxf {
namespace {

// The value of exactly that many hexadecimal digits; -1 when there are other characters.
int hexadecimal(std::string_view text, std::size_t at, std::size_t digits) {
  if (at + digits > text.size()) return -1;
  int value = 0;
  const char* end = text.data() + at + digits;
  const auto result = std::from_chars(text.data() + at, end, value, 16);
  return result.ptr == end && result.ec == std::errc() && text[at] != '-' ? value : -1;
}

bool startsEscape(std::string_view text, std::size_t at, char letter) {
  return at + 2 < text.size() && text[at] == '\\' && (text[at + 1] == letter || text[at + 1] == letter + ('a' - 'A')) &&
         text[at + 2] == '+';
}

// Reads \U+XXXX, of either case, at `at` and moves after it. False when there is none.
bool takeUnicode(std::string_view text, std::size_t& at, std::string& out) {
  if (!startsEscape(text, at, 'U')) return false;
  const int first = hexadecimal(text, at + 3, 4);
  if (first < 0) return false;
  char32_t character = static_cast<char32_t>(first);
  std::size_t next = at + 7;
  if (first >= 0xD800 && first < 0xDC00 && startsEscape(text, next, 'U')) {
    const int second = hexadecimal(text, next + 3, 4);
    if (second >= 0xDC00 && second < 0xE000) {
      character = 0x10000 + (static_cast<char32_t>(first - 0xD800) << 10) + static_cast<char32_t>(second - 0xDC00);
      next += 7;
    }
  }
  if (character >= 0xD800 && character < 0xE000) return false;  // a lone surrogate stays as written
  appendUtf8(out, character);
  at = next;
  return true;
}

// \M+nXXXX: a character of one of five East Asian code pages.
bool takeMultibyte(std::string_view text, std::size_t& at, std::string& out) {
  static constexpr std::string_view kPages[] = {"ANSI_932", "ANSI_950", "ANSI_949", "JOHAB", "ANSI_936"};
  if (!startsEscape(text, at, 'M') || at + 8 > text.size() || text[at + 3] < '1' || text[at + 3] > '5') return false;
  const int value = hexadecimal(text, at + 4, 4);
  if (value < 0) return false;
  std::string bytes;
  if (value > 0xFF) bytes.push_back(static_cast<char>(value >> 8));
  bytes.push_back(static_cast<char>(value & 0xFF));
  out += CodePage::named(kPages[text[at + 3] - '1']).decode(bytes);
  at += 8;
  return true;
}

}  // namespace

std::string textFromFile(std::string text) {
  if (std::ranges::none_of(text, [](char c) { return c == '\\' || c == '^'; })) return text;
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == '^' && i + 1 < text.size() && (text[i + 1] == ' ' || (text[i + 1] >= '@' && text[i + 1] <= '_'))) {
      out.push_back(text[i + 1] == ' ' ? '^' : static_cast<char>(text[i + 1] - '@'));
      i += 2;
    } else if (text[i] != '\\' || !(takeUnicode(text, i, out) || takeMultibyte(text, i, out))) {
      out.push_back(text[i++]);
    }
  }
  return out;
}

std::string textToFile(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    if (c == '^') out += "^ ";
    else if (static_cast<unsigned char>(c) < 0x20) out.append({'^', static_cast<char>(c + '@')});
    else out.push_back(c);
  }
  return out;
}

}  // namespace atelier::dxf
