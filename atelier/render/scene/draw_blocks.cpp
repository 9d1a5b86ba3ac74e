// Block references with their arrays and attributes, tables, and what is shown by parts.
// A reference gives its contents their place, the "by block" properties, and its layer to those on layer 0.
#include <algorithm>
#include <cmath>

#include "atelier/database/entities/block_clip.h"
#include "atelier/database/pictures/pictures.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

namespace {

AcDbStub* blockOf(SceneBuilder& scene, const Entity& e) {
  const std::string_view name = e.groups.text(2);
  return name.empty() ? nullptr : scene.database().tableRecord("BLOCK_RECORD", name);
}

AcGePoint3d basePoint(SceneBuilder& scene, const AcDbStub* block) {
  const auto& ends = scene.database().blockEnds;
  const auto at = ends.find(block);
  return at == ends.end() || !at->second.begin ? AcGePoint3d() : scene.groupsOf(*at->second.begin).point(10);
}

Placement within(SceneBuilder& scene, const Entity& e) {
  Placement inside;
  inside.toWorld = e.at.toWorld;
  inside.inherited = {&scene.properties().layerOf(e.groups, e.at.inherited), e.look};
  inside.scale = e.at.scale;
  inside.source = e.source();
  inside.depth = e.at.depth + 1;
  inside.clip = e.at.clip;
  return inside;
}

double rotationOf(const Groups& g) {
  // The angle of a table is that of its rows.
  if (g.text(0) != "ACAD_TABLE" || !g.has(11)) return g.radians(50);
  const AcGePoint3d direction = g.point(11);
  return std::atan2(direction.y, direction.x);
}

double scaleOf(const Groups& g, int code) {
  const double scale = g.text(0) == "ACAD_TABLE" ? 1 : g.real(code, 1);
  return scale == 0 ? 1 : scale;
}

// The boundary of a clipped reference where its contents stand, within those around it.
std::shared_ptr<const Clip> clipOf(const std::vector<AcGePoint3d>& corners, const AcGeMatrix3d& toWorld,
                                   const std::shared_ptr<const Clip>& outer) {
  if (corners.empty()) return outer;
  Path area;
  for (const AcGePoint3d& corner : corners) {
    const AcGePoint3d p = toWorld * corner;
    area.lineTo({p.x, p.y});
  }
  area.close();
  return std::make_shared<const Clip>(Clip{std::move(area), outer});
}

void drawArray(SceneBuilder& scene, const Entity& e, AcDbStub& block) {
  const Groups& g = e.groups;
  const bool array = g.text(0) == "INSERT";
  const std::int64_t columns = array ? std::max<std::int64_t>(g.integer(70, 1), 1) : 1;
  const std::int64_t rows = array ? std::max<std::int64_t>(g.integer(71, 1), 1) : 1;
  const AcGePoint3d at = g.point(10), base = basePoint(scene, &block);
  const double sx = scaleOf(g, 41), sy = scaleOf(g, 42), sz = scaleOf(g, 43);

  AcGeMatrix3d scaling;
  scaling(0, 0) = sx, scaling(1, 1) = sy, scaling(2, 2) = sz;
  const AcGeMatrix3d turned = e.at.toWorld * AcGeMatrix3d().setToPlaneToWorld(g.normal()) *
                              AcGeMatrix3d::translation(at.asVector()) *
                              AcGeMatrix3d::rotation(rotationOf(g), AcGeVector3d::kZAxis);
  const AcGeMatrix3d content = scaling * AcGeMatrix3d::translation(-base.asVector());
  Placement inside = within(scene, e);
  inside.scale *= std::sqrt(std::abs(sx * sy));
  const std::vector<AcGePoint3d> clip = array ? blockClip(scene.database(), e.record) : std::vector<AcGePoint3d>();
  for (std::int64_t row = 0; row < rows && !scene.full(); ++row)
    for (std::int64_t column = 0; column < columns && !scene.full(); ++column) {
      const AcGeVector3d step(static_cast<double>(column) * g.real(44), static_cast<double>(row) * g.real(45), 0);
      inside.toWorld = turned * AcGeMatrix3d::translation(step) * content;
      inside.clip = clipOf(clip, inside.toWorld, e.at.clip);
      scene.block(block, inside);
    }
}

}  // namespace

void drawInsert(SceneBuilder& scene, const Entity& e) {
  if (AcDbStub* block = blockOf(scene, e)) drawArray(scene, e, *block);
  else scene.cannotShow("référence à un bloc absent : " + std::string(e.groups.text(2)));
  // Attributes are placed beside the reference, not transformed with the block.
  const Placement beside = within(scene, e);
  for (AcDbStub* attribute : scene.children(e.stub)) scene.entity(*attribute, beside);
}

void drawParts(SceneBuilder& scene, const Entity& e) {
  const Placement inside = within(scene, e);
  const std::string missing =
      eachPart(scene.database(), e.record, [&](const Record& part) { scene.part(e.stub, part, inside); });
  if (!missing.empty()) scene.leaveOut(std::string(e.record.type()) + " (" + missing + ")");
}

}  // namespace atelier::render
