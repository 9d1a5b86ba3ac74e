// The walk over a drawing: limits, visibility, and which function draws which type.
// Warnings are counted by sentence, so that a thousand entities of one kind make one line.
#include "atelier/render/scene/scene.h"

#include <algorithm>
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/draw_order.h"
#include "atelier/database/pictures/pictures.h"
#include "atelier/render/scene/scene_builder.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

namespace {

struct Kind {
  std::string_view type;
  DrawFunction draw;
};
constexpr Kind kKinds[] = {
    {"LINE", drawLine},         {"CIRCLE", drawCircle},
    {"ARC", drawArc},           {"ELLIPSE", drawEllipse},
    {"SPLINE", drawSpline},     {"POINT", drawPoint},
    {"XLINE", drawUnbounded},   {"RAY", drawUnbounded},
    {"SOLID", drawSolid},       {"TRACE", drawSolid},
    {"3DFACE", drawFace},       {"LWPOLYLINE", drawLwPolyline},
    {"POLYLINE", drawPolyline}, {"TEXT", drawText},
    {"ATTRIB", drawAttribute},  {"ATTDEF", drawAttributeDefinition},
    {"MTEXT", drawMText},       {"INSERT", drawInsert},
    {"ACAD_TABLE", drawInsert}, {"HATCH", drawHatch},
    {"VIEWPORT", drawViewport}, {"WIPEOUT", drawWipeout},
    {"IMAGE", drawImage},
};
// Types without anything to draw in the model space.
constexpr std::string_view kInvisible[] = {"SEQEND", "VERTEX", "LIGHT", "SUN"};

// The most primitives that blocks and arrays may bring to a list: so many times the number of entities, and at least this
// many. A small file that stands for billions then ends in seconds; a large one with thousands of references is whole.
constexpr std::size_t kUnfolding = 50, kLeastPrimitives = 200'000;

// Of a plot, which is whole or an error: more than any drawing that WholeScene lets pass comes to.
constexpr std::size_t kMostWalked = 50'000'000;

void walk(SceneBuilder& builder, std::span<AcDbStub* const> entities, const SceneOptions& options) {
  Placement all;
  all.scale = options.patternScale;
  all.clip = options.clip;
  try {
    for (AcDbStub* stub : entities) builder.entity(*stub, all);
  } catch (const fonts::FontError& error) {
    throw PlotError(error.what());
  }
}

// Null for a type that isn't drawn.
DrawFunction drawFunction(std::string_view type) {
  const auto kind = std::ranges::find(kKinds, type, &Kind::type);
  if (kind != std::end(kKinds)) return kind->draw;
  return hasParts(type) ? drawParts : nullptr;
}

// One sentence for all: "non représentés : 12 ACAD_PROXY_ENTITY, 3 BODY".
std::string leftOutSentence(const std::map<std::string, std::size_t>& counts) {
  std::string list;
  for (const auto& [type, count] : counts) list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + type;
  return "objets non représentés, ou en partie : " + list;
}

std::vector<AcDbStub*> entitiesOf(const AcDbDatabase& database, const SceneOptions& options) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  AcDbStub* space = options.space ? options.space : imp.modelSpace();
  return space ? inDrawOrder(imp, *space) : std::vector<AcDbStub*>();
}

}  // namespace

std::uint64_t Entity::source() const { return at.source ? at.source : stub.handle; }

bool isDrawn(std::string_view type) {
  return drawFunction(type) || std::ranges::find(kInvisible, type) != std::end(kInvisible);
}

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

SceneBuilder::SceneBuilder(AcDbImpDatabase& database, const SceneOptions& options, std::size_t most,
                           const Receiver& receive)
    : database_(database), options_(options), most_(most), properties_(database, options), receive_(receive) {}

Groups SceneBuilder::groupsOf(AcDbStub& stub) { return Groups(AcDbImpObject::of(&database_.object(stub)).settled()); }

std::vector<AcDbStub*> SceneBuilder::children(const AcDbStub& stub) const {
  std::vector<AcDbStub*> out;
  if (stub.children)
    std::ranges::copy_if(*stub.children, std::back_inserter(out),
                         [](AcDbStub* s) { return !s->is(AcDbStub::kErased); });
  return out;
}

bool SceneBuilder::roomLeft() {
  stopped_ = stopped_ || ++visits_ / 10 > most_ || made_ >= most_;
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
  if (options_.hidden) look.hidden = look.frozen = false;
  draw({owner, record, std::move(groups), at, look});
}

