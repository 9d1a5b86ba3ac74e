// MULTILEADER: its lines with their arrows, landings, and a text or a block with its attributes.
#include <algorithm>
#include <cmath>

#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/database/pictures/multileader_data.h"
#include "atelier/database/pictures/part_entity.h"
#include "atelier/database/pictures/part_maker.h"

namespace atelier {
namespace {

constexpr std::string_view kMText = "AcDbMText";

// A stored colour: its highest byte is its kind.
void setColour(PartLook& look, std::int64_t stored) {
  constexpr std::uint32_t kLayer = 0xC0, kTrue = 0xC2, kIndex = 0xC3;
  const auto bits = static_cast<std::uint32_t>(stored);
  const std::uint32_t kind = bits >> 24;
  if (kind == kLayer) look.colour = 256;
  if (kind == kIndex) look.colour = bits & 0xFF;
  if (kind == kTrue) look.colour = 7, look.trueColour = bits & 0xFFFFFF;
}

class Drawing {
 public:
  Drawing(PartMaker& make, const MultileaderData& data) : make_(make), data_(data) {}

  void lines() {
    PartLook look;
    setColour(look, data_.lineColour);
    look.weight = data_.lineWeight;
    if (const std::string type = nameOf(make_.database(), data_.linetype); !type.empty()) look.linetype = type;
    make_.look(look);
    for (const LeaderBundle& bundle : data_.bundles) {
      if (data_.lines != MultileaderData::none)
        for (const LeaderLine& line : bundle.lines) leader(bundle, line);
      if (data_.hasLanding && bundle.end && data_.lines != MultileaderData::none)
        make_.line(*bundle.end, *bundle.end + bundle.landing);
    }
  }

  void text(const LeaderText& text) {
    PartLook look;
    setColour(look, text.colour);
    make_.look(look);
    Record& part = make_.add("MTEXT");
    part.setPoint(pointField(kMText, 10), text.at);
    part.setReal(realField(kMText, 40), text.height);
    part.setReal(realField(kMText, 41), text.width);
    part.setInteger(integerField(kMText, 71), std::clamp<std::int64_t>(text.attachment, 1, 9));
    part.setText(textField(kMText, 1), text.contents);
    if (const std::string style = nameOf(make_.database(), text.style); !style.empty())
      part.setText(textField(kMText, 7), style);
    part.setPoint(normalField(kMText), AcGePoint3d() + text.normal);
    part.setPoint(pointField(kMText, 11), AcGePoint3d() + text.direction);
    part.setInteger(integerField(kMText, 73), text.spacingStyle);
    part.setReal(realField(kMText, 44), text.spacing > 0 ? text.spacing : 1);
    if (text.filled) fill(part, text);
    if (data_.framed) frame(Record(part), text);
  }

  void block(const LeaderBlock& block) {
    const std::string name = nameOf(make_.database(), block.block);
    if (name.empty()) return;
    PartLook look;
    setColour(look, block.colour);
    make_.look(look);
    const Record reference = make_.insert(name, block.at, block.scale, block.turn, block.normal);
    for (const auto& [definition, contents] : block.attributes) attribute(reference, definition, contents);
  }

 private:
  void leader(const LeaderBundle& bundle, const LeaderLine& line) {
    std::vector<AcGePoint3d> points = line.points;
    if (bundle.end) points.push_back(*bundle.end);
    if (points.size() < 2) return;
    const AcGePoint3d tip = points[0];
    const AcGeVector3d ahead = tip - points[1];
    // The line ends where the arrow begins.
    if (ahead.length() > data_.arrowSize) points[0] = tip - ahead.normal() * data_.arrowSize;
    if (data_.lines == MultileaderData::curved) make_.curve(points);
    else make_.path(points);
    make_.arrow(tip, ahead, data_.arrowSize, data_.normal(), nameOf(make_.database(), data_.arrow));
  }

  static void fill(Record& part, const LeaderText& text) {
    enum Fill { own = 1, sheet = 2 };
    part.setInteger(integerField(kMText, 90), own | (text.filledWithSheet ? sheet : 0));
    part.setReal(realField(kMText, 45), text.fillMargin);
    PartLook look;
    setColour(look, text.fillColour);
    part.setInteger(integerField(kMText, 63), look.colour);
    if (look.trueColour >= 0) part.setInteger(integerField(kMText, 421), look.trueColour);
  }

  // A rectangle about the text.
  void frame(Record part, const LeaderText& text) {
    const PartEntity made(make_.database(), std::move(part));
    const fonts::Box ink = paragraphInk(*made.as<AcDbMText>());
    if (ink.empty()) return;
    const AcGeVector3d x = text.direction.normal(), y = text.normal.crossProduct(x);
    const auto corner = [&](double u, double v) { return text.at + x * u + y * v; };
    const double left = ink.xMin - data_.gap, right = ink.xMax + data_.gap, low = ink.yMin - data_.gap,
                 high = ink.yMax + data_.gap;
    const AcGePoint3d corners[] = {corner(left, low), corner(right, low), corner(right, high), corner(left, high)};
    make_.path(corners, true);
  }

  // The text of a definition, where the reference puts it.
  void attribute(const Record& reference, std::uint64_t definition, const std::string& contents) {
    AcDbImpDatabase& database = make_.database();
    AcDbStub* stub = database.stubOf(definition);
    if (!stub || stub->is(AcDbStub::kErased) || database.typeName(*stub) != "ATTDEF" || contents.empty()) return;
    const Record from = AcDbImpObject::of(&database.object(*stub)).record;
    Record text = Record::fresh("TEXT");
    constexpr std::string_view kText = "AcDbText", kEntity = "AcDbEntity";
    for (const int code : {8, 6})
      if (const Group* group = from.get(textField(kEntity, code)))
        text.setText(textField(kEntity, code), group->text());
    if (const Group* group = from.get(integerField(kEntity, 62)))
      text.setInteger(integerField(kEntity, 62), group->integer());
    for (const int code : {10, 11})
      if (from.has(pointField(kText, code)))
        text.setPoint(pointField(kText, code), from.point(pointField(kText, code)));
    for (const int code : {40, 41, 50, 51})
      if (from.has(realField(kText, code))) text.setReal(realField(kText, code), from.real(realField(kText, code)));
    text.setText(textField(kText, 7), from.text(textField(kText, 7, "Standard")));
    text.setText(textField(kText, 1), contents);
    text.setInteger(integerField(kText, 72), from.integer(integerField(kText, 72)));
    text.setInteger(integerField("AcDbText#2", 73), from.integer(integerField("AcDbAttributeDefinition", 74)));
    const PartEntity insert(make_.database(), reference);
    make_.add(
        PartEntity(make_.database(), std::move(text)).transformed(insert.as<AcDbBlockReference>()->blockTransform()));
  }

  PartMaker& make_;
  const MultileaderData& data_;
};

}  // namespace

void multileaderParts(PartMaker& make, const Record& record) {
  const MultileaderData data = readMultileader(record);
  Drawing drawing(make, data);
  drawing.lines();
  if (data.text) drawing.text(*data.text);
  if (data.block) drawing.block(*data.block);
}

}  // namespace atelier
