// Writes a whole drawing in a given version.
// Objects that the version doesn't know count as erased while the drawing is written, so that lists omit them, too.
#include "atelier/dxf/versions/export.h"

#include <map>

#include "atelier/base/interruption.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/versions/flat_polyline.h"
#include "atelier/dxf/versions/flat_viewport.h"
#include "atelier/dxf/versions/modern_text.h"
#include "atelier/dxf/versions/versions.h"
#include "atelier/dxf/writing/record_text.h"
#include "atelier/dxf/writing/replaced_file.h"
#include "atelier/dxf/writing/writer.h"

namespace atelier::dxf {
namespace {

class Exporter {
 public:
  Exporter(AcDbDatabase& database, std::string_view version, bool binary)
      : db_(AcDbImpDatabase::of(&database)), source_(*std::static_pointer_cast<FileLayout>(db_.layout)) {
    target_.version = version;
    older_ = target_.version < source_.version;
    target_.style.encoding = !binary ? Encoding::ascii : version <= kR12 ? Encoding::binaryOld : Encoding::binary;
    target_.style.lineEnd = source_.style.lineEnd;
    target_.style.codePage =
        version >= kR2007 ? CodePage::utf8() : CodePage::named(db_.header.text("$DWGCODEPAGE", "ANSI_1252"));
    sameText_ = target_.style.codePage == source_.style.codePage && target_.style.encoding == source_.style.encoding;
    hideUnknown();
  }
  ~Exporter() {
    for (AcDbStub* stub : hidden_) stub->set(AcDbStub::kErased, false);
  }
  Exporter(const Exporter&) = delete;
  Exporter& operator=(const Exporter&) = delete;

  void write(ReplacedFile& file) {
    if (target_.style.encoding != Encoding::ascii) file.write(kBinarySentinel);
    section(file, "HEADER", [&] { header(); });
    if (!isR12())
      section(file, "CLASSES", [&] {
        if (const auto& classes = source_.place(Section::classes)) carried("CLASSES", *classes);
      });
    section(file, "TABLES", [&] { tables(); });
    section(file, "BLOCKS", [&] { blocks(file); });
    section(file, "ENTITIES", [&] {
      if (AcDbStub* space = db_.modelSpace()) contents(*space, file);
      if (AcDbStub* space = db_.paperSpace()) contents(*space, file);
    });
    if (!isR12()) {
      section(file, "OBJECTS", [&] {
        for (AcDbStub* stub : db_.objects) record(*stub);
      });
      // ACDSDATA holds the solids of R2013 and later.
      for (const FileLayout::Carried& part : source_.carried)
        if (part.name != "ACDSDATA" || target_.atLeast("AC1027"))
          section(file, part.name, [&] { carried(part.name, part.place); });
    }
    put(Group::text(0, "EOF"));
    file.write(text_);
  }

  std::vector<std::string> notes() const {
    std::vector<std::string> lines;
    for (const auto& [type, count] : leftOut_)
      lines.push_back(std::to_string(count) + " " + type +
                      (count > 1 ? " laissés de côté: inconnus" : " laissé de côté: inconnu") + " de cette version");
    return lines;
  }

 private:
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
    if (viewport.integer(integerField("AcDbViewport", 90)) & kOutlined) ++leftOut_["contour de VIEWPORT"];
    for (const Group& group : asOldViewport(viewport, frozen)) put(group);
  }

  void hideUnknown() {
    if (!older_) return;
    for (const AcDbStub& stub : db_.stubs()) {
      if (stub.is(AcDbStub::kErased)) continue;
      const std::string_view type = db_.typeName(stub);
      const bool object =
          !stub.is(AcDbStub::kEntity) && (!stub.owner || db_.typeName(*stub.owner) != "TABLE") && type != "TABLE";
      if (type == "ENDTAB" || type == "BLOCK_RECORD" || (isR12() && (type == "LWPOLYLINE" || object))) continue;
      if (isR12() && isWindow(stub)) continue;
      if (knowsType(target_.version, type)) continue;
      ++leftOut_[std::string(type)];
      hidden_.push_back(const_cast<AcDbStub*>(&stub));
    }
    if (isR12() && source_.atLeast(kR13) && !db_.objects.empty())
      leftOut_["OBJECTS"] = static_cast<int>(db_.objects.size());
    for (AcDbStub* stub : hidden_) stub->set(AcDbStub::kErased);
  }

