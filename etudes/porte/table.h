// The published functions: a row for each, with its signature and one line of help; docs/etudes.md is made from them.
// To add one: a handler in the room of its subject and a row in table.cpp.
#pragma once
#include <span>

#include "hote/adesk.h"

namespace etu {

struct ligneFonction {
  const ACHAR* nom;
  void (*fonction)();  // gets its arguments from the host and gives it its result
  const ACHAR* appel;  // "(et_nom argument [argument])"
  const ACHAR* aide;   // one line, French
};

std::span<const ligneFonction> tableFonctions();

void publier();
void retirer();
// Runs the function that AutoLISP has called.
void appeler();

}  // namespace etu
