// The parts of a list that becomes a result.
#pragma once
#include <initializer_list>
#include <string>
#include <vector>

#include "module/commande/arguments/listeRb.h"

namespace etu {

void ouvrir(plv::listeRb& liste);
void fermer(plv::listeRb& liste);
void ajouterTexte(plv::listeRb& liste, const std::wstring& texte);
void ajouterReels(plv::listeRb& liste, std::initializer_list<double> valeurs);
// The texts between brackets.
void ajouterTextes(plv::listeRb& liste, const std::vector<std::wstring>& textes);

// A list of texts as the result of the running function.
void rendreTextes(const std::vector<std::wstring>& textes);

}  // namespace etu
