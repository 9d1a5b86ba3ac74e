// Articles of a bill: what is paid, in which unit, how much of it in each run, at which price.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "etudes/tranchees/lot.h"

namespace etu {

struct article {
  std::wstring designation, unite;
  std::function<std::string(std::size_t troncon)> formule;  // on the sheet of the run
  std::vector<double> quantites;                            // by run
  double total() const;
};

// Those of which there is something, in the order of a bill.
std::vector<article> articlesDe(const lotFeuilles& f);

struct prix {
  std::wstring designation, unite;
  std::optional<double> valeur;
};
// Rows "designation;unit;price"; throws `refus`. An empty price is one that isn't known yet.
std::vector<prix> lirePrix(const rangees& textes);
// In any case of letters; none without it or without a price.
std::optional<double> prixDe(const std::vector<prix>& liste, const std::wstring& designation);

}  // namespace etu
