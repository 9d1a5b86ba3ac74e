// An open drawing: a document with the services of all rooms.
// Programs and tests open drawings with it.
#pragma once
#include "atelier/document/document.h"

namespace atelier {

class OpenDrawing final : public Document {
 public:
  // An empty drawing, or the file at the path (throws Error). With messages, what can be read of a damaged file is opened
  // and they say what was left out. The functions of registered applications are published.
  explicit OpenDrawing(Printer printer, const std::string& path = {}, std::vector<std::string>* messages = nullptr);
};

}  // namespace atelier
