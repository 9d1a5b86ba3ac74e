// Saving a database under a name.
// The drawing stays linked to the bytes it was read from, so it can be saved any number of times.
#include <filesystem>

#include "atelier/database/objects/imp_database.h"
#include "atelier/dxf/writing/replaced_file.h"
#include "atelier/dxf/writing/writer.h"

namespace atelier::dxf {
namespace {

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return a == b || std::filesystem::equivalent(a, b, error);
}

enum class Kind { drawing, copy };

void replace(AcDbDatabase& database, const std::string& path, Kind kind) {
  refuseDamaged(database, path);
  ReplacedFile file(path, kind == Kind::drawing);
  write(database, [&](std::string_view bytes) { file.write(bytes); });
  file.keep(kind == Kind::drawing);
}

}  // namespace

void refuseDamaged(AcDbDatabase& database, const std::string& path) {
  const AcDbImpDatabase& db = AcDbImpDatabase::of(&database);
  if (!db.recoveredFrom.empty() && !db.mayOverwriteDamaged && isSameFile(db.recoveredFrom, path))
    throw FileError(path, 0,
                    "ce fichier est endommagé et n'a été lu qu'en partie: enregistrez le dessin sous un autre nom");
}

void saveCopy(AcDbDatabase& database, const std::string& path) { replace(database, path, Kind::copy); }

void save(AcDbDatabase& database, const std::string& path) {
  replace(database, path, Kind::drawing);
  AcDbImpDatabase& db = AcDbImpDatabase::of(&database);
  db.modified = false;
  db.path = path;
}

}  // namespace atelier::dxf
