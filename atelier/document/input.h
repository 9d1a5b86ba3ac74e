// Where answers to prompts come from: a script, a terminal, a test, the desktop.
// Each of them implements InputSource.
#pragma once
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hote/ge.h"

namespace atelier {

// What the running prompt accepts, for sources that show more than its text.
struct PromptInfo {
  std::string text;                   // as printed, leading line feed included; empty at the command prompt
  std::vector<std::string> keywords;  // capitals are the short form
  std::optional<AcGePoint3d> base;    // of a rubber band
  bool wantsPoint = false;
  bool wantsEntity = false;
  bool takesSpaces = false;
  bool isCommand = false;  // the command prompt itself: no command is running
  bool isCorner = false;   // the base and the answer are corners of a rectangle
  bool tracks = false;     // a program follows the cursor: each of its places is an answer, too
};

struct Input {
  enum class Kind { text, pick, move, cancel, end };
  Kind kind = Kind::end;
  std::string text;     // UTF-8, without line end; an empty text is Enter
  AcGePoint3d point{};  // of a pick or a move, world coordinates
  bool whole = false;   // the text is one answer, with its blanks; otherwise it is split into words
  std::string shown{};  // written after the prompt; empty: the text
  static Input line(std::string utf8) { return {Kind::text, std::move(utf8), {}, false}; }
  static Input answer(std::string utf8) { return {Kind::text, std::move(utf8), {}, true}; }
  static Input pick(const AcGePoint3d& p) { return {Kind::pick, {}, p, false}; }
  static Input move(const AcGePoint3d& p) { return {Kind::move, {}, p, false}; }
  static Input cancel() { return {Kind::cancel, {}, {}, false}; }
};

class InputSource {
 public:
  virtual ~InputSource() = default;
  // Blocks until there is an answer. `end`: there will be no more.
  virtual Input next(const PromptInfo& prompt) = 0;
  // Whether typed answers are visible already; otherwise the answer is written after its prompt.
  virtual bool echoes() const { return false; }
  // Asked when the last answer doesn't fit the prompt. True: it begins another command and will be given again; the
  // prompt is answered with Enter.
  virtual bool takesBack(const Input&) { return false; }
  // The user has interrupted: drops the answers that were given beforehand. False when there were none.
  virtual bool dropRest() { return false; }
  // The line given last, for messages: "a.scr, ligne 5". Empty for a source whose lines have no place.
  virtual std::string place() const { return {}; }
  // A command has failed: drops the lines meant for it, up to one that begins something new. Gives their number.
  virtual std::size_t dropUntil(const std::function<bool(const std::string&)>&) { return 0; }
  // Whether a person types the answers: at a prompt that takes a number or a point, "2,5" is then a number; in a script it
  // is a point, as such scripts are written.
  virtual bool isPerson() const { return false; }
  // Whether a program answers. At a prompt that takes one object or many it gives a single answer without Enter.
  virtual bool isProgram() const { return false; }
};

// Lines given beforehand.
class LinesSource : public InputSource {
 public:
  LinesSource() = default;
  explicit LinesSource(std::string_view text, std::string name = {});  // split at line ends
  Input next(const PromptInfo& prompt) override;
  bool dropRest() override;
  std::string place() const override;
  std::size_t dropUntil(const std::function<bool(const std::string&)>& begins) override;

 private:
  std::string name_;  // of the script
  std::size_t given_ = 0;
  std::deque<std::string> lines_;
};

}  // namespace atelier
