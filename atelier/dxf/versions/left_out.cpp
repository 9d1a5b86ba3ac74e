// XRECORDs are told by their names, since those say what is lost: programs keep their data in them.
#include "atelier/dxf/versions/left_out.h"

#include "atelier/database/objects/imp_object.h"
#include "atelier/database/objects/ownership.h"

namespace atelier::dxf {
namespace {

// The name under which the dictionary that owns it has an object; empty when none has.
std::string nameIn(AcDbImpDatabase& db, const AcDbStub& stub) {
  if (!stub.owner) return {};
  const Record& owner = AcDbImpObject::of(&db.object(*stub.owner)).record;
  std::string name;
  for (const Group& group : owner.groups) {
    if (group.code() == 3) name = group.text();
    else if (!name.empty() && group.handle() == stub.handle && stub.handle) return name;
    else name.clear();
  }
  return {};
}

std::string listed(const std::map<std::string, int>& counts) {
  std::string out;
  for (const auto& [what, count] : counts) out += (out.empty() ? "" : ", ") + std::to_string(count) + " " + what;
  return out;
}

}  // namespace

LeftOut::~LeftOut() {
  for (const AcDbStub* stub : hidden_) const_cast<AcDbStub*>(stub)->set(AcDbStub::kErased, false);
}

void LeftOut::hide(AcDbStub& stub) {
  if (stub.is(AcDbStub::kErased)) return;
  stub.set(AcDbStub::kErased);
  hidden_.insert(&stub);
  ++counts_[std::string(db_.typeName(stub))];
  if (stub.children)
    for (AcDbStub* child : *stub.children) hide(*child);
  for (const std::uint64_t handle : ownedHandles(AcDbImpObject::of(&db_.object(stub)).settled()))
    if (AcDbStub* owned = db_.stubOf(handle); owned && owned->owner == &stub) hide(*owned);
}

void LeftOut::countObjects() {
  for (AcDbStub* stub : db_.objects) {
    if (stub->is(AcDbStub::kErased)) continue;
    const std::string type(db_.typeName(*stub));
    const std::string name = type == "XRECORD" ? nameIn(db_, *stub) : std::string();
    ++(name.empty() ? objects_[type] : named_[name]);
  }
}

std::vector<std::string> LeftOut::notes() const {
  std::vector<std::string> lines;
  for (const auto& [type, count] : counts_)
    lines.push_back(std::to_string(count) + " " + type +
                    (count > 1 ? " laissés de côté: inconnus" : " laissé de côté: inconnu") + " de cette version");
  if (!changed_.empty())
    lines.push_back(listed(changed_) + ": écrits comme ils sont dessinés, en traits, aplats et textes");
  if (!objects_.empty())
    lines.push_back(listed(objects_) + ": laissés de côté, cette version n'a pas de section OBJECTS");
  if (!named_.empty()) lines.push_back(listed(named_) + ": données de programmes laissées de côté avec leurs XRECORD");
  for (const std::string& name : sheets_) lines.push_back("feuille écrite comme bloc " + name + ", sans ses fenêtres");
  return lines;
}

}  // namespace atelier::dxf
