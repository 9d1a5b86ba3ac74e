// What each application's library has of the host's: the version of the interface that it was built for.
// Built into the libraries, not into the programs.
#include "hote/acrx.h"

extern "C" int acrxGetApiVersion() { return 1; }
