// The format of drawing records as data: for each type of record its fields in the order in which they are written.
// Reference: DXF reference, chapters "TABLES", "ENTITIES" and "OBJECTS".
#pragma once
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "atelier/database/records/flags.h"

namespace atelier {

class Group;

enum class FieldKind : unsigned char { real, integer, text, handle, point2, point3 };

// always: a new object is written with it; otherwise only once it is set. Lists for AutoLISP show always and shown with
// their defaults when the record leaves them out.
enum class Presence : unsigned char { always, shown, optional };

// What numbers a field may hold, ends included but for an open lower one; of a list those that it names.
struct Limits {
  double least = -std::numeric_limits<double>::infinity(), most = std::numeric_limits<double>::infinity();
  bool open = false;
  std::span<const int> list = {};
};

struct Field {
  std::string_view subclass;  // "AcDbText#2": the second section of that name; empty: before the first mark
  int code;
  FieldKind kind;
  Presence presence;
  double number;          // default of numbers; of a point its x, y, z
  std::string_view text;  // default of texts
  std::string_view name;  // the field's name in lists and messages
  Limits limits = {};
  bool needed = false;  // a list that leaves it out can't be made an object

  // The same field, with more said about it.
  constexpr Field with(const auto& change) const {
    Field copy = *this;
    change(copy);
    return copy;
  }
  constexpr Field optional() const {
    return with([](Field& f) { f.presence = Presence::optional; });
  }
  constexpr Field shown() const {
    return with([](Field& f) { f.presence = Presence::shown; });
  }
  constexpr Field must() const {
    return with([](Field& f) { f.needed = true; });
  }
  constexpr Field otherwise(double value) const {
    return with([&](Field& f) { f.number = value; });
  }
  constexpr Field otherwise(std::string_view value) const {
    return with([&](Field& f) { f.text = value; });
  }
  constexpr Field above(double low) const {
    return with([&](Field& f) { f.limits.least = low, f.limits.open = true; });
  }
  constexpr Field atLeast(double low) const {
    return with([&](Field& f) { f.limits.least = low; });
  }
  constexpr Field between(double low, double high) const {
    return with([&](Field& f) { f.limits.least = low, f.limits.most = high; });
  }
  constexpr Field yesOrNo() const { return between(0, 1); }
  constexpr Field oneOf(std::span<const int> list) const {
    return with([&](Field& f) { f.limits.list = list; });
  }
};

// Whether the group holds a value of the field's kind, and one that it may have. Of a point, any ordinate.
bool fits(const Field& field, const Group& group);
// What values a field may have, for messages (French): "> 0", "0 a 255"; empty when all do.
std::string expected(const Field& field);

struct RecordFormat {
  std::string_view type;                         // group 0
  std::string_view className;                    // the class that serves the record
  std::span<const std::string_view> subclasses;  // marks in order
  std::span<const Field> fields;
};

// The formats that are typed; null for a record that is only carried.
const RecordFormat* formatOf(std::string_view type);
std::span<const RecordFormat> allFormats();

// A field by section and code, for accessors: point and number fields alike.
constexpr Field realField(std::string_view subclass, int code, double number = 0) {
  return {subclass, code, FieldKind::real, Presence::optional, number, "", ""};
}
constexpr Field integerField(std::string_view subclass, int code, double number = 0) {
  return {subclass, code, FieldKind::integer, Presence::optional, number, "", ""};
}
constexpr Field textField(std::string_view subclass, int code, std::string_view text = "") {
  return {subclass, code, FieldKind::text, Presence::optional, 0, text, ""};
}
constexpr Field handleField(std::string_view subclass, int code) {
  return {subclass, code, FieldKind::handle, Presence::optional, 0, "", ""};
}
constexpr Field pointField(std::string_view subclass, int code) {
  return {subclass, code, FieldKind::point3, Presence::optional, 0, "", ""};
}
constexpr Field point2Field(std::string_view subclass, int code) {
  return {subclass, code, FieldKind::point2, Presence::optional, 0, "", ""};
}
// The direction of an entity's plane: (0, 0, 1) when it is not written.
constexpr Field normalField(std::string_view subclass) {
  return {subclass, 210, FieldKind::point3, Presence::optional, 0, "z", ""};
}

}  // namespace atelier
