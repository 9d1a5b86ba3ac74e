// Splits a file into groups.
// A group is two lines in ASCII; in binary a code and a value whose length follows from the code.
#include "atelier/dxf/groups/scanner.h"

#include <algorithm>
#include <cstring>

#include "atelier/database/records/group.h"

namespace atelier::dxf {
namespace {

// Codes are small numbers with blanks around them; -1 for anything else.
inline int parseCode(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  int value = 0;
  const std::size_t first = i;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && i - first < 5; ++i)
    value = value * 10 + (text[i] - '0');
  if (i == first) return -1;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  return i == text.size() && value <= 32767 ? value : -1;
}

// Only the printable bytes of a file go into messages.
std::string codeMessage(std::string_view text) {
  std::string shown(text.substr(0, 40));
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7E) c = '?';
  return "code de groupe attendu, trouvé \"" + shown + "\"";
}

bool isRecordName(std::string_view name) {
  if (name.empty() || name.size() > 64) return false;
  return std::all_of(name.begin(), name.end(),
                     [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'; });
}

}  // namespace

std::size_t binaryWidth(int code) {
  if (code >= 290 && code <= 299) return 1;
  if (code >= 160 && code <= 169) return 8;
  if ((code >= 90 && code <= 99) || (code >= 420 && code <= 429) || (code >= 440 && code <= 459) || code == 1071)
    return 4;
  switch (kindOfCode(code)) {
    case GroupKind::real: return 8;
    case GroupKind::integer: return 2;
    default: return 0;
  }
}

Encoding encodingOf(std::string_view bytes) {
  if (!bytes.starts_with(kBinarySentinel)) return Encoding::ascii;
  // The first group is 0 SECTION: with codes of one byte the text follows at once.
  return bytes.size() > 24 && bytes[23] != 0 ? Encoding::binaryOld : Encoding::binary;
}

std::size_t firstGroup(std::string_view bytes, Encoding encoding) {
  if (encoding != Encoding::ascii) return kBinarySentinel.size();
  return bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

// Throws, unless only blank lines are left at the end of the file: they aren't a group.
[[gnu::noinline]] bool Scanner::refuseCode(const RawGroup& group, std::string_view codeLine) const {
  const auto blank = [](char c) { return c == ' ' || c == '\r' || c == '\n' || c == '\t' || c == 0x1A; };
  const std::string_view rest = bytes_.substr(group.begin);
  if (std::all_of(rest.begin(), rest.end(), blank)) return false;
  throw FormatError{group.begin, codeMessage(codeLine)};
}

[[gnu::noinline]] bool Scanner::refuseEnd(const RawGroup& group) {
  throw FormatError{group.begin, "fichier coupé: la valeur du groupe " + std::to_string(group.code) + " manque"};
}

// This is run for every group of a drawing, so faults are handled in other functions.
bool Scanner::nextAscii(RawGroup& group) {
  if (at_ >= bytes_.size()) return false;
  group.begin = at_;
  const std::string_view codeLine = line();
  group.code = parseCode(codeLine);
  if (group.code < 0) return refuseCode(group, codeLine);
  if (at_ >= bytes_.size()) return refuseEnd(group);
  group.value = line();
  return true;
}

bool Scanner::nextBinary(RawGroup& group) {
  if (at_ >= bytes_.size()) return false;
  group.begin = at_;
  const auto need = [&](std::size_t count) {
    if (bytes_.size() - at_ < count) throw FormatError{group.begin, "fichier coupé au milieu d'un groupe"};
  };
  const auto byte = [&] { return static_cast<unsigned char>(bytes_[at_++]); };
  need(encoding_ == Encoding::binaryOld ? 1 : 2);
  int code = byte();
  if (encoding_ == Encoding::binary) {
    code |= byte() << 8;
  } else if (code == 255) {
    need(2);
    code = byte();
    code |= byte() << 8;
  }
  if (code > 32767) throw FormatError{group.begin, codeMessage(std::to_string(code))};
  group.code = code;
  std::size_t width = binaryWidth(code);
  if (kindOfCode(code) == GroupKind::binary) {
    need(1);
    width = byte();
  } else if (width == 0) {
    const void* zero = std::memchr(bytes_.data() + at_, 0, bytes_.size() - at_);
    if (!zero) throw FormatError{group.begin, "fichier coupé: texte sans fin"};
    const std::size_t length = static_cast<std::size_t>(static_cast<const char*>(zero) - bytes_.data()) - at_;
    group.value = bytes_.substr(at_, length);
    at_ += length + 1;
    return true;
  }
  need(width);
  group.value = bytes_.substr(at_, width);
  at_ += width;
  return true;
}

// Whether a group 0 with a valid record name begins here.
bool Scanner::recordAt(std::size_t at) const {
  RawGroup group;
  Scanner trial(bytes_, encoding_, at, bytes_.size());
  try {
    return trial.next(group) && group.code == 0 && isRecordName(group.value);
  } catch (const FormatError&) {
    return false;
  }
}

void Scanner::resume(std::size_t fault) {
  at_ = std::min(fault, bytes_.size());
  const bool ascii = encoding_ == Encoding::ascii;
  do {
    if (ascii) {
      const std::size_t feed = bytes_.find('\n', at_);
      at_ = feed == bytes_.npos ? bytes_.size() : feed + 1;
    } else if (at_ < bytes_.size()) {
      ++at_;
    }
  } while (at_ < bytes_.size() && !recordAt(at_));
  lines_.seek(at_);
}

std::int64_t lineOf(std::string_view bytes, Encoding encoding, std::size_t offset) {
  if (encoding != Encoding::ascii) return 0;
  offset = std::min(offset, bytes.size());
  return 1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(offset), '\n');
}

}  // namespace atelier::dxf
