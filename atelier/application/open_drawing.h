// The whole of an open drawing: a document with everything that the rooms do for it.
// Programs and tests open drawings as this.
#pragma once
#include "atelier/document/document.h"

namespace atelier {

class OpenDrawing final : public Document {
 public:
  // An empty drawing, or the file at the path (throws Error). With messages, a damaged file is opened as far as it goes
  // and they say what was left out. Publishes the registered applications' functions.
  explicit OpenDrawing(Printer printer, const std::string& path = {}, std::vector<std::string>* messages = nullptr);
};

}  // namespace atelier
