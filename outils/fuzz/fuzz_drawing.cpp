// Mutated drawings: read strictly and recovering, every object parsed and audited, written again.
// A fault of the file is an atelier::Error; anything else is ours.
#include <cstddef>
#include <cstdint>

#include "atelier/database/imp_database.h"
#include "atelier/dxf/audit.h"
#include "atelier/dxf/reader.h"
#include "atelier/dxf/writer.h"

namespace {

void tryReading(std::string_view bytes, bool recovering) {
  AcDbDatabase database(false);
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  std::vector<std::string> messages;
  try {
    atelier::dxf::readBytes(database, "fuzz.dxf", bytes, nullptr, recovering ? &messages : nullptr);
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
