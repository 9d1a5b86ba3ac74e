// How a program tells the host that what it was asked for could not be done.
// An extension of this host: programs test with boundp whether it is there.
#include "atelier/editor/builtin_tables.h"
#include "atelier/editor/document.h"

namespace atelier {
namespace {

lisp::Value echec(lisp::Interpreter&, lisp::Arguments) {
  Document::needed().countFailure();
  return lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"echec", echec, 0, 0, "(echec)", "Compte un echec: le programme sans ecran finira avec le statut 1."},
};

}  // namespace

std::span<const lisp::Builtin> failureBuiltins() { return kTable; }

}  // namespace atelier
