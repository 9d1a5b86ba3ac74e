// The curve kit: ends, conversions, straight pieces, cuts at verticals and joints, and how long they take.
// Curves are made by LISP and read through the host.
#include <sstream>

#include "module/support/courbes/kitCourbes.h"
#include "module/support/dessin/kitEntites.h"
#include "tests/module/aide.h"

namespace {

struct Courbes : ::testing::Test {
  AcDbObjectId faire(const std::string& lisp) {
    const std::string lu = session.eval("(progn " + lisp + " (cdr (assoc 5 (entget (entlast)))))");
    AcDbObjectId id;
    plv::handleVersId(std::wstring(lu.begin() + 1, lu.end() - 1), id);
    return id;
  }
  // An old polyline of a type, with control vertices (16) or plain ones.
  AcDbObjectId ancienne(int drapeaux, int lissage, std::initializer_list<AcGePoint2d> points, int sommet) {
    std::string lisp = "(entmake '((0 . \"POLYLINE\") (66 . 1) (10 0.0 0.0 0.0) (70 . " + std::to_string(drapeaux) +
                       ") (75 . " + std::to_string(lissage) + ")))";
    for (const AcGePoint2d& p : points)
      lisp += "(entmake '((0 . \"VERTEX\") (10 " + std::to_string(p.x) + " " + std::to_string(p.y) + " 0.0) (70 . " +
              std::to_string(sommet) + ")))";
    return faire(lisp + "(entmake '((0 . \"SEQEND\")))");
  }
  AcDbObjectId ajouter(std::unique_ptr<AcDbEntity> entite) {
    AcDbObjectId id;
    plv::ajouterEspaceObjet(std::move(entite), &id);
    return id;
  }
  kaveltest::Session session;
};

std::unique_ptr<AcDbPolyline> polyligne(std::initializer_list<std::array<double, 3>> sommets) {
  auto p = std::make_unique<AcDbPolyline>();
  for (const auto& s : sommets) p->addVertexAt(p->numVerts(), {s[0], s[1]}, s[2]);
  return p;
}

TEST_F(Courbes, EndsStandInTheOrderOfX) {
  AcGePoint2d g, d;
  plv::extremitesCourbe(AcDbLine({9, 1, 0}, {2, 5, 0}), g, d);
  EXPECT_EQ(g, AcGePoint2d(2, 5));
  EXPECT_EQ(d, AcGePoint2d(9, 1));
  plv::extremitesCourbe(AcDbLine({2, 5, 0}, {2, 1, 0}), g, d);
  EXPECT_EQ(g, AcGePoint2d(2, 5));
  AcDbObjectPointer<AcDbCurve> vieille(ancienne(0, 0, {{7, 7}, {3, 3}, {1, 2}}, 0));
  plv::extremitesCourbe(*vieille, g, d);
  EXPECT_EQ(g, AcGePoint2d(1, 2));
  plv::extremitesCourbe(*polyligne({{4, 4, 0}}), g, d);  // no ends: as they were
  EXPECT_EQ(g, AcGePoint2d(1, 2));
}

TEST_F(Courbes, OldSplinesArePaddedToTheirDegree) {
  AcDbObjectPointer<AcDb2dPolyline> vieille(ancienne(4, 6, {{0, 0}, {10, 5}}, 16));
  const auto spline = plv::splineDe2d(*vieille);
  ASSERT_TRUE(spline);
  int degre = 0;
  bool r = false, f = false, p = false;
  AcGePoint3dArray points;
  AcGeDoubleArray noeuds, poids;
  double t1 = 0, t2 = 0;
  spline->getNurbsData(degre, r, f, p, points, noeuds, poids, t1, t2);
  EXPECT_EQ(std::vector<double>(noeuds.begin(), noeuds.end()), (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
  ASSERT_EQ(points.length(), 4);
  EXPECT_EQ(points[2], AcGePoint3d(0, 0, 0));
  EXPECT_EQ(points[3], AcGePoint3d(10, 5, 0));
  EXPECT_FALSE(plv::polyligneDe2d(*vieille));
  AcDbObjectPointer<AcDb2dPolyline> simple(ancienne(0, 0, {{0, 0}, {5, 5}}, 0));
  EXPECT_FALSE(plv::splineDe2d(*simple));
  EXPECT_EQ(plv::polyligneDe2d(*simple)->numVerts(), 2u);
}

TEST_F(Courbes, StraightPieces) {
  AcGePoint2dArray debuts, fins;
  plv::segmentsCourbe(*polyligne({{9, 0, 1}, {5, 5, 0}, {0, 0, 0}}), debuts, fins, 1);
  ASSERT_EQ(debuts.length(), 2);  // the arc stands for its chord, in the direction of the curve
  EXPECT_EQ(debuts[0], AcGePoint2d(9, 0));
  EXPECT_EQ(fins[1], AcGePoint2d(0, 0));
  AcGePoint2dArray d1, f1, d2, f2;
  const AcDbArc arc({10, 0, 4}, 5, 0, 3);
  plv::segmentsCourbe(arc, d1, f1, 1);
  plv::segmentsCourbe(arc, d2, f2, 1e-9);
  ASSERT_GT(d1.length(), 50);
  EXPECT_EQ(d1.length(), d2.length());  // the tolerance counts for nothing
  for (int i = 0; i < d1.length(); ++i) {
    EXPECT_LE(d1[i].x, f1[i].x);
    EXPECT_LE(d1[std::max(0, i - 1)].x, d1[i].x);
    EXPECT_NEAR(std::hypot(d1[i].x - 10, d1[i].y), 5, 1e-9);
  }
}

TEST_F(Courbes, PiecesOfEqualXKeepTheOrderThatExchangesGive) {
  AcGePoint2dArray debuts, fins;
  for (const AcGePoint2d& p : {AcGePoint2d(2, 1), AcGePoint2d(2, 2), AcGePoint2d(1, 3)}) {
    debuts.append(p);
    fins.append(AcGePoint2d(9, p.y));
  }
  plv::trierSegments(debuts, fins);  // the exchange of the first with the last brings it after its equal
  EXPECT_EQ(std::vector<AcGePoint2d>(debuts.begin(), debuts.end()), (std::vector<AcGePoint2d>{{1, 3}, {2, 2}, {2, 1}}));
  EXPECT_EQ(fins[2].y, 1);
}

TEST_F(Courbes, CutsAtVerticals) {
  AcDbObjectPointer<AcDbPolyline> p(ajouter(polyligne({{0, 0, 0}, {10, 10, 0}, {20, 0, 0}, {0, -5, 0}})),
                                    AcDb::kForWrite);
  plv::piecesCourbe pieces;
  bool remplacer = true;
  plv::couperCourbe(*p, {30, -1}, pieces, remplacer);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_EQ(pieces[0].get(), p.object());
  EXPECT_FALSE(remplacer);
  plv::couperCourbe(*p, {15, 5, 5}, pieces, remplacer);
  ASSERT_EQ(pieces.size(), 5u);  // out at 5 and 15, back at 15 and 5
  double longueur = 0;
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    AcGePoint3d fin, debut;
    pieces[i]->getEndPoint(fin);
    pieces[i + 1]->getStartPoint(debut);
    EXPECT_LT(fin.distanceTo(debut), 1e-9);
    EXPECT_NEAR(fin.x, i == 0 || i == 3 ? 5 : 15, 1e-9);
    double parametre = 0, l = 0;
    pieces[i]->getEndParam(parametre);
    pieces[i]->getDistAtParam(parametre, l);
    longueur += l;
  }
  EXPECT_GT(longueur, 0);
  plv::couperCourbe(*p, {20}, pieces, remplacer);  // at an extreme point: two pieces that meet there
  EXPECT_EQ(pieces.size(), 2u);
}

TEST_F(Courbes, OldPolylinesAreReplacedWhenCut) {
  AcDbObjectPointer<AcDb2dPolyline> vieille(ancienne(0, 0, {{0, 0}, {10, 0}}, 0), AcDb::kForWrite);
  plv::piecesCourbe pieces;
  bool remplacer = false;
  plv::couperCourbe(*vieille, {4}, pieces, remplacer);
  EXPECT_TRUE(remplacer);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_TRUE(AcDbPolyline::cast(pieces[0].get()));
}

TEST_F(Courbes, JointsOfPolylines) {
  const struct {
    std::array<double, 3> a[2], b[2];
    double xs[4];
  } cas[] = {{{{0, 0, 0.5}, {1, 0, 0}}, {{1, 0, 0}, {2, 0, 0}}, {0, 1, 1, 2}},
             {{{1, 0, 0}, {0, 0, 0.5}}, {{1, 0, 0}, {2, 0, 0}}, {0, 1, 1, 2}},
             {{{1, 0, 0}, {0, 0, 0}}, {{2, 0, 0}, {1, 0, 0}}, {0, 1, 1, 2}},
             {{{0, 0, 0}, {1, 0, 0}}, {{2, 0, 0}, {1, 0, 0}}, {0, 1, 1, 2}}};
  for (const auto& c : cas) {
    std::unique_ptr<AcDbCurve> resultat;
    ASSERT_TRUE(plv::fusionnerCourbes(*polyligne({c.a[0], c.a[1]}), *polyligne({c.b[0], c.b[1]}), resultat));
    const auto* p = AcDbPolyline::cast(resultat.get());
    ASSERT_EQ(p->numVerts(), 4u);
    for (unsigned i = 0; i < 4; ++i) {
      AcGePoint2d point;
      p->getPointAt(i, point);
      EXPECT_EQ(point.x, c.xs[i]);
    }
  }
  std::unique_ptr<AcDbCurve> resultat;
  EXPECT_FALSE(plv::fusionnerCourbes(*polyligne({{0, 0, 0}, {1, 0, 0}}), *polyligne({{5, 0, 0}, {6, 0, 0}}), resultat));
  EXPECT_FALSE(plv::fusionnerCourbes(AcDbLine({0, 0, 0}, {1, 0, 0}), AcDbLine({1, 0, 0}, {2, 0, 0}), resultat));
}

TEST_F(Courbes, JointsOfSplines) {
  const auto spline = [](int degre, std::initializer_list<AcGePoint3d> points) {
    AcGePoint3dArray liste;
    for (const AcGePoint3d& p : points) liste.append(p);
    return plv::splineUniforme(degre, liste);
  };
  std::unique_ptr<AcDbCurve> resultat;
  AcGePoint3d p;
  ASSERT_TRUE(plv::fusionnerCourbes(*spline(3, {{0, 0, 0}, {1, 3, 0}, {2, 3, 0}, {3, 0, 0}}),
                                    *spline(3, {{6, 0, 0}, {5, -3, 0}, {4, -3, 0}, {3, 0, 0}}), resultat));
  resultat->getEndPoint(p);
  EXPECT_EQ(p, AcGePoint3d(6, 0, 0));
  double parametre = 0;
  EXPECT_EQ(resultat->getParamAtPoint({3, 0, 0}, parametre), Acad::eOk);
  // Parabolas: the crossing of the inner legs becomes the joint's control point.
  ASSERT_TRUE(plv::fusionnerCourbes(*spline(2, {{0, 0, 0}, {2, 2, 0}, {4, 2, 0}}),
                                    *spline(2, {{4, 2, 0}, {8, 2, 0}, {10, 0, 0}}), resultat));
  const auto* joint = AcDbSpline::cast(resultat.get());
  ASSERT_EQ(joint->numControlPoints(), 4);
  joint->getControlPointAt(2, p);
  EXPECT_EQ(p, AcGePoint3d(5, 5, 0));
}

// The vertices of a polyline with their bulges.
std::string sommets(const AcDbPolyline& p) {
  std::ostringstream sortie;
  for (unsigned i = 0; i < p.numVerts(); ++i) {
    AcGePoint2d point;
    double courbure = 0;
    p.getPointAt(i, point);
    p.getBulgeAt(i, courbure);
    sortie << point.x << ',' << point.y << ' ' << courbure << "; ";
  }
  return sortie.str();
}

// Pieces become one, as if each had been joined to the result before it; the first keeps its identity. Every third runs
// from right to left, and what stands before the first piece is joined to its start.
TEST_F(Courbes, ManyPiecesAreJoinedInOneCall) {
  AcDbObjectIdArray ids;
  std::unique_ptr<AcDbCurve> attendu, suite;
  for (int i = 0; i < 300; ++i) {
    const double x = i == 200 ? -1 : i > 200 ? i - 1 : i;
    const auto piece = [&] {
      return i % 3 ? polyligne({{x, 0, 0.1}, {x + 0.5, 1, 0.2}, {x + 1, 0, 0.3}})
                   : polyligne({{x + 1, 0, 0.1}, {x + 0.5, 1, 0.2}, {x, 0, 0.3}});
    };
    ids.append(ajouter(piece()));
    if (!attendu) {
      attendu = piece();
    } else {
      ASSERT_TRUE(plv::fusionnerCourbes(*attendu, *piece(), suite)) << i;
      attendu = std::move(suite);
    }
  }
  const AcDbObjectId premiere = ids[0];
  plv::joindreCourbes(ids);
  ASSERT_EQ(ids.length(), 1);
  EXPECT_EQ(ids[0], premiere);
  AcDbObjectPointer<AcDbPolyline> p(ids[0]);
  EXPECT_EQ(sommets(*p), sommets(*AcDbPolyline::cast(attendu.get())));
}

TEST_F(Courbes, ALongPolylineIsCutAtAThousandPlaces) {
  auto longue = std::make_unique<AcDbPolyline>(100'000);
  for (unsigned i = 0; i < 100'000; ++i) longue->addVertexAt(i, AcGePoint2d(i, i % 5));
  AcDbObjectPointer<AcDbPolyline> p(ajouter(std::move(longue)), AcDb::kForWrite);
  std::vector<double> abscisses;
  for (int i = 0; i < 1000; ++i) abscisses.push_back(50.5 + 99.9 * i);
  plv::piecesCourbe pieces;
  bool remplacer = false;
  plv::couperCourbe(*p, abscisses, pieces, remplacer);
  EXPECT_EQ(pieces.size(), 1001u);
}

}  // namespace
