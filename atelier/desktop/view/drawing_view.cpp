// After a change of the view the last picture is shown, moved and scaled, until the new one is painted.
#include "atelier/desktop/view/drawing_view.h"

#include <QPainter>
#include <cmath>

#include "atelier/desktop/view/view_marks.h"
#include "atelier/render/scene/scene.h"
#include "atelier/selecting/pick.h"
#include "hote/adaptation.h"

namespace atelier::desktop {
namespace {

constexpr double kLeastHeight = 1e-6, kMostHeight = 1e12;
constexpr double kLeastPickBox = 5;       // pixels
constexpr std::size_t kMostShown = 2000;  // entities that are drawn over the picture

// The same picture in one colour.
Part inColour(const render::DisplayList& list, const QColor& colour) {
  const render::Colour all{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                           static_cast<std::uint8_t>(colour.blue())};
  auto out = std::make_shared<render::DisplayList>();
  for (const render::Primitive& item : list.items()) {
    auto shape = item.shape;
    std::visit(
        [&all](auto& part) {
          if constexpr (requires { part.pen; }) part.pen.colour = all;
          else if constexpr (requires { part.colour; }) part.colour = all;
        },
        shape);
    out->add(*render::primitive(item.source, std::move(shape), item.clip));
  }
  return out;
}

AcDbExtents extentsOf(const render::Box& box) { return AcDbExtents({box.xMin, box.yMin, 0}, {box.xMax, box.yMax, 0}); }

}  // namespace

DrawingView::DrawingView(Drawing& drawing, QWidget* parent)
    : QWidget(parent), drawing_(drawing), painter_(this), under_(drawing.document()) {
  drawing.document().pointing.leastBox = kLeastPickBox;
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::BlankCursor);
  setMinimumSize(200, 150);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(QStringLiteral("Dessin"));
  painter_.onPicture = [this](QImage image, const Viewport& viewport) {
    picture_ = {std::move(image), viewport};
    update();
  };
  hoverTimer_.setSingleShot(true);
  connect(&hoverTimer_, &QTimer::timeout, this, [this] { hover(); });
}

void DrawingView::setGround(const QColor& colour) {
  ground_ = colour;
  picture_ = {};
  askPicture();
}

void DrawingView::refresh() {
  drawing_.scene().refresh();
  followSpace();
  // A command may have used the selection, a program may have set another one.
  selection_.clear();
  if (const auto& first = drawing_.document().firstSelection)
    selection_.assign(first->list().begin(), first->list().end());
  std::erase_if(selection_, [](AcDbStub* stub) { return stub->is(AcDbStub::kErased); });
  show(selection_, Emphasis::selected, selected_, manySelected_);
  takeHighlighted();
  under_.clear();
  showUnder();
  updateGrips();
  settleView();
}

// After a change to another space: it is shown as it was left, or whole.
void DrawingView::followSpace() {
  AcDbStub* const now = drawing_.document().database().currentSpaceId();
  if (now == space_) return;
  AcDbStub* const before = std::exchange(space_, now);
  if (!before) return;
  View& view = drawing_.document().view();
  views_[before] = view;
  if (const auto left = views_.find(now); left != views_.end()) view = left->second;
  else zoomExtents();
}

void DrawingView::frame(std::vector<AcDbExtents> stale) {
  stale_ = std::move(stale);
  update();
}

void DrawingView::point(std::optional<AcGePoint3d> at) {
  pointed_ = at;
  if (at && !rect().adjusted(20, 20, -20, -20).contains(viewport().pixel(*at).toPoint())) {
    drawing_.document().view().centre = {at->x, at->y, 0};
    settleView();
  }
  update();
}

void DrawingView::startAnew() {
  space_ = nullptr;
  pointed_.reset();
  views_.clear();
  windowStart_.reset();
  snap_.reset();
  refresh();
  zoomExtents();
}

void DrawingView::askPicture() {
  std::vector<PlacedPart> parts = drawing_.scene().parts();
  for (const Part& many : {manySelected_, manyHighlighted_})
    if (many) parts.push_back({many});
  painter_.request({std::move(parts), viewport(), devicePixelRatioF(), ground_});
  update();
}

void DrawingView::zoomExtents() {
  drawing_.scene().refresh();
  if (const render::Box& box = drawing_.scene().bounds(); !box.empty()) zoomTo(extentsOf(box));
}

void DrawingView::zoomTo(const AcDbExtents& box) {
  if (adaptation::isEmpty(box)) return;
  View& view = drawing_.document().view();
  drawing_.document().previousView = view;
  const double w = box.maxPoint().x - box.minPoint().x, h = box.maxPoint().y - box.minPoint().y;
  const double aspect = static_cast<double>(width()) / std::max(1, height());
  view.centre = {(box.minPoint().x + box.maxPoint().x) / 2, (box.minPoint().y + box.maxPoint().y) / 2, 0};
  const double needed = std::max(h, w / aspect) * kExtentsMargin;
  view.height = std::clamp(needed > 0 ? needed : view.height, kLeastHeight, kMostHeight);
  settleView();
}

