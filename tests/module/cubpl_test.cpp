// C:CUBPL from the command line: profiles, projects, classes, hatches, and what each button says.
// Answers are fed as a script would; lists are read from the transcript.
#include "module/metres/classeProfondeur.h"
#include "module/support/reglages/reglages.h"
#include "tests/module/metres_aide.h"

namespace {

struct Cubpl : kaveltest::ProfilDessine {
  Cubpl() {
    session.eval(kaveltest::kTrace);
    session.eval(R"((progn
      (setq rv (reference "PROFIL" "NUMPL" "s" 100.0) rp (reference "PROFIL" "NUMPL" "s" 100.0) rt (reference "PROFIL" "NUMPL" "s" 100.0))
      (plsxd prf "HVOIRIE" rv) (plsxd prf "HPROJ" rp) (plsxd prf "HTN" rt)
      (setq a (tronc 0.0 99.5 60.0 99.5 95.0) b (tronc 100.0 100.5 150.0 103.5 100.0))
      (pl_elem_prj prf "TN" tn1 tn2 tn3)
      (defun types (nom / jeu) (if (setq jeu (ssget "X" (list (cons 0 nom)))) (sslength jeu) 0))))");
  }
  ~Cubpl() override {
    plv::classesProfondeur origine;
    for (const auto& [fin, largeur, couleur] :
         {std::tuple(1.0, 0.6, 1), {1.5, 0.8, 2}, {2.0, 1.0, 3}, {3.0, 1.5, 4}, {4.0, 2.0, 5}, {5.0, 2.0, 6}})
      origine.push_back({0, fin, 0, largeur, couleur});
    plv::sauverClasses(origine);
  }
  std::string cubpl(const std::string& reponses) { return session.feed("CUBPL\n" + reponses + "\n"); }
  static bool contient(const std::string& texte, const std::string& partie) {
    return texte.find(partie) != std::string::npos;
  }
};

#define VOIT(texte, partie) EXPECT_TRUE(contient(texte, partie)) << partie << "\n" << texte

constexpr const char* kAjouter = "Ajouter Profils\n!prf\n\n";

TEST_F(Cubpl, ShowsTheSectionsOfTheOneProject) {
  session.eval("(pl_elem_prj prf \"V\" b a)");
  const std::string vu = cubpl(std::string(kAjouter) + kAjouter + "Fermer");
  VOIT(vu, "\nSelectionnez les profils en longs a a jouter:");
  VOIT(vu, "Profil:P1");
  VOIT(vu, "Pk : 0.000 a 150.000");
  // By first station, though the list has b first; class, average depth, volume by the class's width, surface.
  VOIT(vu, "0.000   10.000   1 -      0.750   4.500    7.500\n");
  VOIT(vu, "30.000   60.000   4 -      2.306  103.750  69.167\n");
  VOIT(vu, "100.000  150.000  1 -      0.500  15.000   25.000\n");
  // Added once: one title in each showing of the list.
  const std::string derniere = vu.substr(vu.rfind("Profils en long\n"));
  EXPECT_EQ(derniere.find("Profil:P1"), derniere.rfind("Profil:P1"));
}

// Here what is deeper than all classes has no width, whereas the workbook gives it that of the last class.
TEST_F(Cubpl, BelowTheLastClassTheDialogCountsNoVolume) {
  session.eval(
      "(progn (setq c (tronc 0.0 90.0 40.0 92.0 95.0)) (pl_elem_prj prf \"V\" c) (setq l (dialoguer c:cubpl "
      "(list \"AjouterProfils\" (progn (setq s (ssadd)) (ssadd prf s)) \"\" \"Fermer\"))))");
  kaveltest::check(session,
                   {{"(cdddr (nth 2 (car l)))", "(\"40.000\" \" 7 -     10.000 \" \"     0.000 \" \"   400.000 \")"}});
}

