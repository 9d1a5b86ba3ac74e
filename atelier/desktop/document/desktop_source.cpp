// Only one prompt waits: when an expression given as an answer asks itself, its prompt is the one that waits.
#include "atelier/desktop/document/desktop_source.h"

#include <utility>

namespace atelier::desktop {

void DesktopSource::begin(std::vector<Order> orders) {
  orders_.assign(std::make_move_iterator(orders.begin()), std::make_move_iterator(orders.end()));
  lines_.clear();
}

// A program has stopped following the cursor.
void DesktopSource::release() {
  if (!following_) return;
  prompt_ = std::move(following_->outer);
  following_.reset();
  answer_.reset();
}

Input DesktopSource::next(const PromptInfo& prompt) {
  if (!prompt.tracks) release();
  if (prompt.isCommand && onCommand) {
    betweenCommands_ = true;
    onCommand();
    betweenCommands_ = false;
  }
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
  return waited(prompt);
}

// Between two places of the cursor the prompt goes on waiting, and nobody is told: there are many in a second.
Input DesktopSource::waited(const PromptInfo& prompt) {
  const bool goesOn = following_.has_value();
  std::optional<PromptInfo> outer;
  if (goesOn) {
    outer = std::move(following_->outer);
    following_.reset();
  } else {
    outer = std::exchange(prompt_, prompt);
    answer_.reset();
    if (onPrompt) onPrompt();
  }
  QEventLoop loop;
  QEventLoop* const outerLoop = std::exchange(loop_, &loop);
  if (!answer_) loop.exec();
  loop_ = outerLoop;
  Input answer = std::exchange(answer_, std::nullopt).value_or(Input::cancel());
  if (answer.kind == Input::Kind::move) {
    following_ = Following{std::move(outer)};
    return answer;
  }
  prompt_ = std::move(outer);
  if (onPrompt) onPrompt();
  return answer;
}

void DesktopSource::answer(Input input) {
  // A later answer takes the place of one that only told where the cursor was.
  if (!prompt_ || (answer_ && answer_->kind != Input::Kind::move)) return;
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
