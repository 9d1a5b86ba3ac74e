// Where answers to prompts come from: a script, a terminal, a test, the desktop.
// Whoever feeds the command line implements InputSource; the prompts know nothing else of it.
#pragma once
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hote/ge.h"

namespace atelier {

// What the running prompt takes, for sources that show more than its text.
struct PromptInfo {
  std::string text;                   // as printed, leading line feed included; empty at the command prompt
  std::vector<std::string> keywords;  // capitals are the short form
  std::optional<AcGePoint3d> base;    // of a rubber band
  bool wantsPoint = false;
  bool wantsEntity = false;
  bool takesSpaces = false;
  bool isCommand = false;  // the command prompt itself: nothing runs
  bool isCorner = false;   // the base and the answer are corners of a rectangle
};

struct Input {
  enum class Kind { text, pick, cancel, end };
  Kind kind = Kind::end;
  std::string text;     // UTF-8, without line end; an empty text is Enter
  AcGePoint3d point{};  // of a pick, world coordinates
  bool whole = false;   // a text that is one answer, blanks and all; a line otherwise falls into words
  std::string shown{};  // what is written behind the prompt; empty: the text
  static Input line(std::string utf8) { return {Kind::text, std::move(utf8), {}, false}; }
  static Input answer(std::string utf8) { return {Kind::text, std::move(utf8), {}, true}; }
  static Input pick(const AcGePoint3d& p) { return {Kind::pick, {}, p, false}; }
  static Input cancel() { return {Kind::cancel, {}, {}, false}; }
};

class InputSource {
 public:
  virtual ~InputSource() = default;
  // Blocks until there is an answer. `end`: there will be no more.
  virtual Input next(const PromptInfo& prompt) = 0;
  // Whether what is typed shows by itself; otherwise the answer is written behind its prompt.
  virtual bool echoes() const { return false; }
  // The last answer fits no prompt. True: it begins something else, which comes next, and Enter stands in its place.
  virtual bool takesBack(const Input&) { return false; }
  // The user has stopped what the answers cause: those that were given beforehand don't come any more. False when there
  // were none.
  virtual bool dropRest() { return false; }
  // A program answers: it can't say less than a user would at a prompt that takes one object or many.
  virtual bool isProgram() const { return false; }
};

// Lines given beforehand.
class LinesSource : public InputSource {
 public:
  LinesSource() = default;
  explicit LinesSource(std::string_view text);  // split at line ends
  Input next(const PromptInfo& prompt) override;
  bool dropRest() override;

 private:
  std::deque<std::string> lines_;
};

}  // namespace atelier
