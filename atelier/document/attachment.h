// What other rooms attach to a document: parts that live as long as it, and a command that waits for answers.
// The document knows them by these interfaces only.
#pragma once
#include <string_view>

namespace atelier {

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

}  // namespace atelier
