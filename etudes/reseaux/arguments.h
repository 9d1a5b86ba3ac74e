// Arguments that functions about networks share: a profile with its rows and its line, texts, lines of points; and their results.
#pragma once
#include <vector>

#include "etudes/reseaux/situer.h"
#include "etudes/surfaces/point.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

// Each reads an argument that begins at this node, which then stands after it; false for another form. nil is an empty list.
bool lireTextes(const resbuf*& noeud, rangees& textes);
bool lireLigne(const resbuf*& noeud, std::vector<morceauLigne>& morceaux);
bool lireTexte(const resbuf*& noeud, std::wstring& texte);
bool lireVrai(const resbuf*& noeud);

// The arguments "profile rows line" with which such functions begin.
struct reseauDuProfil {
  ligneDroites terrain, ligne;
  std::wstring numero;
  reseauPose pose;
};
// False when they aren't such arguments. Throws `refus` for what is wrong with the rows.
bool lireReseauDuProfil(const resbuf*& noeud, reseauDuProfil& lu);

void ajouterTexte(plv::listeRb& liste, const std::wstring& texte);
void ajouterReels(plv::listeRb& liste, std::initializer_list<double> valeurs);
// An altitude, or nil.
void ajouterOu(plv::listeRb& liste, const std::optional<double>& valeur);
void ouvrir(plv::listeRb& liste);
void fermer(plv::listeRb& liste);
void rendrePhrase(const std::wstring& texte);

// Runs a handler; a refusal becomes its result, as a text.
template <class Travail>
void repondre(const Travail& travail) {
  try {
    travail();
  } catch (const refus& r) {
    rendrePhrase(r.texte);
  }
}

}  // namespace etu
