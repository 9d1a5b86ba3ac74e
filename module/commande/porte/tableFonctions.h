// The table of functions that the module publishes to the host's LISP, its registration and its dispatch.
// A row's index is what the host keeps for a function; it has no meaning outside the module and is never
// stored.
#pragma once
#include <span>

#include "hote/adesk.h"

namespace plv {

struct ligneFonction {
  const ACHAR* name;  // one that begins with "C:" is a command of the host
  void (*handler)();  // takes its arguments from the host and hands its result back through it
};

std::span<const ligneFonction> tableFonctions();

// Publishes the rows in order, up to the first that fails, and then registers the XDATA application of the
// natural ground in the current drawing.
void publierFonctions();
// Withdraws every row, removes the dynamic menus, and lets go of the drawing that closes.
void retirerFonctions();
// Calls the handler of the function that LISP has just called. A code outside the table calls nothing.
void appelerFonction();

}  // namespace plv
