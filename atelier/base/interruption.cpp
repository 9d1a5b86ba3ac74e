// The question whether the user wants to stop, asked during long work.
// It is a plain function, because inner loops ask it.
#include "atelier/base/interruption.h"

#include "atelier/base/error.h"

namespace atelier {
namespace {

bool (*interruptionAsked)() = nullptr;

}  // namespace

void setInterruptionQuestion(bool (*asked)()) { interruptionAsked = asked; }

void checkInterruption() {
  if (interruptionAsked && interruptionAsked()) throw Interrupted();
}

}  // namespace atelier
