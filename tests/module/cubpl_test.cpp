// C:CUBPL from the command line, where settings, the order of what appears or the count of failures say whether it is right.
// Answers are fed as a script would; lists are read from the transcript.
#include "module/metres/classeProfondeur.h"
#include "module/support/reglages/reglages.h"
#include "tests/module/aide.h"

namespace {

struct Cubpl : kaveltest::ProfilDessine {
  Cubpl() {
    session.load("trace");
    session.load("projets");
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

TEST_F(Cubpl, ProfilesAreMeasuredAgainWithOtherClasses) {
  session.eval("(pl_elem_prj prf \"V\" b a)");
  const std::string retirer = "SupprimerLaClasse\n";
  const std::string vu =
      cubpl(std::string(kAjouter) + "AjouterUneClasse\nDe=0.6\nA=0.7\nLargeur=2\nOK\n" + "ClassesDeProfondeurs=8\n" +
            retirer + "ClassesDeProfondeurs=7\n" + retirer + "ClassesDeProfondeurs=6\n" + retirer + "Fermer");
  // Over the first ten metres the depth grows from 0.5 to 1 m: two of them lie in the new class.
  VOIT(vu, "0.000    2.000   1 -      0.550   0.660    1.100\n");
  VOIT(vu, "2.000    4.000   2 -      0.650   2.600    1.300\n");
  VOIT(vu, "30.000   60.000   6 -      2.306  103.750  69.167\n");
  // Without the classes below 2 m there is no width there.
  VOIT(vu.substr(vu.rfind("Profils en long\n")), "30.000   60.000   6 -      2.306  0.000   69.167\n");
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

}  // namespace
