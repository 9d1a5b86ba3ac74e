// The converter's file is read as a damaged one only when it can't be read as a whole one.
#include "atelier/document/opening.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/pictures/pictures.h"
#include "atelier/dxf/groups/scanner.h"
#include "atelier/dxf/reading/reader.h"

namespace atelier {
namespace {

DrawingConverter drawingConverter = nullptr;

constexpr const char* kConverted = "Dessin converti: il s'enregistre en DXF.\n";

// The file to read for a path: the file itself, or a converted one, which is removed when the drawing is open; the
// drawing keeps its contents mapped.
struct ConvertedFile {
  explicit ConvertedFile(const std::string& path)
      : name(drawingConverter ? drawingConverter(path) : std::string()), isOther(!name.empty()) {
    if (!isOther) name = path;
  }
  ~ConvertedFile() {
    std::error_code error;
    if (isOther) std::filesystem::remove(name, error);
  }
  ConvertedFile(const ConvertedFile&) = delete;
  ConvertedFile& operator=(const ConvertedFile&) = delete;
  std::string name;
  bool isOther;
};

// The names of the classes of entities that an application brought, from the section CLASSES: groups 1 and 281.
std::set<std::string> foreignEntities(const AcDbImpDatabase& database) {
  const auto layout = std::static_pointer_cast<dxf::FileLayout>(database.layout);
  std::set<std::string> names;
  const auto place = layout->place(dxf::Section::classes);
  if (!place) return names;
  dxf::Scanner scanner(layout->bytes, layout->style.encoding, place->begin, place->end);
  std::string name;
  try {
    for (dxf::RawGroup raw; scanner.next(raw);) {
      if (raw.code == 1) name = trimmed(raw.value);
      if (raw.code == 281 && trimmed(raw.value) == "1") names.insert(name);
    }
  } catch (const dxf::FormatError&) {  // reading has reported it
  }
  return names;
}

// The entities of the model space that nothing here can show, by type; nothing when there are others, too.
std::map<std::string_view, std::size_t> onlyForeign(AcDbImpDatabase& database) {
  std::map<std::string_view, std::size_t> types;
  const AcDbStub* space = database.modelSpace();
  if (!space || !space->children) return types;
  for (const AcDbStub* stub : *space->children) {
    const std::string_view type = database.typeName(*stub);
    if (formatOf(type) || hasParts(type) || type == "ACAD_TABLE") return {};
    ++types[type];
  }
  return types;
}

std::string inShort(const auto& names) {
  constexpr std::size_t kMost = 6;
  std::string text;
  std::size_t count = 0;
  for (const std::string& name : names)
    if (++count <= kMost) text += (text.empty() ? "" : ", ") + name;
  return text + (count > kMost ? "..." : "");
}

// What a converted drawing without anything to show may have held.
std::string emptiness(AcDbImpDatabase& database) {
  const AcDbStub* space = database.modelSpace();
  if (space && space->children && !space->children->empty() && onlyForeign(database).empty()) return {};
  const std::string names = inShort(foreignEntities(database));
  if (names.empty()) return "Le dessin converti est vide: son espace objet n'a aucune entité.\n";
  return "Le dessin converti est vide: ses objets sont sans doute ceux d'une application métier (" + names +
         "), que le convertisseur ne lit pas; exportez-le de cette application en DXF.\n";
}

// Why a drawing with objects shows none of them.
std::string blankness(AcDbImpDatabase& database) {
  std::vector<std::string> counts;
  for (const auto& [type, count] : onlyForeign(database))
    counts.push_back(std::to_string(count) + " " + std::string(type));
  if (counts.empty()) return {};
  const std::string classes = inShort(foreignEntities(database));
  return "Ce dessin ne montre rien: ses objets (" + inShort(counts) + ") sont ceux d'une application métier" +
         (classes.empty() ? "" : " (" + classes + ")") +
         "; ils sont gardés sans être représentés. Exportez-le de cette application en objets courants.\n";
}

}  // namespace

void setDrawingConverter(DrawingConverter converter) { drawingConverter = converter; }

std::unique_ptr<AcDbDatabase> openDrawingFile(const std::string& path, std::vector<std::string>* messages,
                                              std::string& note) {
  dxf::provideDrawingReader();
  auto database = std::make_unique<AcDbDatabase>(path.empty());
  if (path.empty()) return database;
  const ConvertedFile converted(path);
  if (!converted.isOther) {
    if (messages) dxf::readFileRecovering(*database, path, *messages);
    else dxf::readFile(*database, path);
    note = blankness(AcDbImpDatabase::of(database.get()));
    return database;
  }
  std::vector<std::string> faults;
  std::vector<std::string>& told = messages ? *messages : faults;
  try {
    dxf::readFileRecovering(*database, converted.name, told);
  } catch (const Error& error) {
    std::string what = error.what();
    if (const auto at = what.find(converted.name); at != what.npos) what.erase(at, converted.name.size());
    throw FileError(path, 0, "le dessin converti est illisible" + what);
  }
  AcDbImpDatabase& imp = AcDbImpDatabase::of(database.get());
  imp.path.clear();
  imp.recoveredFrom.clear();
  note = kConverted;
  if (!faults.empty())
    note += std::to_string(faults.size()) +
            " défaut(s) du dessin converti, laissés de côté; le premier: " + faults.front() + "\n";
  note += emptiness(imp);
  return database;
}

}  // namespace atelier
