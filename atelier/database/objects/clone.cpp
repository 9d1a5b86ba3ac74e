// Deep clones within a database and between databases, and inserting a drawing as a block.
// References are handles, so a clone is a copy of groups with the handles of what was cloned translated.
#include "atelier/database/objects/clone.h"

#include <unordered_map>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/cloned_groups.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/objects/ownership.h"
#include "hote/dbdict.h"
#include "hote/dbsymtb.h"

using namespace atelier;

struct AcDbIdMapping::Pairs {
  std::unordered_map<AcDbStub*, AcDbStub*> map;
};
AcDbIdMapping::AcDbIdMapping() : mPairs(new Pairs) {}
AcDbIdMapping::~AcDbIdMapping() { delete mPairs; }
bool AcDbIdMapping::assign(const AcDbIdPair& pair) {
  mPairs->map[pair.key()] = pair.value();
  return true;
}
bool AcDbIdMapping::compute(AcDbIdPair& pair) const {
  const auto it = mPairs->map.find(pair.key());
  if (it == mPairs->map.end()) return false;
  pair = AcDbIdPair(pair.key(), idOf(it->second), true);
  return true;
}

namespace {

class Cloner {
 public:
  explicit Cloner(AcDbImpDatabase& target) : target_(target) {}

  AcDbStub& clone(AcDbStub& source, AcDbStub& owner) {
    AcDbObject& original = source.database->object(source);
    Record copy = AcDbImpObject::of(&original).settled();
    removeBraces(copy, kReactors);
    for (Group& group : copy.groups) group.from({});
    if (source.is(AcDbStub::kEntity) && source.database != &target_) nameTables(copy, source);
    else if (source.is(AcDbStub::kEntity)) ownDimensionBlock(copy, source);
    ParsedRecord parsed(std::move(copy));
    AcDbObject* made = makeObjectForPending(source.is(AcDbStub::kEntity));
    AcDbStub& stub = target_.adopt(*made, owner);
    made->close();
    map_[&source] = &stub;
    made_.push_back({&source, &stub});
    if (source.children) {
      stub.children = std::make_unique<std::vector<AcDbStub*>>();
      for (AcDbStub* child : *source.children)
        if (!child->is(AcDbStub::kErased)) stub.children->push_back(&clone(*child, stub));
    }
    // The object is asked for again: parsing many children may have dropped it from memory.
    for (const std::uint64_t handle : ownedHandles(AcDbImpObject::of(&source.database->object(source)).record)) {
      AcDbStub* owned = source.database->stubOf(handle);
      if (owned && owned->owner == &source && !owned->is(AcDbStub::kErased) && !map_.contains(owned))
        target_.objects.push_back(&clone(*owned, stub));
    }
    return stub;
  }

