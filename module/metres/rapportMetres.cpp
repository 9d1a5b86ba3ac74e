// The texts of the quantity dialog's lists.
// Numbers are padded as in the C library's formats.
#include "module/metres/rapportMetres.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "module/support/base/nombres.h"

namespace plv {

namespace {

using rangee = dialogues::Row;

constexpr double kSansLongueur = 1e-8;

const LineSegArrayData& premierProjet(const ligneTroncons& ligne) {
  if (ligne.troncons.empty()) throw std::out_of_range("invalid vector<T> subscript");
  return *ligne.troncons.front()->projet;
}

bool avant(const ligneTroncons& a, const ligneTroncons& b) {
  const LineSegArrayData &projetA = premierProjet(a), &projetB = premierProjet(b);
  return !projetA.IsEmpty() && !projetB.IsEmpty() && projetA.debut() < projetB.debut();
}

std::wstring cadre(const std::wstring& texte, std::size_t largeur) {
  return std::wstring(largeur > texte.size() ? largeur - texte.size() : 0, L' ') + texte;
}
// "%10.3f "
std::wstring mesure(double valeur) { return cadre(texteFixe(valeur, 3), 10) + L" "; }

rangee rangeeTroncon(const profilLong& profil, const TranconProfilEnlong& t, int index) {
  const classesProfondeur& liste = listeClasses();
  const double longueur = t.fin() - t.debut();
  const Adesk::Int32 classe = t.classe();
  const bool connue = classe >= 1 && static_cast<std::size_t>(classe) <= liste.size();
  const double largeur = connue ? liste[static_cast<std::size_t>(classe - 1)].largeur : 0.0;
  const double moyenne = t.surface / (std::abs(longueur) < kSansLongueur ? 1.0 : longueur);
  return {
      {profil.numero.kACharPtr(), texteFixe(t.debut().valeur, 3), texteFixe(t.fin().valeur, 3),
       cadre(std::to_wstring(classe), 2) + L" - " + mesure(moyenne), mesure(t.surface * largeur), mesure(t.surface)},
      index};
}

std::wstring titre(const profilLong& profil) { return std::wstring(L"Profil:") + profil.numero.kACharPtr(); }

}  // namespace

void ordonnerLignes(InfoProfilEnLong& profil) { std::stable_sort(profil.lignes.begin(), profil.lignes.end(), avant); }

std::vector<rangee> rangeesTroncons(InfoProfilEnLong& profil, int index) {
  ordonnerLignes(profil);
  std::vector<rangee> rangees = {{{titre(profil)}, index},
                                 {{L"Pk : " + texteFixe(profil.dcumDeb, 3) + L" a " +
                                   texteFixe(profil.stationDe(distanceProfil(profil.longueurTn())).valeur, 3)},
                                  index}};
  for (const ligneTroncons& ligne : profil.lignes)
    for (const poigneeTroncon& t : ligne.troncons) rangees.push_back(rangeeTroncon(profil, *t, index));
  return rangees;
}

std::vector<rangee> rangeesElements(const InfoProfilEnLong& profil, int index) {
  std::vector<rangee> rangees;
  for (const elementFixeMesure& element : profil.elements) {
    rangees.push_back({{titre(profil), element.libelle}, index});
    for (const valeurElement& valeur : element.valeurs)
      rangees.push_back({{L"", valeur.libelle, valeur.estNombre ? texteFixe(valeur.nombre, 4) : valeur.texte}, index});
  }
  return rangees;
}

std::vector<rangee> rangeesClasses(const classesProfondeur& liste) {
  std::vector<rangee> rangees;
  for (const classeProfondeur& c : liste)
    rangees.push_back(
        {{texteFixe(c.debut, 2), texteFixe(c.fin, 2), L"", texteFixe(c.largeur, 2), texteFixe(c.profLit, 2), L""},
         c.couleur});
  return rangees;
}

}  // namespace plv
