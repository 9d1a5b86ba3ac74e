// Only one prompt waits: when an expression given as an answer asks itself, its prompt is the one that waits.
#include "atelier/desktop/document/desktop_source.h"

#include <utility>

namespace atelier::desktop {

void DesktopSource::begin(std::vector<Order> orders) {
  orders_.assign(std::make_move_iterator(orders.begin()), std::make_move_iterator(orders.end()));
  lines_.clear();
}

Input DesktopSource::next(const PromptInfo& prompt) {
  if (!lines_.empty()) {
    Input line = Input::line(std::move(lines_.front()));
    lines_.pop_front();
    if (prompt.isCommand) running_ = line.text;
    return line;
  }
  if (prompt.isCommand && !orders_.empty()) {
    Order order = std::move(orders_.front());
    orders_.pop_front();
    lines_.assign(std::make_move_iterator(order.answers.begin()), std::make_move_iterator(order.answers.end()));
    Input line = Input::line(std::move(order.line));
    line.shown = std::move(order.shown);
    running_ = line.shown.empty() ? line.text : line.shown;
    return line;
  }
  if (prompt.isCommand) {
    abandoned_ = false;
    return {};
  }
  if (abandoned_) return Input::cancel();
  QEventLoop loop;
  QEventLoop* const outerLoop = std::exchange(loop_, &loop);
  std::optional<PromptInfo> outer = std::exchange(prompt_, prompt);
  answer_.reset();
  if (onPrompt) onPrompt();
  if (!answer_) loop.exec();
  loop_ = outerLoop;
  prompt_ = std::move(outer);
  if (onPrompt) onPrompt();
  return std::exchange(answer_, std::nullopt).value_or(Input::cancel());
}

void DesktopSource::answer(Input input) {
  if (!prompt_ || answer_) return;
  answer_ = std::move(input);
  if (loop_) loop_->quit();
}

void DesktopSource::abandon() {
  abandoned_ = true;
  orders_.clear();
  lines_.clear();
  answer(Input::cancel());
}

}  // namespace atelier::desktop
