// Pieces of the chains that AutoLISP takes.
#include "etudes/reponses/listes.h"

#include "hote/aced.h"

namespace etu {

void ouvrir(plv::listeRb& liste) { liste.ajouter(acutBuildList(RTLB, 0)); }
void fermer(plv::listeRb& liste) { liste.ajouter(acutBuildList(RTLE, 0)); }

void ajouterTexte(plv::listeRb& liste, const std::wstring& texte) {
  liste.ajouter(acutBuildList(RTSTR, texte.c_str(), 0));
}

void ajouterReels(plv::listeRb& liste, std::initializer_list<double> valeurs) {
  for (const double v : valeurs) liste.ajouter(acutBuildList(RTREAL, v, 0));
}

void ajouterTextes(plv::listeRb& liste, const std::vector<std::wstring>& textes) {
  ouvrir(liste);
  for (const std::wstring& texte : textes) ajouterTexte(liste, texte);
  fermer(liste);
}

void rendreTextes(const std::vector<std::wstring>& textes) {
  plv::listeRb liste;
  for (const std::wstring& texte : textes) ajouterTexte(liste, texte);
  acedRetList(liste.tete());
}

}  // namespace etu
