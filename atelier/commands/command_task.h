// Commands as coroutines: a command asks with co_await and waits there, so that `command` can give it answers in
// several calls, and a user or a script uses the same code. A cancelled command is destroyed where it waits.
#pragma once
#include <coroutine>
#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "atelier/document/prompter.h"

namespace atelier {

// What a command waits for.
class Question {
 public:
  virtual ~Question() = default;
  virtual Answer ask(Prompter& prompter) = 0;  // may be called again when the answers had run out
};

class CommandTask {
 public:
  struct promise_type {
    CommandTask get_return_object() { return CommandTask(std::coroutine_handle<promise_type>::from_promise(*this)); }
    std::suspend_always initial_suspend() noexcept { return {}; }
    std::suspend_always final_suspend() noexcept { return {}; }
    void return_void() {}
    void unhandled_exception() { failure = std::current_exception(); }
    Question* question = nullptr;
    std::exception_ptr failure;
  };

  CommandTask() = default;
  CommandTask(CommandTask&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  CommandTask& operator=(CommandTask&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~CommandTask() {
    if (handle_) handle_.destroy();
  }

  bool done() const { return !handle_ || handle_.done(); }
  Question* question() const { return handle_.promise().question; }
  // Goes on to the next question or the end; throws what the command threw.
  void resume() {
    handle_.promise().question = nullptr;
    handle_.resume();
    if (handle_.promise().failure) std::rethrow_exception(std::exchange(handle_.promise().failure, nullptr));
  }

 private:
  explicit CommandTask(std::coroutine_handle<promise_type> handle) : handle_(handle) {}
  std::coroutine_handle<promise_type> handle_;
};

// An answer: a value, or a keyword, or neither (Enter).
template <class VALUE>
struct Reply {
  Answer answer = Answer::none;
  VALUE value{};
  std::string keyword;
  bool given() const { return answer == Answer::value; }
  bool is(std::string_view word) const { return answer == Answer::keyword && keyword == word; }
  VALUE valueOr(VALUE otherwise) const { return given() ? value : otherwise; }
};

template <class VALUE>
class Asked : public Question {
 public:
  using Ask = std::function<Answer(Prompter&, VALUE&)>;
  explicit Asked(Ask how) : ask_(std::move(how)) {}
  Answer ask(Prompter& prompter) override {
    reply_.answer = ask_(prompter, reply_.value);
    if (reply_.answer == Answer::keyword) reply_.keyword = prompter.lastKeyword();
    return reply_.answer;
  }
  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<CommandTask::promise_type> waiting) { waiting.promise().question = this; }
  Reply<VALUE> await_resume() { return std::move(reply_); }

 private:
  Ask ask_;
  Reply<VALUE> reply_;
};

}  // namespace atelier