TEST_F(Cubpl, AsksForTheProjectOnceAndOnlyWhenThereAreSeveral) {
  session.eval("(progn (pl_elem_prj prf \"V\" a) (pl_elem_prj prf \"P\" b))");
  const std::string choisi = cubpl(std::string(kAjouter) + "2\nOK\nFermer");
  VOIT(choisi, "Selectionnez quel projet a utiliser\n");
  VOIT(choisi, "1  Voirie\n");
  VOIT(choisi, "2  Projet\n");
  VOIT(choisi, "100.000  150.000");
  // A cancel leaves the profile without sections, and the next one asks again.
  const std::string annule = cubpl(std::string(kAjouter) + "Cancel\nProfilsEnLong=1\nFermer");
  VOIT(annule, "Pk : 0.000 a 150.000");
  EXPECT_FALSE(contient(annule, " - ")) << annule;
}

TEST_F(Cubpl, SaysThatThereIsNoProject) {
  VOIT(cubpl(std::string(kAjouter) + "Fermer"), "Erreur: Ce profil ne contient pas de projet associé\n");
  // Once a kind of project was found, the text about a profile without any differs by a letter.
  session.eval(
      "(progn (pl_elem_prj prf \"V\" a) (setq nu (reference \"PROFIL\" \"NUMPL\" \"N\" 700.0)) (plsxd nu \"ECHV\" "
      "1.0))");
  VOIT(cubpl("Ajouter Profils\n!prf\n!nu\n\nFermer"), "Ce profil ne continent pas de projet associé\n");
}

TEST_F(Cubpl, WithoutAttachedTerrainTheGroundLinesOfTheSectionsServe) {
  session.eval(R"((progn (pl_elem_prj prf "V" a) (plsxd prf "HTN" 0)
    (plsxd pc1 "PRLI" tn1) (plsxd tn1 "NEXTLI" tn2) (plsxd pc2 "PRLI" tn3)))");
  VOIT(cubpl(std::string(kAjouter) + "Fermer"), "1 -      0.750");
}

TEST_F(Cubpl, AFailureInAButtonIsShownAndTheDialogStays) {
  session.eval("(progn (setq loin (tronc 300.0 99.0 310.0 99.0 100.0)) (pl_elem_prj prf \"V\" a loin))");
  const std::string vu = cubpl(std::string(kAjouter) + "AjouterUneClasse\nCancel\nFermer");
  VOIT(vu, "Métrés du profil: invalid argument\n");
  VOIT(vu, "Classe de profondeur [OK/Cancel]");
}

TEST_F(Cubpl, RemovesWhatTheHiddenListHasSelected) {
  session.eval(
      "(progn (pl_elem_prj prf \"V\" a) (setq r (tampon \"VardanePLVDGE\" 145.5 '((\"OBS\" . \"basse\")))) "
      "(pl_elem_ponct prf \"V\" '(145.5 0.0) r))");
  const std::string vu = cubpl(std::string(kAjouter) +
                               "ProfilsEnLong=1,2\nEnlever la selection\nAfficher Elements "
                               "fixes\nProfilsEnLong=*\nAfficherProjet\nEnleverLaSelection\nFermer");
  VOIT(vu, "Vidange");
  VOIT(vu, "Abscisse   45.5000");
  VOIT(vu, "Obs        basse");
  const std::string derniere = vu.substr(vu.rfind("Profils en long\n"));
  VOIT(derniere, "(liste vide)");
  // The selection of the visible list removed nothing.
  const std::string avant = vu.substr(0, vu.rfind("Profils en long\n"));
  EXPECT_FALSE(contient(avant.substr(avant.find("Profil:P1")), "(liste vide)")) << avant;
}

TEST_F(Cubpl, ClassesAreEditedAndSavedWhicheverWayItEnds) {
  cubpl(
      "AjouterUneClasse\nDe=1.2\nA=0.5\nLargeur=0.9\nHeuteurLitDePose=-0.1\nCouleur=30\nOK\nClassesDeProfondeurs="
      "1\nSupprimerLaClasse");
  plv::classesProfondeur relue;
  plv::chargerClasses(relue);
  ASSERT_EQ(relue.size(), 6u);
  EXPECT_EQ(relue[0].debut, 0);  // the gap closes
  EXPECT_EQ(relue[0].fin, 1.2);
  EXPECT_EQ(relue[0].largeur, 0.9);
  EXPECT_EQ(relue[0].profLit, 0.1);
  EXPECT_EQ(relue[0].couleur, 30);
}

