// Character encodings: UTF-8 inside, Windows-1252 in old files; upper and lower case of European letters.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace atelier::lisp {

bool isValidUtf8(std::string_view bytes);
// The bytes of a text file as UTF-8: from UTF-16 after its byte order mark, from Windows-1252 when they are not valid UTF-8;
// the mark is left out.
std::string decodeFile(std::string_view bytes);
std::string fromWindows1252(std::string_view bytes);
// Characters that the code page lacks become \U+XXXX.
std::string toWindows1252(std::string_view utf8);

// Appends a code point; U+FFFD for a number that isn't one.
void appendUtf8(std::string& text, std::uint32_t codePoint);
// The code point at `position`, which is moved after it. The text must be valid UTF-8.
std::uint32_t nextCodePoint(std::string_view text, std::size_t& position);
// The byte offset of a character; the size of the text when it has fewer.
std::size_t byteOffset(std::string_view text, std::size_t character);
// The code point of a byte of Windows-1252.
std::uint32_t windows1252CodePoint(unsigned char byte);

// ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic; independent of the locale.
std::string upperCase(std::string_view utf8);
std::string lowerCase(std::string_view utf8);
std::uint32_t upperCase(std::uint32_t codePoint);
std::uint32_t lowerCase(std::uint32_t codePoint);

}  // namespace atelier::lisp
