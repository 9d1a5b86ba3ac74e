// What other rooms do for every open drawing, as one table: the document knows them by it only.
// The application room fills it.
#pragma once
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "atelier/document/attachment.h"
#include "atelier/document/system_variables.h"
#include "atelier/lisp/values/builtin.h"
#include "hote/dbid.h"
#include "hote/ge.h"

namespace atelier {

class Document;

struct Services {
  std::vector<std::span<const lisp::Builtin>> builtins;  // tables by family
  VariableTable variables;
  std::vector<std::unique_ptr<Attachment> (*)(Document&)> attachments;
  // The entity under a pick, null for none.
  AcDbObjectId (*pick)(Document&, const AcGePoint3d& point) = nullptr;
  // Runs the host's command of that upper-case name; false when there is none.
  bool (*runCommand)(Document&, const std::string& name) = nullptr;
};

// Adds a table of AutoLISP functions to every document opened from now on; adding it twice has no effect. The table
// must live as long as the program.
void addDrawingBuiltins(std::span<const lisp::Builtin> table);

}  // namespace atelier
