// What the rooms above do for every open drawing, as one table: the document knows those rooms by it alone.
// It is filled where the program is composed.
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
  // What stands under a pick, null for nothing.
  AcDbObjectId (*pick)(Document&, const AcGePoint3d& point) = nullptr;
  // Runs the host's command of that upper-case name; false when there is none.
  bool (*runCommand)(Document&, const std::string& name) = nullptr;
};

// A table of AutoLISP functions of a room above all these, for every document opened from now on; a second time changes
// nothing. It must stay.
void addDrawingBuiltins(std::span<const lisp::Builtin> table);

}  // namespace atelier
