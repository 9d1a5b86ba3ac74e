// The sweep over terrain and project: cut at every vertex of both, and where the depth crosses the limit of a class.
// Kept as it is: altitudes stay in two variables for the whole sweep, so that a piece without length, which has no
// altitude of its own, takes the one before it.
#include <algorithm>
#include <cmath>

#include "module/metres/calculMetres.h"

namespace plv {

namespace {

constexpr double kMemeDistance = 1e-8;
constexpr double kMemeAltitude = 1e-7;  // of a piece that another one lengthens

struct tranche {
  Adesk::Int32 classe;
  distanceProfil x1, x2;
  altitudeVraie terrain1, terrain2, projet1, projet2;
};

LineSeg piece(const tranche& t, altitudeVraie y1, altitudeVraie y2) {
  return {t.x1.valeur, y1.valeur, t.x2.valeur, y2.valeur, t.classe};
}

// Kept as it is: the test reads the start of the last piece, so that only a piece that begins anew at the same place
// lengthens it; pieces that follow one another stay apart.
void ajouterPiece(LineSegArrayData& ligne, const LineSeg& nouvelle) {
  if (!ligne.IsEmpty() && ligne.dernier().classe == nouvelle.classe) {
    LineSeg& dernier = ligne.dernier();
    altitudeVraie y;
    if (std::abs(nouvelle.x1 - dernier.x1) < kMemeDistance && dernier.YAt(distanceProfil(nouvelle.x2), y) &&
        std::abs(nouvelle.y2 - y.valeur) < kMemeAltitude) {
      dernier.x2 = nouvelle.x2;
      dernier.y2 = nouvelle.y2;
      return;
    }
  }
  ligne.Add(nouvelle);
}

void ajouterTranche(ligneTroncons& entree, const tranche& t) {
  if (t.classe != entree.classeCourante) {
    entree.troncons.emplace_back(new TranconProfilEnlong);
    entree.classeCourante = t.classe;
  }
  TranconProfilEnlong& troncon = *entree.troncons.back();
  ajouterPiece(*troncon.terrain, piece(t, t.terrain1, t.terrain2));
  ajouterPiece(*troncon.projet, piece(t, t.projet1, t.projet2));
  // Absolute: a project above the terrain counts too, in class 0.
  troncon.surface +=
      (std::abs(t.terrain1 - t.projet1) + std::abs(t.terrain2 - t.projet2)) * std::abs(t.x2 - t.x1) * 0.5;
}

class balayage {
 public:
  balayage(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
           ligneTroncons& entree)
      : m_projet(projet), m_terrain(terrain), m_liste(liste), m_entree(entree) {}

  void executer() {
    while (m_terrain.GetAt(m_iTerrain).x2 <= m_projet.GetAt(0).x1) ++m_iTerrain;
    while (m_projet.GetAt(m_iProjet).x2 <= m_terrain.GetAt(m_iTerrain).x1) ++m_iProjet;
    m_x = distanceProfil(std::max(m_terrain.GetAt(m_iTerrain).x1, m_projet.GetAt(m_iProjet).x1));
    const distanceProfil fin = std::min(m_terrain.fin(), m_projet.fin());
    m_classe = classeEn(m_x);
    while (m_x < fin && m_iTerrain < m_terrain.GetSize() && m_iProjet < m_projet.GetSize()) passe();
  }

 private:
  Adesk::Int32 classeEn(distanceProfil x) {
    m_terrain.GetAt(m_iTerrain).YAt(x, m_yTerrain);
    m_projet.GetAt(m_iProjet).YAt(x, m_yProjet);
    return classeDeProfondeur(m_liste, profondeurSous(m_yTerrain, m_yProjet));
  }

