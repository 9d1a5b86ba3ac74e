// Prints the audit.
// Lines are the same for the AUDIT command and for the program's option.
#include "atelier/commands/files/audit_report.h"

#include "atelier/document/document.h"
#include "atelier/dxf/audit/audit.h"

namespace atelier {

namespace {

// What the front-end finds in the profiles' own records, left and mended: it gives the list of the two.
std::pair<std::size_t, std::size_t> profileFindings(Document& document, bool fix) {
  std::string printed;
  document.evaluate(fix ? "(plv-audit-bilan T)" : "(plv-audit-bilan nil)", &printed);
  const auto blank = printed.find(' ');
  if (printed.size() < 2 || blank == std::string::npos) return {};
  const auto number = [](const std::string& text) { return static_cast<std::size_t>(parseInteger(text).value_or(0)); };
  return {number(printed.substr(1, blank - 1)), number(printed.substr(blank + 1, printed.size() - blank - 2))};
}

}  // namespace

AuditCount auditDrawing(Document& document, bool fix, const std::function<void(std::string_view)>& out) {
  AuditCount count;
  const auto findings = dxf::audit(document.database(), fix);
  count.findings = findings.size();
  for (const dxf::Finding& finding : findings) {
    out(dxf::line(finding) + "\n");
    count.errors += finding.severity == dxf::Severity::error && !finding.repaired;
    count.repaired += finding.repaired;
  }
  if (!document.interpreter().get("PLV-AUDIT-BILAN").isNil()) {
    document.takeTranscript();
    const auto [left, mended] = profileFindings(document, fix);
    count.profiles = document.takeTranscript();
    count.errors += left;
    count.repaired += mended;
    count.findings += left + mended;
  }
  out(std::to_string(count.errors) + " erreurs, " + std::to_string(count.repaired) + " réparées, " +
      std::to_string(count.findings) + " constats\n");
  return count;
}

}  // namespace atelier
