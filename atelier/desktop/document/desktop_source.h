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
  // Lines that follow each other, as a macro gives them.
  void begin(std::deque<std::string> lines) { lines_ = std::move(lines); }

  // A line typed ahead: it answers the next prompt, or begins the next command.
  void append(std::string line) { lines_.push_back(std::move(line)); }

  Input next(const PromptInfo& prompt) override;
  // Answers the prompt that waits; nothing happens when none does.
  void answer(Input input);
  // Cancels the prompt that waits and all that is asked afterwards, until the command has ended.
  void abandon();
  bool isAbandoned() const { return abandoned_; }
  // A prompt has no answer yet.
  bool waits() const { return prompt_ && !answer_; }
  const PromptInfo* prompt() const { return prompt_ ? &*prompt_ : nullptr; }

  std::function<void()> onPrompt;  // a prompt began or ended to wait

 private:
  std::deque<std::string> lines_;
  std::optional<PromptInfo> prompt_;
  std::optional<Input> answer_;
  QEventLoop* loop_ = nullptr;
  bool abandoned_ = false;
};

}  // namespace atelier::desktop
