// The environment, the version, and requests that this interpreter meets by itself.
#include <cstdlib>

#include "atelier/lisp/arguments.h"
#include "atelier/lisp/encoding.h"
#include "atelier/lisp/families.h"
#include "atelier/lisp/session.h"

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

Value version(Interpreter& in, Arguments) {
  return in.string(kVersion);
}

Value collect(Interpreter& in, Arguments) {
  in.heap().collect();
  return nil;
}

// The extensions that the function loads in the reference are always there.
Value loadExtensions(Interpreter& in, Arguments) {
  return in.quiet();
}

constexpr Builtin kTable[] = {
    {"getenv", getEnvironment, 1, 1, "(getenv nom)", "La valeur d'une variable d'environnement, ou nil."},
    {"setenv", setEnvironment, 2, 2, "(setenv nom valeur)",
     "Fixe une variable d'environnement du programme."},
    {"ver", version, 0, 0, "(ver)", "La version de l'interpréteur."},
    {"gc", collect, 0, 0, "(gc)", "Récupère la mémoire inutilisée."},
    {"vl-load-com", loadExtensions, 0, 0, "(vl-load-com)",
     "Ne fait rien : les extensions sont toujours chargées."},
};

}  // namespace

std::span<const Builtin> systemFamily() {
  return kTable;
}

}  // namespace atelier::lisp
