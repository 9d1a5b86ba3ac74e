// Labels of a row moved along it until none touches the next, the sum of the squares of their displacements being the least.
#pragma once

#include <optional>
#include <vector>

namespace etu {

struct etiquette {
  double centre = 0, largeur = 0;  // where it belongs, and its width with the gap to the next one; drawing units
};

// The centres, in the order of the labels, which need not be sorted; none when they have no room between the two ends.
std::optional<std::vector<double>> ecarter(const std::vector<etiquette>& etiquettes, double gauche, double droite);

struct placeEnRangee {
  int rang = 0;  // of the row, from 0
  double centre = 0;
};

// The same over as few rows as they need, neighbours in different ones; none when one of them is wider than a row.
std::optional<std::vector<placeEnRangee>> ecarterEnRangees(const std::vector<etiquette>& etiquettes, double gauche,
                                                           double droite);

}  // namespace etu
