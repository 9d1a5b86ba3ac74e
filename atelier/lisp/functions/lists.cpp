// Lists: building, taking apart, searching.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/comparison.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {

std::array<double, 3> pointArgument(Interpreter& in, Value value) {
  std::array<double, 3> point{};
  std::size_t count = 0;
  for (Value rest = value; rest.isPair(); rest = rest.cdr(), ++count) {
    if (count == 3 || !rest.car().isNumber()) in.failType("2D/3D point:", value);
    point[count] = rest.car().number();
  }
  if (count < 2) in.failType("2D/3D point:", value);
  return point;
}

namespace {

// Visits the cells of a proper list; a dotted end is an error.
template <class Visit>
void eachCell(Interpreter& in, Value list, Visit visit) {
  Value rest = listArgument(in, list);
  for (; rest.isPair(); rest = rest.cdr())
    if (!visit(rest)) return;
  if (rest) in.fail("bad list: " + prin1(list));
}

Value consFunction(Interpreter& in, Arguments arguments) { return in.cons(arguments[0], arguments[1]); }
Value listFunction(Interpreter& in, Arguments arguments) { return in.list(arguments); }
Value isList(Interpreter& in, Arguments arguments) { return in.boolean(arguments[0].isList()); }
Value isPair(Interpreter& in, Arguments arguments) { return in.boolean(arguments[0].isPair()); }
Value isAtom(Interpreter& in, Arguments arguments) { return in.boolean(!arguments[0].isPair()); }

Value length(Interpreter& in, Arguments arguments) {
  std::int32_t count = 0;
  eachCell(in, arguments[0], [&](Value) { return ++count, true; });
  return Value::integer(count);
}

// The length of a proper list, nil for anything else.
Value listLength(Interpreter& in, Arguments arguments) {
  std::int32_t count = 0;
  Value rest = listArgument(in, arguments[0]);
  for (; rest.isPair(); rest = rest.cdr()) ++count;
  return rest ? nil : Value::integer(count);
}

Value append(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return nil;
  ValueStack elements(in);
  for (Value list : arguments.first(arguments.size() - 1))
    eachCell(in, list, [&](Value cell) { return elements.push(cell.car()), true; });
  return elements.list(arguments.back());
}

Value reverse(Interpreter& in, Arguments arguments) {
  Value result = nil;
  eachCell(in, arguments[0], [&](Value cell) { return result = in.cons(cell.car(), result), true; });
  return result;
}

Value nth(Interpreter& in, Arguments arguments) {
  std::int32_t index = integerArgument(in, arguments[0]);
  if (index < 0) in.fail("bad argument value: non-negative: " + prin1(arguments[0]));
  Value rest = listArgument(in, arguments[1]);
  for (; index > 0 && rest.isPair(); --index) rest = rest.cdr();
  return rest.isPair() ? rest.car() : nil;
}

Value last(Interpreter& in, Arguments arguments) {
  Value result = nil;
  for (Value rest = listArgument(in, arguments[0]); rest.isPair(); rest = rest.cdr()) result = rest.car();
  return result;
}

Value member(Interpreter& in, Arguments arguments) {
  Value found = nil;
  eachCell(in, arguments[1], [&](Value cell) {
    if (!equal(in, arguments[0], cell.car())) return true;
    found = cell;
    return false;
  });
  return found;
}

Value assoc(Interpreter& in, Arguments arguments) {
  Value found = nil;
  eachCell(in, arguments[1], [&](Value cell) {
    const Value entry = cell.car();
    if (!entry.isPair()) {
      if (entry) in.fail("bad association list: " + prin1(arguments[1]));
      return true;
    }
    if (!equal(in, arguments[0], entry.car())) return true;
    found = entry;
    return false;
  });
  return found;
}

Value subst(Interpreter& in, Arguments arguments) {
  ValueStack elements(in);
  Value rest = listArgument(in, arguments[2]);
  for (; rest.isPair(); rest = rest.cdr())
    elements.push(equal(in, arguments[1], rest.car()) ? arguments[0] : rest.car());
  return elements.list(rest && equal(in, arguments[1], rest) ? arguments[0] : rest);
}

Value remove(Interpreter& in, Arguments arguments) {
  ValueStack elements(in);
  eachCell(in, arguments[1], [&](Value cell) {
    if (!equal(in, arguments[0], cell.car())) elements.push(cell.car());
    return true;
  });
  return elements.list();
}

Value position(Interpreter& in, Arguments arguments) {
  std::int32_t index = 0;
  bool found = false;
  eachCell(in, arguments[1], [&](Value cell) {
    found = equal(in, arguments[0], cell.car());
    index += !found;
    return !found;
  });
  return found ? Value::integer(index) : nil;
}

Value listStar(Interpreter& in, Arguments arguments) {
  return in.list(arguments.first(arguments.size() - 1), arguments.back());
}

constexpr Builtin kTable[] = {
    {"cons", consFunction, 2, 2, "(cons premier reste)",
     "Ajoute un élément en tête d'une liste, ou fait une paire pointée."},
    {"list", listFunction, 0, kAnyNumber, "(list [valeur...])", "Liste des valeurs."},
    {"vl-list*", listStar, 1, kAnyNumber, "(vl-list* valeur... reste)", "Liste des valeurs terminée par la dernière."},
    {"listp", isList, 1, 1, "(listp valeur)", "T si la valeur est une liste ou nil."},
    {"vl-consp", isPair, 1, 1, "(vl-consp valeur)", "T si la valeur est une liste non vide."},
    {"atom", isAtom, 1, 1, "(atom valeur)", "T si la valeur n'est pas une liste non vide."},
    {"length", length, 1, 1, "(length liste)", "Nombre d'éléments d'une liste."},
    {"vl-list-length", listLength, 1, 1, "(vl-list-length liste)", "Nombre d'éléments, ou nil pour une liste pointée."},
    {"append", append, 0, kAnyNumber, "(append [liste...])", "Met des listes bout à bout."},
    {"reverse", reverse, 1, 1, "(reverse liste)", "La liste à l'envers."},
    {"nth", nth, 2, 2, "(nth n liste)", "L'élément de rang n, compté de zéro."},
    {"last", last, 1, 1, "(last liste)", "Le dernier élément d'une liste."},
    {"member", member, 2, 2, "(member valeur liste)", "Le reste de la liste à partir de la valeur."},
    {"assoc", assoc, 2, 2, "(assoc clef liste)", "La paire qui commence par la clef."},
    {"subst", subst, 3, 3, "(subst nouveau ancien liste)", "La liste où le nouveau remplace l'ancien."},
    {"vl-remove", remove, 2, 2, "(vl-remove valeur liste)", "La liste sans les éléments égaux à la valeur."},
    {"vl-position", position, 2, 2, "(vl-position valeur liste)", "Le rang de la valeur dans la liste, ou nil."},
};

}  // namespace

std::span<const Builtin> listFamily() { return kTable; }

}  // namespace atelier::lisp
