// Writes an R12 drawing into the frame of a new drawing.
// The frame's handles are moved above those of the drawing. A record that both have gets the drawing's values and the
// frame's handle, since objects of the frame point to it.
#include "atelier/dxf/versions/modern_text.h"

#include <algorithm>
#include <map>

#include "atelier/base/interruption.h"
#include "atelier/dxf/groups/file_layout.h"
#include "atelier/dxf/groups/scanner.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/versions/flat_viewport.h"
#include "atelier/dxf/versions/modern_parts.h"

namespace atelier::dxf {
namespace {

class Writer {
 public:
  explicit Writer(AcDbDatabase& database)
      : db_(AcDbImpDatabase::of(&database)), shift_(db_.handleSeed()), next_(shift_) {
    readFrame();
    for (const AcDbStub& stub : db_.stubs()) next_ = std::max(next_, stub.handle + 1);
    style_.encoding = Encoding::ascii;
    style_.codePage = CodePage::utf8();
  }

  ModernText write() {
    for (std::size_t i = 0; i < frame_.size();) {
      std::size_t end = i + 1;
      while (end < frame_.size() && frame_[end].code() != 0) ++end;
      frameRecord(
          Groups(frame_.begin() + static_cast<std::ptrdiff_t>(i), frame_.begin() + static_cast<std::ptrdiff_t>(end)));
      i = end;
    }
    // The seed is part of the header, but known only at the end.
    const std::string mark = "$HANDSEED";
    const std::size_t at = out_.find('\n', out_.find('\n', out_.find(mark)) + 1) + 1;
    out_.replace(at, out_.find('\n', at) - at, handleText(next_));
    ModernText made{std::move(out_), {}};
    for (const auto& [type, count] : lost_)
      made.lost.push_back(std::to_string(count) + " " + type + " de la version R12 sans équivalent");
    return made;
  }

 private:
  void readFrame() {
    const std::string_view bytes = newDrawingText();
    Scanner scanner(bytes, Encoding::ascii, firstGroup(bytes, Encoding::ascii), bytes.size());
    RawGroup raw;
    while (scanner.next(raw)) {
      Group group = decode(raw, Encoding::ascii, CodePage::utf8());
      if (group.kind() == GroupKind::handle && group.handle() != 0) {
        group = Group::handle(group.code(), group.handle() + shift_);
        next_ = std::max(next_, group.handle() + 1);
      }
      frame_.push_back(std::move(group));
    }
    // Finds the two spaces as the owners of their contents.
    for (std::size_t i = 0; i + 1 < frame_.size(); ++i)
      if (frame_[i].code() == 0 && frame_[i].text() == "BLOCK_RECORD") noteSpace(i);
  }

  void noteSpace(std::size_t at) {
    std::uint64_t handle = 0;
    for (++at; at < frame_.size() && frame_[at].code() != 0; ++at) {
      if (frame_[at].code() == 5) handle = frame_[at].handle();
      if (frame_[at].code() == 2 && equalNoCase(frame_[at].text(), "*Model_Space")) modelSpace_ = handle;
      if (frame_[at].code() == 2 && equalNoCase(frame_[at].text(), "*Paper_Space")) paperSpace_ = handle;
    }
  }

  // Written from its value, because its spelling may belong to another form of file.
  void put(Group group) {
    group.from({});
    append(out_, group, style_);
  }
  void put(const Groups& groups) {
    for (const Group& group : groups) put(group);
  }
  static std::string textOf(const Groups& groups, int code) {
    for (const Group& group : groups)
      if (group.code() == code) return group.text();
    return {};
  }
  static std::uint64_t handleOf(const Groups& groups, int code = 5) {
    for (const Group& group : groups)
      if (group.code() == code) return group.handle();
    return 0;
  }

