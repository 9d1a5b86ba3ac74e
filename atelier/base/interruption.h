// Stops long work when the user asks for it.
// The program that runs the work says how the user is asked; without that nothing is ever interrupted.
#pragma once

namespace atelier {

// `asked` answers whether the user wants to stop. Host calls that an application may repeat for ever ask it.
void setInterruptionQuestion(bool (*asked)());
// Throws Interrupted when the user asked to stop.
void checkInterruption();

}  // namespace atelier
