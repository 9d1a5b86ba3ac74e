// Marks drawn over the picture: highlights, transient vectors, rubber bands, grips, snap markers, the crosshair.
#pragma once
#include <QPainter>
#include <QPainterPath>
#include <optional>
#include <span>

#include "atelier/desktop/picture/viewport.h"
#include "atelier/desktop/view/grips.h"
#include "atelier/desktop/view/note_place.h"
#include "atelier/selecting/snaps.h"

namespace atelier::desktop {

enum class Emphasis { hover, selected, highlighted };
QColor colourOf(Emphasis emphasis);

class ViewMarks {
 public:
  ViewMarks(QPainter& painter, const Viewport& viewport, bool darkGround);

  void list(const render::DisplayList& list, Emphasis emphasis);
  void transients(const Transients& transients);
  void rubberBand(const AcGePoint3d& from, const QPointF& to);
  // From left to right it selects what is inside, from right to left also what crosses it.
  void rectangle(const AcGePoint3d& from, const QPointF& to, bool selecting);
  void frames(std::span<const AcDbExtents> boxes);
  void grips(std::span<const Grip> grips, std::optional<std::size_t> hot);
  void snap(const Snap& snap);
  void pointed(const AcGePoint3d& at);
  void crosshair(const QPointF& at, double pickBox);
  void note(const QPointF& at, const QString& text);
  // What a program says of the cursor's place, clear of what it draws there.
  void programNote(const QPointF& cursor, const Transients& drawn, NoteCorner& corner);

 private:
  void boxed(const QRectF& box, const QStringList& lines);
  QSizeF sizeOf(const QStringList& lines) const;

  QPainter& painter_;
  const Viewport& viewport_;
  const bool dark_;
};

QPainterPath toQt(const render::Path& path, const render::Affine& map);

}  // namespace atelier::desktop
