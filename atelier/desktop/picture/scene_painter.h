// Paints views of the drawing on another thread, one at a time: a newer request stops the older one.
#pragma once
#include <QColor>
#include <QImage>
#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "atelier/desktop/picture/space_scene.h"
#include "atelier/desktop/picture/viewport.h"

namespace atelier::desktop {

struct PaintRequest {
  std::vector<PlacedPart> parts;
  Viewport viewport;
  double ratio = 1;  // device pixels in a pixel
  QColor background;
};

// The picture of the request; a null picture when it was stopped.
QImage paintScene(const PaintRequest& request, const std::atomic<bool>& stop);

class ScenePainter : public QObject {
 public:
  explicit ScenePainter(QObject* parent) : QObject(parent) {}
  ~ScenePainter() override;

  // Gets each finished picture, on the thread of the interface.
  std::function<void(QImage, const Viewport&)> onPicture;
  void request(PaintRequest request);
  bool isPainting() const { return running_; }

 private:
  void start(PaintRequest request);
  std::shared_ptr<std::atomic<bool>> stop_ = std::make_shared<std::atomic<bool>>(false);
  std::optional<PaintRequest> waiting_;
  bool running_ = false;
};

}  // namespace atelier::desktop
