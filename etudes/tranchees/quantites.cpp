// Summing pieces, and taking manholes and pipes out of what fills their pits.
#include "etudes/tranchees/quantites.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "etudes/surfaces/point.h"

namespace etu {

namespace {

double disque(double diametre) { return std::numbers::pi * diametre * diametre / 4; }

double total(const std::vector<double>& v) { return std::accumulate(v.begin(), v.end(), 0.0); }

void ajouterA(std::vector<double>& a, const std::vector<double>& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
}

class mesure {
 public:
  explicit mesure(const tranchees& t) : m_t(t) {
    m_q.noms = matieresDe(t.regles);
    m_q.parOuvrage.assign(t.ouvrages.size(), vides());
    m_q.hauteurCorps.resize(t.ouvrages.size());
  }

  quantites faire() {
    for (const piece& p : m_t.pieces) prendre(p);
    for (std::size_t i = 0; i < m_t.ouvrages.size(); ++i) finir(i);
    m_q.total = vides();
    for (const sommes& s : m_q.parOuvrage) m_q.total.ajouter(s);
    return std::move(m_q);
  }

 private:
  sommes vides() const {
    sommes s;
    s.sols.resize(m_t.regles.sols.size());
    s.remblais.resize(m_q.noms.remblais.size());
    s.structures.resize(m_q.noms.structures.size());
    s.surfaces.resize(m_t.regles.revetements.size());
    s.parProfondeur.resize(m_t.regles.nombreDeClasses());
    s.parCouche.resize(m_t.regles.nombreDeClasses());
    return s;
  }

  void prendre(const piece& p) {
    sommes& s = m_q.parOuvrage[p.ouvrage];
    const niveaux n = niveauxDe(p, m_t.regles);
    const bouts h = p.profondeur();
    const double fouille = volumeSous(p, n.haut);
    s.profondeurMin = s.fouille == 0 ? std::min(h.a, h.b) : std::min({s.profondeurMin, h.a, h.b});
    s.profondeurMax = std::max({s.profondeurMax, h.a, h.b});
    s.fouille += fouille;
    s.parProfondeur[p.classe] += fouille;
    s.lit += volumeSous(p, n.lit);
    s.enrobage += volumeEntre(p, n.enrobage, n.lit);
    if (p.blindee) s.blindage += faces(p);
    tranches(p, n.haut, n.sols, s.sols);
    tranches(p, n.haut, n.classes, s.parCouche);
    bouts dessus = n.haut;
    if (p.regle.revetement) {
      s.surfaces[*p.regle.revetement] += surfaceDuHaut(p);
      const auto& couches = m_t.regles.revetements[*p.regle.revetement].couches;
      for (std::size_t k = 0; k < couches.size(); dessus = n.structure[k++])
        s.structures[m_q.noms.rangStructure(couches[k].nom)] += volumeEntre(p, dessus, n.structure[k]);
    }
    const auto& remblais = m_t.regles.types[p.regle.type].remblais;
    for (std::size_t k = 0; k < remblais.size(); dessus = n.remblais[k++])
      s.remblais[m_q.noms.rangRemblai(remblais[k].nom)] += volumeEntre(p, dessus, n.remblais[k]);
  }

  // Between the ground and the first level, between levels, and below the last one.
  static void tranches(const piece& p, const bouts& haut, const std::vector<bouts>& niveaux,
                       std::vector<double>& volumes) {
    bouts dessus = haut;
    for (std::size_t k = 0; k < niveaux.size(); dessus = niveaux[k++]) volumes[k] += volumeEntre(p, dessus, niveaux[k]);
    volumes.back() += volumeSous(p, dessus);
  }

  void finir(std::size_t i) {
    sommes& s = m_q.parOuvrage[i];
    if (m_t.ouvrages[i].estRegard) finirRegard(i, s);
    else finirTuyau(m_t.ouvrages[i].rang, s);
    for (std::size_t k = 0; k < s.remblais.size(); ++k)
      if (m_q.noms.remblais[k].reemploi) s.reemploi += s.remblais[k];
    s.evacue = s.fouille - s.reemploi;
    for (std::size_t k = 0; k < s.sols.size(); ++k) s.foisonne += m_t.regles.sols[k].foisonnement * s.sols[k];
    s.foisonne -= m_t.regles.sols.front().foisonnement * s.reemploi;
  }

