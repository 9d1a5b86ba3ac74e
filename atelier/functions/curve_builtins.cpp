// AutoLISP functions on curves: points, parameters and distances along lines, arcs, polylines, splines ...
// A parameter, distance or point that is not on the curve gives nil, and so does a function that the curve doesn't have.
// Reference: AutoLISP functions vlax-curve-*.
#include <cmath>

#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;
using Curve = AcDbCurve;  // the host's class, not the geometry room's Curve

const AcDbCurve& curveArgument(Interpreter& in, Value value) {
  AcDbStub* stub = stubOfValue(value);
  if (!stub) in.failType("lentityp", value);
  const AcDbCurve* curve = stub->is(AcDbStub::kErased) ? nullptr : AcDbCurve::cast(&stub->database->object(*stub));
  if (!curve) in.fail("bad argument value: AcDbCurve");
  return *curve;
}

AcGePoint3d pointOf(Interpreter& in, Value value) {
  const auto [x, y, z] = lisp::pointArgument(in, value);
  return {x, y, z};
}

// The value is a reference, because computing the status argument fills it.
Value realOrNil(Acad::ErrorStatus status, const double& value) {
  return status == Acad::eOk ? Value::real(value) : lisp::nil;
}
Value pointOrNil(Interpreter& in, Acad::ErrorStatus status, const AcGePoint3d& point) {
  return status == Acad::eOk ? pointValue(in, point) : lisp::nil;
}

// Functions without a second argument, or with a number or a point.
template <Acad::ErrorStatus (AcDbCurve::*ASK)(double&) const>
Value real(Interpreter& in, Arguments arguments) {
  double value = 0;
  return realOrNil((curveArgument(in, arguments[0]).*ASK)(value), value);
}
template <Acad::ErrorStatus (AcDbCurve::*ASK)(AcGePoint3d&) const>
Value end(Interpreter& in, Arguments arguments) {
  AcGePoint3d point;
  return pointOrNil(in, (curveArgument(in, arguments[0]).*ASK)(point), point);
}
template <Acad::ErrorStatus (AcDbCurve::*ASK)(double, AcGePoint3d&) const>
Value pointAt(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  AcGePoint3d point;
  return pointOrNil(in, (curve.*ASK)(lisp::numberArgument(in, arguments[1]), point), point);
}
template <Acad::ErrorStatus (AcDbCurve::*ASK)(double, double&) const>
Value realAt(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  double value = 0;
  return realOrNil((curve.*ASK)(lisp::numberArgument(in, arguments[1]), value), value);
}
template <Acad::ErrorStatus (AcDbCurve::*ASK)(const AcGePoint3d&, double&) const>
Value realAtPoint(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  double value = 0;
  return realOrNil((curve.*ASK)(pointOf(in, arguments[1]), value), value);
}

template <Acad::ErrorStatus (AcDbCurve::*ASK)(double, AcGeVector3d&) const>
Value derivative(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  AcGeVector3d derivative;
  const auto status = (curve.*ASK)(lisp::numberArgument(in, arguments[1]), derivative);
  return pointOrNil(in, status, AcGePoint3d() + derivative);
}

Value closestPoint(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  AcGePoint3d point;
  const bool extend = !lisp::optional(arguments, 2).isNil();
  return pointOrNil(in, curve.getClosestPointTo(pointOf(in, arguments[1]), point, extend), point);
}

// The curve is projected along the direction; the nearest point found there is projected back.
Value closestPointProjected(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  const AcGePoint3d from = pointOf(in, arguments[1]);
  const AcGeVector3d along = pointOf(in, arguments[2]).asVector();
  if (along.length() == 0) in.failType("pointp:", arguments[2]);
  AcGePoint3d point;
  const bool extend = !lisp::optional(arguments, 3).isNil();
  double low = 0, high = 0;
  if (curve.getStartParam(low) != Acad::eOk || curve.getEndParam(high) != Acad::eOk)
    return pointOrNil(in, curve.getClosestPointTo(from, point, extend), point);
  // Finds the curve's point nearest to the line through the point: samples find the interval, halving the minimum.
  const AcGeVector3d unit = along.normal();
  const auto gap = [&](double param) {
    AcGePoint3d p;
    if (curve.getPointAtParam(param, p) != Acad::eOk) return HUGE_VAL;
    const AcGeVector3d v = p - from;
    return (v - unit * v.dotProduct(unit)).length();
  };
  constexpr int kSamples = 512, kSteps = 80;
  int best = 0;
  for (int i = 1; i <= kSamples; ++i)
    if (gap(low + (high - low) * i / kSamples) < gap(low + (high - low) * best / kSamples)) best = i;
  double a = low + (high - low) * std::max(best - 1, 0) / kSamples;
  double b = low + (high - low) * std::min(best + 1, kSamples) / kSamples;
  constexpr double kGolden = 0.6180339887498949;
  for (int i = 0; i < kSteps; ++i) {
    const double c = b - (b - a) * kGolden, d = a + (b - a) * kGolden;
    (gap(c) < gap(d) ? b : a) = gap(c) < gap(d) ? d : c;
  }
  return pointOrNil(in, curve.getPointAtParam((a + b) / 2, point), point);
}