  // References to cloned objects then lead to the clones. Other references are kept within the same drawing and removed
  // in another one.
  void translate(const AcDbImpDatabase& from) {
    for (const Made& made : made_) {
      checkInterruption();
      const AcDbStub* stub = made.copy;
      Record& record = AcDbImpObject::of(stub->object).record;
      for (Group& group : record.groups) {
        const int code = group.code();
        const bool reference =
            (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 1005 || code == 480 || code == 481;
        if (!reference || group.handle() == 0) continue;
        const auto it = map_.find(made.source->database->stubOf(group.handle()));
        if (it != map_.end()) group = Group::handle(code, it->second->handle);
        else if (&from != &target_) group = Group::handle(code, 0);
      }
      keepReactors(*made.source, record);
      // The owner is set again, because its handle was translated as if it came from the source drawing.
      if (stub->owner) record.setOwner(stub->owner->handle);
      if (&from != &target_) removeEmptyExtension(record);
    }
  }

  const CloneMap& map() const { return map_; }

  // Makes the copies, in the order of the sources, as children of the owner.
  std::vector<AcDbStub*> cloneInto(AcDbImpDatabase& from, const std::vector<AcDbStub*>& sources, AcDbStub& owner) {
    std::vector<AcDbStub*> copies;
    for (AcDbStub* source : sources) {
      checkInterruption();
      AcDbStub& copy = clone(*source, owner);
      (copy.is(AcDbStub::kEntity) && owner.children ? *owner.children : target_.objects).push_back(&copy);
      markSpace(copy);
      copies.push_back(&copy);
    }
    finish(from);
    return copies;
  }

  // The groups of what was copied, then the references.
  void finish(AcDbImpDatabase& from) {
    std::vector<AcDbStub*> groups;
    for (AcDbStub* group : wholeGroups(from, map_)) groups.push_back(&clone(*group, groupDictionary(target_)));
    translate(from);
    for (AcDbStub* group : groups) enterGroup(*group);
  }

 private:
  // Only an entity of the paper space says in which space it stands.
  void markSpace(AcDbStub& entity) const {
    if (!entity.is(AcDbStub::kEntity)) return;
    const Field inPaper = integerField("AcDbEntity", 67);
    Record& record = AcDbImpObject::of(entity.object).record;
    if (entity.owner && isPaperSpace(*entity.owner)) record.setInteger(inPaper, 1);
    else record.remove(inPaper);
  }

  // A copy has those reactors of its original that were copied too.
  void keepReactors(AcDbStub& source, Record& record) const {
    const Record& original = AcDbImpObject::of(&source.database->object(source)).record;
    const auto bounds = original.braces(kReactors);
    for (std::size_t i = bounds ? bounds->first : 0; bounds && i < bounds->second; ++i)
      if (const auto it = map_.find(source.database->stubOf(original.groups[i].handle())); it != map_.end())
        addToBraces(record, kReactors, original.groups[i].code(), it->second->handle);
  }

  static void removeEmptyExtension(Record& record) {
    const auto bounds = record.braces(kExtension);
    if (bounds && bounds->first < bounds->second && record.groups[bounds->first].handle() == 0)
      removeBraces(record, kExtension);
  }

  // Layers, styles, line types, applications and blocks are referred to by name; those that the target lacks are copied.
  void nameTables(Record& record, AcDbStub& source) {
    for (const Group& group : record.groups) {
      if (group.code() == 8) need("LAYER", group.text(), source);
      else if (group.code() == 6) need("LTYPE", group.text(), source);
      else if (group.code() == 7) need("STYLE", group.text(), source);
      else if (group.code() == 1001) need("APPID", group.text(), source);
    }
    if (record.type() == "INSERT") nameBlock(record, textField("AcDbBlockReference", 2), source);
    if (record.type() == "ACAD_TABLE") nameBlock(record, textField("AcDbBlockReference", 2), source);
    ownDimensionBlock(record, source);
  }

  // A dimension is shown by a block of its own, which moves with it.
  void ownDimensionBlock(Record& record, AcDbStub& source) {
    const Field block = textField("AcDbDimension", 2);
    if (record.has(block)) nameBlock(record, block, source);
  }

  // An anonymous block of the target has the same name by chance only: the copy's block gets a free one.
  void nameBlock(Record& record, const Field& field, AcDbStub& source) {
    const std::string name = record.text(field);
    AcDbStub* original = source.database->tableRecord("BLOCK_RECORD", name);
    AcDbStub* head = target_.table("BLOCK_RECORD");
    const bool anonymous = name.size() > 2 && name[0] == '*' && isDigit(name[2]);
    if (!anonymous || !original || !head) {
      need("BLOCK_RECORD", name, source);
      return;
    }
    const auto known = map_.find(original);
    AcDbStub& block = known != map_.end() ? *known->second : cloneBlock(*original, *head, anonymousPrefix(name));
    record.setText(field, target_.recordName(block));
  }

  static bool isDigit(char c) { return c >= '0' && c <= '9'; }
  static std::string anonymousPrefix(const std::string& name) {
    const std::string prefix = name.substr(0, 2);
    return prefix == "*D" || prefix == "*X" || prefix == "*T" ? prefix : "*U";
  }

  // References to a record lead to the target's record of that name.
  void need(std::string_view table, const std::string& name, AcDbStub& source) {
    AcDbStub* original = name.empty() ? nullptr : source.database->tableRecord(table, name);
    AcDbStub* head = target_.table(table);
    if (!original || !head || map_.contains(original)) return;
    if (AcDbStub* present = target_.tableRecord(table, name)) {
      map_[original] = present;
      return;
    }
    if (table == "BLOCK_RECORD") {
      cloneBlock(*original, *head, name);
      return;
    }
    head->children->push_back(&clone(*original, *head));
    target_.forgetTableIndex();
    if (table == "LAYER")
      need("LTYPE", AcDbImpObject::of(original->object).record.text(textField("AcDbLayerTableRecord", 6)), *original);
  }

 public:
  // The copies made so far don't have their references yet: they are erased.
  void checkInterruption() {
    try {
      atelier::checkInterruption();
    } catch (...) {
      for (const Made& made : made_) made.copy->set(AcDbStub::kErased);
      for (AcDbStub* block : blocks_) eraseWithOwned(*block, true);
      target_.forgetTableIndex();
      throw;
    }
  }

  AcDbStub& cloneBlock(AcDbStub& original, AcDbStub& head, const std::string& name) {
    AcDbObjectId id;
    {
      auto* block = new AcDbBlockTableRecord;
      block->setName(toWide(name).c_str());
      const AcDbObjectPointer<AcDbBlockTableRecord> from(idOf(&original));
      if (from.openStatus() == Acad::eOk) {
        AcString comments;
        block->setOrigin(from->origin());
        from->comments(comments);
        block->setComments(comments.kACharPtr());
      }
      const AcDbObjectPointer<AcDbBlockTable> table(idOf(&head), AcDb::kForWrite);
      table->add(id, block);
      block->close();
    }
    AcDbStub& made = *static_cast<AcDbStub*>(id);
    map_[&original] = &made;
    blocks_.push_back(&made);
    for (AcDbStub* child : *original.children)
      if (!child->is(AcDbStub::kErased)) {
        checkInterruption();
        AcDbStub& copy = clone(*child, made);
        made.children->push_back(&copy);
        markSpace(copy);
      }
    return made;
  }

 private:
  AcDbImpDatabase& target_;
  struct Made {
    AcDbStub *source, *copy;
  };
  CloneMap map_;
  std::vector<Made> made_;
  std::vector<AcDbStub*> blocks_;
};

}  // namespace

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                                 AcDbIdMapping& mapping, bool) {
  AcDbStub* target = owner;
  if (!target) return Acad::eNullObjectId;
  std::vector<AcDbStub*> sources;
  for (const AcDbObjectId id : objects) {
    AcDbStub* source = id;
    if (!source || source->is(AcDbStub::kErased)) return source ? Acad::eWasErased : Acad::eNullObjectId;
    sources.push_back(source);
  }
  Cloner cloner(*target->database);
  cloner.cloneInto(*mpImp, sources, *target);
  for (const auto& [source, copy] : cloner.map()) mapping.assign(AcDbIdPair(idOf(source), idOf(copy), true));
  return Acad::eOk;
}

