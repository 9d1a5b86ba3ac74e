// Prices of a trench and its manholes, in any money. Depths are metres from the ground to the line.
#pragma once
#include <limits>
#include <optional>
#include <vector>

namespace etu {

// Down to this depth, and for the last class beyond it, a trench is so wide and a cubic metre of it costs so much.
struct classeFouille {
  double profondeur, largeur, prix;
};

struct tarif {
  std::vector<classeFouille> fouille;                              // by depth
  double seuilBlindage = std::numeric_limits<double>::infinity();  // deeper trenches are shored
  double prixBlindage = 0;                                         // of a square metre; both faces count
  double prixRegard = 0, prixMetreRegard = 0;                      // of a manhole, and of a metre of its depth
  struct chute {
    double prix, hauteur;  // of one, and how high it is at most
  };
  std::optional<chute> chutes;  // without it there are none
  struct pompage {
    double prix, prixMetre;  // of a station, and of a metre of lift
  };
  std::optional<pompage> pompages;
};

// Whether prices are numbers that make sense, and a metre of trench never costs less for being deeper.
bool convient(const tarif& t);

// What a metre of trench costs: for each piece of depth so much for a metre of it, with steps between the pieces. The first
// piece ends at 0, the last one never. A depth at the end of a piece belongs to it.
struct prixParProfondeur {
  std::vector<double> jusque, parMetre;
  explicit prixParProfondeur(const tarif& t);
  // Of a stretch whose depth goes straight from one value to another.
  double de(double longueur, double depart, double arrivee) const;
};

// What a line takes of each thing that has a price.
struct releve {
  std::vector<double> volumes;  // of each class of depth
  double blindage = 0;          // square metres
  double regards = 0, profondeurRegards = 0;
  double chutes = 0;
  double pompages = 0, releve = 0;  // stations, and metres of lift
};
double montant(const releve& r, const tarif& t);
// Adds a stretch of trench whose depth goes straight from one value to another.
void ajouterFouille(releve& r, const tarif& t, double longueur, double depart, double arrivee);

}  // namespace etu
