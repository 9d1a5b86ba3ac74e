// UTF-8, wide strings, code pages (through the C library's iconv) and numbers as text.
// The conversions of numbers are those of <charconv>.
#include "atelier/base/text.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cwctype>
#include <limits>
#include <memory>

#include "atelier/base/real_reading.h"

namespace atelier {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Decodes one character at `at` and moves on; a bad byte gives kReplacement and moves by one.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  if (lead < 0x80) return static_cast<char32_t>(text[at++]);
  const int extra = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
  if (extra == 0 || lead >= 0xF5 || at + static_cast<std::size_t>(extra) >= text.size()) {
    ++at;
    return kReplacement;
  }
  char32_t value = lead & (0x3F >> extra);
  for (int i = 1; i <= extra; ++i) {
    const unsigned char b = byte(at + static_cast<std::size_t>(i));
    if ((b & 0xC0) != 0x80) {
      ++at;
      return kReplacement;
    }
    value = (value << 6) | (b & 0x3Fu);
  }
  const bool overlong = (extra == 2 && value < 0x800) || (extra == 3 && value < 0x10000);
  at += static_cast<std::size_t>(extra) + 1;
  return overlong || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000) ? kReplacement : value;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

struct IconvCloser {
  void operator()(void* handle) const { iconv_close(static_cast<iconv_t>(handle)); }
};
using Iconv = std::unique_ptr<void, IconvCloser>;

Iconv openIconv(const char* to, const char* from) {
  iconv_t handle = iconv_open(to, from);
  return Iconv(handle == reinterpret_cast<iconv_t>(-1) ? nullptr : handle);
}

// Converts one run; stops at the first byte that can't be converted and leaves it in `in`.
void convert(const Iconv& handle, std::string_view& in, std::string& out) {
  std::array<char, 512> buffer;
  while (!in.empty()) {
    char* from = const_cast<char*>(in.data());
    std::size_t fromLeft = in.size();
    char* to = buffer.data();
    std::size_t toLeft = buffer.size();
    const std::size_t result = iconv(static_cast<iconv_t>(handle.get()), &from, &fromLeft, &to, &toLeft);
    out.append(buffer.data(), buffer.size() - toLeft);
    in.remove_prefix(in.size() - fromLeft);
    if (result == static_cast<std::size_t>(-1) && toLeft == buffer.size()) return;
  }
}

// \U+XXXX; characters above U+FFFF as a pair of surrogates, since the form has four digits.
std::string escaped(char32_t character) {
  if (character > 0xFFFF)
    return escaped(0xD800 + ((character - 0x10000) >> 10)) + escaped(0xDC00 + (character & 0x3FF));
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) text.push_back(kDigits[character >> shift & 0xF]);
  return text;
}

}  // namespace

void appendUtf8(std::string& text, char32_t c) {
  const auto put = [&](char32_t b) { text.push_back(static_cast<char>(b)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6)), put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18)), put(0x80 | ((c >> 12) & 0x3F)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  }
}

std::wstring toWide(std::string_view utf8) {
  std::wstring wide;
  wide.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) wide.push_back(static_cast<wchar_t>(nextCharacter(utf8, at)));
  return wide;
}

std::string toUtf8(std::wstring_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (const wchar_t c : wide) appendUtf8(text, static_cast<char32_t>(c));
  return text;
}

std::string toUtf8(const wchar_t* wide) { return wide ? toUtf8(std::wstring_view(wide)) : std::string(); }

bool isValidUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t before = at;
    if (nextCharacter(bytes, at) == kReplacement && bytes.substr(before, 3) != "\xEF\xBF\xBD") return false;
  }
  return true;
}

CodePage CodePage::named(std::string_view dwgCodePage) {
  std::string name = upperCase(dwgCodePage);
  std::replace(name.begin(), name.end(), '-', '_');
  if (name == "UTF_8" || name == "UTF8") return utf8();
  std::string iconvName = "CP1252";
  const auto tail = [&](std::size_t prefix) { return "CP" + name.substr(prefix); };
  if (name.starts_with("ANSI_")) iconvName = tail(5);
  else if (name.starts_with("DOS")) iconvName = tail(name.starts_with("DOS_") ? 4 : 3);
  else if (name == "MACINTOSH" || name == "MAC_ROMAN") iconvName = "MACINTOSH";
  else if (name == "BIG5") iconvName = "BIG5";
  else if (name == "GB2312") iconvName = "GBK";
  else if (name == "KSC5601") iconvName = "CP949";
  else if (name == "JOHAB") iconvName = "JOHAB";
  else if (name.starts_with("ISO8859_")) iconvName = "ISO-8859-" + name.substr(8);
  return CodePage(openIconv("UTF-8", iconvName.c_str()) ? iconvName : "CP1252");
}

