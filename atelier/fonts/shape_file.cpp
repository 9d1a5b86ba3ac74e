// The head is a line of text; then the lowest and highest number, the count, for each shape its number and length, and the
// shapes themselves: a name, a zero, and the codes of the pen.
#include "atelier/fonts/shape_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <numbers>
#include <utility>

namespace atelier::fonts {

namespace {

constexpr std::string_view kKinds[] = {"AutoCAD-86 shapes V1.0", "AutoCAD-86 shapes V1.1"};
constexpr std::size_t kHead = 25;  // the line with its end

std::string capitals(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  return out;
}

std::string wholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

// Follows the codes of a shape.
class ShapePen {
 public:
  explicit ShapePen(const ShapeFile& file) : file_(file) {}

  std::vector<PenStroke> run(const std::string& code) {
    play(code, 0);
    lift();
    return std::move(strokes_);
  }

 private:
  enum Code : std::uint8_t {
    end,
    down,
    up,
    divide,
    multiply,
    push,
    pop,
    part,
    step,
    steps,
    octants,
    fraction,
    bulge,
    bulges,
    vertical
  };

  void play(const std::string& code, int depth) {
    constexpr int kDeepest = 8;
    constexpr std::size_t kMost = 100'000;  // of all codes
    const std::string* const outer = std::exchange(code_, &code);
    const std::size_t place = std::exchange(at_, 0);
    while (at_ < code.size() && ++played_ < kMost) {
      const std::uint8_t c = byte();
      if (c == end || depth > kDeepest) break;
      one(c, depth);
    }
    code_ = outer, at_ = place;
  }

  void one(std::uint8_t c, int depth) {
    switch (c) {
      case down: down_ = true; return;
      case up: lift(), down_ = false; return;
      case divide: scale_ /= std::max<double>(byte(), 1); return;
      case multiply: scale_ *= byte(); return;
      case push: places_.push_back(at()); return;
      case pop:
        if (places_.empty()) return;
        lift(), pen_ = places_.back(), places_.pop_back();
        return;
      case part: {
        const auto other = file_.shapes_.find(byte());
        if (other != file_.shapes_.end()) play(other->second.code, depth + 1);
        return;
      }
      case step: return by(vector());
      case steps:
        for (Pt v = vector(); (v.x != 0 || v.y != 0) && at_ < code_->size(); v = vector()) by(v);
        return;
      case octants: {
        const double radius = byte();
        return arc(radius, signedByte(), 0, 0);
      }
      case fraction: {
        const double first = byte() / 256.0, last = byte() / 256.0;
        const double high = byte();
        const double radius = 256 * high + byte();
        return arc(radius, signedByte(), first, last);
      }
      case bulge: {
        const Pt v = vector();
        return bent(v, signedByte() / 127.0);
      }
      case bulges:
        for (Pt v = vector(); (v.x != 0 || v.y != 0) && at_ < code_->size(); v = vector())
          bent(v, signedByte() / 127.0);
        return;
      case vertical: return skip(byte());
      default: return c >= 16 ? ray(c >> 4, c & 15) : void();
    }
  }

  // The command after the mark of vertical texts, which isn't carried out.
  void skip(std::uint8_t c) {
    if (c == divide || c == multiply || c == part) byte();
    if (c == step || c == octants) byte(), byte();
    if (c == bulge) byte(), byte(), byte();
    if (c == fraction)
      for (int i = 0; i < 5; ++i) byte();
    if (c == steps || c == bulges)
      for (Pt v = vector(); (v.x != 0 || v.y != 0) && at_ < code_->size(); v = vector())
        if (c == bulges) byte();
  }

  // One of sixteen directions; between the eight main ones the longer side counts.
  void ray(int length, int direction) {
    static constexpr double kAlong[] = {1, 1, 1, 0.5, 0, -0.5, -1, -1, -1, -1, -1, -0.5, 0, 0.5, 1, 1};
    by({length * kAlong[direction], length * kAlong[(direction + 12) % 16]});
  }

  // Octants from the start, anticlockwise for positive codes; fractions of an octant cut the first and the last.
  void arc(double radius, int code, double first, double last) {
    constexpr double kOctant = std::numbers::pi / 4;
    const double sign = code < 0 ? -1 : 1;
    const int packed = std::abs(code), start = packed >> 4 & 7;
    int count = packed & 7;
    if (count == 0) count = 8;
    const double from = (start + sign * first) * kOctant;
    const double whole = last == 0 ? count : count - 1 + last;
    const double sweep = sign * (whole - first) * kOctant;
    const Pt centre = pen_ - scale_ * radius * Pt{std::cos(from), std::sin(from)};
    round(centre, scale_ * radius, from, sweep);
  }

