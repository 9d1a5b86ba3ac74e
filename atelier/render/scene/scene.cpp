// The walk over a drawing: limits, visibility, and which function draws which type.
// Warnings are counted by sentence, so that a thousand entities of one kind make one line.
#include "atelier/render/scene/scene.h"

#include <algorithm>
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/render/scene/scene_builder.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

namespace {

struct Kind {
  std::string_view type;
  DrawFunction draw;
};
constexpr Kind kKinds[] = {
    {"LINE", drawLine},
    {"CIRCLE", drawCircle},
    {"ARC", drawArc},
    {"ELLIPSE", drawEllipse},
    {"SPLINE", drawSpline},
    {"POINT", drawPoint},
    {"XLINE", drawUnbounded},
    {"RAY", drawUnbounded},
    {"SOLID", drawSolid},
    {"TRACE", drawSolid},
    {"3DFACE", drawFace},
    {"LWPOLYLINE", drawLwPolyline},
    {"POLYLINE", drawPolyline},
    {"LEADER", drawLeader},
    {"TEXT", drawText},
    {"ATTRIB", drawAttribute},
    {"ATTDEF", drawAttributeDefinition},
    {"MTEXT", drawMText},
    {"INSERT", drawInsert},
    {"ACAD_TABLE", drawInsert},
    {"DIMENSION", drawDimension},
    {"ARC_DIMENSION", drawDimension},
    {"LARGE_RADIAL_DIMENSION", drawDimension},
    {"HATCH", drawHatch},
};
// Types without anything to draw in the model space.
constexpr std::string_view kInvisible[] = {"VIEWPORT", "SEQEND", "VERTEX", "LIGHT", "SUN"};

DisplayList drawAll(const AcDbDatabase& database, std::span<AcDbStub* const> entities, const SceneOptions& options) {
  SceneBuilder builder(AcDbImpDatabase::of(&database), options);
  try {
    for (AcDbStub* stub : entities) builder.entity(*stub, {});
  } catch (const fonts::FontError& error) {
    throw PlotError(error.what());
  }
  return builder.finish();
}

}  // namespace

namespace {
// The most primitives that blocks and arrays may produce: so many times the number of entities, and at least this many.
// A small file that stands for billions then ends in seconds; a large one with thousands of references is drawn whole.
constexpr std::size_t kUnfolding = 50, kLeastPrimitives = 200'000;
}  // namespace

std::uint64_t Entity::source() const { return at.source ? at.source : stub.handle; }

Affine Entity::plane(double elevation) const {
  const AcGeVector3d normal = groups.normal();
  const bool flat = normal.x == 0 && normal.y == 0 && normal.z > 0;
  const AcGeMatrix3d m = flat ? at.toWorld : at.toWorld * AcGeMatrix3d().setToPlaneToWorld(normal);
  return {m(0, 0), m(1, 0), m(0, 1), m(1, 1), m(0, 2) * elevation + m(0, 3), m(1, 2) * elevation + m(1, 3)};
}

Pt Entity::world(const AcGePoint3d& point) const {
  const AcGePoint3d p = at.toWorld * point;
  return {p.x, p.y};
}

SceneBuilder::SceneBuilder(AcDbImpDatabase& database, const SceneOptions& options)
    : database_(database),
      options_(options),
      most_(std::min(options.mostPrimitives, std::max(kLeastPrimitives, kUnfolding * database.stubs().size()))),
      properties_(database, options.paper) {}

Groups SceneBuilder::groupsOf(AcDbStub& stub) { return Groups(AcDbImpObject::of(&database_.object(stub)).settled()); }

std::vector<AcDbStub*> SceneBuilder::children(const AcDbStub& stub) const {
  std::vector<AcDbStub*> out;
  if (stub.children)
    std::ranges::copy_if(*stub.children, std::back_inserter(out),
                         [](AcDbStub* s) { return !s->is(AcDbStub::kErased); });
  return out;
}

bool SceneBuilder::roomLeft() {
  stopped_ = stopped_ || ++visits_ > 10 * most_ || list_.items().size() >= most_;
  return !stopped_;
}

