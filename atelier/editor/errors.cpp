// Errors of AutoLISP programs as the user sees them.
// The chain of calls is cut after a few: the innermost ones say where to look.
#include "atelier/editor/builtins.h"

namespace atelier {

std::string errorText(const lisp::Error& error) {
  constexpr std::size_t kMostCalls = 6;
  std::string text = "; erreur: " + error.message();
  // Whoever breaks off knows where.
  if (error.message() == "Function cancelled") return text;
  if (!error.file.empty()) text += " (" + error.file + (error.line > 0 ? ":" + std::to_string(error.line) : "") + ")";
  else if (error.line > 0) text += " (ligne " + std::to_string(error.line) + ")";
  for (std::size_t i = 0; i < error.chain.size() && i < kMostCalls; ++i) {
    std::string call = error.chain[i];
    if (call.size() > 100) call = call.substr(0, 97) + "...";
    text += "\n;   dans " + call;
  }
  return text;
}

}  // namespace atelier
