// Object snaps: the marked places of entities near the cursor. Modes are the bits of OSMODE.
#pragma once
#include <optional>

#include "atelier/document/document.h"

namespace atelier {

enum SnapMode : unsigned {
  kEnd = 1,
  kMiddle = 2,
  kCentre = 4,
  kNode = 8,
  kQuadrant = 16,
  kIntersection = 32,
  kInsertion = 64,
  kPerpendicular = 128,
  kNearest = 512
};

struct Snap {
  SnapMode mode;
  AcGePoint3d point;
};

// The snap nearest to the cursor within the aperture (drawing units); the mode "nearest point" only when there is no
// other. Perpendicular needs a base.
std::optional<Snap> findSnap(Document& document, const AcGePoint3d& cursor, double aperture, unsigned modes,
                             const std::optional<AcGePoint3d>& base);
// The modes of a text such as "_end,_mid" or "ext,mil", by their first three letters; 0 for none that is known.
unsigned snapModesOf(std::string_view text);
const char* snapName(SnapMode mode);  // French, UTF-8

}  // namespace atelier
