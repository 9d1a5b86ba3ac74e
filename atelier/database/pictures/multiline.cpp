// MLINE: the lines of its style's elements, with cuts, joints, ends and a filled ground.
// Where each line stands at each vertex is stored; the style gives colours, line types and the form of the ends.
// Reference: DXF reference, "MLINE" and "MLINESTYLE".
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/entities/group_reader.h"
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

// Of the style; the ends are the start's bits and the end's, sixteen times as large.
enum StyleFlags { kFilled = 1, kJoints = 2, kLine = 16, kInnerArcs = 32, kRound = 64, kEndShift = 4 };
enum Flags { kClosed = 2, kNoStart = 4, kNoEnd = 8 };

struct Style {
  std::int64_t flags = 0;
  PartLook ground;
  std::vector<PartLook> elements;
};

Style styleOf(AcDbImpDatabase& database, const Groups& line) {
  Style style;
  AcDbStub* stub = line.has(340) ? database.stubOf(line.find(340)->handle()) : nullptr;
  if (!stub || stub->is(AcDbStub::kErased)) return style;
  const Record record = AcDbImpObject::of(&database.object(*stub)).settled();
  const Groups groups(record);
  style.flags = groups.integer(70);
  PartLook* look = &style.ground;
  for (const Group* group : groups.all()) switch (group->code()) {
      case 49:
        look = &style.elements.emplace_back();
        look->colour = 256;
        break;
      case 62: look->colour = group->integer(); break;
      case 420: look->trueColour = group->integer(); break;
      case 6: look->linetype = group->text(); break;
      default: break;
    }
  return style;
}

struct Vertex {
  AcGePoint3d at;
  AcGeVector3d along, across;
  std::vector<std::vector<double>> elements;  // of each: distance across, then where it is drawn and cut along
  AcGePoint3d of(std::size_t element) const {
    return element < elements.size() && !elements[element].empty() ? at + across * elements[element][0] : at;
  }
};

AcGePoint3d point(GroupReader& in, int code) {
  const AcGePoint2d plan = in.point(code);
  return {plan.x, plan.y, in.real(code + 20)};
}

std::vector<Vertex> verticesOf(const Groups& groups) {
  GroupReader in(groups.all());
  std::vector<Vertex> vertices;
  while (in.seek(11)) {
    Vertex vertex;
    vertex.at = point(in, 11);
    vertex.along = point(in, 12).asVector();
    vertex.across = point(in, 13).asVector();
    while (in.at(74)) {
      in.integer(74);
      std::vector<double>& element = vertex.elements.emplace_back();
      while (in.at(41)) element.push_back(in.real(41));
      if (in.at(75))
        for (std::int64_t left = in.integer(75); left > 0 && in.at(42); --left) in.real(42);
    }
    vertices.push_back(std::move(vertex));
  }
  return vertices;
}

class Multiline {
 public:
  Multiline(PartMaker& make, const Groups& groups)
      : make_(make),
        flags_(groups.integer(71)),
        normal_(groups.normal()),
        style_(styleOf(make.database(), groups)),
        vertices_(verticesOf(groups)) {}

  void draw() {
    count_ = vertices_.empty() ? 0 : vertices_.front().elements.size();
    if (vertices_.size() < 2 || count_ == 0) return make_.missing();
    orderElements();
    const std::size_t segments = vertices_.size() - ((flags_ & kClosed) ? 0 : 1);
    if (style_.flags & kFilled)
      for (std::size_t i = 0; i < segments; ++i) ground(vertices_[i], next(i));
    for (std::size_t element = 0; element < count_; ++element) {
      make_.look(lookOf(element));
      for (std::size_t i = 0; i < segments; ++i) segment(vertices_[i], next(i), element);
    }
    if (style_.flags & kJoints)
      for (std::size_t i = 1; i + 1 < vertices_.size() + ((flags_ & kClosed) ? 1 : 0); ++i) joint(vertices_[i]);
    if (flags_ & kClosed) {
      if (style_.flags & kJoints) joint(vertices_.front());
      return;
    }
    if (!(flags_ & kNoStart)) end(vertices_.front(), -vertices_.front().along, style_.flags);
    if (!(flags_ & kNoEnd)) end(vertices_.back(), vertices_[vertices_.size() - 2].along, style_.flags >> kEndShift);
  }

