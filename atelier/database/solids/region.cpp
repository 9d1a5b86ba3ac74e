// The area of a planar region, from the edges of its faces in the solid-model data.
#include <optional>

#include "atelier/database/objects/new_record.h"
#include "atelier/database/solids/solid_edges.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

// Half the integral of p x dp along an edge; splines are not followed.
std::optional<AcGeVector3d> swept(const solid::Edge& edge) {
  if (const auto* arc = std::get_if<solid::EllipticEdge>(&edge.curve))
    return (arc->centre.asVector().crossProduct(edge.to - edge.from) + arc->u.crossProduct(arc->v) * arc->sweep) * 0.5;
  if (std::holds_alternative<solid::StraightEdge>(edge.curve))
    return edge.from.asVector().crossProduct(edge.to.asVector()) * 0.5;
  return std::nullopt;
}

// The length of the vector area of all faces, since the loops of a face run about it in one sense and those of its holes
// in the other.
std::optional<double> areaOf(const solid::Table& table) {
  AcGeVector3d area;
  bool any = false;
  for (const solid::Record& coedge : table) {
    if (coedge.type != "coedge") continue;
    const solid::Record* edge = solid::pointed(table, coedge, "edge");
    const auto read = edge ? solid::readEdge(table, *edge) : std::nullopt;
    const auto part = read ? swept(*read) : std::nullopt;
    if (!part) return std::nullopt;
    area = area + (coedge.count("reversed") > 0 ? -*part : *part);
    any = true;
  }
  const double scale = solid::placingOf(table).scale;
  return any ? std::optional(area.length() * scale * scale) : std::nullopt;
}

}  // namespace

AcDbRegion::AcDbRegion() { initRecord(*this, "REGION"); }

Acad::ErrorStatus AcDbRegion::getArea(double& area) const {
  const std::optional<double> found = areaOf(solid::tableOf(AcDbImpObject::of(this).record, databaseOf(this)));
  if (!found) return Acad::eNotApplicable;
  area = *found;
  return Acad::eOk;
}
