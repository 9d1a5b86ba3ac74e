// The end of a program whose own invariant is broken.
// Nothing of the drawing is written then: the file on disk stays as it was.
#include "atelier/base/error.h"

#include <cstdio>
#include <cstdlib>

namespace atelier {

void invariantBroken(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "kavel: invariant rompu: %s (%s:%d)\n", condition, file, line);
  std::abort();
}

}  // namespace atelier
