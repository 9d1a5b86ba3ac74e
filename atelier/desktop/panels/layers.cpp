// Reads the tables of layers and line types, and of the program's file of line types the heads "*NAME,description".
#include "atelier/desktop/panels/layers.h"

#include <QFile>
#include <algorithm>

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/scene/colours.h"
#include "hote/dbsymtb.h"

namespace atelier::desktop {
namespace {

constexpr std::string_view kLayer = "AcDbLayerTableRecord";

QString nameOf(AcDbImpDatabase& database, AcDbStub* record) {
  return record ? QString::fromStdString(database.recordName(*record)) : QString();
}

template <class TAKE>
void eachRecord(AcDbImpDatabase& database, const char* table, TAKE take) {
  const AcDbStub* records = database.table(table);
  if (!records || !records->children) return;
  for (AcDbStub* record : *records->children)
    if (!record->is(AcDbStub::kErased)) take(record);
}

// The true colour counts where there is one; below 0 there is none.
QColor shadeOf(int index, std::int64_t trueColour) {
  const render::Colour colour =
      trueColour < 0 ? render::aciColour(index) : render::trueColour(static_cast<std::uint32_t>(trueColour), index);
  return colour.kind == render::Colour::Kind::rgb ? QColor(colour.r, colour.g, colour.b) : QColor();
}

}  // namespace

std::vector<LayerRow> layersOf(Document& document) {
  AcDbImpDatabase& database = document.imp();
  const AcDbObjectId current = document.database().clayer();
  std::vector<LayerRow> rows;
  eachRecord(database, "LAYER", [&](AcDbStub* stub) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer{AcDbObjectId(stub)};
    if (layer.openStatus() != Acad::eOk) return;
    LayerRow row;
    row.name = nameOf(database, stub);
    row.current = AcDbObjectId(stub) == current;
    row.on = !layer->isOff();
    row.frozen = layer->isFrozen();
    row.locked = layer->isLocked();
    const Record& record = AcDbImpObject::of(layer.object()).record;
    row.plotted = record.integer(integerField(kLayer, 290, 1)) != 0;
    row.colour = layer->color().colorIndex();
    row.shade = shadeOf(row.colour, record.integer(integerField(kLayer, 420, -1)));
    row.weight = static_cast<int>(layer->lineWeight());
    row.linetype = nameOf(database, layer->linetypeObjectId());
    rows.push_back(std::move(row));
  });
  std::ranges::sort(rows, [](const LayerRow& a, const LayerRow& b) { return a.name.localeAwareCompare(b.name) < 0; });
  return rows;
}

QStringList linetypesOf(Document& document) {
  QStringList names;
  eachRecord(document.imp(), "LTYPE", [&](AcDbStub* stub) {
    const QString name = nameOf(document.imp(), stub);
    if (name.compare("ByBlock", Qt::CaseInsensitive) != 0 && name.compare("ByLayer", Qt::CaseInsensitive) != 0)
      names << name;
  });
  names.sort(Qt::CaseInsensitive);
  return names;
}

QList<std::pair<QString, QString>> linetypesToLoad(Document& document) {
  QList<std::pair<QString, QString>> found;
  const auto path = document.interpreter().search().find("kavel.lin");
  QFile file(QString::fromStdString(path.value_or("")));
  if (!path || !file.open(QIODevice::ReadOnly)) return found;
  for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
    if (const QString name = line.section(',', 0, 0).mid(1).trimmed();
        line.startsWith('*') && !document.imp().tableRecord("LTYPE", name.toStdString()))
      found.append({name, line.section(',', 1).trimmed()});
  return found;
}

QString asPattern(const QString& name) {
  QString pattern;
  for (const QChar c : name) {
    if (QStringLiteral("#@.*?~[]-,`").contains(c)) pattern += '`';
    pattern += c;
  }
  return pattern;
}

}  // namespace atelier::desktop
