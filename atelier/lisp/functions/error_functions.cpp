// AutoLISP functions that catch errors and end programs.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {

Value Interpreter::errorObject(const Error& error) {
  return object(std::make_shared<std::string>(error.message()), Value::kError);
}

namespace {

Value catchAll(Interpreter& in, Arguments arguments) {
  ValueStack values(in);
  values.pushAll(listArgument(in, optional(arguments, 1)));
  return in.applyCatching(arguments[0], values.values());
}

Value isError(Interpreter& in, Arguments arguments) { return in.boolean(arguments[0].isErrorObject()); }

Value errorMessage(Interpreter& in, Arguments arguments) {
  if (!arguments[0].isErrorObject()) in.failType("error-object:", arguments[0]);
  return in.string(*static_cast<const std::string*>(arguments[0].selection().get()));
}

Value quit(Interpreter& in, Arguments) { in.fail("quit / exit abort", Error::Kind::Exit); }

constexpr Builtin kTable[] = {
    {"vl-catch-all-apply", catchAll, 1, 2, "(vl-catch-all-apply fonction [liste])",
     "Comme apply, mais renvoie une erreur au lieu de s'arrêter."},
    {"vl-catch-all-error-p", isError, 1, 1, "(vl-catch-all-error-p valeur)",
     "T si la valeur est une erreur interceptée."},
    {"vl-catch-all-error-message", errorMessage, 1, 1, "(vl-catch-all-error-message erreur)",
     "Le message d'une erreur interceptée."},
    {"exit", quit, 0, 0, "(exit)", "Quitte le programme en cours."},
    {"quit", quit, 0, 0, "(quit)", "Quitte le programme en cours."},
};

}  // namespace

std::span<const Builtin> errorFamily() { return kTable; }

}  // namespace atelier::lisp
