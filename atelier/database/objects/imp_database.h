// The body of a database: stubs by handle, the structure of tables, blocks and objects, and the header variables.
// Objects are parsed from their source when they are first asked for.
#pragma once
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "atelier/base/error.h"
#include "atelier/base/text.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/objects/journal.h"
#include "atelier/database/records/header_variables.h"

namespace atelier {

// Where records come from: a drawing file, or the text of the new drawing.
class RecordSource {
 public:
  virtual ~RecordSource() = default;
  virtual Record read(std::uint64_t offset, std::uint32_t length) const = 0;
  // False for a record that certainly has no extended data, which is seen without reading it.
  virtual bool mayHaveXdata(std::uint64_t offset, std::uint32_t length) const = 0;
  // The binary solid-model data that the drawing keeps apart from the entity of that handle; empty when it has none.
  virtual std::string solidData(std::uint64_t handle) const = 0;
};

// Reads drawings into databases. The dxf room sets it (setDrawingReader), since this room may not include that one.
class DrawingReader {
 public:
  virtual ~DrawingReader() = default;
  virtual void readFile(AcDbDatabase& database, const std::string& path) = 0;  // throws atelier::Error
  virtual void readNewDrawing(AcDbDatabase& database) = 0;
};
void setDrawingReader(std::unique_ptr<DrawingReader> reader);
DrawingReader& drawingReader();

// Map from handle to stub, in pages: handles are mostly consecutive, so neighbours share a page, and the page of the
// last insertion is tried first for the next one.
class HandleMap {
 public:
  AcDbStub* find(std::uint64_t handle) const;
  void insert(AcDbStub* stub);  // an earlier stub of that handle is kept
  void reserve(std::size_t count) { pages_.reserve(count / kPage); }

 private:
  static constexpr std::uint64_t kPage = 16;
  // Mixes the bits of a page number, since a file may have handles chosen to collide.
  struct Mixed {
    std::size_t operator()(std::uint64_t number) const { return (number * 0x9E3779B97F4A7C15ull) >> 20; }
  };
  using Page = std::array<AcDbStub*, kPage>;
  std::unordered_map<std::uint64_t, Page, Mixed> pages_;
  Page* page_ = nullptr;
  std::uint64_t number_ = 0;  // its number
};

}  // namespace atelier

class AcDbImpDatabase {
 public:
  explicit AcDbImpDatabase(AcDbDatabase& database);
  ~AcDbImpDatabase();
  AcDbImpDatabase(const AcDbImpDatabase&) = delete;
  AcDbImpDatabase& operator=(const AcDbImpDatabase&) = delete;
  static AcDbImpDatabase& of(const AcDbDatabase* database) { return *database->impDatabase(); }

  AcDbDatabase& database() const { return database_; }

  // --- stubs
  AcDbStub* stubOf(std::uint64_t handle) const { return handles_.find(handle); }
  // The stub of that handle; of one that leads nowhere (0 among them) an erased stub, so that lists can name it.
  AcDbStub* stubOrLost(std::uint64_t handle);
  AcDbStub& addStub(std::uint64_t handle, std::string_view type, AcDbStub* owner);
  void reserve(std::size_t count) { handles_.reserve(count); }
  std::uint64_t takeHandle();
  std::uint64_t handleSeed() const { return seed_; }
  void raiseHandleSeed(std::uint64_t above);
  // A handle for a stub that the file gave none.
  void giveHandle(AcDbStub& stub);
  std::string_view typeName(const AcDbStub& stub) const { return types_[stub.type]; }
  const std::deque<AcDbStub>& stubs() const { return stubs_; }
  std::uint16_t typeIndexOf(std::string_view type);

  // The object of a stub, parsed if necessary; never null. Its class follows from the record.
  // Entities that are neither open nor changed are dropped again when many are in memory: a pointer to one is good
  // only while it is open, or until kMostIdle further ones were parsed.
  AcDbObject& object(AcDbStub& stub);
  static constexpr std::size_t kMostIdle = 16384;
  // False for an object that certainly has no extended data; it isn't parsed for that.
  bool mayHaveXdata(const AcDbStub& stub) const {
    return stub.object || !source || source->mayHaveXdata(stub.offset, stub.length);
  }
  // Replaces the stub's object, which nobody may have open, by one of the record's class.
  void replaceObject(AcDbStub& stub, atelier::Record record);
  // Adds a new object to the database: gives it a handle and a stub under the owner, and leaves it open for write.
  AcDbStub& adopt(AcDbObject& object, AcDbStub& owner);
  // The same for an attribute of an insert or a vertex of a polyline: it is placed before the end mark, which is made
  // with the first of them.
  AcDbStub& adoptFollower(AcDbObject& object, AcDbStub& parent);

