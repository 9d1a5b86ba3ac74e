// Puts changes into the bytes of the file.
// An edit leaves out so many bytes at an offset and inserts a text there.
#include "atelier/dxf/writing/writer.h"

#include <algorithm>
#include <set>

#include "atelier/base/interruption.h"
#include "atelier/dxf/writing/record_text.h"
#include "atelier/dxf/writing/references.h"

namespace atelier::dxf {
namespace {

struct Edit {
  std::size_t offset;
  std::size_t skip;
  std::string text;
};

class Writer {
 public:
  explicit Writer(AcDbDatabase& database)
      : db_(AcDbImpDatabase::of(&database)), layout_(*std::static_pointer_cast<FileLayout>(db_.layout)) {}

  void write(const Sink& sink) {
    settleErased(db_);
    settleHandles(db_);
    headerEdits();
    replacedRecords();
    newRecords();
    // In a cut file all of these stand at its end, in this order.
    for (const Repair& repair : layout_.repairs) edits_.push_back({repair.offset, repair.skip, textOf(repair.groups)});
    missingSections();
    if (layout_.endMissing) edits_.push_back({layout_.fileEnd, 0, textOf({Group::text(0, "EOF")})});
    // An insertion comes before a change of the record at the same place.
    std::stable_sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) {
      return a.offset != b.offset ? a.offset < b.offset : (a.skip == 0) > (b.skip == 0);
    });
    splice(sink);
  }

 private:
  void splice(const Sink& sink) const {
    std::size_t at = 0;
    char last = '\n';
    const auto give = [&](std::string_view bytes) {
      if (bytes.empty()) return;
      sink(bytes);
      last = bytes.back();
    };
    for (const Edit& edit : edits_) {
      checkInterruption();
      if (edit.offset > at) give(layout_.bytes.substr(at, edit.offset - at));
      // A file may end without a line end.
      if (!edit.text.empty() && last != '\n' && layout_.style.encoding == Encoding::ascii) give(layout_.style.lineEnd);
      give(edit.text);
      at = std::max(at, edit.offset + edit.skip);
    }
    if (at < layout_.bytes.size()) give(layout_.bytes.substr(at));
  }

  std::string textOf(const std::vector<Group>& groups) const {
    std::string text;
    for (const Group& group : groups) append(text, group, layout_.style);
    return text;
  }

  void headerEdits() {
    // A drawing without handles gets no seed unless a handle is written.
    const std::uint64_t highest = highestHandleWritten();
    const bool handles = highest > 0;
    // Without a header readers use the highest handle.
    const bool seed = layout_.place(Section::header) && (handles || layout_.hasHandles || layout_.atLeast(kR13));
    // An object may be added to a drawing that counts as unmodified: the name of an application.
    const HeaderVariables::Variable* last = db_.header.find("$HANDSEED");
    const bool stale = last && !last->values.empty() && last->values[0].handle() <= highest;
    if (seed && (db_.modified || stale)) db_.header.set("$HANDSEED", Group::handle(5, db_.handleSeed()));
    if (handles && db_.header.has("$HANDLING")) db_.header.set("$HANDLING", Group::integer(70, 1));
    std::string added;
    for (const HeaderVariables::Variable& v : db_.header.list) {
      if (!v.changed) continue;
      const bool inFile = v.offset != 0;
      std::string text = inFile ? std::string() : textOf({Group::text(9, v.name)});
      text += textOf(v.values);
      if (inFile) edits_.push_back({v.offset, v.length, std::move(text)});
      else added += text;
    }
    if (!added.empty()) insert(Section::header, added);
  }

  std::uint64_t highestHandleWritten() const {
    std::uint64_t highest = 0;
    for (const AcDbStub& stub : db_.stubs())
      if (stub.is(AcDbStub::kChanged) && !stub.is(AcDbStub::kVirtual) && writesHandle(stub))
        highest = std::max(highest, stub.handle);
    return highest;
  }

  void replacedRecords() {
    for (const AcDbStub& stub : db_.stubs()) {
      if (!stub.is(AcDbStub::kChanged) || stub.is(AcDbStub::kNew) || stub.is(AcDbStub::kVirtual)) continue;
      edits_.push_back({stub.offset, stub.length, stub.is(AcDbStub::kErased) ? std::string() : record(stub)});
    }
  }

  void newRecords() {
    for (const auto& [name, head] : db_.tables()) {
      const bool blocks = name == "BLOCK_RECORD";
      if (name == "APPID" && !wanted(*head)) continue;
      if (!blocks || layout_.atLeast(kR13)) newInTable(*head);
      if (blocks)
        for (const AcDbStub* block : *head->children) blockContents(*block);
    }
    std::string objects;
    for (const AcDbStub* stub : db_.objects) objects += isNew(*stub) ? record(*stub) : std::string();
    insert(Section::objects, objects);
  }

