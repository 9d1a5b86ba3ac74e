// The sheet of a run: a row for each pipe and manhole, from the first one to the last, and their sums.
#include <algorithm>
#include <cmath>

#include "etudes/tranchees/lot.h"

namespace etu {

namespace {

using C = colonnesTroncon;

class ecrivain {
 public:
  ecrivain(lotFeuilles& f, std::size_t troncon)
      : m_f(f),
        m_t(f.lot().t),
        m_noms(f.lot().q.noms),
        m_d(m_t, m_noms),
        m_s(f.troncons[troncon]),
        m_troncon(troncon),
        m_colonnes(colonnesDe(m_t.regles, m_noms)) {}

  void ecrire() {
    entetes();
    for (const ligneTroncon& l : m_f.lignes())
      if (l.troncon == m_troncon) rangee(l);
    totaux();
  }

 private:
  std::string ici(int colonne) const { return cellule(m_r, colonne); }
  void formule(int colonne, const std::string& f, double v) { m_s.formule(m_r, colonne, f, v, m_s.styles().nombre); }
  void nombre(int colonne, double v) { m_s.nombre(m_r, colonne, v, m_s.styles().nombre); }

  void entetes() {
    constexpr const wchar_t* kTitres[] = {L"ouvrage",
                                          L"désignation",
                                          L"diamètre intérieur",
                                          L"diamètre extérieur",
                                          L"station de",
                                          L"station à",
                                          L"fil d'eau de",
                                          L"fil d'eau à",
                                          L"pente",
                                          L"longueur en plan",
                                          L"en pente",
                                          L"posée",
                                          L"profondeur du regard",
                                          L"chute",
                                          L"fouille: profondeur moindre",
                                          L"moyenne",
                                          L"plus grande"};
    m_s.largeur(0, 1, 24);
    m_s.largeur(2, C::quantite(m_colonnes.size()), 11);
    m_s.figer(kPremiereRangee, 1);
    m_s.texte(0, 0, m_f.lot().nom + L": tuyaux et regards (m, m2, m3)", m_s.styles().titre);
    for (int k = 0; k < C::kQuantites; ++k) m_s.texte(kEntetes, k, kTitres[k], m_s.styles().entete);
    for (std::size_t k = 0; k < m_colonnes.size(); ++k)
      m_s.texte(kEntetes, C::quantite(k), m_colonnes[k].titre + L" (" + m_colonnes[k].unite + L")",
                m_s.styles().entete);
    m_s.texte(kEntetes, colonneEcart(), L"Écart à l'identité", m_s.styles().entete);
  }
  int colonneEcart() const { return C::quantite(m_colonnes.size()); }

  void rangee(const ligneTroncon& l) {
    m_r = l.rangee;
    const reseauPose& r = m_t.reseau;
    m_s.texte(m_r, C::kOuvrage, l.estTuyau ? r.nomTuyau(l.rang) : r.r.regards[l.rang].nom, m_s.styles().texte);
    m_s.texte(m_r, C::kDesignation,
              l.estTuyau ? designationTuyau(r.r.tuyaux[l.rang]) : designationRegard(r.r.regards[l.rang]),
              m_s.styles().texte);
    if (l.estTuyau) tuyau(l);
    else regard(l);
    if (!l.ouvrage) return;
    const auto [premiere, derniere] = m_f.rangeesPieces(*l.ouvrage);
    m_sommes = &m_f.lot().q.parOuvrage[*l.ouvrage];
    if (derniere >= premiere) profondeurs(premiere, derniere);
    quantites(l, premiere, derniere);
  }

  void tuyau(const ligneTroncon& l) {
    const etu::tuyau& t = m_t.reseau.r.tuyaux[l.rang];
    const tuyauPose& p = m_t.reseau.tuyaux[l.rang];
    const sommes& s = m_f.lot().q.parOuvrage[*l.ouvrage];
    const auto duRegard = [&](std::size_t i, int colonne) {
      return m_f.regards->ailleurs(m_f.rangeeRegard(i), colonne);
    };
    nombre(C::kInterieur, t.diametre.interieur);
    nombre(C::kExterieur, t.diametre.exterieur);
    formule(C::kDebut, duRegard(t.de, colonnesRegards::kStation), p.debut);
    formule(C::kFin, duRegard(t.de + 1, colonnesRegards::kStation), p.fin);
    formule(C::kRadierDebut, duRegard(t.de, colonnesRegards::kDepart), p.zDebut);
    formule(C::kRadierFin, duRegard(t.de + 1, colonnesRegards::kArrivee), p.zFin);
    m_s.formule(
        m_r, C::kPente,
        "(" + ici(C::kRadierFin) + "-" + ici(C::kRadierDebut) + ")/(" + ici(C::kFin) + "-" + ici(C::kDebut) + ")",
        p.pente(), m_s.styles().fin);
    formule(C::kEnPlan, ici(C::kFin) + "-" + ici(C::kDebut), s.enPlan);
    formule(C::kEnPente, "SQRT(" + ici(C::kEnPlan) + "^2+(" + ici(C::kRadierFin) + "-" + ici(C::kRadierDebut) + ")^2)",
            s.enPente);
    formule(C::kPosee,
            "(" + ici(C::kEnPlan) + "-" + duRegard(t.de, colonnesRegards::kExterieur) + "/2-" +
                duRegard(t.de + 1, colonnesRegards::kExterieur) + "/2)*" + ici(C::kEnPente) + "/" + ici(C::kEnPlan),
            s.posee);
  }

