// EXPLODE: replaces block references, dimensions and polylines by their parts.
// Parts of a block keep their layer and colour, parts of a polyline get those of the polyline.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/reference_parts.h"
#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/dimensions/dimension_block.h"
#include "atelier/document/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

void explodeSpacePolyline(const AcDb3dPolyline& polyline, Parts& parts) {
  const auto vertices = drawnVertices(polyline);
  for (std::size_t i = 0; i + (polyline.isClosed() ? 0 : 1) < vertices.size(); ++i) {
    parts.push_back(std::make_unique<AcDbLine>(vertices[i].position, vertices[(i + 1) % vertices.size()].position));
    parts.back()->setPropertiesFrom(&polyline);
  }
}

// Appends the parts; false for an entity that can't be exploded.
bool partsOf(const AcDbEntity& entity, Parts& parts) {
  if (const auto* light = AcDbPolyline::cast(&entity)) {
    explodePolyline(*light, parts);
  } else if (const auto* old = AcDb2dPolyline::cast(&entity)) {
    explodePolyline(*lightPolyline(*old), parts);
  } else if (const auto* space = AcDb3dPolyline::cast(&entity)) {
    explodeSpacePolyline(*space, parts);
  } else {
    AcArray<AcRxObject*> pieces;
    if (entity.explode(pieces) != Acad::eOk) return false;
    for (int i = 0; i < pieces.length(); ++i)
      if (AcDbEntity* piece = AcDbEntity::cast(pieces[i])) parts.emplace_back(piece);
      else delete pieces[i];
  }
  return !parts.empty();
}

// As a reference to the block that shows it, which a dimension of some programs has to be given first.
bool explodeDimension(const Command& c, AcDbDimension& dimension) {
  if (dimension.dimBlockId().isNull() && !drawDimensionBlock(dimension)) return false;
  AcDbBlockReference shown(AcGePoint3d(), dimension.dimBlockId());
  shown.setPropertiesFrom(&dimension);
  return explodeReference(c, shown);
}

bool explodeInto(const Command& c, const AcDbEntity& entity) {
  Parts parts;
  if (!partsOf(entity, parts)) return false;
  for (auto& part : parts) c.addAsIs(std::move(part));
  return true;
}

// A program gives one answer without Enter, unless QAFLAGS asks for the same questions as for a user.
CommandTask explode(Command& c) {
  const bool single =
      c.document.prompter().source->isProgram() && (c.document.variables().integer("QAFLAGS", 0) & 1) == 0;
  const auto chosen = co_await c.objects(single);
  if (!chosen.given()) co_return;
  int kept = 0;
  // An object's parts are added before it is erased, so that an interruption loses nothing.
  c.change(**chosen, [&](AcDbEntity& entity) {
    const auto* reference = AcDbBlockReference::cast(&entity);
    auto* dimension = AcDbDimension::cast(&entity);
    if (!(reference   ? explodeReference(c, *reference)
          : dimension ? explodeDimension(c, *dimension)
                      : explodeInto(c, entity))) {
      ++kept;
      return;
    }
    entity.erase();
  });
  if (kept > 0) c.print("\n" + std::to_string(kept) + " objet(s) ne se décomposent pas.");
}

constexpr CommandRow kTable[] = {
    {"EXPLODE", "X DECOMPOS", explode, "Décompose des blocs, des cotes et des polylignes."},
};

}  // namespace

std::span<const CommandRow> explodeCommands() { return kTable; }

}  // namespace atelier
