// AutoLISP functions that programs share: values between drawings, files loaded at the first call, room for extended data,
// names of commands, views. Signatures and results are those of the AutoLISP reference.
#include <map>

#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/document/groups_as_lists.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

std::string nameArgument(Interpreter& in, Value value) {
  if (!value.isSymbol()) in.failType("symbolp", value);
  return std::string(value.name());
}

// Values of all drawings, as they are printed: each drawing has an interpreter of its own.
std::map<std::string, std::string>& blackboard() {
  static std::map<std::string, std::string> values;
  return values;
}

Value boardRef(Interpreter& in, Arguments arguments) {
  const auto found = blackboard().find(nameArgument(in, arguments[0]));
  return found == blackboard().end() ? lisp::nil : in.read(found->second);
}

Value boardSet(Interpreter& in, Arguments arguments) {
  blackboard()[nameArgument(in, arguments[0])] = lisp::prin1(arguments[1]);
  return arguments[1];
}

// Programs run in the drawing's own names here, so its names are those of the program.
Value documentRef(Interpreter& in, Arguments arguments) { return in.get(nameArgument(in, arguments[0])); }
Value documentSet(Interpreter& in, Arguments arguments) {
  in.set(nameArgument(in, arguments[0]), arguments[1]);
  return arguments[1];
}
Value known(Interpreter& in, Arguments) { return in.t(); }

Value exitWithError(Interpreter& in, Arguments arguments) {
  in.fail(std::string(lisp::stringArgument(in, arguments[0])));
}

// (autoload "file" '("command" ...)): each command loads the file when it is first called, and calls what that defines.
Value autoload(Interpreter& in, Arguments arguments) {
  const std::string file = lisp::prin1(arguments[0]);
  lisp::stringArgument(in, arguments[0]);
  for (const Value command : lisp::Items(lisp::listArgument(in, arguments[1]))) {
    const std::string name = "c:" + std::string(lisp::stringArgument(in, command));
    in.evaluate("(defun " + name + " () (load " + file + ") (" + name + "))");
  }
  return lisp::nil;
}

// Bytes of one group of extended data in a drawing: its code, and its value.
std::size_t sizeOf(const Group& group) {
  constexpr std::size_t kCode = 2, kLength = 2, kReal = 8;
  if (group.code() == 1002) return kCode + 1;
  if (group.code() == 1003 || group.code() == 1005) return kCode + kReal;
  if (group.code() == 1070) return kCode + 2;
  if (group.code() == 1071) return kCode + 4;
  return kCode + (group.kind() == GroupKind::real ? kReal : kLength + group.text().size());
}

constexpr std::size_t kMostExtended = 16383;

Value extendedSize(Interpreter& in, Arguments arguments) {
  // Applications with their groups, bare or behind -3 as entget lists them.
  const Value given = arguments[0];
  const bool marked = given.isPair() && given.car().isInteger();
  const Value list = in.list({marked ? given : in.cons(Value::integer(-3), given)});
  std::size_t bytes = 0;
  for (const Group& group : groupsOfList(in, list, nullptr)) bytes += sizeOf(group);
  return Value::integer(static_cast<int>(bytes));
}

Value extendedRoom(Interpreter& in, Arguments arguments) {
  AcDbStub* stub = stubOfValue(arguments[0]);
  if (!stub) in.failType("lentityp", arguments[0]);
  const Record& record = AcDbImpObject::of(&stub->database->object(*stub)).settled();
  std::size_t bytes = 0;
  for (std::size_t i = record.xdataStart(); i < record.groups.size(); ++i) bytes += sizeOf(record.groups[i]);
  return Value::integer(static_cast<int>(kMostExtended - std::min(bytes, kMostExtended)));
}

// (getcname "LINE") gives "_LINE", and (getcname "_LINE") "LINE"; nil for what is no command.
Value commandsName(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  const bool global = name.starts_with('_');
  const CommandRow* row = commandRow(global ? name.substr(1) : name);
  if (!row) return lisp::nil;
  return in.string((global ? "" : "_") + std::string(row->name));
}

// One viewport, which fills the screen.
Value viewports(Interpreter& in, Arguments) {
  const auto corner = [&](double at) { return in.list({Value::real(at), Value::real(at)}); };
  const Value number = Document::needed().variables().value("CVPORT") ? Value::integer(2) : lisp::nil;
  return in.list({in.list({number, corner(0), corner(1)})});
}

// (setview view [viewport]): the centre (10) and height (40) of a VIEW.
Value setView(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  View view = document.view();
  bool found = false;
  for (const Group& group : groupsOfList(in, arguments[0], nullptr)) {
    if (group.code() == 10) view.centre.x = group.real(), found = true;
    else if (group.code() == 20) view.centre.y = group.real();
    else if (group.code() == 40 && group.real() > 0) view.height = group.real(), found = true;
  }
  if (!found) return lisp::nil;
  document.view() = view;
  return arguments[0];
}

Value none(Interpreter&, Arguments) { return lisp::nil; }

constexpr lisp::Builtin kTable[] = {
    {"vl-bb-ref", boardRef, 1, 1, "(vl-bb-ref 'nom)", "Valeur d'un nom commun à tous les dessins, ou nil."},
    {"vl-bb-set", boardSet, 2, 2, "(vl-bb-set 'nom valeur)", "Donne une valeur à un nom commun à tous les dessins."},
    {"vl-doc-ref", documentRef, 1, 1, "(vl-doc-ref 'nom)", "Valeur d'un nom du dessin."},
    {"vl-doc-set", documentSet, 2, 2, "(vl-doc-set 'nom valeur)", "Donne une valeur à un nom du dessin."},
    {"vl-doc-export", known, 1, 1, "(vl-doc-export 'fonction)",
     "T: les fonctions d'un programme sont celles du dessin."},
    {"vl-doc-import", known, 1, 2, "(vl-doc-import fonction)", "T: les fonctions du dessin sont celles du programme."},
    {"vl-exit-with-error", exitWithError, 1, 1, "(vl-exit-with-error message)", "Quitte le programme avec une erreur."},
    {"vl-list-loaded-vlx", none, 0, 0, "(vl-list-loaded-vlx)", "Programmes compilés chargés: nil."},
    {"autoload", autoload, 2, 2, "(autoload fichier '(commande ...))",
     "Définit des commandes qui chargent leur fichier au premier appel."},
    {"xdsize", extendedSize, 1, 1, "(xdsize liste)", "Octets que prennent des données étendues."},
    {"xdroom", extendedRoom, 1, 1, "(xdroom entité)", "Octets qui restent pour les données étendues d'une entité."},
    {"getcname", commandsName, 1, 1, "(getcname commande)", "Nom anglais avec tiret bas d'une commande, ou l'inverse."},
    {"vports", viewports, 0, 0, "(vports)", "Fenêtres de l'écran, la courante d'abord."},
    {"setview", setView, 1, 2, "(setview vue [fenêtre])", "Règle la vue d'après une liste de groupes."},
};

}  // namespace

std::span<const lisp::Builtin> sharedBuiltins() { return kTable; }

}  // namespace atelier
