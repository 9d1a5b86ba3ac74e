// Conversions between AutoLISP values and chains.
// A list of two or three numbers with a real among them is a point; an integer is short when 16 bits hold it.
#include "atelier/document/values.h"

#include <algorithm>
#include <vector>

#include "atelier/database/objects/chain.h"
#include "atelier/document/selection_set.h"
#include "hote/acut.h"

namespace atelier {
namespace {

class ChainBuilder {
 public:
  void add(lisp::Value value) {
    if (value.isNil()) put(newNode(RTNIL));
    else if (value.isInteger()) addInteger(value.integer());
    else if (value.isReal()) put(realNode(RTREAL, value.real()));
    else if (value.isString()) put(textNode(RTSTR, value.text()));
    else if (value.isEntity()) put(nameNode(RTENAME, stubOfValue(value)));
    else if (value.isSelection()) addSelection(value);
    else if (value.isPair()) addList(value);
    else if (value.isSymbol() && value.name() == "T") put(newNode(RTT));
    else if (value.isSymbol()) put(textNode(RTSTR, value.name()));
    else put(newNode(RTVOID));
  }
  resbuf* take() { return head_; }

 private:
  void put(resbuf* node) {
    *tail_ = node;
    tail_ = &node->rbnext;
  }
  void addInteger(std::int32_t number) {
    const bool fits = number >= -32768 && number <= 32767;
    resbuf* node = newNode(fits ? RTSHORT : RTLONG);
    if (fits) node->resval.rint = static_cast<short>(number);
    else node->resval.rlong = number;
    put(node);
  }
  void addSelection(lisp::Value value) {
    resbuf* node = newNode(RTPICKS);
    node->resval.rlname[0] = reinterpret_cast<std::int64_t>(value.selection().get());
    node->resval.rlname[1] = 1;
    put(node);
  }
  void addList(lisp::Value list) {
    if (const auto point = pointOf(list)) {
      resbuf* node = newNode(point->second == 2 ? RTPOINT : RT3DPOINT);
      const double ordinates[3] = {point->first.x, point->first.y, point->first.z};
      std::copy(ordinates, ordinates + point->second, node->resval.rpoint);
      put(node);
      return;
    }
    put(newNode(RTLB));
    lisp::Value rest = list;
    for (; rest.isPair(); rest = rest.cdr()) add(rest.car());
    if (rest.isNil()) {
      put(newNode(RTLE));
    } else {
      add(rest);
      put(newNode(RTDOTE));
    }
  }
  static std::optional<std::pair<AcGePoint3d, int>> pointOf(lisp::Value list) {
    double ordinates[3] = {0, 0, 0};
    int count = 0;
    bool real = false;
    for (; list.isPair(); list = list.cdr(), ++count) {
      if (count == 3 || !list.car().isNumber()) return std::nullopt;
      real = real || list.car().isReal();
      ordinates[count] = list.car().number();
    }
    if (!list.isNil() || count < 2 || !real) return std::nullopt;
    return std::pair(AcGePoint3d(ordinates[0], ordinates[1], ordinates[2]), count);
  }
  resbuf* head_ = nullptr;
  resbuf** tail_ = &head_;
};

lisp::Value reals(lisp::Interpreter& interpreter, const double* values, int count) {
  lisp::Value list = lisp::nil;
  for (int i = count; i-- > 0;) list = interpreter.cons(lisp::Value::real(values[i]), list);
  return list;
}

// The value of a node with a group code.
lisp::Value groupValue(lisp::Interpreter& interpreter, const resbuf& node) {
  const int code = node.restype;
  if (isPointCode(code)) return reals(interpreter, node.resval.rpoint, 3);
  switch (kindOfCode(code)) {
    case GroupKind::real: return lisp::Value::real(node.resval.rreal);
    case GroupKind::integer:
      if ((code >= 90 && code <= 99) || (code >= 420 && code <= 459) || code == 1071)
        return lisp::Value::integer(node.resval.rlong);
      return lisp::Value::integer(node.resval.rint);
    case GroupKind::handle:
      if (code == 5 || code == 105 || code == 1005 || code < 330) return interpreter.string(stringOf(node));
      return entityValue(interpreter, stubOfName(node.resval.rlname));
    case GroupKind::text: return interpreter.string(stringOf(node));
    default: return lisp::nil;
  }
}

// Reads items up to the closing bracket; moves the node along.
lisp::Value items(lisp::Interpreter& interpreter, const resbuf*& node) {
  lisp::Value head = lisp::nil, last = lisp::nil;
  for (; node && node->restype != RTLE; node = node ? node->rbnext : nullptr) {
    lisp::Value item;
    if (node->restype == RTDOTE) {
      // The last item is the part after the dot.
      if (head.isPair() && last.isPair()) {
        lisp::Value before = head;
        while (before.cdr().isPair() && before.cdr() != last) before = before.cdr();
        if (before != last) before.pair()->cdr = last.car();
      }
      break;
    }
    if (node->restype == RTLB) {
      node = node->rbnext;
      item = items(interpreter, node);
      if (!node) break;
    } else {
      item = valueOfNode(interpreter, *node);
    }
    const lisp::Value cell = interpreter.cons(item, lisp::nil);
    if (head.isNil()) head = cell;
    else last.pair()->cdr = cell;
    last = cell;
  }
  return head;
}

}  // namespace

resbuf* chainOfArguments(lisp::Arguments arguments) {
  ChainBuilder builder;
  for (const lisp::Value value : arguments) builder.add(value);
  return builder.take();
}

lisp::Value valueOfNode(lisp::Interpreter& interpreter, const resbuf& node) {
  switch (node.restype) {
    case RTNIL:
    case RTVOID:
    case RTNONE: return lisp::nil;
    case RTT: return interpreter.t();
    case RTREAL:
    case RTANG:
    case RTORINT: return lisp::Value::real(node.resval.rreal);
    case RTSHORT: return lisp::Value::integer(node.resval.rint);
    case RTLONG: return lisp::Value::integer(node.resval.rlong);
    case RTSTR: return interpreter.string(stringOf(node));
    case RTPOINT: return reals(interpreter, node.resval.rpoint, 2);
    case RT3DPOINT: return reals(interpreter, node.resval.rpoint, 3);
    case RTENAME: return entityValue(interpreter, stubOfName(node.resval.rlname));
    case -1:
      return interpreter.cons(lisp::Value::integer(-1), entityValue(interpreter, stubOfName(node.resval.rlname)));
    default: break;
  }
  if (node.restype < 0 || node.restype >= 5000) return lisp::nil;
  return interpreter.cons(lisp::Value::integer(node.restype), groupValue(interpreter, node));
}

lisp::Value listOfChain(lisp::Interpreter& interpreter, const resbuf* chain) {
  const resbuf* node = chain;
  if (chain && chain->restype == RTLB) {
    int depth = 0;
    const resbuf* closing = nullptr;
    for (const resbuf* n = chain; n; n = n->rbnext) {
      if (n->restype == RTLB) ++depth;
      else if ((n->restype == RTLE || n->restype == RTDOTE) && --depth == 0) {
        closing = n;
        break;
      }
    }
    if (closing && !closing->rbnext) node = chain->rbnext;
  }
  return items(interpreter, node);
}

lisp::Value entityValue(lisp::Interpreter& interpreter, const AcDbStub* stub) {
  return stub ? interpreter.entity(reinterpret_cast<std::uint64_t>(stub)) : lisp::nil;
}

AcDbStub* stubOfValue(lisp::Value value) {
  return value.isEntity() ? reinterpret_cast<AcDbStub*>(value.entity()) : nullptr;
}

std::optional<AcGePoint3d> pointFromValue(lisp::Value value) {
  double ordinates[3] = {0, 0, 0};
  int count = 0;
  for (; value.isPair() && count < 3; value = value.cdr(), ++count) {
    if (!value.car().isNumber()) return std::nullopt;
    ordinates[count] = value.car().number();
  }
  if (count < 2 || !value.isNil()) return std::nullopt;
  return AcGePoint3d(ordinates[0], ordinates[1], ordinates[2]);
}

lisp::Value pointValue(lisp::Interpreter& interpreter, const AcGePoint3d& p) {
  return interpreter.point(p.x, p.y, p.z);
}

bool entityFromValue(lisp::Value value, AcDbObjectId& entity, AcGePoint3d& point) {
  if (value.isPair()) {
    if (value.cdr().isPair())
      if (const auto p = pointFromValue(value.cdr().car())) point = *p;
    value = value.car();
  }
  entity = AcDbObjectId(stubOfValue(value));
  return !entity.isNull();
}

namespace {

// Calls the visitor with the depth of parentheses after each character; stops when it answers true.
template <class VISIT>
int walkParentheses(std::string_view text, VISIT visit) {
  int depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      for (++i; i < text.size() && text[i] != '"'; ++i)
        if (text[i] == '\\') ++i;
      if (i >= text.size()) return std::max(depth, 1);
    } else if (c == ';') {
      if (text.substr(i, 2) == ";|") {
        const std::size_t end = text.find("|;", i + 2);
        if (end == text.npos) return std::max(depth, 1);
        i = end + 1;
      } else {
        while (i < text.size() && text[i] != '\n') ++i;
      }
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      --depth;
    }
    if (visit(std::min(i, text.size() - 1), depth)) return depth;
  }
  return depth;
}

}  // namespace

int openParentheses(std::string_view text) {
  return walkParentheses(text, [](std::size_t, int) { return false; });
}

std::size_t expressionEnd(std::string_view text) {
  std::size_t end = text.size();
  walkParentheses(text, [&](std::size_t i, int depth) {
    if (depth > 0) return false;
    end = i + 1;
    return true;
  });
  return end;
}

}  // namespace atelier
