// The first walk keeps primitives until there are too many; a scene that isn't kept is walked again for each painting.
#include "atelier/render/scene/whole_scene.h"

#include <algorithm>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/scene/unfolding.h"

namespace atelier::render {

namespace {
constexpr std::size_t kKept = 200'000;  // primitives: some hundred megabytes

bool visible(const Primitive& item) {
  const Colour colour = colourOf(item.shape);
  const bool white = colour.kind == Colour::Kind::rgb && colour.r == 255 && colour.g == 255 && colour.b == 255;
  return colour.alpha > 0 && !white && colour.kind != Colour::Kind::background;
}

bool anyVisible(const DisplayList& list) { return std::ranges::any_of(list.items(), visible); }

}  // namespace

WholeScene::WholeScene(const AcDbDatabase& database, const SceneOptions& options)
    : drawing_(&database), options_(options) {
  checkUnfolding(database, options);
  std::vector<std::string> warnings = walkScene(database, options_, [this](Primitive&& item) {
    bounds_.add(item.box);
    visible_ = visible_ || visible(item);
    if (++count_ <= kKept) list_.add(std::move(item));
    else list_ = {};
  });
  list_.warnings = std::move(warnings);
  kept_ = count_ <= kKept;
}

WholeScene::WholeScene(DisplayList list)
    : list_(std::move(list)), bounds_(list_.bounds()), count_(list_.items().size()), visible_(anyVisible(list_)) {}

void WholeScene::each(const std::function<void(const Primitive&)>& receive) const {
  if (!kept_) walkScene(*drawing_, options_, [&](Primitive&& item) { receive(item); });
  for (const DisplayList* list : {&list_, &above})
    for (const Primitive& item : list->items()) receive(item);
}

std::string WholeScene::layerOf(std::uint64_t source) const {
  if (!drawing_) return {};
  AcDbImpDatabase& drawing = AcDbImpDatabase::of(drawing_);
  AcDbStub* stub = drawing.stubOf(source);
  return stub ? std::string(Groups(AcDbImpObject::of(&drawing.object(*stub)).settled()).text(8)) : std::string();
}

bool WholeScene::layered(std::size_t most) const {
  if (!drawing_ || !kept_) return false;
  std::uint64_t source = 0;
  std::string layer;
  std::size_t changes = 0;
  for (const Primitive& item : list_.items()) {
    if (item.source == source) continue;
    source = item.source;
    std::string next = layerOf(source);
    if (next == layer) continue;
    layer = std::move(next);
    if (++changes > most) return false;
  }
  return true;
}

bool WholeScene::showsOnPaper() const { return visible_ || anyVisible(above); }

Box WholeScene::bounds() const {
  Box box = bounds_;
  box.add(above.bounds());
  return box;
}

}  // namespace atelier::render
