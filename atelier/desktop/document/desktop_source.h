// Answers to prompts from the window: the editor waits in an event loop while the user clicks and types.
#pragma once
#include <QEventLoop>
#include <deque>
#include <functional>
#include <optional>

#include "atelier/document/input.h"

namespace atelier::desktop {

// A command line as a form or menu gives it. Its answers are given to its prompts; the user is asked at further ones.
struct Order {
  std::string line;
  std::vector<std::string> answers{};
  std::string shown{};  // in the history, in place of an expression; empty: the line
};

class DesktopSource final : public InputSource {
 public:
  // The orders are carried out one after the other; none answers a prompt of the one before. Then the source is at its end.
  void begin(std::vector<Order> orders);
  // A line typed ahead: it answers the next prompt, or begins the next command.
  void append(std::string line) { lines_.push_back(std::move(line)); }

  Input next(const PromptInfo& prompt) override;
  bool isPerson() const override { return true; }
  // Answers the waiting prompt; no effect when none is waiting.
  void answer(Input input);
  // Cancels the waiting prompt and all later ones, until the command has ended.
  void abandon();
  bool isAbandoned() const { return abandoned_; }
  // Whether a prompt is waiting for its answer.
  bool waits() const { return prompt_ && !answer_; }
  // The line that the running command began with, as the history shows it.
  const std::string& running() const { return running_; }
  const PromptInfo* prompt() const { return prompt_ ? &*prompt_ : nullptr; }

  std::function<void()> onPrompt;   // a prompt has begun or ended waiting
  std::function<void()> onCommand;  // a command has ended; the next one may be there already, typed ahead or ordered
  bool isBetweenCommands() const { return betweenCommands_; }

  // Whether a program follows the cursor, also while it works on one of its places.
  bool follows() const { return prompt_ && prompt_->tracks; }

 private:
  struct Following {
    std::optional<PromptInfo> outer;  // the prompt that waits behind the one of the cursor
  };
  void release();
  Input waited(const PromptInfo& prompt);
  std::optional<Following> following_;  // between two places of the cursor
  std::string running_;
  std::deque<Order> orders_;
  std::deque<std::string> lines_;  // the answers of the running order, and what was typed ahead
  std::optional<PromptInfo> prompt_;
  std::optional<Input> answer_;
  QEventLoop* loop_ = nullptr;
  bool abandoned_ = false, betweenCommands_ = false;
};

}  // namespace atelier::desktop
