// The head of the file says how many altitudes a line has; only its last two lines are read beside it.
#include "etudes/fichiers/grilleTexte.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <string_view>

#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr std::string_view kBlancs = " \t\r\n";

std::size_t compterMots(std::string_view texte) {
  std::size_t mots = 0;
  for (std::size_t i = 0; (i = texte.find_first_not_of(kBlancs, i)) != texte.npos; ++mots)
    i = std::min(texte.find_first_of(kBlancs, i), texte.size());
  return mots;
}

std::size_t colonnesDe(std::string_view tete) {
  if (!plv::egalSansCasse(plv::depuisAnsi(tete), L"ncols", 5)) return 0;
  const std::size_t place = tete.find_first_of("0123456789");
  std::size_t colonnes = 0;
  if (place != tete.npos) std::from_chars(tete.data() + place, tete.data() + tete.size(), colonnes);
  return colonnes;
}

// Takes the last line away from the text and gives it.
std::string_view derniereLigne(std::string_view& texte) {
  texte = texte.substr(0, texte.find_last_not_of(kBlancs) + 1);
  const std::size_t fin = texte.find_last_of('\n');
  const std::string_view ligne = fin == texte.npos ? texte : texte.substr(fin + 1);
  texte = fin == texte.npos ? std::string_view() : texte.substr(0, fin);
  return ligne;
}

}  // namespace

bool grilleTexteEntiere(const std::wstring& chemin) {
  std::ifstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
  std::string tete(64, '\0');
  fichier.read(tete.data(), static_cast<std::streamsize>(tete.size()));
  const std::size_t colonnes = colonnesDe(tete);
  if (colonnes == 0) return true;
  fichier.clear();
  fichier.seekg(0, std::ios::end);
  const auto longueur = static_cast<std::size_t>(fichier.tellg());
  std::string queue(std::min(longueur, colonnes * 64 + 1024), '\0');
  fichier.seekg(static_cast<std::streamoff>(longueur - queue.size()));
  fichier.read(queue.data(), static_cast<std::streamsize>(queue.size()));
  std::string_view reste = queue;
  const std::size_t derniere = compterMots(derniereLigne(reste)), avant = compterMots(derniereLigne(reste));
  return avant != colonnes || derniere >= colonnes;
}

}  // namespace etu
