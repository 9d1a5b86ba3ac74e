// LEADER QLEADER: an arrow, its line, and a text at the end of it.
// The text is an MTEXT of its own, which the leader refers to.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/drawing/recorded.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

constexpr int kWithText = 0, kWithoutText = 3;
constexpr int kMiddleLeft = 4, kMiddleRight = 6;

using Points = std::vector<AcGePoint3d>;

double dimensionSetting(const Command& c, const char* name, double otherwise) {
  const double scale = c.document.variables().real("DIMSCALE", 1);
  return c.document.variables().real(name, otherwise) * (scale > 0 ? scale : 1);
}

bool goesRight(const Points& points) { return points.back().x >= points[points.size() - 2].x; }

AcDbObjectId addText(const Command& c, const Points& points, const std::string& contents) {
  const double gap = dimensionSetting(c, "DIMGAP", 0.625), arrow = dimensionSetting(c, "DIMASZ", 2.5);
  const bool right = goesRight(points);
  auto text = std::make_unique<AcDbMText>();
  text->setContents(toWide(contents).c_str());
  text->setTextHeight(dimensionSetting(c, "DIMTXT", 2.5));
  text->setLocation(points.back() + AcGeVector3d((right ? 1 : -1) * (arrow + gap), 0, 0));
  text->setAttachment(right ? kMiddleLeft : kMiddleRight);
  text->setTextStyle(c.document.database().textstyle());
  return c.add(std::move(text));
}

void addLeader(const Command& c, const Points& points, const std::string& contents) {
  const AcDbObjectId text = contents.empty() ? AcDbObjectId() : addText(c, points, contents);
  Record record(std::vector<Group>{Group::text(0, "LEADER"), Group::text(100, "AcDbEntity"), Group::text(8, "0"),
                                   Group::text(100, "AcDbLeader"),
                                   Group::text(3, currentDimensionStyle(c.document.imp()))});
  const auto add = [&](Group group) { record.groups.push_back(std::move(group)); };
  add(Group::integer(71, 1));  // an arrow
  add(Group::integer(72, 0));  // straight
  add(Group::integer(73, text.isNull() ? kWithoutText : kWithText));
  add(Group::integer(74, goesRight(points) ? 0 : 1));
  add(Group::integer(75, text.isNull() ? 0 : 1));  // a hook line towards the text
  add(Group::real(40, dimensionSetting(c, "DIMTXT", 2.5)));
  add(Group::integer(76, static_cast<std::int64_t>(points.size())));
  for (const AcGePoint3d& p : points)
    for (Group& group : ordinates(10, p)) add(std::move(group));
  if (!text.isNull()) add(Group::handle(340, static_cast<AcDbStub*>(text)->handle));
  for (const auto& [code, v] : {std::pair(210, AcGePoint3d(0, 0, 1)), {211, AcGePoint3d(1, 0, 0)}})
    for (Group& group : ordinates(code, v)) add(std::move(group));
  c.add(entityOf(std::move(record)));
}

// Lines of text until an empty one; Enter at the first one leaves the leader without a text.
CommandTask annotate(Command& c, const Points& points) {
  std::string contents;
  std::string prompt = "\nPremière ligne du texte <aucune>: ";
  for (;;) {
    const auto line = co_await c.line(prompt);
    if (line.value.empty()) break;
    contents += (contents.empty() ? "" : "\\P") + line.value;
    prompt = "\nLigne suivante <fin>: ";
  }
  addLeader(c, points, contents);
}

CommandTask leader(Command& c) {
  Points points;
  const auto first = co_await c.pointOrEnter("\nPointe de la flèche: ");
  if (!first.given()) co_return;
  points.push_back(*first);
  const auto second = co_await c.point("\nPoint suivant: ", points.back());
  points.push_back(second.value);
  for (;;) {
    const auto next = co_await c.pointOrEnter("\nPoint suivant ou [Annotation/annUler] <Annotation>: ", points.back(),
                                              "Annotation annUler _Annotation Undo");
    if (next.is("Undo")) {
      if (points.size() > 2) points.pop_back();
      continue;
    }
    if (!next.given()) break;
    points.push_back(*next);
  }
  co_await annotate(c, points);
}

// Two or three points, then the width of the text and its lines.
CommandTask quickLeader(Command& c) {
  Points points;
  const auto first = co_await c.pointOrEnter("\nPointe de la flèche: ");
  if (!first.given()) co_return;
  points.push_back(*first);
  while (points.size() < 3) {
    const auto next = co_await c.pointOrEnter("\nPoint suivant <fin>: ", points.back());
    if (!next.given()) break;
    points.push_back(*next);
  }
  if (points.size() < 2) co_return;
  co_await c.distanceOrEnter("\nLargeur du texte <0>: ");
  co_await annotate(c, points);
}

constexpr CommandRow kTable[] = {
    {"LEADER", "LEAD REPERE", leader, "Dessine une flèche de repère avec son texte."},
    {"QLEADER", "LE REPERERAP", quickLeader, "Dessine une flèche de repère de deux ou trois points."},
};

}  // namespace

std::span<const CommandRow> leaderCommands() { return kTable; }

}  // namespace atelier
