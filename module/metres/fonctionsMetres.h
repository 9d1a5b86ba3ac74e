// The command of this room that LISP calls.
// It takes no argument and gives no result.
#pragma once

namespace plv {

// C:CUBPL: the quantity dialog, between the loading and the saving of the depth classes.
void C_CUBPL();

}  // namespace plv
