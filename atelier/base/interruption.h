// Interrupting a handler from inside the host calls that it makes.
// Whoever runs the handlers sets the question; without one nothing is ever interrupted.
#pragma once

namespace atelier {

// The question is asked by host calls that a handler may repeat for ever.
void setInterruptionQuestion(bool (*asked)());
// Throws Interrupted when the user asked to stop.
void checkInterruption();

}  // namespace atelier
