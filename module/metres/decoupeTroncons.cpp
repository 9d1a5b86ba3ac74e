// The sweep over terrain and project: cut at every vertex of both, and where the depth crosses the limit of a class.
// Kept as it is: altitudes stay in two variables for the whole sweep, so that a piece without length, which has no
// altitude of its own, takes the one before it.
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

// Kept as it is: the test reads the start of the last piece, so that only a piece that begins anew at the same place
// lengthens it; pieces that follow one another stay apart.
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
    m_x = std::max(m_terrain.GetAt(m_iTerrain).x1, m_projet.GetAt(m_iProjet).x1);
    const double fin = std::min(m_terrain.fin(), m_projet.fin()).valeur;
    m_classe = classeEn(m_x);
    while (m_x < fin && m_iTerrain < m_terrain.GetSize() && m_iProjet < m_projet.GetSize()) passe();
  }

 private:
  Adesk::Int32 classeEn(double x) {
    m_terrain.GetAt(m_iTerrain).YAt(x, m_yTerrain);
    m_projet.GetAt(m_iProjet).YAt(x, m_yProjet);
    return classeDeProfondeur(m_liste, profondeurSous(altitudeVraie(m_yTerrain), altitudeVraie(m_yProjet)));
  }

  // From x to the next end of a piece.
  void passe() {
    const double xt = m_terrain.GetAt(m_iTerrain).x2, xp = m_projet.GetAt(m_iProjet).x2;
    const bool ensemble = std::abs(xt - xp) < kMemeStation;
    const double xn = ensemble ? xt : std::min(xt, xp);
    if (std::abs(m_x - xt) < kMemeStation) {
      ++m_iTerrain;
      return;
    }
    if (std::abs(xp - m_x) < kMemeStation) {
      ++m_iProjet;
      return;
    }
    const Adesk::Int32 suivante = classeEn(xn);
    while (m_classe != suivante) franchir(suivante > m_classe ? 1 : -1);
    ajouter(m_terrain.GetAt(m_iTerrain), 0.0, xn);
    m_x = xn;
    if (ensemble || xt < xp) ++m_iTerrain;
    if (ensemble || xp < xt) ++m_iProjet;
  }

  // Up to the limit of the present class. Kept as it is: an intersection that fails keeps the abscissa of the last one;
  // before the first there is none, and the class changes where the sweep has come to.
  void franchir(Adesk::Int32 pas) {
    const double limite = (pas > 0 ? finDeClasse(m_liste, m_classe) : debutDeClasse(m_liste, m_classe)).valeur;
    LineSeg abaisse = m_terrain.GetAt(m_iTerrain);
    abaisse.y1 -= limite;
    abaisse.y2 -= limite;
    double y = 0;
    if (!m_croise) m_xCroisement = m_x;
    m_croise = intersection(abaisse, m_projet.GetAt(m_iProjet), m_xCroisement, y, true) || m_croise;
    ajouter(abaisse, limite, m_xCroisement);
    m_x = m_xCroisement;
    m_classe += pas;
  }

  // A slice of the present class from x, on the terrain that is lowered by this height.
  void ajouter(const LineSeg& terrain, double abaissement, double jusque) {
    tranche t{m_classe, m_x, jusque, 0, 0, 0, 0};
    const LineSeg& projet = m_projet.GetAt(m_iProjet);
    terrain.YAt(t.x1, m_yTerrain);
    t.terrain1 = m_yTerrain + abaissement;
    terrain.YAt(t.x2, m_yTerrain);
    t.terrain2 = m_yTerrain + abaissement;
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
  double m_x = 0, m_xCroisement = 0;
  double m_yTerrain = 0, m_yProjet = 0;
  bool m_croise = false;
  Adesk::Int32 m_classe = 0;
};

}  // namespace

void couperEnTroncons(const LineSegArrayData& projet, const LineSegArrayData& terrain, const classesProfondeur& liste,
                      ligneTroncons& entree) {
  if (!terrain.IsEmpty()) balayage(projet, terrain, liste, entree).executer();
}

}  // namespace plv
