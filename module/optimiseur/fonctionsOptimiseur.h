// The function of this room that LISP calls.
// It asks the user for everything.
#pragma once

namespace plv {

// Proposes a project line between two picked points of a profile, within two depths below ground, and draws it. Nil
// when no profile is picked; otherwise no result.
void pl_TraceOptimal();

}  // namespace plv
