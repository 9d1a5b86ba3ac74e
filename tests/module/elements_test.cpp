// Elements of a profile: project lists, static elements, listings, edits, dimensions, and what a change of sections
// does. The user's answers are fed as lines, entities as expressions.

#include "module/elements/elemsFixes.h"
#include "module/elements/listeProjet.h"
#include "module/support/dessin/kitEntites.h"
#include "tests/module/aide.h"

using kaveltest::check;

namespace {

// Road and project supports rv and rp (block references at x = 100, y = -20), and lines drawn on the profile.
constexpr const char* kSupports = R"((progn
  (setq rv (reference "PROFIL" "NUMPL" "s" 100.0) rp (reference "PROFIL" "NUMPL" "s" 100.0))
  (plsxd prf "HVOIRIE" rv) (plsxd prf "HPROJ" rp)
  (defun ligne (x1 y1 x2 y2) (entmake (list '(0 . "LINE") (list 10 x1 y1 0.0) (list 11 x2 y2 0.0))) (entlast))
  (defun poly (pts)
    (entmake (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (length pts)) '(70 . 0))
                     (mapcar '(lambda (p) (cons 10 p)) pts)))
    (entlast))
  (defun groupes (e rec / d)
    (if (and (setq d (cdr (assoc 360 (entget e)))) (setq d (dictsearch d rec))) (cdr (member (assoc 280 d) d))))
  (defun projet (e) (mapcar 'cdr (groupes e "ELEMS_PROJET_KAVEL")))
  (defun statiques (e) (groupes e "ELEMS_STATIQUES_KAVEL"))
  (defun marque-de (e) (cdr (assoc 1070 (cdr (cadr (assoc -3 (entget e '("PLV2_DATA"))))))))
  (defun y (e c) (caddr (assoc c (entget e))))
  (defun sommets (e / l) (foreach p (entget e) (if (= (car p) 10) (setq l (cons (list (cadr p) (caddr p)) l)))) (reverse l)))
)";

struct Elements : kaveltest::ProfilDessine {
  Elements() { session.eval(kSupports); }
  std::string feed(const std::string& lines) { return session.feed(lines + "\n"); }
  // A profile call with its answers; the value stays in r.
  std::string repondre(const std::string& appel, const std::string& reponses) {
    return feed("(progn (setq r " + appel + ") (princ))\n" + reponses);
  }
};

TEST_F(Elements, ProjectListsFromLisp) {
  session.eval(
      "(setq a (ligne 100.0 60.0 200.0 60.0) b (ligne 100.0 70.0 200.0 70.0) c (ligne 100.0 80.0 200.0 80.0))");
  check(session,
        {{"(progn (pl_elem_prj prf \"V\" a b) (equal (projet rv) (list a b)))", "T"},
         {"(marque-de a)", "nil"},                                           // names are not marked
         {"(progn (pl_elem_prj prf \"V\" c a) (length (projet rv)))", "2"},  // the last is listed: none is added
         {"(progn (pl_elem_prj prf \"V\" a c) (length (projet rv)))", "4"},  // it isn't: all are
         {"(progn (setq s (ssadd)) (ssadd a s) (pl_elem_prj prf \"V\" s) (length (projet rv)))", "5"},
         {"(marque-de a)", "1"},
         {"(progn (pl_elem_prj prf \"ROUTE\" a) (pl_elem_prj prf \"A\" a) (pl_elem_prj prf 1 a) (length (projet rv)))",
          "5"}});
  AcDbObjectIdArray liste, brute;
  plv::lireListeProjet(id("rv"), liste);
  plv::lireListeBrute(id("rv"), brute);
  EXPECT_EQ(liste.length(), 3);
  EXPECT_EQ(brute.length(), 5);
}

TEST_F(Elements, ProjectListsByTheUser) {
  session.eval("(setq a (ligne 100.0 60.0 200.0 60.0) b (ligne 100.0 70.0 200.0 70.0))");
  const std::string vu = repondre(
      "(pl_assoc_prj rv)", "(list a '(150.0 60.0))\nProjet\n(list b '(150.0 70.0))\n\nNon\n(list b '(1.0 1.0))\n\n");
  EXPECT_NE(vu.find("Enlever  Redessiner Projet Non_projet <element à ajouter>"), std::string::npos) << vu;
  check(session, {{"(equal (projet rv) (list a b))", "T"}, {"(marque-de a)", "nil"}, {"(marque-de b)", "0"}});
  // "Voir" is offered and does nothing: what is picked after it is still added.
  session.eval("(setq c (ligne 100.0 80.0 200.0 80.0))");
  repondre("(pl_assoc_prj rv)", "Voir\n(list c '(150.0 80.0))\n\n");
  check(session, {{"(equal (projet rv) (list a b c))", "T"}});
  const std::string tout = repondre("(pl_assoc_prj rv)", "Enlever\n(list a '(150.0 60.0))\nTout\n\n");
  EXPECT_NE(tout.find("Ajouter / enlever Tout  / Redessiner / Projet / Non_projet <element a enlever>"),
            std::string::npos);
  check(session, {{"(projet rv)", "nil"}, {"(marque-de a)", "0"}});
  // A cancel leaves the record, not the flags.
  repondre("(pl_assoc_prj rv)", "Projet\n(list b '(150.0 70.0))");
  check(session, {{"(projet rv)", "nil"}, {"(marque-de b)", "1"}});
}

TEST_F(Elements, StaticGroupsFromLispAndByTheUser) {
  session.eval("(setq a (point) b (point))");
  check(session, {{"(progn (pl_elem_ponct prf \"V\" '(140.0 77.0) a 5 b) (mapcar 'car (statiques rv)))",
                   "(102 10 102 330 330 102 102)"},
                  {"(cdr (assoc 10 (statiques rv)))", "(40.0 77.0 0.0)"},
                  {"(progn (pl_elem_ponct prf \"V\" '(140.0 0.0) a) (pl_elem_ponct prf \"A\" '(1.0 0.0) a) (length "
                   "(statiques rv)))",
                   "13"},
                  // The place isn't tested: what is no point stands at the origin of the drawing.
                  {"(progn (pl_elem_ponct prf \"V\" \"ici\" a) (cdr (assoc 10 (reverse (statiques rv)))))",
                   "(-100.0 0.0 0.0)"}});
  const std::string vu =
      repondre("(pl_efix prf \"P\")", "150.0,60.0\n(list a '(0.0 0.0))\n\nD\n150.0005,0\n(list b '(0.0 0.0))\n\nF\n");
  EXPECT_NE(vu.find("Enlever Doublons Reset Fin Voir <position des éléments>:"), std::string::npos) << vu;
  check(session, {{"(mapcar 'car (statiques rp))", "(102 10 102 330 102 102 330 102 102)"},
                  {"(cadr (assoc 10 (statiques rp)))", "50.0"}});
  // Without its base the group keeps what was its duplicates, as its base.
  repondre("(pl_efix prf \"P\")", "E\n(list a '(0.0 0.0))\nF\n");
  check(session, {{"(mapcar 'car (statiques rp))", "(102 10 102 330 102 102)"},
                  {"(equal (cdr (assoc 330 (statiques rp))) b)", "T"}});
  repondre("(pl_efix prf \"P\")", "R\nF\n");
  check(session, {{"(statiques rp)", "nil"}});
  const std::string dump = feed("(pl_dumpdata prf)");
  EXPECT_NE(dump.find("\nVoirie\nElements statiques 0 "), std::string::npos) << dump;
  EXPECT_NE(dump.find("Génér"), std::string::npos);
}

TEST_F(Elements, ADamagedStaticRecordIsReadUntilTheUserInterrupts) {
  session.eval(R"((progn (pl_elem_ponct prf "V" '(140.0 77.0) (point))
    (setq rec (dictsearch (cdr (assoc 360 (entget rv))) "ELEMS_STATIQUES_KAVEL"))
    (entmod (subst '(102 . "x") '(102 . "{") rec))))");
  plv::listeElemsFixes liste;
  const kaveltest::Interrupted apresMilleEssais(1000);
  EXPECT_THROW(plv::lireElemsFixes(liste, id("rv")), atelier::Interrupted);
  EXPECT_EQ(liste.GetSize(), 0);
}

TEST_F(Elements, TwinsNameEachOther) {
  session.eval("(setq a (ligne 0.0 0.0 1.0 1.0))");
  plv::elemsFixesKavel groupe;
  groupe.elements.append(id("a"));
  plv::creerDoublons(groupe);
  ASSERT_EQ(groupe.doublons.length(), 1);
  check(session, {{"(equal (cdr (assoc 330 (groupes a \"DOUBLON_KAVEL\"))) (entlast))", "T"},
                  {"(equal (cdr (assoc 330 (groupes (entlast) \"DOUBLON_KAVEL\"))) a)", "T"}});
}

TEST_F(Elements, Listings) {
  session.eval(
      R"((progn (setq a (ligne 90.0 60.0 210.0 180.0) b (poly '((100.0 90.0) (180.0 50.0) (180.0 50.0) (260.0 90.0)))
    v (ligne 150.0 10.0 150.0 20.0) sa (ssadd) sb (ssadd) st (ssadd)) (ssadd a sa) (ssadd b sb) (ssadd a st) (ssadd v st) (ssadd b st)))");
  check(session, {{"(pl_yat a 100)", "70.0"},
                  {"(pl_yat a 300.0)", "nil"},
                  {"(pl_yat b 140.0)", "70.0"},
                  {"(pl_yat prf 1.0)", "nil"},
                  {"(pl_PointsPrjRef prf sa sb)", "((100.0 70.0 90.0) (140.0 110.0 70.0) (200.0 170.0 60.0))"},
                  {"(length (setq l (pl_glp prf st)))", "4"},
                  // The plane is that of the first section for any X beyond the origin.
                  {"(car l)", "((-10.0 101.0) (110.0 113.0) 0.1)"},
                  {"(caddr (cadr l))", "1.0e+36"},
                  {"(mapcar 'rtos (mapcar 'caddr (cddr l)))", "(\"-0.0500\" \"0.0500\")"}});
  // The plane is looked up at the smaller of the end's Y, 90, and the start's X, 150: left of the profile, the last
  // plane.
  session.eval("(setq c (ligne 150.0 60.0 200.0 90.0) sc (ssadd c))");
  check(session, {{"(mapcar 'cadr (reverse (cdr (reverse (car (pl_glp prf sc))))))", "(101.0 104.0)"}});
}

TEST_F(Elements, AltitudesOfPickedCurves) {
  session.eval("(setq a (ligne 190.0 60.0 90.0 60.0) b (ligne 150.0 40.0 260.0 40.0))");
  repondre("(pl_listerAltitudes prf)", "(list a '(150.0 60.0))\n(list b '(220.0 40.0))\n\n");
  check(session, {{"r", "((0.0 96.0) (40.0 96.0) (100.0 99.0) (150.0 99.0))"}});
  session.eval("(entmake '((0 . \"ARC\") (10 140.0 50.0 0.0) (40 . 20.0) (50 . 0.0) (51 . 3.141592653589793)))");
  session.eval("(setq arc (entlast))");
  repondre("(progn (marque) (pl_listerAltitudes prf))", "(list arc '(140.0 70.0))\n\n");
  check(session, {{"(list (length r) (rtos (cadar r) 2 3) (vu))", "(1 \"97.000\" (\"LWPOLYLINE\" \"LWPOLYLINE\"))"}});
}

TEST_F(Elements, SlopesAndLengths) {
  session.eval("(setq a (ligne 0.0 0.0 100.0 10.0) b (poly '((0.0 50.0) (50.0 50.0) (100.0 60.0))))");
  const std::string vu =
      repondre("(pl_modifpente 10.0)", "(list a '(80.0 8.0))\n2\n(list a '(10.0 0.0))\n\n(list b '(50.0 50.0))\n4\n\n");
  EXPECT_NE(vu.find("Pente  [1.0000 %]"), std::string::npos) << vu;
  check(session,
        {{"(y a 11)", "10.0"}, {"(y a 10)", "-10.0"}, {"(sommets b)", "((0.0 30.0) (50.0 50.0) (100.0 60.0))"}});
  session.eval("(setq c (ligne 0.0 0.0 30.0 400.0))");
  repondre("(pl_modifLongueur 10)", "(list c '(29.0 0.0))\n-100\n\n");
  check(session, {{"(decrire c)", "\"LINE -30.00,-400.00 30.00,400.00\""}});
  repondre("(pl_modifpente 0)", "");
  repondre("(pl_modifpente 10.0)", "(list c '(0.0 0.0))");  // cancelled: nothing is written
  check(session, {{"(decrire c)", "\"LINE -30.00,-400.00 30.00,400.00\""},
                  // Lines y = 0 and y = x through (10, 0) and a point on their bisector's circle of radius 5.
                  {"(rtos (pl_rayraccpt '(0.0 0.0) '(10.0 0.0) '(0.0 0.0) '(0.0 10.0) (list (- 5.0 (* 5.0 (cos (/ pi "
                   "4)))) (- 5.0 (* 5.0 (sin (/ pi 4))))) 1.0) 2 6)",
                   "\"5.000000\""},
                  {"(pl_rayraccpt '(0.0 0.0) '(10.0 0.0) '(0.0 1.0) '(10.0 1.0) '(5.0 0.5) 1.0)", "nil"},
                  {"(pl_rayraccpt '(0.0 0.0) '(10.0 0.0))", "nil"}});
}

TEST_F(Elements, Dimensions) {
  session.eval("(setq a (ligne 190.0 120.0 90.0 120.0))");
  const std::string vu = repondre("(progn (marque) (pl_cotauto prf \"V\" -4.0 0.0))", "(list a '(150.0 120.0))\n\n");
  EXPECT_NE(vu.find("Selectionnez les éléments que vous voulez coter"), std::string::npos) << vu;
  check(session, {{"(list (sslength r) (equal (projet rv) (list a)) (marque-de a))", "(1 T 1)"},
                  {"(vu)",
                   "(\"102.00 @100.00,46.00 h2.50 r0 4/2\" \"102.00 @140.00,46.00 h2.50 r0 4/2\" \"+2.00 "
                   "@100.00,125.00 h2.50 r0 0/2\" \"+0.00 @140.00,125.00 h2.50 r0 0/2\")"},
                  {"(mapcar 'car (statiques rv))", "(102 10 102 330 102 102 102 10 102 330 102 102)"}});
  repondre("(progn (marque) (pl_cotauto prf \"V\" -4.0 0.0 1 0))", "(list a '(150.0 120.0))\n\n");
  check(session, {{"(length (vu))", "2"}, {"(pl_cotauto prf \"V\" -4 0.0)", "nil"}});
  // Of a flag only 16 bits count: 65536 is no.
  repondre("(progn (marque) (pl_cotauto prf \"V\" -4.0 0.0 65536 0))", "(list a '(150.0 120.0))\n\n");
  check(session, {{"(vu)", "nil"}});
}

// The section at 100 m, as its chain already has it, is added: its plane is 5 m above the one before.
TEST_F(Elements, AnAddedBreakCutsAndShifts) {
  session.eval(R"((progn (setq a (poly '((120.0 100.0) (180.0 100.0) (240.0 160.0))) b (ligne 210.0 100.0 230.0 100.0)
    c (ligne 110.0 90.0 200.0 90.0) s (point) tt (point))
    (pl_elem_prj prf "V" a b c) (pl_elem_ponct prf "V" '(200.0 0.0) s) (pl_elem_ponct prf "V" '(230.0 0.0) tt) (marque)
    (pl_chg_pc prf "Ajout" 200.0 100.0 0.0)))");
  check(session, {{"(sommets a)", "((120.0 100.0) (180.0 100.0) (200.0 120.0))"},
                  {"(length (projet rv))", "4"},
                  {"(sommets (nth 3 (projet rv)))", "((200.0 70.0) (240.0 110.0))"},
                  {"(list (y b 10) (y c 10))", "(50.0 90.0)"},
                  {"(list (y s 10) (y tt 10))", "(0.0 -50.0)"},
                  {"(mapcar 'car (statiques rv))", "(102 10 102 330 102 102 330 102 102 102 10 102 330 102 102)"}});
  // The same break goes again: from the chain first.
  session.eval(R"((progn (setq e (entget pc1 '("PLV2_DATA"))) (plsxd pc1 "NEXT-PC" 0) (plsxd pc1 "DISTANCE" 150.0)
    (pl_chg_pc prf "S" 200.0 0.0 100.0)))");
  check(session, {{"(sommets a)", "((120.0 100.0) (180.0 100.0) (200.0 120.0) (200.0 120.0) (240.0 160.0))"}});
}

TEST_F(Elements, AnAddedBreakCutsAlsoWhenNothingIsShifted) {
  session.eval(R"((progn (setq a (poly '((120.0 100.0) (240.0 100.0)))) (pl_elem_prj prf "V" a)
    (pl_chg_pc prf "Ajout" 200.0 95.0 0.0)))");
  check(session, {{"(mapcar 'sommets (projet rv))", "(((120.0 100.0) (200.0 100.0)) ((200.0 100.0) (240.0 100.0)))"}});
}

TEST_F(Elements, AChangedBreakMovesItsStretch) {
  session.eval(
      R"((progn (setq a (ligne 120.0 100.0 180.0 100.0) b (ligne 200.0 100.0 230.0 100.0) c (ligne 180.0 100.0 230.0 100.0))
    (pl_elem_prj prf "V" a b c) (pl_chg_pc prf "M" 200.0 100.0 102.0)))");
  check(session,
        {{"(mapcar '(lambda (e) (y e 10)) (list a b c))", "(100.0 80.0 100.0)"},
         {"(progn (pl_chg_pc prf \"M\" 200.0 100.0 100.0) (pl_chg_pc prf \"X\" 200.0 1.0 2.0) (y b 10))", "80.0"}});
}

TEST_F(Elements, TransferAcrossSectionsAndTrim) {
  session.eval("(setq a (poly '((80.0 100.0) (180.0 100.0) (270.0 190.0))))");
  repondre("(progn (marque) (pl_repspc prf))", "(list a '(150.0 100.0))\n\n");
  check(session, {{"(sommets a)", "((100.0 100.0) (180.0 100.0) (200.0 120.0))"},
                  {"(mapcar 'sommets (depuis repere))", "(((200.0 70.0) (250.0 120.0)))"}});
  session.eval("(setq b (poly '((120.0 100.0) (230.0 100.0))))");
  EXPECT_EQ(repondre("(progn (marque) (pl_repspc prf))", "(list b '(150.0 100.0))\n\n").find("QQue chose"),
            std::string::npos);
  check(session, {{"(sommets b)", "((120.0 100.0) (200.0 100.0))"},
                  {"(mapcar 'sommets (depuis repere))", "(((200.0 50.0) (230.0 50.0)))"}});
  // A pick outside the stretches of the curve: it is trimmed, and that is all.
  session.eval(R"((progn (setq pc3 (point)) (plsxd pc3 "DISTANCE" 50.0) (plsxd pc3 "PC" 90.0) (plsxd pc2 "NEXT-PC" pc3)
    (setq d (poly '((210.0 100.0) (290.0 100.0))))))");
  EXPECT_NE(repondre("(pl_repspc prf)", "(list d '(120.0 100.0))\n\n").find("\nQQue chose ne va pas !"),
            std::string::npos);
  check(session, {{"(sommets d)", "((210.0 100.0) (250.0 100.0))"}});
}

// 5,000 points of ground against 50 polylines of 2,000 vertices.
TEST_F(Elements, ListingsOfManyCurvesHaveEveryPoint) {
  session.eval(R"((progn (setq grand (reference "PROFIL" "NUMPL" "G" 0.0) l nil i 0)
    (plsxd grand "PRPC" pc2) (plsxd grand "ECHV" 1.0)
    (while (< i 5000) (setq l (cons '(1040 . 0.4) (cons '(1040 . 100.0) l)) i (1+ i)))
    (entmod (append (entget grand) (list (list -3 (cons "KELMONT_PLV2" l)))))
    (setq toutes (ssadd) memes (ssadd))))");
  for (int k = 0; k < 50; ++k) {
    auto p = std::make_unique<AcDbPolyline>(2000);
    for (unsigned i = 0; i < 2000; ++i) p->addVertexAt(i, AcGePoint2d(i, k + i % 3));
    plv::ajouterEspaceObjet(std::move(p));
    session.eval("(progn (ssadd (entlast) toutes) (ssadd (entlast) memes))");
  }
  check(session, {{"(length (pl_PointsPrjRef grand toutes memes))", "4997"}});
  repondre("(pl_listerAltitudes grand)", "TOUT\n\n");
  check(session, {{"(length r)", "4997"}});
}

}  // namespace
