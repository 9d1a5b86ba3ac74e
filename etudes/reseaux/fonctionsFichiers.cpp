// et_reseau_importer and et_reseau_ecrire: networks in files of other programs.
#include <fstream>

#include "etudes/reseaux/arguments.h"
#include "etudes/reseaux/fonctions.h"
#include "etudes/reseaux/graphe.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

bool estSwmm(const std::wstring& chemin) { return plv::enMinuscules(chemin).ends_with(L".inp"); }

}  // namespace

void et_reseau_importer() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    std::wstring chemin, de, a, diametre;
    if (!lireTexte(noeud, chemin) || !lireTexte(noeud, de) || !lireTexte(noeud, a) || !plv::estNombre(noeud)) return;
    const double station = plv::valeurReelle(noeud);
    noeud = noeud->rbnext;
    if (!lireTexte(noeud, diametre)) return;
    grapheReseau g = estSwmm(chemin) ? lireSwmm(chemin) : lirePipeNetworks(chemin);
    const rangees textes = rangeesDuGraphe(g, de, a, station, diametre);
    plv::listeRb liste;
    ajouterTextes(liste, textes);
    ajouterTextes(liste, g.remarques);
    acedRetList(liste.tete());
  });
}

void et_reseau_ecrire() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  repondre([&] {
    const resbuf* noeud = args.nieme(0);
    std::wstring chemin, format, titre;
    std::vector<morceauLigne> lieux;
    if (!lireTexte(noeud, chemin) || !lireTexte(noeud, format) || !lireTexte(noeud, titre) ||
        !lireLigne(noeud, lieux) || lieux.size() != 1)
      return;
    reseauDuProfil lu;
    if (!lireReseauDuProfil(noeud, lu) || lieux.front().size() != lu.pose.regards.size()) return;
    std::ofstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
    fichier << (format == L"inp" ? texteSwmm(lu.pose, lieux.front(), titre)
                                 : textePipeNetworks(lu.pose, lieux.front(), titre));
    fichier.close();
    if (!fichier) throw refus{L"écriture impossible: " + chemin};
    acedRetT();
  });
}

}  // namespace etu
