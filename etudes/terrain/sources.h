// The sources of a surface as AutoLISP names them, and the surface that is made of all of them.
// A source is a list of its kind, what it is read from, and words: ("fichier" "x.csv" "echanger" "EPSG:2154").
#pragma once
#include <memory>
#include <string>

#include "etudes/surfaces/cascade.h"
#include "etudes/surfaces/coupeMaillage.h"
#include "etudes/surfaces/limites.h"
#include "etudes/terrain/collecte.h"
#include "hote/adesk.h"

namespace etu {

struct reglesTerrain {
  double tolerance = 0.01;  // of the thinning; 0 keeps all
  double arete = 0;         // the longest edge of a triangle, 0: any
  double pres = 0;          // no surface, but the points within this distance of the axis
  std::string systeme;      // the coordinate system of the axes; empty when it isn't known
  reglesCollecte collecte;
  limites bornes;
};

struct surfaceLue {
  cascade surface;
  std::vector<const coupeMaillage*> maillages;  // those among it that have triangles
  bilanCollecte bilan;
  std::vector<point3> pointsPres;  // with `pres`
  std::vector<std::wstring> remarques;
  std::size_t points = 0, segments = 0, triangles = 0, doubles = 0;
  listeContradictions contradictions;
};

// Reads the options, a list of lists that begins at this node. False for another form.
bool lireRegles(const resbuf* noeud, reglesTerrain& regles);

// Reads the list of sources that begins at this node. False for another form; throws `refus` for a source that can't be used.
bool lireSources(const resbuf* noeud, const reglesTerrain& regles, surfaceLue& lue);

}  // namespace etu
