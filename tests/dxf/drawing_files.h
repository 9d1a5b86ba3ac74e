// Helpers of this room's tests: drawings as bytes, a folder of their own, and a comparison group by group.
// The comparison doesn't use the reader: it splits the bytes itself.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/dxf/groups/scanner.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/writing/writer.h"
#include "hote/dbdict.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace drawing {

namespace fs = std::filesystem;

inline std::string bytesOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

inline void put(const fs::path& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }

// An empty folder that is removed with the test.
class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "kavel-dxf-XXXXXX").string();
    path = mkdtemp(name.data());
  }
  ~Folder() { fs::remove_all(path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  fs::path path;
};

// A database that is the working one while it lives.
class Opened {
 public:
  explicit Opened(bool fresh = false)
      : db((atelier::dxf::provideDrawingReader(), fresh)), imp(AcDbImpDatabase::of(&db)) {
    acdbHostApplicationServices()->setWorkingDatabase(&db);
  }
  explicit Opened(const fs::path& file) : Opened(false) { atelier::dxf::readFile(db, file.string()); }
  std::string written() {
    std::string bytes;
    atelier::dxf::write(db, [&](std::string_view part) { bytes += part; });
    return bytes;
  }
  AcDbDatabase db;
  AcDbImpDatabase& imp;
};

inline std::string valueText(const atelier::dxf::RawGroup& group, atelier::dxf::Encoding encoding) {
  if (encoding == atelier::dxf::Encoding::ascii) return std::string(atelier::trimmed(group.value));
  return std::string(group.value);
}

// Each record's groups as text, under its type, handle and rank among records of the same key. HEADER variables are
// records of their own.
inline std::map<std::string, std::string> recordsOf(const std::string& bytes) {
  using namespace atelier::dxf;
  const Encoding encoding = encodingOf(bytes);
  Scanner scanner(bytes, encoding, firstGroup(bytes, encoding), bytes.size());
  std::map<std::string, std::string> records;
  std::string type, handle, text;
  const auto flush = [&] {
    if (type.empty()) return;
    std::string key = type + " " + handle;
    for (int turn = 2; records.contains(key); ++turn) key = type + " " + handle + "~" + std::to_string(turn);
    records[key] = text;
  };
  RawGroup group;
  while (scanner.next(group)) {
    const std::string value = valueText(group, encoding);
    if (group.code == 0 || (group.code == 9 && value.starts_with('$'))) {
      flush();
      type = value;
      handle = text = "";
    }
    if ((group.code == 5 || group.code == 105) && handle.empty()) handle = value;
    text += std::to_string(group.code) + "=" + value + "\n";
  }
  flush();
  return records;
}

// Keys of the records that differ; "+" before one that is only in b, "-" before one that is only in a.
inline std::vector<std::string> differences(const std::string& a, const std::string& b) {
  const auto before = recordsOf(a), after = recordsOf(b);
  std::vector<std::string> keys;
  for (const auto& [key, text] : before) {
    const auto found = after.find(key);
    if (found == after.end()) keys.push_back("-" + key);
    else if (found->second != text) keys.push_back(key);
  }
  for (const auto& [key, text] : after)
    if (!before.contains(key)) keys.push_back("+" + key);
  return keys;
}

// The drawings that generate.py writes, made once for the whole program.
inline const std::vector<fs::path>& generated() {
  static Folder folder;
  static const std::vector<fs::path> files = [] {
    const std::string command = "/usr/bin/python3 " KAVEL_SOURCE "/tests/dxf/generate.py " + folder.path.string();
    std::vector<fs::path> list;
    if (std::system(command.c_str()) != 0) return list;
    for (const auto& entry : fs::directory_iterator(folder.path)) list.push_back(entry.path());
    std::sort(list.begin(), list.end());
    return list;
  }();
  return files;
}

inline AcDbObjectId append(Opened& drawing, AcDbEntity* entity) {
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.db.currentSpaceId(), AcDb::kForWrite);
  if (space.openStatus() == Acad::eOk) space->appendAcDbEntity(id, entity);
  entity->close();
  return id;
}

// A new block: a circle of radius 2 around its base point (1,1).
inline AcDbObjectId circleBlock(Opened& drawing, const wchar_t* name) {
  AcDbBlockTable* table = nullptr;
  drawing.db.getBlockTable(table, AcDb::kForWrite);
  auto* record = new AcDbBlockTableRecord;
  record->setName(name);
  record->setOrigin({1, 1, 0});
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, record), Acad::eOk);
  table->close();
  auto* circle = new AcDbCircle({1, 1, 0}, {0, 0, 1}, 2);
  record->appendAcDbEntity(circle);
  circle->close();
  record->close();
  return id;
}

}  // namespace drawing
