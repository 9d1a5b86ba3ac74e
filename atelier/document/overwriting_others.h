// Lets saves replace what other programs have changed, as the user has said, until it ends.
#pragma once
#include "atelier/document/document.h"

namespace atelier {

class OverwritingOthers {
 public:
  explicit OverwritingOthers(Document& document) : document_(document), before_(document.overwritesOthers) {
    document.overwritesOthers = true;
  }
  ~OverwritingOthers() { document_.overwritesOthers = before_; }
  OverwritingOthers(const OverwritingOthers&) = delete;
  OverwritingOthers& operator=(const OverwritingOthers&) = delete;

 private:
  Document& document_;
  bool before_;
};

}  // namespace atelier
