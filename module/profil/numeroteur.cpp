// Numberers: runs of codes made of a prefix, a number and a suffix.
// Numbers wrap around in 32 bits.
#include "module/profil/numeroteur.h"

namespace plv {

void incrementerLettres(std::wstring& texte) {
  std::size_t i = texte.size();
  while (i > 0 && texte[i - 1] == L'Z') texte[--i] = L'A';
  if (i > 0) ++texte[i - 1];
  else texte.insert(texte.begin(), L'A');
}

void numeroteurEntier::initialiser(const std::wstring& nouveauPrefixe, Adesk::Int32 premier,
                                   const std::wstring& nouveauSuffixe, Adesk::Int32 nouveauPas) {
  prefixe = nouveauPrefixe;
  courant = premier;
  suffixe = nouveauSuffixe;
  pas = nouveauPas;
}

std::wstring numeroteurEntier::suivant() {
  std::wstring code = prefixe + std::to_wstring(courant) + suffixe;
  avancer(pas);
  return code;
}

void numeroteurEntier::incrementerSuffixe() {
  numeroteur::incrementerSuffixe();
  courant = depart;
}

void numeroteurEntier::incrementerPrefixe() {
  numeroteur::incrementerPrefixe();
  courant = depart;
}

void numeroteurEntier::incrementer() { avancer(1); }

Adesk::Int32 numeroteurEntier::valeur(bool faireAvancer) {
  const Adesk::Int32 presente = courant;
  if (faireAvancer) avancer(1);
  return presente;
}

void numeroteurEntier::avancer(Adesk::Int32 de) {
  courant = static_cast<Adesk::Int32>(static_cast<Adesk::UInt32>(courant) + static_cast<Adesk::UInt32>(de));
}

}  // namespace plv