  void finirTuyau(std::size_t i, sommes& s) {
    const tuyauPose& pose = m_t.reseau.tuyaux[i];
    const tuyau& t = m_t.reseau.r.tuyaux[i];
    const auto exterieur = [&](std::size_t regard) { return m_t.reseau.r.regards[regard].diametre.exterieur; };
    const ouvrage& o = m_t.ouvrages[static_cast<std::size_t>(&s - m_q.parOuvrage.data())];
    const double parMetre = pose.enPente() / pose.longueur();
    s.enPlan = pose.longueur();
    s.enPente = pose.enPente();
    s.posee = (pose.longueur() - exterieur(t.de) / 2 - exterieur(t.de + 1) / 2) * parMetre;
    s.tuyau = disque(t.diametre.exterieur) * (o.fin - o.debut) * parMetre;
    s.enrobage -= s.tuyau;
    if (s.enrobage < -1e-9)
      throw refus{L"tuyau " + m_t.reseau.nomTuyau(i) + L": sa tranchée n'est pas assez large pour lui et son enrobage"};
  }

  void finirRegard(std::size_t i, sommes& s) {
    const ouvrage& o = m_t.ouvrages[i];
    const piece& p = pieceDeLAxe(m_t, i);
    const corpsRegard corps = corpsDe(m_t, o, p);
    const niveaux n = niveauxDe(p, m_t.regles);
    m_q.hauteurCorps[i] = corps.haut - corps.bas;
    s.regard = corps.aire * (corps.haut - corps.bas);
    double dessus = surLAxe(m_t, p, n.haut);
    const auto oter = [&](const bouts& niveau, double& volume) {
      const double dessous = surLAxe(m_t, p, niveau);
      volume -= corps.entre(dessous, dessus);
      dessus = dessous;
    };
    if (p.regle.revetement) {
      if (corps.haut > dessus - 1e-9) s.surfaces[*p.regle.revetement] -= corps.aire;
      const auto& couches = m_t.regles.revetements[*p.regle.revetement].couches;
      for (std::size_t k = 0; k < couches.size(); ++k)
        oter(n.structure[k], s.structures[m_q.noms.rangStructure(couches[k].nom)]);
    }
    const auto& remblais = m_t.regles.types[p.regle.type].remblais;
    for (std::size_t k = 0; k < remblais.size(); ++k)
      oter(n.remblais[k], s.remblais[m_q.noms.rangRemblai(remblais[k].nom)]);
    s.tuyau = tuyauxDansLaFosse(m_t, o);
    double& dernier = s.remblais[m_q.noms.rangRemblai(remblais.back().nom)];
    dernier -= s.tuyau;
    if (dernier < -1e-9) throw refus{nomOuvrage(m_t, i) + L": sa fouille ne contient pas les tuyaux qui y arrivent"};
  }

