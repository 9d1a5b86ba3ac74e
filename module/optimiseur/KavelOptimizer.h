// KavelOptimizer: the search for a project line of few vertices that keeps between two depths below ground.
//
// A straight run from A to B is accepted when every ground point between has its depth within the band; otherwise it
// is broken at the ground point with the worst score, at a new vertex in the middle of the band below that point, and
// both halves are treated alike. It is recursive splitting in the manner of line simplification (Ramer, 1972,
// https://doi.org/10.1016/S0146-664X(72)80017-0; Douglas and Peucker, 1973), with depths in place of distances;
// no total cost is minimised.
//
// Points are abscissa and altitude, in drawing units and metres; the ground comes in order of increasing abscissa.
// Nothing here needs a drawing: without one the search leaves no trace graphics.
#pragma once
#include <cmath>
#include <vector>

#include "hote/adesk.h"
#include "hote/ge.h"
#include "module/optimiseur/traceGraphique.h"

namespace plv {

// Indices of ground points, both included.
struct intervalleIndices {
  Adesk::Int32 premier, dernier;
};

using pointsTerrain = AcGePoint2dArray;

// The straight line of one run, its ends in the order of their abscissas.
struct segmentOptimum {
  double x1, y1, x2, y2;

  segmentOptimum(AcGePoint2d a, AcGePoint2d b)
      : x1(a.x > b.x ? b.x : a.x), y1(a.x > b.x ? b.y : a.y), x2(a.x > b.x ? a.x : b.x), y2(a.x > b.x ? a.y : b.y) {}

  // False for an upright segment, which has no ordinate. Outside its ends the segment is prolonged, unless it is asked
  // for bounded.
  bool ordonneeSur(double x, double& y, bool borne = false) const {
    constexpr double kVertical = 1e-8, kRapportMin = -1e-12, kRapportMax = 1.000000000001;
    if (std::abs(x2 - x1) < kVertical) return false;
    const double rapport = (x - x1) / (x2 - x1);
    if (borne && (rapport < kRapportMin || rapport > kRapportMax)) return false;
    y = (y2 - y1) * rapport + y1;
    return true;
  }
};

class KavelOptimizerBase {
 public:
  virtual void optimiserIntervalle(intervalleIndices intervalle, const pointsTerrain& terrain, AcGePoint2d a,
                                   AcGePoint2d b, chaineTrace& chaine) = 0;
  virtual void optimiser(const pointsTerrain& terrain, AcGePoint2d a, AcGePoint2d b, chaineTrace& chaine) = 0;
  virtual bool intervalleAcceptable(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b,
                                    const pointsTerrain& terrain) = 0;
  virtual void pointLePlusMauvais(intervalleIndices intervalle, AcGePoint2d& point, Adesk::Int32& indice, AcGePoint2d a,
                                  AcGePoint2d b, const pointsTerrain& terrain) = 0;
  virtual void decouper(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b, const pointsTerrain& terrain,
                        AcGePoint2d& milieu, intervalleIndices& gauche, intervalleIndices& droite) = 0;

 protected:
  ~KavelOptimizerBase() = default;
};

class KavelOptimizer : public KavelOptimizerBase {
 public:
  // Depths in metres below ground, the lesser first; a negative one is a rise above the ground.
  KavelOptimizer(double minimum, double maximum);

  // Appends the run of one range to the chain. Kept as it is: two neighbouring points give A and B always, so that the
  // end of an earlier run is repeated; an accepted run leaves out what lies within 1e-6 of the end of the chain.
  void optimiserIntervalle(intervalleIndices intervalle, const pointsTerrain& terrain, AcGePoint2d a, AcGePoint2d b,
                           chaineTrace& chaine) override;
  // The whole ground. Kept as it is: the first and the last of its points are never tested; points outside A to B are
  // tested against the prolongation of a run.
  void optimiser(const pointsTerrain& terrain, AcGePoint2d a, AcGePoint2d b, chaineTrace& chaine) override;
  // The bounds themselves are acceptable.
  bool intervalleAcceptable(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b,
                            const pointsTerrain& terrain) override;
  // Index -1, and no point, when no point has a score.
  void pointLePlusMauvais(intervalleIndices intervalle, AcGePoint2d& point, Adesk::Int32& indice, AcGePoint2d a,
                          AcGePoint2d b, const pointsTerrain& terrain) override;
  void decouper(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b, const pointsTerrain& terrain,
                AcGePoint2d& milieu, intervalleIndices& gauche, intervalleIndices& droite) override;

 private:
  struct course {
    intervalleIndices intervalle;
    const pointsTerrain* terrain;
    AcGePoint2d a, b;
    chaineTrace* chaine;
  };
  void traiter(const course& cette);
  void viderAttente();

  double profondeurMax, profondeurMin;
  // The halves that are still to be treated, the next one last. The two calls of a broken run are the last thing that
  // it does, so they wait here for their turn: a ground can break a run at every one of its points, and no stack is
  // that deep.
  std::vector<course> m_enAttente;
  bool m_enCours = false;
};

}  // namespace plv
