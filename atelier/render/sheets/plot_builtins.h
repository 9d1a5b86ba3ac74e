// Adds the AutoLISP functions for plots to every drawing opened after the call, and tells exports how entities are drawn.
#pragma once

namespace atelier::render {

// Called once at the start of a program.
void providePlots();

}  // namespace atelier::render
