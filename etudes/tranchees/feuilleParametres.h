// The sheet of the rules: each number in a cell of its own, to which the formulas of the other sheets refer.
#pragma once
#include <vector>

#include "etudes/tranchees/feuille.h"
#include "etudes/tranchees/types.h"

namespace etu {

// Names of cells as formulas of other sheets have them.
struct cellulesPalier {
  std::string jusque, valeur;  // `jusque` is a number beyond all others where there is no limit
};
struct cellulesType {
  std::vector<cellulesPalier> parDiametre;
  std::string profondeurs, largeurs;  // ranges by depth; empty without any
  std::string lit, surprofondeur, enrobage;
  std::string talusProfondeur, talusFruit, talusDroite;  // empty without a batter
  std::string soutienProfondeur, soutienRapport, soutienFruit;
  std::vector<std::string> remblais;  // thicknesses; empty for the last one
  std::string debord, litRegard, radier;
};
struct cellulesParametres {
  std::vector<std::string> foisonnements, classes;  // one cell each
  std::string plageClasses;
  std::vector<cellulesType> types;
  std::vector<std::vector<std::string>> structures;  // thicknesses by surface
};

cellulesParametres ecrireParametres(feuille& f, const reglesTranchees& regles);

}  // namespace etu