std::string CodePage::decode(std::string_view bytes) const {
  if (isAscii(bytes)) return std::string(bytes);
  std::string out;
  if (isUtf8()) {
    if (isValidUtf8(bytes)) return std::string(bytes);
    for (std::size_t at = 0; at < bytes.size();) appendUtf8(out, nextCharacter(bytes, at));
    return out;
  }
  static thread_local std::pair<std::string, Iconv> cached;
  if (cached.first != name_) cached = {name_, openIconv("UTF-8", name_.c_str())};
  while (!bytes.empty()) {
    convert(cached.second, bytes, out);
    if (bytes.empty()) break;
    // A byte that the page leaves undefined stands for the control character of its number.
    appendUtf8(out, static_cast<unsigned char>(bytes.front()));
    bytes.remove_prefix(1);
  }
  return out;
}

std::string CodePage::encode(std::string_view text) const {
  if (isUtf8() || isAscii(text)) return std::string(text);
  static thread_local std::pair<std::string, Iconv> cached;
  if (cached.first != name_) cached = {name_, openIconv(name_.c_str(), "UTF-8")};
  std::string out;
  while (!text.empty()) {
    convert(cached.second, text, out);
    if (text.empty()) break;
    std::size_t at = 0;
    const char32_t character = nextCharacter(text, at);
    if (character >= 0x80 && character < 0xA0) out.push_back(static_cast<char>(character));
    else out += escaped(character);
    text.remove_prefix(at);
  }
  return out;
}

std::string upperCase(std::string_view utf8) {
  if (isAscii(utf8)) {
    std::string text(utf8);
    for (char& c : text)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return text;
  }
  std::string text;
  for (std::size_t at = 0; at < utf8.size();) {
    char32_t c = nextCharacter(utf8, at);
    const bool latin = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
    if (latin) c -= 32;
    else if (c == 0x153) c = 0x152;  // oe
    else if (c == 0xFF) c = 0x178;
    else if ((c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F)) c -= 32;
    appendUtf8(text, c);
  }
  return text;
}

bool equalNoCase(std::string_view a, std::string_view b) {
  if (a == b) return true;
  if (isAscii(a) && isAscii(b)) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return lower(x) == lower(y); });
  }
  return upperCase(a) == upperCase(b);
}

std::string handleText(std::uint64_t handle) {
  std::array<char, 16> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), handle, 16);
  std::string text(digits.data(), end.ptr);
  for (char& c : text) c = static_cast<char>(c >= 'a' ? c - 32 : c);
  return text;
}

std::string_view trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<std::uint64_t> parseHandle(std::string_view text) {
  text = trimmed(text);
  std::uint64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

namespace {

// Infinity or 0 for digits beyond the range of a double: the place of the first digit other than 0 decides.
double beyondRange(std::string_view digits) {
  const bool negative = digits.starts_with('-');
  std::int64_t order = 0, exponent = 0;
  bool fraction = false, counts = false;
  std::size_t i = negative ? 1 : 0;
  for (; i < digits.size() && digits[i] != 'e' && digits[i] != 'E'; ++i) {
    if (digits[i] == '.') {
      fraction = true;
      continue;
    }
    counts = counts || digits[i] != '0';
    if (counts && !fraction) ++order;
    if (!counts && fraction) --order;
  }
  if (i < digits.size()) {
    std::string_view power = digits.substr(i + 1);
    if (power.starts_with('+')) power.remove_prefix(1);
    constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max() / 2;
    if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec != std::errc() ||
        std::abs(exponent) > kFar)
      exponent = power.starts_with('-') ? -kFar : kFar;
  }
  const double size = order + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  return negative ? -size : size;
}

}  // namespace

std::from_chars_result readReal(const char* first, const char* last, double& value, std::chars_format format) {
  auto result = std::from_chars(first, last, value, format);
  if (result.ec == std::errc::result_out_of_range) {
    value = beyondRange({first, static_cast<std::size_t>(result.ptr - first)});
    result.ec = std::errc();
  }
  return result;
}

std::optional<double> parseReal(std::string_view text) {
  text = trimmed(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double value = 0;
  const auto result = readReal(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::int64_t> parseInteger(std::string_view text) {
  text = trimmed(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::int64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string realText(double value) {
  std::array<char, 40> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  std::string text(buffer.data(), end.ptr);
  if (std::isfinite(value) && text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::vector<std::string> commaParts(std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t comma = text.find(',');
    const std::string_view part = trimmed(text.substr(0, comma));
    if (!part.empty()) parts.emplace_back(part);
    text = comma == text.npos ? std::string_view() : text.substr(comma + 1);
  }
  return parts;
}

}  // namespace atelier
