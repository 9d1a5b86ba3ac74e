// Finds the ends of lines, 64 bytes at a time. Opening a large drawing spends most of its time here.
// The marks of a block of 64 bytes are kept as bits, so that short lines cost a few instructions each.
#pragma once
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace atelier::dxf {

class LineFinder {
 public:
  LineFinder(std::string_view bytes, std::size_t from) : data_(bytes.data()), size_(bytes.size()) { seek(from); }

  void seek(std::size_t from) {
    block_ = from & ~std::size_t{63};
    marks_ = block_ < size_ ? load(block_) & (~std::uint64_t{0} << (from & 63)) : 0;
  }

  // Offset of the next line feed, each given once; the number of bytes when there are no more.
  std::size_t next() {
    while (marks_ == 0) {
      block_ += 64;
      if (block_ >= size_) return size_;
      marks_ = load(block_);
    }
    const std::size_t at = block_ + static_cast<std::size_t>(std::countr_zero(marks_));
    marks_ &= marks_ - 1;
    return at;
  }

 private:
  std::uint64_t load(std::size_t at) const {
    if (size_ - at >= 64) return bits(data_ + at);
    char rest[64] = {};
    std::memcpy(rest, data_ + at, size_ - at);
    return bits(rest);
  }

#if defined(__SSE2__)
  static std::uint64_t bits(const char* block) {
    return part(block, 0) | part(block, 1) | part(block, 2) | part(block, 3);
  }
  static std::uint64_t part(const char* block, int number) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block) + number);
    const int marks = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
    return static_cast<std::uint64_t>(static_cast<unsigned>(marks)) << (16 * number);
  }
#else
  static std::uint64_t bits(const char* block) {
    std::uint64_t found = 0;
    for (int i = 0; i < 64; ++i) found |= static_cast<std::uint64_t>(block[i] == '\n') << i;
    return found;
  }
#endif

  const char* data_;
  std::size_t size_;
  std::size_t block_ = 0;
  std::uint64_t marks_ = 0;  // line feeds of the block that were not given yet
};

}  // namespace atelier::dxf
