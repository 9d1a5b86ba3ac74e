// Stations of cuts come in two steps: where what is given may bend, then where differences of straight lines change their sign.
#include "etudes/tranchees/decoupe.h"

#include <algorithm>
#include <cmath>

#include "etudes/surfaces/point.h"

namespace etu {

namespace {

constexpr double kPres = 1e-9;  // metres along the profile that make no piece
constexpr double kRien = 1e-9;  // metres of height

// The parts of an interval from a to b at which straight lines, given by their values at both ends, pass zero.
class passages {
 public:
  passages(double a, double b) : m_a(a), m_b(b), m_stations{a, b} {}
  void ajouter(const bouts& valeurs) {
    if (!(std::min(valeurs.a, valeurs.b) < 0 && std::max(valeurs.a, valeurs.b) > 0)) return;
    m_stations.push_back(m_a + (m_b - m_a) * (valeurs.a / (valeurs.a - valeurs.b)));
  }
  void ajouter(const bouts& valeurs, double seuil) { ajouter({valeurs.a - seuil, valeurs.b - seuil}); }
  std::vector<double> stations() {
    std::ranges::sort(m_stations);
    return std::move(m_stations);
  }

 private:
  double m_a, m_b;
  std::vector<double> m_stations;
};

bouts moins(const bouts& u, const bouts& v) { return {u.a - v.a, u.b - v.b}; }

bouts partDe(const bouts& u, double a, double b, double x, double y) {
  const auto en = [&](double s) { return s == b ? u.b : u.a + (u.b - u.a) * ((s - a) / (b - a)); };
  return {en(x), en(y)};
}

class coupeur {
 public:
  coupeur(const reseauPose& reseau, const reglesTranchees& regles, const solsTranchees& sols)
      : m_sols(sols), m_resultat{reseau, regles, {}, {}} {
    m_sols.sol.stations(m_bases);
    for (const ligneDroites& c : m_sols.couches) c.stations(m_bases);
    for (const partie& p : regles.parties) m_bases.insert(m_bases.end(), {p.debut, p.fin});
    std::ranges::sort(m_bases);
  }

  tranchees faire() {
    for (const troncon& t : reseau().troncons) {
      fouillerRegard(reseau().r.tuyaux[t.premier].de);
      for (std::size_t i = t.premier; i < t.apres; ++i) {
        fouillerTuyau(i);
        fouillerRegard(reseau().r.tuyaux[i].de + 1);
      }
    }
    return std::move(m_resultat);
  }

 private:
  const reseauPose& reseau() const { return m_resultat.reseau; }
  const reglesTranchees& regles() const { return m_resultat.regles; }

  // What the rules say of a work at a station, and its bottom there.
  struct profil {
    partie regle;
    double base = 0;  // the least width
    double lit = 0, enrobage = 0;
    bouts fond;
  };

  double demiFosse(std::size_t regard) const {
    const double exterieur = reseau().r.regards[regard].diametre.exterieur;
    if (!(exterieur > 0)) return 0;
    return exterieur / 2 + regles().types[regles().en(reseau().regards[regard].station).type].regard.debord;
  }

  void fouillerRegard(std::size_t i) {
    const double demi = demiFosse(i), station = reseau().regards[i].station;
    if (!aUneFosse(reseau().r.regards[i])) return;
    const partie regle = regles().en(station);
    const fosse& f = regles().types[regle.type].regard;
    const double fond = reseau().regards[i].fond - f.radier - f.lit;
    commencer({true, i, station - demi, station + demi});
    decouper([&](double, double) { return profil{regle, 2 * demi, f.lit, f.lit, {fond, fond}}; });
  }

