// The curves of a project treated alike: their ends, conversions, straight pieces (kitCourbesSegments.cpp), cuts at
// verticals (kitCourbesCoupe.cpp), joints (kitCourbesJonction.cpp). Nothing here reads a profile; coordinates are the
// drawing's.
#pragma once
#include <memory>
#include <utility>
#include <vector>

#include "hote/dbpl.h"

namespace plv {

inline constexpr double kToleranceJonction = 1e-6;  // ends that touch, drawing units

// The two ends, that of the smaller X first; on equal X in the order of the curve. A curve that has no ends leaves the
// points as they were.
void extremitesCourbe(const AcDbCurve& courbe, AcGePoint2d& gauche, AcGePoint2d& droite);

// The vertices of an old polyline in their order; one that doesn't open is told as such, without values.
struct sommet2d {
  bool ouvert = false;
  AcGePoint3d position;
  double courbure = 0;
  AcDb::Vertex2dType type = AcDb::k2dVertex;
};
std::vector<sommet2d> sommetsDe(const AcDb2dPolyline& poly2d);

// Conversions; nothing for a type that isn't theirs. polyligneDe2d serves simple and curve-fit polylines, splineDe2d
// those of a quadratic or cubic spline, by their control vertices.
std::unique_ptr<AcDbPolyline> polyligneDe2d(AcDb2dPolyline& poly2d);
std::unique_ptr<AcDbSpline> splineDe2d(const AcDb2dPolyline& poly2d);
std::unique_ptr<AcGeNurbCurve3d> nurbsDeSpline(const AcDbSpline& spline);
std::unique_ptr<AcDbSpline> splineDeNurbs(const AcGeNurbCurve3d& nurbs);
// An open spline of these control points: clamped, knots in whole numbers, all weights 1.
std::unique_ptr<AcDbSpline> splineUniforme(int degre, const AcGePoint3dArray& points);

// Appends points along the spline, in the axes of its plane. Kept as it is: whatever the tolerance, the chord bound is
// 0.001. Nothing for a spline that makes no curve, or lies in no plane.
void echantillonnerSpline(const AcDbSpline& spline, AcGePoint2dArray& points, double tolerance);

// Appends the straight pieces of a curve, the i-th start and the i-th end: in the direction of the curve, and sorted by
// X, lesser X first, for the classes that have no reading of their own (arcs, circles, ellipses ...). Kept as it is: an
// arc of a polyline stands for its chord. The tolerance is only handed on.
void segmentsCourbe(const AcDbCurve& courbe, AcGePoint2dArray& debuts, AcGePoint2dArray& fins, double tolerance);
// Each piece with its lesser X as start; then all by the X of their starts, with plain exchanges.
void ordonnerSegments(AcGePoint2dArray& debuts, AcGePoint2dArray& fins);
void trierSegments(AcGePoint2dArray& debuts, AcGePoint2dArray& fins);

// A piece of a cut curve: new and in no drawing, or the source itself, which stays its drawing's.
struct libererPiece {
  bool source = false;
  void operator()(AcDbCurve* courbe) const {
    if (!source) delete courbe;
  }
};
using pieceCourbe = std::unique_ptr<AcDbCurve, libererPiece>;
using piecesCourbe = std::vector<pieceCourbe>;

// Cuts a curve at verticals. The source alone when nothing was cut, nothing at all for an old polyline that can't be
// converted. `remplacer` is set when the source can't hold the result and is to be erased. The pieces have neither a
// place in the drawing nor other properties than their shape: the caller gives them.
void couperCourbe(AcDbCurve& courbe, const std::vector<double>& listeX, piecesCourbe& pieces, bool& remplacer);

// A curve of the drawing, open for write as long as this lives.
class courbeOuverte {
 public:
  courbeOuverte() = default;
  explicit courbeOuverte(AcDbObjectId id);  // absent when no curve of that id opens
  courbeOuverte(courbeOuverte&& autre) noexcept : m_courbe(std::exchange(autre.m_courbe, nullptr)) {}
  courbeOuverte& operator=(courbeOuverte&& autre) noexcept;
  ~courbeOuverte() { fermer(); }

  bool presente() const { return m_courbe != nullptr; }
  AcDbCurve* operator->() const { return m_courbe; }
  AcDbCurve& operator*() const { return *m_courbe; }
  // The new curve takes over the place in the drawing and the identity (handle, XDATA, extension dictionary), and is
  // the open one from here. False, with nothing changed, when the host refuses.
  bool remplacer(std::unique_ptr<AcDbCurve>& nouvelle);
  void effacer();
  void fermer();

 private:
  AcDbCurve* m_courbe = nullptr;
};

// Fusion makes a new curve of two lightweight polylines, or of two splines, that touch at an end. False for others,
// with the result empty.
bool fusionnerCourbes(const AcDbCurve& courbe1, const AcDbCurve& courbe2, std::unique_ptr<AcDbCurve>& resultat);
// Joining is fusion in the drawing: of two touching curves of the list the first becomes the fusion, the other is
// erased, until no two touch. Ids that can't be opened for writing as curves, and those of erased ones, leave the list.
void joindreCourbes(AcDbObjectIdArray& ids);

}  // namespace plv
