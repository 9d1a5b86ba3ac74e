// AutoLISP functions on system variables, coordinate systems and layouts.
// getvar of an unknown name is nil; a setting that the table refuses is an error.
#include <algorithm>

#include "atelier/document/coordinate_systems.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/variables/variable_table.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

std::string nameArgument(Interpreter& in, Value value) {
  if (value.isSymbol()) return value.name();
  if (!value.isString()) in.failType("(or stringp symbolp):", value);
  return std::string(value.text());
}

Value lispValue(Interpreter& in, const SystemVariables::Value& value) {
  if (const int* number = std::get_if<int>(&value)) return Value::integer(*number);
  if (const double* real = std::get_if<double>(&value)) return Value::real(*real);
  if (const std::string* text = std::get_if<std::string>(&value)) return in.string(*text);
  const auto& point = std::get<SystemVariables::Point>(value);
  return point.flat ? in.point(point.value.x, point.value.y) : pointValue(in, point.value);
}

std::optional<SystemVariables::Value> variableValue(Value value) {
  if (value.isInteger()) return value.integer();
  if (value.isReal()) return value.real();
  if (value.isString()) return std::string(value.text());
  if (const auto point = pointFromValue(value)) return SystemVariables::Point{*point, value.cdr().cdr().isNil()};
  return std::nullopt;
}

Value getvar(Interpreter& in, Arguments arguments) {
  const auto value = Document::needed().variables().value(nameArgument(in, arguments[0]));
  return value ? lispValue(in, *value) : lisp::nil;
}

Value setvar(Interpreter& in, Arguments arguments) {
  const std::string name = upperCase(nameArgument(in, arguments[0]));
  const auto value = variableValue(arguments[1]);
  if (!value || !Document::needed().variables().set(name, *value))
    in.fail("variable setting rejected: \"" + name + "\" " + lisp::prin1(arguments[1]));
  return arguments[1];
}

AcGeMatrix3d systemArgument(Interpreter& in, Value value) {
  std::optional<AcGeMatrix3d> system;
  if (value.isInteger()) system = systemByCode(value.integer());
  else if (const AcDbStub* stub = stubOfValue(value)) system = systemOfEntity(*stub);
  else if (const auto normal = pointFromValue(value)) system = systemOfNormal(normal->asVector());
  if (!system) in.fail("bad argument value: " + lisp::prin1(value));
  return *system;
}

Value trans(Interpreter& in, Arguments arguments) {
  const auto p = lisp::pointArgument(in, arguments[0]);
  const AcGeMatrix3d from = systemArgument(in, arguments[1]), to = systemArgument(in, arguments[2]);
  return pointValue(in, translated({p[0], p[1], p[2]}, from, to, !lisp::optional(arguments, 3).isNil()));
}

// The names of the paper layouts, in the order of their tabs.
Value layoutlist(Interpreter& in, Arguments) {
  AcDbImpDatabase& db = Document::needed().imp();
  std::vector<std::pair<std::int64_t, std::string>> layouts;
  for (AcDbStub* stub : db.objects) {
    if (stub->is(AcDbStub::kErased) || db.typeName(*stub) != "LAYOUT") continue;
    const Record& record = AcDbImpObject::of(&db.object(*stub)).record;
    const std::string name = record.text(textField("AcDbLayout", 1));
    if (!equalNoCase(name, "Model")) layouts.emplace_back(record.integer(integerField("AcDbLayout", 71)), name);
  }
  std::sort(layouts.begin(), layouts.end());
  Value list;
  for (auto it = layouts.rbegin(); it != layouts.rend(); ++it) list = in.cons(in.string(it->second), list);
  return list;
}

// Binary programs never run: SECURELOAD refuses them, and without it this host can't load them.
Value refused(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  const bool secure = Document::needed().variables().integer("SECURELOAD", 1) != 0;
  if (arguments.size() > 1 && !secure) return arguments[1];
  in.fail((secure ? "SECURELOAD refuse de charger " : "cet hôte ne charge pas de programme binaire: ") + name);
}

Value arxlist(Interpreter&, Arguments) { return lisp::nil; }

// Whether the drawing counts as modified, kept by a program for the time in which its changes don't count.
Value pushModified(Interpreter& in, Arguments) {
  Document& document = Document::needed();
  document.keptModified.push_back(document.imp().modified);
  return in.t();
}
Value popModified(Interpreter& in, Arguments) {
  Document& document = Document::needed();
  if (document.keptModified.empty()) return lisp::nil;
  document.imp().modified = document.keptModified.back();
  document.keptModified.pop_back();
  return in.t();
}

Value listVariables(Interpreter& in, Arguments) {
  std::vector<std::string> lines;
  for (const VariableRow& row : variableRows()) {
    const ComputedVariable* computed = row.place == VariablePlace::computed ? computedVariable(row.name) : nullptr;
    const bool read = row.readOnly || (computed && !computed->set);
    const char* place = row.place == VariablePlace::header     ? "dessin"
                        : row.place == VariablePlace::document ? "session"
                                                               : "";
    lines.push_back("| `" + std::string(row.name) + "` | " + place + " | " + (read ? "lue" : "réglable") + " | " +
                    std::string(row.help) + " |\n");
  }
  std::ranges::sort(lines);
  Document::needed().print("| variable | gardée avec | | |\n| --- | --- | --- | --- |\n");
  for (const std::string& line : lines) Document::needed().print(line);
  return in.quiet();
}

constexpr lisp::Builtin kTable[] = {
    {"aide-variables", listVariables, 0, 0, "(aide-variables)", "Affiche les variables système en un tableau."},
    {"getvar", getvar, 1, 1, "(getvar nom)", "Valeur d'une variable système, ou nil."},
    {"setvar", setvar, 2, 2, "(setvar nom valeur)", "Règle une variable système; rend la valeur."},
    {"trans", trans, 3, 4, "(trans point de vers [déplacement])",
     "Point d'un repère à un autre: 0 général, 1 utilisateur, 2 vue, une entité ou une normale."},
    {"layoutlist", layoutlist, 0, 0, "(layoutlist)", "Noms des présentations du dessin."},
    {"arxload", refused, 1, 2, "(arxload fichier [échec])", "Charge une application; refusé selon SECURELOAD."},
    {"arxunload", refused, 1, 2, "(arxunload fichier [échec])",
     "Décharge une application; il n'y en a pas à décharger."},
    {"arx", arxlist, 0, 0, "(arx)", "Liste des applications chargées."},
    {"acad-push-dbmod", pushModified, 0, 0, "(acad-push-dbmod)", "Retient si le dessin est modifié (DBMOD)."},
    {"acad-pop-dbmod", popModified, 0, 0, "(acad-pop-dbmod)", "Rend au dessin le DBMOD retenu; nil s'il n'y en a pas."},
    {"startapp", refused, 1, 2, "(startapp programme [fichier])", "Lance un programme; refusé selon SECURELOAD."},
};

}  // namespace

std::span<const lisp::Builtin> variableBuiltins() { return kTable; }

}  // namespace atelier