  // --- structure; stubs of table heads have the type "TABLE"
  AcDbStub* table(std::string_view name) const;  // "LAYER", "STYLE", "BLOCK_RECORD" ...; null when missing
  void setTable(std::string_view name, AcDbStub& head);
  const std::vector<std::pair<std::string, AcDbStub*>>& tables() const { return tables_; }
  // The record of that name, case ignored, erased ones left out; null when there is none.
  AcDbStub* tableRecord(std::string_view table, std::string_view name);
  std::string recordName(AcDbStub& record);
  // The record of that name, made with the format's defaults when it is missing (layers, styles, applications).
  void forgetTableIndex() { tableIndex_.clear(), modelSpace_ = nullptr; }
  AcDbStub* modelSpace();
  AcDbStub* paperSpace();  // the one that the file opens with
  // The paper space that is current when the model space isn't: the one that was chosen last, else the one of the file.
  AcDbStub* currentSheet();
  void chooseSheet(AcDbStub* space) { sheet_ = space; }

  struct BlockEnds {
    AcDbStub* begin = nullptr;  // BLOCK
    AcDbStub* end = nullptr;    // ENDBLK
  };
  // By block record; those of a new block are made together with it.
  std::unordered_map<const AcDbStub*, BlockEnds> blockEnds;

  AcDbStub* rootDictionary = nullptr;
  // For a drawing without one, as all were up to R12: a stand-in, which is written with the first entry.
  void makeRootDictionary();
  std::vector<AcDbStub*> objects;  // the OBJECTS section in order, new ones at the end
  // A dictionary below the root, made when it is missing.
  AcDbStub& namedDictionary(std::string_view key);

  atelier::HeaderVariables header;
  atelier::CodePage codePage = atelier::CodePage::utf8();
  std::shared_ptr<atelier::RecordSource> source;  // null: nothing was read
  std::shared_ptr<void> layout;                   // what the dxf room remembers for writing the file again
  std::string path;                               // of the file it was read from; empty for a new drawing
  std::string recoveredFrom;                      // the damaged file this was recovered from, not to be saved over
  bool mayOverwriteDamaged = false;               // unless this is set
  bool modified = false;                          // since it was read or saved
  atelier::Journal journal;
  // The listener is told of each change; it must remove itself before it is destroyed.
  void addListener(atelier::ChangeListener& listener) { listeners_.push_back(&listener); }
  void removeListener(atelier::ChangeListener& listener) { std::erase(listeners_, &listener); }
  void tellListeners(AcDbStub& stub) {
    for (atelier::ChangeListener* listener : listeners_) listener->changes(stub);
  }

 private:
  AcDbDatabase& database_;
  std::vector<atelier::ChangeListener*> listeners_;
  void dropIdle();
  std::deque<AcDbStub> stubs_;
  std::map<std::uint64_t, AcDbStub> lost_;
  std::deque<AcDbStub*> parsed_;  // entities in the order in which they were parsed
  atelier::HandleMap handles_;
  std::uint64_t seed_ = 1;
  std::vector<std::string> types_;
  std::array<std::uint16_t, 64> recentTypes_{};
  std::unordered_map<std::string, std::uint16_t> typeIndex_;
  std::vector<std::pair<std::string, AcDbStub*>> tables_;
  std::unordered_map<const AcDbStub*, std::unordered_map<std::string, AcDbStub*>> tableIndex_;
  AcDbStub* modelSpace_ = nullptr;  // kept as long as the index
  AcDbStub* sheet_ = nullptr;
};

namespace atelier {

// The objects that are open now, in all databases; the host looks at them after each call.
class OpenObjects {
 public:
  static void add(AcDbObject* object);
  static void remove(AcDbObject* object);
  static std::size_t count();
  // Closes all objects opened since there were `mark` of them, as after an interrupted call.
  static void closeBeyond(std::size_t mark);
  static const std::vector<AcDbObject*>& list();
};

AcRxClass* classNamed(std::string_view name);  // null for a name that no class has
std::string className(const AcRxClass* rxClass);
AcDbObjectId idOf(const AcDbStub* stub);
AcDbStub* stubOf(const AcDbObject* object);             // null for an object in no database
AcDbImpDatabase* databaseOf(const AcDbObject* object);  // its own, or the working one for a new object

}  // namespace atelier
