// AutoLISP's `command` and related functions: their values answer the prompts of commands.
// A command that still asks when the values are used up waits for the next call, or for the user when the program ends.
#include "atelier/commands/command_run.h"
#include "atelier/commands/value_source.h"
#include "atelier/document/cancelling.h"
#include "atelier/document/document.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

std::unique_ptr<CommandRun> begin(Interpreter& in, Document& document, Value name) {
  if (!name.isString()) in.fail("bad argument type: stringp " + lisp::prin1(name));
  const std::string text(trimmed(name.text()));
  if (text.empty()) return nullptr;
  document.print("\nCommande: " + text + "\n");
  const CommandRow* row = commandRow(document, text);
  if (!row) throw Error("Commande inconnue \"" + upperCase(text) + "\".");
  if (!document.undoGroup) document.imp().journal.mark();
  return std::make_unique<CommandRun>(document, *row, text);
}

// Runs the values; false when a command was cancelled, or has to wait though `mayWait` is false.
bool runValues(Interpreter& in, Document& document, ValueSource& source, bool mayWait) {
  std::unique_ptr<CommandRun> run = takeWaiting(document);
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

// A command that fails prints its message and is counted; the program goes on.
bool feed(Interpreter& in, Arguments arguments, bool mayWait) {
  Document& document = Document::needed();
  if (arguments.empty()) {
    document.cancelCommand();
    return true;
  }
  ValueSource source(document, arguments);
  std::string failure;
  {
    const Feeding feeding(document, source, document.variables().integer("CMDECHO", 1) == 0);
    try {
      return runValues(in, document, source, mayWait);
    } catch (const Interrupted&) {
    } catch (const Error& error) {
      failure = error.what();
    }
  }
  if (failure.empty()) failCancelled(in);
  document.fail(failure);
  return false;
}

Value command(Interpreter& in, Arguments arguments) {
  feed(in, arguments, true);
  return lisp::nil;
}

Value quietCommand(Interpreter& in, Arguments arguments) { return in.boolean(feed(in, arguments, true)); }

Value wholeCommand(Interpreter& in, Arguments arguments) {
  feed(in, arguments, false);
  return lisp::nil;
}

Value listCommands(Interpreter& in, Arguments) {
  std::vector<std::string> lines;
  for (const CommandRow* row : offeredCommands())
    lines.push_back("| `" + std::string(row->name) + "` | " + std::string(row->aliases) + " | " +
                    std::string(row->help) + " |\n");
  std::ranges::sort(lines);
  Document::needed().print("| commande | autres noms | |\n| --- | --- | --- |\n");
  for (const std::string& line : lines) Document::needed().print(line);
  return in.quiet();
}

constexpr lisp::Builtin kTable[] = {
    {"aide-commandes", listCommands, 0, 0, "(aide-commandes)", "Affiche les commandes de l'hôte en un tableau."},
    {"command", command, 0, lisp::kAnyNumber, "(command [commande réponse ...])",
     "Exécute une commande avec ses réponses; sans argument, annule celle qui attend."},
    {"vl-cmdf", quietCommand, 0, lisp::kAnyNumber, "(vl-cmdf [commande réponse ...])",
     "Comme command; rend T, ou nil quand la commande a échoué."},
    {"command-s", wholeCommand, 0, lisp::kAnyNumber, "(command-s [commande réponse ...])",
     "Comme command, la commande entière en un appel."},
};

}  // namespace

std::span<const lisp::Builtin> commandBuiltins() { return kTable; }

}  // namespace atelier
