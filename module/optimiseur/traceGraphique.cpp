// The lines that a search leaves in the drawing while it runs.
// Two counters are the whole of its state.
#include "module/optimiseur/traceGraphique.h"

#include <memory>

#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

Adesk::Int32 compteurTrace = 0;
Adesk::Int32 couleurTrace = 1;

std::unique_ptr<AcDbPolyline> chaineRelevee(const chaineTrace& chaine) {
  auto polyligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(chaine.size()));
  unsigned int i = 0;
  for (const AcGePoint2d& point : chaine) polyligne->addVertexAt(i++, {point.x, point.y + compteurTrace + 1});
  return polyligne;
}

}  // namespace

void recommencerTrace() { compteurTrace = 0; }

void tracerChaine(const chaineTrace& chaine) {
  if (chaine.size() <= 2) return;
  if (baseCourante()) ajouterEspaceObjet(chaineRelevee(chaine));
  ++compteurTrace;
}

void tracerSegment(AcGePoint2d a, AcGePoint2d b) {
  dessinerLigneXY(a.x, a.y, b.x, b.y, nullptr, static_cast<Adesk::UInt16>(couleurTrace));
  ++couleurTrace;
}

}  // namespace plv