  void regard(const ligneTroncon& l) {
    const regardPose& p = m_t.reseau.regards[l.rang];
    const auto ailleurs = [&](int colonne) { return m_f.regards->ailleurs(m_f.rangeeRegard(l.rang), colonne); };
    formule(C::kInterieur, ailleurs(colonnesRegards::kInterieur), m_t.reseau.r.regards[l.rang].diametre.interieur);
    formule(C::kExterieur, ailleurs(colonnesRegards::kExterieur), m_t.reseau.r.regards[l.rang].diametre.exterieur);
    formule(C::kDebut, ailleurs(colonnesRegards::kStation), p.station);
    formule(C::kFin, ailleurs(colonnesRegards::kStation), p.station);
    formule(C::kProfRegard, ailleurs(colonnesRegards::kProfondeur), p.tampon - p.fond);
    formule(C::kChute, ailleurs(colonnesRegards::kChute), p.arrivee && p.depart ? std::abs(*p.arrivee - *p.depart) : 0);
  }

  std::string pieces(int premiere, int derniere, int colonne) const {
    return m_f.decoupe->prefixe() + plageFixe(premiere, derniere, colonne);
  }

  void profondeurs(int premiere, int derniere) {
    const auto p = [&](int colonne) { return pieces(premiere, derniere, colonne); };
    double longueur = 0, moment = 0;
    for (int r = premiere; r <= derniere; ++r) {
      const piece& morceau = m_t.pieces[static_cast<std::size_t>(r - kPremiereRangee)];
      longueur += morceau.longueur();
      moment += morceau.longueur() * arrondi(morceau.profondeurMoyenne());
    }
    formule(C::kProfMin, "MIN(" + p(colonnesDecoupe::kProfDebut) + "," + p(colonnesDecoupe::kProfFin) + ")",
            m_sommes->profondeurMin);
    formule(C::kProfMoyenne,
            "SUMPRODUCT(" + p(colonnesDecoupe::kLongueur) + "," + p(colonnesDecoupe::kProfMoyenne) + ")/SUM(" +
                p(colonnesDecoupe::kLongueur) + ")",
            moment / longueur);
    formule(C::kProfMax, "MAX(" + p(colonnesDecoupe::kProfDebut) + "," + p(colonnesDecoupe::kProfFin) + ")",
            m_sommes->profondeurMax);
  }

  // --- quantities, in the order of colonnesDe

  void quantites(const ligneTroncon& l, int premiere, int derniere) {
    m_k = 0;
    const bool vide = derniere < premiere;
    const auto somme = [&](int colonne) {
      return vide ? std::string("0") : "SUM(" + pieces(premiere, derniere, colonne) + ")";
    };
    const auto duRegard = [&](int colonne) {
      return l.estTuyau ? std::string() : "-" + m_f.regards->ailleurs(m_f.rangeeRegard(l.rang), colonne);
    };
    const auto serie = [&](int premier, std::size_t nombre) {
      for (std::size_t k = 0; k < nombre; ++k) suivante(somme(premier + static_cast<int>(k)));
    };
    const auto& regles = m_t.regles;
    suivante(somme(m_d.fouille));
    serie(m_d.sols, regles.sols.size());
    suivante(somme(m_d.lit));
    const int tuyau = C::quantite(m_k + 1);
    suivante(somme(m_d.enrobage) + (l.estTuyau ? "-" + ici(tuyau) : ""));
    suivante(l.estTuyau ? tuyauDansLaTranchee(*l.ouvrage) : duRegard(colonnesRegards::kTuyaux).substr(1));
    suivante(l.estTuyau ? "0" : duRegard(colonnesRegards::kVolume).substr(1));
    const std::size_t remblais = m_k;
    for (std::size_t k = 0; k < m_noms.remblais.size(); ++k)
      suivante(somme(m_d.remblais + static_cast<int>(k)) + duRegard(colonnesRegards::remblai(k)) +
               (dernierRemblai(l, k) ? "-" + ici(tuyau) : ""));
    for (std::size_t k = 0; k < m_noms.structures.size(); ++k)
      suivante(somme(m_d.structures + static_cast<int>(k)) + duRegard(colonnesRegards::structure(m_noms, k)));
    for (std::size_t k = 0; k < regles.revetements.size(); ++k)
      suivante(somme(m_d.surfaces + static_cast<int>(k)) +
               (surfaceDuRegard(l, k) ? duRegard(colonnesRegards::kCouvercle) : ""));
    for (std::size_t k = 0; k < regles.nombreDeClasses(); ++k)
      suivante(vide ? "0"
                    : "SUMIF(" + pieces(premiere, derniere, colonnesDecoupe::kClasse) + "," + std::to_string(k + 1) +
                          "," + pieces(premiere, derniere, m_d.fouille) + ")");
    serie(m_d.couches, regles.nombreDeClasses());
    suivante(somme(m_d.blindage));
    evacuation(remblais);
    ecart(remblais, tuyau);
  }

