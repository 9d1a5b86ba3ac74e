// pl_modifpente and pl_modifLongueur: slope and length of a picked straight piece, with the vertical exaggeration taken
// out.
#include <algorithm>
#include <cmath>

#include "hote/acdb.h"
#include "hote/aced.h"
#include "hote/dbpl.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/fonctionsElements.h"
#include "module/profil/grandeurs.h"

namespace plv {

namespace {

constexpr double kPenteVerticale = 1e36;
constexpr int kTaillePrompt = 400;  // a vertical slope in percent has some forty digits

struct morceau {
  AcGePoint2d p1, p2;
  double echelle;
  bool bougeP1;
};

// The number that the user enters, or `defaut` on Enter. False on a cancel.
bool demander(const ACHAR* format, double montre, double& valeur, bool& saisie) {
  wchar_t prompt[kTaillePrompt];
  std::swprintf(prompt, kTaillePrompt, format, montre);
  const int resultat = acedGetReal(prompt, &valeur);
  saisie = resultat == RTNORM;
  return saisie || resultat == RTNONE;
}

bool editerPente(morceau& m) {
  const double dx = m.p2.x - m.p1.x;
  double pente = dx == 0.0 ? kPenteVerticale : (m.p2.y - m.p1.y) / m.echelle / dx;
  double entree = 0;
  bool saisie = false;
  if (!demander(L"\nPente  [%.4f %%]", pente * 100.0, entree, saisie)) return false;
  if (saisie) pente = entree / 100.0;
  const double h = pente * std::abs(dx) * m.echelle;
  const bool versDroite = m.p2.x > m.p1.x;
  if (m.bougeP1) m.p1.y = versDroite ? m.p2.y - h : m.p2.y + h;
  else m.p2.y = versDroite ? m.p1.y + h : m.p1.y - h;
  return true;
}

bool editerLongueur(morceau& m) {
  const double dx = m.p2.x - m.p1.x, dy = (m.p2.y - m.p1.y) / m.echelle;
  double longueur = std::sqrt(dy * dy + dx * dx), entree = 0;
  bool saisie = false;
  if (!demander(L"\nNouvelle longueur [%.4f]", longueur, entree, saisie)) return false;
  if (saisie) longueur = std::abs(entree);
  const double angle = std::atan2(dy, dx);
  const AcGeVector2d ecart(std::cos(angle) * longueur, std::sin(angle) * longueur * m.echelle);
  if (m.bougeP1) m.p1 = m.p2 - ecart;
  else m.p2 = m.p1 + ecart;
  return true;
}

using edition = bool (*)(morceau&);

// The first end moves when it is the farther one from the pick, else the second, also when both are as far.
bool editer(morceau& m, xDessin xPris, edition editerMorceau) {
  m.bougeP1 = std::abs(xPris.valeur - m.p1.x) > std::abs(xPris.valeur - m.p2.x);
  return editerMorceau(m);
}

bool editerLigne(AcDbLine& ligne, xDessin xPris, double echelle, edition editerMorceau) {
  const AcGePoint3d debut = ligne.startPoint(), fin = ligne.endPoint();
  morceau m{{debut.x, debut.y}, {fin.x, fin.y}, echelle, false};
  if (!editer(m, xPris, editerMorceau)) return false;
  ligne.setStartPoint({m.p1.x, m.p1.y, debut.z});
  ligne.setEndPoint({m.p2.x, m.p2.y, fin.z});
  return true;
}

// The first piece above whose extent the pick stands, ends included.
bool editerPolyligne(AcDbPolyline& polyligne, xDessin xPris, double echelle, edition editerMorceau) {
  for (unsigned int i = 1; i < polyligne.numVerts(); ++i) {
    morceau m{{}, {}, echelle, false};
    polyligne.getPointAt(i - 1, m.p1);
    polyligne.getPointAt(i, m.p2);
    if (xPris.valeur < std::min(m.p1.x, m.p2.x) || xPris.valeur > std::max(m.p1.x, m.p2.x)) continue;
    if (!editer(m, xPris, editerMorceau)) return false;
    polyligne.setPointAt(i - 1, m.p1);
    polyligne.setPointAt(i, m.p2);
    return true;
  }
  return false;
}

void boucler(edition editerMorceau) {
  ArgsLisp args;
  args.lireArgs();
  if (!conforme(args, "R")) return;
  const double echelle = valeurReelle(args.tete());
  if (!(echelle > 0.0)) return;
  ads_name nom;
  ads_point pris;
  bool encore = true;
  while (encore && acedEntSel(L"\nSelectionnez element ", nom, pris) == RTNORM) {
    AcDbObjectId id;
    acdbGetObjectId(id, nom);
    AcDbObjectPointer<AcDbCurve> courbe(id, AcDb::kForWrite);
    if (courbe.openStatus() != Acad::eOk) continue;
    if (auto* ligne = AcDbLine::cast(courbe)) encore = editerLigne(*ligne, xDessin(pris[0]), echelle, editerMorceau);
    else if (auto* polyligne = AcDbPolyline::cast(courbe))
      encore = editerPolyligne(*polyligne, xDessin(pris[0]), echelle, editerMorceau);
  }
}

}  // namespace

void pl_modifpente() { boucler(editerPente); }
void pl_modifLongueur() { boucler(editerLongueur); }

}  // namespace plv