  void fouillerTuyau(std::size_t i) {
    const tuyau& t = reseau().r.tuyaux[i];
    const tuyauPose& pose = reseau().tuyaux[i];
    const double debut = pose.debut + demiFosse(t.de), fin = pose.fin - demiFosse(t.de + 1);
    if (fin < debut - kPres)
      throw refus{L"les fouilles des regards " + reseau().r.regards[t.de].nom + L" et " +
                  reseau().r.regards[t.de + 1].nom + L" se recouvrent de " + enTexte(debut - fin, 3) + L" m"};
    commencer({false, i, debut, fin});
    decouper([&](double a, double b) {
      const partie regle = regles().en((a + b) / 2);
      const typeTranchee& type = regles().types[regle.type];
      const double lit = t.lit.value_or(type.lit) + type.surprofondeur, dessous = t.diametre.paroi() + lit;
      const auto radier = [&](double x) {
        return pose.zDebut + (pose.zFin - pose.zDebut) * ((x - pose.debut) / pose.longueur());
      };
      return profil{regle,
                    largeurTuyau(type, i),
                    lit,
                    lit + t.diametre.exterieur + type.enrobage,
                    {radier(a) - dessous, radier(b) - dessous}};
    });
  }

  double largeurTuyau(const typeTranchee& type, std::size_t i) const {
    const diametres& d = reseau().r.tuyaux[i].diametre;
    const auto supplement = supplementDe(type, d.interieur);
    if (!supplement)
      throw refus{L"tuyau " + reseau().nomTuyau(i) + L": le type " + type.nom +
                  L" n'a pas de largeur pour le diamètre " + enTexte(d.interieur * 1000, 1)};
    return type.parDiametre.empty() ? 0 : d.exterieur + *supplement;
  }

  void commencer(const ouvrage& o) { m_resultat.ouvrages.push_back(o); }

  std::wstring nom() const {
    const ouvrage& o = m_resultat.ouvrages.back();
    return o.estRegard ? L"regard " + reseau().r.regards[o.rang].nom : L"tuyau " + reseau().nomTuyau(o.rang);
  }
  [[noreturn]] void refuser(double station, const std::wstring& pourquoi) const {
    throw refus{nom() + L", station " + enTexte(station, 3) + L": " + pourquoi};
  }

  // The last work, cut wherever what is given may bend, then by `affiner`.
  template <class ProfilDe>
  void decouper(const ProfilDe& profilDe) {
    const ouvrage& o = m_resultat.ouvrages.back();
    const auto debut = std::ranges::upper_bound(m_bases, o.debut), fin = std::ranges::lower_bound(m_bases, o.fin);
    double a = o.debut;
    for (auto x = debut; x < fin; ++x)
      if (*x - a > kPres && o.fin - *x > kPres) {
        affiner(a, *x, profilDe(a, *x));
        a = *x;
      }
    if (o.fin - a > kPres) affiner(a, o.fin, profilDe(a, o.fin));
  }

  // The ground; a pit may reach past its ends, where it goes on level.
  bouts solSur(double a, double b) const {
    if (const auto z = m_sols.sol.sur(a, b)) return *z;
    const ligneDroites& sol = m_sols.sol;
    const double milieu = (a + b) / 2;
    if (!sol.vide() && m_resultat.ouvrages.back().estRegard) {
      if (milieu < sol.debut()) return {*sol.apres(sol.debut()), *sol.apres(sol.debut())};
      if (milieu > sol.fin()) return {*sol.avant(sol.fin()), *sol.avant(sol.fin())};
    }
    refuser(a, L"le sol " + regles().sol + L" y manque");
  }

  void affiner(double a, double b, const profil& p) {
    const bouts sol = solSur(a, b), h = moins(sol, p.fond);
    verifier(a, h.a, p), verifier(b, h.b, p);
    std::vector<bouts> couches;
    for (const ligneDroites& c : m_sols.couches)
      couches.push_back(c.sur(a, b).value_or(bouts{p.fond.a - 1, p.fond.b - 1}));
    passages ou(a, b);
    for (const double seuil : seuils(p)) ou.ajouter(h, seuil);
    const auto& pente = regles().types[p.regle.type].pente;
    for (std::size_t k = 0; k < couches.size(); ++k) {
      ou.ajouter(moins(couches[k], sol));
      ou.ajouter(moins(couches[k], p.fond));
      if (pente) ou.ajouter(moins(couches[k], p.fond), pente->hauteurDroite);
      for (std::size_t j = 0; j < k; ++j) ou.ajouter(moins(couches[k], couches[j]));
    }
    const std::vector<double> stations = ou.stations();
    double x = a;
    for (std::size_t i = 1; i < stations.size(); ++i) {
      const double y = i + 1 < stations.size() ? stations[i] : b;
      if (y - x <= kPres && i + 1 < stations.size()) continue;
      if (y - x <= kPres) break;
      piece fait{m_resultat.ouvrages.size() - 1,
                 x,
                 y,
                 partDe(sol, a, b, x, y),
                 partDe(p.fond, a, b, x, y),
                 p.regle,
                 0,
                 {},
                 false,
                 0,
                 p.lit,
                 p.enrobage,
                 {}};
      for (const bouts& c : couches) fait.altitudesSols.push_back(partDe(c, a, b, x, y));
      regler(fait, p);
      m_resultat.pieces.push_back(std::move(fait));
      x = y;
    }
  }

