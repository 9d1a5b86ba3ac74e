// An interruption inside a prompt, as AutoLISP programs see it: the error "Function cancelled".
// Inner header of the room.
#pragma once
#include <optional>

#include "atelier/base/error.h"
#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier {

inline constexpr const char* kCancelled = "Function cancelled";

// Ends a host call that was interrupted. A program can catch a cancelled prompt, but not the user's Ctrl-C.
[[noreturn]] inline void failCancelled(lisp::Interpreter& interpreter) {
  const bool asked = interpreter.interrupted();
  interpreter.clearInterrupt();
  interpreter.fail(kCancelled, asked ? lisp::Error::Kind::Interrupt : lisp::Error::Kind::Failure);
}

// Runs a call that may ask the user; an interruption or an error of the host becomes an AutoLISP error.
template <class RUN>
auto cancelling(lisp::Interpreter& interpreter, RUN run) {
  std::optional<std::string> failure;  // the AutoLISP error is raised after the C++ exception has been handled
  try {
    return run();
  } catch (const Interrupted&) {
  } catch (const Error& error) {
    failure = error.what();
  }
  if (failure) interpreter.fail(*failure);
  failCancelled(interpreter);
}

}  // namespace atelier
