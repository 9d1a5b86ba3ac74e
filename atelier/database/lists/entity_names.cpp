// The drawing by entity names and chains: the functions acdb... of the host.
// They use the same lists of groups as the AutoLISP functions.
#include "hote/acdb.h"

#include <algorithm>

#include "atelier/base/interruption.h"
#include "atelier/database/lists/entity_groups.h"
#include "atelier/database/lists/entity_walk.h"
#include "atelier/database/objects/chain.h"
#include "atelier/database/tables/symbol_names.h"
#include "hote/acut.h"
#include "hote/dbsymtb.h"

using namespace atelier;

namespace {

AcDbImpDatabase* working() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  return database ? database->impDatabase() : nullptr;
}

resbuf** lastLink(resbuf*& chain) {
  resbuf** link = &chain;
  while (*link) link = &(*link)->rbnext;
  return link;
}

std::vector<std::string> namesOf(const resbuf* applications) {
  std::vector<std::string> names;
  for (; applications; applications = applications->rbnext)
    if (applications->restype == 1001 || applications->restype == RTSTR) names.push_back(stringOf(*applications));
  return names;
}

}  // namespace

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
  checkInterruption();
  AcDbStub* stub = stubOfName(name);
  id = idOf(stub);
  return stub ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
  if (id.isNull()) return Acad::eNullObjectId;
  nameOf(id, name);
  return Acad::eOk;
}

int acdbHandEnt(const ACHAR* handle, ads_name entity) {
  // A caller may repeat this for ever, so the user can interrupt here.
  checkInterruption();
  AcDbImpDatabase* db = working();
  const AcDbHandle number(handle);
  AcDbStub* stub = db && !number.isNull() ? db->stubOf(number.value()) : nullptr;
  // An erased entity keeps its handle for the session: it can be named, and brought back.
  if (!stub) return RTERROR;
  nameOf(stub, entity);
  return RTNORM;
}

resbuf* acdbEntGetX(const ads_name entity, const resbuf* applications) {
  AcDbStub* stub = stubOfName(entity);
  if (!stub || stub->is(AcDbStub::kErased)) return nullptr;
  const std::vector<std::string> names = namesOf(applications);
  const std::vector<Group> groups = groupsOf(*stub, names).copies();
  const auto xdata = static_cast<std::size_t>(std::ranges::find(groups, 1001, &Group::code) - groups.begin());
  resbuf* chain = nameNode(-1, stub);
  chain->rbnext = toChain(std::span(groups).first(xdata), *stub->database);
  if (xdata < groups.size()) {
    resbuf** link = lastLink(chain);
    *link = newNode(-3);
    (*link)->rbnext = toChain(std::span(groups).subspan(xdata), *stub->database);
  }
  return chain;
}

resbuf* acdbEntGet(const ads_name entity) { return acdbEntGetX(entity, nullptr); }

int acdbEntMod(const resbuf* entity) {
  AcDbStub* stub = nullptr;
  std::vector<Group> groups;
  for (const resbuf* node = entity; node; node = node->rbnext) {
    if (node->restype == -1) stub = stubOfName(node->resval.rlname);
    else if (node->restype >= 0 && stub) appendGroups(groups, *node, *stub->database);
  }
  return stub && !stub->is(AcDbStub::kErased) && changeObject(*stub, std::move(groups)) ? RTNORM : RTERROR;
}

int acdbEntDel(const ads_name entity) {
  AcDbStub* stub = stubOfName(entity);
  if (!stub) return RTERROR;
  AcDbObject* object = nullptr;
  if (acdbOpenObject(object, idOf(stub), AcDb::kForWrite, true) != Acad::eOk) return RTERROR;
  const Acad::ErrorStatus status = object->erase(!stub->is(AcDbStub::kErased));
  object->close();
  return status == Acad::eOk ? RTNORM : RTERROR;
}

int acdbEntNext(const ads_name entity, ads_name result) {
  AcDbImpDatabase* db = working();
  AcDbStub* stub = entity ? stubOfName(entity) : nullptr;
  AcDbStub* next = db ? nextEntity(*db, stub) : nullptr;
  if (!next) return RTERROR;
  nameOf(next, result);
  return RTNORM;
}

int acdbEntLast(ads_name result) {
  AcDbImpDatabase* db = working();
  AcDbStub* last = db ? lastEntity(*db) : nullptr;
  if (!last) return RTERROR;
  nameOf(last, result);
  return RTNORM;
}

int acdbRegApp(const ACHAR* application) {
  AcDbImpDatabase* db = working();
  const std::string name = toUtf8(application);
  if (!db || !isSymbolName(name) || db->tableRecord("APPID", name)) return RTERROR;
  const AcDbObjectPointer<AcDbRegAppTable> table(db->database().regAppTableId(), AcDb::kForWrite);
  if (table.openStatus() != Acad::eOk) return RTERROR;
  auto* record = new AcDbRegAppTableRecord;
  record->setName(application);
  if (table->add(record) != Acad::eOk) {
    delete record;
    return RTERROR;
  }
  record->close();
  return RTNORM;
}

int acdbSNValid(const ACHAR* name, int) { return isSymbolName(toUtf8(name)) ? RTNORM : 1; }

double acutDistance(const ads_point a, const ads_point b) { return asPnt3d(a).distanceTo(asPnt3d(b)); }
double acutAngle(const ads_point a, const ads_point b) { return AcGeVector2d(b[0] - a[0], b[1] - a[1]).angle(); }
void acutPolar(const ads_point from, double angle, double distance, ads_point result) {
  result[0] = from[0] + distance * std::cos(angle);
  result[1] = from[1] + distance * std::sin(angle);
  result[2] = from[2];
}
