// A drawing record: every group of one object in file order, the storage that all typed fields are read from and
// written to. What no field knows stays where it was.
#pragma once
#include <optional>
#include <string_view>
#include <vector>

#include "atelier/database/records/fields.h"
#include "atelier/database/records/group.h"

namespace atelier {

// Appends the groups of a field with its default: of a point all ordinates, of a handle 0.
void appendDefault(std::vector<Group>& groups, const Field& field);

class Record {
 public:
  Record() = default;
  explicit Record(std::vector<Group> list) : groups(std::move(list)) {}
  // The groups of a new object of this type: type name, subclass marks and the fields that are always written.
  static Record fresh(std::string_view type);

  std::string_view type() const;  // the text of group 0; empty for an empty record

  // Index of the first group of that field, npos when there is none. Groups between braces (102) and XDATA are not
  // looked at; in a record without subclass marks (R12) the field's section counts for nothing.
  std::size_t find(const Field& field) const;
  const Group* get(const Field& field) const;
  bool has(const Field& field) const { return get(field) != nullptr; }

  // Missing groups give the field's default.
  double real(const Field& field) const;
  std::int64_t integer(const Field& field) const;
  std::string text(const Field& field) const;
  std::uint64_t handle(const Field& field) const;
  AcGePoint3d point(const Field& field) const;  // groups n, n+10 and, when there, n+20

  // A group that is missing is put where the field table of the type places it.
  void setReal(const Field& field, double value);
  void setInteger(const Field& field, std::int64_t value);
  void setText(const Field& field, std::string_view utf8);
  void setHandle(const Field& field, std::uint64_t value);
  void setPoint(const Field& field, const AcGePoint3d& value);
  void remove(const Field& field);  // a point with its ordinates

  // Bounds of the section between two subclass marks, the mark excluded; {npos, npos} when there is none.
  std::pair<std::size_t, std::size_t> section(std::string_view subclass) const;
  // Bounds of the groups between 102 "{name" and 102 "}", the two excluded; nothing when there is no such list.
  std::optional<std::pair<std::size_t, std::size_t>> braces(std::string_view name) const;
  // Index of the first application (1001) of the XDATA, or the number of groups. Groups of 1000 and above before it are
  // the record's own, as an XRECORD may have them.
  std::size_t xdataStart() const;

  std::uint64_t objectHandle() const;  // group 5 or 105 of the head, 0 when there is none
  void setObjectHandle(std::uint64_t handle);
  std::uint64_t owner() const;  // group 330 of the head
  void setOwner(std::uint64_t handle);

  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  std::vector<Group> groups;

 private:
  std::size_t headEnd() const;
  std::size_t placeFor(const Field& field) const;
  void put(const Field& field, Group group);
};

}  // namespace atelier
