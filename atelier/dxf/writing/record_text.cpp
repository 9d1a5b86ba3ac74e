// Records and sections as text.
// Objects keep their marks even in an R12 drawing: that version doesn't use them, but so nothing is lost on reading.
#include "atelier/dxf/writing/record_text.h"

#include "atelier/dxf/writing/references.h"

namespace atelier::dxf {
namespace {

// Whether the record is an object: neither an entity nor part of a table.
bool isObject(const AcDbStub& stub) {
  if (stub.is(AcDbStub::kEntity)) return false;
  return !stub.owner || stub.database->typeName(*stub.owner) != "TABLE";
}

// Number of groups at `at` that list an erased object: a member of a group, an entry of a dictionary, a reactor, or an
// extension dictionary with its braces. The record in memory keeps them, so that the erasing can be undone.
std::size_t erasedEntry(const Record& record, std::size_t at, const AcDbImpDatabase& db, bool braces) {
  const auto& groups = record.groups;
  const auto erased = [&](std::size_t i) { return i < groups.size() && leadsToErased(db, groups[i]); };
  if (braces) return groups[at].code() == 330 && erased(at) ? 1 : 0;
  if (groups[at].code() == 102 && groups[at].text() == "{ACAD_XDICTIONARY") return erased(at + 1) ? 3 : 0;
  if (record.type() == "GROUP") return groups[at].code() == 340 && erased(at) ? 1 : 0;
  if (record.type() == "DICTIONARY" && groups[at].code() == 3)
    return erased(at + 1) && groups[at + 1].code() != 330 ? 2 : 0;
  return 0;
}

}  // namespace

void appendRecord(std::string& out, AcDbStub& stub, const FileLayout& layout) {
  visitGroups(stub, layout, [&](const Group& group, std::string_view) { append(out, group, layout.style); });
}

void visitGroups(AcDbStub& stub, const FileLayout& layout,
                 const std::function<void(const Group&, std::string_view section)>& visit) {
  Record& record = AcDbImpObject::of(&stub.database->object(stub)).settled();
  const std::string type(record.type());  // a copy, since giving a handle may move the groups in memory
  const bool ends = type == "ENDTAB" || type == "ENDSEC";
  if (writesHandle(stub) && record.objectHandle() == 0 && stub.handle != 0 && !ends)
    record.setObjectHandle(stub.handle);
  const bool plain = !layout.atLeast(kR13) && (type == "TABLE" || !isObject(stub));
  const int handleCode = type == "DIMSTYLE" ? 105 : 5;
  bool head = true, braces = false;
  std::string_view section;
  const auto& groups = record.groups;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const Group& group = groups[i];
    const int code = group.code();
    if (const std::size_t skipped = erasedEntry(record, i, *stub.database, braces)) {
      i += skipped - 1;
      continue;
    }
    if (code == 102) braces = group.text().starts_with('{');
    else if (code == 100 || code >= 1000) head = false;
    if (plain && (code == 100 || (code == 330 && head && !braces))) continue;
    if (head && !braces && code == handleCode && !writesHandle(stub)) continue;
    if (code == 100) section = group.text();
    visit(group, section);
  }
}

void appendSection(std::string& out, std::string_view name, std::string_view contents, const Style& style) {
  append(out, Group::text(0, "SECTION"), style);
  append(out, Group::text(2, std::string(name)), style);
  out += contents;
  append(out, Group::text(0, "ENDSEC"), style);
}

}  // namespace atelier::dxf
