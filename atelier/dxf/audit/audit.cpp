// The audit's table of codes, its checks of the drawing as a whole, and the walk over its objects.
// Checks of single objects stand in audit_checks.cpp.
#include "atelier/dxf/audit/audit.h"

#include <algorithm>
#include <unordered_set>

#include "atelier/base/interruption.h"
#include "atelier/dxf/audit/audit_run.h"
#include "hote/dbsymtb.h"

namespace atelier::dxf {
namespace {

// Two objects of one handle: the later one is out of reach, and gets a handle of its own.
void checkHandles(AuditRun& run) {
  std::vector<AcDbStub*> later;
  for (const AcDbStub& stub : run.db.stubs())
    if (stub.handle != 0 && !stub.is(AcDbStub::kErased) && run.db.stubOf(stub.handle) != &stub)
      later.push_back(const_cast<AcDbStub*>(&stub));
  for (AcDbStub* stub : later) {
    if (!run.found("A01", stub, "identifiant " + handleText(stub->handle) + " déjà pris")) continue;
    Record& record = run.changing(*stub);
    run.db.giveHandle(*stub);
    record.setObjectHandle(stub->handle);
  }
}

void checkSeed(AuditRun& run) {
  const HeaderVariables::Variable* seed = run.db.header.find("$HANDSEED");
  if (!seed || seed->values.empty() || run.db.modified) return;
  std::uint64_t highest = 0;
  for (const AcDbStub& stub : run.db.stubs())
    if (!stub.is(AcDbStub::kVirtual) && !stub.is(AcDbStub::kHandleless) && !stub.is(AcDbStub::kNew))
      highest = std::max(highest, stub.handle);
  if (seed->values[0].handle() > highest) return;
  if (run.found("A02", nullptr,
                "$HANDSEED " + handleText(seed->values[0].handle()) + " n'est pas au-dessus de " + handleText(highest)))
    run.db.modified = true;  // saving writes a seed that is
}

bool hasObjects(const AcDbImpDatabase& db) {
  constexpr std::string_view kFirst = "AC1012";  // R13
  return db.header.text("$ACADVER", "AC1009") >= kFirst;
}

// Stand-ins take the place of what the file lacks; noted as changed, they are written.
void checkDefaults(AuditRun& run) {
  for (const AcDbStub& stub : run.db.stubs()) {
    if (!stub.is(AcDbStub::kVirtual) || stub.is(AcDbStub::kChanged) || run.db.typeName(stub) == "BLOCK_RECORD")
      continue;
    AcDbStub& changed = const_cast<AcDbStub&>(stub);
    // Up to R12 drawings have no objects.
    if (run.db.typeName(stub) == "DICTIONARY") {
      if (hasObjects(run.db) && run.found("A03", &changed, "dictionnaire principal absent"))
        changed.set(AcDbStub::kChanged), run.db.modified = true;
      continue;
    }
    const std::string name = run.db.recordName(changed);
    if (run.db.typeName(stub) == "TABLE") {
      if (name != "BLOCK_RECORD") run.found("A03", &changed, "table " + name + " absente");
    } else if (run.found("A03", &changed, "définition \"" + name + "\" absente")) {
      changed.set(AcDbStub::kChanged);
      run.db.modified = true;
    }
  }
}

class Cycles {
 public:
  explicit Cycles(AuditRun& run) : run_(run) {}
  void visit(AcDbStub& block) {
    if (done_.contains(&block)) return;
    open_.push_back(&block);
    if (block.children)
      for (AcDbStub* child : *block.children)
        if (!child->is(AcDbStub::kErased) && run_.db.typeName(*child) == "INSERT") follow(*child);
    open_.pop_back();
    done_.insert(&block);
  }

