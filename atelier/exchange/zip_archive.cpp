// The directory at the archive's end names its files; each is stored, or deflated, which zlib undoes.
#include "atelier/exchange/zip_archive.h"

#include <zlib.h>

#include "atelier/base/error.h"
#include "atelier/lisp/evaluator/file_object.h"

namespace atelier::exchange {
namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20;  // of one file; more is no survey but a bomb
constexpr std::size_t kStored = 0, kDeflated = 8;
constexpr std::size_t kEndSize = 22, kEntrySize = 46, kLocalSize = 30;

// False unless the bytes give a text of just that length.
bool inflated(std::string_view packed, std::string& text) {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return false;
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  const int result = inflate(&stream, Z_FINISH);
  inflateEnd(&stream);
  return result == Z_STREAM_END && stream.avail_out == 0;
}

}  // namespace

void ZipArchive::damaged() const { throw FileError(path_, 0, "ce classeur est abîmé ou n'en est pas un"); }

// Little-endian.
std::size_t ZipArchive::number(std::size_t at, std::size_t bytes) const {
  if (at + bytes > bytes_.size()) damaged();
  std::size_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
  return value;
}

ZipArchive::ZipArchive(const std::string& path) : path_(path) {
  auto bytes = lisp::readWholeFile(path);
  if (!bytes) throw FileError(path, 0, "lecture impossible");
  bytes_ = std::move(*bytes);
  const std::size_t end = bytes_.rfind("PK\5\6");
  if (end == bytes_.npos || end + kEndSize > bytes_.size()) damaged();
  std::size_t at = number(end + 16, 4);
  for (std::size_t left = number(end + 10, 2); left > 0; --left) {
    if (number(at, 4) != 0x02014b50) damaged();
    const std::size_t length = number(at + 28, 2);
    if (at + kEntrySize + length > bytes_.size()) damaged();
    entries_[bytes_.substr(at + kEntrySize, length)] = {number(at + 10, 2), number(at + 16, 4), number(at + 20, 4),
                                                        number(at + 24, 4), number(at + 42, 4)};
    at += kEntrySize + length + number(at + 30, 2) + number(at + 32, 2);
  }
}

std::string ZipArchive::file(const std::string& name) const {
  const auto found = entries_.find(name);
  if (found == entries_.end()) return {};
  const Entry& entry = found->second;
  const std::size_t start = entry.offset + kLocalSize + number(entry.offset + 26, 2) + number(entry.offset + 28, 2);
  if (entry.size > kMostBytes || start > bytes_.size() || entry.packed > bytes_.size() - start) damaged();
  std::string text(entry.size, '\0');
  if (entry.method == kStored) text = bytes_.substr(start, entry.packed);
  else if (entry.method != kDeflated || !inflated({bytes_.data() + start, entry.packed}, text)) damaged();
  if (crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())) != entry.checksum)
    damaged();
  return text;
}

}  // namespace atelier::exchange
