// The command line of a document: printing, running the lines that are typed, and telling how they ended.
// A line that begins with a parenthesis is an AutoLISP expression, any other the name of a command and answers to it.
#include "atelier/document/document.h"

#include <utility>

#include "atelier/document/cancelling.h"
#include "atelier/document/values.h"
#include "atelier/lisp/evaluator/printer.h"

namespace atelier {
namespace {

bool quitting = false;

// The error for the user: message, file and line, and the innermost few of the running calls.
std::string errorText(const lisp::Error& error) {
  constexpr std::size_t kMostCalls = 6;
  if (error.message() == kCancelled) return "*Annuler*";
  std::string text = "; erreur: " + error.message();
  if (!error.file.empty()) text += " (" + error.file + (error.line > 0 ? ":" + std::to_string(error.line) : "") + ")";
  else if (error.line > 0) text += " (ligne " + std::to_string(error.line) + ")";
  for (std::size_t i = 0; i < error.chain.size() && i < kMostCalls; ++i) {
    std::string call = error.chain[i];
    if (call.size() > 100) call = call.substr(0, 97) + "...";
    text += "\n;   dans " + call;
  }
  return text;
}

}  // namespace

void requestQuit() { quitting = true; }
bool quitRequested() { return std::exchange(quitting, false); }

void Document::print(std::string_view utf8) {
  if (muted_) return;
  transcript_ += utf8;
  if (printer_) printer_(utf8);
}

std::string Document::takeTranscript() { return std::exchange(transcript_, {}); }

void Document::fail(const std::string& message) {
  ++failures_;
  tellFailure("\n" + message + "\n");
}

void Document::tellFailure(const std::string& message) {
  const Printer usual = failurePrinter ? std::exchange(printer_, failurePrinter) : printer_;
  const bool muted = exchangeMuted(false);
  print(message);
  exchangeMuted(muted);
  printer_ = usual;
}

bool Document::evaluate(std::string_view text, std::string* printed) {
  makeCurrent();
  interpreter_->clearInterrupt();
  try {
    const lisp::Value value = interpreter_->evaluate(text);
    if (printed) *printed = value == interpreter_->quiet() ? std::string() : interpreter_->printed(value);
    finishCommand();
    return true;
  } catch (const lisp::Error& error) {
    cancelCommand();
    if (error.kind == lisp::Error::Kind::Exit) return true;
    stopped_ |= error.kind == lisp::Error::Kind::Interrupt;
    fail(errorText(error));
    return false;
  }
}

void Document::finishCommand() {
  const std::unique_ptr<WaitingCommand> command = std::move(waitingCommand_);
  if (!command) return;
  try {
    command->finish();
  } catch (const Interrupted&) {
    endInterruption();
  } catch (const Error& error) {
    fail(error.what());
  }
}

void Document::endInterruption() {
  stopped_ |= interpreter_->interrupted();
  interpreter_->clearInterrupt();
}

bool Document::load(const std::string& path) {
  makeCurrent();
  search_->trust(path);
  interpreter_->clearInterrupt();
  try {
    interpreter_->loadFile(path);
    finishCommand();
    return true;
  } catch (const lisp::Error& error) {
    cancelCommand();
    fail(errorText(error));
    return false;
  }
}

bool Document::runCommand(const std::string& name) {
  const std::string upper = upperCase(name);
  const lisp::Value function = interpreter_->get("C:" + upper);
  if (!function.isNil()) {
    try {
      const lisp::Value value = interpreter_->call(function, {});
      finishCommand();
      // As with an expression; what applications publish gives nothing of interest.
      if (function.isUserSubr() && value != interpreter_->quiet()) print(interpreter_->printed(value) + "\n");
    } catch (const lisp::Error& error) {
      cancelCommand();
      stopped_ |= error.kind == lisp::Error::Kind::Interrupt;
      if (error.kind != lisp::Error::Kind::Exit) fail(errorText(error));
    }
    return true;
  }
  return services_.runCommand(*this, upper);
}

void Document::commandEnded() {
  constexpr std::size_t kMostListed = 1000;
  const lisp::Value function = interpreter_->get("*APRES-COMMANDE*");
  const std::vector<AcDbStub*> changed = imp().journal.changed();
  if (function.isNil() || changed.empty() || stopped_ || following_) return;
  lisp::Value entities = interpreter_->boolean(true);
  if (changed.size() <= kMostListed) {
    entities = lisp::Value();
    for (AcDbStub* stub : changed)
      if (!stub->is(AcDbStub::kErased)) entities = interpreter_->cons(entityValue(*interpreter_, stub), entities);
  }
  following_ = true;
  try {
    interpreter_->call(function, std::vector<lisp::Value>{entities});
  } catch (const lisp::Error& error) {
    if (error.kind != lisp::Error::Kind::Exit) fail(errorText(error));
  }
  following_ = false;
}

// A command that was stopped while it worked leaves the drawing as it was. One that goes on from answer to answer keeps what it had
// made before the last one, and a program what it did: they have their own step to be undone.
void Document::takeBackStopped(bool modified) {
  if (!stopped_ || undoGroup || changedBeforeAnswer_ || !imp().journal.hasChanged()) return;
  const bool saved = !imp().modified;  // meanwhile: the file has what is taken back
  imp().journal.abandon();
  imp().modified = modified || saved;
}

void Document::runLine(const std::string& line) {
  const std::string_view text = trimmed(line);
  if (text.empty()) return;
  prompter_.dropPending();
  if (!undoGroup) imp().journal.mark();
  if (text.starts_with('(') || text.starts_with('!')) {
    std::string printed;
    if (evaluate(text.starts_with('!') ? text.substr(1) : text, &printed) && !printed.empty()) print(printed + "\n");
    return;
  }
  if (text.starts_with(';')) return;  // a comment in a script
  const std::size_t space = text.find(' ');
  const std::string name(text.substr(0, space));
  const bool modified = imp().modified;
  changedBeforeAnswer_ = false;
  if (space != text.npos) prompter_.pushBack(std::string(trimmed(text.substr(space))));
  if (!runCommand(name)) fail("Commande inconnue \"" + upperCase(name) + "\".");
  takeBackStopped(modified);
  prompter_.dropPending();
}

bool Document::run(InputSource& source) {
  makeCurrent();
  bool goesOn = true;
  InputSource* before = std::exchange(prompter_.source, &source);
  const auto restore = [&] { prompter_.source = before; };
  stopped_ = false;
  try {
    for (;;) {
      if ((stopped_ || interpreter_->interrupted()) && source.dropRest()) countFailure();
      PromptInfo prompt;
      prompt.takesSpaces = prompt.isCommand = true;
      prompt.text = source.echoes() ? "\nCommande: " : "";
      Input input = source.next(prompt);
      if (input.kind == Input::Kind::end) break;
      if (input.kind != Input::Kind::text) continue;
      // An expression may run over several lines.
      while (trimmed(input.text).starts_with('(') && openParentheses(input.text) > 0) {
        const Input more = source.next({});
        if (more.kind != Input::Kind::text) break;
        input.text += "\n" + more.text;
      }
      interpreter_->clearInterrupt();
      stopped_ = false;
      if (!source.echoes()) print("\nCommande: " + (input.shown.empty() ? input.text : input.shown) + "\n");
      const std::string place = source.place();
      const int failuresBefore = failures_;
      try {
        runLine(input.text);
        commandEnded();
      } catch (const Error& error) {
        fail(error.what());
      }
      if (failures_ > failuresBefore) leaveAnswers(source, place);
      if (stopped_) scripts.clear();
      runScripts();
      if (quitRequested()) {
        if (before) requestQuit();  // the outer script must end, too
        goesOn = false;
        break;
      }
    }
  } catch (...) {
    restore();
    throw;
  }
  restore();
  return goesOn;
}

// Whether a line of a script begins something new: an expression, or a command by its name. Short aliases don't count, since
// answers look like them.
bool Document::beginsLine(const std::string& line) {
  constexpr std::size_t kShortest = 4;
  const std::string_view text = trimmed(line);
  if (text.starts_with('(')) return true;
  std::string name = upperCase(text.substr(0, text.find(' ')));
  name.erase(0, name.find_first_not_of("_."));
  if (!interpreter_->get("C:" + name).isNil()) return true;
  return name.size() >= kShortest && services_.knowsCommand(name);
}

void Document::leaveAnswers(InputSource& source, const std::string& place) {
  if (place.empty()) return;
  const std::size_t left =
      source.dropUntil([this](const std::string& line) { return !stopsAtFailure && beginsLine(line); });
  std::string text = place + ": échec";
  if (left > 0)
    text += stopsAtFailure ? "; la suite du script n'est pas exécutée"
            : left == 1    ? "; 1 ligne laissée avant la commande suivante"
                           : "; " + std::to_string(left) + " lignes laissées avant la commande suivante";
  if (stopsAtFailure) scripts.clear();
  tellFailure(text + "\n");
}

void Document::runScripts() {
  while (!scripts.empty()) {
    const Script script = std::move(scripts.front());
    scripts.erase(scripts.begin());
    const int before = failures_;
    LinesSource lines(script.text, script.name);
    run(lines);
    if (stopsAtFailure && failures_ > before && prompter_.source) prompter_.source->dropRest();
  }
}

}  // namespace atelier