void SceneBuilder::draw(const Entity& e) {
  const std::string_view type = e.record.type();
  const DrawFunction show = drawFunction(type);
  if (!show) {
    if (!isDrawn(type) && !e.look.hidden) leaveOut(type);
    return;
  }
  // A reference on a layer that is off still shows its contents on other layers.
  const bool holds = show == drawInsert || show == drawParts;
  if (holds ? !e.look.frozen : !e.look.hidden) show(*this, e);
}

void SceneBuilder::block(AcDbStub& record, const Placement& at) {
  if (at.depth > options_.deepest)
    return cannotShow("bloc imbriqué au-delà de " + std::to_string(options_.deepest) + " niveaux");
  if (std::ranges::find(open_, &record) != open_.end()) return cannotShow("bloc qui se contient lui-même");
  // An empty block counts, too, so that billions of them come to an end.
  if (!roomLeft() || !record.children) return;
  open_.push_back(&record);
  for (AcDbStub* stub : inDrawOrder(database_, record)) {
    if (stopped_) break;
    entity(*stub, at);
  }
  open_.pop_back();
}

Pen SceneBuilder::pen(const Entity& e) {
  return {e.look.colour, e.look.weightMm, properties_.dashes(e.look.pattern, e.look.patternScale)};
}

void SceneBuilder::add(const Entity& e, Shape shape) {
  if (e.look.hidden) return;
  if (auto made = primitive(e.source(), std::move(shape), e.at.clip)) ++made_, receive_(std::move(*made));
}

void SceneBuilder::stroke(const Entity& e, Path path) {
  if (e.look.pattern && !e.look.hidden) marks(e, path);
  add(e, Stroke{std::move(path), pen(e)});
}

void SceneBuilder::fill(const Entity& e, Path path, bool evenOdd) { fill(e, std::move(path), evenOdd, e.look.colour); }

void SceneBuilder::fill(const Entity& e, Path path, bool evenOdd, Colour colour) {
  add(e, Fill{std::move(path), colour, evenOdd});
}

void SceneBuilder::cannotShow(const std::string& what) { ++unshown_[what]; }
void SceneBuilder::leaveOut(std::string_view what) { ++leftOut_[std::string(what)]; }

const fonts::Font& SceneBuilder::font(const fonts::FontStyle& style) {
  const std::string key = style.file + '|' + std::to_string(style.widthFactor) + '|' + std::to_string(style.oblique) +
                          (style.bold ? "b" : "") + (style.italic ? "i" : "");
  const auto known = fonts_.find(key);
  return known != fonts_.end() ? known->second : fonts_.emplace(key, fonts::Font(style)).first->second;
}

std::vector<std::string> SceneBuilder::warnings() const {
  std::vector<std::string> out;
  if (!leftOut_.empty()) out.push_back(leftOutSentence(leftOut_));
  for (const auto& [what, count] : unshown_)
    out.push_back(what + (count > 1 ? " (" + std::to_string(count) + " fois)" : ""));
  if (stopped_)
    out.push_back("dessin incomplet : arrêté après " + std::to_string(made_) +
                  " objets graphiques (blocs imbriqués ou réseaux trop nombreux)");
  return out;
}

SceneOptions forPlot() {
  SceneOptions options;
  options.step = checkInterruption;
  return options;
}

DisplayList drawScene(const AcDbDatabase& database, const SceneOptions& options) {
  return drawEntities(database, entitiesOf(database, options), options);
}

std::vector<std::string> walkScene(const AcDbDatabase& database, const SceneOptions& options, const Receiver& receive) {
  SceneBuilder builder(AcDbImpDatabase::of(&database), options, kMostWalked, receive);
  walk(builder, entitiesOf(database, options), options);
  if (builder.full()) throw PlotError("tracé impossible : plus de 50 millions d'objets graphiques");
  return builder.warnings();
}

DisplayList drawEntities(const AcDbDatabase& database, std::span<AcDbStub* const> entities,
                         const SceneOptions& options) {
  const std::size_t unfolded = kUnfolding * AcDbImpDatabase::of(&database).stubs().size();
  DisplayList list;
  const Receiver receive = [&](Primitive&& item) { list.add(std::move(item)); };
  SceneBuilder builder(AcDbImpDatabase::of(&database), options,
                       std::min(options.mostPrimitives, std::max(kLeastPrimitives, unfolded)), receive);
  walk(builder, entities, options);
  list.warnings = builder.warnings();
  return list;
}

}  // namespace atelier::render
