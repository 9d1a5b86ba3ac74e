// One group of a drawing record: a code and a value, with the bytes it came from when it was read from a file.
// Reference: DXF reference, "Group code value types".
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "hote/ge.h"

namespace atelier {

enum class GroupKind : std::uint8_t { text, real, integer, handle, binary };

// The kind of value that a code carries; text for codes that the reference doesn't give.
GroupKind kindOfCode(int code);

class Group {
 public:
  static Group text(int code, std::string utf8) { return Group(code, GroupKind::text, std::move(utf8)); }
  static Group real(int code, double value) {
    Group g(code, GroupKind::real);
    g.real_ = value;
    return g;
  }
  static Group integer(int code, std::int64_t value) {
    Group g(code, GroupKind::integer);
    g.integer_ = value;
    return g;
  }
  static Group handle(int code, std::uint64_t value) {
    Group g(code, GroupKind::handle);
    g.integer_ = static_cast<std::int64_t>(value);
    return g;
  }
  static Group binary(int code, std::string bytes) { return Group(code, GroupKind::binary, std::move(bytes)); }

  int code() const { return code_; }
  // The kind of the value in hand: a number that could not be read stays text.
  GroupKind kind() const { return kind_; }
  double real() const {
    return kind_ == GroupKind::real ? real_ : kind_ == GroupKind::integer ? static_cast<double>(integer_) : 0.0;
  }
  // Without its fraction; 0 for what no integer holds.
  static std::int64_t integerOf(double value) {
    constexpr double kBeyond = 9223372036854775808.0;
    return value > -kBeyond && value < kBeyond ? static_cast<std::int64_t>(value) : 0;
  }
  std::int64_t integer() const {
    return kind_ == GroupKind::integer ? integer_ : kind_ == GroupKind::real ? integerOf(real_) : 0;
  }
  std::uint64_t handle() const { return kind_ == GroupKind::handle ? static_cast<std::uint64_t>(integer_) : 0; }
  const std::string& text() const { return text_; }  // UTF-8; bytes for binary; empty for numbers

  // Bytes of the value in the file it was read from, line end excluded; empty for a value made here.
  std::string_view source() const { return source_; }
  Group& from(std::string_view bytes) {
    source_ = bytes;
    return *this;
  }
  // Same code and value, wherever they came from.
  bool sameValue(const Group& other) const {
    return code_ == other.code_ && kind_ == other.kind_ && text_ == other.text_ &&
           (kind_ == GroupKind::real ? real_ == other.real_ : integer_ == other.integer_);
  }

 private:
  Group(int code, GroupKind kind, std::string text = {})
      : code_(static_cast<std::int16_t>(code)), kind_(kind), integer_(0), text_(std::move(text)) {}
  std::int16_t code_;
  GroupKind kind_;
  union {
    double real_;
    std::int64_t integer_;
  };
  std::string text_;
  std::string_view source_;
};

}  // namespace atelier
