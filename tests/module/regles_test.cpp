// The page of rules that are kept names the tests that hold them: each of these exists.
// Tests of other programs are looked up where they are registered.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace {

std::string contenu(const std::string& chemin) {
  std::ifstream fichier(std::string(KAVEL_SOURCE) + "/" + chemin);
  std::ostringstream texte;
  texte << fichier.rdbuf();
  return texte.str();
}

std::set<std::string> testsDuProgramme() {
  std::set<std::string> noms;
  const auto& programme = *testing::UnitTest::GetInstance();
  for (int i = 0; i < programme.total_test_suite_count(); ++i) {
    const auto& suite = *programme.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j)
      noms.insert(std::string(suite.name()) + "." + suite.GetTestInfo(j)->name());
  }
  return noms;
}

TEST(KeptRules, NameTestsThatExist) {
  const std::string page = contenu("docs/regles-gardees.md"), inscrits = contenu("tests/CMakeLists.txt");
  const std::set<std::string> presents = testsDuProgramme();
  const std::regex nom("`([A-Z][A-Za-z]+\\.[A-Z][A-Za-z]+)`");
  int nommes = 0;
  for (std::sregex_iterator i(page.begin(), page.end(), nom), fin; i != fin; ++i, ++nommes) {
    const std::string test = (*i)[1];
    EXPECT_TRUE(presents.contains(test) || inscrits.find("NAME " + test + "\n") != std::string::npos) << test;
  }
  EXPECT_GT(nommes, 60);
}

}  // namespace
