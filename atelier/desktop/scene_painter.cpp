// The worker gets parts that nobody changes any more, and a flag that stops it between two of them.
#include "atelier/desktop/scene_painter.h"

#include <QThreadPool>

#include "atelier/render/cairo_painter.h"

namespace atelier::desktop {
namespace {

constexpr double kPixelsPerMm = 96 / 25.4;
// Line weights on the screen: as plotted at this share, and never thinner than a pixel.
constexpr double kWeightShare = 0.5;
constexpr std::size_t kCrowd = 20000;  // primitives in sight
constexpr double kGreekBelow = 2.5;  // pixels of capital height

render::Colour colourOf(const QColor& c) {
  return {static_cast<std::uint8_t>(c.red()), static_cast<std::uint8_t>(c.green()), static_cast<std::uint8_t>(c.blue())};
}

// White on a dark ground, black on a light one.
render::Colour contrast(const QColor& ground) {
  return ground.lightness() < 128 ? render::Colour{255, 255, 255} : render::Colour{0, 0, 0};
}

// Whether more is in sight than can be told apart; smoothing each line would then take seconds.
bool isCrowded(const std::vector<Part>& parts, const render::PaintOptions& options) {
  std::size_t seen = 0;
  for (const Part& part : parts)
    for (const render::Primitive& item : part->items()) {
      if (!item.box.empty() && !fonts::rectangle(item.box).bounds(options.toSurface).meets(options.clip)) continue;
      if (++seen > kCrowd) return true;
    }
  return false;
}

}  // namespace

QImage paintScene(const PaintRequest& request, const std::atomic<bool>& stop) {
  const QSize size = request.viewport.size * request.ratio;
  if (size.isEmpty()) return {};
  QImage picture(size, QImage::Format_RGB32);
  picture.setDevicePixelRatio(request.ratio);
  render::PaintOptions options;
  options.toSurface = request.viewport.toPixels(request.ratio);
  options.unitsPerMm = kPixelsPerMm * request.ratio * kWeightShare;
  options.clip = {0, 0, static_cast<double>(size.width()), static_cast<double>(size.height())};
  options.thinnest = request.ratio;
  options.greekBelow = kGreekBelow * request.ratio;
  options.foreground = contrast(request.background);
  options.background = colourOf(request.background);
  render::TinyMarks tiny(size.width(), size.height());
  options.tiny = &tiny;
  render::Hairlines hairlines(picture.bits(), size.width(), size.height(), static_cast<int>(picture.bytesPerLine()));
  if (isCrowded(request.parts, options)) options.hairlines = &hairlines;
  render::PictureCanvas canvas(picture.bits(), size.width(), size.height(), static_cast<int>(picture.bytesPerLine()), options.background);
  for (const Part& part : request.parts) {
    if (stop) return {};
    canvas.paint(*part, options);
  }
  return picture;
}

ScenePainter::~ScenePainter() {
  *stop_ = true;
  QThreadPool::globalInstance()->waitForDone();
}

void ScenePainter::request(PaintRequest request) {
  if (running_) {
    *stop_ = true;
    waiting_ = std::move(request);
    return;
  }
  start(std::move(request));
}

void ScenePainter::start(PaintRequest request) {
  running_ = true;
  stop_ = std::make_shared<std::atomic<bool>>(false);
  QThreadPool::globalInstance()->start([this, stop = stop_, request = std::move(request)] {
    QImage picture = paintScene(request, *stop);
    QMetaObject::invokeMethod(this, [this, picture = std::move(picture), viewport = request.viewport] {
      running_ = false;
      if (!picture.isNull() && onPicture) onPicture(picture, viewport);
      if (waiting_) start(*std::exchange(waiting_, std::nullopt));
    }, Qt::QueuedConnection);
  });
}

}  // namespace atelier::desktop
