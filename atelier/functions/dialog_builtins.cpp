// Functions with which programs run dialogs: answers are given beforehand, the lists can be read afterwards.
// An extension of this host: programs test with boundp whether it exists.
#include "atelier/base/text.h"
#include "atelier/commands/value_source.h"
#include "atelier/dialogs/dialogs_command_line.h"
#include "atelier/document/document.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

// Runs dialogs on the command line, even when there is a desktop, and keeps the lists of the one that ended last.
// Its messages are printed even while the command line is muted.
class AnsweredDialogs : public CommandLineDialogs {
 public:
  explicit AnsweredDialogs(Document& document) : document_(document), before_(document.dialogPresenter) {
    document.dialogPresenter = this;
  }
  ~AnsweredDialogs() override { document_.dialogPresenter = before_; }
  AnsweredDialogs(const AnsweredDialogs&) = delete;
  AnsweredDialogs& operator=(const AnsweredDialogs&) = delete;

  void run(dialogues::Dialog& dialog) override {
    CommandLineDialogs::run(dialog);
    lists.clear();
    for (const dialogues::Control* control : dialog.controls())
      if (control->kind() == dialogues::Control::Kind::list)
        lists.push_back(static_cast<const dialogues::List*>(control)->rows());
  }
  int message(const std::wstring& text, const std::wstring& title, dialogues::Icon icon, bool yesNo) override {
    const bool muted = document_.exchangeMuted(false);
    const int answer = CommandLineDialogs::message(text, title, icon, yesNo);
    document_.exchangeMuted(muted);
    return answer;
  }

  std::vector<std::vector<dialogues::Row>> lists;

 private:
  Document& document_;
  DialogPresenter* before_;
};

// The row as (data cell ...).
Value rowValue(Interpreter& in, const dialogues::Row& row) {
  lisp::Root cells(in);
  for (auto cell = row.cells.rbegin(); cell != row.cells.rend(); ++cell) {
    const lisp::Root text(in, in.string(toUtf8(*cell)));
    cells = in.cons(text, cells);
  }
  return in.cons(Value::integer(row.data), cells);
}

Value listsValue(Interpreter& in, const std::vector<std::vector<dialogues::Row>>& lists) {
  lisp::Root all(in);
  for (auto list = lists.rbegin(); list != lists.rend(); ++list) {
    lisp::Root rows(in);
    for (auto row = list->rbegin(); row != list->rend(); ++row) {
      const lisp::Root value(in, rowValue(in, *row));
      rows = in.cons(value, rows);
    }
    all = in.cons(rows, all);
  }
  return all;
}

Value dialoguer(Interpreter& in, Arguments arguments) {
  std::vector<Value> answers;  // the argument's list keeps them alive
  for (const Value answer : lisp::Items(lisp::listArgument(in, arguments[1]))) answers.push_back(answer);
  Document& document = Document::needed();
  ValueSource source(document, Arguments(answers.data(), answers.size()));
  AnsweredDialogs dialogs(document);
  {
    const Feeding feeding(document, source, true);
    in.call(arguments[0], {});
  }
  return listsValue(in, dialogs.lists);
}

constexpr lisp::Builtin kTable[] = {
    {"dialoguer", dialoguer, 2, 2, "(dialoguer fonction réponses)",
     "Appelle une fonction dont les dialogues et les questions prennent leurs réponses dans la liste; rend les listes "
     "du "
     "dernier dialogue, leurs rangées comme (donnée texte ...)."},
};

}  // namespace

std::span<const lisp::Builtin> dialogBuiltins() { return kTable; }

}  // namespace atelier