  // A fragment without tables stays one: the names of applications that programs register when they start don't count as
  // long as nothing uses them. Repairs do.
  bool wanted(const AcDbStub& applications) const {
    if (layout_.place(Section::tables)) return true;
    std::set<std::string> names;
    for (const AcDbStub* name : *applications.children) {
      if (name->is(AcDbStub::kVirtual) && name->is(AcDbStub::kChanged)) return true;
      if (isNew(*name)) names.insert(upperCase(db_.recordName(const_cast<AcDbStub&>(*name))));
    }
    return db_.modified && std::ranges::any_of(db_.stubs(), [&](const AcDbStub& stub) {
             if (stub.is(AcDbStub::kErased)) return false;
             const auto& groups = AcDbImpObject::of(&db_.object(const_cast<AcDbStub&>(stub))).record.groups;
             return std::ranges::any_of(
                 groups, [&](const Group& g) { return g.code() == 1001 && names.contains(upperCase(g.text())); });
           });
  }

  // A table that the file doesn't have is written completely.
  void newInTable(const AcDbStub& head) {
    std::string text;
    const auto end = layout_.tableEnd.find(&head);
    const bool any =
        std::any_of(head.children->begin(), head.children->end(), [](const AcDbStub* child) { return isNew(*child); });
    if (!any) return;
    for (const AcDbStub* child : *head.children)
      if (isNew(*child) || (head.is(AcDbStub::kVirtual) && !child->is(AcDbStub::kErased))) text += record(*child);
    if (end != layout_.tableEnd.end()) edits_.push_back({end->second, 0, std::move(text)});
    else insert(Section::tables, record(head) + text + textOf({Group::text(0, "ENDTAB")}));
  }

  void blockContents(const AcDbStub& block) {
    if (!block.children || block.is(AcDbStub::kErased)) return;
    std::string text;
    for (const AcDbStub* child : *block.children) {
      if (isNew(*child)) text += withFollowers(*child);
      else if (child->children && !child->is(AcDbStub::kErased)) newFollowers(*child);
    }
    const auto ends = db_.blockEnds.find(&block);
    const bool known = ends != db_.blockEnds.end() && ends->second.begin && ends->second.end;
    if (block.is(AcDbStub::kNew) && known)
      insert(Section::blocks, record(*ends->second.begin) + text + record(*ends->second.end));
    else if (!text.empty() && known && !isSpace(block))
      edits_.push_back({ends->second.end->offset, 0, std::move(text)});
    else insert(Section::entities, text);
  }

  // Attributes or vertices added to an entity of the file are placed after the last one before them in the file.
  void newFollowers(const AcDbStub& parent) {
    std::size_t place = parent.offset + parent.length;
    for (const AcDbStub* child : *parent.children) {
      if (isNew(*child)) edits_.push_back({place, 0, record(*child)});
      else if (!child->is(AcDbStub::kNew)) place = child->offset + child->length;
    }
  }

  std::string withFollowers(const AcDbStub& stub) const {
    std::string text = record(stub);
    if (stub.children)
      for (const AcDbStub* child : *stub.children) text += isNew(*child) ? record(*child) : std::string();
    return text;
  }

  bool isSpace(const AcDbStub& block) const { return &block == db_.modelSpace() || &block == db_.paperSpace(); }
  static bool isNew(const AcDbStub& stub) {
    return !stub.is(AcDbStub::kErased) &&
           (stub.is(AcDbStub::kNew) || (stub.is(AcDbStub::kVirtual) && stub.is(AcDbStub::kChanged)));
  }

  void insert(Section section, const std::string& text) {
    if (text.empty()) return;
    if (const auto& place = layout_.place(section)) edits_.push_back({place->end, 0, text});
    else missing_[static_cast<std::size_t>(section)] += text;
  }

  // A missing section is inserted before the first existing one that comes later in the order of sections.
  void missingSections() {
    for (std::size_t i = 0; i < missing_.size(); ++i) {
      if (missing_[i].empty()) continue;
      std::size_t place = layout_.fileEnd;
      for (std::size_t later = i + 1; later < missing_.size(); ++later)
        if (layout_.sections[later]) place = std::min(place, layout_.sections[later]->begin);
      std::string text;
      appendSection(text, kSectionNames[i], missing_[i], layout_.style);
      edits_.push_back({place, 0, std::move(text)});
    }
  }

  std::string record(const AcDbStub& stub) const {
    checkInterruption();
    std::string text;
    appendRecord(text, const_cast<AcDbStub&>(stub), layout_);
    return text;
  }

  AcDbImpDatabase& db_;
  const FileLayout& layout_;
  std::vector<Edit> edits_;
  std::array<std::string, 6> missing_;
};

}  // namespace

void write(AcDbDatabase& database, const Sink& sink) { Writer(database).write(sink); }

}  // namespace atelier::dxf
