// The settings file when others use it too: another program's keys stay, readers never meet half a list of classes, links and
// permissions survive.
#include <gtest/gtest.h>

#include <atomic>
#include <boost/property_tree/ini_parser.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "module/metres/classeProfondeur.h"
#include "module/support/reglages/fichierConfig.h"
#include "module/support/reglages/reglages.h"

namespace fs = std::filesystem;

namespace {

std::string lire() {
  std::ostringstream texte;
  texte << std::ifstream(plv::cheminConfig(), std::ios::binary).rdbuf();
  return texte.str();
}

double hauteur(const std::string& texte) {
  boost::property_tree::ptree arbre;
  std::istringstream flux(texte);
  read_ini(flux, arbre);
  return arbre.get<double>("Kavels.HauteurMinClasseProfondeur1");
}

// Each test leaves the defaults, and nothing of another program.
struct ReglagesPartages : ::testing::Test {
  ~ReglagesPartages() override {
    plv::fichierConfig::unique().arbre().erase("Autre");
    fs::remove(plv::cheminConfig());
    plv::sauverClasses(parDefaut);
  }
  plv::classesProfondeur parDefaut = [] {
    plv::classesProfondeur liste;
    plv::chargerClasses(liste);
    return liste;
  }();
};

TEST_F(ReglagesPartages, KeysOfAnotherProgramStay) {
  auto& transparence = plv::reglagesModule().transparenceHachures;
  transparence.changer(80);
  boost::property_tree::ptree arbre;
  read_ini(plv::cheminConfig(), arbre);
  arbre.put("Kavels.LargeurClasse1", 0.75);
  arbre.put("Autre.cle", "x");
  write_ini(plv::cheminConfig(), arbre);
  transparence.changer(90);
  EXPECT_NE(lire().find("LargeurClasse1=0.75\n"), std::string::npos) << lire();
  EXPECT_NE(lire().find("[Autre]\ncle=x\n"), std::string::npos);
  EXPECT_NE(lire().find("HatchTransparency=90\n"), std::string::npos);
  auto& largeur = plv::reglagesModule().largeurs[0];
  largeur.enregistrer(largeur.valeur);
}

TEST_F(ReglagesPartages, AReaderNeverFindsHalfAListOfClasses) {
  const plv::classesProfondeur autres = {{0, 0.8, 0.1, 0.5, 1}, {0.8, 1.3, 0.1, 0.7, 2}};
  plv::sauverClasses(autres);
  std::atomic<bool> fini = false;
  std::atomic<int> lus = 0, etranges = 0;
  std::thread lecteur([&] {
    while (!fini) {
      const std::string texte = lire();
      const double h = hauteur(texte);
      ++lus;
      if (h != 0.8 && h != 1.0) ++etranges;
    }
  });
  for (int i = 0; i < 300 || lus < 300; ++i) plv::sauverClasses(i % 2 == 0 ? parDefaut : autres);
  fini = true;
  lecteur.join();
  EXPECT_EQ(etranges, 0) << "of " << lus;
}

TEST_F(ReglagesPartages, LinksAndPermissionsSurvive) {
  const fs::path lien = plv::cheminConfig(), vrai = lien.parent_path() / "ailleurs.ini";
  fs::rename(lien, vrai);
  fs::create_symlink(vrai, lien);
  const auto droits = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(vrai, droits);
  plv::reglagesModule().transparenceHachures.changer(70);
  EXPECT_TRUE(fs::is_symlink(lien));
  EXPECT_EQ(fs::status(vrai).permissions(), droits);
  EXPECT_NE(lire().find("HatchTransparency=70\n"), std::string::npos);
  plv::reglagesModule().transparenceHachures.changer(90);
  fs::remove(lien);
  fs::rename(vrai, lien);
}

}  // namespace
