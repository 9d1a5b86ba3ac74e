// Prints the audit.
// Lines are the same for the AUDIT command and for the program's option.
#include "atelier/commands/files/audit_report.h"

#include "atelier/document/document.h"
#include "atelier/dxf/audit/audit.h"

namespace atelier {

AuditCount auditDrawing(Document& document, bool fix, const std::function<void(std::string_view)>& out, bool collect) {
  AuditCount count;
  const auto findings = dxf::audit(document.database(), fix);
  count.findings = findings.size();
  for (const dxf::Finding& finding : findings) {
    out(dxf::line(finding) + "\n");
    count.errors += finding.severity == dxf::Severity::error && !finding.repaired;
    count.repaired += finding.repaired;
  }
  if (!document.interpreter().get("PLV-AUDIT").isNil()) {
    std::string printed;
    document.takeTranscript();
    document.evaluate(fix ? "(plv-audit-reparer)" : "(plv-audit)", &printed);
    if (collect) out(document.takeTranscript());
    count.errors += static_cast<std::size_t>(parseInteger(printed).value_or(0));
  }
  out(std::to_string(count.errors) + " erreurs, " + std::to_string(count.repaired) + " réparées, " +
      std::to_string(count.findings) + " constats\n");
  return count;
}

}  // namespace atelier
