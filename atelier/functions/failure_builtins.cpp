// With this function a program tells the host that it could not do its task.
// An extension of this host: programs test with boundp whether it exists.
#include "atelier/document/document.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"

namespace atelier {
namespace {

lisp::Value echec(lisp::Interpreter& in, lisp::Arguments arguments) {
  if (arguments.empty()) Document::needed().countFailure();
  else Document::needed().fail(std::string(lisp::stringArgument(in, arguments[0])));
  return lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"echec", echec, 0, 1, "(echec [message])",
     "Compte un échec et le dit: le programme sans écran finira avec le statut 1."},
};

}  // namespace

std::span<const lisp::Builtin> failureBuiltins() { return kTable; }

}  // namespace atelier
