// The settings file: its paths, its reading at first use, its writing.
// The library's own texts name what failed; they are passed on as they are.
#include "module/support/reglages/fichierConfig.h"

#include <algorithm>
#include <boost/property_tree/ini_parser.hpp>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "hote/plateforme.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitDivers.h"

namespace plv {

namespace {

constexpr std::size_t kLongueurChemin = 4096;  // the closing zero included

// read_ini keeps nothing of a file that it can't read to its end; the lines above the bad one are read by themselves.
void lireAvantLigne(const std::string& chemin, unsigned long ligneFautive, boost::property_tree::ptree& arbre) {
  std::ifstream fichier(chemin);
  std::stringstream debut;
  std::string ligne;
  for (unsigned long n = 1; n < ligneFautive && std::getline(fichier, ligne); ++n) debut << ligne << '\n';
  read_ini(debut, arbre);
}

// Whatever goes wrong, the settings have defaults.
void lire(const std::string& chemin, boost::property_tree::ptree& arbre) try {
  try {
    read_ini(chemin, arbre);
  } catch (const boost::property_tree::ini_parser_error& erreur) {
    lireAvantLigne(chemin, erreur.line(), arbre);
  }
} catch (const std::exception&) {}

// Programs of a batch read the file while another one writes it: they find the former contents or the new ones, whole.
// The file is opened first, so that one that can't be written is the library's failure. A link stays a link, and the file keeps
// its permissions.
void remplacer(const std::string& nom, const boost::property_tree::ptree& arbre) {
  if (!std::ofstream(nom, std::ios::app)) return write_ini(nom, arbre);
  std::error_code refus;
  const std::filesystem::path reel = std::filesystem::canonical(nom, refus);
  const std::string chemin = refus ? nom : reel.string();
  const std::string nouveau = chemin + "." + std::to_string(std::random_device{}());
  try {
    write_ini(nouveau, arbre);
    std::filesystem::permissions(nouveau, std::filesystem::status(chemin).permissions(), refus);
    std::filesystem::rename(nouveau, chemin);
  } catch (const std::exception&) {  // a folder that takes no new file
    std::filesystem::remove(nouveau, refus);
    write_ini(chemin, arbre);
  }
}

}  // namespace

std::string cheminFichier(const ACHAR* nom, const ACHAR* sousDossier) {
  std::wstring chemin = cheminInstallation();
  if (sousDossier && *sousDossier) (chemin += kSeparateurDossier) += sousDossier;
  (chemin += kSeparateurDossier) += nom;
  chemin.resize(std::min(chemin.size(), kLongueurChemin - 1));
  return nomDeFichier(chemin);
}

std::string cheminConfig() { return cheminFichier(L"config.ini"); }
std::string cheminConfigVardane() { return cheminFichier(L"ConfigVardane.ini"); }

fichierConfig& fichierConfig::unique() {
  static fichierConfig fichier;
  return fichier;
}

fichierConfig::fichierConfig() { lire(cheminConfig(), m_arbre); }

namespace {

using arbreConfig = boost::property_tree::ptree;

// What the file says now, with the changed keys and those that it hasn't from the tree; sections have one level.
arbreConfig fusionner(const std::string& chemin, const arbreConfig& arbre, const std::set<std::string>& changees) {
  arbreConfig fichier;
  lire(chemin, fichier);
  for (const auto& [section, reglages] : arbre)
    for (const auto& [nom, valeur] : reglages) {
      const std::string cle = section + '.' + nom;
      if (changees.contains(cle) || !fichier.get_child_optional(cle)) fichier.put(cle, valeur.data());
    }
  return fichier;
}

}  // namespace

void fichierConfig::sauver() {
  if (m_groupes > 0 || m_changees.empty()) return;
  const std::string chemin = cheminConfig();
  std::error_code absent;  // a folder that can't be made shows when the file is opened
  std::filesystem::create_directories(std::filesystem::path(chemin).parent_path(), absent);
  m_arbre = fusionner(chemin, m_arbre, m_changees);
  remplacer(chemin, m_arbre);
  m_changees.clear();
}

}  // namespace plv