 private:
  void follow(AcDbStub& reference) {
    const std::string name = run_.recordOf(reference).text(textField("AcDbBlockReference", 2));
    AcDbStub* target = run_.db.tableRecord("BLOCK_RECORD", name);
    if (!target) return;
    if (std::find(open_.begin(), open_.end(), target) != open_.end())
      run_.found("A04", &reference, "le bloc \"" + name + "\" se contient lui-même");
    else visit(*target);
  }
  AuditRun& run_;
  std::vector<AcDbStub*> open_;
  std::unordered_set<const AcDbStub*> done_;
};

}  // namespace

const std::vector<AuditCode>& auditCodes() {
  using enum Severity;
  static const std::vector<AuditCode> codes = {
      {"A01", error, "identifiant en double", true},
      {"A02", warning, "compteur d'identifiants trop bas", true},
      {"A03", warning, "table ou définition obligatoire absente", true},
      {"A04", error, "bloc qui se contient lui-même", false},
      {"A05", error, "nom de calque, style, type de ligne ou bloc absent de sa table", true},
      {"A06", error, "bloc inséré absent", false},
      {"A07", error, "propriétaire faux", true},
      {"A08", error, "liste qui mène à un objet absent", true},
      {"A09", warning, "pointeur vers un objet absent", false},
      {"A10", error, "données étendues d'une application non déclarée", true},
      {"A11", error, "données étendues mal imbriquées", true},
      {"A12", error, "code interdit dans les données étendues", false},
      {"A13", error, "nombre illisible", false},
      {"A14", error, "valeur hors limites", false},
      {"A15", error, "propriétaire absent", true},
      {"A16", error, "nom interdit ou en double", true},
      {"A17", warning, "cote sans bloc de représentation", true}};
  return codes;
}

bool AuditRun::found(std::string_view code, AcDbStub* stub, std::string text, bool repairable) {
  const auto& codes = auditCodes();
  const auto row = std::find_if(codes.begin(), codes.end(), [&](const AuditCode& c) { return c.code == code; });
  ATELIER_ASSERT(row != codes.end());
  const bool repair = fixing_ && row->repairable && repairable;
  findings.push_back(
      {row->code, row->severity, stub ? stub->handle : 0, stub ? placeOf(*stub) : "dessin", std::move(text), repair});
  return repair;
}

std::string AuditRun::placeOf(AcDbStub& stub) {
  std::string place(db.typeName(stub));
  if (!stub.owner) return place;
  const std::string_view type = db.typeName(*stub.owner);
  return place + " dans " +
         (type == "BLOCK_RECORD" || type == "TABLE" ? db.recordName(*stub.owner)
                                                    : std::string(type) + " " + handleText(stub.owner->handle));
}

std::string line(const Finding& f) {
  return std::string(f.code) + (f.severity == Severity::error ? " erreur " : " avertissement ") +
         (f.handle ? handleText(f.handle) + " " : "") + f.place + ": " + f.text + (f.repaired ? " (réparé)" : "");
}

std::vector<Finding> audit(AcDbDatabase& database, bool fix) {
  AuditRun run(AcDbImpDatabase::of(&database), fix);
  checkSeed(run);
  checkHandles(run);
  checkDefaults(run);
  if (AcDbStub* blocks = run.db.table("BLOCK_RECORD")) {
    Cycles cycles(run);
    for (AcDbStub* block : *blocks->children) cycles.visit(*block);
  }
  // Repairs may add records: what was there before is walked.
  const std::size_t count = run.db.stubs().size();
  for (std::size_t i = 0; i < count; ++i) {
    checkInterruption();
    AcDbStub& stub = const_cast<AcDbStub&>(run.db.stubs()[i]);
    if (stub.is(AcDbStub::kErased) || stub.is(AcDbStub::kVirtual)) continue;
    checkOwner(run, stub);
    checkPointers(run, stub);
    checkNames(run, stub);
    checkValues(run, stub);
    checkExtendedData(run, stub);
    checkKeeper(run, stub);
    checkSymbolName(run, stub);
    checkDimension(run, stub);
  }
  return std::move(run.findings);
}

}  // namespace atelier::dxf