  void suivante(const std::string& f) {
    formule(C::quantite(m_k), f, m_colonnes[m_k].valeur(*m_sommes));
    ++m_k;
  }

  std::string tuyauDansLaTranchee(std::size_t ouvrage) const {
    const etu::tuyau& t = m_t.reseau.r.tuyaux[m_t.ouvrages[ouvrage].rang];
    std::string longueur = ici(C::kEnPlan);
    for (const std::size_t i : {t.de, t.de + 1})
      if (m_t.reseau.r.regards[i].diametre.exterieur > 0)
        longueur += "-" + m_f.regards->ailleurs(m_f.rangeeRegard(i), colonnesRegards::kLongueur) + "/2";
    return "PI()*" + ici(C::kExterieur) + "^2/4*(" + longueur + ")*" + ici(C::kEnPente) + "/" + ici(C::kEnPlan);
  }

  const partie& regleDe(const ligneTroncon& l) const { return pieceDeLAxe(m_t, *l.ouvrage).regle; }
  // Whether it is the fill in which the pipes of a pit lie.
  bool dernierRemblai(const ligneTroncon& l, std::size_t k) const {
    return !l.estTuyau && m_t.regles.types[regleDe(l).type].remblais.back().nom == m_noms.remblais[k].nom;
  }
  bool surfaceDuRegard(const ligneTroncon& l, std::size_t k) const { return !l.estTuyau && regleDe(l).revetement == k; }

  void evacuation(std::size_t remblais) {
    std::string reemploi = "0", foisonne;
    for (std::size_t k = 0; k < m_noms.remblais.size(); ++k)
      if (m_noms.remblais[k].reemploi) reemploi += "+" + ici(C::quantite(remblais + k));
    const std::string lesDeblais = ici(C::quantite(m_k));
    suivante(reemploi);
    suivante(ici(C::quantite(0)) + "-" + lesDeblais);
    for (std::size_t k = 0; k < m_t.regles.sols.size(); ++k)
      foisonne += (k == 0 ? "" : "+") + m_f.cellules.foisonnements[k] + "*" + ici(C::quantite(1 + k));
    suivante(foisonne + "-" + m_f.cellules.foisonnements.front() + "*" + lesDeblais);
  }

  // What is dug, less all that fills it, to a nanolitre.
  void ecart(std::size_t remblais, int tuyau) {
    const int dernier = C::quantite(remblais + m_noms.remblais.size() + m_noms.structures.size()) - 1;
    m_s.formule(m_r, colonneEcart(),
                "ROUND(" + ici(C::quantite(0)) + "-SUM(" + ici(tuyau - 2) + ":" + ici(dernier) + "),9)",
                arrondi(m_sommes->ecart()) + 0.0, m_s.styles().nombre);
  }

  void totaux() {
    const int premiere = kPremiereRangee, derniere = m_f.derniereLigne(m_troncon);
    m_r = derniere + 1;
    m_s.texte(m_r, C::kOuvrage, L"total", m_s.styles().gras);
    sommes total;
    for (const ligneTroncon& l : m_f.lignes())
      if (l.troncon == m_troncon && l.ouvrage) {
        const sommes& s = m_f.lot().q.parOuvrage[*l.ouvrage];
        if (total.sols.empty()) total = s;
        else total.ajouter(s);
      }
    const auto somme = [&](int colonne, double v) {
      m_s.formule(m_r, colonne, "SUM(" + plage(premiere, derniere, colonne) + ")", v, m_s.styles().total);
    };
    somme(C::kEnPlan, total.enPlan);
    somme(C::kEnPente, total.enPente);
    somme(C::kPosee, total.posee);
    for (std::size_t k = 0; k < m_colonnes.size(); ++k) somme(C::quantite(k), m_colonnes[k].valeur(total));
    somme(colonneEcart(), arrondi(total.ecart()) + 0.0);
  }

  lotFeuilles& m_f;
  const tranchees& m_t;
  const matieres& m_noms;
  colonnesDecoupe m_d;
  feuille& m_s;
  std::size_t m_troncon;
  std::vector<colonne> m_colonnes;
  int m_r = 0;
  std::size_t m_k = 0;
  const sommes* m_sommes = nullptr;
};

}  // namespace

void ecrireTroncon(lotFeuilles& f, std::size_t troncon) { ecrivain(f, troncon).ecrire(); }

}  // namespace etu
