// Where manholes stand or may stand, and the runs between them: the profile cut up for the search.
#pragma once
#include <vector>

#include "etudes/cout/troncon.h"

namespace etu {

// What is asked about manholes: where they stand, and where more may stand. Both ends of the line have one.
struct demandeRegards {
  std::vector<double> distances;
  double espacement = 0;  // the greatest one; 0: none is added
  double pas = 0;         // places for more are this far apart
};

struct place {
  double distance, sol;       // the higher side of the ground
  limites entree, sortie;     // of the line's altitude, on the left and on the right
  bool oblige, enCroisement;  // below or above a crossing the line goes on at its altitude
};

class etude {
 public:
  etude(const listeSommets& terrain, const demande& d, const demandeRegards& regards);
  const std::vector<place>& places() const { return m_places; }
  const demande& demandee() const { return m_demande; }
  troncon entre(std::size_t gauche, std::size_t droite) const;
  // A run goes from a place to the next one, or to one of those up to this, which it may not: within the greatest spacing, and
  // never past a manhole that has to be.
  std::size_t finDesSuivantes(std::size_t rang) const;
  // Whether the run between two places is as long as it is asked to be.
  bool assezLoin(std::size_t gauche, std::size_t droite) const;

 private:
  const demande& m_demande;
  demandeRegards m_regards;
  couloir m_couloir, m_sol;  // both with a door at every place
  std::vector<place> m_places;
};

}  // namespace etu
