// AutoLISP's functions for dialogs that are described in DCL.
// The desktop shows them as windows, the command line asks for their tiles one at a time.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "atelier/document/document.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/functions/dcl_session.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

int numberIn(Value value, int otherwise) {
  if (value.isInteger()) return value.integer();
  const auto number = value.isString() ? parseInteger(value.text()) : std::nullopt;
  return number ? static_cast<int>(*number) : otherwise;
}

Value loadDialog(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  auto found = in.search().find(name);
  if (!found) found = in.search().find(name + ".dcl");
  std::ifstream file(found.value_or(std::string()), std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  if (!found || !file) return Value::integer(-1);
  try {
    dclSession(in).files[++dclSession(in).lastFile] = dcl::read(*found, lisp::decodeFile(bytes.str()));
  } catch (const Error& error) {
    Document::needed().print(std::string("\n") + error.what() + "\n");
    return Value::integer(-1);
  }
  return Value::integer(dclSession(in).lastFile);
}

Value unloadDialog(Interpreter& in, Arguments arguments) {
  dclSession(in).files.erase(lisp::integerArgument(in, arguments[0]));
  return lisp::nil;
}

Value newDialog(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  const auto file = dclSession(in).files.find(lisp::integerArgument(in, arguments[1]));
  const Value action = lisp::optional(arguments, 2);
  std::string lower = name;
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  if (file == dclSession(in).files.end() || !file->second.contains(lower) || file->second.at(lower).type != "dialog")
    return lisp::nil;
  const auto act = [](const std::string& expression, const std::string& key, const std::string& value) {
    Interpreter& now = Document::needed().interpreter();
    now.set("$KEY", now.string(key));
    now.set("$VALUE", now.string(value));
    now.set("$REASON", Value::integer(1));
    now.evaluate(expression);
  };
  dclSession(in).dialogs.push_back(std::make_unique<dcl::TileDialog>(
      file->second.at(lower), action.isString() ? std::string(action.text()) : std::string(), act));
  return in.boolean(true);
}

Value startDialog(Interpreter& in, Arguments) {
  if (dclSession(in).dialogs.empty()) return lisp::nil;
  // Removes the dialog when it has ended, by an exception, too.
  struct Gone {
    DclSession& all;
    ~Gone() { all.dialogs.pop_back(); }
  } gone{dclSession(in)};
  return Value::integer(gone.all.dialogs.back()->run());
}

Value doneDialog(Interpreter& in, Arguments arguments) {
  if (dclSession(in).dialogs.empty()) return lisp::nil;
  dclSession(in).dialogs.back()->finish(numberIn(lisp::optional(arguments, 0), 0));
  const lisp::Root y(in, in.cons(Value::integer(0), lisp::nil));
  return in.cons(Value::integer(0), y);  // a place on the screen, which is not used
}

Value actionTile(Interpreter& in, Arguments arguments) {
  dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]);
  if (dialog) dialog->setAction(std::string(arguments[0].text()), std::string(lisp::stringArgument(in, arguments[1])));
  return in.boolean(dialog != nullptr);
}

Value setTile(Interpreter& in, Arguments arguments) {
  dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]);
  if (dialog) dialog->setValue(std::string(arguments[0].text()), std::string(lisp::stringArgument(in, arguments[1])));
  return lisp::nil;
}

Value getTile(Interpreter& in, Arguments arguments) {
  const dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]);
  return dialog ? in.string(dialog->value(std::string(arguments[0].text()))) : lisp::nil;
}

Value getAttribute(Interpreter& in, Arguments arguments) {
  const dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]);
  return dialog ? in.string(dialog->attribute(std::string(arguments[0].text()), lisp::stringArgument(in, arguments[1])))
                : lisp::nil;
}

Value modeTile(Interpreter& in, Arguments arguments) {
  if (dcl::TileDialog* dialog = dialogWithTile(in, arguments[0]))
    dialog->setMode(std::string(arguments[0].text()), numberIn(arguments[1], 0));
  return lisp::nil;
}

Value startList(Interpreter& in, Arguments arguments) {
  auto& filling = dclSession(in).filling;
  filling.key = lisp::stringArgument(in, arguments[0]);
  filling.change = static_cast<dcl::TileDialog::Change>(std::clamp(numberIn(lisp::optional(arguments, 1), 3), 1, 3));
  filling.index = static_cast<std::size_t>(std::max(numberIn(lisp::optional(arguments, 2), 0), 0));
  filling.texts.clear();
  return arguments[0];
}

Value addList(Interpreter& in, Arguments arguments) {
  dclSession(in).filling.texts.emplace_back(lisp::stringArgument(in, arguments[0]));
  return arguments[0];
}

Value endList(Interpreter& in, Arguments) {
  auto& [key, change, index, texts] = dclSession(in).filling;
  auto& dialogs = dclSession(in).dialogs;
  if (!dialogs.empty() && dialogs.back()->has(key)) dialogs.back()->changeList(key, change, index, texts);
  texts.clear();
  return lisp::nil;
}

Value endAll(Interpreter& in, Arguments) {
  for (const auto& dialog : dclSession(in).dialogs) dialog->finish(0);
  return lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"load_dialog", loadDialog, 1, 1, "(load_dialog fichier)",
     "Lit un fichier DCL; rend son numéro, négatif quand il ne peut être lu."},
    {"unload_dialog", unloadDialog, 1, 1, "(unload_dialog numéro)", "Oublie un fichier DCL."},
    {"new_dialog", newDialog, 2, 4, "(new_dialog nom numéro [action [point]])",
     "Prépare un dialogue; rend T, ou nil quand il n'existe pas."},
    {"start_dialog", startDialog, 0, 0, "(start_dialog)",
     "Montre le dialogue préparé; rend 1, 0 pour un abandon, ou le nombre de done_dialog."},
    {"done_dialog", doneDialog, 0, 1, "(done_dialog [nombre])", "Termine le dialogue en cours."},
    {"term_dialog", endAll, 0, 0, "(term_dialog)", "Abandonne tous les dialogues."},
    {"action_tile", actionTile, 2, 2, "(action_tile clé expression)",
     "L'expression qu'un changement évalue, avec $key et $value."},
    {"set_tile", setTile, 2, 2, "(set_tile clé valeur)", "Fixe la valeur d'un champ."},
    {"get_tile", getTile, 1, 1, "(get_tile clé)", "La valeur d'un champ, ou nil."},
    {"get_attr", getAttribute, 2, 2, "(get_attr clé attribut)", "L'attribut d'un champ tel que le fichier le donne."},
    {"mode_tile", modeTile, 2, 2, "(mode_tile clé mode)", "Permet (0) ou interdit (1) un champ."},
    {"start_list", startList, 1, 3, "(start_list clé [opération [rang]])",
     "Commence à remplir une liste: 1 change, 2 ajoute, 3 remplace."},
    {"add_list", addList, 1, 1, "(add_list texte)", "Un texte de la liste commencée."},
    {"end_list", endList, 0, 0, "(end_list)", "Termine la liste commencée."},
};

}  // namespace

std::span<const lisp::Builtin> dclBuiltins() { return kTable; }

}  // namespace atelier
