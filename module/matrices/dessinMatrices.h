// The drawing of matrices beneath a profile: for each one a block with the title column, the horizontal
// rules, and the group that everything of the matrix joins.
#pragma once
#include "hote/ge.h"
#include "module/matrices/gestionMatrices.h"

namespace plv {

// Draws every matrix, the first with its upper right title corner at the point less the gap, the others below
// it, two text heights apart, and stores them with the profile. Lengths in drawing units. An older drawing
// stays where it is.
void dessinerMatrices(gestionMatrices& collection, AcDbObjectId profil, const AcGePoint3d& point, double hauteur,
                      double ecart);
// Gives every rule of every matrix that length, from its left end; its absolute value counts, and 1.0 stands
// for 0.
void redimensionnerTraits(const gestionMatrices& collection, double largeur);

}  // namespace plv
