// Interrupting what the host does for somebody else.
// The question is a plain function: it is asked in inner loops.
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