  // Values keep their spelling; texts only when their bytes mean the same in the target.
  void put(Group group) {
    const bool number = kindOfCode(group.code()) != GroupKind::text && kindOfCode(group.code()) != GroupKind::binary;
    if (!sameText_ &&
        !(number && target_.style.encoding == Encoding::ascii && source_.style.encoding == Encoding::ascii))
      group.from({});
    append(text_, group, target_.style);
  }

  template <class FILL>
  void section(ReplacedFile& file, std::string_view name, FILL fill) {
    put(Group::text(0, "SECTION"));
    put(Group::text(2, std::string(name)));
    fill();
    put(Group::text(0, "ENDSEC"));
    file.write(text_);
    text_.clear();
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

  // A section that is not modelled: its groups as they were read.
  void carried(std::string_view name, const FileLayout::Place& place) {
    Scanner scanner(source_.bytes, source_.style.encoding, place.begin, place.end);
    bool inside = false, counted = true;
    // The count comes before the two flags; a class without a count gets it at its end, where readers accept it, too.
    const auto endClass = [&] {
      if (!counted && target_.atLeast("AC1018")) put(Group::integer(91, 0));
    };
    for (RawGroup raw; nextWhole(scanner, raw);) {
      if (!inside) {
        inside = raw.code == 2;
        continue;
      }
      if (raw.code == 0) {
        endClass();
        counted = raw.value != "CLASS";
      }
      counted |= raw.code == 91;
      if (raw.code != 999 && (name != "CLASSES" || !older_ || knowsGroup(target_.version, "CLASS", "", raw.code)))
        put(decode(raw, source_.style.encoding, source_.style.codePage));
    }
    endClass();
  }

  // Skips damaged groups: reading has reported them.
  static bool nextWhole(Scanner& scanner, RawGroup& raw) {
    for (;;) {
      try {
        return scanner.next(raw);
      } catch (const FormatError& error) {
        scanner.resume(error.offset);
      }
    }
  }

  void tables() {
    for (const auto& [name, head] : db_.tables()) {
      if (isR12() && name == "BLOCK_RECORD") continue;
      record(*head);
      for (AcDbStub* child : *head->children) record(*child);
      put(Group::text(0, "ENDTAB"));
    }
  }

  void blocks(ReplacedFile& file) {
    AcDbStub* head = db_.table("BLOCK_RECORD");
    for (AcDbStub* block : head ? *head->children : std::vector<AcDbStub*>()) {
      const auto ends = db_.blockEnds.find(block);
      if (block->is(AcDbStub::kErased) || ends == db_.blockEnds.end() || !ends->second.begin || !ends->second.end)
        continue;
      const bool space = block == db_.modelSpace() || block == db_.paperSpace();
      if (isR12() && db_.recordName(*block).starts_with("*Paper_Space")) continue;
      if (isR12() && space) continue;
      record(*ends->second.begin);
      if (!space) contents(*block, file);
      record(*ends->second.end);
    }
  }

  void contents(const AcDbStub& block, ReplacedFile& file) {
    if (!block.children) return;
    for (AcDbStub* child : *block.children) {
      if (isR12() && db_.typeName(*child) == "LWPOLYLINE" && !child->is(AcDbStub::kErased)) {
        for (const Group& group : asOldPolyline(AcDbImpObject::of(&db_.object(*child)).settled())) put(group);
        continue;
      }
      if (isR12() && older_ && !child->is(AcDbStub::kErased) && isWindow(*child)) {
        window(*child);
        continue;
      }
      record(*child);
      if (child->children && !child->is(AcDbStub::kErased))
        for (AcDbStub* follower : *child->children) record(*follower);
      if (text_.size() > (1u << 20)) {
        file.write(text_);
        text_.clear();
      }
    }
  }

  void record(AcDbStub& stub) {
    checkInterruption();
    if (stub.is(AcDbStub::kErased)) return;
    const std::string type(db_.typeName(stub));
    bool braces = false, embedded = false;
    visitGroups(stub, target_, [&](const Group& group, std::string_view section) {
      const int code = group.code();
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
  FileLayout target_;
  bool sameText_ = false;
  bool older_ = false;  // than the drawing: only then can something be unknown
  std::string text_;
  std::vector<AcDbStub*> hidden_;
  std::map<std::string, int> leftOut_;
};

}  // namespace

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
  Exporter exporter(database, version, binary);
  ReplacedFile file(path);
  exporter.write(file);
  file.keep();
  return exporter.notes();
}

}  // namespace atelier::dxf
