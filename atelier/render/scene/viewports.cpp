// A viewport shows a view's centre and height at its own centre and height; one that isn't a rectangle names the entity that is
// its outline.
#include "atelier/render/scene/viewports.h"

#include <cmath>
#include <numbers>

#include "atelier/base/text.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {
namespace {

constexpr int kSheetItself = 1, kOutlined = 0x10000, kOff = 0x20000;

bool isShown(const Groups& g) {
  return g.integer(69) != kSheetItself && g.integer(68, 1) != 0 && !(g.integer(90) & kOff) && g.real(40) > 0 &&
         g.real(41) > 0;
}

Box windowOf(const Groups& g) {
  const AcGePoint3d centre = g.point(10);
  const double w = g.real(40) / 2, h = g.real(41) / 2;
  return {centre.x - w, centre.y - h, centre.x + w, centre.y + h};
}

// From the sheet to the model: the map turns, moves and scales alike in both directions.
Affine inverse(const Affine& m) {
  const double d = m.determinant();
  const Affine turned{m.yy / d, -m.yx / d, -m.xy / d, m.xx / d, 0, 0};
  return turned * Affine::translation(-m.x0, -m.y0);
}

// The outline of a viewport in the model space; null for a rectangle.
std::shared_ptr<const Clip> outlineOf(AcDbImpDatabase& database, const Groups& g, const Affine& toPaper) {
  const Group* named = g.find(340);
  AcDbStub* stub = (g.integer(90) & kOutlined) && named ? database.stubOf(named->handle()) : nullptr;
  if (!stub || stub->is(AcDbStub::kErased) || !(std::abs(toPaper.determinant()) > 0)) return nullptr;
  SceneOptions options;
  options.hidden = true;
  AcDbStub* const one[] = {stub};
  Path area;
  const DisplayList list = drawEntities(database.database(), one, options);
  for (const Primitive& item : list.items())
    if (const auto* stroke = std::get_if<Stroke>(&item.shape)) area.append(stroke->path, inverse(toPaper));
  return area.empty() ? nullptr : std::make_shared<const Clip>(Clip{std::move(area), nullptr});
}

Viewport viewportOf(AcDbImpDatabase& database, const Groups& g) {
  Viewport made;
  made.window = windowOf(g);
  const AcGeVector3d direction = g.has(16) ? g.point(16).asVector() : AcGeVector3d(0, 0, 1);
  made.fromAbove = direction.z > 0 && std::hypot(direction.x, direction.y) < 1e-6 * direction.z;
  const AcGePoint3d paper = g.point(10), view = g.point(12), target = g.point(17);
  const double height = g.real(45);
  made.scale = height > 0 ? g.real(41) / height : 1;
  const Affine turned = Affine::rotation(g.radians(51)) * Affine::translation(-target.x, -target.y);
  made.toPaper = Affine::translation(paper.x, paper.y) * Affine::scaling(made.scale, made.scale) *
                 Affine::translation(-view.x, -view.y) * turned;
  for (const int code : {331, 341})
    for (const Group* group : g.all())
      if (AcDbStub* layer = group->code() == code ? database.stubOf(group->handle()) : nullptr)
        made.frozen.insert(upperCase(database.recordName(*layer)));
  made.clip = outlineOf(database, g, made.toPaper);
  return made;
}

}  // namespace

std::vector<Viewport> viewportsOf(AcDbImpDatabase& database, const AcDbStub& space) {
  std::vector<Viewport> found;
  if (!space.children) return found;
  for (AcDbStub* stub : *space.children) {
    if (stub->is(AcDbStub::kErased) || database.typeName(*stub) != "VIEWPORT") continue;
    const Record record = AcDbImpObject::of(&database.object(*stub)).settled();
    if (const Groups groups(record); isShown(groups)) found.push_back(viewportOf(database, groups));
  }
  return found;
}

// Its frame, unless another entity is its outline; what it shows is painted by whoever lays out the page.
void drawViewport(SceneBuilder& scene, const Entity& e) {
  if (isShown(e.groups) && !(e.groups.integer(90) & kOutlined))
    scene.stroke(e, fonts::rectangle(windowOf(e.groups)).mapped(e.plane()));
}

}  // namespace atelier::render
