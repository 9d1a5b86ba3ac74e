// trace, untrace, vl-bt and the help of built-in functions.
#include <algorithm>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {

void Interpreter::trace(Value symbol, bool on) {
  std::erase(traced_, symbol.name());
  if (on) traced_.push_back(symbol.name());
  if (traced_.empty()) attention_.fetch_and(~kTracing);
  else attention_.fetch_or(kTracing);
}

bool Interpreter::isTraced(Value function) const {
  return function.isUserSubr() && function.cdr().isSymbol() &&
         std::find(traced_.begin(), traced_.end(), function.cdr().name()) != traced_.end();
}

Value Interpreter::invokeTraced(Value function, Value lambda, Value* first) {
  const std::string name = function.cdr().name();
  const std::string indent(static_cast<std::size_t>(2 * traceDepth_), ' ');
  std::string call = "\n" + indent + "Entering (" + name;
  for (const Value* argument = first; argument != top_; ++argument) call += " " + prin1(*argument);
  console().write(call + ")");
  // The body is called as a list, not by the traced function's name, so that the call is reported once.
  ++traceDepth_;
  struct Leave {
    int& depth;
    ~Leave() { --depth; }
  } const leave{traceDepth_};
  const Value result = invoke(lambda, lambda, first);
  console().write("\n" + indent + "Result: " + prin1(result));
  return result;
}

namespace {

template <bool kOn>
Value traceForm(Interpreter& in, Value rest) {
  Value last = nil;
  for (Value name : Items(rest)) in.trace(last = symbolArgument(in, name), kOn);
  return last;
}

Value backtrace(Interpreter& in, Arguments) {
  std::string text = "\nBacktrace:";
  int level = 0;
  for (Value form : in.callChain()) text += "\n[" + std::to_string(level++) + "] " + prin1(form);
  in.console().write(text + "\n");
  return nil;
}

// Every built-in function as a row of a Markdown table, sorted by name; published functions are left out.
Value helpOfAll(Interpreter& in) {
  std::vector<const Primitive*> all = in.primitives();
  std::erase_if(all, [](const Primitive* p) { return p->external != nullptr; });
  std::sort(all.begin(), all.end(), [](const Primitive* a, const Primitive* b) { return a->name < b->name; });
  std::string text = "| appel | |\n| --- | --- |\n";
  for (const Primitive* p : all) {
    std::string row = "`" + p->signature + "` | " + p->help;
    text += "| " + row + " |\n";
  }
  in.console().write(text);
  return in.quiet();
}

// (aide 'nom): signature and help of a built-in or published function; nil for an unknown name.
Value help(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return helpOfAll(in);
  const Value name = arguments[0];
  const Primitive* primitive =
      in.primitive(name.isString() ? name.text() : std::string_view(symbolArgument(in, name).name()));
  if (!primitive) return nil;
  in.console().write("\n" + primitive->signature + "\n" + primitive->help + "\n");
  return in.quiet();
}

constexpr Builtin kTable[] = {
    {"trace", traceForm<true>, "(trace [fonction...])", "Montre chaque appel des fonctions et son résultat."},
    {"untrace", traceForm<false>, "(untrace [fonction...])", "Ne suit plus les appels des fonctions."},
    {"vl-bt", backtrace, 0, 0, "(vl-bt)", "Affiche la pile des appels en cours."},
    {"aide", help, 0, 1, "(aide ['nom])", "Affiche la signature et l'aide d'une fonction, ou de toutes en un tableau."},
};

}  // namespace

std::span<const Builtin> debuggingFamily() { return kTable; }

}  // namespace atelier::lisp
