// The page of rules that are kept names the tests that hold them: each of these exists.
// Tests of other programs are looked up where they are registered.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/rows.h"

namespace {

std::string contenu(const std::string& chemin) {
  std::ifstream fichier(std::string(KAVEL_SOURCE) + "/" + chemin);
  std::ostringstream texte;
  texte << fichier.rdbuf();
  return texte.str();
}

// "cellules_QuadrantsStand_2", the second run of a situation, is "Cellules.QuadrantsStand" for a reader.
std::string nomDeTest(const std::string& situation) {
  const std::size_t trait = situation.find('_');
  std::string nom = situation.substr(0, situation.find('_', trait + 1));
  nom[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(nom[0])));
  nom[trait] = '.';
  return nom;
}

std::set<std::string> testsDuProgramme() {
  std::set<std::string> noms;
  const auto& programme = *testing::UnitTest::GetInstance();
  for (int i = 0; i < programme.total_test_suite_count(); ++i) {
    const auto& suite = *programme.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j)
      noms.insert(std::string(suite.name()) + "." + suite.GetTestInfo(j)->name());
  }
  for (const auto& situation : kaveltest::situations(KAVEL_SOURCE "/tests/module/rangees"))
    noms.insert(nomDeTest(situation.name));
  return noms;
}

// What stands between backticks and looks like "Suite.Name".
std::vector<std::string> testsNommes(const std::string& page) {
  std::vector<std::string> noms;
  std::istringstream morceaux(page);
  std::string morceau;
  for (bool cite = false; std::getline(morceaux, morceau, '`'); cite = !cite) {
    const std::size_t point = morceau.find('.');
    const bool lettres = std::all_of(morceau.begin(), morceau.end(),
                                     [](char c) { return c == '.' || std::isalpha(static_cast<unsigned char>(c)); });
    if (cite && lettres && point != std::string::npos && point > 0 && point + 1 < morceau.size())
      noms.push_back(morceau);
  }
  return noms;
}

TEST(KeptRules, NameTestsThatExist) {
  const std::string page = contenu("docs/regles-gardees.md"), inscrits = contenu("tests/CMakeLists.txt");
  const std::set<std::string> presents = testsDuProgramme();
  const std::vector<std::string> nommes = testsNommes(page);
  for (const std::string& test : nommes)
    EXPECT_TRUE(presents.contains(test) || inscrits.find("NAME " + test + "\n") != std::string::npos) << test;
  EXPECT_GT(nommes.size(), 60u);
}

}  // namespace
