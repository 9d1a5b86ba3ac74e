// Control: quote, conditions and loops. A special form receives its arguments unevaluated.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

Value first(Interpreter& in, Value& rest) {
  if (!rest.isPair()) in.fail("too few arguments");
  const Value form = rest.car();
  rest = rest.cdr();
  return form;
}

Value quote(Interpreter& in, Value rest) {
  const Value form = first(in, rest);
  if (rest) in.fail("too many arguments");
  return form;
}

Value ifForm(Interpreter& in, Value rest) {
  const Value test = first(in, rest);
  if (!rest.isPair()) in.fail("too few arguments");
  if (in.eval(test)) return in.eval(rest.car());
  rest = rest.cdr();
  if (!rest.isPair()) return nil;
  if (rest.cdr()) in.fail("too many arguments");
  return in.eval(rest.car());
}

Value cond(Interpreter& in, Value rest) {
  for (; rest.isPair(); rest = rest.cdr()) {
    const Value clause = rest.car();
    if (!clause.isPair()) in.fail("bad argument type: listp: " + prin1(clause));
    const Value test = in.eval(clause.car());
    if (test) return clause.cdr().isPair() ? in.evalBody(clause.cdr()) : test;
  }
  return nil;
}

Value andForm(Interpreter& in, Value rest) {
  for (; rest.isPair(); rest = rest.cdr())
    if (!in.eval(rest.car())) return nil;
  return in.t();
}

Value orForm(Interpreter& in, Value rest) {
  for (; rest.isPair(); rest = rest.cdr())
    if (in.eval(rest.car())) return in.t();
  return nil;
}

Value progn(Interpreter& in, Value rest) { return in.evalBody(rest); }

Value whileForm(Interpreter& in, Value rest) {
  const Value test = first(in, rest);
  Value result = nil;
  while (in.eval(test)) {
    in.poll();
    for (Value body = rest; body.isPair(); body = body.cdr()) result = in.eval(body.car());
  }
  return result;
}

Value repeat(Interpreter& in, Value rest) {
  const std::int32_t count = integerArgument(in, in.eval(first(in, rest)));
  Value result = nil;
  for (std::int32_t i = 0; i < count; ++i) {
    in.poll();
    for (Value body = rest; body.isPair(); body = body.cdr()) result = in.eval(body.car());
  }
  return result;
}

Value foreach (Interpreter& in, Value rest) {
  const Value name = symbolArgument(in, first(in, rest));
  Value list = listArgument(in, in.eval(first(in, rest)));
  Value result = nil;
  const auto mark = in.bindingMark();
  in.bind(name, nil);
  for (; list.isPair(); list = list.cdr()) {
    in.poll();
    name.symbol()->value = list.car();
    for (Value body = rest; body.isPair(); body = body.cdr()) result = in.eval(body.car());
  }
  in.unbind(mark);
  return result;
}

constexpr Builtin kTable[] = {
    {"quote", quote, "(quote expr)", "Renvoie l'expression sans l'évaluer."},
    {"function", quote, "(function fonction)", "Comme quote, pour une fonction."},
    {"if", ifForm, "(if test alors [sinon])", "Évalue l'une ou l'autre expression selon le test."},
    {"cond", cond, "(cond (test expr...)...)", "Évalue la première clause dont le test est vrai."},
    {"and", andForm, "(and [expr...])", "T si aucune expression ne vaut nil ; s'arrête à la première qui vaut nil."},
    {"or", orForm, "(or [expr...])", "T dès qu'une expression ne vaut pas nil."},
    {"progn", progn, "(progn [expr...])", "Évalue les expressions dans l'ordre et renvoie la dernière valeur."},
    {"while", whileForm, "(while test [expr...])", "Répète les expressions tant que le test est vrai."},
    {"repeat", repeat, "(repeat n [expr...])", "Répète n fois les expressions."},
    {"foreach", foreach, "(foreach nom liste [expr...])",
     "Évalue les expressions pour chaque élément de la liste, lié au nom."},
};

}  // namespace

std::span<const Builtin> controlForms() { return kTable; }

}  // namespace atelier::lisp
