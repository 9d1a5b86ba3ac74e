// The runs between two places of manholes: which of them the corridor lets pass, and what their trench costs.
// Altitudes are levels of a ladder: a place has a first level and a number of them, a step apart.
#pragma once
#include <vector>

#include "etudes/cout/tarif.h"
#include "etudes/optimal/contraintes.h"

namespace etu {

struct echelle {
  double base = 0;
  int niveaux = 0;
  double altitude(int niveau, double pas) const { return base + niveau * pas; }
};

// What a run has to pass between its ends, by its part t of the way from left (0) to right (1).
struct passage {
  double t;
  limites altitudes;
};
struct obstacle {
  double debut, fin;  // parts of the way
  limites interdit;
};
struct morceauSol {
  double debut, fin;    // parts of the way
  double zDebut, zFin;  // the ground
};
struct troncon {
  double longueur;
  std::vector<passage> passages;
  std::vector<obstacle> obstacles;
  std::vector<morceauSol> sol;
};

// How exactly levels stand for altitudes. With a margin every altitude within it of a level counts for the level. Prices may be those of a line
// that lies higher by so much: with both what is found is a bound for lines of any altitude.
struct finesse {
  double pas;
  double marge = 0;
  double allegement = 0;
};

// The cost of the trench for all levels on the left, at one difference of levels to the right.
class couts {
 public:
  couts(const troncon& t, const prixParProfondeur& prix, const finesse& f) : m_t(t), m_prix(prix), m_finesse(f) {}

  // Levels on the left from `premier`, each with its cost; infinite where the run doesn't pass.
  struct resultat {
    int premier = 0;
    std::vector<double> cout;
  };
  const resultat& pour(const echelle& gauche, const echelle& droite, int ecart);

 private:
  bool borner(const echelle& gauche, double montee, int& premier, int& dernier) const;
  void fermer(const echelle& gauche, double montee);
  void sommer(const echelle& gauche, double montee);
  const troncon& m_t;
  const prixParProfondeur& m_prix;
  finesse m_finesse;
  resultat m_resultat;
  std::vector<double> m_pente, m_constante;
};

}  // namespace etu