Value isClosed(Interpreter& in, Arguments arguments) {
  return curveArgument(in, arguments[0]).isClosed() ? in.t() : lisp::nil;
}

// Whether the curve is closed and repeats itself.
Value isPeriodic(Interpreter& in, Arguments arguments) {
  const AcDbCurve& curve = curveArgument(in, arguments[0]);
  const bool round = AcDbCircle::cast(&curve) || AcDbEllipse::cast(&curve);
  return round && curve.isClosed() ? in.t() : lisp::nil;
}

// A straight curve lies in many planes: T, too.
Value isPlanar(Interpreter& in, Arguments arguments) {
  double area = 0;
  return curveArgument(in, arguments[0]).getArea(area) == Acad::eInvalidInput ? lisp::nil : in.t();
}

constexpr lisp::Builtin kTable[] = {
    {"vlax-curve-getStartPoint", end<&Curve::getStartPoint>, 1, 1, "(vlax-curve-getStartPoint courbe)",
     "Premier point d'une courbe."},
    {"vlax-curve-getEndPoint", end<&Curve::getEndPoint>, 1, 1, "(vlax-curve-getEndPoint courbe)",
     "Dernier point d'une courbe."},
    {"vlax-curve-getStartParam", real<&Curve::getStartParam>, 1, 1, "(vlax-curve-getStartParam courbe)",
     "Paramètre du début d'une courbe."},
    {"vlax-curve-getEndParam", real<&Curve::getEndParam>, 1, 1, "(vlax-curve-getEndParam courbe)",
     "Paramètre de la fin d'une courbe."},
    {"vlax-curve-getPointAtParam", pointAt<&Curve::getPointAtParam>, 2, 2,
     "(vlax-curve-getPointAtParam courbe paramètre)", "Point d'une courbe à un paramètre."},
    {"vlax-curve-getPointAtDist", pointAt<&Curve::getPointAtDist>, 2, 2, "(vlax-curve-getPointAtDist courbe distance)",
     "Point d'une courbe à une distance de son début."},
    {"vlax-curve-getParamAtPoint", realAtPoint<&Curve::getParamAtPoint>, 2, 2,
     "(vlax-curve-getParamAtPoint courbe point)", "Paramètre d'un point qui est sur la courbe."},
    {"vlax-curve-getParamAtDist", realAt<&Curve::getParamAtDist>, 2, 2, "(vlax-curve-getParamAtDist courbe distance)",
     "Paramètre à une distance du début."},
    {"vlax-curve-getDistAtParam", realAt<&Curve::getDistAtParam>, 2, 2, "(vlax-curve-getDistAtParam courbe paramètre)",
     "Longueur de la courbe du début à un paramètre."},
    {"vlax-curve-getDistAtPoint", realAtPoint<&Curve::getDistAtPoint>, 2, 2, "(vlax-curve-getDistAtPoint courbe point)",
     "Longueur de la courbe du début à un point qui est dessus."},
    {"vlax-curve-getFirstDeriv", derivative<&AcDbCurve::getFirstDeriv>, 2, 2,
     "(vlax-curve-getFirstDeriv courbe paramètre)", "Dérivée d'une courbe à un paramètre: sa direction."},
    {"vlax-curve-getSecondDeriv", derivative<&AcDbCurve::getSecondDeriv>, 2, 2,
     "(vlax-curve-getSecondDeriv courbe paramètre)", "Dérivée seconde par le paramètre, ou nil."},
    {"vlax-curve-getClosestPointTo", closestPoint, 2, 3, "(vlax-curve-getClosestPointTo courbe point [prolonger])",
     "Point de la courbe le plus proche d'un point."},
    {"vlax-curve-getClosestPointToProjection", closestPointProjected, 3, 4,
     "(vlax-curve-getClosestPointToProjection courbe point direction [prolonger])",
     "Point de la courbe le plus proche d'un point, vu dans une direction."},
    {"vlax-curve-getArea", real<&Curve::getArea>, 1, 1, "(vlax-curve-getArea courbe)",
     "Aire dans une courbe plane, fermée par sa corde si elle est ouverte."},
    {"vlax-curve-isClosed", isClosed, 1, 1, "(vlax-curve-isClosed courbe)", "T pour une courbe fermée."},
    {"vlax-curve-isPeriodic", isPeriodic, 1, 1, "(vlax-curve-isPeriodic courbe)",
     "T pour une courbe qui recommence à sa fin: cercle, ellipse entière."},
    {"vlax-curve-isPlanar", isPlanar, 1, 1, "(vlax-curve-isPlanar courbe)",
     "T pour une courbe qui tient dans un plan."},
};

}  // namespace

std::span<const lisp::Builtin> curveBuiltins() { return kTable; }

}  // namespace atelier
