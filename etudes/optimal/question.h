// The arguments of the functions that propose a line: profile, least and greatest depth, both ends, constraints.
#pragma once
#include <string>
#include <vector>

#include "etudes/optimal/contraintes.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/profil/profilLong.h"

namespace etu {

struct question {
  plv::profilLong profil;
  listeSommets terrain;
  demande d;
};
// Sets `noeud` after the constraints. False for arguments that aren't such a question.
bool lireQuestion(const plv::ArgsLisp& args, question& q, const resbuf*& noeud);

// A list of a name and numbers, as constraints and prices are given.
struct ligneNommee {
  std::wstring nom;
  std::vector<double> valeurs;
};
// Reads a list of such lists, or nil, or nothing; moves the node after it.
bool lireLignes(const resbuf*& noeud, std::vector<ligneNommee>& lignes);
// A finite number; moves the node after it.
bool lireNombre(const resbuf*& noeud, double& valeur);

}  // namespace etu
