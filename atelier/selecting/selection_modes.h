// The mode texts of ssget and acedSSGet ("X", "W", "_:S+." ...), read in one place for both.
// Inner header of the room.
#pragma once
#include <memory>
#include <span>
#include <string_view>

#include "atelier/selecting/selections.h"

namespace atelier {

enum class SelectionMode {
  interactive,
  everything,
  shown,
  window,
  crossing,
  windowPolygon,
  crossingPolygon,
  fence,
  last,
  previous,
  implied,
  point,
  unknown
};

struct ModeText {
  SelectionMode mode = SelectionMode::interactive;
  bool single = false;
  bool unlockedOnly = false;
};
// Reads a mode text; leading underscores and options after a colon (S, E, L, D, N, $ ... and + .) are understood as in
// the AutoLISP reference.
ModeText parseMode(std::string_view text);
// How many points the mode takes: 0, 1, 2, or -1 for a list of them.
int pointsOf(SelectionMode mode);

struct Selected {
  std::shared_ptr<SelectionSet> set;  // null when nothing was selected
  bool cancelled = false;
};
Selected select(Document& document, const ModeText& mode, std::span<const AcGePoint3d> points,
                const SelectionFilter& filter);

}  // namespace atelier
