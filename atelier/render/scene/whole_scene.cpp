// The first walk keeps primitives until there are too many; a scene that isn't kept is walked again for each painting.
#include "atelier/render/scene/whole_scene.h"

#include <algorithm>

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
    : database_(&database), options_(options) {
  checkUnfolding(database, options);
  std::vector<std::string> warnings = walkScene(database, options_, [this](Primitive&& item) {
    bounds_.add(item.box);
    visible_ = visible_ || visible(item);
    if (++count_ <= kKept) list_.add(std::move(item));
    else list_ = {};
  });
  list_.warnings = std::move(warnings);
  if (count_ <= kKept) database_ = nullptr;
}

WholeScene::WholeScene(DisplayList list)
    : list_(std::move(list)), bounds_(list_.bounds()), count_(list_.items().size()), visible_(anyVisible(list_)) {}

void WholeScene::each(const std::function<void(const Primitive&)>& receive) const {
  if (database_) walkScene(*database_, options_, [&](Primitive&& item) { receive(item); });
  for (const DisplayList* list : {&list_, &above})
    for (const Primitive& item : list->items()) receive(item);
}

bool WholeScene::showsOnPaper() const { return visible_ || anyVisible(above); }

Box WholeScene::bounds() const {
  Box box = bounds_;
  box.add(above.bounds());
  return box;
}

}  // namespace atelier::render
