// Rational Bézier pieces: curves of every kind are turned into them to find meetings and nearest points.
// Reference: Piegl and Tiller, "The NURBS Book", chapters 1 and 6. Inner header of the room.
#pragma once
#include <vector>

#include "atelier/geometry/box.h"
#include "atelier/geometry/bspline.h"

namespace atelier {

struct Weighted {
  double x, y, z, w;  // w times the point, and w
};

struct Bezier {
  std::vector<Weighted> points;
  double from = 0, to = 1;  // parameters of the curve it is a piece of

  // u from 0 to 1 along the piece.
  AcGePoint3d at(double u) const;
  AcGeVector3d derivative(double u) const;  // by u
  AcGeVector3d second(double u) const;
  AcGePoint3d first() const { return cartesian(points.front()); }
  AcGePoint3d last() const { return cartesian(points.back()); }
  Box box() const;               // of the control polygon, which holds the curve
  void growBox(Box& box) const;  // by the curve itself, to a billionth of its size
  double bend() const;           // the greatest distance of a control point from the chord
  void halve(Bezier& left, Bezier& right) const;
  static AcGePoint3d cartesian(const Weighted& p) { return {p.x / p.w, p.y / p.w, p.z / p.w}; }
};

// Empty for data that make no curve.
std::vector<Bezier> bezierPieces(const Nurbs& curve);
// The part of an ellipse c + u cos t + v sin t from one angle to a greater one, in pieces below a right angle; `from`
// and `to` of a piece are its angles, between which the parameter is not linear.
std::vector<Bezier> bezierPieces(const AcGePoint3d& c, const AcGeVector3d& u, const AcGeVector3d& v, double from,
                                 double to);

struct Meeting {
  double u, v;  // along the one piece and the other
};
// Where the two pieces are nearer to each other than the tolerance. For pieces that run along each other only some of
// the common points are given.
std::vector<Meeting> meetings(const Bezier& a, const Bezier& b, double tolerance);

// When a point of the piece is nearer to p than `best`: sets `best` to its distance and u to its place, answers true.
bool nearest(const Bezier& piece, const AcGePoint3d& p, double& best, double& u);

}  // namespace atelier
