// Text between the drawing (UTF-8 in memory), the host's wide strings and code pages; names and numbers as text.
// Nothing here depends on the locale. Invalid sequences become U+FFFD, never an error.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atelier {

std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);
std::string toUtf8(const wchar_t* wide);  // null gives the empty string
void appendUtf8(std::string& text, char32_t character);
bool isValidUtf8(std::string_view bytes);

// A code page by the name that $DWGCODEPAGE uses ("ANSI_1252", "DOS850", "MACINTOSH", "UTF-8" ...). An unknown name
// gives Windows-1252.
class CodePage {
 public:
  static CodePage utf8() { return CodePage("UTF-8"); }
  static CodePage named(std::string_view dwgCodePage);
  std::string decode(std::string_view bytes) const;  // to UTF-8
  // From UTF-8; characters that the page lacks come out as \U+XXXX.
  std::string encode(std::string_view utf8) const;
  bool isUtf8() const { return name_ == "UTF-8"; }
  bool operator==(const CodePage&) const = default;

 private:
  explicit CodePage(std::string_view iconvName) : name_(iconvName) {}
  std::string name_;
};

std::string upperCase(std::string_view utf8);  // ASCII and Latin-1 letters, by simple case mapping
bool equalNoCase(std::string_view a, std::string_view b);

std::string handleText(std::uint64_t handle);  // upper-case hexadecimal
std::optional<std::uint64_t> parseHandle(std::string_view hexadecimal);
// Blanks around the number are accepted; nothing for any other text. A real too great for a double is infinite, as
// with the C library's strtod; one too small is 0.
std::optional<double> parseReal(std::string_view text);
std::optional<std::int64_t> parseInteger(std::string_view text);
// Shortest text that reads back to the same double, always with a decimal point or an exponent: "1.0", "1e-09".
std::string realText(double value);
std::string_view trimmed(std::string_view text);
// The parts of a list with commas, without the blanks around them; empty ones are left out.
std::vector<std::string> commaParts(std::string_view text);

}  // namespace atelier
