// Distance rows: cumulated and partial distances, a whole row at a call.
// Positions come from the caller; nothing is computed here but sums and differences.
#include <algorithm>
#include <cmath>
#include <vector>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitGroupes.h"

namespace plv {

namespace {

constexpr int kFormatNombre = 0;

// The numbers from this node on, up to the first node that is none.
std::vector<double> suiteDeNombres(const resbuf* rb) {
  std::vector<double> nombres;
  for (; estNombre(rb); rb = rb->rbnext) nombres.push_back(valeurReelle(rb));
  return nombres;
}

// The abscissas of partial distances: two numbers, a point's two or three ordinates, or a list. Empty for the
// rest.
std::vector<double> abscissesPartielles(const ArgsLisp& args) {
  const resbuf* rb = args.tete();
  if (!rb) return {};
  const ads_real* p = rb->resval.rpoint;
  if (rb->restype == RTPOINT) return {p[0], p[1]};
  if (rb->restype == RT3DPOINT) return {p[0], p[1], p[2]};
  if (rb->restype == RTLB) return suiteDeNombres(rb->rbnext);
  return conforme(args, "RR") ? std::vector{valeurReelle(rb), valeurReelle(rb->rbnext)} : std::vector<double>{};
}

// Kept as it is: of two coincident neighbours both are dropped, not one, so that their intervals merge into one; the
// last value of all always stays. A tick that two callers supplied is no tick.
std::vector<double> sansCoincidences(const std::vector<double>& tries) {
  std::vector<double> gardes;
  for (std::size_t i = 0; i + 1 < tries.size();) {
    const bool coincident = std::abs(tries[i + 1] - tries[i]) < kToleranceGeometrique;
    if (!coincident) gardes.push_back(tries[i]);
    i += coincident ? 2 : 1;
  }
  if (gardes.empty() || std::abs(gardes.back() - tries.back()) > kToleranceGeometrique) gardes.push_back(tries.back());
  return gardes;
}

void tracerReperes(const cellule& c, const std::vector<double>& abscisses) {
  AcDbObjectIdArray reperes;
  for (const double x : abscisses) {
    AcDbObjectId id;
    if (dessinerLigne(c.point(x, c.hb), c.point(x, c.hh), &id) == Acad::eOk) reperes.append(id);
  }
  ajouterAuGroupeListe(c.matrice.idGroupe, reperes);
}

void ecrireDistance(const cellule& c, double a, double b) {
  parametresTexte parametres = parametresCellule(c, b - a);
  AcDbObjectId id;
  texteMilieu(texteValeur(c, b - a, kFormatNombre), c.point((a + b) * 0.5, c.milieu()), c.e, 0.0, parametres, &id);
  grouper(c, id);
}

}  // namespace

void pl_CotDcumH() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  const resbuf* abscisses = args.nieme(2);
  if (!c || !conforme(args, "ER") || !abscisses) return;
  std::vector<double> valeurs;
  if (estNombre(abscisses)) valeurs.push_back(valeurReelle(abscisses));
  else if (abscisses->restype == RTLB) valeurs = suiteDeNombres(abscisses->rbnext);
  else return;
  const Adesk::Int32 format = valeurEntiere(args.nieme(0));
  const double origine = valeurReelle(args.nieme(1));
  for (const double p : valeurs)
    ecrireVertical(*c, p + c->e * 0.5, texteValeur(*c, p + origine, format), calage::fin, -1.0, 0.0);
  acedRetT();
}

void pl_CotDParH() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c) return;
  std::vector<double> abscisses = abscissesPartielles(args);
  if (abscisses.empty()) return;
  std::sort(abscisses.begin(), abscisses.end());
  const std::vector<double> gardes = sansCoincidences(abscisses);
  tracerReperes(*c, gardes);
  for (std::size_t i = 0; i + 1 < gardes.size(); ++i) ecrireDistance(*c, gardes[i], gardes[i + 1]);
  acedRetT();
}

}  // namespace plv
