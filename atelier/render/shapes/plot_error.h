// Errors of plotting, in French: what the user asked for and why it isn't possible.
#pragma once

#include "atelier/base/error.h"

namespace atelier::render {

class PlotError : public Error {
 public:
  using Error::Error;
};

}  // namespace atelier::render
