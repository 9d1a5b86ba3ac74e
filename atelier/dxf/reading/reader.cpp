// The first pass over a drawing file.
// A record runs from one group 0 to the next; only its type, handle, owner, name and space are read here.
#include "atelier/dxf/reading/reader.h"

#include <algorithm>
#include <utility>

#include "atelier/base/interruption.h"
#include "atelier/dxf/groups/record_head.h"
#include "atelier/dxf/reading/parsed_records.h"
#include "atelier/dxf/reading/structure.h"

namespace atelier::dxf {

Section sectionNamed(std::string_view name) {
  const auto it = std::find(kSectionNames.begin(), kSectionNames.end(), name);
  return static_cast<Section>(it - kSectionNames.begin());
}

namespace {

class Reader {
 public:
  Reader(AcDbDatabase& database, const std::string& name, FileLayout& layout, std::vector<std::string>* messages)
      : db_(AcDbImpDatabase::of(&database)),
        layout_(layout),
        faults_(name, layout, messages),
        structure_(db_, layout),
        pass_(layout, faults_) {}

  void read() {
    // A coarse guess: about 220 bytes a record.
    db_.reserve(layout_.bytes.size() / 220 + 64);
    firstSection();
    while (pass_.more() && !pass_.isRecord("EOF")) section();
    layout_.fileEnd = pass_.place();
    if (!pass_.more()) {
      faults_.report(layout_.fileEnd, "fichier coupé: \"0 EOF\" manque");
      layout_.endMissing = true;
    }
    if (!anySection_) faults_.stop(0, "aucune section lisible");
    if (!db_.header.has("$ACADVER") && pass_.sawMarks()) layout_.version = kR2000;
    structure_.finish();
  }

 private:
  using Take = void (Reader::*)(const RecordHead&);

  // A file that doesn't begin with a section is recovered only if a section follows later.
  void firstSection() {
    const std::size_t begin = firstGroup(layout_.bytes, layout_.style.encoding);
    const std::string reason = "ce n'est pas un dessin DXF: \"0 SECTION\" attendu";
    if (layout_.bytes.find("SECTION") == std::string_view::npos) faults_.refuse(begin, reason);
    if (!faults_.recovering()) {
      try {
        Scanner scanner(layout_.bytes, layout_.style.encoding, begin, layout_.bytes.size());
        RawGroup group;
        do {
          if (!scanner.next(group)) faults_.stop(begin, reason);
        } while (group.code == 999);
        if (group.code != 0 || group.value != "SECTION") faults_.stop(group.begin, reason);
      } catch (const FormatError& error) {
        faults_.stop(error.offset, reason);
      }
    }
    pass_.step();
    pass_.skipComments();
    while (pass_.more() && !pass_.isRecord("SECTION")) pass_.step();
    if (!pass_.more()) faults_.stop(begin, reason);
    if (pass_.group().begin > begin && faults_.recovering()) leaveOutBefore(begin);
  }

  void leaveOutBefore(std::size_t begin) {
    const std::string_view skipped = layout_.bytes.substr(begin, pass_.group().begin - begin);
    if (!trimmed(skipped).starts_with("999")) faults_.leaveOut(begin, pass_.group().begin);
  }

  void section() {
    const std::size_t begin = pass_.group().begin;
    if (!pass_.isRecord("SECTION")) {
      faults_.report(begin, "\"0 SECTION\" attendu, trouvé \"" + std::string(pass_.group().value) + "\"");
      while (pass_.more() && !pass_.isRecord("SECTION") && !pass_.isRecord("EOF")) pass_.step();
      faults_.leaveOut(begin, pass_.place());
      return;
    }
    pass_.step();
    pass_.skipComments();
    if (!pass_.more() || pass_.group().code != 2) {
      faults_.report(pass_.place(), "nom de section (groupe 2) attendu");
      while (pass_.more() && pass_.group().code != 0) pass_.step();
      faults_.leaveOut(begin, pass_.place());
      return;
    }
    const std::string_view name = pass_.group().value;
    pass_.step();
    const Section kind = sectionNamed(name);
    contents(kind);
    endSection(kind, name, begin);
  }

