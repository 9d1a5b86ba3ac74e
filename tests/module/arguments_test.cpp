// The wrappers over chains: typed readers, ArgsLisp, listeRb.
// LISP can't reach all of them, so they are called directly.
#include <gtest/gtest.h>

#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "tests/module/aide.h"

using namespace plv;

namespace {

TEST(ArgsLisp, CountsAndFindsNodes) {
  const ArgsLisp args(acutBuildList(RTREAL, 1.5, RTSTR, L"a", RTSHORT, 3, RTNONE));
  EXPECT_EQ(args.nombre(), 3u);
  EXPECT_EQ(args.nieme(0), args.tete());
  EXPECT_EQ(args.nieme(-3), args.tete());
  EXPECT_EQ(args.nieme(2)->restype, RTSHORT);
  EXPECT_EQ(args.nieme(3), nullptr);
}

TEST(ArgsLisp, EmptyWrapperIsANormalValue) {
  ArgsLisp args;
  EXPECT_EQ(args.nombre(), 0u);
  EXPECT_EQ(args.nieme(0), nullptr);
  EXPECT_FALSE(args.ajouter(nullptr));
  EXPECT_TRUE(args.ajouter(acutBuildList(RTSTR, L"x", RTNONE)));
  EXPECT_EQ(args.nombre(), 1u);
}

struct Lecture {
  int type;
  double nombre;
  double reel;          // valeurReelle
  Adesk::Int32 entier;  // valeurEntiere
};

TEST(ReadersOfArguments, AcceptIntegersForRealsButNotTheReverse) {
  const Lecture lectures[] = {
      {RTREAL, 2.5, 2.5, kSansValeur}, {RTSHORT, -2, -2.0, -2}, {RTLONG, 70000, 70000.0, 70000}};
  for (const Lecture& l : lectures) {
    resbuf rb{nullptr, static_cast<short>(l.type), {}};
    if (l.type == RTREAL) rb.resval.rreal = l.nombre;
    if (l.type == RTSHORT) rb.resval.rint = static_cast<short>(l.nombre);
    if (l.type == RTLONG) rb.resval.rlong = static_cast<Adesk::Int32>(l.nombre);
    EXPECT_EQ(valeurReelle(&rb), l.reel);
    EXPECT_EQ(valeurEntiere(&rb), l.entier);
  }
}

TEST(ReadersOfArguments, GiveMarksForOtherNodes) {
  const ArgsLisp texte(acutBuildList(RTSTR, L"12", RTNONE));
  EXPECT_EQ(valeurReelle(texte.tete()), 1e36);
  EXPECT_EQ(valeurEntiere(texte.tete()), -99999999);
  EXPECT_EQ(valeurReelle(nullptr), 1e36);
}

TEST(ReadersOfXData, ReadAStringAsZeroWhereARealIsExpected) {
  const ArgsLisp chaine(acutBuildList(1000, L"douze", 1070, -2, 1041, 4.5, 1005, L"1A", RTNONE));
  EXPECT_EQ(reelXData(chaine.nieme(0)), 0.0);
  EXPECT_TRUE(estReelXData(chaine.nieme(0)));
  EXPECT_EQ(reelXData(chaine.nieme(1)), -2.0);
  EXPECT_EQ(reelXData(chaine.nieme(2)), 4.5);
  EXPECT_TRUE(estHandleXData(chaine.nieme(3)));
  EXPECT_EQ(chercheCode(chaine.tete(), 1041), chaine.nieme(2));
  EXPECT_EQ(chercheCode(chaine.tete(), 330), nullptr);
}

TEST(ListeRb, SplitsABlockIn127Bytes) {
  struct {
    std::size_t taille;
    std::vector<int> morceaux;
  } const cas[] = {{0, {}}, {127, {127}}, {128, {127, 1}}, {300, {127, 127, 46}}};
  for (const auto& c : cas) {
    const std::vector<char> donnees(c.taille, 'k');
    listeRb liste;
    EXPECT_TRUE(liste.ajouterBloc(donnees));
    ASSERT_EQ(liste.tete()->restype, 92);
    EXPECT_EQ(liste.tete()->resval.rlong, static_cast<Adesk::Int32>(c.taille));
    std::vector<int> lus;
    for (const resbuf* rb = liste.tete()->rbnext; rb; rb = rb->rbnext) {
      lus.push_back(rb->resval.rbinary.clen);
      EXPECT_EQ(rb->restype, 310);
      EXPECT_NE(rb->resval.rbinary.buf, donnees.data());
      EXPECT_EQ(rb->resval.rbinary.buf[0], 'k');
    }
    EXPECT_EQ(lus, c.morceaux);
  }
}

TEST(ListeRb, ReadsBackWhatItWroteAndStaysPutOnAnotherGroup) {
  listeRb liste;
  liste.ajouterTexte(L"ROUTE");
  liste.ajouterEntier(5);
  liste.ajouterEntier91(-1);
  liste.ajouterReel(2.5);
  liste.ajouterId(AcDbObjectId::kNull);
  liste.debut();
  std::wstring texte;
  Adesk::Int32 entier = 0;
  double reel = 0;
  AcDbObjectId id;
  EXPECT_FALSE(liste.lireEntier(entier));
  EXPECT_EQ(liste.courant(), liste.tete());
  EXPECT_TRUE(liste.lireTexte(texte));
  EXPECT_FALSE(liste.lireTexte(texte));
  EXPECT_TRUE(liste.lireEntier(entier));
  EXPECT_FALSE(liste.lireEntier(entier));
  EXPECT_TRUE(liste.lireEntier91(entier));
  EXPECT_TRUE(liste.lireReel(reel));
  EXPECT_TRUE(liste.lireId(id));
  EXPECT_TRUE(id.isNull());
  EXPECT_EQ(liste.courant(), nullptr);
  EXPECT_FALSE(liste.lireId(id));
  EXPECT_EQ(texte, L"ROUTE");
  EXPECT_EQ(entier, -1);
  EXPECT_EQ(reel, 2.5);
}

TEST(ListeRb, ANullIdIsTheMarkOfANullObject) {
  listeRb liste;
  liste.ajouterId(AcDbObjectId::kNull);
  EXPECT_EQ(liste.tete()->restype, 90);
  EXPECT_EQ(liste.tete()->resval.rlong, static_cast<Adesk::Int32>(0xFF676981));
}

}  // namespace
