// The summary of a network: by diameter and depth, by the depth of the whole trench and by layers; both make the same sum.
#include <algorithm>
#include <map>

#include "etudes/tranchees/lot.h"

namespace etu {

namespace {

class ecrivain {
 public:
  explicit ecrivain(lotFeuilles& f)
      : m_f(f), m_t(f.lot().t), m_d(m_t, f.lot().q.noms), m_s(*f.synthese), m_n(m_t.regles.nombreDeClasses()) {}

  void ecrire() {
    sommer();
    entetes();
    m_r = kPremiereRangee;
    for (const auto& [nom, s] : m_parDiametre) rangee(nom, s);
    total();
  }

 private:
  struct somme {
    double longueur = 0;
    std::vector<double> parProfondeur, parCouche;
  };

  void sommer() {
    for (const piece& p : m_t.pieces) {
      const ouvrage& o = m_t.ouvrages[p.ouvrage];
      const std::wstring nom = o.estRegard ? L"regard" : L"Ø" + enTexte(m_t.reseau.r.tuyaux[o.rang].diametre);
      somme& s = m_parDiametre[nom];
      s.parProfondeur.resize(m_n), s.parCouche.resize(m_n);
      s.longueur += p.longueur();
      const niveaux n = niveauxDe(p, m_t.regles);
      s.parProfondeur[p.classe] += volumeSous(p, n.haut);
      bouts dessus = n.haut;
      for (std::size_t k = 0; k < n.classes.size(); dessus = n.classes[k++])
        s.parCouche[k] += volumeEntre(p, dessus, n.classes[k]);
      s.parCouche.back() += volumeSous(p, dessus);
    }
  }

  int colonne(std::size_t bloc, std::size_t k) const { return 2 + static_cast<int>(bloc * (m_n + 1) + k); }
  int colonneEgalite() const { return colonne(2, 0); }

  void entetes() {
    m_s.largeur(0, 0, 16);
    m_s.largeur(1, colonneEgalite(), 13);
    m_s.texte(0, 0, m_f.lot().nom + L": fouille par diamètre et profondeur (m3)", m_s.styles().titre);
    m_s.texte(kEntetes, 0, L"diamètre", m_s.styles().entete);
    m_s.texte(kEntetes, 1, L"longueur de tranchée", m_s.styles().entete);
    for (std::size_t k = 0; k < m_n; ++k) {
      m_s.texte(kEntetes, colonne(0, k), L"profondeur " + nomClasse(m_t.regles, k), m_s.styles().entete);
      m_s.texte(kEntetes, colonne(1, k), L"tranche " + nomClasse(m_t.regles, k), m_s.styles().entete);
    }
    m_s.texte(kEntetes, colonne(0, m_n), L"total par profondeur", m_s.styles().entete);
    m_s.texte(kEntetes, colonne(1, m_n), L"total par tranche", m_s.styles().entete);
    m_s.texte(kEntetes, colonneEgalite(), L"les deux sont", m_s.styles().entete);
  }

  std::string pieces(int colonne) const {
    return m_f.decoupe->prefixe() + plageFixe(kPremiereRangee, m_f.dernierePiece(), colonne);
  }

  void rangee(const std::wstring& nom, const somme& s) {
    m_s.texte(m_r, 0, nom, m_s.styles().texte);
    const std::string criteres = pieces(colonnesDecoupe::kDiametre) + "," + celluleFixe(m_r, 0);
    const auto ecrire = [&](int colonne, const std::string& f, double v) {
      m_s.formule(m_r, colonne, f, v, m_s.styles().nombre);
    };
    ecrire(1, "SUMIFS(" + pieces(colonnesDecoupe::kLongueur) + "," + criteres + ")", s.longueur);
    for (std::size_t k = 0; k < m_n; ++k) {
      ecrire(colonne(0, k),
             "SUMIFS(" + pieces(m_d.fouille) + "," + criteres + "," + pieces(colonnesDecoupe::kClasse) + "," +
                 std::to_string(k + 1) + ")",
             s.parProfondeur[k]);
      ecrire(colonne(1, k), "SUMIFS(" + pieces(m_d.couches + static_cast<int>(k)) + "," + criteres + ")",
             s.parCouche[k]);
    }
    sommesEnTravers(s, m_s.styles().nombre);
    ++m_r;
  }

  void sommesEnTravers(const somme& s, lxw_format* style) {
    const auto enTravers = [&](std::size_t bloc, const std::vector<double>& v) {
      double total = 0;
      for (const double x : v) total += x;
      m_s.formule(m_r, colonne(bloc, m_n),
                  "SUM(" + cellule(m_r, colonne(bloc, 0)) + ":" + cellule(m_r, colonne(bloc, m_n - 1)) + ")", total,
                  style);
      return total;
    };
    const double a = enTravers(0, s.parProfondeur), b = enTravers(1, s.parCouche);
    m_s.formuleTexte(m_r, colonneEgalite(),
                     "IF(ROUND(" + cellule(m_r, colonne(0, m_n)) + "-" + cellule(m_r, colonne(1, m_n)) +
                         ",6)=0,\"égaux\",\"différents\")",
                     std::abs(a - b) < 5e-7 ? "égaux" : "différents", m_s.styles().texte);
  }

  void total() {
    somme tout;
    tout.parProfondeur.resize(m_n), tout.parCouche.resize(m_n);
    for (const auto& [nom, s] : m_parDiametre) {
      tout.longueur += s.longueur;
      for (std::size_t k = 0; k < m_n; ++k)
        tout.parProfondeur[k] += s.parProfondeur[k], tout.parCouche[k] += s.parCouche[k];
    }
    m_s.texte(m_r, 0, L"total", m_s.styles().gras);
    const auto enBas = [&](int colonne, double v) {
      m_s.formule(m_r, colonne, "SUM(" + plage(kPremiereRangee, m_r - 1, colonne) + ")", v, m_s.styles().total);
    };
    enBas(1, tout.longueur);
    for (std::size_t k = 0; k < m_n; ++k)
      enBas(colonne(0, k), tout.parProfondeur[k]), enBas(colonne(1, k), tout.parCouche[k]);
    sommesEnTravers(tout, m_s.styles().total);
  }

  lotFeuilles& m_f;
  const tranchees& m_t;
  colonnesDecoupe m_d;
  feuille& m_s;
  std::size_t m_n;
  std::map<std::wstring, somme> m_parDiametre;
  int m_r = 0;
};

}  // namespace

void ecrireSynthese(lotFeuilles& f) { ecrivain(f).ecrire(); }

}  // namespace etu