  void contents(Section kind) {
    switch (kind) {
      case Section::header: header(); break;
      case Section::tables: records(&Reader::tableRecord, false); break;
      case Section::blocks: records(&Reader::blockRecord, true); break;
      case Section::entities: records(&Reader::spaceEntity, true); break;
      case Section::objects: records(&Reader::objectRecord, false); break;
      default:
        while (!sectionEnds()) pass_.step();
    }
  }

  // A section also ends where its end mark is missing.
  bool sectionEnds() const {
    return !pass_.more() || pass_.isRecord("ENDSEC") || pass_.isRecord("SECTION") || pass_.isRecord("EOF");
  }

  void endSection(Section kind, std::string_view name, std::size_t begin) {
    const std::size_t end = pass_.place();
    anySection_ = true;
    if (kind == Section::other) layout_.carried.push_back({std::string(name), {begin, end}});
    if (name == "ACDSDATA") layout_.solids = {begin, end};
    if (kind != Section::other && !layout_.place(kind)) layout_.sections[static_cast<std::size_t>(kind)] = {begin, end};
    if (!pass_.isRecord("ENDSEC") || !pass_.more()) {
      faults_.report(end, std::string(pass_.more() ? "" : "fichier coupé: ") + "\"0 ENDSEC\" de la section " +
                              std::string(name) + " manque");
      faults_.putIn(end, {Group::text(0, "ENDSEC")});
      return;
    }
    pass_.step();
    pass_.skipComments();
  }

  void header() {
    HeaderVariables::Variable* open = nullptr;
    for (; pass_.more() && pass_.group().code != 0; pass_.step()) {
      const RawGroup& raw = pass_.group();
      if (raw.code == 9) {
        db_.header.add({std::string(raw.value), {}});
        open = &db_.header.list.back();
        open->offset = pass_.offset();
      } else if (open && raw.code != 999) {
        if (open->values.empty()) open->offset = raw.begin;
        open->values.push_back(decode(raw, layout_.style.encoding, layout_.style.codePage));
        open->length = pass_.offset() - open->offset;
        if (open->name == "$ACADVER" || open->name == "$DWGCODEPAGE") setVersion();
      }
    }
  }

  void setVersion() {
    layout_.version = db_.header.text("$ACADVER", "AC1009");
    layout_.style.codePage =
        layout_.atLeast(kR2007) ? CodePage::utf8() : CodePage::named(db_.header.text("$DWGCODEPAGE", ""));
    db_.codePage = layout_.style.codePage;
  }

  AcDbStub& stub(const RecordHead& h, AcDbStub* owner) {
    AcDbStub& made = db_.addStub(h.handle, h.type, owner);
    made.offset = h.begin;
    made.length = static_cast<std::uint32_t>(h.end - h.begin);
    // A damaged record is written again from what could be read of it.
    if (h.damaged) made.set(AcDbStub::kChanged);
    if (h.handle == 0) structure_.noteHandleless(made);
    else layout_.hasHandles = true;
    return made;
  }

  // Incomplete entities are left out, since they would be drawn wrong.
  void records(Take take, bool entities) {
    pass_.skipComments();
    while (!sectionEnds()) {
      checkInterruption();
      if (pass_.group().code != 0)
        faults_.stop(pass_.group().begin, "groupe 0 attendu, trouvé le groupe " + std::to_string(pass_.group().code));
      const RecordHead h = pass_.head();
      if (h.damaged && entities && h.type != "BLOCK" && h.type != "ENDBLK")
        refuse(h, "entité " + std::string(h.type) + " incomplète");
      else (this->*take)(h);
    }
    parent_ = nullptr;
    table_ = nullptr;
    if (block_) structure_.closeBlock(*std::exchange(block_, nullptr), nullptr);
  }

  void refuse(const RecordHead& h, const std::string& message) {
    faults_.report(h.begin, message + (faults_.recovering() ? ": laissée de côté" : ""));
    faults_.leaveOut(h.begin, h.end);
  }

  void tableRecord(const RecordHead& h) {
    if (h.type == "TABLE") {
      table_ = &stub(h, nullptr);
      db_.setTable(textOf(h.name), *table_);
    } else if (h.type == "ENDTAB") {
      if (table_) layout_.tableEnd[table_] = h.begin;
      table_ = nullptr;
      if (h.damaged) {
        faults_.leaveOut(h.begin, h.end);
        faults_.putIn(h.begin, {Group::text(0, "ENDTAB")});
      }
    } else if (table_) {
      table_->children->push_back(&stub(h, table_));
      structure_.noteTableRecord(h.type, h.name);
    } else {
      refuse(h, "définition " + std::string(h.type) + " hors d'une table");
    }
  }

