// Between groups and association lists.
// The group code decides the kind of value; points and XDATA are arranged as entget gives them.
#include "atelier/document/groups_as_lists.h"

#include "atelier/base/text.h"
#include "atelier/database/lists/entity_walk.h"
#include "atelier/database/objects/chain.h"
#include "atelier/document/values.h"
#include "atelier/lisp/evaluator/printer.h"

namespace atelier {
namespace {

using lisp::Interpreter;
using lisp::Value;

// Builds a list from the front; the collector sees it through the machine stack.
class ListBuilder {
 public:
  explicit ListBuilder(Interpreter& interpreter) : interpreter_(interpreter) {}
  void add(Value value) {
    const Value cell = interpreter_.cons(value, lisp::nil);
    if (head_.isNil()) head_ = cell;
    else last_.pair()->cdr = cell;
    last_ = cell;
  }
  Value list() const { return head_; }

 private:
  Interpreter& interpreter_;
  Value head_, last_;
};

bool isTextHandle(int code) { return code == 5 || code == 105 || code == 1005 || (code >= 320 && code <= 329); }

// Types, marks, layers, line types, styles and layouts: few texts, in every list.
bool isWord(int code) { return code == 0 || (code >= 6 && code <= 8) || code == 100 || code == 410; }

Value valueOf(Interpreter& interpreter, const Group& group, AcDbImpDatabase& db) {
  switch (group.kind()) {
    case GroupKind::real: return Value::real(group.real());
    case GroupKind::integer: return Value::integerOrReal(group.integer());
    case GroupKind::handle:
      if (isTextHandle(group.code())) return interpreter.string(handleText(group.handle()));
      return entityValue(interpreter, db.stubOrLost(group.handle()));
    case GroupKind::binary: {
      static constexpr char kDigits[] = "0123456789ABCDEF";
      std::string hex;
      for (const char c : group.text()) hex += {kDigits[static_cast<unsigned char>(c) >> 4], kDigits[c & 15]};
      return interpreter.string(hex);
    }
    case GroupKind::text: break;
  }
  return isWord(group.code()) ? interpreter.word(group.text()) : interpreter.string(group.text());
}

// One item; moves the index after it, with all ordinates of a point.
Value item(Interpreter& interpreter, const GroupList& groups, std::size_t& i, AcDbImpDatabase& db) {
  const Group& group = groups[i];
  const int code = group.code();
  if (group.kind() == GroupKind::real && isPointCode(code) && i + 1 < groups.size() &&
      groups[i + 1].code() == code + 10) {
    ListBuilder point(interpreter);
    point.add(Value::integer(code));
    point.add(Value::real(group.real()));
    for (int k = 1; k <= 2 && i + 1 < groups.size() && groups[i + 1].code() == code + 10 * k; ++k)
      point.add(Value::real(groups[++i].real()));
    return point.list();
  }
  return interpreter.cons(Value::integer(code), valueOf(interpreter, group, db));
}

}  // namespace

Value listOfGroups(Interpreter& interpreter, const AcDbStub* stub, const GroupList& groups) {
  AcDbImpDatabase& db = *stub->database;
  ListBuilder list(interpreter);
  list.add(interpreter.cons(Value::integer(-1), entityValue(interpreter, stub)));
  std::size_t i = 0;
  for (; i < groups.size() && groups[i].code() != 1001; ++i) list.add(item(interpreter, groups, i, db));
  const bool isBlock = !groups.empty() && groups[0].text() == "BLOCK";
  if (const AcDbStub* first = isBlock ? firstOfBlock(db, stub) : nullptr)
    list.add(interpreter.cons(Value::integer(-2), entityValue(interpreter, first)));
  if (i < groups.size()) {
    ListBuilder xdata(interpreter);
    xdata.add(Value::integer(-3));
    while (i < groups.size()) {
      ListBuilder application(interpreter);
      application.add(interpreter.string(groups[i++].text()));
      for (; i < groups.size() && groups[i].code() != 1001; ++i) application.add(item(interpreter, groups, i, db));
      xdata.add(application.list());
    }
    list.add(xdata.list());
  }
  return list.list();
}

bool appendGroup(std::vector<Group>& groups, int code, Value value) {
  if (isPointCode(code) && value.isInteger()) return false;  // a lone real is a group that some classes have
  if (isPointCode(code) && value.isPair()) {
    int k = 0;
    for (; value.isPair() && k < 3; value = value.cdr(), ++k) {
      if (!value.car().isNumber()) return false;
      groups.push_back(Group::real(code + 10 * k, value.car().number()));
    }
    return k >= 2 && value.isNil();
  }
  switch (kindOfCode(code)) {
    case GroupKind::real:
      if (!value.isNumber()) return false;
      groups.push_back(Group::real(code, value.number()));
      return true;
    case GroupKind::integer:
      if (!value.isNumber()) return false;
      groups.push_back(Group::integer(code, static_cast<std::int64_t>(value.number())));
      return true;
    case GroupKind::handle:
      if (value.isString()) groups.push_back(Group::handle(code, parseHandle(value.text()).value_or(0)));
      else if (const AcDbStub* stub = stubOfValue(value)) groups.push_back(Group::handle(code, stub->handle));
      else return false;
      return true;
    case GroupKind::binary: {
      if (!value.isString()) return false;
      std::string bytes;
      const std::string_view hex = value.text();
      for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        const auto byte = parseHandle(hex.substr(i, 2));
        if (!byte) return false;
        bytes.push_back(static_cast<char>(*byte));
      }
      groups.push_back(Group::binary(code, bytes));
      return true;
    }
    case GroupKind::text: break;
  }
  if (!value.isString()) return false;
  groups.push_back(Group::text(code, std::string(value.text())));
  return true;
}

namespace {

void appendXdata(Interpreter& interpreter, std::vector<Group>& groups, Value applications) {
  for (const Value application : lisp::Items(applications)) {
    if (!application.isPair() || !application.car().isString()) interpreter.failType("stringp", application);
    groups.push_back(Group::text(1001, std::string(application.car().text())));
    for (const Value pair : lisp::Items(application.cdr())) {
      if (!pair.isPair() || !pair.car().isInteger() || !appendGroup(groups, pair.car().integer(), pair.cdr()))
        interpreter.fail("bad DXF group: " + lisp::prin1(pair));
    }
  }
}

}  // namespace

std::vector<Group> groupsOfList(Interpreter& interpreter, Value list, AcDbStub** entity) {
  std::vector<Group> groups, xdata;
  for (const Value pair : lisp::Items(list)) {
    if (!pair.isPair() || !pair.car().isInteger()) interpreter.fail("bad DXF group: " + lisp::prin1(pair));
    const int code = pair.car().integer();
    if (code == -3) {
      appendXdata(interpreter, xdata, pair.cdr());
    } else if (code == -1) {
      if (entity) *entity = stubOfValue(pair.cdr());
    } else if (code >= 0 && !appendGroup(groups, code, pair.cdr())) {
      interpreter.fail("bad DXF group: " + lisp::prin1(pair));
    }
  }
  groups.insert(groups.end(), xdata.begin(), xdata.end());
  return groups;
}

}  // namespace atelier
