// What programs say about themselves: settings they keep, how they end, how their errors are handled.
// What has no meaning here is known all the same, since programs call it in passing. Reference: AutoLISP reference.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

// Settings of setcfg are values of the registry, under their section: "AppData/program/section/name".
constexpr std::string_view kSettings = "APPDATA/";

Value getSetting(Interpreter& in, Arguments arguments) {
  const std::string name = upperCase(stringArgument(in, arguments[0]));
  const auto& registry = in.session().registry;
  const auto key = registry.find(name);
  if (!name.starts_with(kSettings)) return nil;
  return in.string(key == registry.end() || !key->second.contains({}) ? std::string() : key->second.at({}));
}

Value setSetting(Interpreter& in, Arguments arguments) {
  const std::string name = upperCase(stringArgument(in, arguments[0]));
  if (!name.starts_with(kSettings)) return nil;
  in.session().registry[name][{}] = stringArgument(in, arguments[1]);
  return arguments[1];
}

// Names of the keys one level below, or of the values of a key.
Value registryBelow(Interpreter& in, Arguments arguments) {
  const std::string above = upperCase(stringArgument(in, arguments[0]));
  const auto& registry = in.session().registry;
  std::vector<std::string> names;
  if (!optional(arguments, 1).isNil()) {
    if (const auto key = registry.find(above); key != registry.end())
      for (const auto& [name, value] : key->second)
        if (!name.empty()) names.push_back(name);
  } else {
    for (const auto& [key, values] : registry) {
      if (!key.starts_with(above + "\\")) continue;
      const std::string name = key.substr(above.size() + 1, key.find('\\', above.size() + 1) - above.size() - 1);
      if (names.empty() || names.back() != name) names.push_back(name);
    }
  }
  Value list;
  for (auto name = names.rbegin(); name != names.rend(); ++name) list = in.cons(in.string(*name), list);
  return list;
}

// There is no other program to take the value: the one that runs ends without an error.
Value exitWithValue(Interpreter& in, Arguments) { in.fail("quit / exit abort", Error::Kind::Exit); }

Value givesNil(Interpreter&, Arguments) { return nil; }
Value givesTrue(Interpreter& in, Arguments) { return in.t(); }
Value givesFirst(Interpreter&, Arguments arguments) { return arguments[0]; }
Value givesZero(Interpreter&, Arguments) { return Value::integer(0); }

constexpr Builtin kTable[] = {
    {"getcfg", getSetting, 1, 1, "(getcfg nom)",
     "Un réglage de la session, \"AppData/programme/nom\"; \"\" s'il manque."},
    {"setcfg", setSetting, 2, 2, "(setcfg nom texte)", "Garde un réglage pour la session, \"AppData/programme/nom\"."},
    {"vl-registry-descendents", registryBelow, 1, 2, "(vl-registry-descendents clé [valeurs])",
     "Les noms sous une clé du registre de la session, ou de ses valeurs."},
    {"vl-exit-with-value", exitWithValue, 1, 1, "(vl-exit-with-value valeur)", "Quitte le programme sans erreur."},
    {"*push-error-using-command*", givesTrue, 0, 0, "(*push-error-using-command*)",
     "T : *error* peut toujours appeler command."},
    {"*push-error-using-stack*", givesTrue, 0, 0, "(*push-error-using-stack*)",
     "T : *error* voit toujours les variables du programme."},
    {"*pop-error-mode*", givesTrue, 0, 0, "(*pop-error-mode*)", "T."},
    {"alloc", givesFirst, 1, 1, "(alloc nombre)", "Rend le nombre : la mémoire est prise quand il en faut."},
    {"expand", givesZero, 1, 1, "(expand nombre)", "0 : la mémoire est prise quand il en faut."},
    {"mem", givesNil, 0, 0, "(mem)", "nil."},
    {"vmon", givesNil, 0, 0, "(vmon)", "nil."},
    {"pragma", givesNil, 1, 1, "(pragma liste)", "nil : tous les noms peuvent recevoir une valeur."},
    {"vl-load-all", givesNil, 1, 1, "(vl-load-all fichier)", "nil : chaque dessin charge ses programmes."},
    {"vl-load-reactors", givesNil, 0, 0, "(vl-load-reactors)", "nil."},
    {"vl-vlx-loaded-p", givesNil, 1, 1, "(vl-vlx-loaded-p nom)", "nil : il n'y a pas de programmes compilés."},
    {"vl-unload-vlx", givesNil, 1, 1, "(vl-unload-vlx nom)", "nil : il n'y a pas de programmes compilés."},
    {"vl-list-exported-functions", givesNil, 0, 1, "(vl-list-exported-functions [nom])", "nil."},
    {"vl-arx-import", givesTrue, 1, 2, "(vl-arx-import [application] fonction)",
     "T : les fonctions publiées sont celles du programme."},
    {"vl-acad-defun", givesFirst, 1, 1, "(vl-acad-defun 'fonction)", "Rend le nom : toute fonction peut être appelée."},
    {"vl-acad-undefun", givesTrue, 1, 1, "(vl-acad-undefun 'fonction)", "T."},
};

}  // namespace

std::span<const Builtin> programFamily() { return kTable; }

}  // namespace atelier::lisp
