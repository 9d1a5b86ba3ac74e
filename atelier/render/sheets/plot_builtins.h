// AutoLISP functions for plots, for every drawing opened after the call.
#pragma once

namespace atelier::render {

// Called once at the start of a program.
void providePlots();

}  // namespace atelier::render