  // From x to the next end of a piece.
  void passe() {
    const distanceProfil xt(m_terrain.GetAt(m_iTerrain).x2), xp(m_projet.GetAt(m_iProjet).x2);
    const bool ensemble = std::abs(xt - xp) < kMemeDistance;
    const distanceProfil xn = ensemble ? xt : std::min(xt, xp);
    if (std::abs(m_x - xt) < kMemeDistance) {
      ++m_iTerrain;
      return;
    }
    if (std::abs(xp - m_x) < kMemeDistance) {
      ++m_iProjet;
      return;
    }
    const Adesk::Int32 suivante = classeEn(xn);
    while (m_classe != suivante) franchir(suivante > m_classe ? 1 : -1, xn);
    ajouter(m_terrain.GetAt(m_iTerrain), 0.0, xn);
    m_x = xn;
    if (ensemble || xt < xp) ++m_iTerrain;
    if (ensemble || xp < xt) ++m_iProjet;
  }

  // Up to the limit of the present class, which is met before xn.
  void franchir(Adesk::Int32 pas, distanceProfil xn) {
    const profondeurFouille limite = pas > 0 ? finDeClasse(m_liste, m_classe) : debutDeClasse(m_liste, m_classe);
    LineSeg abaisse = m_terrain.GetAt(m_iTerrain);
    abaisse.y1 -= limite.valeur;
    abaisse.y2 -= limite.valeur;
    croiser(abaisse, limite, xn);
    ajouter(abaisse, limite.valeur, m_xCroisement);
    m_x = m_xCroisement;
    m_classe += pas;
  }

  // Where the depth is the limit: at an end of this part of the sweep whose depth counts as the limit, for lines that meet there to
  // the last digits only may have no intersection. Kept as it is: an intersection that fails keeps the abscissa of the last
  // one; before the first there is none, and the class changes where the sweep has come to.
  void croiser(const LineSeg& abaisse, profondeurFouille limite, distanceProfil xn) {
    if (!m_croise) m_xCroisement = m_x;
    altitudeVraie y;
    if (estSurLimite(profondeurEn(m_x), limite)) m_xCroisement = m_x;
    else if (estSurLimite(profondeurEn(xn), limite)) m_xCroisement = xn;
    else if (!intersection(abaisse, m_projet.GetAt(m_iProjet), m_xCroisement, y, true)) return;
    m_croise = true;
  }

  profondeurFouille profondeurEn(distanceProfil x) const {
    altitudeVraie terrain = m_yTerrain, projet = m_yProjet;
    m_terrain.GetAt(m_iTerrain).YAt(x, terrain);
    m_projet.GetAt(m_iProjet).YAt(x, projet);
    return profondeurSous(terrain, projet);
  }

  // A slice of the present class from x, on the terrain that is lowered by this height.
  void ajouter(const LineSeg& terrain, double abaissement, distanceProfil jusque) {
    tranche t{m_classe, m_x, jusque, {}, {}, {}, {}};
    const LineSeg& projet = m_projet.GetAt(m_iProjet);
    terrain.YAt(t.x1, m_yTerrain);
    t.terrain1 = altitudeVraie(m_yTerrain.valeur + abaissement);
    terrain.YAt(t.x2, m_yTerrain);
    t.terrain2 = altitudeVraie(m_yTerrain.valeur + abaissement);
    projet.YAt(t.x1, m_yProjet);
    t.projet1 = m_yProjet;
    projet.YAt(t.x2, m_yProjet);
    t.projet2 = m_yProjet;
    ajouterTranche(m_entree, t);
  }

  const LineSegArrayData& m_projet;
  const LineSegArrayData& m_terrain;
  const classesProfondeur& m_liste;
  ligneTroncons& m_entree;
  std::ptrdiff_t m_iTerrain = 0, m_iProjet = 0;
  distanceProfil m_x, m_xCroisement;
  altitudeVraie m_yTerrain, m_yProjet;
  bool m_croise = false;
  Adesk::Int32 m_classe = 0;
};

}  // namespace

void couperEnTroncons(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
                      ligneTroncons& entree) {
  if (!terrain.IsEmpty()) balayage(projet, terrain, liste, entree).executer();
}

}  // namespace plv