TEST_F(Cubpl, AValueOutOfItsRangeKeepsTheClassDialogOpen) {
  const std::string vu = cubpl("AjouterUneClasse\nDe=-1\nOK\nDe=abc\nOK\nCancel\nFermer");
  VOIT(vu, "Entrez un nombre compris entre 0 et 1e+38.");
  VOIT(vu, "Entrez un nombre.\n");
}

TEST_F(Cubpl, HatchesEachSectionInItsClassColour) {
  session.eval("(progn (setvar \"CLAYER\" \"0\") (pl_elem_prj prf \"V\" a b))");
  cubpl(std::string(kAjouter) + "Schematiser\nFermer");
  // 0-10, 10-20, 20-30, 30-60 on the first plane, 100-150 on the second; two groups, the second with all.
  kaveltest::check(session,
                   {{"(types \"HATCH\")", "5"},
                    {"(setq e (entget (ssname (ssget \"X\" '((0 . \"HATCH\"))) 4)) c (cdr (assoc 62 e)))", "1"},
                    {"(cdr (assoc 440 e))", "33554522"},
                    {"(list (g 2 e) (g 70 e) (g 71 e) (g 91 e) (g 92 e) (g 75 e))", "(\"SOLID\" 1 0 1 3 0)"},
                    {"(mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 10)) (cdr (member (assoc 93 e) e))))",
                     "((100.0 100.0) (110.0 105.0) (110.0 95.0) (100.0 95.0) (100.0 100.0))"},
                    {"(vl-remove 0 (mapcar '(lambda (x) (length (vl-remove-if-not '(lambda (y) (and (= (car y) 340) (= "
                     "(g 0 (entget (cdr y))) \"HATCH\")))"
                     " (if (= (car x) 350) (entget (cdr x)))))) (dictsearch (namedobjdict) \"ACAD_GROUP\")))",
                     "(4 5)"}});
}

TEST_F(Cubpl, ATransparencyOutOfRangeIsPutRight) {
  auto& reglage = plv::reglagesModule().transparenceHachures;
  session.eval("(pl_elem_prj prf \"V\" a)");
  for (const auto& [valeur, attendue] : {std::pair(91, 90), std::pair(-1, 90), std::pair(0, 0)}) {
    reglage.changer(valeur);
    cubpl(std::string(kAjouter) + "Schematiser\nFermer");
    EXPECT_EQ(reglage.valeur, attendue);
  }
  reglage.changer(90);
}

TEST_F(Cubpl, TheDialogIsLeftByAnEndOfInputAndTakesNoPathThatCannotBe) {
  const std::string vu = cubpl("Exporter\n/nulle/part/x\nExporter\n");
  VOIT(vu, "Enregistrer sous, Fichier resultat (*.xlsx): ");
  VOIT(vu, "Dossier introuvable: /nulle/part");
  EXPECT_EQ(session.document().failures(), 1);
}

TEST_F(Cubpl, AProgramAnswersBeforehandAndReadsTheLists) {
  session.eval(
      "(progn (pl_elem_prj prf \"V\" a) (setq l (dialoguer c:cubpl (list \"AjouterProfils\" (progn (setq s (ssadd)) "
      "(ssadd prf s)) \"\" \"Fermer\"))))");
  kaveltest::check(session, {{"(mapcar 'length l)", "(6 0 6)"},
                             {"(nth 2 (car l))",
                              "(0 \"P1\" \"0.000\" \"10.000\" \" 1 -      0.750 \" \"     4.500 \" \"     7.500 \")"},
                             {"(nth 5 (nth 2 l))", "(6 \"4.00\" \"5.00\" \"\" \"2.00\" \"0.00\" \"\")"}});
  EXPECT_EQ(session.transcript(), "");
}

}  // namespace
