// The bytes of the section are scanned again, since no record holds them.
#include "atelier/dxf/versions/carried_section.h"

#include "atelier/dxf/groups/scanner.h"
#include "atelier/dxf/versions/versions.h"

namespace atelier::dxf {
namespace {

bool nextWhole(Scanner& scanner, RawGroup& raw) {
  for (;;) {
    try {
      return scanner.next(raw);
    } catch (const FormatError& error) {
      scanner.resume(error.offset);
    }
  }
}

}  // namespace

void putCarried(GroupWriter& out, const FileLayout& source, const FileLayout& target, std::string_view name,
                const FileLayout::Place& place) {
  Scanner scanner(source.bytes, source.style.encoding, place.begin, place.end);
  const bool older = target.version < source.version;
  bool inside = false, counted = true;
  // The count comes before the two flags; a class without a count gets it at its end, where readers accept it, too.
  const auto endClass = [&] {
    if (!counted && target.atLeast("AC1018")) out.put(Group::integer(91, 0));
  };
  for (RawGroup raw; nextWhole(scanner, raw);) {
    if (!inside) {
      inside = raw.code == 2;
      continue;
    }
    if (raw.code == 0) {
      endClass();
      counted = raw.value != "CLASS";
    }
    counted |= raw.code == 91;
    if (raw.code != 999 && (name != "CLASSES" || !older || knowsGroup(target.version, "CLASS", "", raw.code)))
      out.put(decode(raw, source.style.encoding, source.style.codePage));
  }
  endClass();
}

}  // namespace atelier::dxf
