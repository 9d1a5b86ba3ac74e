// The headless program: opens a drawing and carries out what the command line asks.
// Results go to stdout, diagnostics to stderr.
#pragma once

namespace atelier::console {

// The exit status: 0 done; 1 a LISP error, a failed command or an interruption; 2 bad usage; 3 a file could not be read or written.
int run(int argc, char** argv);

}  // namespace atelier::console
