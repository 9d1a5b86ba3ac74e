// What rooms above the document hang on it: a part of theirs that lives as long as it, and a command that waits.
// The document keeps them and knows no more of them than this.
#pragma once
#include <string_view>

namespace atelier {

// A part that a room above keeps for each document. It is made with the document and found again by its type.
class Attachment {
 public:
  virtual ~Attachment() = default;
  // A drawing is there: at the document's start, and after another one has taken its place.
  virtual void drawingOpened() {}
  // The drawing is about to go: at the document's end, and before another one takes its place.
  virtual void drawingClosing() {}
};

// A command that waits for more answers.
class WaitingCommand {
 public:
  virtual ~WaitingCommand() = default;
  virtual std::string_view name() const = 0;
  // Runs to its end with what the user's source answers.
  virtual void finish() = 0;
};

}  // namespace atelier
