// Writes a whole drawing in a given version.
// Objects that the version doesn't know count as erased while the drawing is written, so that lists omit them, too.
#include "atelier/dxf/versions/export.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/versions/carried_section.h"
#include "atelier/dxf/versions/flat_polyline.h"
#include "atelier/dxf/versions/flat_viewport.h"
#include "atelier/dxf/versions/group_writer.h"
#include "atelier/dxf/versions/left_out.h"
#include "atelier/dxf/versions/modern_text.h"
#include "atelier/dxf/versions/old_form.h"
#include "atelier/dxf/versions/versions.h"
#include "atelier/dxf/writing/record_text.h"
#include "atelier/dxf/writing/references.h"
#include "atelier/dxf/writing/replaced_file.h"
#include "atelier/dxf/writing/writer.h"

namespace atelier::dxf {
namespace {

class Exporter {
 public:
  Exporter(AcDbDatabase& database, std::string_view version, bool binary, ReplacedFile& file)
      : db_(AcDbImpDatabase::of(&database)),
        source_(*std::static_pointer_cast<FileLayout>(db_.layout)),
        target_(targetOf(version, binary)),
        older_(target_.version < source_.version),
        leftOut_(db_),
        out_(file, source_.style, target_.style) {
    hideUnknown();
  }

  void write() {
    section("HEADER", [&] { header(); });
    if (!isR12())
      section("CLASSES", [&] {
        if (const auto& classes = source_.place(Section::classes))
          putCarried(out_, source_, target_, "CLASSES", *classes);
      });
    section("TABLES", [&] { tables(); });
    section("BLOCKS", [&] { blocks(); });
    section("ENTITIES", [&] {
      if (AcDbStub* space = db_.modelSpace()) contents(*space);
      if (AcDbStub* space = db_.paperSpace()) contents(*space);
    });
    if (!isR12()) {
      section("OBJECTS", [&] {
        for (AcDbStub* stub : db_.objects) record(*stub);
      });
      // ACDSDATA holds the solids of R2013 and later.
      for (const FileLayout::Carried& part : source_.carried)
        if (part.name != "ACDSDATA" || target_.atLeast("AC1027"))
          section(part.name, [&] { putCarried(out_, source_, target_, part.name, part.place); });
    }
    put(Group::text(0, "EOF"));
    out_.flush();
  }

  std::vector<std::string> notes() const { return leftOut_.notes(); }

 private:
  FileLayout targetOf(std::string_view version, bool binary) const {
    FileLayout target;
    target.version = version;
    target.style.encoding = !binary ? Encoding::ascii : version <= kR12 ? Encoding::binaryOld : Encoding::binary;
    target.style.lineEnd = source_.style.lineEnd;
    target.style.codePage =
        version >= kR2007 ? CodePage::utf8() : CodePage::named(db_.header.text("$DWGCODEPAGE", "ANSI_1252"));
    return target;
  }

  bool isR12() const { return !target_.atLeast(kR13); }

  // Of the one layout that R12 has.
  bool isWindow(const AcDbStub& stub) const {
    return stub.owner && stub.owner == db_.paperSpace() && db_.typeName(stub) == "VIEWPORT";
  }

  void window(AcDbStub& stub) {
    const Record& viewport = AcDbImpObject::of(&db_.object(stub)).settled();
    std::vector<std::string> frozen;
    for (const Group& group : viewport.groups)
      if (AcDbStub* layer = group.code() == 331 || group.code() == 341 ? db_.stubOf(group.handle()) : nullptr)
        frozen.push_back(db_.recordName(*layer));
    constexpr std::int64_t kOutlined = 65536;
    if (viewport.integer(integerField("AcDbViewport", 90)) & kOutlined) leftOut_.count("contour de VIEWPORT");
    for (const Group& group : asOldViewport(viewport, frozen)) put(group);
  }

  void hideUnknown() {
    if (!older_) return;
    std::vector<AcDbStub*> unknown;
    for (const AcDbStub& stub : db_.stubs())
      if (!stub.is(AcDbStub::kErased) && !known(stub)) unknown.push_back(const_cast<AcDbStub*>(&stub));
    for (AcDbStub* stub : unknown) leftOut_.hide(*stub);
    if (isR12() && source_.atLeast(kR13)) leftOut_.countObjects();
  }

