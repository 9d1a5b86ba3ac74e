// Expansion of %% and \U+ codes into runs, and UTF-8.
// The diameter is U+2205, the character that CAD programs themselves write for %%c.
#include "atelier/fonts/text_codes.h"

#include <array>
#include <optional>

namespace atelier::fonts {

namespace {

constexpr char32_t kDegree = 0xB0, kPlusMinus = 0xB1, kDiameter = 0x2205;

// 0x80..0x9F of Windows-1252; the five unassigned bytes keep their own value.
constexpr std::array<char16_t, 32> kHighControls{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                 0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

// Bytes of the UTF-8 sequence at the head of `s`, 0 when it is not one (overlong and surrogates refused).
std::size_t utf8Length(std::string_view s, char32_t& c) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
  const unsigned char head = byte(0);
  if (head < 0x80) return c = head, 1;
  const std::size_t n = head >= 0xF0 && head < 0xF5   ? 4
                        : head >= 0xE0 && head < 0xF0 ? 3
                        : head >= 0xC2 && head < 0xE0 ? 2
                                                      : 0;
  if (n == 0 || s.size() < n) return 0;
  c = head & (0xFFu >> (n + 1));
  for (std::size_t i = 1; i < n; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    c = (c << 6) | (byte(i) & 0x3Fu);
  }
  const bool overlong = (n == 3 && c < 0x800) || (n == 4 && c < 0x10000);
  return overlong || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF ? 0 : n;
}

std::optional<unsigned> digit(char32_t c, unsigned base) {
  unsigned v = 99;
  if (c >= U'0' && c <= U'9') v = static_cast<unsigned>(c - U'0');
  if (c >= U'a' && c <= U'f') v = static_cast<unsigned>(c - U'a') + 10;
  if (c >= U'A' && c <= U'F') v = static_cast<unsigned>(c - U'A') + 10;
  return v < base ? std::optional(v) : std::nullopt;
}

std::optional<unsigned> number(std::u32string_view s, std::size_t at, std::size_t digits, unsigned base) {
  unsigned value = 0;
  for (std::size_t i = 0; i < digits; ++i) {
    const auto d = at + i < s.size() ? digit(s[at + i], base) : std::nullopt;
    if (!d) return std::nullopt;
    value = value * base + *d;
  }
  return value;
}

char32_t stored(unsigned code) {
  switch (code) {
    case 127: return kDegree;
    case 128: return kPlusMinus;
    case 129: return kDiameter;
    default: return code < 256 ? windows1252(static_cast<unsigned char>(code)) : 0;
  }
}

char32_t lower(char32_t c) { return c >= U'A' && c <= U'Z' ? c + 32 : c; }

char32_t percentCode(std::u32string_view s, std::size_t at, std::size_t& length) {
  length = 3;
  switch (lower(s[at + 2])) {
    case U'c': return kDiameter;
    case U'd': return kDegree;
    case U'p': return kPlusMinus;
    case U'%': return U'%';
    default: break;
  }
  length = 5;
  const auto code = number(s, at + 2, 3, 10);
  return code ? stored(*code) : 0;
}

bool* barOf(TextRun& run, char32_t letter) {
  switch (lower(letter)) {
    case U'u': return &run.underline;
    case U'o': return &run.overline;
    case U'k': return &run.strike;
    default: return nullptr;
  }
}

}  // namespace

char32_t windows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80u] : static_cast<char32_t>(byte);
}

std::u32string decodeUtf8(std::string_view text) {
  std::u32string out;
  out.reserve(text.size());
  while (!text.empty()) {
    char32_t c = 0;
    const std::size_t n = utf8Length(text, c);
    out.push_back(n ? c : windows1252(static_cast<unsigned char>(text[0])));
    text.remove_prefix(n ? n : 1);
  }
  return out;
}

std::string encodeUtf8(std::u32string_view text) {
  std::string out;
  for (const char32_t c : text) {
    const auto put = [&](char32_t v) { out.push_back(static_cast<char>(v)); };
    const auto tail = [&](unsigned shift) { put(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
      put(c);
    } else if (c < 0x800) {
      put(0xC0 | (c >> 6)), tail(0);
    } else if (c < 0x10000) {
      put(0xE0 | (c >> 12)), tail(6), tail(0);
    } else {
      put(0xF0 | ((c >> 18) & 7)), tail(12), tail(6), tail(0);
    }
  }
  return out;
}

char32_t characterCode(std::u32string_view s, std::size_t at, std::size_t& length) {
  const std::u32string_view rest = s.substr(at);
  if (rest.size() > 2 && rest[0] == U'%' && rest[1] == U'%') return percentCode(s, at, length);
  if (rest.size() > 3 && rest[0] == U'\\' && lower(rest[1]) == U'u' && rest[2] == U'+') {
    length = 7;
    const auto code = number(s, at + 3, 4, 16);
    return code && (*code < 0xD800 || *code >= 0xE000) ? static_cast<char32_t>(*code) : 0;
  }
  return 0;
}

std::vector<TextRun> expandTextCodes(std::u32string_view text) {
  std::vector<TextRun> runs(1);
  const auto toggle = [&](char32_t letter) {
    TextRun next = runs.back();
    bool* bar = barOf(next, letter);
    if (!bar) return false;
    *bar = !*bar;
    next.text.clear();
    if (runs.back().text.empty()) runs.pop_back();
    runs.push_back(std::move(next));
    return true;
  };
  for (std::size_t i = 0; i < text.size();) {
    std::size_t length = 1;
    if (const char32_t c = characterCode(text, i, length)) {
      runs.back().text.push_back(c);
      i += length;
    } else if (text.substr(i).starts_with(U"%%") && i + 2 < text.size() && toggle(text[i + 2])) {
      i += 3;
    } else {
      runs.back().text.push_back(text[i++]);
    }
  }
  if (runs.back().text.empty()) runs.pop_back();
  return runs;
}

std::vector<TextRun> expandTextCodes(std::string_view utf8) { return expandTextCodes(decodeUtf8(utf8)); }

}  // namespace atelier::fonts