  void verifier(double station, double h, const profil& p) const {
    const ouvrage& o = m_resultat.ouvrages.back();
    const double tuyau = o.estRegard ? 0 : reseau().r.tuyaux[o.rang].diametre.exterieur;
    if (h >= p.lit + tuyau - kRien && h > 0) return;
    if (o.estRegard) refuser(station, L"son fond est au-dessus du sol");
    refuser(station, L"il sort du sol de " + enTexte(p.lit + tuyau - h, 3) + L" m");
  }

  // The depths at which something changes.
  std::vector<double> seuils(const profil& p) const {
    const typeTranchee& type = regles().types[p.regle.type];
    std::vector<double> s(regles().classes), epaisseurs{0};
    if (p.regle.revetement)
      for (const couche& c : regles().revetements[*p.regle.revetement].couches)
        epaisseurs.push_back(epaisseurs.back() + *c.epaisseur);
    for (const couche& c : type.remblais)
      if (c.epaisseur) epaisseurs.push_back(epaisseurs.back() + *c.epaisseur);
    for (const palier& l : type.parProfondeur)
      if (l.jusque) s.push_back(*l.jusque);
    for (const double e : epaisseurs) s.push_back(p.enrobage + e);
    if (type.pente) {
      s.push_back(type.pente->profondeur);
      for (const double e : epaisseurs) s.push_back(type.pente->hauteurDroite + e);
      for (const double c : regles().classes) s.push_back(type.pente->hauteurDroite + c);
    }
    if (type.soutien) {
      s.push_back(type.soutien->profondeur);
      s.push_back(p.base / type.soutien->rapport);
      for (const palier& l : type.parProfondeur) s.push_back(std::max(p.base, l.valeur) / type.soutien->rapport);
    }
    return s;
  }

  // Width, sides, shoring and class, by the depth in the middle: no limit lies within the piece.
  void regler(piece& fait, const profil& p) const {
    const typeTranchee& type = regles().types[p.regle.type];
    const double h = arrondi(fait.profondeurMoyenne());
    const auto largeur = largeurDe(type, p.base, h);
    if (!largeur) refuser(fait.a, L"le type " + type.nom + L" n'a pas de largeur pour la profondeur " + enTexte(h, 3));
    fait.largeur = *largeur;
    const ouvrage& o = m_resultat.ouvrages.back();
    if (!o.estRegard && reseau().r.tuyaux[o.rang].diametre.exterieur > fait.largeur + kRien)
      refuser(fait.a, L"son diamètre extérieur " + enTexte(reseau().r.tuyaux[o.rang].diametre.exterieur, 3) +
                          L" m est plus grand que la largeur de sa tranchée " + enTexte(fait.largeur, 3) + L" m");
    if (type.pente && h > type.pente->profondeur) fait.cotes = *type.pente;
    if (const auto& s = type.soutien)
      fait.blindee =
          h > s->profondeur && arrondi(fait.largeur) <= arrondi(s->rapport * h) && fait.cotes.fruit < s->fruitAdmis;
    fait.classe = static_cast<std::size_t>(std::ranges::count_if(regles().classes, [&](double c) { return c < h; }));
  }

  const solsTranchees& m_sols;
  std::vector<double> m_bases;
  tranchees m_resultat;
};

}  // namespace

bool aUneFosse(const regard& n) { return n.diametre.exterieur > 0 && n.profil.empty(); }

tranchees decouper(const reseauPose& reseau, const reglesTranchees& regles, const solsTranchees& sols) {
  return coupeur(reseau, regles, sols).faire();
}

}  // namespace etu
