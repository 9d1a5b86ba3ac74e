// A slide is a header and records of two bytes and more: lines, short lines from the last point, colours, areas.
// Numbers are little-endian, as all programs of the last decades write them.
#include "atelier/dialogs/slide.h"

#include "atelier/base/text.h"

namespace atelier::dcl {
namespace {

// Reads numbers until the bytes end; `fine` says whether they were enough.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}
  bool has(std::size_t count) const { return bytes_.size() - at_ >= count; }
  int byte() { return static_cast<unsigned char>(bytes_[at_++]); }
  int offset() { return static_cast<signed char>(bytes_[at_++]); }
  int word() {
    const int low = byte();
    return static_cast<short>(low | byte() << 8);
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

constexpr std::string_view kSlide("AutoCAD Slide\r\n\x1a\0", 17);
constexpr std::string_view kLibrary("AutoCAD Slide Library 1.0\r\n\x1a\0", 29);

// The kinds of records, by the second byte; smaller ones begin a line with its first ordinate.
enum : int { kShortLine = 0xFB, kEnd = 0xFC, kArea = 0xFD, kOneEnd = 0xFE, kColour = 0xFF, kLastLine = 0x7F };

class Reader {
 public:
  explicit Reader(std::string_view records) : in_(records) {}

  bool record(Slide& slide) {
    if (!in_.has(2)) return false;
    const int low = in_.byte(), kind = in_.byte();
    if (kind <= kLastLine) return line(slide, low | kind << 8);
    switch (kind) {
      case kShortLine: return shortLine(slide, low);
      case kArea: return area(slide);
      case kOneEnd: return continued(slide, low);
      case kColour: colour_ = low; return true;
      default: return false;
    }
  }

 private:
  bool line(Slide& slide, int x) {
    if (!in_.has(6)) return false;
    const SlidePoint from{x, in_.word()};
    const int toX = in_.word(), toY = in_.word();
    add(slide, from, {toX, toY});
    last_ = from;
    return true;
  }
  bool shortLine(Slide& slide, int low) {
    if (!in_.has(3)) return false;
    const SlidePoint from{last_.x + static_cast<signed char>(low), last_.y + in_.offset()};
    const int toX = last_.x + in_.offset(), toY = last_.y + in_.offset();
    add(slide, from, {toX, toY});
    last_ = from;
    return true;
  }
  bool continued(Slide& slide, int low) {
    if (!in_.has(1)) return false;
    const SlidePoint to{last_.x + static_cast<signed char>(low), last_.y + in_.offset()};
    add(slide, last_, to);
    last_ = to;
    return true;
  }
  // The first record of an area gives the number of its corners, a last one with a negative number ends it.
  bool area(Slide& slide) {
    if (!in_.has(4)) return false;
    const int x = in_.word(), y = in_.word();
    if (!inArea_) {
      slide.shapes.push_back({{}, colour_, true});
      inArea_ = true;
    } else if (y < 0) {
      inArea_ = false;
    } else {
      slide.shapes.back().points.push_back({x, y});
    }
    return true;
  }
  void add(Slide& slide, SlidePoint from, SlidePoint to) {
    inArea_ = false;
    slide.shapes.push_back({{from, to}, colour_, false});
  }

  Bytes in_;
  SlidePoint last_{0, 0};
  int colour_ = 7;
  bool inArea_ = false;
};

}  // namespace

std::optional<Slide> readSlide(std::string_view bytes) {
  constexpr std::size_t kHeader = 31, kSize = 19;
  if (!bytes.starts_with(kSlide) || bytes.size() < kHeader) return std::nullopt;
  Bytes size(bytes.substr(kSize));
  Slide slide;
  slide.width = size.word();
  slide.height = size.word();
  if (slide.width <= 0 || slide.height <= 0) return std::nullopt;
  Reader reader(bytes.substr(kHeader));
  while (reader.record(slide)) {}
  return slide;
}

std::string_view slideInLibrary(std::string_view library, std::string_view name) {
  constexpr std::size_t kDirectory = 32, kName = 32, kEntry = 36;
  if (!library.starts_with(kLibrary)) return {};
  for (std::size_t at = kDirectory; at + kEntry <= library.size() && library[at] != '\0'; at += kEntry) {
    const std::string_view padded = library.substr(at, kName);
    if (!equalNoCase(padded.substr(0, padded.find('\0')), name)) continue;
    std::size_t place = 0;
    for (std::size_t i = 4; i-- > 0;) place = place << 8 | static_cast<unsigned char>(library[at + kName + i]);
    return place < library.size() ? library.substr(place) : std::string_view();
  }
  return {};
}

}  // namespace atelier::dcl
