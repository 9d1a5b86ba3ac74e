// Functions that call functions: apply, mapcar, eval, and the vl- searches with a predicate.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

Value evalFunction(Interpreter& in, Arguments arguments) { return in.eval(arguments[0]); }

Value applyFunction(Interpreter& in, Arguments arguments) {
  ValueStack values(in);
  values.pushAll(listArgument(in, arguments[1]));
  return in.apply(arguments[0], values.values());
}

// Calls `visit` with what the function returns for the first, second, ... elements of the lists, until the
// shortest list ends or `visit` returns false.
template <class Visit>
void walk(Interpreter& in, Arguments arguments, Visit visit) {
  ValueStack rests(in);  // the rest of each list, then the arguments of the call
  const std::size_t lists = arguments.size() - 1;
  for (Value list : arguments.subspan(1)) rests.push(listArgument(in, list));
  for (std::size_t i = 0; i < lists; ++i) rests.push(nil);
  const std::span<Value> at = rests.values();
  for (;;) {
    for (std::size_t i = 0; i < lists; ++i) {
      if (!at[i].isPair()) return;
      at[lists + i] = at[i].car();
      at[i] = at[i].cdr();
    }
    in.poll();
    if (!visit(in.apply(arguments[0], at.subspan(lists)))) return;
  }
}

Value mapcar(Interpreter& in, Arguments arguments) {
  Value first = nil, last = nil;
  walk(in, arguments, [&](Value value) {
    const Value cell = in.cons(value, nil);
    (first ? last.pair()->cdr : first) = cell;
    last = cell;
    return true;
  });
  return first;
}

// The value of the first call that is not nil.
Value some(Interpreter& in, Arguments arguments) {
  Value found = nil;
  walk(in, arguments, [&](Value value) { return !(found = value); });
  return found;
}

Value every(Interpreter& in, Arguments arguments) {
  bool all = true;
  walk(in, arguments, [&](Value value) { return all = static_cast<bool>(value); });
  return in.boolean(all);
}

Value filter(Interpreter& in, Arguments arguments, bool wanted) {
  ValueStack kept(in);
  for (Value element : Items(listArgument(in, arguments[1]))) {
    in.poll();
    if (static_cast<bool>(in.apply(arguments[0], {&element, 1})) == wanted) kept.push(element);
  }
  return kept.list();
}

Value removeIf(Interpreter& in, Arguments arguments) { return filter(in, arguments, false); }
Value removeIfNot(Interpreter& in, Arguments arguments) { return filter(in, arguments, true); }

Value findMember(Interpreter& in, Arguments arguments, bool wanted) {
  for (Value rest = listArgument(in, arguments[1]); rest.isPair(); rest = rest.cdr()) {
    in.poll();
    const Value element = rest.car();
    if (static_cast<bool>(in.apply(arguments[0], {&element, 1})) == wanted) return rest;
  }
  return nil;
}

Value memberIf(Interpreter& in, Arguments arguments) { return findMember(in, arguments, true); }
Value memberIfNot(Interpreter& in, Arguments arguments) { return findMember(in, arguments, false); }

constexpr Builtin kTable[] = {
    {"eval", evalFunction, 1, 1, "(eval expr)", "Évalue une expression."},
    {"apply", applyFunction, 2, 2, "(apply fonction liste)", "Appelle la fonction avec les éléments de la liste."},
    {"mapcar", mapcar, 2, kAnyNumber, "(mapcar fonction liste...)",
     "Liste des résultats de la fonction, élément par élément."},
    {"vl-some", some, 2, kAnyNumber, "(vl-some prédicat liste...)", "Le premier résultat qui ne vaut pas nil."},
    {"vl-every", every, 2, kAnyNumber, "(vl-every prédicat liste...)", "T si le prédicat est vrai partout."},
    {"vl-remove-if", removeIf, 2, 2, "(vl-remove-if prédicat liste)",
     "La liste sans les éléments qui vérifient le prédicat."},
    {"vl-remove-if-not", removeIfNot, 2, 2, "(vl-remove-if-not prédicat liste)",
     "La liste des éléments qui vérifient le prédicat."},
    {"vl-member-if", memberIf, 2, 2, "(vl-member-if prédicat liste)",
     "Le reste de la liste à partir du premier élément qui vérifie le prédicat."},
    {"vl-member-if-not", memberIfNot, 2, 2, "(vl-member-if-not prédicat liste)",
     "Le reste de la liste à partir du premier élément qui ne vérifie pas le prédicat."},
};

}  // namespace

std::span<const Builtin> mappingFamily() { return kTable; }

}  // namespace atelier::lisp
