// A viewport has lists of its own, since layers may be frozen in it and line types are as long on the sheet as elsewhere.
#include "atelier/desktop/picture/space_scene.h"

#include <algorithm>

#include "atelier/render/sheets/layout_page.h"

namespace atelier::desktop {
namespace {

constexpr render::Colour kSheetEdge{128, 128, 128};

render::SceneOptions optionsOf(AcDbImpDatabase& database, const render::Viewport& port) {
  render::SceneOptions options;
  options.frozen = port.frozen;
  options.clip = port.clip;
  if (database.header.integer("$PSLTSCALE", 1) != 0) options.patternScale = 1 / port.scale;
  return options;
}

bool samePoint(const render::Pt& a, const render::Pt& b) { return a.x == b.x && a.y == b.y; }

bool sameOutline(const render::Viewport& a, const render::Viewport& b) {
  if (!a.clip || !b.clip) return a.clip == b.clip;
  return std::ranges::equal(a.clip->area.points(), b.clip->area.points(), samePoint);
}

bool showAlike(const render::Viewport& a, const render::Viewport& b) {
  return a.scale == b.scale && a.frozen == b.frozen && sameOutline(a, b);
}

}  // namespace

void SpaceScene::refresh() {
  AcDbStub* const space = database_.currentSpaceId();
  if (!space) return;
  space_ = space;
  SceneCache& own = scenes_.try_emplace(space, database_, *space).first->second;
  own.refresh();
  parts_.clear();
  bounds_ = own.bounds();
  if (space == imp_.modelSpace()) {
    views_.clear();
  } else {
    lookThrough(render::viewportsOf(imp_, *space));
    addSheet(*space);
  }
  for (const View& view : views_) {
    bounds_.add(view.port.window);
    if (!view.port.fromAbove) continue;
    view.model->refresh();
    for (const Part& part : view.model->parts()) parts_.push_back({part, view.port.toPaper, view.port.window});
  }
  for (const Part& part : own.parts()) parts_.push_back({part});
}

void SpaceScene::lookThrough(std::vector<render::Viewport> ports) {
  AcDbStub* const model = imp_.modelSpace();
  views_.resize(model ? ports.size() : 0);
  for (std::size_t i = 0; i < views_.size(); ++i) {
    View& view = views_[i];
    if (!view.model || !showAlike(view.port, ports[i]))
      view.model = std::make_unique<SceneCache>(database_, *model, optionsOf(imp_, ports[i]));
    view.port = std::move(ports[i]);
  }
}

// The edge of the paper.
void SpaceScene::addSheet(AcDbStub& space) {
  const auto area = render::sheetArea(imp_, space);
  if (!area) return;
  render::DisplayList edge;
  edge.add(0, render::Stroke{fonts::rectangle(*area), {kSheetEdge, 0, nullptr}});
  parts_.push_back({std::make_shared<const render::DisplayList>(std::move(edge))});
  bounds_.add(*area);
}

const std::vector<std::string>& SpaceScene::warnings() const {
  static const std::vector<std::string> none;
  const auto own = scenes_.find(space_);
  return own == scenes_.end() ? none : own->second.warnings();
}

}  // namespace atelier::desktop
