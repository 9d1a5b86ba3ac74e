// REGION, 3DSOLID and their kin: the edges that their data tell.
#include <cmath>
#include <numbers>

#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/solids/solid_edges.h"

namespace atelier {

namespace {

struct Shown {
  PartMaker& make;
  const AcGeMatrix3d& place;
  const solid::Edge& edge;

  void operator()(const solid::StraightEdge&) const { make.line(place * edge.from, place * edge.to); }
  void operator()(const solid::EllipticEdge& arc) const {
    const AcGeVector3d u = place * arc.u, v = place * arc.v;
    const double longest = u.length();
    if (!(longest > 0)) return;
    // An arc of an entity runs anticlockwise about its normal.
    const double sign = arc.sweep < 0 ? -1 : 1;
    const double start = arc.start * sign, sweep = arc.sweep * sign;
    make.ellipse(place * arc.centre, u, u.crossProduct(v * sign).normal(), v.length() / longest, start, start + sweep);
  }
  void operator()(const solid::SplineEdge& spline) const {
    std::vector<AcGePoint3d> points;
    for (const AcGePoint3d& p : spline.points) points.push_back(place * p);
    make.path(points);
  }
};

}  // namespace

void solidParts(PartMaker& make, const Record& record) {
  const solid::Table table = solid::tableOf(record, &make.database());
  const AcGeMatrix3d place = solid::placingOf(table).matrix;
  bool any = false;
  for (const solid::Record& candidate : table) {
    if (candidate.type != "edge") continue;
    any = true;
    const auto edge = solid::readEdge(table, candidate);
    if (edge) std::visit(Shown{make, place, *edge}, edge->curve);
    else make.missing();
  }
  if (!any) make.missing();
}

}  // namespace atelier
