// car, cdr and their compositions down to four levels.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

// The path of letters between c and r, applied from the right as the names read.
template <char... kPath>
Value access(Interpreter& in, Arguments arguments) {
  constexpr char kLetters[] = {kPath...};
  Value value = arguments[0];
  for (std::size_t i = sizeof...(kPath); i-- > 0;) {
    if (value.isPair()) value = kLetters[i] == 'a' ? value.car() : value.cdr();
    else listArgument(in, value);
  }
  return value;
}

constexpr Builtin kTable[] = {
    {"car", access<'a'>, 1, 1, "(car liste)", "Le premier élément d'une liste."},
    {"cdr", access<'d'>, 1, 1, "(cdr liste)", "La liste sans son premier élément."},
    {"caar", access<'a', 'a'>, 1, 1, "(caar liste)", "(car (car liste))."},
    {"cadr", access<'a', 'd'>, 1, 1, "(cadr liste)", "Le deuxième élément d'une liste."},
    {"cdar", access<'d', 'a'>, 1, 1, "(cdar liste)", "(cdr (car liste))."},
    {"cddr", access<'d', 'd'>, 1, 1, "(cddr liste)", "La liste sans ses deux premiers éléments."},
    {"caaar", access<'a', 'a', 'a'>, 1, 1, "(caaar liste)", "(car (caar liste))."},
    {"caadr", access<'a', 'a', 'd'>, 1, 1, "(caadr liste)", "(car (cadr liste))."},
    {"cadar", access<'a', 'd', 'a'>, 1, 1, "(cadar liste)", "(car (cdar liste))."},
    {"caddr", access<'a', 'd', 'd'>, 1, 1, "(caddr liste)", "Le troisième élément d'une liste."},
    {"cdaar", access<'d', 'a', 'a'>, 1, 1, "(cdaar liste)", "(cdr (caar liste))."},
    {"cdadr", access<'d', 'a', 'd'>, 1, 1, "(cdadr liste)", "(cdr (cadr liste))."},
    {"cddar", access<'d', 'd', 'a'>, 1, 1, "(cddar liste)", "(cdr (cdar liste))."},
    {"cdddr", access<'d', 'd', 'd'>, 1, 1, "(cdddr liste)", "La liste sans ses trois premiers éléments."},
    {"caaaar", access<'a', 'a', 'a', 'a'>, 1, 1, "(caaaar liste)", "(car (caaar liste))."},
    {"caaadr", access<'a', 'a', 'a', 'd'>, 1, 1, "(caaadr liste)", "(car (caadr liste))."},
    {"caadar", access<'a', 'a', 'd', 'a'>, 1, 1, "(caadar liste)", "(car (cadar liste))."},
    {"caaddr", access<'a', 'a', 'd', 'd'>, 1, 1, "(caaddr liste)", "(car (caddr liste))."},
    {"cadaar", access<'a', 'd', 'a', 'a'>, 1, 1, "(cadaar liste)", "(car (cdaar liste))."},
    {"cadadr", access<'a', 'd', 'a', 'd'>, 1, 1, "(cadadr liste)", "(car (cdadr liste))."},
    {"caddar", access<'a', 'd', 'd', 'a'>, 1, 1, "(caddar liste)", "(car (cddar liste))."},
    {"cadddr", access<'a', 'd', 'd', 'd'>, 1, 1, "(cadddr liste)", "Le quatrième élément d'une liste."},
    {"cdaaar", access<'d', 'a', 'a', 'a'>, 1, 1, "(cdaaar liste)", "(cdr (caaar liste))."},
    {"cdaadr", access<'d', 'a', 'a', 'd'>, 1, 1, "(cdaadr liste)", "(cdr (caadr liste))."},
    {"cdadar", access<'d', 'a', 'd', 'a'>, 1, 1, "(cdadar liste)", "(cdr (cadar liste))."},
    {"cdaddr", access<'d', 'a', 'd', 'd'>, 1, 1, "(cdaddr liste)", "(cdr (caddr liste))."},
    {"cddaar", access<'d', 'd', 'a', 'a'>, 1, 1, "(cddaar liste)", "(cdr (cdaar liste))."},
    {"cddadr", access<'d', 'd', 'a', 'd'>, 1, 1, "(cddadr liste)", "(cdr (cdadr liste))."},
    {"cdddar", access<'d', 'd', 'd', 'a'>, 1, 1, "(cdddar liste)", "(cdr (cddar liste))."},
    {"cddddr", access<'d', 'd', 'd', 'd'>, 1, 1, "(cddddr liste)", "La liste sans ses quatre premiers éléments."},
};

}  // namespace

std::span<const Builtin> accessFamily() { return kTable; }

}  // namespace atelier::lisp
