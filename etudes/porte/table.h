// The published functions: a row each, with its signature and one line of help, from which docs/etudes.md is made.
// To add one: a handler in the room of its subject and a row in table.cpp.
#pragma once
#include <span>

#include "hote/adesk.h"

namespace etu {

struct ligneFonction {
  const ACHAR* nom;
  void (*fonction)();  // takes its arguments from the host and hands its result back to it
  const ACHAR* appel;  // "(et_nom argument [argument])"
  const ACHAR* aide;   // one line, French
};

std::span<const ligneFonction> tableFonctions();

void publier();
void retirer();
// Runs the function that AutoLISP has called.
void appeler();

}  // namespace etu
