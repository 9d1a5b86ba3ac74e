// After a change of the view the last picture is shown, moved and scaled, until the new one is painted.
#include "atelier/desktop/view/drawing_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSettings>
#include <cmath>

#include "atelier/desktop/view/view_marks.h"
#include "atelier/render/scene/scene.h"
#include "atelier/selecting/pick.h"
#include "atelier/selecting/selections.h"
#include "hote/adaptation.h"

namespace atelier::desktop {
namespace {

constexpr double kZoomStep = 1.25, kLeastHeight = 1e-6, kMostHeight = 1e12;
constexpr double kGripReach = 6, kSnapReach = 12, kLeastPickBox = 5, kSamePlace = 3;  // pixels
constexpr std::size_t kMostShown = 2000;  // entities that are shown as selected
constexpr std::size_t kMostGrips = 300;
constexpr int kHoverDelay = 40;  // milliseconds
constexpr double kMargin = 1.05;

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
  ground_ = QColor(QSettings().value("fond", "#ffffff").toString());
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
  // A command may have used the selection, a program may have set another one.
  selection_.clear();
  if (const auto& first = drawing_.document().firstSelection)
    selection_.assign(first->list().begin(), first->list().end());
  std::erase_if(selection_, [](AcDbStub* stub) { return stub->is(AcDbStub::kErased); });
  selected_ = shown(selection_);
  under_.clear();
  showUnder();
  updateGrips();
  askPicture();
}

void DrawingView::startAnew() {
  windowStart_.reset();
  snap_.reset();
  refresh();
  zoomExtents();
}

void DrawingView::askPicture() {
  painter_.request({drawing_.scene().parts(), viewport(), devicePixelRatioF(), ground_});
  update();
}

// After a change of the view: the present picture is used until the next one is painted.
void DrawingView::settleView() {
  askPicture();
  if (onMoved && cursor_) onMoved(viewport().world(*cursor_));
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
  const double needed = std::max(h, w / aspect) * kMargin;
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
  if (entities.empty() || entities.size() > kMostShown) return {};
  render::SceneOptions options;
  options.paper = false;
  return render::drawEntities(drawing_.document().database(), entities, options);
}

void DrawingView::select(std::vector<AcDbStub*> entities) {
  selection_ = std::move(entities);
  selected_ = shown(selection_);
  auto set = std::make_shared<SelectionSet>();
  for (AcDbStub* stub : selection_) set->add(stub);
  drawing_.document().firstSelection = selection_.empty() ? nullptr : set;
  if (!selection_.empty()) drawing_.document().previousSelection = set;
  updateGrips();
  if (onSelection) onSelection();
  update();
}

void DrawingView::updateGrips() {
  grips_.clear();
  hotGrip_.reset();
  if (drawing_.isRunning()) return;
  for (AcDbStub* stub : selection_) {
    if (grips_.size() > kMostGrips) break;
    for (const Grip& grip : gripsOf(idOf(stub))) grips_.push_back(grip);
  }
}

std::optional<std::size_t> DrawingView::gripAt(QPointF pixel) const {
  for (std::size_t i = 0; i < grips_.size(); ++i) {
    const QPointF d = viewport().pixel(grips_[i].at) - pixel;
    if (std::hypot(d.x(), d.y()) <= kGripReach) return i;
  }
  return std::nullopt;
}

std::optional<AcGePoint3d> DrawingView::base() const {
  if (const PromptInfo* prompt = drawing_.prompt()) return prompt->base;
  if (hotGrip_) return grips_[*hotGrip_].at;
  return std::nullopt;
}

AcGePoint3d DrawingView::pointAt(QPointF pixel) {
  const Viewport port = viewport();
  const AcGePoint3d cursor = port.world(pixel);
  snap_.reset();
  const PromptInfo* prompt = drawing_.prompt();
  if ((prompt && prompt->wantsPoint) || hotGrip_) {
    const auto modes = static_cast<unsigned>(drawing_.document().variables().integer("OSMODE", 0));
    constexpr unsigned kSuspended = 16384;
    if (!(modes & kSuspended))
      snap_ = findSnap(drawing_.document(), cursor, kSnapReach * port.unitsPerPixel, modes, base());
  }
  return snap_ ? snap_->point : cursor;
}

bool DrawingView::takesEntities() const {
  const PromptInfo* prompt = drawing_.prompt();
  return !windowStart_ && !hotGrip_ && (prompt ? prompt->wantsEntity : !drawing_.isRunning());
}

void DrawingView::lookAt(QPointF pixel) {
  under_.look(viewport().world(pixel));
  showUnder();
}

void DrawingView::hover() {
  if (cursor_ && takesEntities()) return lookAt(*cursor_);
  under_.clear();
  showUnder();
}

void DrawingView::showUnder() {
  AcDbStub* const chosen = under_.chosen();
  hovered_ = chosen ? shown({chosen}) : render::DisplayList();
  hint_ = under_.description();
  update();
}

bool DrawingView::goOn() {
  if (!under_.next()) return false;
  showUnder();
  return true;
}

void DrawingView::passOver(const SelectionSet& taken) {
  AcDbStub* const first = under_.chosen();
  while (taken.contains(under_.chosen()) && goOn() && under_.chosen() != first) continue;
}

bool DrawingView::focusNextPrevChild(bool next) { return goOn() || QWidget::focusNextPrevChild(next); }

void DrawingView::click(QPointF pixel, bool removing) {
  const QPointF moved = pixel - lastPick_.value_or(QPointF(-1e9, 0));
  const bool again = std::hypot(moved.x(), moved.y()) <= kSamePlace;
  lastPick_ = pixel;
  if (takesEntities()) lookAt(pixel);
  if (const PromptInfo* prompt = drawing_.prompt()) {
    // A set that is being collected goes on through what lies there; one entity is taken once.
    if (const auto set = drawing_.document().pendingSelection.lock(); set && again && prompt->wantsEntity)
      passOver(*set);
    if (prompt->wantsPoint || prompt->wantsEntity)
      drawing_.pick(prompt->wantsPoint ? pointAt(pixel) : viewport().world(pixel));
    return;
  }
  if (!drawing_.isRunning()) clickIdle(pixel, removing, again);
}

void DrawingView::clickIdle(QPointF pixel, bool removing, bool again) {
  if (hotGrip_) {
    const Grip grip = grips_[*hotGrip_];
    const AcGePoint3d to = pointAt(pixel);
    snap_.reset();
    hotGrip_.reset();
    moveGrip(drawing_.document(), grip, to);
    if (drawing_.onDone) drawing_.onDone();
    return;
  }
  if (windowStart_) return endWindow(pixel, removing);
  if (const auto grip = gripAt(pixel); grip && !removing) {
    hotGrip_ = grip;
    update();
    return;
  }
  AcDbStub* const before = under_.chosen();
  if (!before) {
    windowStart_ = viewport().world(pixel);
    windowPressed_ = pixel;
    return;
  }
  std::vector<AcDbStub*> entities = selection_;
  if (again && !removing && std::erase(entities, before) > 0) goOn();
  AcDbStub* const stub = under_.chosen();
  std::erase(entities, stub);
  if (!removing) entities.push_back(stub);
  select(std::move(entities));
}

void DrawingView::endWindow(QPointF pixel, bool removing) {
  const AcGePoint3d from = *windowStart_, to = viewport().world(pixel);
  windowStart_.reset();
  const auto found = selectBox(drawing_.document(), from, to, to.x < from.x, {});
  std::vector<AcDbStub*> entities = selection_;
  if (found)
    for (AcDbStub* stub : found->list()) {
      if (std::find(selection_.begin(), selection_.end(), stub) == selection_.end()) {
        if (!removing) entities.push_back(stub);
      } else if (removing) {
        std::erase(entities, stub);
      }
    }
  select(std::move(entities));
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Viewport port = viewport();
  drawPicture(painter, port);
  painter.setRenderHint(QPainter::Antialiasing);
  ViewMarks marks(painter, port, ground_.lightness() < 128);
  marks.list(hovered_, Emphasis::hover);
  marks.list(selected_, Emphasis::selected);
  const Transients& transients = drawing_.document().transients();
  marks.list(highlightedList(), Emphasis::highlighted);
  marks.transients(transients);
  if (!drawing_.isRunning()) marks.grips(grips_, hotGrip_);
  if (cursor_) drawCursor(marks);
}

// Entities that commands and programs highlight, and those selected so far at a prompt for objects.
const render::DisplayList& DrawingView::highlightedList() {
  std::vector<AcDbStub*> now;
  for (const AcDbObjectId& id : drawing_.document().transients().highlighted)
    if (AcDbStub* stub = id; stub && !stub->is(AcDbStub::kErased)) now.push_back(stub);
  if (const auto pending = drawing_.document().pendingSelection.lock())
    for (AcDbStub* stub : pending->list())
      if (!stub->is(AcDbStub::kErased)) now.push_back(stub);
  if (now != highlighted_) {
    highlighted_ = std::move(now);
    highlightedShown_ = shown(highlighted_);
  }
  return highlightedShown_;
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
  const QPointF target = snap_ ? viewport().pixel(snap_->point) : at;
  const auto from = base();
  if (from && prompt && prompt->isCorner) marks.rectangle(*from, target, prompt->wantsEntity);
  else if (from && (hotGrip_ || (prompt && prompt->wantsPoint))) marks.rubberBand(*from, target);
  if (snap_) marks.snap(*snap_);
  marks.crosshair(at, pickRadius(drawing_.document()) / viewport().unitsPerPixel);
  if (!hint_.isEmpty() && under_.chosen()) marks.note(at + QPointF(16, 16), hint_);
  if (!prompt || !prompt->wantsPoint) return;
  const AcGePoint3d p = snap_ ? snap_->point : viewport().world(at);
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
  drawing_.document().pointing.screenHeight = std::max(1, height());
  askPicture();
}

void DrawingView::wheelEvent(QWheelEvent* event) {
  zoomAt(event->position(), std::pow(kZoomStep, event->angleDelta().y() / 120.0));
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  setFocus();
  cursor_ = event->position();
  if (event->button() == Qt::MiddleButton) panFrom_ = event->position();
  if (event->button() == Qt::LeftButton) click(event->position(), event->modifiers() & Qt::ShiftModifier);
  if (event->button() == Qt::RightButton && onMenu) onMenu(event->globalPosition().toPoint());
  update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) panFrom_.reset();
  // A window may be dragged as well as clicked.
  const QPointF moved = event->position() - windowPressed_;
  if (event->button() == Qt::LeftButton && windowStart_ && std::hypot(moved.x(), moved.y()) > kGripReach)
    endWindow(event->position(), event->modifiers() & Qt::ShiftModifier);
  update();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) zoomExtents();
  else mousePressEvent(event);
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
  if (panFrom_) {
    View& view = drawing_.document().view();
    const QPointF moved = event->position() - *panFrom_;
    const double unit = viewport().unitsPerPixel;
    view.centre = {view.centre.x - moved.x() * unit, view.centre.y + moved.y() * unit, 0};
    panFrom_ = event->position();
    askPicture();
  }
  cursor_ = event->position();
  const AcGePoint3d point = pointAt(*cursor_);
  if (!hoverTimer_.isActive()) hoverTimer_.start(kHoverDelay);
  if (onMoved) onMoved(point);
  update();
}

void DrawingView::leaveEvent(QEvent*) {
  cursor_.reset();
  hover();
}

void DrawingView::escape() {
  windowStart_.reset();
  snap_.reset();
  if (hotGrip_) hotGrip_.reset();
  else if (drawing_.isRunning()) drawing_.cancel();
  else select({});
  update();
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return escape();
  if (event->key() == Qt::Key_Space && event->modifiers() & Qt::ShiftModifier && goOn()) return;
  if (event->key() == Qt::Key_Delete && !drawing_.isRunning() && !selection_.empty()) {
    drawing_.feed({{"ERASE"}});
    return;
  }
  if (onKey) onKey(event);
}

}  // namespace atelier::desktop
