// Definitions and assignment: setq, set, defun, lambda, and functions kept as lists (defun-q).
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

Value setq(Interpreter& in, Value rest) {
  Value value = nil;
  while (rest.isPair()) {
    const Value name = rest.car();
    rest = rest.cdr();
    if (!name.isSymbol()) in.failType("symbolp:", name);
    if (!rest.isPair()) in.fail("too few arguments");
    value = in.eval(rest.car());
    name.symbol()->value = value;
    rest = rest.cdr();
  }
  return value;
}

Value set(Interpreter& in, Arguments arguments) {
  symbolArgument(in, arguments[0]).symbol()->value = arguments[1];
  return arguments[1];
}

// Checks (parameters / locals) when the function is made, so that the error names the definition.
Value checkedLambda(Interpreter& in, Value function) {
  if (!function.isPair()) in.fail("too few arguments");
  for (Value rest = function.car(); rest; rest = rest.cdr())
    if (!rest.isPair() || !rest.car().isSymbol()) in.fail("bad formal argument list: " + prin1(function.car()));
  return function;
}

Value userSubr(Interpreter& in, Value function, Value name) {
  return Value::pointing(in.heap().pair(checkedLambda(in, function), name), Value::kUserSubr);
}

Value defun(Interpreter& in, Value rest) {
  if (!rest.isPair()) in.fail("too few arguments");
  const Value name = symbolArgument(in, rest.car());
  name.symbol()->value = userSubr(in, rest.cdr(), name);
  return name;
}

Value defunQ(Interpreter& in, Value rest) {
  if (!rest.isPair()) in.fail("too few arguments");
  const Value name = symbolArgument(in, rest.car());
  name.symbol()->value = checkedLambda(in, rest.cdr());
  return name;
}

Value lambda(Interpreter& in, Value rest) { return userSubr(in, rest, nil); }

Value defunQListRef(Interpreter& in, Arguments arguments) {
  const Value value = symbolArgument(in, arguments[0]).symbol()->value;
  return value.isPair() ? value : nil;
}

Value defunQListSet(Interpreter& in, Arguments arguments) {
  symbolArgument(in, arguments[0]).symbol()->value = checkedLambda(in, arguments[1]);
  return arguments[0];
}

constexpr Builtin kTable[] = {
    {"setq", setq, "(setq nom valeur [nom valeur...])", "Affecte des valeurs à des symboles."},
    {"set", set, 2, 2, "(set symbole valeur)", "Affecte une valeur à un symbole donné par une expression."},
    {"defun", defun, "(defun nom ([param...] [/ local...]) expr...)", "Définit une fonction."},
    {"defun-q", defunQ, "(defun-q nom ([param...] [/ local...]) expr...)", "Définit une fonction gardée en liste."},
    {"lambda", lambda, "(lambda ([param...] [/ local...]) expr...)", "Crée une fonction sans nom."},
    {"defun-q-list-ref", defunQListRef, 1, 1, "(defun-q-list-ref 'nom)",
     "La liste d'une fonction définie par defun-q."},
    {"defun-q-list-set", defunQListSet, 2, 2, "(defun-q-list-set 'nom liste)",
     "Définit une fonction par sa liste de paramètres et son corps."},
};

}  // namespace

std::span<const Builtin> definitionForms() { return kTable; }

}  // namespace atelier::lisp
