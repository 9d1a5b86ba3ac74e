// Mutated drawings: read strictly and recovering, every object parsed, measured and audited, shown, written again and
// exported to the first and the last version. A fault of the file is an atelier::Error; anything else is ours.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "atelier/database/objects/imp_database.h"
#include "atelier/dxf/audit/audit.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/versions/export.h"
#include "atelier/dxf/writing/writer.h"
#include "atelier/render/scene/scene.h"
#include "hote/dbents.h"

namespace {

void tryExtents(AcDbDatabase& database) {
  AcDbStub* space = AcDbImpDatabase::of(&database).modelSpace();
  if (!space || !space->children) return;
  for (AcDbStub* stub : *space->children) {
    const AcDbObjectPointer<AcDbEntity> entity{AcDbObjectId(stub)};
    AcDbExtents box;
    if (entity.openStatus() == Acad::eOk) entity->getGeomExtents(box);
  }
}

void tryShowing(AcDbDatabase& database) {
  atelier::render::SceneOptions few;
  few.mostPrimitives = 20'000;
  atelier::render::drawScene(database, few);
}

void tryExport(AcDbDatabase& database) {
  static const std::string file =
      std::filesystem::temp_directory_path() / ("kavel-fuzz-" + std::to_string(::getpid()) + ".dxf");
  for (const char* release : {"R12", "R2018"}) atelier::dxf::saveAs(database, file, release);
  std::filesystem::remove(file);
}

void tryReading(std::string_view bytes, bool recovering) {
  AcDbDatabase database(false);
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  std::vector<std::string> messages;
  try {
    atelier::dxf::readBytes(database, "fuzz.dxf", bytes, nullptr, recovering ? &messages : nullptr);
    tryExtents(database);
    tryShowing(database);
    tryExport(database);
    for (const bool fix : {false, true}) atelier::dxf::audit(database, fix);
    std::size_t written = 0;
    atelier::dxf::write(database, [&](std::string_view part) { written += part.size(); });
  } catch (const atelier::Error&) {}
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool ready = (atelier::dxf::provideDrawingReader(), true);
  static_cast<void>(ready);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  tryReading(bytes, false);
  tryReading(bytes, true);
  return 0;
}
