// Commands as coroutines: a command asks with co_await and waits there, so that `command` can give it answers in
// several calls, and a user or a script uses the same code. A cancelled command is destroyed where it waits.
#pragma once
#include <coroutine>
#include <exception>
#include <functional>
#include <stdexcept>
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
    CommandTask* part = nullptr;  // the task that it waits for
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
  Question* question() const {
    const promise_type& promise = handle_.promise();
    return promise.part ? promise.part->question() : promise.question;
  }
  // Goes on to the next question or the end; throws what the command threw.
  void resume() {
    if (CommandTask* part = handle_.promise().part) {
      part->resume();
      if (!part->done()) return;
      handle_.promise().part = nullptr;
    }
    handle_.promise().question = nullptr;
    handle_.resume();
    if (handle_.promise().failure) std::rethrow_exception(std::exchange(handle_.promise().failure, nullptr));
  }

 private:
  explicit CommandTask(std::coroutine_handle<promise_type> handle) : handle_(handle) {}
  std::coroutine_handle<promise_type> handle_;
};

// Awaiting a task asks its questions as part of the command that awaits it.
class AwaitedTask {
 public:
  explicit AwaitedTask(CommandTask task) : task_(std::move(task)) {}
  bool await_ready() {
    task_.resume();
    return task_.done();
  }
  void await_suspend(std::coroutine_handle<CommandTask::promise_type> waiting) { waiting.promise().part = &task_; }
  void await_resume() const noexcept {}

 private:
  CommandTask task_;
};
inline AwaitedTask operator co_await(CommandTask task) { return AwaitedTask(std::move(task)); }

// The answer to a question that demands one: a value, or a keyword.
template <class VALUE>
struct Reply {
  VALUE value{};
  std::string keyword;
  bool is(std::string_view word) const { return keyword == word; }
  bool isKeyword() const { return !keyword.empty(); }
  void take(Answer, VALUE given, std::string word) { value = std::move(given), keyword = std::move(word); }
};

// The answer to a question that may be left open by Enter. There is no value to take by mistake.
template <class VALUE>
class MaybeReply {
 public:
  bool given() const { return answer_ == Answer::value; }
  bool is(std::string_view word) const { return isKeyword() && keyword_ == word; }
  bool isKeyword() const { return answer_ == Answer::keyword; }
  const std::string& keyword() const { return keyword_; }
  VALUE valueOr(VALUE otherwise) const { return given() ? value_ : otherwise; }
  // Only once given() said so.
  const VALUE& operator*() const {
    if (!given()) throw std::logic_error("no answer was given");
    return value_;
  }
  const VALUE* operator->() const { return &**this; }
  void take(Answer answer, VALUE given, std::string word) {
    answer_ = answer, value_ = std::move(given), keyword_ = std::move(word);
  }

 private:
  Answer answer_ = Answer::none;
  VALUE value_{};
  std::string keyword_;
};

template <class VALUE, template <class> class REPLY = Reply>
class Asked : public Question {
 public:
  using Ask = std::function<Answer(Prompter&, VALUE&)>;
  explicit Asked(Ask how) : ask_(std::move(how)) {}
  // A question whose answer is known isn't asked: it needs no answer of those that are left.
  static Asked answered(VALUE value) {
    Asked known{Ask()};
    known.reply_.take(Answer::value, std::move(value), {});
    return known;
  }
  Answer ask(Prompter& prompter) override {
    VALUE value{};
    const Answer answer = ask_(prompter, value);
    reply_.take(answer, std::move(value), answer == Answer::keyword ? prompter.lastKeyword() : std::string());
    return answer;
  }
  bool await_ready() const noexcept { return !ask_; }
  void await_suspend(std::coroutine_handle<CommandTask::promise_type> waiting) { waiting.promise().question = this; }
  REPLY<VALUE> await_resume() { return std::move(reply_); }

 private:
  Ask ask_;
  REPLY<VALUE> reply_;
};

template <class VALUE>
using MaybeAsked = Asked<VALUE, MaybeReply>;

}  // namespace atelier
