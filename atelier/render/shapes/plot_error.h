// Errors of plotting: what the user asked for and what stands in the way, in French.
#pragma once

#include "atelier/base/error.h"

namespace atelier::render {

class PlotError : public Error {
 public:
  using Error::Error;
};

}  // namespace atelier::render