void DrawingView::zoomAt(QPointF pixel, double factor) {
  View& view = drawing_.document().view();
  const AcGePoint3d before = viewport().world(pixel);
  view.height = std::clamp(view.height / factor, kLeastHeight, kMostHeight);
  const AcGePoint3d after = viewport().world(pixel);
  view.centre = {view.centre.x + before.x - after.x, view.centre.y + before.y - after.y, 0};
  settleView();
}

render::DisplayList DrawingView::shown(const std::vector<AcDbStub*>& entities) const {
  if (entities.empty()) return {};
  render::SceneOptions options;
  options.paper = false;
  return render::drawEntities(drawing_.document().database(), entities, options);
}

// A few are drawn over the picture, many in it.
void DrawingView::show(const std::vector<AcDbStub*>& entities, Emphasis emphasis, render::DisplayList& few,
                       Part& many) const {
  few = shown(entities);
  many = nullptr;
  if (entities.size() <= kMostShown) return;
  many = inColour(few, colourOf(emphasis));
  few = {};
}

void DrawingView::select(std::vector<AcDbStub*> entities) {
  const bool painted = manySelected_ != nullptr;
  selection_ = std::move(entities);
  show(selection_, Emphasis::selected, selected_, manySelected_);
  if (painted || manySelected_) askPicture();
  auto set = std::make_shared<SelectionSet>();
  for (AcDbStub* stub : selection_) set->add(stub);
  drawing_.document().firstSelection = selection_.empty() ? nullptr : set;
  if (!selection_.empty()) drawing_.document().previousSelection = set;
  updateGrips();
  if (onSelection) onSelection();
  update();
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Viewport port = viewport();
  drawPicture(painter, port);
  painter.setRenderHint(QPainter::Antialiasing);
  ViewMarks marks(painter, port, ground_.lightness() < 128);
  marks.frames(stale_);
  marks.list(hovered_, Emphasis::hover);
  marks.list(selected_, Emphasis::selected);
  takeHighlighted();
  marks.list(highlightedShown_, Emphasis::highlighted);
  marks.transients(transients());
  if (!drawing_.isRunning()) marks.grips(grips_, hotGrip_);
  if (pointed_) marks.pointed(*pointed_);
  if (cursor_) drawCursor(marks);
}

// Entities that commands and programs highlight, and those selected so far at a prompt for objects.
void DrawingView::takeHighlighted() {
  std::vector<AcDbStub*> now;
  for (const AcDbObjectId& id : drawing_.document().transients().highlighted)
    if (AcDbStub* stub = id; stub && !stub->is(AcDbStub::kErased)) now.push_back(stub);
  if (const auto pending = drawing_.document().pendingSelection.lock())
    for (AcDbStub* stub : pending->list())
      if (!stub->is(AcDbStub::kErased)) now.push_back(stub);
  if (now == highlighted_) return;
  const bool painted = manyHighlighted_ != nullptr;
  highlighted_ = std::move(now);
  show(highlighted_, Emphasis::highlighted, highlightedShown_, manyHighlighted_);
  if (painted || manyHighlighted_) askPicture();
}

void DrawingView::drawPicture(QPainter& painter, const Viewport& port) {
  painter.fillRect(rect(), ground_);
  if (picture_.image.isNull()) return;
  const Viewport& old = picture_.viewport;
  const double scale = old.unitsPerPixel / port.unitsPerPixel;
  const QPointF corner = port.pixel(old.world({0, 0}));
  painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != 1);
  painter.drawImage(QRectF(corner, QSizeF(old.size) * scale), picture_.image);
}

void DrawingView::drawCursor(ViewMarks& marks) {
  const PromptInfo* prompt = drawing_.prompt();
  const QPointF at = *cursor_;
  if (windowStart_) marks.rectangle(*windowStart_, at, true);
  const bool aims = hotGrip_ || (prompt && prompt->wantsPoint);
  const QPointF target = aims ? viewport().pixel(aim_) : at;
  const auto from = base();
  if (from && prompt && prompt->isCorner) marks.rectangle(*from, target, prompt->wantsEntity);
  else if (from && (hotGrip_ || (prompt && prompt->wantsPoint))) marks.rubberBand(*from, target);
  if (snap_) marks.snap(*snap_);
  marks.crosshair(at, pickRadius(drawing_.document()) / viewport().unitsPerPixel);
  if (!hint_.isEmpty() && under_.chosen()) marks.note(at + QPointF(16, 16), hint_);
  if (prompt && prompt->tracks && !transients().note.empty()) marks.programNote(at, transients(), noteCorner_);
  if (!prompt || !prompt->wantsPoint) return;
  const AcGePoint3d p = aim_;
  QString text = QString("%1 , %2").arg(p.x, 0, 'f', 3).arg(p.y, 0, 'f', 3);
  if (from) {
    const double dx = p.x - from->x, dy = p.y - from->y;
    text += QString("   d = %1   a = %2°")
                .arg(std::hypot(dx, dy), 0, 'f', 3)
                .arg(std::atan2(dy, dx) * 180 / M_PI, 0, 'f', 1);
  }
  marks.note(at + QPointF(16, 16), text);
}

void DrawingView::resizeEvent(QResizeEvent*) {
  drawing_.document().pointing.screenWidth = std::max(1, width());
  drawing_.document().pointing.screenHeight = std::max(1, height());
  settleView();
}

}  // namespace atelier::desktop
