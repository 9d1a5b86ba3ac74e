// The settings file: what the module makes of it while it loads, and how a setting changes.
// Loading happens before main, so this program is run again on a folder of its own, with no test to run.
#include "module/support/reglages/reglages.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <boost/property_tree/ini_parser.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "module/support/reglages/fichierConfig.h"

namespace fs = std::filesystem;

namespace {

const char* const kFichierNeuf =
    "[Kavels]\nHatchTransparency=90\n"
    "HauteurMinClasseProfondeur1=1\nHauteurMinClasseProfondeur2=1.5\nHauteurMinClasseProfondeur3=2\n"
    "HauteurMinClasseProfondeur4=3\nHauteurMinClasseProfondeur5=4\nHauteurMinClasseProfondeur6=5\n"
    "CoulClasse1=1\nCoulClasse2=2\nCoulClasse3=3\nCoulClasse4=4\nCoulClasse5=5\nCoulClasse6=6\n"
    "LargeurClasse1=0.59999999999999998\nLargeurClasse2=0.80000000000000004\nLargeurClasse3=1\n"
    "LargeurClasse4=1.5\nLargeurClasse5=2\nLargeurClasse6=2\n"
    "profLitClasse1=0\nprofLitClasse2=0\nprofLitClasse3=0\nprofLitClasse4=0\nprofLitClasse5=0\nprofLitClasse6=0\n";

std::string remplacer(std::string texte, const std::string& avant, const std::string& apres) {
  return texte.replace(texte.find(avant), avant.size(), apres);
}

std::string contenu(const fs::path& fichier) {
  std::ostringstream texte;
  texte << std::ifstream(fichier, std::ios::binary).rdbuf();
  return texte.str();
}

struct Installation : ::testing::Test {
  Installation() : dossier(fs::temp_directory_path() / ("kavel-reglages-" + std::to_string(getpid()))) {
    fs::create_directories(dossier);
  }
  ~Installation() override { fs::remove_all(dossier); }
  fs::path fichier() const { return dossier / "config.ini"; }
  void ecrire(const std::string& texte) const { std::ofstream(fichier(), std::ios::binary) << texte; }
  std::string lire() const { return contenu(fichier()); }
  // The program's exit status: it loads the module with this installation folder, and ends.
  static int charger(const fs::path& installation) {
    const std::string programme = fs::read_symlink("/proc/self/exe").string();
    return std::system(
        ("KAVEL_CHEMIN='" + installation.string() + "' '" + programme + "' --gtest_filter=-* > /dev/null 2>&1")
            .c_str());
  }
  fs::path dossier;
};

TEST_F(Installation, AnAbsentFileIsMadeWithTheDefaultsInOrder) {
  EXPECT_EQ(charger(dossier), 0);
  EXPECT_EQ(lire(), kFichierNeuf);
  const fs::path profond = dossier / "a" / "é";
  EXPECT_EQ(charger(profond.string() + "//\\"), 0);
  EXPECT_TRUE(fs::exists(profond / "config.ini"));
}

TEST_F(Installation, WhatDoesntFitIsReplacedByTheDefaultAndTheRestStays) {
  const std::string neuf = kFichierNeuf;
  const struct {
    std::string avant, apres;
  } cas[] = {{remplacer(neuf, "=90", "=beaucoup"), neuf},
             {remplacer(neuf, "=90", "=9.5"), neuf},
             {remplacer(neuf, "CoulClasse2=2", "CoulClasse2=x"), neuf},
             {remplacer(neuf, "=90", "=250"), remplacer(neuf, "=90", "=250")},
             {remplacer(neuf, "CoulClasse2=2", "CoulClasse2=65"), remplacer(neuf, "CoulClasse2=2", "CoulClasse2=65")},
             {"[Autre]\nx=1\n" + neuf, "[Autre]\nx=1\n" + neuf},
             {"[Kavels]\nprofLitClasse6=0.1\n",
              remplacer(remplacer(neuf, "profLitClasse6=0\n", ""), "[Kavels]\n", "[Kavels]\nprofLitClasse6=0.1\n")},
             // Up to a bad line, what stands above it is kept.
             {"[Kavels]\nHatchTransparency=40\nsans egal\nCoulClasse1=9\n", remplacer(neuf, "=90", "=40")},
             {"[Kavels]\nHatchTransparency=40\nHatchTransparency=50\n", remplacer(neuf, "=90", "=40")}};
  for (const auto& c : cas) {
    ecrire(c.avant);
    EXPECT_EQ(charger(dossier), 0) << c.avant;
    EXPECT_EQ(lire(), c.apres) << c.avant;
  }
}

TEST_F(Installation, AFolderThatCantBeWrittenLeavesTheDefaults) {
  std::ofstream(dossier / "pas-un-dossier") << "x";
  EXPECT_EQ(charger(dossier / "pas-un-dossier"), 0);
}

TEST(Reglages, AChangeIsWrittenAtOnceAndTheSameValueIsNot) {
  auto& transparence = plv::reglagesModule().transparenceHachures;
  auto& couleur = plv::reglagesModule().couleurs[1];
  EXPECT_EQ(transparence.valeur, 90);
  EXPECT_EQ(couleur.valeur, 2);
  const fs::path fichier = plv::cheminConfig();
  fs::remove(fichier);
  EXPECT_FALSE(transparence.changer(90));
  EXPECT_FALSE(fs::exists(fichier));
  EXPECT_TRUE(couleur.changer(66));
  EXPECT_EQ(contenu(fichier), remplacer(kFichierNeuf, "CoulClasse2=2", "CoulClasse2=66"));
  transparence.enregistrer(35);  // the field is the caller's
  EXPECT_EQ(transparence.valeur, 90);
  EXPECT_NE(contenu(fichier).find("HatchTransparency=35\n"), std::string::npos);
  transparence.enregistrer(90);
  couleur.changer(2);
}

TEST(Reglages, AFailedWriteIsTheLibrarysFailureAndIsMadeUpLater) {
  const fs::path fichier = plv::cheminConfig();
  fs::remove_all(fichier.parent_path());
  std::ofstream(fichier.parent_path()) << "not a folder";
  auto& largeur = plv::reglagesModule().largeurs[2];
  EXPECT_THROW(largeur.changer(1.25), boost::property_tree::ini_parser_error);
  EXPECT_EQ(largeur.valeur, 1.25);
  fs::remove(fichier.parent_path());
  plv::fichierConfig::unique().sauver();
  EXPECT_NE(contenu(fichier).find("LargeurClasse3=1.25\n"), std::string::npos);
  largeur.changer(1.0);
}

TEST(Reglages, PathsStandInTheInstallationFolder) {
  const std::string config = plv::cheminConfig();
  const std::string installation = config.substr(0, config.size() - std::string("/config.ini").size());
  EXPECT_EQ(config, installation + "/config.ini");
  EXPECT_EQ(plv::cheminConfigVardane(), installation + "/ConfigVardane.ini");
  EXPECT_EQ(plv::cheminFichier(L"é.lsp", L""), installation + "/é.lsp");
  EXPECT_EQ(plv::cheminFichier(L"a.dwg", L"blocs"), installation + "/blocs/a.dwg");
  EXPECT_EQ(plv::cheminFichier(std::wstring(9000, L'a').c_str()).size(), 4095u);
}

}  // namespace
