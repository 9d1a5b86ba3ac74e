// The drawing on the screen and the mouse actions on it: pan, zoom, picks, selection, grips, snaps.
// Coordinates of the mouse are pixels of the widget; results are in drawing units.
#pragma once
#include <QTimer>
#include <QWidget>
#include <map>
#include <optional>

#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/picture/scene_painter.h"
#include "atelier/desktop/view/grips.h"
#include "atelier/desktop/view/under_cursor.h"
#include "atelier/desktop/view/view_marks.h"
#include "atelier/selecting/snaps.h"

namespace atelier::desktop {

class DrawingView : public QWidget {
 public:
  DrawingView(Drawing& drawing, QWidget* parent);

  Viewport viewport() const { return Viewport::of(drawing_.document().view(), size()); }
  void zoomExtents();
  void zoomTo(const AcDbExtents& box);
  void zoomAt(QPointF pixel, double factor);  // above 1: nearer
  // Brings the picture up to date after a change of the drawing or the view.
  void refresh();
  // After another drawing has come in place of this one: nothing of the old one stays, the new one is shown whole.
  void startAnew();
  // Selects entities while no command runs: the document's first selection.
  void select(std::vector<AcDbStub*> entities);
  const std::vector<AcDbStub*>& selection() const { return selection_; }
  void setGround(const QColor& colour);
  QColor ground() const { return ground_; }
  // What isn't true any more is framed, over the picture only: it is never plotted.
  void frame(std::vector<AcDbExtents> stale);
  const std::vector<AcDbExtents>& framed() const { return stale_; }
  // Marks a place, and brings it into sight; nowhere takes the mark away.
  void point(std::optional<AcGePoint3d> at);
  // The picture as it is painted, without what lies over it: crosshair, grips, what a few selected objects look like.
  const QImage& picture() const { return picture_.image; }
  // The point that a click there would give, snapped while a prompt asks for a point.
  AcGePoint3d pointAt(QPointF pixel);
  // As a click of the left button.
  void click(QPointF pixel, bool removing = false);
  // What a click there takes, in words; empty for nothing. Tab goes on to what else lies there.
  QString hint() const { return hint_; }
  bool isSettled() const { return !painter_.isPainting() && picture_.viewport == viewport(); }

  std::function<bool()> onEdit;  // a double click on the one selected object; false when there is nothing to edit
  std::function<void(const AcGePoint3d&)> onMoved;
  std::function<void()> onSelection;
  // The grips of an entity that a program moves as part of something larger; nothing for any other. A press on one is told.
  std::function<std::vector<AcGePoint3d>(AcDbStub*)> onGrips;
  std::function<void(AcDbStub*, const AcGePoint3d&)> onGripTaken;
  // Gives up what is under way: a window, a grip, the running command; then the selection.
  void escape();
  // Whether another entity lies under the cursor; it is then what a click takes.
  bool goOn();

  std::function<void(const QPoint& onScreen)> onMenu;  // the right button
  std::function<void(QKeyEvent*)> onKey;               // keys that are not the view's own: text for the command line

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent*) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  struct Picture {
    QImage image;
    Viewport viewport;
  };
  void askPicture();
  void settleView();
  void followSpace();
  void hover();
  bool takesEntities() const;
  void lookAt(QPointF pixel);
  void showUnder();
  void passOver(const SelectionSet& taken);
  void clickIdle(QPointF pixel, bool removing, bool again);
  void endWindow(QPointF pixel, bool removing);
  void updateGrips();
  std::optional<std::size_t> gripAt(QPointF pixel) const;
  render::DisplayList shown(const std::vector<AcDbStub*>& entities) const;
  std::optional<AcGePoint3d> base() const;
  AcGePoint3d orthogonal(const AcGePoint3d& cursor) const;
  void takeHighlighted();
  void show(const std::vector<AcDbStub*>& entities, Emphasis emphasis, render::DisplayList& few, Part& many) const;
  void drawPicture(QPainter& painter, const Viewport& viewport);
  void drawCursor(class ViewMarks& marks);
  const Transients& transients() const { return drawing_.document().transients(); }

  Drawing& drawing_;
  AcDbStub* space_ = nullptr;        // that is shown
  std::map<AcDbStub*, View> views_;  // of the other spaces, as they were left
  ScenePainter painter_;
  Picture picture_;
  QColor ground_;
  std::vector<AcDbStub*> selection_, highlighted_;
  render::DisplayList selected_, hovered_, highlightedShown_;
  std::vector<AcDbExtents> stale_;
  std::optional<AcGePoint3d> pointed_;
  Part manySelected_, manyHighlighted_;  // too many to be drawn anew with each move of the cursor: in the picture
  UnderCursor under_;
  QString hint_;
  NoteCorner noteCorner_ = NoteCorner::belowRight;  // of what a program says beside the cursor
  std::optional<QPointF> lastPick_;
  std::vector<Grip> grips_;
  std::optional<std::size_t> hotGrip_;
  std::optional<AcGePoint3d> windowStart_;
  QPointF windowPressed_;
  std::optional<QPointF> gripPressed_;  // of a program: put down by a release elsewhere, or by a further click
  std::optional<QPointF> cursor_, panFrom_;
  std::optional<Snap> snap_;
  AcGePoint3d aim_;  // the point that a click at the cursor gives
  QTimer hoverTimer_;
};

}  // namespace atelier::desktop