  // One record of the frame, with the drawing's records that belong before it or replace it.
  void frameRecord(Groups record) {
    const std::string type = record.front().text();
    if (type == "SECTION") section_ = textOf(record, 2);
    if (section_ == "HEADER" && type == "SECTION") return header(record);
    if (section_ == "TABLES" && type == "TABLE") {
      table_ = textOf(record, 2);
      head_ = handleOf(record);
      pending_.clear();
      if (AcDbStub* old = db_.table(table_); old && old->children)
        for (AcDbStub* child : *old->children)
          if (!child->is(AcDbStub::kErased) && db_.typeName(*child) == table_) pending_.push_back(child);
    } else if (section_ == "TABLES" && type == "ENDTAB") {
      if (table_ == "BLOCK_RECORD") blockRecords();
      else
        for (AcDbStub* stub : pending_) tableRecord(*stub, next_++);
    } else if (section_ == "TABLES" && type == table_) {
      if (type == "LAYER" && layerEnd_.empty())
        for (const Group& group : record)
          if (group.code() == 370 || group.code() == 390 || group.code() == 347) layerEnd_.push_back(group);
      const auto same = table_ == "BLOCK_RECORD" ? pending_.end()
                                                 : std::find_if(pending_.begin(), pending_.end(), [&](AcDbStub* stub) {
                                                     return equalNoCase(db_.recordName(*stub), textOf(record, 2));
                                                   });
      if (same != pending_.end()) {
        tableRecord(**same, handleOf(record, table_ == "DIMSTYLE" ? 105 : 5));
        pending_.erase(same);
        return;
      }
    } else if (type == "ENDSEC" && section_ == "BLOCKS") {
      blocks();
    } else if (type == "ENDSEC" && section_ == "ENTITIES") {
      if (AcDbStub* space = db_.modelSpace()) contents(*space, modelSpace_);
      if (AcDbStub* space = db_.paperSpace()) contents(*space, paperSpace_);
    }
    put(record);
  }

  // The frame's variables, with the drawing's values where it has them.
  void header(const Groups& frame) {
    constexpr std::string_view kOwn[] = {"$ACADVER", "$HANDSEED", "$DWGCODEPAGE", "$ACADMAINTVER"};
    const HeaderVariables::Variable* replaced = nullptr;
    for (const Group& group : frame) {
      if (group.code() == 9) {
        replaced = nullptr;
        const bool own = std::find(std::begin(kOwn), std::end(kOwn), group.text()) != std::end(kOwn);
        for (const HeaderVariables::Variable& v : db_.header.list)
          if (!own && v.name == group.text()) replaced = &v;
        put(group);
        continue;
      }
      const Group* value = &group;
      if (replaced)
        for (const Group& own : replaced->values)
          if (own.code() == group.code()) value = &own;
      put(*value);
    }
  }

  void tableRecord(AcDbStub& stub, std::uint64_t handle) {
    if (table_ == "LAYER") layers_[upperCase(db_.recordName(stub))] = handle;
    const Groups& old = AcDbImpObject::of(&db_.object(stub)).settled().groups;
    if (isModern(old)) return asItStands(old, handle, head_);
    put(Group::text(0, table_));
    put(Group::handle(table_ == "DIMSTYLE" ? 105 : 5, handle));
    put(Group::handle(330, head_));
    put(Group::text(100, "AcDbSymbolTableRecord"));
    put(Group::text(100, std::string(recordMark(table_))));
    for (const Group& group : old) {
      // In R12, 5, 6 and 7 of a dimension style name its arrow blocks; later versions have pointers to block records.
      const bool arrow = table_ == "DIMSTYLE" && group.code() >= 5 && group.code() <= 7;
      if (group.code() == 0 || group.code() == 5 || group.code() == 105 || arrow || group.code() >= 1000) continue;
      put(group);
      if (table_ == "LTYPE" && group.code() == 49) put(Group::integer(74, 0));
    }
    if (table_ == "LAYER") put(layerEnd_);
    extendedData(old);
  }

  // A record made since the drawing was opened has its marks already.
  static bool isModern(const Groups& groups) {
    return std::any_of(groups.begin(), groups.end(), [](const Group& g) { return g.code() == 100; });
  }

  void asItStands(const Groups& groups, std::uint64_t handle, std::uint64_t owner) {
    put(groups.front());
    put({Group::handle(groups.front().text() == "DIMSTYLE" ? 105 : 5, handle), Group::handle(330, owner)});
    bool head = true;
    for (std::size_t i = 1; i < groups.size(); ++i) {
      const int code = groups[i].code();
      head = head && code != 100 && code != 102;
      if (!head || (code != 5 && code != 105 && code != 330)) put(groups[i]);
    }
  }

  void extendedData(const Groups& groups) {
    for (const Group& group : groups)
      if (group.code() >= 1000) put(group);
  }