void SceneBuilder::entity(AcDbStub& stub, const Placement& at) {
  if (stopped_ || stub.is(AcDbStub::kErased)) return;
  if (!roomLeft()) return;
  if (options_.step) options_.step();
  const AcDbEntityPointer held(idOf(&stub));  // so that parsing its block doesn't drop it from memory
  part(stub, AcDbImpObject::of(&database_.object(stub)).settled(), at);
}

void SceneBuilder::part(AcDbStub& owner, const Record& record, const Placement& at) {
  Groups groups(record);
  Look look = properties_.look(groups, at.inherited);
  look.patternScale *= at.scale;
  draw({owner, record, std::move(groups), at, look});
}

void SceneBuilder::draw(const Entity& e) {
  const std::string_view type = e.record.type();
  const auto kind = std::ranges::find(kKinds, type, &Kind::type);
  if (kind == std::end(kKinds)) {
    if (std::ranges::find(kInvisible, type) == std::end(kInvisible) && !e.look.hidden)
      cannotShow("entité de type " + std::string(type) + " non représentée");
    return;
  }
  // A reference on a layer that is off still shows its contents on other layers.
  const bool holds = kind->draw == drawInsert || kind->draw == drawDimension;
  if (holds ? !e.look.frozen : !e.look.hidden) kind->draw(*this, e);
}

void SceneBuilder::block(AcDbStub& record, const Placement& at) {
  if (at.depth > options_.deepest)
    return cannotShow("bloc imbriqué au-delà de " + std::to_string(options_.deepest) + " niveaux");
  if (std::ranges::find(open_, &record) != open_.end()) return cannotShow("bloc qui se contient lui-même");
  // An empty block counts, too, so that billions of them come to an end.
  if (!roomLeft() || !record.children) return;
  open_.push_back(&record);
  for (AcDbStub* stub : *record.children) {
    if (stopped_) break;
    entity(*stub, at);
  }
  open_.pop_back();
}

Pen SceneBuilder::pen(const Entity& e) {
  return {e.look.colour, e.look.weightMm, properties_.dashes(e.look.pattern, e.look.patternScale)};
}

void SceneBuilder::add(const Entity& e, std::variant<Stroke, Fill, GlyphRun, Unbounded, Dot> shape) {
  if (!e.look.hidden) list_.add(e.source(), std::move(shape));
}

void SceneBuilder::stroke(const Entity& e, Path path) { add(e, Stroke{std::move(path), pen(e)}); }

void SceneBuilder::fill(const Entity& e, Path path, bool evenOdd) { fill(e, std::move(path), evenOdd, e.look.colour); }

void SceneBuilder::fill(const Entity& e, Path path, bool evenOdd, Colour colour) {
  add(e, Fill{std::move(path), colour, evenOdd});
}

void SceneBuilder::cannotShow(const std::string& what) { ++unshown_[what]; }

const fonts::Font& SceneBuilder::font(const fonts::FontStyle& style) {
  const std::string key = style.file + '|' + std::to_string(style.widthFactor) + '|' + std::to_string(style.oblique) +
                          (style.bold ? "b" : "") + (style.italic ? "i" : "");
  const auto known = fonts_.find(key);
  return known != fonts_.end() ? known->second : fonts_.emplace(key, fonts::Font(style)).first->second;
}

DisplayList SceneBuilder::finish() {
  for (const auto& [what, count] : unshown_)
    list_.warnings.push_back(what + (count > 1 ? " (" + std::to_string(count) + " fois)" : ""));
  if (stopped_)
    list_.warnings.push_back("dessin incomplet : arrêté après " + std::to_string(list_.items().size()) +
                             " objets graphiques (blocs imbriqués ou réseaux trop nombreux)");
  return std::move(list_);
}

SceneOptions forPlot() {
  SceneOptions options;
  options.step = checkInterruption;
  return options;
}

DisplayList drawScene(const AcDbDatabase& database, const SceneOptions& options) {
  const AcDbStub* space = AcDbImpDatabase::of(&database).modelSpace();
  if (!space || !space->children) return {};
  return drawAll(database, *space->children, options);
}

DisplayList drawEntities(const AcDbDatabase& database, std::span<AcDbStub* const> entities,
                         const SceneOptions& options) {
  return drawAll(database, entities, options);
}

}  // namespace atelier::render
