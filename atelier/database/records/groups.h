// Reads the groups of an entity without regard to subclass marks: the first group of a code counts; lists in braces,
// embedded objects and XDATA are left out. Angles in a record are in degrees.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/database/records/record.h"
#include "hote/ge.h"

namespace atelier {

class Groups {
 public:
  explicit Groups(const Record& record);

  const Group* find(int code) const;
  bool has(int code) const { return find(code) != nullptr; }
  double real(int code, double missing = 0) const;
  std::int64_t integer(int code, std::int64_t missing = 0) const;
  std::string_view text(int code, std::string_view missing = "") const;
  // Groups code, code + 10, code + 20; missing ordinates are 0.
  AcGePoint3d point(int code) const;
  // Group 210; a zero vector counts as the z axis.
  AcGeVector3d normal() const;
  double radians(int code) const;

  std::vector<double> reals(int code) const;
  // Every point of that code, in order.
  std::vector<AcGePoint3d> points(int code) const;

  std::span<const Group* const> all() const& { return groups_; }
  std::span<const Group* const> all() const&& = delete;  // it would outlive the list

 private:
  std::vector<const Group*> groups_;
};

// The XDATA of one application, its 1001 excluded; empty when there is none.
std::span<const Group> xdataOf(const Record& record, std::string_view application);

}  // namespace atelier
