// Selecting entities: by filter, by place, and interactively; and the sets that handlers hold by name.
// Reference: acedSSGet, AutoLISP's ssget.
#pragma once
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "atelier/database/records/group.h"
#include "atelier/document/selection_set.h"
#include "hote/adesk.h"
#include "hote/ge.h"

class AcDbImpDatabase;

namespace atelier {

class Document;

// A filter list: groups to match, with -4 operators ("<AND" "AND>" "<OR" "OR>" "<XOR" "XOR>" "<NOT" "NOT>", relational
// ones before a number or point) and -3 with application names.
class SelectionFilter {
 public:
  struct Item {
    int code = 0;  // -4: operator in text; -3: application name in text; else the group
    Group group = Group::integer(0, 0);
    std::string text;
  };
  SelectionFilter() = default;
  explicit SelectionFilter(std::vector<Item> items) : items_(std::move(items)) {}
  bool isEmpty() const { return items_.empty(); }
  // Whether operators are known, have their operands, and are closed in order.
  bool isWellFormed() const;
  bool matches(AcDbStub& stub) const;
  // Whether entities of that type may pass: what the groups before the first operator say of it.
  bool admits(std::string_view type) const;
  // As matches() for an entity of a type that is admitted.
  bool matchesAdmitted(AcDbStub& stub) const;

 private:
  bool matchesFrom(AcDbStub& stub, std::size_t at) const;
  bool wellFormedUpTo(std::size_t& at, std::string_view closing, std::size_t& operands) const;
  // The value of the operand at `at`, which is moved after it; an operand that doesn't matter is only skipped.
  bool one(AcDbStub& stub, std::size_t& at, bool matters) const;
  bool group(AcDbStub& stub, std::size_t& at, std::string_view relations, bool matters) const;
  std::vector<Item> items_;
};

// Every main entity of the drawing (all layouts) that passes the filter, latest first as in the AutoLISP reference.
std::shared_ptr<SelectionSet> selectAll(AcDbImpDatabase& database, const SelectionFilter& filter);
// Entities of the current space: wholly inside the box, or inside or crossing it.
std::shared_ptr<SelectionSet> selectBox(Document& document, const AcGePoint3d& a, const AcGePoint3d& b, bool crossing,
                                        const SelectionFilter& filter);
// Wholly inside the polygon, or also crossing it; with `fence` those that the open line crosses.
enum class PolygonMode { window, crossing, fence };
std::shared_ptr<SelectionSet> selectPolygon(Document& document, std::span<const AcGePoint3d> points, PolygonMode mode,
                                            const SelectionFilter& filter);
// Asks "\nChoix des objets: " until Enter: picks, window corners, W C P L ALL F WP CP A R U, expressions. Null when nothing was selected;
// cancelled tells whether the user broke off.
std::shared_ptr<SelectionSet> selectInteractively(Document& document, const SelectionFilter& filter, bool single,
                                                  bool& cancelled);

// --- sets that handlers hold: the name keeps the set alive until it is freed
void holdSelection(const std::shared_ptr<SelectionSet>& set, ads_name name);
std::shared_ptr<SelectionSet> heldSelection(const ads_name name);  // null for a name that is no set's
SelectionSet* selectionOf(const ads_name name);                    // also of a set that came as an argument
bool releaseSelection(const ads_name name);

}  // namespace atelier
