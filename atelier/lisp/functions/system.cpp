// The environment, the registry, the version, and requests that need no work here.
#include <cstdlib>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

constexpr const char* kVersion = "Kavel AutoLISP 1.0 (fr)";

// What setenv has set, else the process's environment.
Value getEnvironment(Interpreter& in, Arguments arguments) {
  const std::string name(stringArgument(in, arguments[0]));
  const auto& set = in.session().environment;
  if (const auto found = set.find(upperCase(name)); found != set.end()) return in.string(found->second);
  const char* value = std::getenv(name.c_str());
  return value ? in.string(isValidUtf8(value) ? value : fromWindows1252(value)) : nil;
}

Value setEnvironment(Interpreter& in, Arguments arguments) {
  in.session().environment[upperCase(stringArgument(in, arguments[0]))] = stringArgument(in, arguments[1]);
  return arguments[1];
}

// The registry exists for the session only; at first it is empty. A value is a text; one without a name is the key's
// own value.
Value readRegistry(Interpreter& in, Arguments arguments) {
  const auto& registry = in.session().registry;
  const auto key = registry.find(upperCase(stringArgument(in, arguments[0])));
  const Value name = optional(arguments, 1);
  const std::string wanted = name.isNil() ? std::string() : upperCase(stringArgument(in, name));
  if (key == registry.end() || !key->second.contains(wanted)) return nil;
  return in.string(key->second.at(wanted));
}

Value writeRegistry(Interpreter& in, Arguments arguments) {
  const Value name = optional(arguments, 1), data = optional(arguments, 2);
  auto& key = in.session().registry[upperCase(stringArgument(in, arguments[0]))];
  if (data.isNil()) return nil;
  key[name.isNil() ? std::string() : upperCase(stringArgument(in, name))] = stringArgument(in, data);
  return data;
}

Value deleteRegistry(Interpreter& in, Arguments arguments) {
  auto& registry = in.session().registry;
  const auto key = registry.find(upperCase(stringArgument(in, arguments[0])));
  if (key == registry.end()) return nil;
  const Value name = optional(arguments, 1);
  if (!name.isNil()) return in.boolean(key->second.erase(upperCase(stringArgument(in, name))) > 0);
  registry.erase(key);
  return in.boolean(true);
}

Value version(Interpreter& in, Arguments) { return in.string(kVersion); }

Value collect(Interpreter& in, Arguments) {
  in.heap().collect();
  return nil;
}

// The extensions that this function loads in the AutoLISP reference are always available here.
Value loadExtensions(Interpreter& in, Arguments) { return in.quiet(); }

constexpr Builtin kTable[] = {
    {"getenv", getEnvironment, 1, 1, "(getenv nom)", "La valeur d'une variable d'environnement, ou nil."},
    {"setenv", setEnvironment, 2, 2, "(setenv nom valeur)", "Fixe une variable d'environnement du programme."},
    {"vl-registry-read", readRegistry, 1, 2, "(vl-registry-read clé [nom])",
     "Une valeur du registre de la session, ou nil."},
    {"vl-registry-write", writeRegistry, 1, 3, "(vl-registry-write clé [nom valeur])",
     "Garde une valeur, un texte, pour la session."},
    {"vl-registry-delete", deleteRegistry, 1, 2, "(vl-registry-delete clé [nom])",
     "Oublie une valeur ou une clé; rend T si elle existait."},
    {"ver", version, 0, 0, "(ver)", "La version de l'interpréteur."},
    {"gc", collect, 0, 0, "(gc)", "Récupère la mémoire inutilisée."},
    {"vl-load-com", loadExtensions, 0, 0, "(vl-load-com)", "Ne fait rien : les extensions sont toujours chargées."},
};

}  // namespace

std::span<const Builtin> systemFamily() { return kTable; }

}  // namespace atelier::lisp