  // Whether the stub is written, perhaps in another form, or has no place of its own in the target anyway.
  bool known(const AcDbStub& stub) const {
    const std::string_view type = db_.typeName(stub);
    if (type == "ENDTAB" || type == "BLOCK_RECORD" || knowsType(target_.version, type)) return true;
    if (!isR12()) return false;
    const bool object =
        !stub.is(AcDbStub::kEntity) && (!stub.owner || db_.typeName(*stub.owner) != "TABLE") && type != "TABLE";
    return object || (stub.is(AcDbStub::kEntity) && type != "VIEWPORT") || isWindow(stub);
  }

  void put(const Group& group) { out_.put(group); }

  template <class FILL>
  void section(std::string_view name, FILL fill) {
    put(Group::text(0, "SECTION"));
    put(Group::text(2, std::string(name)));
    fill();
    put(Group::text(0, "ENDSEC"));
    out_.flush();
  }

  void header() {
    variable("$ACADVER", {Group::text(1, target_.version)});
    if (!db_.header.has("$DWGCODEPAGE") || equalNoCase(db_.header.text("$DWGCODEPAGE", ""), "UTF-8"))
      variable("$DWGCODEPAGE", {Group::text(3, "ANSI_1252")});
    for (const HeaderVariables::Variable& v : db_.header.list) {
      const bool own = v.name == "$ACADVER" || v.name == "$HANDSEED" || v.name == "$ACADMAINTVER";
      if (!own && (!older_ || knowsVariable(target_.version, v.name))) variable(v.name, v.values);
    }
    variable("$HANDSEED", {Group::handle(5, db_.handleSeed())});
  }

  void variable(const std::string& name, const std::vector<Group>& values) {
    put(Group::text(9, name));
    for (const Group& value : values) put(value);
  }

  void tables() {
    for (const auto& [name, head] : db_.tables()) {
      if (isR12() && name == "BLOCK_RECORD") continue;
      record(*head);
      for (AcDbStub* child : *head->children) record(*child);
      put(Group::text(0, "ENDTAB"));
    }
  }

  void blocks() {
    AcDbStub* head = db_.table("BLOCK_RECORD");
    for (AcDbStub* block : head ? *head->children : std::vector<AcDbStub*>()) {
      const auto ends = db_.blockEnds.find(block);
      if (block->is(AcDbStub::kErased) || ends == db_.blockEnds.end() || !ends->second.begin || !ends->second.end)
        continue;
      const bool space = block == db_.modelSpace() || block == db_.paperSpace();
      if (isR12() && space) continue;
      if (isR12() && db_.recordName(*block).starts_with("*Paper_Space")) {
        sheetAsBlock(*block);
        continue;
      }
      record(*ends->second.begin);
      if (!space) contents(*block);
      record(*ends->second.end);
    }
  }

  // R12 has one sheet. Another one that isn't empty becomes a block of its layout's name.
  void sheetAsBlock(AcDbStub& sheet) {
    const auto shown = [](const AcDbStub* stub) { return !stub->is(AcDbStub::kErased); };
    if (!sheet.children || std::ranges::none_of(*sheet.children, shown)) return;
    const std::string layout = layoutNameOf(sheet), name = symbolName(layout.empty() ? db_.recordName(sheet) : layout);
    for (const Group& group :
         {Group::text(0, "BLOCK"), Group::text(8, "0"), Group::text(2, name), Group::integer(70, 0), Group::real(10, 0),
          Group::real(20, 0), Group::real(30, 0), Group::text(3, name)})
      put(group);
    contents(sheet);
    put(Group::text(0, "ENDBLK"));
    put(Group::text(8, "0"));
    leftOut_.countSheet(name);
  }

  // A name that no block has yet, with the characters that R12 knows.
  std::string symbolName(std::string name) {
    for (char& c : name)
      if (!std::isalnum(static_cast<unsigned char>(c)) && c != '$' && c != '-') c = '_';
    while (db_.tableRecord("BLOCK_RECORD", name)) name += '_';
    return name;
  }

