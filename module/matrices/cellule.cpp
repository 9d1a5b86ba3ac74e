// The selected row as a place to write in, and the steps that cell writers share.
// The origin is read again at each call: the user may have moved the matrix.
#include "module/matrices/cellule.h"

#include <cmath>
#include <numbers>

#include "module/profil/texteStation.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitGroupes.h"

namespace plv {

cellule::cellule(matriceProfil& m, ligneMatrice& l)
    : matrice(m),
      ligne(l),
      e(m.echelle),
      hh(m.echelle * m.hautCourant),
      hb(m.echelle * m.basCourant),
      ox(m.origineX),
      oy(m.origineY),
      H(l.hauteurLigne) {}

std::optional<cellule> celluleActive() {
  matriceProfil* matrice = collectionMatrices().matriceActive();
  if (!matrice || !matrice->actualiserOrigine()) return std::nullopt;
  ligneMatrice* ligne = matrice->ligneActive();
  if (!ligne) return std::nullopt;
  return cellule(*matrice, *ligne);
}

std::optional<cellule> commencerCellule(ArgsLisp& args) {
  commencerAppel(args);
  return celluleActive();
}

parametresTexte parametresCellule(const cellule& c, double limite) {
  return {.facteur = 1.0, .idStyle = c.matrice.styleTexte, .largeurMax = limite};
}

void grouper(const cellule& c, AcDbObjectId id) {
  if (!id.isNull()) ajouterAuGroupe(c.matrice.idGroupe, id);
}

void tracer(const cellule& c, double x1, double y1, double x2, double y2) {
  AcDbObjectId id;
  dessinerLigne(c.point(x1, y1), c.point(x2, y2), &id, kCouleurDuCalque);
  grouper(c, id);
}

void tracerRepere(const cellule& c, double x) { tracer(c, x, c.hb, x, c.hh); }

void ecrireVertical(const cellule& c, double x, const std::wstring& texte, calage cale, double limite,
                    double ordonnee) {
  if (limite < 0.0) limite = (c.H - 0.8) * c.e;
  if (std::abs(ordonnee) < kToleranceGeometrique) ordonnee = c.hh;
  const AcGePoint3d place = c.point(x + c.e * 0.2, ordonnee - c.e * 0.5);
  parametresTexte parametres = parametresCellule(c, limite);
  AcDbObjectId id;
  const auto ecrire = cale == calage::milieu ? texteCentre : texteDroite;
  ecrire(texte, place, c.e, std::numbers::pi / 2, parametres, &id);
  grouper(c, id);
}

std::wstring texteValeur(const cellule& c, double valeur, int format) {
  std::wstring texte;
  texteStation(valeur, texte, c.ligne.decimales, format);
  return texte;
}

}  // namespace plv
