// System variables: a table of names, types, defaults and where each one lives.
// A variable is kept in the drawing's header, in the document, or is computed.
#pragma once
#include <map>
#include <string>
#include <string_view>

#include "atelier/lisp/host.h"
#include "hote/ge.h"

namespace atelier {

class Document;

class SystemVariables : public lisp::SystemVariables {
 public:
  struct Point {
    AcGePoint3d value;
    bool flat = false;  // two ordinates
  };
  using Value = std::variant<int, double, std::string, Point>;

  explicit SystemVariables(Document& document) : document_(document) {}
  // Nothing for an unknown name. Names without regard to case.
  std::optional<Value> value(std::string_view name) const;
  // False: unknown, read-only, or a value of another type or out of range.
  bool set(std::string_view name, const Value& value);
  std::optional<Setting> get(std::string_view name) const override;

 private:
  Document& document_;
  std::map<std::string, Value, std::less<>> own_;  // what was set, of those kept in the document
};

}  // namespace atelier