  // Writes an entity in a form that R12 has; false for one that it has itself.
  bool inOldForm(AcDbStub& stub) {
    if (!isR12() || stub.is(AcDbStub::kErased)) return false;
    const std::string type(db_.typeName(stub));
    if (type == "LWPOLYLINE") {
      for (const Group& group : asOldPolyline(AcDbImpObject::of(&db_.object(stub)).settled())) put(group);
    } else if (older_ && isWindow(stub)) {
      window(stub);
    } else if (older_ && !knowsType(kR12, type)) {
      const std::vector<Group> groups = oldForm() ? oldForm()(stub) : std::vector<Group>();
      for (const Group& group : groups) put(group);
      if (groups.empty()) leftOut_.count(type);
      else leftOut_.countChanged(type);
    } else {
      return false;
    }
    return true;
  }

  void contents(const AcDbStub& block) {
    if (!block.children) return;
    for (AcDbStub* child : *block.children) {
      if (inOldForm(*child)) continue;
      record(*child);
      if (child->children && !child->is(AcDbStub::kErased))
        for (AcDbStub* follower : *child->children) record(*follower);
      out_.flushLarge();
    }
  }

  void record(AcDbStub& stub) {
    checkInterruption();
    if (stub.is(AcDbStub::kErased)) return;
    const std::string type(db_.typeName(stub));
    bool braces = false, embedded = false;
    bool pair = false;  // the second group of an entry that is left out
    visitGroups(stub, target_, [&](const Group& group, std::string_view section) {
      const int code = group.code();
      if (std::exchange(pair, false)) return;
      if (code != 0 && isReference(code) && leftOut_.holds(db_.stubOf(group.handle()))) {
        pair = type == "SORTENTSTABLE" && code == 331;
        if (!pair) put(Group::handle(code, 0));
        return;
      }
      if (code == 102) braces = group.text().starts_with('{');
      if (isR12() && (braces || code == 102)) return;
      // Embedded objects (101) exist since R2018; they end at the extended data.
      embedded = (embedded || code == 101) && code < 1000;
      if (embedded && older_) return;
      if (code != 999 && (!older_ || braces || code == 102 || knowsGroup(target_.version, type, section, code)))
        put(group);
    });
  }

  AcDbImpDatabase& db_;
  const FileLayout& source_;
  const FileLayout target_;
  const bool older_;  // than the drawing: only then can something be unknown
  LeftOut leftOut_;
  GroupWriter out_;
};

}  // namespace

bool isBinary(const AcDbDatabase& database) {
  const auto layout = std::static_pointer_cast<FileLayout>(AcDbImpDatabase::of(&database).layout);
  return layout && layout->style.encoding != Encoding::ascii;
}

namespace {

std::vector<std::string> saveModern(AcDbDatabase& database, const std::string& path, std::string_view release,
                                    bool binary) {
  const ModernText modern = modernText(database);
  AcDbDatabase copy(false, true);
  readBytes(copy, AcDbImpDatabase::of(&database).path, modern.text, nullptr);
  std::vector<std::string> notes = saveAs(copy, path, release, binary);
  notes.insert(notes.end(), modern.lost.begin(), modern.lost.end());
  return notes;
}

}  // namespace

std::vector<std::string> saveAs(AcDbDatabase& database, const std::string& path, std::string_view release,
                                bool binary) {
  const std::string_view version = acadVersion(release);
  const auto layout = std::static_pointer_cast<FileLayout>(AcDbImpDatabase::of(&database).layout);
  if (version.empty()) throw Error("version de dessin inconnue: " + std::string(release));
  ATELIER_ASSERT(layout);
  refuseDamaged(database, path);
  if (!layout->atLeast(kR13) && version >= kR13) return saveModern(database, path, release, binary);
  ReplacedFile file(path);
  Exporter exporter(database, version, binary, file);
  exporter.write();
  file.keep();
  return exporter.notes();
}

}  // namespace atelier::dxf
