// What other rooms do for an open drawing: a table of services, parts that they attach to the document, and a command
// that waits for answers. The document knows those rooms by these interfaces only; the application room fills the table.
#pragma once
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/document/system_variables.h"
#include "atelier/lisp/values/builtin.h"
#include "hote/dbid.h"
#include "hote/ge.h"

namespace atelier {

class Document;

// A part that another room keeps for each document. It is made with the document and found again by its type.
class Attachment {
 public:
  virtual ~Attachment() = default;
  // Called when a drawing has been opened: at the document's start, and after another drawing has replaced it.
  virtual void drawingOpened() {}
  // Called before the drawing is closed: at the document's end, and before another drawing replaces it.
  virtual void drawingClosing() {}
};

// A command that waits for more answers.
class WaitingCommand {
 public:
  virtual ~WaitingCommand() = default;
  virtual std::string_view name() const = 0;
  // Runs the command to its end with answers from the user.
  virtual void finish() = 0;
};

struct Services {
  std::vector<std::span<const lisp::Builtin>> builtins;  // tables by family
  VariableTable variables;
  std::vector<std::unique_ptr<Attachment> (*)(Document&)> attachments;
  // The entity under a pick, null for none.
  AcDbObjectId (*pick)(Document&, const AcGePoint3d& point) = nullptr;
  // Runs the host's command of that upper-case name; false when there is none.
  bool (*runCommand)(Document&, const std::string& name) = nullptr;
  // Whether the host has a command of that upper-case name.
  bool (*knowsCommand)(const std::string& name) = nullptr;
  // Whether that command may run while a prompt of another one waits.
  bool (*isTransparent)(const std::string& name) = nullptr;
};

// Adds a table of AutoLISP functions to every document opened from now on; adding it twice has no effect. The table
// must live as long as the program.
void addDrawingBuiltins(std::span<const lisp::Builtin> table);

// --- plots for commands: the room that plots tells here how

// What a user asks for; empty texts leave it to the plot. Scales and windows are texts as the program's options take them.
struct PlotWish {
  std::string file, layout, paper, scale, window, table;
};
// Plots and gives warnings in French; throws Error.
using PlotFunction = std::vector<std::string> (*)(Document&, const PlotWish&);

inline PlotFunction& plotFunction() {
  static PlotFunction function = nullptr;
  return function;
}

}  // namespace atelier
