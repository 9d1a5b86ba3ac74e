// Where a note stands beside the cursor: in the corner where it hides least of what a program draws.
#pragma once
#include <QLineF>
#include <QRectF>
#include <span>

namespace atelier::desktop {

// Corners of the cursor, in the order in which they are preferred.
enum class NoteCorner { belowRight, aboveRight, belowLeft, aboveLeft };

// A line that ends at the cursor goes on beyond it, where the next one is likely to go, with the ground that it follows.
// The box of a note of this size, within the view where it has room. The corner is the one that it has now, which it keeps while another one
// isn't much better: it would jump with each step of the mouse.
QRectF placeOfNote(const QPointF& cursor, const QSizeF& size, const QSizeF& view, std::span<const QLineF> drawn,
                   NoteCorner& corner);

}  // namespace atelier::desktop