void atelier::cloneAll(AcDbImpDatabase& from, const std::vector<AcDbStub*>& sources, AcDbStub& owner,
                       const std::function<void(AcDbEntity&)>& place) {
  Cloner cloner(*owner.database);
  for (AcDbStub* copy : cloner.cloneInto(from, sources, owner)) {
    cloner.checkInterruption();
    const AcDbEntityPointer entity(idOf(copy), AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOk) place(*entity);
  }
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source, bool) {
  if (!source) return Acad::eNoDatabase;
  const std::string name = toUtf8(blockName);
  if (name.empty()) return Acad::eNullBlockName;
  AcDbStub* space = source->impDatabase()->modelSpace();
  if (!space) return Acad::eNullObjectId;
  if (mpImp->tableRecord("BLOCK_RECORD", name)) return Acad::eDuplicateRecordName;
  Cloner cloner(*mpImp);
  AcDbStub& made = cloner.cloneBlock(*space, *mpImp->table("BLOCK_RECORD"), name);
  cloner.finish(*source->impDatabase());
  // The base point of the drawing becomes the origin of the block.
  if (const auto* base = source->impDatabase()->header.find("$INSBASE"); base && base->values.size() >= 2) {
    const AcDbObjectPointer<AcDbBlockTableRecord> block(idOf(&made), AcDb::kForWrite);
    block->setOrigin(AcGePoint3d(base->values[0].real(), base->values[1].real(),
                                 base->values.size() > 2 ? base->values[2].real() : 0));
  }
  blockId = idOf(&made);
  return Acad::eOk;
}
