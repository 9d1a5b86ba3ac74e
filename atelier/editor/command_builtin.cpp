// AutoLISP's `command` and its sisters: values as answers to the prompts of commands.
// A command that still asks when the values are used up waits for the next call, or for the user at the
// program's end.
#include <algorithm>
#include <charconv>

#include "atelier/editor/builtin_tables.h"
#include "atelier/editor/cancelling.h"
#include "atelier/editor/command_run.h"
#include "atelier/editor/document.h"
#include "atelier/editor/values.h"
#include "atelier/lisp/arguments.h"
#include "atelier/lisp/printer.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

constexpr const char* kHeldValue = "*COMMAND-ARGUMENT*";  // by which a prompt's expression reaches a value
constexpr std::string_view kPause = "\\";

std::string numberText(double number) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

// The values of one call, in order; the user's own source answers a pause.
class ValueSource : public InputSource, public AnswerSupply {
 public:
  ValueSource(Document& document, Arguments values)
      : document_(document), values_(values), user_(document.prompter().source) {}
  bool hasMore() const override { return at_ < values_.size(); }
  bool ranOut() const override { return ranOut_; }
  Value take() { return values_[at_++]; }
  Input next(const PromptInfo& prompt) override {
    ranOut_ = !hasMore();
    if (ranOut_) return {};
    const Value value = take();
    if (value.isString() && value.text() == kPause) return askUser(prompt);
    return inputOf(value);
  }

 private:
  Input askUser(const PromptInfo& prompt) {
    if (!user_) return {};
    const bool muted = document_.exchangeMuted(false);
    if (muted) document_.print(prompt.text);
    Input input = user_->next(prompt);
    document_.exchangeMuted(muted);
    return input;
  }
  Input inputOf(Value value) {
    if (value.isNil()) return Input::cancel();
    if (value.isString()) return Input::answer(std::string(value.text()));
    if (value.isInteger()) return Input::answer(std::to_string(value.integer()));
    if (value.isReal()) return Input::answer(numberText(value.real()));
    if (const auto point = pointFromValue(value)) return Input::pick(*point);
    document_.interpreter().set(kHeldValue, value);
    return Input::answer(std::string("!") + kHeldValue);
  }
  Document& document_;
  Arguments values_;
  InputSource* user_;
  std::size_t at_ = 0;
  bool ranOut_ = false;
};

// Puts the values in the place of the prompter's source, and everything back in the end.
class Feeding {
 public:
  Feeding(Document& document, ValueSource& source)
      : document_(document),
        source_(document.prompter().source),
        pending_(document.prompter().exchangePending({})),
        muted_(document.exchangeMuted(document.variables().integer("CMDECHO", 1) == 0)) {
    document.prompter().source = &source;
  }
  ~Feeding() {
    document_.prompter().source = source_;
    document_.prompter().exchangePending(std::move(pending_));
    document_.exchangeMuted(muted_);
  }
  Feeding(const Feeding&) = delete;
  Feeding& operator=(const Feeding&) = delete;

 private:
  Document& document_;
  InputSource* source_;
  std::optional<std::string> pending_;
  bool muted_;
};

std::unique_ptr<CommandRun> begin(Interpreter& in, Document& document, Value name) {
  if (!name.isString()) in.fail("bad argument type: stringp " + lisp::prin1(name));
  const std::string text(trimmed(name.text()));
  if (text.empty()) return nullptr;
  document.print("\nCommande: " + text + "\n");
  const CommandRow* row = commandRow(text);
  if (!row) throw Error("Commande inconnue \"" + upperCase(text) + "\".");
  if (!row->function)
    throw Error("Commande " + std::string(row->name) + " non disponible ici. " + std::string(row->help));
  if (!document.undoGroup) document.imp().journal.mark();
  return std::make_unique<CommandRun>(document, *row);
}

// Runs the values; false when a command was cancelled, or waits though it may not.
bool runValues(Interpreter& in, Document& document, ValueSource& source, bool mayWait) {
  std::unique_ptr<CommandRun> run = std::move(document.waitingCommand());
  while (source.hasMore() || run) {
    if (!run) {
      const Value name = source.take();
      if (!name.isNil()) run = begin(in, document, name);
      continue;
    }
    const CommandRun::State state = run->advance(source);
    if (state == CommandRun::State::cancelled) return false;
    if (state == CommandRun::State::waiting) {
      if (mayWait) document.waitingCommand() = std::move(run);
      return mayWait;
    }
    run.reset();
    if (!document.undoGroup) document.imp().journal.mark();
  }
  return true;
}

// A command that fails says so and counts; the program goes on.
bool feed(Interpreter& in, Arguments arguments, bool mayWait) {
  Document& document = Document::needed();
  if (arguments.empty()) {
    cancelCommand(document);
    return true;
  }
  ValueSource source(document, arguments);
  std::string failure;
  {
    const Feeding feeding(document, source);
    try {
      return runValues(in, document, source, mayWait);
    } catch (const Interrupted&) {
      in.clearInterrupt();
    } catch (const Error& error) {
      failure = error.what();
    }
  }
  if (failure.empty()) in.fail(kCancelled);
  document.fail(failure);
  return false;
}

Value command(Interpreter& in, Arguments arguments) {
  feed(in, arguments, true);
  return lisp::nil;
}

Value quietCommand(Interpreter& in, Arguments arguments) {
  return in.boolean(feed(in, arguments, true));
}

Value wholeCommand(Interpreter& in, Arguments arguments) {
  feed(in, arguments, false);
  return lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"command", command, 0, lisp::kAnyNumber, "(command [commande réponse ...])",
     "Exécute une commande avec ses réponses; sans argument, annule celle qui attend."},
    {"vl-cmdf", quietCommand, 0, lisp::kAnyNumber, "(vl-cmdf [commande réponse ...])",
     "Comme command; rend T, ou nil quand la commande a échoué."},
    {"command-s", wholeCommand, 0, lisp::kAnyNumber, "(command-s [commande réponse ...])",
     "Comme command, la commande entière en un appel."},
};

}  // namespace

std::span<const lisp::Builtin> commandBuiltins() {
  return kTable;
}

}  // namespace atelier
