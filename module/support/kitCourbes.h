// The curves of a project treated alike: their ends, sampling, cutting into straight pieces and at verticals, joining.
// Nothing here keeps state or reads a profile. Coordinates are the drawing's.
#pragma once
#include <memory>
#include <vector>

#include "hote/dbpl.h"

namespace plv {

inline constexpr double kToleranceJonction = 1e-6;  // ends that touch, drawing units

// The two ends, that of the smaller X first; on equal X in the order of the curve. A curve that has no ends leaves the
// points as they were.
void extremitesCourbe(const AcDbCurve& courbe, AcGePoint2d& gauche, AcGePoint2d& droite);

// Conversions; nothing for a type that isn't theirs. polyligneDe2d serves simple and curve-fit polylines, splineDe2d
// those of a quadratic or cubic spline, by their control vertices.
std::unique_ptr<AcDbPolyline> polyligneDe2d(AcDb2dPolyline& poly2d);
std::unique_ptr<AcDbSpline> splineDe2d(const AcDb2dPolyline& poly2d);
std::unique_ptr<AcGeNurbCurve3d> nurbsDeSpline(const AcDbSpline& spline);
std::unique_ptr<AcDbSpline> splineDeNurbs(const AcGeNurbCurve3d& nurbs);
// An open spline of these control points: clamped, knots in whole numbers, all weights 1.
std::unique_ptr<AcDbSpline> splineUniforme(int degre, const AcGePoint3dArray& points);

// Appends points along the spline, in the axes of its plane. Whatever the tolerance, the chord bound is 0.001. Nothing
// for a spline that makes no curve, or lies in no plane.
void echantillonnerSpline(const AcDbSpline& spline, AcGePoint2dArray& points, double tolerance);

// Appends the straight pieces of a curve, the i-th start and the i-th end: in the direction of the curve, and sorted by
// X, lesser X first, for the classes that have no reading of their own (arcs, circles, ellipses ...). An arc of a
// polyline stands for its chord. The tolerance is only handed on.
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

// Joins two lightweight polylines, or two splines, that touch at an end. False for others, with the result empty.
bool fusionnerCourbes(const AcDbCurve& courbe1, const AcDbCurve& courbe2, std::unique_ptr<AcDbCurve>& resultat);
// Joins all touching curves of the list: the first takes the place of both, the other is erased. Ids that can't be
// opened for writing as curves, and those of erased ones, leave the list.
void joindreCourbes(AcDbObjectIdArray& ids);

}  // namespace plv
