// Decoding and encoding of single values.
// Binary values are little-endian; ASCII reals are the shortest that read back to the same double.
#include "atelier/dxf/groups/value_codec.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace atelier::dxf {
namespace {

std::int64_t littleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  const unsigned unused = static_cast<unsigned>(64 - 8 * bytes.size());
  return bytes.empty() ? 0 : static_cast<std::int64_t>(value << unused) >> unused;
}

void putLittleEndian(std::string& out, std::uint64_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) out.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::string bytesOfHex(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    const int high = hexDigit(text[i]), low = hexDigit(text[i + 1]);
    if (high < 0 || low < 0) break;
    bytes.push_back(static_cast<char>(high << 4 | low));
  }
  return bytes;
}

std::string hexOfBytes(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const char c : bytes) {
    text.push_back(kDigits[static_cast<unsigned char>(c) >> 4]);
    text.push_back(kDigits[c & 0xF]);
  }
  return text;
}

std::size_t integerWidth(int code) {
  if (code >= 290 && code <= 299) return 1;
  if (code >= 160 && code <= 169) return 8;
  return (code >= 90 && code <= 99) || (code >= 420 && code <= 459) || code == 1071 ? 4 : 2;
}

Group number(const RawGroup& raw, GroupKind kind, Encoding encoding) {
  if (kind == GroupKind::real) {
    if (encoding != Encoding::ascii) return Group::real(raw.code, std::bit_cast<double>(littleEndian(raw.value)));
    if (const auto value = parseReal(raw.value)) return Group::real(raw.code, *value);
  } else if (kind == GroupKind::integer) {
    if (encoding != Encoding::ascii) return Group::integer(raw.code, littleEndian(raw.value));
    if (const auto value = parseInteger(raw.value)) return Group::integer(raw.code, *value);
    // Some writers put a real where an integer belongs.
    constexpr double kWithinIntegers = 9e18;
    if (const auto value = parseReal(raw.value); value && std::abs(*value) < kWithinIntegers)
      return Group::integer(raw.code, static_cast<std::int64_t>(*value));
  } else if (const auto value = parseHandle(raw.value)) {
    return Group::handle(raw.code, *value);
  }
  return Group::text(raw.code, std::string(raw.value));
}

}  // namespace

Group decode(const RawGroup& raw, Encoding encoding, const CodePage& codePage) {
  const GroupKind kind = kindOfCode(raw.code);
  if (kind == GroupKind::text) return Group::text(raw.code, textFromFile(codePage.decode(raw.value))).from(raw.value);
  if (kind == GroupKind::binary)
    return Group::binary(raw.code, encoding == Encoding::ascii ? bytesOfHex(raw.value) : std::string(raw.value))
        .from(raw.value);
  return number(raw, kind, encoding).from(raw.value);
}

namespace {

std::string asciiValue(const Group& group, const CodePage& codePage) {
  switch (group.kind()) {
    case GroupKind::text: return codePage.encode(textToFile(group.text()));
    case GroupKind::real: return realText(group.real());
    case GroupKind::handle: return handleText(group.handle());
    case GroupKind::binary: return hexOfBytes(group.text());
    case GroupKind::integer: break;
  }
  // Integers are right-aligned by custom: 6 columns for 16 bits, 9 for 32.
  std::string text = std::to_string(group.integer());
  const std::size_t columns = integerWidth(group.code()) == 2 ? 6 : integerWidth(group.code()) == 4 ? 9 : 0;
  return text.size() < columns ? std::string(columns - text.size(), ' ') + text : text;
}

void appendBinary(std::string& out, const Group& group, const Style& style) {
  constexpr std::size_t kLongestChunk = 255;
  if (group.kind() == GroupKind::binary && group.text().size() > kLongestChunk) {
    appendBinary(out, Group::binary(group.code(), group.text().substr(0, kLongestChunk)), style);
    appendBinary(out, Group::binary(group.code(), group.text().substr(kLongestChunk)), style);
    return;
  }
  if (style.encoding == Encoding::binary) {
    putLittleEndian(out, static_cast<std::uint64_t>(group.code()), 2);
  } else if (group.code() < 255) {
    out.push_back(static_cast<char>(group.code()));
  } else {
    out.push_back(static_cast<char>(0xFF));
    putLittleEndian(out, static_cast<std::uint64_t>(group.code()), 2);
  }
  const std::string_view source = group.source();
  switch (kindOfCode(group.code())) {
    case GroupKind::real: putLittleEndian(out, std::bit_cast<std::uint64_t>(group.real()), 8); break;
    case GroupKind::integer:
      putLittleEndian(out, static_cast<std::uint64_t>(group.integer()), integerWidth(group.code()));
      break;
    case GroupKind::binary:
      out.push_back(static_cast<char>(group.text().size()));
      out += group.text();
      break;
    default:
      if (source.data()) out += source;
      else
        out += group.kind() == GroupKind::handle ? handleText(group.handle())
                                                 : style.codePage.encode(textToFile(group.text()));
      out.push_back('\0');
  }
}

}  // namespace

void append(std::string& out, const Group& group, const Style& style) {
  if (style.encoding != Encoding::ascii) {
    appendBinary(out, group, style);
    return;
  }
  const std::string code = std::to_string(group.code());
  if (code.size() < 3) out.append(3 - code.size(), ' ');
  out += code;
  out += style.lineEnd;
  if (group.source().data()) out += group.source();
  else out += asciiValue(group, style.codePage);
  out += style.lineEnd;
}

}  // namespace atelier::dxf