  std::vector<AcDbStub*> ownBlocks() {
    std::vector<AcDbStub*> list;
    AcDbStub* head = db_.table("BLOCK_RECORD");
    if (head && head->children)
      for (AcDbStub* block : *head->children)
        if (!block->is(AcDbStub::kErased) && block != db_.modelSpace() && block != db_.paperSpace() &&
            db_.blockEnds.contains(block))
          list.push_back(block);
    return list;
  }

  void blockRecords() {
    for (AcDbStub* block : ownBlocks()) {
      blockHandles_[block] = next_;
      put({Group::text(0, "BLOCK_RECORD"), Group::handle(5, next_++), Group::handle(330, head_),
           Group::text(100, "AcDbSymbolTableRecord"), Group::text(100, "AcDbBlockTableRecord"),
           Group::text(2, db_.recordName(*block)), Group::handle(340, 0)});
    }
  }

  void blocks() {
    for (AcDbStub* block : ownBlocks()) {
      const auto& ends = db_.blockEnds.at(block);
      if (!ends.begin || !ends.end) continue;
      const std::uint64_t owner = blockHandles_[block];
      entity(*ends.begin, owner);
      contents(*block, owner);
      entity(*ends.end, owner);
    }
  }

  void contents(const AcDbStub& block, std::uint64_t owner) {
    if (!block.children) return;
    for (AcDbStub* child : *block.children) {
      const std::uint64_t handle = entity(*child, owner);
      if (handle != 0 && child->children)
        for (AcDbStub* follower : *child->children) entity(*follower, handle);
    }
  }

  // Gives the handle under which it was written; 0 when it wasn't.
  std::uint64_t entity(AcDbStub& stub, std::uint64_t owner) {
    checkInterruption();
    if (stub.is(AcDbStub::kErased)) return 0;
    const std::string type(db_.typeName(stub));
    const Groups& old = AcDbImpObject::of(&db_.object(stub)).settled().groups;
    const std::uint64_t handle = stub.handle != 0 ? stub.handle : next_++;
    if (isModern(old)) {
      asItStands(old, handle, owner);
      return handle;
    }
    if (type == "VIEWPORT") {
      window(old, handle, owner);
      return handle;
    }
    const std::vector<Part> parts = partsOf(type, old);
    if (parts.empty()) {
      ++lost_[type];
      return 0;
    }
    put({Group::text(0, type), Group::handle(5, handle), Group::handle(330, owner), Group::text(100, "AcDbEntity")});
    for (const Group& group : old)
      if (isCommon(group.code())) put(group);
    for (std::size_t i = parts.size(); i-- > 0;) {
      if (!parts[i].mark.empty()) put(Group::text(100, std::string(parts[i].mark.substr(0, parts[i].mark.find('#')))));
      for (const Group& group : old)
        if (group.code() != 0 && group.code() != 5 && group.code() < 1000 && !isCommon(group.code()) &&
            partOf(parts, group.code()) == i)
          put(group);
    }
    extendedData(old);
    return handle;
  }

  void window(const Groups& old, std::uint64_t handle, std::uint64_t owner) {
    put({Group::text(0, "VIEWPORT"), Group::handle(5, handle), Group::handle(330, owner),
         Group::text(100, "AcDbEntity")});
    for (const Group& group : old)
      if (isCommon(group.code())) put(group);
    put(Group::text(100, "AcDbViewport"));
    put(asModernViewport(old, [&](const std::string& layer) {
      const auto found = layers_.find(upperCase(layer));
      return found == layers_.end() ? 0 : found->second;
    }));
  }

  static std::size_t partOf(const std::vector<Part>& parts, int code) {
    for (std::size_t i = 0; i < parts.size(); ++i)
      if (parts[i].codes.empty() ||
          std::find(parts[i].codes.begin(), parts[i].codes.end(), code) != parts[i].codes.end())
        return i;
    return parts.size();
  }

  AcDbImpDatabase& db_;
  const std::uint64_t shift_;
  std::uint64_t next_;
  Groups frame_, layerEnd_;
  Style style_;
  std::string out_, section_, table_;
  std::uint64_t head_ = 0, modelSpace_ = 0, paperSpace_ = 0;
  std::vector<AcDbStub*> pending_;
  std::map<const AcDbStub*, std::uint64_t> blockHandles_;
  std::map<std::string, std::uint64_t> layers_;  // handles as written, by upper-case name
  std::map<std::string, int> lost_;
};

}  // namespace

ModernText modernText(AcDbDatabase& database) { return Writer(database).write(); }

}  // namespace atelier::dxf
