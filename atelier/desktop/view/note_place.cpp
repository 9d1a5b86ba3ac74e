// Lines are weighed by their length within the box.
#include "atelier/desktop/view/note_place.h"

#include <algorithm>
#include <array>

namespace atelier::desktop {

namespace {

constexpr double kAway = 16;                  // of the cursor, in pixels
constexpr double kAtCursor = 12, kLine = 30;  // how near a line ends, and how long one is that isn't a mark, in pixels
constexpr double kLess = 0.2;                 // what is likely counts for less than what is drawn
constexpr double kMuchBetter = 12;            // of lines that are hidden, in pixels
constexpr std::array kCorners = {NoteCorner::belowRight, NoteCorner::aboveRight, NoteCorner::belowLeft,
                                 NoteCorner::aboveLeft};

// Liang and Barsky, ACM Transactions on Graphics 3 (1984), 1.
double lengthWithin(const QRectF& box, const QLineF& line) {
  double from = 0, to = 1;
  const auto cut = [&](double step, double room) {
    if (step == 0) return room >= 0;
    const double t = room / step;
    if (step < 0) from = std::max(from, t);
    else to = std::min(to, t);
    return from <= to;
  };
  if (!cut(-line.dx(), line.x1() - box.left()) || !cut(line.dx(), box.right() - line.x1()) ||
      !cut(-line.dy(), line.y1() - box.top()) || !cut(line.dy(), box.bottom() - line.y1()))
    return 0;
  return (to - from) * line.length();
}

QRectF boxAt(const QPointF& cursor, const QSizeF& size, NoteCorner corner) {
  const bool left = corner == NoteCorner::belowLeft || corner == NoteCorner::aboveLeft;
  const bool above = corner == NoteCorner::aboveRight || corner == NoteCorner::aboveLeft;
  return {{cursor.x() + (left ? -kAway - size.width() : kAway), cursor.y() + (above ? -kAway - size.height() : kAway)},
          size};
}

// A line that comes to the cursor, gone on beyond it; an empty one otherwise.
QLineF beyond(QLineF line, const QPointF& cursor, double reach) {
  if (line.length() < kLine) return {};
  if (QLineF(line.p1(), cursor).length() <= kAtCursor) line = QLineF(line.p2(), line.p1());
  if (QLineF(line.p2(), cursor).length() > kAtCursor) return {};
  QLineF further(line.p2(), line.p2() + (line.p2() - line.p1()));
  further.setLength(reach);
  return further;
}

// Hidden lines in pixels; what reaches beyond the view counts more than any line.
double hidden(const QRectF& box, const QSizeF& view, std::span<const QLineF> drawn, const QPointF& cursor) {
  double sum = QRectF({0, 0}, view).contains(box) ? 0 : 1e6;
  for (const QLineF& line : drawn)
    sum += lengthWithin(box, line) + kLess * lengthWithin(box, beyond(line, cursor, kAway + box.width()));
  return sum;
}

}  // namespace

QRectF placeOfNote(const QPointF& cursor, const QSizeF& size, const QSizeF& view, std::span<const QLineF> drawn,
                   NoteCorner& corner) {
  const auto cost = [&](NoteCorner c) { return hidden(boxAt(cursor, size, c), view, drawn, cursor); };
  const NoteCorner best = std::ranges::min(kCorners, {}, cost);
  if (cost(corner) > cost(best) + kMuchBetter) corner = best;
  return boxAt(cursor, size, corner);
}

}  // namespace atelier::desktop
