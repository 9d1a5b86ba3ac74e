// The workbook of networks: bill, summaries, runs, manholes, pieces, rules, checks. Networks stand side by side in the bill.
#pragma once
#include "etudes/tranchees/bordereau.h"

namespace etu {

struct enteteClasseur {
  std::wstring dessin, date;
};

// Writes it whole or not at all, in place of a file of that name; throws `refus`. Gives the articles without a price.
std::vector<std::wstring> ecrireClasseur(const std::wstring& chemin, const std::vector<lotMesure>& lots,
                                         const std::vector<prix>& tarif, const enteteClasseur& entete);

// The articles of all networks, each once, with what there is of it together; no formulas.
std::vector<article> articlesDe(const std::vector<lotMesure>& lots);

}  // namespace etu
