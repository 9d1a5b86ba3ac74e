// The drawing kit: what no published function shows of it.
// Called directly on the drawing of a session.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "hote/dbsymtb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitDessin.h"
#include "tests/module/aide.h"

using namespace plv;

namespace {

TEST(Letters, FoldWithoutTheLocale) {
  EXPECT_TRUE(egalSansCasse(L"ÉLÈVE Œuvre", L"élève œUVRE"));
  EXPECT_FALSE(egalSansCasse(L"a", L"ab"));
  EXPECT_TRUE(egalSansCasse(L"DECIDISque", L"decidIST", 7));
  EXPECT_FALSE(egalSansCasse(L"deci", L"decidIST", 7));
  EXPECT_EQ(enMajuscules(L"çà ÿ×÷"), L"ÇÀ Ÿ×÷");
  EXPECT_EQ(sansBlancs(L"\t a b \t"), L"a b");
}

TEST(Letters, CodePage) {
  EXPECT_EQ(depuisAnsi("Num\xE9ro \x80"), L"Numéro €");
  EXPECT_EQ(depuisAnsi("Num\xC3\xA9ro"), L"Numéro");
  EXPECT_EQ(versAnsi(L"Numéro € Ω"), "Num\xE9ro \x80 ?");
}

struct Kit : ::testing::Test {
  kaveltest::Prepared session{};
};

TEST_F(Kit, BlockNamesComeFromPaths) {
  const wchar_t* const noms[][2] = {{L"C:\\x\\VANNE.DWG", L"vanne"},
                                    {L"/a/b/Regard", L"regard"},
                                    {L"C:\\x\\", L"invalid"},
                                    {L".dwg", L"invalid"},
                                    {L"", L"invalid"},
                                    {L"a.dwg.dwg", L"a.dwg"},
                                    {L"C:\\x\\Coude*45é.dwg", L"coude_45é"}};
  for (const auto& nom : noms) EXPECT_EQ(nomDeBloc(nom[0]), nom[1]);
}

TEST_F(Kit, LayersAreMadeOnceAndKeepTheirColour) {
  AcDbObjectId premier, second;
  EXPECT_EQ(creerCalque(L" A ", premier, 3), Acad::eOk);
  EXPECT_EQ(creerCalque(L"a", second, 5), Acad::eOk);
  EXPECT_EQ(premier, second);
  EXPECT_EQ(session.eval("(cdr (assoc 62 (tblsearch \"LAYER\" \"A\")))"), "3");
}

TEST_F(Kit, GroupsGrow) {
  AcDbObjectIdArray liste, vide;
  EXPECT_TRUE(creerGroupe(vide, L"G").isNull());
  EXPECT_FALSE(creerGroupe(vide, L"VIDE", true).isNull());
  AcDbObjectId id;
  for (int i = 0; i < 3; ++i) {
    dessinerLigneXY(0, 0, 1, i, &id);
    liste.append(id);
  }
  const AcDbObjectId groupe = creerGroupe(liste, L"G");
  EXPECT_EQ(creerGroupe(liste, L"g"), groupe);
  dessinerLigneXY(0, 0, 1, 9, &id);
  ajouterAuGroupe(groupe, id);
  EXPECT_NE(creerGroupe(liste, L"*"), creerGroupe(liste, L"*"));
  AcDbObjectPointer<AcDbGroup> ouvert(groupe);
  ASSERT_EQ(ouvert.openStatus(), Acad::eOk);
  EXPECT_EQ(ouvert->numEntities(), 4u);
  EXPECT_FALSE(ouvert->isAnonymous());
}

TEST_F(Kit, XrecordsAreReplaced) {
  AcDbObjectId ligne;
  dessinerLigneXY(0, 0, 1, 1, &ligne);
  EXPECT_EQ(lireXrecord(AcDbObjectId::kNull, L"CLE"), nullptr);
  EXPECT_EQ(lireXrecord(ligne, L"CLE"), nullptr);
  for (const int valeur : {4, 5}) {
    listeRb liste;
    liste.ajouterEntier(valeur);
    liste.ajouterId(ligne);
    EXPECT_TRUE(ecrireXrecord(ligne, L"CLE", liste.tete()));
    listeRb lue(lireXrecord(ligne, L"CLE"));
    Adesk::Int32 lu = 0;
    AcDbObjectId id;
    EXPECT_TRUE(lue.lireEntier(lu));
    EXPECT_EQ(lu, valeur);
    EXPECT_TRUE(lue.lireId(id));
    EXPECT_EQ(id, ligne);
  }
  EXPECT_TRUE(ecrireXrecord(ligne, L"CLE", nullptr));
  EXPECT_EQ(lireXrecord(ligne, L"CLE"), nullptr);
}

TEST_F(Kit, BlocksCarryInformation) {
  session.load("blocs");
  AcDbObjectId bloc, ligne;
  ASSERT_TRUE(importerBloc(bloc, L"B.dwg", baseCourante()));
  std::wstring commentaire = L"x", info = L"x";
  EXPECT_TRUE(lireInfosBloc(bloc, commentaire, info));
  EXPECT_EQ(commentaire + info, L"");
  ecrireInfosBloc(bloc, L"Vanne à opercule");
  EXPECT_TRUE(lireInfosBloc(bloc, commentaire, info));
  EXPECT_EQ(commentaire, L"Vanne à opercule");
  EXPECT_EQ(info, L"Vanne à opercule");
  dessinerLigneXY(0, 0, 1, 1, &ligne);
  EXPECT_FALSE(lireInfosBloc(ligne, commentaire, info));
  EXPECT_EQ(commentaire + info, L"");
  double largeur = 0, hauteur = 0;
  EXPECT_TRUE(tailleBloc(bloc, largeur, hauteur));
  EXPECT_NEAR(largeur, 4, 1e-9);
  EXPECT_NEAR(hauteur, 2, 1e-9);
}

TEST_F(Kit, InsertedBlocksHaveTheirVariableAttributes) {
  session.load("blocs");
  EXPECT_FALSE(insererBloc(L"R", {10, 20, 0}, 2.0, 0.0).isNull());
  EXPECT_TRUE(insererBloc(L"absent", {10, 20, 0}, 2.0, 0.0).isNull());
  kaveltest::check(session, {{"(cdr (assoc 2 (setq a (entget (entnext (entlast))))))", "\"DN\""},
                             {"(cdr (assoc 1 a))", "\"defaut\""},
                             {"(cdr (assoc 10 a))", "(12.0 20.0 0.0)"},
                             {"(cdr (assoc 0 (entget (entnext (cdr (assoc -1 a))))))", "\"SEQEND\""}});
}

TEST_F(Kit, ShapesAndErasing) {
  AcDbObjectIdArray liste;
  AcDbObjectId id;
  dessinerRectangle(10, 20, 4, 2, 0.0, &id, 5);
  liste.append(id);
  kaveltest::check(session, {{"(setq c nil)", "nil"},
                             {"(progn (foreach p (entget (entlast)) (if (= (car p) 10) (setq c (cons (cdr p) c)))) c)",
                              "((10.0 22.0) (14.0 22.0) (14.0 20.0) (10.0 20.0))"},
                             {"(cdr (assoc 62 (entget (entlast))))", "5"}});
  debutPolyligne(2);
  ajouterSommet(0, 0);
  ajouterSommet(3, 4);
  auto polyligne = prendrePolyligne();
  EXPECT_EQ(polyligne->numVerts(), 2u);
  EXPECT_EQ(ajouterEtRetenir(liste, std::move(polyligne)), Acad::eOk);
  EXPECT_EQ(dessinerRayon({0, 0, 0}, {0, 8, 0}), Acad::eOk);
  EXPECT_EQ(session.eval("(cdr (assoc 11 (entget (entlast))))"), "(0.0 1.0 0.0)");
  effacerTout(liste);
  EXPECT_TRUE(liste.isEmpty());
  EXPECT_EQ(session.eval("(ssget \"X\" '((0 . \"LWPOLYLINE\")))"), "nil");
}

TEST(FitRule, NarrowsThenShrinks) {
  const kaveltest::Session session;
  const std::wstring texte = L"Canalisation";
  const double largeur = largeurTexte(texte, 2.0, AcDbObjectId::kNull);
  ASSERT_GT(largeur, 0.0);
  const struct {
    double part;
    bool ajuste;
    double facteur, hauteur;
  } cas[] = {{1.01, false, 1.0, 2.0},           {1.0, true, 1.0, 2.0},  {0.8, true, 0.8, 2.0}, {0.6, true, 0.6, 2.0},
             {0.5, true, 0.6, 2.0 * 0.5 / 0.6}, {0.25, true, 0.6, 1.4}, {-1, true, 0.6, 1.4}};
  for (const auto& c : cas) {
    double facteur = 1.0, hauteur = 2.0;
    EXPECT_EQ(ajusterTexte(largeur * c.part, texte, AcDbObjectId::kNull, hauteur, facteur), c.ajuste) << c.part;
    EXPECT_NEAR(facteur, c.facteur, 1e-9) << c.part;
    EXPECT_NEAR(hauteur, c.hauteur, 1e-9) << c.part;
  }
}

TEST_F(Kit, Selections) {
  AcDbObjectId id;
  dessinerLigneXY(0, 0, 1, 1, &id);
  dessinerRectangle(0, 0, 1, 1, 0.0);
  ads_name ss;
  const ACHAR* classes[] = {L"LINE", L"LWPOLYLINE"};
  AcDbObjectIdArray trouves, avecDonnees;
  ASSERT_TRUE(selectionParClasses(classes, 0, ss));
  idsDeSelection(ss, trouves);
  EXPECT_EQ(trouves.length(), 2);
  EXPECT_FALSE(selectionParClasse(L"ARC", 0, ss));
  EXPECT_FALSE(selectionParXData(L"KELMONT_PLV2", ss));
  session.eval("(pl_add_xdata 1 2 (cdr (assoc 5 (entget (ssname (ssget \"X\" '((0 . \"LINE\"))) 0)))))");
  ASSERT_TRUE(selectionParXData(L"KELMONT_PLV2", ss));
  idsDeSelection(ss, avecDonnees);
  ASSERT_EQ(avecDonnees.length(), 1);
  EXPECT_EQ(avecDonnees[0], id);
}

TEST_F(Kit, TheLogIsIndented) {
  const auto avant = std::filesystem::current_path();
  const auto dossier = std::filesystem::temp_directory_path() / ("journal_" + std::to_string(::getpid()));
  std::filesystem::create_directory(dossier);
  std::filesystem::current_path(dossier);
  journalDebug(2, L"début");
  journalDebug(0, L"fin");
  std::ostringstream lu;
  lu << std::ifstream("DEBUGINFO.MSG", std::ios::binary).rdbuf();
  std::filesystem::current_path(avant);
  std::filesystem::remove_all(dossier);
  EXPECT_EQ(lu.str(),
            "  d\xE9"
            "but\nfin\n");
}

TEST_F(Kit, TheInstallationFolderHasNoSeparatorAtItsEnd) {
  const std::wstring dossier = cheminInstallation();
  ASSERT_FALSE(dossier.empty());
  EXPECT_NE(dossier.back(), L'/');
  EXPECT_EQ(std::wstring(cheminInstallation(L"a.txt")), dossier + L"/a.txt");
  EXPECT_STREQ(espaceCourant(), L"*Model_Space");
}

}  // namespace
