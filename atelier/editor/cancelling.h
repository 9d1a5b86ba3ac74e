// An interruption inside a prompt, as AutoLISP programs see it: the error "Function cancelled".
// Inner header of the room.
#pragma once
#include "atelier/database/error.h"
#include "atelier/lisp/interpreter.h"

namespace atelier {

inline constexpr const char* kCancelled = "Function cancelled";

// Runs what may ask the user; an interruption or an error of the host becomes an error of the program.
template <class RUN>
auto cancelling(lisp::Interpreter& interpreter, RUN run) {
  std::string failure;
  try {
    return run();
  } catch (const Interrupted&) {
    interpreter.clearInterrupt();
    failure = kCancelled;
  } catch (const Error& error) {
    failure = error.what();
  }
  interpreter.fail(failure);
}

}  // namespace atelier
