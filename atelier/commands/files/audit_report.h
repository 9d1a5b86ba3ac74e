// The audit of an open drawing, as lines: the drawing's own checks, then those of the front-end, which knows the
// records of profiles and matrices (the AutoLISP function plv-audit; it gives the number of its findings).
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace atelier {

class Document;

struct AuditCount {
  std::size_t errors = 0, repaired = 0, findings = 0;  // errors: those not repaired
  std::string profiles;                                // what the front-end has printed
};

// Gives each line to `out`, the summary last; the front-end prints itself. Repairs can be undone.
AuditCount auditDrawing(Document& document, bool fix, const std::function<void(std::string_view)>& out);

}  // namespace atelier