  const tranchees& m_t;
  quantites m_q;
};

}  // namespace

std::size_t matieres::rangRemblai(const std::wstring& nom) const {
  return static_cast<std::size_t>(std::ranges::find(remblais, nom, &couche::nom) - remblais.begin());
}
std::size_t matieres::rangStructure(const std::wstring& nom) const {
  return static_cast<std::size_t>(std::ranges::find(structures, nom) - structures.begin());
}

matieres matieresDe(const reglesTranchees& regles) {
  matieres m;
  for (const typeTranchee& t : regles.types)
    for (const couche& c : t.remblais)
      if (m.rangRemblai(c.nom) == m.remblais.size()) m.remblais.push_back(c);
  for (const revetement& r : regles.revetements)
    for (const couche& c : r.couches)
      if (m.rangStructure(c.nom) == m.structures.size()) m.structures.push_back(c.nom);
  return m;
}

void sommes::ajouter(const sommes& autre) {
  profondeurMin = fouille == 0 ? autre.profondeurMin : std::min(profondeurMin, autre.profondeurMin);
  profondeurMax = std::max(profondeurMax, autre.profondeurMax);
  for (double sommes::*const membre :
       {&sommes::enPlan, &sommes::enPente, &sommes::posee, &sommes::fouille, &sommes::lit, &sommes::enrobage,
        &sommes::tuyau, &sommes::regard, &sommes::blindage, &sommes::reemploi, &sommes::evacue, &sommes::foisonne})
    this->*membre += autre.*membre;
  for (std::vector<double> sommes::*const membre : {&sommes::sols, &sommes::remblais, &sommes::structures,
                                                    &sommes::surfaces, &sommes::parProfondeur, &sommes::parCouche})
    ajouterA(this->*membre, autre.*membre);
}

double sommes::remblaisEtSurface() const { return total(remblais) + total(structures); }

double sommes::ecart() const { return fouille - (lit + enrobage + tuyau + regard + remblaisEtSurface()); }

quantites mesurer(const tranchees& t) { return mesure(t).faire(); }

std::vector<colonne> colonnesDe(const reglesTranchees& regles, const matieres& noms) {
  std::vector<colonne> c;
  const auto simple = [&](const wchar_t* titre, const wchar_t* unite, double sommes::*membre) {
    c.push_back({titre, unite, [membre](const sommes& s) { return s.*membre; }});
  };
  const auto serie = [&](const std::wstring& titre, const wchar_t* unite, std::vector<double> sommes::*membre,
                         std::size_t k) {
    c.push_back({titre, unite, [membre, k](const sommes& s) { return (s.*membre)[k]; }});
  };
  simple(L"Fouille", L"m3", &sommes::fouille);
  for (std::size_t k = 0; k < regles.sols.size(); ++k)
    serie(L"Fouille en " + regles.sols[k].nom, L"m3", &sommes::sols, k);
  simple(L"Lit de pose", L"m3", &sommes::lit);
  simple(L"Enrobage", L"m3", &sommes::enrobage);
  simple(L"Tuyau", L"m3", &sommes::tuyau);
  simple(L"Regard", L"m3", &sommes::regard);
  for (std::size_t k = 0; k < noms.remblais.size(); ++k)
    serie(L"Remblai " + noms.remblais[k].nom, L"m3", &sommes::remblais, k);
  for (std::size_t k = 0; k < noms.structures.size(); ++k) serie(noms.structures[k], L"m3", &sommes::structures, k);
  for (std::size_t k = 0; k < regles.revetements.size(); ++k)
    serie(L"Surface " + regles.revetements[k].nom, L"m2", &sommes::surfaces, k);
  for (std::size_t k = 0; k < regles.nombreDeClasses(); ++k)
    serie(L"Profondeur " + nomClasse(regles, k), L"m3", &sommes::parProfondeur, k);
  for (std::size_t k = 0; k < regles.nombreDeClasses(); ++k)
    serie(L"Tranche " + nomClasse(regles, k), L"m3", &sommes::parCouche, k);
  simple(L"Blindage", L"m2", &sommes::blindage);
  simple(L"Réemploi", L"m3", &sommes::reemploi);
  simple(L"Évacué en place", L"m3", &sommes::evacue);
  simple(L"Évacué foisonné", L"m3", &sommes::foisonne);
  return c;
}

std::wstring nomOuvrage(const tranchees& t, std::size_t i) {
  const ouvrage& o = t.ouvrages[i];
  return o.estRegard ? L"regard " + t.reseau.r.regards[o.rang].nom : L"tuyau " + t.reseau.nomTuyau(o.rang);
}

std::wstring nomClasse(const reglesTranchees& regles, std::size_t classe) {
  const auto& limites = regles.classes;
  if (limites.empty()) return L"toute";
  if (classe == limites.size()) return L"plus de " + enTexte(limites.back(), 2) + L" m";
  return (classe == 0 ? std::wstring(L"0") : enTexte(limites[classe - 1], 2)) + L" à " + enTexte(limites[classe], 2) +
         L" m";
}

double corpsRegard::entre(double dessous, double dessus) const {
  return aire * std::max(0.0, std::min(dessus, haut) - std::max(dessous, bas));
}

const piece& pieceDeLAxe(const tranchees& t, std::size_t ouvrage) {
  const double station = t.reseau.regards[t.ouvrages[ouvrage].rang].station;
  return *std::ranges::find_if(t.pieces, [&](const piece& p) { return p.ouvrage == ouvrage && station <= p.b; });
}

double surLAxe(const tranchees& t, const piece& p, const bouts& niveau) {
  const double station = t.reseau.regards[t.ouvrages[p.ouvrage].rang].station;
  return niveau.a + (niveau.b - niveau.a) * ((station - p.a) / p.longueur());
}

corpsRegard corpsDe(const tranchees& t, const ouvrage& o, const piece& p) {
  const regardPose& pose = t.reseau.regards[o.rang];
  const double sol = surLAxe(t, p, p.profondeur());
  const double bas = p.lit, haut = std::clamp(pose.tampon - p.fond.a, bas, std::max(bas, sol));
  return {disque(t.reseau.r.regards[o.rang].diametre.exterieur), bas, haut};
}

double tuyauxDansLaFosse(const tranchees& t, const ouvrage& o) {
  double volume = 0;
  for (std::size_t i = 0; i < t.reseau.tuyaux.size(); ++i) {
    const tuyau& modele = t.reseau.r.tuyaux[i];
    const tuyauPose& pose = t.reseau.tuyaux[i];
    const double exterieur = t.reseau.r.regards[o.rang].diametre.exterieur;
    const double debord = (o.fin - o.debut - exterieur) / 2;
    if (modele.de == o.rang || modele.de + 1 == o.rang)
      volume += disque(modele.diametre.exterieur) * debord * (pose.enPente() / pose.longueur());
  }
  return volume;
}

}  // namespace etu
