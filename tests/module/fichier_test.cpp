// Matrix definition files: the analysis of a line, and whole files.
// A line that doesn't declare a row is passed over in silence.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "module/matrices/fichierMatrices.h"
#include "tests/module/aide.h"

namespace {

TEST(DefinitionLine, Fields) {
  const struct {
    const wchar_t* ligne;
    const wchar_t* matrice;
    double hauteur;
    int type;
    const wchar_t* libelle;
    const wchar_t* infos;
  } cas[] = {
      {L"ROUTE  -  2.5  4   Altitude terrain naturel", L"ROUTE", 2.5, 4, L"Altitude terrain naturel", L""},
      {L"\tROUTE\t-\t2\t0", L"ROUTE", 2, 0, L"", L""},
      {L"R - 2 0 deux  mots ", L"R", 2, 0, L"deux  mots ", L""},
      {L"RESEAU - 3.0 11 {DN|MAT} Canalisation", L"RESEAU", 3, 11, L"Canalisation", L"DN|MAT"},
      {L"RESEAU {tampon} -  2.0 2 Distances", L"RESEAU", 2, 2, L"Distances", L"tampon"},
      {L"{un} R {deux} - 1 2 {trois}", L"R", 1, 2, L"", L"trois"},
      {L"R - 1 2 {ouvert jusqu'au bout", L"R", 1, 2, L"", L"ouvert jusqu'au bout"},
      {L"R{x} - 1 2 L", L"R{x}", 1, 2, L"L", L""},
      {L"R - 1 2 a {b} c", L"R", 1, 2, L"a {b} c", L""},
      {L"R - 1 2 {a} {b} c", L"R", 1, 2, L"{b} c", L"a"},
      {L"R - +1.5E1 2.9 L", L"R", 15, 2, L"L", L""},
      {L"R - 1.E2 -3 L", L"R", 100, -3, L"L", L""},
      {L"R - 2 99999999999 L", L"R", 2, 2147483647, L"L", L""},
  };
  for (const auto& c : cas) {
    const auto lue = plv::analyserLigne(c.ligne);
    ASSERT_TRUE(lue) << std::string(c.ligne, c.ligne + std::wcslen(c.ligne));
    EXPECT_EQ(lue->matrice, c.matrice);
    EXPECT_EQ(lue->hauteur, c.hauteur);
    EXPECT_EQ(lue->type, c.type);
    EXPECT_EQ(lue->libelle, c.libelle);
    EXPECT_EQ(lue->infos, c.infos);
  }
}

TEST(DefinitionLine, RefusedLines) {
  for (const wchar_t* ligne : {L"", L"   ", L"; Matrices du profil route", L"R - 2", L"R - 2   ", L"R 2 0 Label",
                               L"R - 2,5 0 L", L"R - 5. 0 L", L"R - .5 0 L", L"R - 1E3 0 L", L"R - 1.5e3 0 L",
                               L"R - 2 x L", L"R - + 0 L", L"R - 1.5E 0 L", L"R - 1-2 0 L", L"R - 2 {seul}"})
    EXPECT_FALSE(plv::analyserLigne(ligne)) << std::string(ligne, ligne + std::wcslen(ligne));
}

struct Fichier : ::testing::Test {
  ~Fichier() override { std::filesystem::remove(chemin); }
  // Loads a file of these bytes.
  std::string lire(const std::string& octets) {
    std::ofstream(chemin, std::ios::binary) << octets;
    return session.eval("(pl_LireMatriceKavel \"" + chemin.string() + "\")");
  }
  const plv::matriceProfil& matrice(int i) { return *plv::collectionMatrices().matrices[i]; }
  const std::filesystem::path chemin =
      std::filesystem::temp_directory_path() / ("matrices_" + std::to_string(::getpid()) + ".txt");
  kaveltest::Session session;
};

TEST_F(Fichier, RowsAreNumberedThroughTheWholeFile) {
  EXPECT_EQ(lire("; Matrices\r\n\r\nROUTE - 2 0 Num\xE9ro\r\nRoute - 2.5 4 Altitude\r\nRESEAU - 3.0 11 {DN} Tuyau\n"
                 "ROUTE - 1.5 13 Pentes"),
            "T");
  ASSERT_EQ(plv::collectionMatrices().matrices.GetCount(), 2);
  EXPECT_EQ(matrice(0).lignes.GetCount(), 3);
  EXPECT_EQ(matrice(0).lignes[0]->libelle, L"Numéro");
  EXPECT_EQ(matrice(0).lignes[2]->nomLigne, L"4");
  EXPECT_EQ(matrice(1).lignes[0]->nomLigne, L"3");
  EXPECT_EQ(matrice(1).lignes[0]->infosLigne, L"DN");
  EXPECT_EQ(plv::collectionMatrices().matriceCourante, 0);
}

TEST_F(Fichier, Utf8IsReadAsSuch) {
  EXPECT_EQ(lire("\xEF\xBB\xBFR - 2 0 Num\xC3\xA9ro"), "T");
  EXPECT_EQ(matrice(0).nomMatrice, L"R");
  EXPECT_EQ(matrice(0).lignes[0]->libelle, L"Numéro");
}

TEST_F(Fichier, AnyCallEmptiesTheCollectionFirst) {
  for (const char* appel : {"(pl_LireMatriceKavel)", "(pl_LireMatriceKavel 1)", "(pl_LireMatriceKavel \"a\" \"b\")",
                            "(pl_LireMatriceKavel \"/nulle/part\")"}) {
    session.eval("(pl_CreeMatrice \"M\")");
    EXPECT_EQ(session.eval(appel), "nil");
    EXPECT_EQ(plv::collectionMatrices().matrices.GetCount(), 0) << appel;
  }
  EXPECT_EQ(lire("rien\nici - x y"), "nil");
}

}  // namespace
