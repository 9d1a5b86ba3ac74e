// Long computations, which call nothing of the host, ask here whether the user wants to stop them.
#pragma once

namespace etu {

// With what a function that the user has stopped ends.
struct arret {};

// Throws arret, or what the host itself throws, when the user wants to stop.
void demanderArret();

}  // namespace etu
