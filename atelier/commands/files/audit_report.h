// The audit of an open drawing, told line by line: the drawing's own checks, then those of the front-end, which knows
// the records of profiles and matrices (AutoLISP function plv-audit; it gives the number of its findings).
#pragma once
#include <cstddef>
#include <functional>
#include <string_view>

namespace atelier {

class Document;

struct AuditCount {
  std::size_t errors = 0, repaired = 0, findings = 0;  // errors: those that stay
};

// Hands each line to `out`, the summary last. What the front-end prints goes to the document's printer, and to `out`
// only when `collect` says that the printer drops it. Repairs can be undone.
AuditCount auditDrawing(Document& document, bool fix, const std::function<void(std::string_view)>& out,
                        bool collect = false);

}  // namespace atelier
