// Arguments that functions about networks share: a profile with its rows and its line, texts, lines of points.
#pragma once
#include <vector>

#include "etudes/reponses/listes.h"
#include "etudes/reponses/repondre.h"
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

// An altitude, or nil.
void ajouterOu(plv::listeRb& liste, const std::optional<double>& valeur);

}  // namespace etu
