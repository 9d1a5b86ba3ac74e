// The mouse and the keys on the drawing: what they point at, pick, select and move.
#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <utility>

#include "atelier/desktop/view/drawing_view.h"
#include "atelier/selecting/selections.h"

namespace atelier::desktop {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kGripReach = 6, kSnapReach = 12, kSamePlace = 3;  // pixels
constexpr std::size_t kMostGrips = 300, kMostAsked = 20;
constexpr int kHoverDelay = 40;  // milliseconds

}  // namespace

// After a change of the view, also by a command: the present picture is used until the next one is painted, and something else lies
// under a cursor that hasn't moved.
void DrawingView::settleView() {
  askPicture();
  if (!cursor_ || !isVisible()) return;
  const AcGePoint3d point = pointAt(*cursor_);
  if (!hoverTimer_.isActive()) hoverTimer_.start(kHoverDelay);
  if (onMoved) onMoved(point);
}

void DrawingView::updateGrips() {
  grips_.clear();
  hotGrip_.reset();
  if (drawing_.isRunning()) return;
  for (AcDbStub* stub : selection_) {
    if (grips_.size() > kMostGrips) break;
    const std::vector<AcGePoint3d> given =
        onGrips && selection_.size() <= kMostAsked ? onGrips(stub) : std::vector<AcGePoint3d>();
    for (const AcGePoint3d& at : given) grips_.push_back({idOf(stub), kOfProgram, at});
    if (!given.empty()) continue;
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
  return aim_ = snap_ ? snap_->point : orthogonal(cursor);
}

// With ORTHOMODE, on the horizontal or the vertical through the base, whichever is nearer.
AcGePoint3d DrawingView::orthogonal(const AcGePoint3d& cursor) const {
  const std::optional<AcGePoint3d> from = base();
  const PromptInfo* prompt = drawing_.prompt();
  const bool free = !from || (prompt && (prompt->isCorner || !prompt->wantsPoint));
  if (free || drawing_.document().variables().integer("ORTHOMODE", 0) == 0) return cursor;
  const bool along = std::abs(cursor.x - from->x) >= std::abs(cursor.y - from->y);
  return along ? AcGePoint3d(cursor.x, from->y, cursor.z) : AcGePoint3d(from->x, cursor.y, cursor.z);
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
    if (prompt->wantsPoint || prompt->wantsEntity || prompt->tracks)
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
    if (grips_[*grip].index == kOfProgram) {
      gripPressed_ = pixel;
      return onGripTaken(grips_[*grip].entity, grips_[*grip].at);
    }
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
  if (event->button() == Qt::LeftButton && gripPressed_) {
    const QPointF dragged = event->position() - *std::exchange(gripPressed_, std::nullopt);
    if (const PromptInfo* prompt = drawing_.prompt(); prompt && std::hypot(dragged.x(), dragged.y()) > kGripReach) {
      if (prompt->wantsPoint) drawing_.pick(pointAt(event->position()));
      else if (drawing_.source().follows()) drawing_.pick(viewport().world(event->position()));
    }
  }
  update();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) zoomExtents();
  else if (event->button() == Qt::LeftButton && !drawing_.isRunning() && selection_.size() == 1 && onEdit && onEdit())
    return;
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
  drawing_.follow(point);
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
