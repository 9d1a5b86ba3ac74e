// How the records of a file belong together: blocks and their records, spaces, owners, missing handles.
// Inner header of the room; the reader calls it.
#pragma once
#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

class Structure {
 public:
  Structure(AcDbImpDatabase& database, FileLayout& layout) : db_(database), layout_(layout) {}

  // The block record that a BLOCK belongs to, by owner handle, else by name; made when the file has none (R12).
  AcDbStub& openBlock(AcDbStub& begin, std::uint64_t owner, const std::string& name);
  void closeBlock(AcDbStub& block, AcDbStub* end);  // null: ENDBLK is missing
  // The block of an entity of the ENTITIES section.
  AcDbStub& spaceOf(std::uint64_t owner, bool paperSpace);
  void noteHandleless(AcDbStub& stub);
  void noteOwner(AcDbStub& stub, std::uint64_t owner) { owners_.emplace_back(&stub, owner); }
  void noteTableRecord(std::string_view type, std::string_view name);
  // The root is the first dictionary that nobody owns, else the first one.
  void noteDictionary(AcDbStub& stub, std::uint64_t owner);
  // Does what needs the whole file.
  void finish();

 private:
  AcDbStub& virtualRecord(const std::string& name);
  AcDbStub& space(const std::string& name, AcDbStub*& kept);
  void completeTables();
  AcDbImpDatabase& db_;
  FileLayout& layout_;
  AcDbStub* model_ = nullptr;
  AcDbStub* paper_ = nullptr;
  bool rootIsOwned_ = false;
  unsigned defaultsSeen_ = 0;  // bit by row of the table of default records
  std::uint64_t lastOwner_ = 0;
  AcDbStub* lastSpace_ = nullptr;
  std::vector<AcDbStub*> handleless_;
  std::vector<std::pair<AcDbStub*, std::uint64_t>> owners_;
};

}  // namespace atelier::dxf
