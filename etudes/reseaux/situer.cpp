// Each altitude from its row, or from the line on the side of its pipe.
#include "etudes/reseaux/situer.h"

#include <algorithm>
#include <cmath>

#include "etudes/surfaces/point.h"

namespace etu {

namespace {

constexpr double kRien = 1e-9;  // metres of altitude

std::wstring ou(const regard& n) { return L"regard " + n.nom + L", station " + enTexte(n.station, 3) + L": "; }

// Of the row, of the line, else the same as on the other side.
double filDEau(const regard& n, const std::optional<double>& ecrit, const std::optional<double>& ligne,
               const std::optional<double>& autre, const wchar_t* quoi) {
  for (const auto& z : {ecrit, ligne, autre})
    if (z) return *z;
  throw refus{ou(n) + L"le fil d'eau " + quoi + L" manque, et la ligne n'y est pas"};
}

double terrainEn(const ligneDroites& terrain, const regard& n) {
  const auto avant = terrain.avant(n.station), apres = terrain.apres(n.station);
  if (!avant && !apres) throw refus{ou(n) + L"le regard est hors du terrain"};
  return std::max(avant ? *avant : *apres, apres ? *apres : *avant);
}

void verifierCroisement(const ligneDroites& terrain, const croisement& c) {
  if (!terrain.avant(c.station) && !terrain.apres(c.station))
    throw refus{L"croisement " + c.nom + L", station " + enTexte(c.station, 3) + L": il est hors du terrain"};
}

// The bottom and the cover, once the inverts are known.
void fermer(const regard& n, regardPose& p) {
  if (!p.arrivee && !p.depart) throw refus{ou(n) + L"aucun tuyau n'y arrive ni n'en part"};
  const auto [bas, haut] = std::minmax<double>({p.arrivee ? *p.arrivee : *p.depart, p.depart ? *p.depart : *p.arrivee});
  p.fond = n.fond.value_or(bas);
  if (p.fond > bas + kRien)
    throw refus{ou(n) + L"son fond " + enTexte(p.fond, 3) + L" est au-dessus du fil d'eau " + enTexte(bas, 3)};
  if (n.diametre.exterieur > 0 && p.tampon < haut)
    throw refus{ou(n) + L"son tampon " + enTexte(p.tampon, 3) + L" est sous le fil d'eau " + enTexte(haut, 3)};
}

std::vector<troncon> tronconsDe(const reseau& r) {
  std::vector<troncon> troncons;
  for (std::size_t i = 0; i < r.tuyaux.size(); ++i) {
    if (i > 0 && r.tuyaux[i].de == r.tuyaux[i - 1].de + 1) troncons.back().apres = i + 1;
    else troncons.push_back({i, i + 1});
  }
  return troncons;
}

}  // namespace

double tuyauPose::enPente() const { return std::hypot(longueur(), zFin - zDebut); }

std::wstring reseauPose::nomTuyau(std::size_t i) const {
  return r.regards[r.tuyaux[i].de].nom + L" - " + r.regards[r.tuyaux[i].de + 1].nom;
}

bool reseauPose::versLaDroite(const troncon& t) const { return tuyaux[t.premier].zDebut >= tuyaux[t.apres - 1].zFin; }

reseauPose situer(reseau r, const ligneDroites& terrain, const ligneDroites& ligne) {
  reseauPose p;
  for (const regard& n : r.regards) {
    const double sol = terrainEn(terrain, n);
    p.regards.push_back({n.station, sol, n.tampon.value_or(sol), 0, {}, {}});
  }
  for (const croisement& c : r.croisements) verifierCroisement(terrain, c);
  for (const tuyau& t : r.tuyaux) {
    const regard &a = r.regards[t.de], &b = r.regards[t.de + 1];
    p.tuyaux.push_back({a.station, b.station, filDEau(a, a.depart, ligne.apres(a.station), a.arrivee, L"de départ"),
                        filDEau(b, b.arrivee, ligne.avant(b.station), b.depart, L"d'arrivée")});
    p.regards[t.de].depart = p.tuyaux.back().zDebut;
    p.regards[t.de + 1].arrivee = p.tuyaux.back().zFin;
  }
  for (std::size_t i = 0; i < r.regards.size(); ++i) fermer(r.regards[i], p.regards[i]);
  p.troncons = tronconsDe(r);
  p.r = std::move(r);
  return p;
}

}  // namespace etu
