// What the window shows of a drawing: its current space, and on a sheet the model through the viewports.
#pragma once
#include <map>
#include <optional>

#include "atelier/desktop/picture/scene_cache.h"
#include "atelier/render/scene/viewports.h"

namespace atelier::desktop {

// A part where it stands: mapped to the space that is shown, and cut to a window of it.
struct PlacedPart {
  Part list;
  render::Affine place = {};
  std::optional<render::Box> window = {};
};

class SpaceScene {
 public:
  explicit SpaceScene(AcDbDatabase& database) : database_(database), imp_(AcDbImpDatabase::of(&database)) {}

  // Makes the parts that changed since the last call, of the space that is current now.
  void refresh();
  // From the lowest to the highest.
  const std::vector<PlacedPart>& parts() const { return parts_; }
  const render::Box& bounds() const { return bounds_; }  // with the sheet
  const std::vector<std::string>& warnings() const;

 private:
  struct View {
    render::Viewport port;
    std::unique_ptr<SceneCache> model;
  };
  void lookThrough(std::vector<render::Viewport> ports);
  void addSheet(AcDbStub& space);

  AcDbDatabase& database_;
  AcDbImpDatabase& imp_;
  AcDbStub* space_ = nullptr;
  std::map<AcDbStub*, SceneCache> scenes_;  // of the spaces that were shown
  std::vector<View> views_;
  std::vector<PlacedPart> parts_;
  render::Box bounds_;
};

}  // namespace atelier::desktop
