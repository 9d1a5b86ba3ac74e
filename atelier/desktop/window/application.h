// The desktop program.
#pragma once

namespace atelier::desktop {

// Shows the window with the drawings of the command line; the exit status.
int run(int argc, char** argv);

}  // namespace atelier::desktop
