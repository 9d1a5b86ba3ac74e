// The way through a network: shortest ways from a node by Dijkstra's method; of all pairs of ends the pair that is furthest apart.
#include "etudes/reseaux/graphe.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr std::size_t kAucun = std::numeric_limits<std::size_t>::max();

// From one node: how far the others are, and by which link they are reached.
struct portee {
  std::vector<double> distance;
  std::vector<std::size_t> lien;
};

std::size_t autreBout(const lienGraphe& l, std::size_t noeud) { return l.de == noeud ? l.a : l.de; }

portee porteeDe(const grapheReseau& g, const std::vector<std::vector<std::size_t>>& voisins, std::size_t depart) {
  portee p{std::vector<double>(g.noeuds.size(), std::numeric_limits<double>::infinity()),
           std::vector<std::size_t>(g.noeuds.size(), kAucun)};
  std::vector<bool> fini(g.noeuds.size());
  p.distance[depart] = 0;
  for (;;) {
    std::size_t n = kAucun;
    for (std::size_t i = 0; i < g.noeuds.size(); ++i)
      if (!fini[i] && std::isfinite(p.distance[i]) && (n == kAucun || p.distance[i] < p.distance[n])) n = i;
    if (n == kAucun) return p;
    fini[n] = true;
    for (const std::size_t l : voisins[n]) {
      const std::size_t autre = autreBout(g.liens[l], n);
      if (const double d = p.distance[n] + g.liens[l].longueur; d < p.distance[autre]) {
        p.distance[autre] = d;
        p.lien[autre] = l;
      }
    }
  }
}

struct voie {
  std::size_t depart = kAucun;
  std::vector<std::size_t> liens;
};

voie voieVers(const grapheReseau& g, const portee& p, std::size_t depart, std::size_t arrivee) {
  voie v{depart, {}};
  for (std::size_t n = arrivee; n != depart; n = autreBout(g.liens[p.lien[n]], n)) v.liens.push_back(p.lien[n]);
  std::ranges::reverse(v.liens);
  return v;
}

// It begins at the higher end.
voie plusLongue(const grapheReseau& g, const std::vector<std::vector<std::size_t>>& voisins) {
  voie meilleure;
  double longueur = 0;
  for (std::size_t i = 0; i < g.noeuds.size(); ++i) {
    if (voisins[i].size() != 1) continue;
    const portee p = porteeDe(g, voisins, i);
    for (std::size_t k = 0; k < g.noeuds.size(); ++k)
      if (std::isfinite(p.distance[k]) && p.distance[k] > longueur + 1e-9 && g.noeuds[i].radier >= g.noeuds[k].radier) {
        longueur = p.distance[k];
        meilleure = voieVers(g, p, i, k);
      }
  }
  if (meilleure.depart == kAucun) throw refus{L"aucun tuyau ne va d'un bout du réseau à un autre"};
  return meilleure;
}

voie voieEntre(const grapheReseau& g, const std::wstring& de, const std::wstring& a) {
  std::vector<std::vector<std::size_t>> voisins(g.noeuds.size());
  for (std::size_t l = 0; l < g.liens.size(); ++l) {
    voisins[g.liens[l].de].push_back(l);
    voisins[g.liens[l].a].push_back(l);
  }
  if (de.empty() || a.empty()) return plusLongue(g, voisins);
  const std::size_t depart = g.noeud(de, L"le départ"), arrivee = g.noeud(a, L"l'arrivée");
  const portee p = porteeDe(g, voisins, depart);
  if (!std::isfinite(p.distance[arrivee]) || depart == arrivee)
    throw refus{L"aucun chemin ne va de " + de + L" à " + a};
  return voieVers(g, p, depart, arrivee);
}

}  // namespace

std::size_t grapheReseau::noeud(const std::wstring& nom, const std::wstring& ou) const {
  const auto trouve =
      std::ranges::find_if(noeuds, [&](const noeudGraphe& n) { return plv::egalSansCasse(n.nom, nom); });
  if (trouve == noeuds.end()) throw refus{ou + L": il n'y a pas de nœud " + nom};
  return static_cast<std::size_t>(trouve - noeuds.begin());
}

rangees rangeesDuGraphe(grapheReseau& g, const std::wstring& de, const std::wstring& a, double station,
                        const std::wstring& diametreRegard) {
  const voie v = voieEntre(g, de, a);
  rangees textes;
  std::vector<bool> pris(g.noeuds.size());
  std::wstring arrivee;
  std::size_t n = v.depart;
  const auto ajouterRegard = [&](const std::wstring& depart) {
    const noeudGraphe& noeud = g.noeuds[n];
    pris[n] = true;
    const std::wstring propre = enTexte(noeud.diametre);
    textes.push_back(L"regard;" + noeud.nom + L";" + enTexte(station) + L";" + noeud.type + L";" +
                     (propre.empty() ? diametreRegard : propre) + L";" + (noeud.tampon ? enTexte(*noeud.tampon) : L"") +
                     L";" + arrivee + L";" + depart + L";" + enTexte(noeud.radier));
  };
  for (const std::size_t rang : v.liens) {
    const lienGraphe& l = g.liens[rang];
    const bool droit = l.de == n;
    ajouterRegard(enTexte(droit ? l.zDe : l.zA));
    arrivee = enTexte(droit ? l.zA : l.zDe);
    station += l.longueur;
    const std::wstring avant = g.noeuds[n].nom;
    n = autreBout(l, n);
    textes.push_back(L"tuyau;" + avant + L";" + g.noeuds[n].nom + L";" + enTexte(l.diametre) + L";" + l.materiau +
                     L";;;" + (l.strickler > 0 ? enTexte(l.strickler, 3) : L""));
  }
  ajouterRegard(L"");
  std::wstring autres;
  for (std::size_t i = 0; i < g.noeuds.size(); ++i)
    if (!pris[i]) autres += (autres.empty() ? L"" : L", ") + g.noeuds[i].nom;
  if (!autres.empty())
    g.remarques.push_back(L"pas sur le chemin de " + g.noeuds[v.depart].nom + L" à " + g.noeuds[n].nom + L": " +
                          autres);
  return textes;
}

}  // namespace etu
