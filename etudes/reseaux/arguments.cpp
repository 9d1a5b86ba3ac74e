// Reading chains node by node; an empty list reaches a function as nil.
#include "etudes/reseaux/arguments.h"

#include <cmath>

#include "etudes/base/sommets.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

// Walks the elements of a list; each is read by the action, which moves the node after it.
template <class Action>
bool pourChaque(const resbuf*& noeud, const Action& action) {
  if (!noeud) return false;
  if (noeud->restype == RTNIL) {
    noeud = noeud->rbnext;
    return true;
  }
  if (noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE;)
    if (!action()) return false;
  if (!noeud) return false;
  noeud = noeud->rbnext;
  return true;
}

}  // namespace

bool lireTexte(const resbuf*& noeud, std::wstring& texte) {
  if (!plv::estChaine(noeud)) return false;
  texte = plv::valeurTexte(noeud);
  noeud = noeud->rbnext;
  return true;
}

bool lireTextes(const resbuf*& noeud, rangees& textes) {
  return pourChaque(noeud, [&] { return lireTexte(noeud, textes.emplace_back()); });
}

bool lireVrai(const resbuf*& noeud) {
  const bool vrai = noeud && noeud->restype != RTNIL;
  if (noeud) noeud = noeud->rbnext;
  return vrai;
}

bool lireLigne(const resbuf*& noeud, std::vector<morceauLigne>& morceaux) {
  return pourChaque(noeud, [&] {
    morceauLigne& m = morceaux.emplace_back();
    return pourChaque(noeud, [&] {
      pointLigne& p = m.emplace_back();
      return lirePaire(noeud, p.x, p.z) && std::isfinite(p.x) && std::isfinite(p.z);
    });
  });
}

bool lireReseauDuProfil(const resbuf*& noeud, reseauDuProfil& lu) {
  plv::profilLong profil;
  rangees textes;
  std::vector<morceauLigne> ligne;
  if (!plv::estNom(noeud) || !profil.lireId(plv::valeurId(noeud))) return false;
  noeud = noeud->rbnext;
  if (!lireTextes(noeud, textes) || !lireLigne(noeud, ligne)) return false;
  morceauLigne terrain;
  for (std::size_t i = 0; i < profil.distTn.size(); ++i)
    terrain.push_back({profil.distTn[i] + profil.dcumDeb, profil.altTn[i]});
  lu.terrain = ligneDroites({terrain});
  lu.ligne = ligneDroites(ligne);
  lu.numero = profil.numero.kACharPtr();
  lu.pose = situer(lireReseau(textes), lu.terrain, lu.ligne);
  return true;
}

void ajouterOu(plv::listeRb& liste, const std::optional<double>& valeur) {
  liste.ajouter(valeur ? acutBuildList(RTREAL, *valeur, 0) : acutBuildList(RTNIL, 0));
}

}  // namespace etu
