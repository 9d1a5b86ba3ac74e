// The control codes of single-line texts, and the Unicode conversions that text layout needs.
// Codes as in the text command of the CAD reference: %%c %%d %%p %%u %%o %%k %%% %%nnn and \U+XXXX.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace atelier::fonts {

// A stretch of text under the same bars.
struct TextRun {
  std::u32string text;
  bool underline = false, overline = false, strike = false;
};

// UTF-8 to code points. A byte that is not UTF-8 is taken for Windows-1252: nothing is lost, nothing fails.
std::u32string decodeUtf8(std::string_view text);
std::string encodeUtf8(std::u32string_view text);

// The character of one byte of Windows-1252.
char32_t windows1252(unsigned char byte);

// %%c diameter sign, %%d degree, %%p plus-minus, %%% percent; %%nnn the Windows-1252 character, but 127 to
// 129 as in stroke fonts (degree, plus-minus, diameter); %%u %%o %%k toggle a bar, which ends with the text.
// \U+XXXX is the code point. Codes fold case; what is not a code stays as it is written.
std::vector<TextRun> expandTextCodes(std::u32string_view text);
std::vector<TextRun> expandTextCodes(std::string_view utf8);

// The code that starts at text[at] when it stands for one character: sets `length` (characters taken),
// gives the character; 0 when there is none there. Shared with the inline codes of paragraphs.
char32_t characterCode(std::u32string_view text, std::size_t at, std::size_t& length);

}  // namespace atelier::fonts
