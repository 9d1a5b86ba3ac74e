// Depth classes: what the settings give, what an insertion cuts, what the extreme classes and the labels are.
// A class is written as its limits, width and colour.
#include <gtest/gtest.h>

#include <sstream>

#include "module/metres/classeProfondeur.h"
#include "module/support/reglages/reglages.h"

namespace {

using plv::classeProfondeur;
using plv::classesProfondeur;

std::string texte(const classesProfondeur& liste) {
  std::ostringstream sortie;
  for (const classeProfondeur& c : liste)
    sortie << c.debut << '-' << c.fin << " l" << c.largeur << " c" << c.couleur << "; ";
  return sortie.str();
}

constexpr const char* kParDefaut = "0-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-2 l1 c3; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; ";

struct Classes : ::testing::Test {
  Classes() { plv::chargerClasses(liste); }
  ~Classes() override { plv::sauverClasses(origine); }
  classesProfondeur origine = plv::listeClasses();
  classesProfondeur liste;
};

TEST_F(Classes, DefaultsAreSixContiguousOnes) { EXPECT_EQ(texte(liste), kParDefaut); }

TEST_F(Classes, AnInsertionCutsWhatItOverlaps) {
  const struct {
    classeProfondeur nouvelle;
    const char* attendu;
  } cas[] = {
      {{0.5, 0.8, 0, 9, 7},
       "0-0.5 l0.6 c1; 0.5-0.8 l9 c7; 0.8-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-2 l1 c3; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; "},
      {{1.2, 2.5, 0, 9, 7}, "0-1 l0.6 c1; 1-1.2 l0.8 c2; 1.2-2.5 l9 c7; 2.5-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; "},
      {{8, 6, 0, 9, 7}, "0-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-2 l1 c3; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; 6-8 l9 c7; "},
      {{1.5, 2, 0, 9, 7}, "0-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-2 l9 c7; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; "},
      {{0, 0.5, 0, 9, 7},
       "0-0.5 l9 c7; 0.5-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-2 l1 c3; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; "},
      {{0, 9, 0, 9, 7}, "0-9 l9 c7; "},
      {{2.2, 2.205, 0, 9, 7}, kParDefaut},
  };
  for (const auto& c : cas) {
    classesProfondeur copie = liste;
    classeProfondeur nouvelle = c.nouvelle;
    plv::insererClasse(copie, nouvelle);
    EXPECT_EQ(texte(copie), c.attendu) << c.nouvelle.debut << " a " << c.nouvelle.fin;
    EXPECT_LE(nouvelle.debut, nouvelle.fin);  // the record given is put in order, too
  }
}

TEST_F(Classes, ComeBackContiguousAndSixAtMost) {
  plv::supprimerClasse(liste, 2);
  plv::supprimerClasse(liste, 77);
  plv::sauverClasses(liste);
  classesProfondeur relue;
  plv::chargerClasses(relue);
  EXPECT_EQ(texte(relue), "0-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; ");
  for (const double debut : {6.0, 7.0, 8.0}) {
    classeProfondeur nouvelle{debut, debut + 1, 0.1, 3, 300};
    plv::insererClasse(relue, nouvelle);
  }
  ASSERT_EQ(relue.size(), 8u);
  plv::sauverClasses(relue);
  plv::chargerClasses(relue);
  EXPECT_EQ(texte(relue), "0-1 l0.6 c1; 1-1.5 l0.8 c2; 1.5-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; 5-7 l3 c44; ");
}

// A height of 0 leaves its class out, and the next class begins at 0; negative settings are put right in the file.
TEST_F(Classes, OddSettingsLoad) {
  auto& reglages = plv::reglagesModule();
  reglages.hauteursMin[1].changer(0.0);
  reglages.hauteursMin[3].changer(-3.0);
  reglages.largeurs[0].changer(-0.7);
  plv::chargerClasses(liste);
  EXPECT_EQ(texte(liste), "0-1 l0.7 c1; 0-2 l1 c3; 2-3 l1.5 c4; 3-4 l2 c5; 4-5 l2 c6; ");
  EXPECT_EQ(reglages.hauteursMin[3].valeur, 3.0);
  reglages.largeurs[1].changer(0.8);
}

TEST_F(Classes, TheExtremeOnesMakeTheListTotal) {
  {
    const plv::gardeClassesExtremes garde(liste);
    ASSERT_EQ(liste.size(), 8u);
    EXPECT_EQ(liste.front().debut, -1e99);
    EXPECT_EQ(liste.back().debut, 5);
    EXPECT_EQ(liste.back().fin, 1e99);
    const struct {
      double profondeur;
      int classe;
    } cas[] = {{-2, 0}, {0, 0}, {1e-9, 0}, {1e-7, 1}, {1, 1}, {1 + 5e-9, 1}, {1.0000001, 2}, {5, 6}, {5.5, 7}};
    for (const auto& c : cas)
      EXPECT_EQ(plv::classeDeProfondeur(liste, plv::profondeurFouille(c.profondeur)), c.classe) << c.profondeur;
  }
  EXPECT_EQ(texte(liste), kParDefaut);
  classesProfondeur vide;
  {
    const plv::gardeClassesExtremes garde(vide);
    ASSERT_EQ(vide.size(), 2u);
    EXPECT_EQ(vide.back().debut, 0);
    EXPECT_EQ(vide.back().fin, 1e99);
  }
  EXPECT_TRUE(vide.empty());
  EXPECT_EQ(plv::classeDeProfondeur(vide, plv::profondeurFouille(1)), -1);
}

TEST_F(Classes, LabelsNameTheBand) {
  const wchar_t* attendus[] = {L"Non enterre",  L"0.00 - 1.00 ", L"1.00 - 1.50 ",    L"1.50 - 2.00 ",
                               L"2.00 - 3.00 ", L"3.00 - 4.00 ", L"au dela de 5.00", L"au dela de 5.00"};
  for (int k = 0; k < 8; ++k) EXPECT_EQ(plv::libelleClasse(liste, k), attendus[k]) << k;
}

}  // namespace