 private:
  const Vertex& next(std::size_t i) const { return vertices_[(i + 1) % vertices_.size()]; }

  // From the lowest across to the highest.
  void orderElements() {
    for (std::size_t i = 0; i < count_; ++i) order_.push_back(i);
    const auto across = [&](std::size_t i) {
      const auto& element = vertices_.front().elements[i];
      return element.empty() ? 0 : element[0];
    };
    std::ranges::sort(order_, {}, across);
  }

  void ground(const Vertex& a, const Vertex& b) {
    make_.look(style_.ground);
    make_.area(a.of(order_.front()), b.of(order_.front()), b.of(order_.back()), a.of(order_.back()), normal_);
  }

  // Drawn from the second number of the element to the end, but for the cuts between each two of the further ones.
  void segment(const Vertex& a, const Vertex& b, std::size_t element) {
    const AcGePoint3d from = a.of(element), to = b.of(element);
    if (element >= a.elements.size() || a.elements[element].size() <= 2) return make_.line(from, to);
    const std::vector<double>& places = a.elements[element];
    const double length = from.distanceTo(to);
    for (std::size_t k = 1; k < places.size(); k += 2) {
      const double end = k + 1 < places.size() ? places[k + 1] : length;
      if (end > places[k]) make_.line(from + a.along * places[k], from + a.along * std::min(end, length));
    }
  }

  PartLook lookOf(std::size_t element) const {
    return element < style_.elements.size() ? style_.elements[element] : PartLook();
  }

  // Each half looks as the element at its end; so do the halves of an arc.
  void joint(const Vertex& vertex) {
    const AcGePoint3d low = vertex.of(order_.front()), high = vertex.of(order_.back()),
                      middle = low + (high - low) * 0.5;
    make_.look(lookOf(order_.front()));
    make_.line(low, middle);
    make_.look(lookOf(order_.back()));
    make_.line(middle, high);
  }

  void end(const Vertex& vertex, const AcGeVector3d& outwards, std::int64_t form) {
    if (form & kLine) joint(vertex);
    if (form & kRound) arc(vertex, outwards, 0);
    if (form & kInnerArcs)
      for (std::size_t i = 1; i < count_ / 2; ++i) arc(vertex, outwards, i);
  }

  // Half a circle between the element of that rank from below and the one of that rank from above.
  void arc(const Vertex& vertex, const AcGeVector3d& outwards, std::size_t rank) {
    const std::size_t low = order_[rank], high = order_[count_ - 1 - rank];
    const AcGePoint3d a = vertex.of(low), b = vertex.of(high);
    if (low == high || a == b) return;
    const AcGeVector3d half = (b - a) * 0.5;
    // Anticlockwise from one side to the other, whichever has the outside on its way.
    const bool fromLow = normal_.crossProduct(-half).dotProduct(outwards) > 0;
    constexpr double kQuarter = std::numbers::pi / 2;
    for (int quarter = 0; quarter < 2; ++quarter) {
      make_.look(lookOf((quarter == 0) == fromLow ? low : high));
      make_.ellipse(a + half, fromLow ? -half : half, normal_, 1, quarter * kQuarter, (quarter + 1) * kQuarter);
    }
  }

  PartMaker& make_;
  std::int64_t flags_;
  AcGeVector3d normal_;
  Style style_;
  std::vector<Vertex> vertices_;
  std::size_t count_ = 0;
  std::vector<std::size_t> order_;
};

}  // namespace

void multilineParts(PartMaker& make, const Record& record) { Multiline(make, Groups(record)).draw(); }

}  // namespace atelier
