// The host's functions on selection sets.
// A name stands for a set until acedSSFree; the sets of AutoLISP arguments belong to AutoLISP.
#include "atelier/database/objects/chain.h"
#include "atelier/document/document.h"
#include "atelier/selecting/filter_forms.h"
#include "atelier/selecting/selection_modes.h"
#include "hote/aced.h"

using namespace atelier;

namespace {

// The points of the arguments: a single one, two, or those of a chain.
std::vector<AcGePoint3d> pointsOfArguments(SelectionMode mode, const void* first, const void* second) {
  std::vector<AcGePoint3d> points;
  if (pointsOf(mode) < 0) {
    for (const resbuf* node = static_cast<const resbuf*>(first); node; node = node->rbnext)
      if (node->restype == RTPOINT || node->restype == RT3DPOINT)
        points.emplace_back(node->resval.rpoint[0], node->resval.rpoint[1],
                            node->restype == RTPOINT ? 0 : node->resval.rpoint[2]);
    return points;
  }
  for (const void* point : {first, second})
    if (point) points.push_back(asPnt3d(static_cast<const double*>(point)));
  return points;
}

}  // namespace

int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter, ads_name set) {
  Document& document = Document::needed();
  set[0] = set[1] = 0;
  ModeText text = parseMode(toUtf8(mode));
  if (text.mode == SelectionMode::interactive && first)
    text.mode = second ? SelectionMode::window : SelectionMode::point;
  const auto wanted = filterOfChain(filter, document.imp());
  if (text.mode == SelectionMode::unknown || !wanted) return RTERROR;
  const auto points = pointsOfArguments(text.mode, first, second);
  if (static_cast<int>(points.size()) < std::max(0, pointsOf(text.mode))) return RTERROR;
  const Selected selected = select(document, text, points, *wanted);
  if (!selected.set) return selected.cancelled ? RTCAN : RTERROR;
  holdSelection(selected.set, set);
  return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
  const SelectionSet* selection = selectionOf(set);
  *length = selection ? static_cast<Adesk::Int32>(selection->list().size()) : 0;
  return selection ? RTNORM : RTERROR;
}

int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
  const SelectionSet* selection = selectionOf(set);
  if (!selection || index < 0 || static_cast<std::size_t>(index) >= selection->list().size()) return RTERROR;
  nameOf(selection->list()[static_cast<std::size_t>(index)], entity);
  return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
  const bool given = set && set[0] != 0;
  if (given && !selectionOf(set)) return RTERROR;
  AcDbStub* stub = entity ? stubOfName(entity) : nullptr;
  if (given) {
    if (stub) selectionOf(set)->add(stub);
    const std::int64_t words[2] = {set[0], set[1]};
    std::copy(words, words + 2, result);
    return RTNORM;
  }
  const auto made = std::make_shared<SelectionSet>();
  made->add(stub);
  holdSelection(made, result);
  return RTNORM;
}

int acedSSFree(const ads_name set) { return releaseSelection(set) ? RTNORM : RTERROR; }
