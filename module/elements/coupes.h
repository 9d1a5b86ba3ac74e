// The pieces of a cut curve take its place in the drawing: the first takes over its identity, the others are new.
// Used where a curve of the drawing is open for writing.
#pragma once
#include "module/support/courbes/kitCourbes.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

// A piece takes the place of the source while that is open, and closes it; otherwise it goes to model space, and its id
// to the list.
inline void placerPiece(courbeOuverte& source, pieceCourbe piece, AcDbObjectIdArray& nouveaux) {
  std::unique_ptr<AcDbCurve> nouvelle(piece.release());
  if (source.presente() && source.remplacer(nouvelle)) source.fermer();
  else ajouterEtRetenir(nouveaux, std::move(nouvelle));
}

}  // namespace plv