  // To the end of a vector by an arc; the bulge is the height as a share of half the chord.
  void bent(Pt v, double height) {
    const Pt chord = scale_ * v;
    const double length = std::hypot(chord.x, chord.y);
    if (height == 0 || length == 0) return by(v);
    const double sweep = 4 * std::atan(height), radius = length / 2 / std::sin(sweep / 2);
    const double away = radius * std::cos(sweep / 2);
    const Pt middle = pen_ + 0.5 * chord;
    const Pt centre = middle + away / length * Pt{-chord.y, chord.x};
    const double from = std::atan2(pen_.y - centre.y, pen_.x - centre.x);
    round(centre, std::abs(radius), from, sweep);
  }

  void round(Pt centre, double radius, double from, double sweep) {
    constexpr double kChord = std::numbers::pi / 32;
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / kChord)));
    for (int i = 1; i <= count; ++i) {
      const double a = from + sweep * i / count;
      go(centre + radius * Pt{std::cos(a), std::sin(a)});
    }
  }

  void by(Pt v) { go(pen_ + scale_ * v); }
  void go(Pt to) {
    if (down_ && stroke_.empty()) stroke_.push_back(pen_);
    if (down_) stroke_.push_back(to);
    pen_ = to;
  }
  void lift() {
    if (stroke_.size() > 1) strokes_.push_back(stroke_);
    stroke_.clear();
  }

  Pt at() const { return pen_; }
  std::uint8_t byte() { return at_ < code_->size() ? static_cast<std::uint8_t>((*code_)[at_++]) : std::uint8_t{0}; }
  int signedByte() { return static_cast<std::int8_t>(byte()); }
  Pt vector() {
    const double x = signedByte();
    return {x, static_cast<double>(signedByte())};
  }

  const ShapeFile& file_;
  const std::string* code_ = nullptr;
  std::size_t at_ = 0, played_ = 0;
  Pt pen_;
  bool down_ = true;
  double scale_ = 1;
  std::vector<Pt> places_;
  PenStroke stroke_;
  std::vector<PenStroke> strokes_;
};

ShapeFile::ShapeFile(std::string bytes) {
  const auto word = [&](std::size_t at) {
    return at + 1 < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) | static_cast<std::uint8_t>(bytes[at + 1]) << 8
                                 : 0;
  };
  const auto count = static_cast<std::size_t>(word(kHead + 4));
  std::size_t place = kHead + 6 + 4 * count;
  for (std::size_t i = 0; i < count && place < bytes.size(); ++i) {
    const std::size_t entry = kHead + 6 + 4 * i;
    const std::string_view all = std::string_view(bytes).substr(place, static_cast<std::size_t>(word(entry + 2)));
    const std::size_t zero = std::min(all.find('\0'), all.size());
    shapes_[word(entry)] = {capitals(all.substr(0, zero)), std::string(all.substr(std::min(zero + 1, all.size())))};
    place += all.size();
  }
}

std::shared_ptr<const ShapeFile> ShapeFile::of(const std::string& path) {
  static std::mutex lock;
  struct Known {
    std::filesystem::file_time_type changed;
    std::shared_ptr<const ShapeFile> file;
  };
  static std::map<std::string, Known> known;
  const std::lock_guard guard(lock);
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(path, error);
  const auto found = known.find(path);
  if (found != known.end() && found->second.changed == changed) return found->second.file;
  std::string bytes = wholeFile(path);
  const bool shapes = std::ranges::any_of(kKinds, [&](std::string_view kind) { return bytes.starts_with(kind); });
  return (known[path] = {changed, shapes ? std::shared_ptr<const ShapeFile>(new ShapeFile(std::move(bytes))) : nullptr})
      .file;
}

std::optional<std::vector<PenStroke>> ShapeFile::shape(int number) const {
  const auto found = shapes_.find(number);
  return found == shapes_.end() ? std::nullopt : std::optional(ShapePen(*this).run(found->second.code));
}

std::optional<std::vector<PenStroke>> ShapeFile::shape(std::string_view name) const {
  const auto found =
      std::ranges::find_if(shapes_, [&](const auto& shape) { return shape.second.name == capitals(name); });
  return found == shapes_.end() ? std::nullopt : shape(found->first);
}

}  // namespace atelier::fonts
