// Checking a drawing for what other programs would stumble over, and repairing what can be repaired without loss.
// Codes are stable: scripts may look for them.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::dxf {

enum class Severity : std::uint8_t { warning, error };

struct Finding {
  std::string_view code;  // "A01" ...; auditCodes() lists them
  Severity severity;
  std::uint64_t handle = 0;  // of the object, 0 for the drawing as a whole
  std::string place;         // record type and container: "LINE dans *Model_Space"
  std::string text;          // French, for the user
  bool repaired = false;
};

// Opens every object in turn. With fix, repairs what it can through the journal, so that it can be undone; nothing is
// written to disk. Findings come in the order of the drawing.
std::vector<Finding> audit(AcDbDatabase& database, bool fix);

struct AuditCode {
  std::string_view code;
  Severity severity;
  std::string_view meaning;
  bool repairable;
};
const std::vector<AuditCode>& auditCodes();

// One line for the user: "A05 erreur 1F LINE dans *Model_Space: calque \"X\" absent (réparé)".
std::string line(const Finding& finding);

}  // namespace atelier::dxf
