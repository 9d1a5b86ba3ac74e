// et_cotes: what the dimensions of a curve say and where they stand, as pl_cotauto of the first plug-in writes them, without drawing
// anything. Its steps are followed number for number, since figures lie halfway between two texts as often as surveys have millimetres.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "etudes/suivi/fonctions.h"
#include "hote/acdb.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"
#include "module/support/base/nombres.h"
#include "module/support/courbes/kitCourbes.h"

namespace etu {

namespace {

constexpr double kTolerance = 0.0001;     // of a curve's straight pieces
constexpr double kBordPiece = 1e-8;       // an abscissa this near to an end is covered
constexpr double kSansLargeur = 1e-10;    // a piece that gives nothing
constexpr double kEcartTexte = 2.0;       // of a height above its curve, in text heights

struct pieces {
  AcGePoint2dArray debuts, fins;
};

struct cote {
  plv::xDessin x;
  plv::altitudeVraie z;
};

// The first plug-in dimensions curves of these classes only.
bool lireCourbe(AcDbObjectId id, pieces& lues) {
  const AcDbObjectPointer<AcDbCurve> courbe(id);
  if (courbe.openStatus() != Acad::eOk) return false;
  const AcRxClass* classe = courbe->isA();
  if (classe != AcDbLine::desc() && classe != AcDbPolyline::desc() && classe != AcDb2dPolyline::desc() &&
      classe != AcDbSpline::desc())
    return false;
  plv::segmentsCourbe(*courbe, lues.debuts, lues.fins, kTolerance);
  return true;
}

// The vertices of a polyline in a list that begins at this node, which moves behind it.
bool lireSommets(const resbuf*& noeud, pieces& lues) {
  const resbuf* avant = nullptr;
  for (noeud = noeud->rbnext; noeud && plv::estPoint(noeud); noeud = noeud->rbnext) {
    const AcGePoint3d p = plv::valeurPoint(noeud);
    if (avant) {
      const AcGePoint3d a = plv::valeurPoint(avant);
      lues.debuts.append(AcGePoint2d(a.x, a.y));
      lues.fins.append(AcGePoint2d(p.x, p.y));
    }
    avant = noeud;
  }
  return noeud && noeud->restype == RTLE;
}

void mettreEnAltitude(pieces& lues, const plv::profilLong& profil, plv::altitudeVraie reference) {
  for (AcGePoint2dArray* points : {&lues.debuts, &lues.fins})
    for (AcGePoint2d& p : *points) p.y = profil.altitudeDeY(plv::yDessin(p.y), reference).valeur;
  plv::ordonnerSegments(lues.debuts, lues.fins);
  plv::trierSegments(lues.debuts, lues.fins);
}

// One for each ground abscissa that the pieces cover.
std::vector<cote> cotesAuTerrain(const pieces& lues, const plv::profilLong& profil) {
  std::vector<cote> cotes;
  for (int i = 0; i < lues.debuts.length(); ++i) {
    const AcGePoint2d &a = lues.debuts[i], &b = lues.fins[i];
    const double largeur = b.x - a.x;
    if (!(std::abs(largeur) >= kSansLargeur)) continue;
    for (const double d : profil.distTn) {
      const double x = d + profil.position.x;
      if (x < a.x - kBordPiece || x > b.x + kBordPiece || (!cotes.empty() && x <= cotes.back().x.valeur)) continue;
      cotes.push_back({plv::xDessin(x), plv::altitudeVraie(a.y + (x - a.x) / largeur * (b.y - a.y))});
    }
  }
  return cotes;
}

std::wstring avecSigne(double valeur) {
  const std::wstring texte = plv::texteFixe(valeur, 2);
  return texte.front() == L'-' ? texte : L'+' + texte;
}

}  // namespace

void et_cotes() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  plv::profilLong profil;
  pieces lues;
  const resbuf* noeud = args.nieme(0);
  if (!plv::estNom(noeud) || !profil.lireId(plv::valeurId(noeud)) || !(noeud = noeud->rbnext)) return;
  if (!(plv::estNom(noeud) ? lireCourbe(plv::valeurId(noeud), lues) : noeud->restype == RTLB && lireSommets(noeud, lues)))
    return;
  noeud = noeud->rbnext;
  if (!noeud || !plv::estNombre(noeud)) return;
  const plv::altitudeVraie reference =
      profil.altitudeSection(profil.indexPc(plv::xDessin(plv::valeurReelle(noeud))));
  mettreEnAltitude(lues, profil, reference);
  plv::listeRb liste(acutBuildList(RTLB, 0));
  for (const cote& c : cotesAuTerrain(lues, profil)) {
    const plv::altitudeVraie terrain = profil.altitudeTn(c.x);
    const double y = profil.yDe(std::max(terrain, c.z), reference).valeur + kEcartTexte * profil.hauteurTexte;
    liste.ajouter(acutBuildList(RTLB, RTREAL, c.x.valeur, RTREAL, y, RTSTR, plv::texteFixe(c.z.valeur, 2).c_str(),
                                RTSTR, avecSigne(c.z - terrain).c_str(), RTLE, 0));
  }
  if (!liste.tete()->rbnext) return;
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace etu
