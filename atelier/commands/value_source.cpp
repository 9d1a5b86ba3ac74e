// Values as answers.
// A value that has no text (an entity, a selection set) is put into a variable, whose name answers the prompt.
#include "atelier/commands/value_source.h"

#include <charconv>
#include <utility>

#include "atelier/document/document.h"
#include "atelier/document/values.h"

namespace atelier {
namespace {

constexpr const char* kHeldValue = "*COMMAND-ARGUMENT*";  // the variable
constexpr std::string_view kPause = "\\";

std::string numberText(double number) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

}  // namespace

ValueSource::ValueSource(Document& document, lisp::Arguments values)
    : document_(document), values_(values), user_(document.prompter().source) {}

Input ValueSource::next(const PromptInfo& prompt) {
  ranOut_ = !hasMore();
  if (ranOut_) return {};
  const lisp::Value value = take();
  if (value.isString() && value.text() == kPause) return askUser(prompt);
  return inputOf(value);
}

bool ValueSource::takesBack(const Input& input) {
  constexpr int kMost = 10;  // times in a row: a command that Enter doesn't end refuses the value again and again
  const bool mine = at_ > 0 && values_[at_ - 1].isString() && values_[at_ - 1].text() == input.text;
  const CommandRow* row = mine && takenBack_ < kMost ? commandRow(input.text) : nullptr;
  if (!row || commandName(input.text) != row->name) return false;  // short names could be meant as keywords
  ++takenBack_;
  --at_;
  return true;
}

Input ValueSource::askUser(const PromptInfo& prompt) {
  if (!user_) return {};
  const bool muted = document_.exchangeMuted(false);
  if (muted) document_.print(prompt.text);
  Input input = user_->next(prompt);
  document_.exchangeMuted(muted);
  return input;
}

Input ValueSource::inputOf(lisp::Value value) {
  if (value.isNil()) return Input::cancel();
  if (value.isString()) return Input::answer(std::string(value.text()));
  if (value.isInteger()) return Input::answer(std::to_string(value.integer()));
  if (value.isReal()) return Input::answer(numberText(value.real()));
  if (const auto point = pointFromValue(value)) return Input::pick(*point);
  document_.interpreter().set(kHeldValue, value);
  Input input = Input::answer(std::string("!") + kHeldValue);
  input.shown = document_.interpreter().printed(value);
  return input;
}

Feeding::Feeding(Document& document, ValueSource& source, bool muted)
    : document_(document),
      source_(document.prompter().source),
      pending_(document.prompter().exchangePending({})),
      muted_(document.exchangeMuted(muted)) {
  document.prompter().source = &source;
}

Feeding::~Feeding() {
  document_.prompter().source = source_;
  document_.prompter().exchangePending(std::move(pending_));
  document_.exchangeMuted(muted_);
}

}  // namespace atelier
