// UTF-8 after RFC 3629; Windows-1252 after the WHATWG encoding table.
#include "atelier/lisp/text/encoding.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace atelier::lisp {
namespace {

// Bytes 0x80 to 0x9f; the others are Latin-1.
constexpr std::array<std::uint16_t, 32> kHigh = {0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                                 0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008d, 0x017d, 0x008f,
                                                 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                                 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

// Length of a UTF-8 sequence by its first byte, 0 for a byte that begins none.
std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xc2) return 0;
  if (lead < 0xe0) return 2;
  if (lead < 0xf0) return 3;
  return lead < 0xf5 ? 4 : 0;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; }

template <class Map>
std::string mapped(std::string_view utf8, Map map) {
  std::string result;
  result.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    if (const auto byte = static_cast<unsigned char>(utf8[i]); byte < 0x80) {
      result.push_back(static_cast<char>(map(std::uint32_t{byte})));
      ++i;
    } else {
      appendUtf8(result, map(nextCodePoint(utf8, i)));
    }
  }
  return result;
}

}  // namespace

bool isValidUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || i + length > bytes.size()) return false;
    for (std::size_t k = 1; k < length; ++k)
      if (!isContinuation(bytes[i + k])) return false;
    const auto second = length > 1 ? static_cast<unsigned char>(bytes[i + 1]) : 0;
    if ((lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f)) return false;  // overlong, surrogates
    if ((lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f)) return false;
    i += length;
  }
  return true;
}

std::uint32_t windows1252CodePoint(unsigned char byte) {
  return byte >= 0x80 && byte < 0xa0 ? kHigh[byte - 0x80u] : byte;
}

std::string fromWindows1252(std::string_view bytes) {
  std::string utf8;
  for (char byte : bytes) appendUtf8(utf8, windows1252CodePoint(static_cast<unsigned char>(byte)));
  return utf8;
}

namespace {

// `low` is the place of the lower byte in each pair.
std::string fromUtf16(std::string_view bytes, std::size_t low) {
  const auto unit = [&](std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[k])); };
    return byte(i + 1 - low) << 8 | byte(i + low);
  };
  std::string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t code = unit(i);
    const std::uint32_t second = i + 3 < bytes.size() ? unit(i + 2) : 0;
    if (code >= 0xd800 && code < 0xdc00 && second >= 0xdc00 && second < 0xe000) {
      code = 0x10000 + ((code - 0xd800) << 10) + (second - 0xdc00);
      i += 2;
    }
    appendUtf8(text, code);
  }
  return text;
}

}  // namespace

std::string decodeFile(std::string_view bytes) {
  if (bytes.starts_with("\xff\xfe")) return fromUtf16(bytes.substr(2), 0);
  if (bytes.starts_with("\xfe\xff")) return fromUtf16(bytes.substr(2), 1);
  if (bytes.starts_with("\xef\xbb\xbf")) bytes.remove_prefix(3);
  return isValidUtf8(bytes) ? std::string(bytes) : fromWindows1252(bytes);
}

std::string toWindows1252(std::string_view utf8) {
  std::string bytes;
  for (std::size_t i = 0; i < utf8.size();) {
    const std::uint32_t code = nextCodePoint(utf8, i);
    const auto high = std::find(kHigh.begin(), kHigh.end(), code);
    if (code < 0x80 || (code >= 0xa0 && code < 0x100)) {
      bytes.push_back(static_cast<char>(code));
    } else if (high != kHigh.end()) {
      bytes.push_back(static_cast<char>(0x80 + (high - kHigh.begin())));
    } else {
      char digits[8];
      const auto end = std::to_chars(digits, digits + sizeof digits, code, 16).ptr;
      const std::string hex = upperCase(std::string_view(digits, static_cast<std::size_t>(end - digits)));
      bytes += "\\U+" + std::string(hex.size() < 4 ? 4 - hex.size() : 0, '0') + hex;
    }
  }
  return bytes;
}

void appendUtf8(std::string& text, std::uint32_t code) {
  const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (code > 0x10ffff || (code >= 0xd800 && code < 0xe000)) code = 0xfffd;
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xc0 | code >> 6);
    put(0x80 | (code & 0x3f));
  } else if (code < 0x10000) {
    put(0xe0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3f));
    put(0x80 | (code & 0x3f));
  } else {
    put(0xf0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3f));
    put(0x80 | (code >> 6 & 0x3f));
    put(0x80 | (code & 0x3f));
  }
}

std::uint32_t nextCodePoint(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position]);
  const std::size_t length = std::max<std::size_t>(sequenceLength(lead), 1);
  std::uint32_t code = length == 1 ? lead : lead & (0xffu >> (length + 1));
  for (std::size_t k = 1; k < length && position + k < text.size(); ++k)
    code = code << 6 | (static_cast<unsigned char>(text[position + k]) & 0x3f);
  position = std::min(position + length, text.size());
  return code;
}

std::size_t byteOffset(std::string_view text, std::size_t character) {
  std::size_t offset = 0;
  while (offset < text.size() && (isContinuation(text[offset]) || character-- > 0)) ++offset;
  return offset;
}

std::uint32_t upperCase(std::uint32_t code) {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  if (code >= 0xe0 && code <= 0xfe && code != 0xf7) return code - 32;
  if (code == 0xff) return 0x178;
  if ((code >= 0x139 && code <= 0x148) || (code >= 0x179 && code <= 0x17e)) return code % 2 ? code : code - 1;
  if (code >= 0x100 && code <= 0x177 && code != 0x131 && code != 0x138) return code & ~1u;
  if (code == 0x3c2) return 0x3a3;
  if (code >= 0x3b1 && code <= 0x3c9) return code - 32;
  if (code >= 0x430 && code <= 0x44f) return code - 32;
  return code >= 0x450 && code <= 0x45f ? code - 80 : code;
}

std::uint32_t lowerCase(std::uint32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 32 : code;
  if (code >= 0xc0 && code <= 0xde && code != 0xd7) return code + 32;
  if (code == 0x178) return 0xff;
  if ((code >= 0x139 && code <= 0x148) || (code >= 0x179 && code <= 0x17e)) return code % 2 ? code + 1 : code;
  if (code >= 0x100 && code <= 0x177 && code != 0x130 && code != 0x138) return code | 1u;
  if (code >= 0x391 && code <= 0x3a9 && code != 0x3a2) return code + 32;
  if (code >= 0x410 && code <= 0x42f) return code + 32;
  return code >= 0x400 && code <= 0x40f ? code + 80 : code;
}

std::string upperCase(std::string_view utf8) {
  return mapped(utf8, [](std::uint32_t code) { return upperCase(code); });
}

std::string lowerCase(std::string_view utf8) {
  return mapped(utf8, [](std::uint32_t code) { return lowerCase(code); });
}

}  // namespace atelier::lisp
