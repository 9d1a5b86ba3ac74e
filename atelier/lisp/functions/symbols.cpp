// Symbols and types.
#include <algorithm>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

const char* typeName(Type type) {
  switch (type) {
    case Type::Integer: return "INT";
    case Type::Real: return "REAL";
    case Type::String: return "STR";
    case Type::Symbol: return "SYM";
    case Type::List: return "LIST";
    case Type::Subr:
    case Type::SpecialForm: return "SUBR";
    case Type::UserSubr: return "USUBR";
    case Type::External: return "EXRXSUBR";
    case Type::EntityName: return "ENAME";
    case Type::SelectionSet: return "PICKSET";
    case Type::File: return "FILE";
    case Type::ErrorObject: return "VL-CATCH-ALL-APPLY-ERROR";
    case Type::Nil: break;
  }
  return "NIL";
}

Value typeFunction(Interpreter& in, Arguments arguments) { return in.symbol(typeName(arguments[0].type())); }
Value isSymbol(Interpreter& in, Arguments arguments) { return in.boolean(arguments[0].isSymbol()); }
Value symbolName(Interpreter& in, Arguments arguments) { return in.string(symbolArgument(in, arguments[0]).name()); }
Value symbolValue(Interpreter& in, Arguments arguments) { return symbolArgument(in, arguments[0]).symbol()->value; }

Value isBound(Interpreter& in, Arguments arguments) {
  if (!arguments[0]) return nil;
  return in.boolean(static_cast<bool>(symbolArgument(in, arguments[0]).symbol()->value));
}

// The bound symbols, or for each name of the list itself when it is bound and nil when not.
Value atomsFamily(Interpreter& in, Arguments arguments) {
  const bool asStrings = integerArgument(in, arguments[0]) != 0;
  ValueStack found(in);
  const auto add = [&](const std::string& name) { found.push(asStrings ? in.string(name) : in.symbol(name)); };
  if (arguments.size() == 1) {
    std::vector<std::string> names = in.boundNames();
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) add(name);
    return found.list();
  }
  for (Value wanted : Items(listArgument(in, arguments[1]))) {
    const Value symbol = in.symbol(stringArgument(in, wanted));
    if (symbol.isSymbol() && symbol.symbol()->value) add(symbol.name());
    else found.push(nil);
  }
  return found.list();
}

// Each document has its own interpreter; the room that keeps the documents copies the value.
Value propagate(Interpreter& in, Arguments arguments) {
  in.propagate(symbolArgument(in, arguments[0]).name());
  return nil;
}

constexpr Builtin kTable[] = {
    {"type", typeFunction, 1, 1, "(type valeur)", "Le type d'une valeur : INT, REAL, STR, SYM, LIST..., ou nil."},
    {"vl-symbolp", isSymbol, 1, 1, "(vl-symbolp valeur)", "T si la valeur est un symbole."},
    {"vl-symbol-name", symbolName, 1, 1, "(vl-symbol-name symbole)", "Le nom d'un symbole."},
    {"vl-symbol-value", symbolValue, 1, 1, "(vl-symbol-value symbole)", "La valeur d'un symbole."},
    {"vl-propagate", propagate, 1, 1, "(vl-propagate symbole)",
     "Copie la valeur d'un symbole dans les autres dessins ouverts."},
    {"boundp", isBound, 1, 1, "(boundp symbole)", "T si le symbole a une valeur."},
    {"atoms-family", atomsFamily, 1, 2, "(atoms-family format [noms])",
     "Les symboles définis, en symboles (0) ou en chaînes (1)."},
};

}  // namespace

std::span<const Builtin> symbolFamily() { return kTable; }

}  // namespace atelier::lisp
