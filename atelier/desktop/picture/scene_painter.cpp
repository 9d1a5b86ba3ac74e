// The worker gets parts that are never changed, and a flag that stops it between two of them.
#include "atelier/desktop/picture/scene_painter.h"

#include <QThreadPool>
#include <algorithm>
#include <array>
#include <thread>

#include "atelier/render/painters/cairo_painter.h"

namespace atelier::desktop {
namespace {

constexpr double kPixelsPerMm = 96 / 25.4;
// Line weights on the screen are this share of the plotted ones, and never thinner than a pixel.
constexpr double kWeightShare = 0.5;
constexpr double kLeastContrast = 4.5;  // on a dark ground, which colours of plans aren't made for
constexpr std::size_t kCrowd = 20000;   // visible primitives
constexpr double kGreekBelow = 2.5;     // pixels of capital height

render::Colour colourOf(const QColor& c) {
  return {static_cast<std::uint8_t>(c.red()), static_cast<std::uint8_t>(c.green()),
          static_cast<std::uint8_t>(c.blue())};
}

// White on a dark ground, black on a light one.
render::Colour contrast(const QColor& ground) {
  return ground.lightness() < 128 ? render::Colour{255, 255, 255} : render::Colour{0, 0, 0};
}

bool isWhole(const PlacedPart& part) { return !part.window; }

// Whether so many primitives are visible that smoothing each line would take seconds. Windows are always smoothed: lines
// that are drawn straight into the picture aren't cut at them.
bool isCrowded(const std::vector<PlacedPart>& parts, const render::PaintOptions& options) {
  if (!std::ranges::all_of(parts, isWhole)) return false;
  std::size_t seen = 0;
  for (const PlacedPart& part : parts)
    for (const render::Primitive& item : part.list->items()) {
      if (!item.box.empty() && !item.box.mapped(options.toSurface).meets(options.clip)) continue;
      if (++seen > kCrowd) return true;
    }
  return false;
}

// The options for a part where it stands.
render::PaintOptions placed(const render::PaintOptions& options, const PlacedPart& part) {
  render::PaintOptions own = options;
  own.toSurface = options.toSurface * part.place;
  if (!part.window) return own;
  const render::Box window = part.window->mapped(options.toSurface), &clip = options.clip;
  own.clip = {std::max(clip.xMin, window.xMin), std::max(clip.yMin, window.yMin), std::min(clip.xMax, window.xMax),
              std::min(clip.yMax, window.yMax)};
  return own;
}

// Whether two parts are mapped and cut alike.
bool standAlike(const PlacedPart& a, const PlacedPart& b) {
  const auto numbers = [](const PlacedPart& part) {
    const render::Affine& p = part.place;
    const render::Box w = part.window.value_or(render::Box());
    return std::array{p.xx, p.yx, p.xy, p.yy, p.x0, p.y0, w.xMin, w.yMin, w.xMax, w.yMax};
  };
  return a.window.has_value() == b.window.has_value() && numbers(a) == numbers(b);
}

// As one painting: lines alike that cross are smoothed together, so where the parts were cut isn't seen.
void paintAlike(render::PictureCanvas& canvas, const render::PaintOptions& options, auto part, auto end,
                const std::atomic<bool>& stop) {
  render::Painting painting(canvas.context(), options);
  for (; part != end && !stop; ++part) painting.list(*part->list);
}

// The rows of a picture from `first` on, as many as `options.clip` is high.
void paintBand(unsigned char* picture, int stride, int first, const std::vector<PlacedPart>& parts,
               render::PaintOptions options, bool crowded, const std::atomic<bool>& stop) {
  const int width = static_cast<int>(options.clip.xMax), height = static_cast<int>(options.clip.yMax);
  unsigned char* const pixels = picture + static_cast<std::ptrdiff_t>(first) * stride;
  options.toSurface = render::Affine::translation(0, -first) * options.toSurface;
  render::TinyMarks tiny(width, height);
  options.tiny = &tiny;
  render::Hairlines hairlines(pixels, width, height, stride);
  render::PictureCanvas canvas(pixels, width, height, stride);
  if (crowded) {
    options.hairlines = &hairlines;
    paintAlike(canvas, options, parts.rbegin(), parts.rend(), stop);
    canvas.ground(options.background);
    return;
  }
  canvas.ground(options.background);
  for (auto from = parts.begin(); from != parts.end() && !stop;) {
    const auto end = std::find_if(from, parts.end(), [&](const PlacedPart& each) { return !standAlike(each, *from); });
    paintAlike(canvas, placed(options, *from), from, end, stop);
    from = end;
  }
}

}  // namespace

// A band of the picture for each processor.
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
  if (request.background.lightness() < 128) options.leastContrast = kLeastContrast;
  const bool crowded = isCrowded(request.parts, options);
  unsigned char* const pixels = picture.bits();
  const int stride = static_cast<int>(picture.bytesPerLine());
  std::vector<std::thread> others;
  const int bands = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, size.height());
  for (int band = 0; band < bands; ++band) {
    const int first = size.height() * band / bands, height = size.height() * (band + 1) / bands - first;
    render::PaintOptions own = options;
    own.clip.yMax = height;
    const auto paint = [&, first, own] { paintBand(pixels, stride, first, request.parts, own, crowded, stop); };
    if (band + 1 < bands) others.emplace_back(paint);
    else paint();
  }
  for (std::thread& other : others) other.join();
  if (stop) return {};
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
    QMetaObject::invokeMethod(
        this,
        [this, picture = std::move(picture), viewport = request.viewport] {
          running_ = false;
          if (!picture.isNull() && onPicture) onPicture(picture, viewport);
          if (waiting_) start(*std::exchange(waiting_, std::nullopt));
        },
        Qt::QueuedConnection);
  });
}

}  // namespace atelier::desktop
