// How a published function answers.
#pragma once
#include "etudes/surfaces/point.h"
#include "hote/aced.h"

namespace etu {

// Runs a handler; a refusal becomes its result, as a text.
template <class Travail>
void repondre(const Travail& travail) {
  try {
    travail();
  } catch (const refus& r) {
    acedRetStr(r.texte.c_str());
  }
}

}  // namespace etu
