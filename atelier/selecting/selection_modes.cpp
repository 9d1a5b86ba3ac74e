// Carrying out a mode of ssget.
// A set that the user picked or placed becomes the previous selection; one of the whole drawing doesn't.
#include "atelier/selecting/selection_modes.h"

#include "atelier/base/interruption.h"
#include "atelier/database/lists/entity_walk.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/selecting/pick.h"

namespace atelier {
namespace {

using Set = std::shared_ptr<SelectionSet>;

SelectionMode modeNamed(std::string_view name) {
  struct Row {
    std::string_view name;
    SelectionMode mode;
  };
  constexpr Row kRows[] = {
      {"", SelectionMode::interactive},       {"X", SelectionMode::everything}, {"A", SelectionMode::shown},
      {"W", SelectionMode::window},           {"C", SelectionMode::crossing},   {"WP", SelectionMode::windowPolygon},
      {"CP", SelectionMode::crossingPolygon}, {"F", SelectionMode::fence},      {"L", SelectionMode::last},
      {"P", SelectionMode::previous},         {"I", SelectionMode::implied}};
  for (const Row& row : kRows)
    if (row.name == name) return row.mode;
  return SelectionMode::unknown;
}

// The entities of the set for which `keeps` is true.
template <class KEEPS>
Set part(const SelectionSet& source, KEEPS keeps) {
  auto set = std::make_shared<SelectionSet>();
  for (AcDbStub* stub : source.list()) {
    checkInterruption();
    if (keeps(*stub)) set->append(stub);
  }
  return set;
}

Set filtered(const SelectionSet* source, const SelectionFilter& filter) {
  if (!source) return std::make_shared<SelectionSet>();
  return part(*source, [&](AcDbStub& stub) { return !stub.is(AcDbStub::kErased) && filter.matches(stub); });
}

// All entities of all layouts on layers that aren't frozen.
Set shownEntities(AcDbImpDatabase& database, const SelectionFilter& filter) {
  LayerStates layers(database);
  return part(*selectAll(database, filter),
              [&](AcDbStub& stub) { return !layers.isFrozen(stub) && !layers.isLocked(stub); });
}

Set single(AcDbStub* stub, const SelectionFilter& filter) {
  SelectionSet one;
  one.add(stub);
  return filtered(&one, filter);
}

}  // namespace

ModeText parseMode(std::string_view given) {
  std::string text = upperCase(given);
  std::erase(text, '_');
  ModeText result;
  for (std::size_t colon; (colon = text.find(':')) != text.npos;) {
    const char option = colon + 1 < text.size() ? text[colon + 1] : ' ';
    if (option == 'S') result.single = true;
    if (option == 'L') result.unlockedOnly = true;
    text.erase(colon, 2);
  }
  // "+." asks for a point pick, which is how a single selection is taken anyway.
  std::erase_if(text, [](char c) { return c == '+' || c == '.' || c == '-' || c == '$'; });
  result.mode = modeNamed(text);
  return result;
}

int pointsOf(SelectionMode mode) {
  switch (mode) {
    case SelectionMode::point: return 1;
    case SelectionMode::window:
    case SelectionMode::crossing: return 2;
    case SelectionMode::windowPolygon:
    case SelectionMode::crossingPolygon:
    case SelectionMode::fence: return -1;
    default: return 0;
  }
}

Selected select(Document& document, const ModeText& mode, std::span<const AcGePoint3d> points,
                const SelectionFilter& filter) {
  Selected result;
  AcDbImpDatabase& db = document.imp();
  bool placed = false;
  switch (mode.mode) {
    case SelectionMode::interactive:
      result.set = selectInteractively(document, filter, mode.single, result.cancelled);
      break;
    case SelectionMode::everything: result.set = selectAll(db, filter); break;
    case SelectionMode::shown: result.set = shownEntities(db, filter); break;
    case SelectionMode::last: result.set = single(lastEntity(db), filter); break;
    case SelectionMode::previous: result.set = filtered(document.previousSelection.get(), filter); break;
    case SelectionMode::implied: result.set = filtered(document.firstSelection.get(), filter); break;
    case SelectionMode::point:
      result.set = single(pickAt(document, points[0]), filter);
      placed = true;
      break;
    case SelectionMode::window:
    case SelectionMode::crossing:
      result.set = selectBox(document, points[0], points[1], mode.mode == SelectionMode::crossing, filter);
      placed = true;
      break;
    case SelectionMode::windowPolygon:
      result.set = selectPolygon(document, points, PolygonMode::window, filter);
      placed = true;
      break;
    case SelectionMode::crossingPolygon:
      result.set = selectPolygon(document, points, PolygonMode::crossing, filter);
      placed = true;
      break;
    case SelectionMode::fence:
      result.set = selectPolygon(document, points, PolygonMode::fence, filter);
      placed = true;
      break;
    case SelectionMode::unknown: break;
  }
  if (result.set && mode.unlockedOnly) {
    LayerStates layers(db);
    result.set = part(*result.set, [&](AcDbStub& stub) { return !layers.isLocked(stub); });
  }
  if (result.set && result.set->list().empty()) result.set.reset();
  if (result.set && placed) document.previousSelection = result.set;
  return result;
}

}  // namespace atelier