  void blockRecord(const RecordHead& h) {
    if (h.type == "BLOCK") {
      AcDbStub& begin = stub(h, nullptr);
      begin.set(AcDbStub::kEntity);
      block_ = &structure_.openBlock(begin, h.owner, textOf(h.name));
      parent_ = nullptr;
    } else if (h.type == "ENDBLK" && block_) {
      AcDbStub& end = stub(h, block_);
      end.set(AcDbStub::kEntity);
      structure_.closeBlock(*block_, &end);
      block_ = nullptr;
    } else if (block_ && h.type != "ENDBLK") {
      entity(h, *block_);
    } else {
      refuse(h, "entité " + std::string(h.type) + " hors d'un bloc");
    }
  }

  void spaceEntity(const RecordHead& h) { entity(h, structure_.spaceOf(h.owner, h.paperSpace)); }

  // Attributes, vertices and their end mark belong to the entity before them.
  void entity(const RecordHead& h, AcDbStub& block) {
    const bool ends = h.type == "SEQEND";
    const bool follows = ends || h.type == "VERTEX" || h.type == "ATTRIB";
    AcDbStub& owner = follows && parent_ ? *parent_ : block;
    AcDbStub& made = stub(h, &owner);
    made.set(AcDbStub::kEntity);
    if (&owner == parent_) {
      if (!owner.children) owner.children = std::make_unique<std::vector<AcDbStub*>>();
      owner.children->push_back(&made);
      if (ends) parent_ = nullptr;
    } else {
      block.children->push_back(&made);
      parent_ = h.type == "INSERT" || h.type == "POLYLINE" ? &made : nullptr;
    }
  }

  void objectRecord(const RecordHead& h) {
    AcDbStub& made = stub(h, h.owner ? db_.stubOf(h.owner) : nullptr);
    if (!made.owner && h.owner) structure_.noteOwner(made, h.owner);
    db_.objects.push_back(&made);
    if (h.type == "DICTIONARY") structure_.noteDictionary(made, h.owner);
  }

  std::string textOf(std::string_view bytes) const { return textFromFile(layout_.style.codePage.decode(bytes)); }

  AcDbImpDatabase& db_;
  FileLayout& layout_;
  const Faults faults_;
  Structure structure_;
  GroupPass pass_;
  bool anySection_ = false;
  AcDbStub* table_ = nullptr;
  AcDbStub* block_ = nullptr;
  AcDbStub* parent_ = nullptr;  // the insert or polyline whose attributes or vertices follow
};

}  // namespace

void readBytes(AcDbDatabase& database, const std::string& name, std::string_view bytes,
               std::shared_ptr<const MappedFile> file, std::vector<std::string>* messages) {
  auto layout = std::make_shared<FileLayout>();
  layout->file = std::move(file);
  layout->bytes = bytes;
  layout->version = kR12;
  layout->style.encoding = encodingOf(bytes);
  if (bytes.substr(0, 4096).find("\r\n") != bytes.npos) layout->style.lineEnd = "\r\n";
  layout->style.codePage = CodePage::named("ANSI_1252");
  AcDbImpDatabase& db = AcDbImpDatabase::of(&database);
  db.codePage = layout->style.codePage;
  db.source = std::make_shared<ParsedRecords>(layout);
  db.layout = layout;
  Reader(database, name, *layout, messages).read();
}

void readFile(AcDbDatabase& database, const std::string& path) {
  auto file = std::make_shared<const MappedFile>(path);
  AcDbImpDatabase::of(&database).path = path;
  readBytes(database, path, file->bytes(), file);
}

void readFileRecovering(AcDbDatabase& database, const std::string& path, std::vector<std::string>& messages) {
  auto file = std::make_shared<const MappedFile>(path);
  AcDbImpDatabase& db = AcDbImpDatabase::of(&database);
  db.path = path;
  const std::size_t before = messages.size();
  readBytes(database, path, file->bytes(), file, &messages);
  if (messages.size() > before) db.recoveredFrom = path;
}

}  // namespace atelier::dxf
