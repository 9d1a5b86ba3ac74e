// Looks the names of a list up in the symbol tables.
#include "atelier/database/lists/list_references.h"

#include <algorithm>

#include "atelier/database/lists/list_groups.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

// Of a plot 6 is a view, and 7 a plot table, which is a file.
bool isPlot(std::string_view type) { return equalNoCase(type, "LAYOUT") || equalNoCase(type, "PLOTSETTINGS"); }

}  // namespace

bool referencesExist(AcDbImpDatabase& db, const std::vector<Group>& groups, const Record* before) {
  const bool plot = isPlot(before ? before->type() : textOf(groups, 0));
  const auto missing = [&](const Group& group) {
    if (group.code() == 1001) return !db.tableRecord("APPID", group.text());
    if (plot) return false;
    if (group.kind() != GroupKind::text || group.text().empty()) return false;
    if (group.code() == 7) return !db.tableRecord("STYLE", group.text());
    return group.code() == 6 && !equalNoCase(group.text(), "BYLAYER") && !equalNoCase(group.text(), "BYBLOCK") &&
           !db.tableRecord("LTYPE", group.text());
  };
  return std::ranges::none_of(groups, [&](const Group& group) {
    return missing(group) && (!before || std::ranges::none_of(before->groups, [&](const Group& old) {
             return old.code() == group.code() && equalNoCase(old.text(), group.text());
           }));
  });
}

void ensureLayer(AcDbImpDatabase& db, const Record& entity) {
  const std::string name = entity.text(textField("AcDbEntity", 8));
  if (name.empty() || db.tableRecord("LAYER", name)) return;
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbLayerTable> table(idOf(db.table("LAYER")), AcDb::kForWrite);
  auto* layer = new AcDbLayerTableRecord;
  layer->setName(toWide(name).c_str());
  if (table.openStatus() == Acad::eOk && table->add(id, layer) == Acad::eOk) layer->close();
  else delete layer;
}

}  // namespace atelier
