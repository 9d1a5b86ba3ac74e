// et_reseau_rangees, et_reseau, et_reseau_avis: a network's rows as they are kept, its altitudes, what is to be told of it.
// Where rows are wrong the result is the sentence that says so.
#include "etudes/reseaux/fonctions.h"

#include "etudes/reseaux/arguments.h"
#include "etudes/reseaux/controles.h"

namespace etu {

namespace {

void ajouterRegard(plv::listeRb& liste, const regard& n, const regardPose& p) {
  ouvrir(liste);
  ajouterTexte(liste, n.nom);
  ajouterReels(liste, {n.station});
  ajouterTexte(liste, n.type);
  ajouterReels(liste, {n.diametre.interieur, n.diametre.exterieur, p.terrain, p.tampon});
  ajouterOu(liste, p.arrivee);
  ajouterOu(liste, p.depart);
  ajouterReels(liste, {p.fond});
  ajouterTexte(liste, n.profil);
  fermer(liste);
}

void ajouterTuyau(plv::listeRb& liste, const reseauPose& p, std::size_t i) {
  const tuyau& t = p.r.tuyaux[i];
  const tuyauPose& pose = p.tuyaux[i];
  ouvrir(liste);
  ajouterTexte(liste, p.r.regards[t.de].nom);
  ajouterTexte(liste, p.r.regards[t.de + 1].nom);
  ajouterReels(liste, {pose.debut, pose.zDebut, pose.fin, pose.zFin, t.diametre.interieur, t.diametre.exterieur});
  ajouterTexte(liste, enTexte(t.diametre));
  ajouterTexte(liste, t.materiau);
  ajouterTexte(liste, t.classe);
  fermer(liste);
}

}  // namespace

void et_reseau_rangees() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  rangees textes;
  if (!lireTextes(noeud, textes)) return;
  repondre([&] { rendreTextes(rangeesDe(lireReseau(textes))); });
}

void et_reseau() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    reseauDuProfil lu;
    if (!lireReseauDuProfil(noeud, lu)) return;
    const reseauPose& p = lu.pose;
    plv::listeRb liste;
    ouvrir(liste);
    for (std::size_t i = 0; i < p.regards.size(); ++i) ajouterRegard(liste, p.r.regards[i], p.regards[i]);
    fermer(liste);
    ouvrir(liste);
    for (std::size_t i = 0; i < p.tuyaux.size(); ++i) ajouterTuyau(liste, p, i);
    fermer(liste);
    ouvrir(liste);
    for (const croisement& c : p.r.croisements) {
      ouvrir(liste);
      ajouterTexte(liste, c.nom);
      ajouterReels(liste, {c.station, c.altitude, c.diametre, c.angle});
      fermer(liste);
    }
    fermer(liste);
    acedRetList(liste.tete());
  });
}

void et_reseau_avis() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    reseauDuProfil lu;
    if (!lireReseauDuProfil(noeud, lu)) return;
    plv::listeRb liste;
    ouvrir(liste);
    for (const avis& a : controler(lu.pose, lu.terrain, lu.ligne, lireVrai(noeud))) {
      ouvrir(liste);
      ajouterReels(liste, {a.station});
      ajouterTexte(liste, a.texte);
      fermer(liste);
    }
    fermer(liste);
    acedRetList(liste.tete());
  });
}

}  // namespace etu
