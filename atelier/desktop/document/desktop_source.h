// Answers to prompts from the window: the editor waits in an event loop while the user clicks and types.
#pragma once
#include <QEventLoop>
#include <deque>
#include <functional>
#include <optional>

#include "atelier/document/input.h"

namespace atelier::desktop {

class DesktopSource final : public InputSource {
 public:
  // The line that begins a command; when the command has ended, the source is at its end.
  void begin(std::string line) { lines_ = {std::move(line)}; }
  // Several lines, such as those of a macro.
  void begin(std::deque<std::string> lines) { lines_ = std::move(lines); }

  // A line typed ahead: it answers the next prompt, or begins the next command.
  void append(std::string line) { lines_.push_back(std::move(line)); }

  Input next(const PromptInfo& prompt) override;
  // Answers the waiting prompt; no effect when none is waiting.
  void answer(Input input);
  // Cancels the waiting prompt and all later ones, until the command has ended.
  void abandon();
  bool isAbandoned() const { return abandoned_; }
  // Whether a prompt is waiting for its answer.
  bool waits() const { return prompt_ && !answer_; }
  const PromptInfo* prompt() const { return prompt_ ? &*prompt_ : nullptr; }

  std::function<void()> onPrompt;  // a prompt has begun or ended waiting

 private:
  std::deque<std::string> lines_;
  std::optional<PromptInfo> prompt_;
  std::optional<Input> answer_;
  QEventLoop* loop_ = nullptr;
  bool abandoned_ = false;
};

}  // namespace atelier::desktop
