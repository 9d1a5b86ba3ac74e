// The area of a planar region, from the edges of its faces in the solid-model data.
#include <cmath>
#include <numbers>
#include <optional>

#include "atelier/database/entities/solid_data.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

using solid::Table;
using Record = solid::Record;

const atelier::Record& groupsOf(const AcDbRegion& region) { return AcDbImpObject::of(&region).record; }

// Half the integral of p x dp along an edge, in the direction of its coedge.
class Outline {
 public:
  explicit Outline(const Table& table) : table_(table) {}

  // The vector area of all faces; its length is the area, since the loops of a face run about it in one sense and
  // those of its holes in the other. False when an edge can't be followed.
  bool add(const Record& coedge) {
    const Record* edge = solid::pointed(table_, coedge, "edge");
    const Record* curve = edge ? solid::pointed(table_, *edge, "*-curve") : nullptr;
    AcGePoint3d from, to;
    if (!curve || !vertex(*edge, 0, from) || !vertex(*edge, 1, to)) return false;
    const bool against = edge->count("reversed") > 0;
    const bool back = coedge.count("reversed") > 0;
    AcGeVector3d part;
    if (!along(*curve, from, to, against, part)) return false;
    area_ = area_ + (back ? -part : part);
    return true;
  }
  double area() const { return area_.length(); }

 private:
  bool vertex(const Record& edge, std::size_t which, AcGePoint3d& place) const {
    const Record* vertex = solid::pointed(table_, edge, "vertex", which);
    // An edge that closes on itself may name its vertex once.
    if (!vertex) vertex = solid::pointed(table_, edge, "vertex");
    const Record* point = vertex ? solid::pointed(table_, *vertex, "point") : nullptr;
    return point && last(*point, 3, [&](const double* v) { place = {v[0], v[1], v[2]}; });
  }
  // The numbers at the end of a record; other versions of the format have further numbers before them.
  template <class Use>
  static bool last(const Record& record, std::size_t count, Use use) {
    const std::vector<double> reals = record.reals();
    if (reals.size() < count) return false;
    use(reals.data() + (reals.size() - count));
    return true;
  }
  // Straight, or an arc of an ellipse; other curves are not followed.
  static bool along(const Record& curve, const AcGePoint3d& from, const AcGePoint3d& to, bool against,
                    AcGeVector3d& part) {
    if (curve.type == "straight-curve") {
      part = from.asVector().crossProduct(to.asVector()) * 0.5;
      return true;
    }
    return curve.type == "ellipse-curve" && ellipse(curve, from, to, against, part);
  }
  // centre, normal, major half axis, ratio, and a number for each bound of the parameter that is finite.
  static bool ellipse(const Record& curve, const AcGePoint3d& from, const AcGePoint3d& to, bool against,
                      AcGeVector3d& part) {
    const std::vector<double> v = curve.reals();
    const std::size_t bounds = curve.count("F") + curve.count("reversed");
    if (v.size() < 10 + bounds) return false;
    const double* n = v.data() + (v.size() - 10 - bounds);
    const AcGePoint3d centre(n[0], n[1], n[2]);
    const AcGeVector3d normal(n[3], n[4], n[5]), major(n[6], n[7], n[8]);
    const AcGeVector3d minor = normal.crossProduct(major) * n[9];
    const auto angle = [&](const AcGePoint3d& p) {
      const AcGeVector3d d = p - centre;
      return std::atan2(d.dotProduct(minor) / minor.dotProduct(minor), d.dotProduct(major) / major.dotProduct(major));
    };
    double turn = angle(to) - angle(from);
    constexpr double kFull = 2 * std::numbers::pi, kHair = 1e-9;
    if (against) turn = -turn;
    while (turn <= kHair) turn += kFull;
    while (turn > kFull + kHair) turn -= kFull;
    if (against) turn = -turn;
    part = (centre.asVector().crossProduct(to - from) + major.crossProduct(minor) * turn) * 0.5;
    return true;
  }

  const Table& table_;
  AcGeVector3d area_;
};

// Rotation (nine numbers), shift (three) and scale; the binary form has them as one text.
double scaleOf(const Record& transform) {
  for (const solid::Token& token : transform.tokens)
    if (const std::string* text = std::get_if<std::string>(&token)) {
      const std::vector<double> numbers = solid::numbersIn(*text);
      if (numbers.size() >= 13) return numbers[12];
    }
  const std::vector<double> numbers = transform.reals();
  return numbers.empty() ? 1 : numbers.back();
}

std::optional<double> areaOf(const Table& table) {
  Outline outline(table);
  bool any = false;
  double scale = 1;
  for (const Record& record : table) {
    if (record.type == "transform") scale = scaleOf(record);
    if (record.type != "coedge") continue;
    if (!outline.add(record)) return std::nullopt;
    any = true;
  }
  return any ? std::optional(outline.area() * scale * scale) : std::nullopt;
}

// The lines of groups 1, each continued by those of group 3, or the binary form from the drawing's data section.
Table solidData(const AcDbRegion& region) {
  std::string text;
  for (const Group& group : groupsOf(region).groups)
    if (group.kind() == GroupKind::text && (group.code() == 1 || group.code() == 3)) {
      if (group.code() == 1 && !text.empty()) text += '\n';
      text += solid::revealed(group.text());
    }
  if (!text.empty()) return solid::readText(text + '\n');
  const AcDbImpDatabase* db = databaseOf(&region);
  if (!db || !db->source) return {};
  return solid::readBinary(db->source->solidData(groupsOf(region).objectHandle()));
}

}  // namespace

AcDbRegion::AcDbRegion() { initRecord(*this, "REGION"); }

Acad::ErrorStatus AcDbRegion::getArea(double& area) const {
  const std::optional<double> found = areaOf(solidData(*this));
  if (!found) return Acad::eNotApplicable;
  area = *found;
  return Acad::eOk;
}
