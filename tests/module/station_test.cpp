// Station text and numberers.
// Rows give the value, the decimals and the format.
#include "module/profil/numeroteur.h"

#include <gtest/gtest.h>

#include "module/profil/texteStation.h"

namespace {

TEST(StationText, Formats) {
  const struct {
    double valeur;
    int decimales, format;
    const wchar_t* texte;
  } cas[] = {{1250.5, 2, 0, L"1250.50"},
             {1250.5, 2, 1, L"PK 1+250.50"},
             {1250.5, 2, 2, L"1+250.50"},
             {1250.5, 2, 3, L"1 250.50"},
             {1250.5, 2, -1, L"1 250.50"},
             {-1250.5, 2, 0, L"-1250.50"},
             {-1250.5, 2, 1, L"PK 1+250.50"},
             {999.999, 2, 1, L"PK 0+1000.00"},
             {1999.999, 2, 1, L"PK 1+1000.00"},
             {0, 0, 1, L"PK 0+0"},
             {3000, 1, 2, L"3+0.0"},
             {12.345678, 5, 0, L"12.34568"},
             {2.5, 0, 0, L"2"},
             {1.25, -3, 0, L"1.250000"}};
  for (const auto& c : cas) {
    std::wstring texte = L"avant";
    plv::texteStation(c.valeur, texte, c.decimales, c.format);
    EXPECT_EQ(texte, c.texte) << c.valeur;
  }
}

TEST(LetterRule, CountsLikeColumns) {
  const wchar_t* const suites[][2] = {{L"", L"A"},     {L"A", L"B"},     {L"AZ", L"BA"}, {L"Z", L"AA"},
                                      {L"ZZ", L"AAA"}, {L"AZZ", L"BAA"}, {L"a", L"b"},   {L"9", L":"}};
  for (const auto& suite : suites) {
    std::wstring texte = suite[0];
    plv::incrementerLettres(texte);
    EXPECT_EQ(texte, suite[1]);
  }
}

TEST(Numberer, StepsAndGoesBackToItsStart) {
  plv::numeroteurEntier n;
  n.initialiser(L"R", 1, L"", 5);
  EXPECT_EQ(n.suivant(), L"R1");
  EXPECT_EQ(n.suivant(), L"R6");
  EXPECT_EQ(n.suivant(), L"R11");
  n.incrementerPrefixe();
  EXPECT_EQ(n.suivant(), L"S1");
  n.incrementerSuffixe();
  EXPECT_EQ(n.suivant(), L"S1A");
  n.initialiser(L"T", 40, L"", 1);
  n.incrementerPrefixe();
  EXPECT_EQ(n.suivant(), L"U1");  // not at the first number that was given
}

TEST(Numberer, IncrementsByOneWhateverTheStep) {
  plv::numeroteurEntier n;
  n.initialiser(L"", 10, L"", 5);
  n.incrementer();
  EXPECT_EQ(n.valeur(true), 11);
  EXPECT_EQ(n.valeur(false), 12);
  EXPECT_EQ(n.valeur(false), 12);
}

}  // namespace
