// System variables by their rows: names, types, defaults, limits and where each one lives.
// A variable is kept in the drawing's header, in the document, or is computed.
#pragma once
#include <map>
#include <string>
#include <string_view>

#include "atelier/lisp/evaluator/host.h"
#include "hote/ge.h"

namespace atelier {

class Document;

struct VariablePoint {
  AcGePoint3d value;
  bool flat = false;  // two ordinates
};
using VariableValue = std::variant<int, double, std::string, VariablePoint>;

enum class VariableKind : unsigned char { integer, real, text, point2, point3 };
// header: in the drawing, under the name with a dollar sign; document: for the session; computed: by
// functions.
enum class VariablePlace : unsigned char { header, document, computed };

struct VariableRow {
  std::string_view name;
  VariableKind kind = VariableKind::integer;
  VariablePlace place = VariablePlace::document;
  int code = 0;             // group of the value in the header, when it has to be added there
  double number = 0;        // default of numbers
  std::string_view text{};  // default of texts
  bool readOnly = false;
  double low = 0, high = 0;  // limits of numbers; none when both are 0
  std::string_view help{};
};

struct ComputedVariable {
  std::string_view name;
  VariableValue (*get)(Document&);
  bool (*set)(Document&, const VariableValue&);  // null: read-only
};

// Where the rows are found, by upper-case name; null for an unknown one.
struct VariableTable {
  const VariableRow* (*row)(std::string_view name);
  const ComputedVariable* (*computed)(std::string_view name);
};

class SystemVariables : public lisp::SystemVariables {
 public:
  using Point = VariablePoint;
  using Value = VariableValue;

  SystemVariables(Document& document, const VariableTable& table) : document_(document), table_(table) {}
  // Nothing for an unknown name. Names without regard to case.
  std::optional<Value> value(std::string_view name) const;
  // False: unknown, read-only, or a value of another type or out of range.
  bool set(std::string_view name, const Value& value);
  std::optional<Setting> get(std::string_view name) const override;

 private:
  Document& document_;
  const VariableTable& table_;
  std::map<std::string, Value, std::less<>> own_;  // what was set, of those kept in the document
};

}  // namespace atelier
