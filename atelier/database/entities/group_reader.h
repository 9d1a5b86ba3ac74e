// Groups one after the other, for parts of records whose groups mean something only by their order.
// Inner header of the room.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "atelier/database/objects/imp_object.h"

namespace atelier {

class GroupReader {
 public:
  explicit GroupReader(std::span<const Group* const> groups) : groups_(groups) {}

  std::size_t place() const { return i_; }
  bool at(int code, std::size_t ahead = 0) const {
    return i_ + ahead < groups_.size() && groups_[i_ + ahead]->code() == code;
  }
  // Skips to the code; false (and nothing skipped) when it does not come before `stop`.
  bool seek(int code, int stop = -1) {
    for (std::size_t k = i_; k < groups_.size() && groups_[k]->code() != stop; ++k)
      if (groups_[k]->code() == code) return i_ = k, true;
    return false;
  }
  // The value of the group when it has that code, which is then passed.
  double real(int code, double missing = 0) { return at(code) ? groups_[i_++]->real() : missing; }
  std::int64_t integer(int code, std::int64_t missing = 0) { return at(code) ? groups_[i_++]->integer() : missing; }
  std::uint64_t handle(int code) { return at(code) ? groups_[i_++]->handle() : 0; }
  AcGePoint2d point(int code) {
    const double x = real(code);
    return {x, real(code + 10)};
  }
  AcGeVector2d vector(int code) { return point(code) - AcGePoint2d(); }

 private:
  std::span<const Group* const> groups_;
  std::size_t i_ = 0;
};

// The same, written.
class GroupWriter {
 public:
  explicit GroupWriter(std::vector<Group>& out) : out_(out) {}
  void integer(int code, std::int64_t value) { out_.push_back(Group::integer(code, value)); }
  void count(int code, std::size_t value) { integer(code, static_cast<std::int64_t>(value)); }
  void real(int code, double value) { out_.push_back(Group::real(code, value)); }
  void handle(int code, std::uint64_t value) { out_.push_back(Group::handle(code, value)); }
  void point(int code, const AcGePoint2d& p) {
    real(code, p.x);
    real(code + 10, p.y);
  }
  void vector(int code, const AcGeVector2d& v) { point(code, AcGePoint2d() + v); }

 private:
  std::vector<Group>& out_;
};

}  // namespace atelier
