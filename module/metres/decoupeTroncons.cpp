// The sweep over terrain and project: cut at every vertex of both, and where the depth crosses the limit of a class.
// Altitudes stay in two variables for the whole sweep: a piece without length has no altitude of its own, and takes the
// one before it.
#include <algorithm>
#include <cmath>

#include "module/metres/calculMetres.h"

namespace plv {

namespace {

constexpr double kMemeStation = 1e-8;
constexpr double kMemeAltitude = 1e-7;  // of a piece that another one lengthens

struct tranche {
  Adesk::Int32 classe;
  double x1, x2, terrain1, terrain2, projet1, projet2;
};

// The test reads the start of the last piece, so that only a piece that begins anew at the same station lengthens it;
// pieces that follow one another stay apart.
void ajouterPiece(LineSegArrayData& ligne, const LineSeg& piece) {
  if (!ligne.IsEmpty() && ligne.dernier().classe == piece.classe) {
    LineSeg& dernier = ligne.dernier();
    double y = 0;
    if (std::abs(piece.x1 - dernier.x1) < kMemeStation && dernier.YAt(piece.x2, y) &&
        std::abs(piece.y2 - y) < kMemeAltitude) {
      dernier.x2 = piece.x2;
      dernier.y2 = piece.y2;
      return;
    }
  }
  ligne.Add(piece);
}

void ajouterTranche(ligneTroncons& entree, const tranche& t) {
  if (t.classe != entree.classeCourante) {
    entree.troncons.emplace_back(new TranconProfilEnlong);
    entree.classeCourante = t.classe;
  }
  TranconProfilEnlong& troncon = *entree.troncons.back();
  ajouterPiece(*troncon.terrain, {t.x1, t.terrain1, t.x2, t.terrain2, t.classe});
  ajouterPiece(*troncon.projet, {t.x1, t.projet1, t.x2, t.projet2, t.classe});
  // Absolute: a project above the terrain counts too, in the class numbered 0.
  troncon.surface +=
      (std::abs(t.terrain1 - t.projet1) + std::abs(t.terrain2 - t.projet2)) * std::abs(t.x2 - t.x1) * 0.5;
}

class balayage {
 public:
  balayage(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
           ligneTroncons& entree)
      : projet_(projet), terrain_(terrain), liste_(liste), entree_(entree) {}

  void executer() {
    while (terrain_.GetAt(i_).x2 <= projet_.GetAt(0).x1) ++i_;
    while (projet_.GetAt(j_).x2 <= terrain_.GetAt(i_).x1) ++j_;
    x_ = std::max(terrain_.GetAt(i_).x1, projet_.GetAt(j_).x1);
    const double fin = std::min(terrain_.fin(), projet_.fin()).valeur;
    classe_ = classeEn(x_);
    while (x_ < fin && i_ < terrain_.GetSize() && j_ < projet_.GetSize()) passe();
  }

 private:
  Adesk::Int32 classeEn(double x) {
    terrain_.GetAt(i_).YAt(x, yTerrain_);
    projet_.GetAt(j_).YAt(x, yProjet_);
    return classeDeProfondeur(liste_, profondeurSous(altitudeVraie(yTerrain_), altitudeVraie(yProjet_)));
  }

  // From x to the next end of a piece.
  void passe() {
    const double xt = terrain_.GetAt(i_).x2, xp = projet_.GetAt(j_).x2;
    const bool ensemble = std::abs(xt - xp) < kMemeStation;
    const double xn = ensemble ? xt : std::min(xt, xp);
    if (std::abs(x_ - xt) < kMemeStation) {
      ++i_;
      return;
    }
    if (std::abs(xp - x_) < kMemeStation) {
      ++j_;
      return;
    }
    const Adesk::Int32 suivante = classeEn(xn);
    while (classe_ != suivante) franchir(suivante > classe_ ? 1 : -1);
    ajouter(terrain_.GetAt(i_), 0.0, xn);
    x_ = xn;
    if (ensemble || xt < xp) ++i_;
    if (ensemble || xp < xt) ++j_;
  }

  // Up to the limit of the present class. An intersection that fails keeps the abscissa of the last one; before the first
  // there is none, and the class changes where the sweep stands.
  void franchir(Adesk::Int32 pas) {
    const double limite = (pas > 0 ? finDeClasse(liste_, classe_) : debutDeClasse(liste_, classe_)).valeur;
    LineSeg abaisse = terrain_.GetAt(i_);
    abaisse.y1 -= limite;
    abaisse.y2 -= limite;
    double y = 0;
    if (!croise_) xCroisement_ = x_;
    croise_ = intersection(abaisse, projet_.GetAt(j_), xCroisement_, y, true) || croise_;
    ajouter(abaisse, limite, xCroisement_);
    x_ = xCroisement_;
    classe_ += pas;
  }

  // A slice of the present class from x, on the terrain that is lowered by this height.
  void ajouter(const LineSeg& terrain, double abaissement, double jusque) {
    tranche t{classe_, x_, jusque, 0, 0, 0, 0};
    const LineSeg& projet = projet_.GetAt(j_);
    terrain.YAt(t.x1, yTerrain_);
    t.terrain1 = yTerrain_ + abaissement;
    terrain.YAt(t.x2, yTerrain_);
    t.terrain2 = yTerrain_ + abaissement;
    projet.YAt(t.x1, yProjet_);
    t.projet1 = yProjet_;
    projet.YAt(t.x2, yProjet_);
    t.projet2 = yProjet_;
    ajouterTranche(entree_, t);
  }

  const LineSegArrayData& projet_;
  const LineSegArrayData& terrain_;
  const classesProfondeur& liste_;
  ligneTroncons& entree_;
  std::ptrdiff_t i_ = 0, j_ = 0;
  double x_ = 0, xCroisement_ = 0;
  double yTerrain_ = 0, yProjet_ = 0;
  bool croise_ = false;
  Adesk::Int32 classe_ = 0;
};

}  // namespace

void couperEnTroncons(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
                      ligneTroncons& entree) {
  if (!terrain.IsEmpty()) balayage(projet, terrain, liste, entree).executer();
}

}  // namespace plv
