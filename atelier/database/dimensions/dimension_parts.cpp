// One function for each kind of dimension (group 70, lowest three bits).
#include "atelier/database/dimensions/dimension_parts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/dimensions/dimension_sketch.h"
#include "atelier/database/entities/measured_dimension.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

constexpr double kPi = std::numbers::pi;

// A dimension while it is drawn, in its own plane.
struct Drawn {
  const Groups& groups;
  const Record& record;
  const DimensionStyle& style;
  AcGeVector3d normal;
  DimensionSketch& sketch;

  AcGePoint2d point(int code) const {
    const AcGePoint3d p = toPlane(groups.point(code), normal);
    return {p.x, p.y};
  }
  bool textIsPlaced() const { return groups.has(11) && !(textMiddle() == AcGePoint2d()); }
  // Points of the text and of an arc are in the dimension's plane as they are written.
  AcGePoint2d textMiddle() const { return {groups.point(11).x, groups.point(11).y}; }
};

// What a dimension shows: its own text, in which <> stands for the measured one.
std::string shown(const Drawn& d, const std::string& measured) {
  const std::string own(d.groups.text(1));
  if (own.empty()) return measured;
  if (own == " ") return {};
  const std::size_t place = own.find("<>");
  return place == std::string::npos ? own : own.substr(0, place) + measured + own.substr(place + 2);
}

// Turned so that it is read from below or from the right.
double readable(double angle) {
  angle = std::remainder(angle, 2 * kPi);
  constexpr double kRounding = 1e-9;
  return angle > kPi / 2 + kRounding || angle <= -kPi / 2 + kRounding ? angle + kPi : angle;
}

// Writes the text above the middle of a line, or where the drawing says.
void textAlong(const Drawn& d, const std::string& contents, const AcGePoint2d& middle, double angle) {
  const double along = d.style.flag("DIMTIH") ? 0 : readable(angle);
  const double up = d.style.flag("DIMTAD") ? d.style.size("DIMGAP") + d.style.size("DIMTXT") / 2 : 0;
  const AcGePoint2d computed = middle + AcGeVector2d(-std::sin(along), std::cos(along)) * up;
  const int attachment = static_cast<int>(std::clamp<std::int64_t>(d.groups.integer(71, 5), 1, 9));
  d.sketch.text(contents, d.textIsPlaced() ? d.textMiddle() : computed, along + d.groups.radians(53),
                d.textIsPlaced() ? attachment : 5);
}

// From the measured point to beyond the dimension line.
void extension(const Drawn& d, const AcGePoint2d& from, const AcGePoint2d& to, std::string_view suppressed) {
  const AcGeVector2d along = (to - from).normal();
  const double offset = d.style.size("DIMEXO");
  if (d.style.flag(suppressed) || from.distanceTo(to) <= offset) return;
  d.sketch.extension(from + along * offset, to + along * d.style.size("DIMEXE"));
}

// The dimension line between two tips; where there is no room the arrows point inwards from outside.
void lineWithArrows(const Drawn& d, const AcGePoint2d& a, const AcGePoint2d& b) {
  const AcGeVector2d along = (b - a).normal();
  const double arrow = d.style.size("DIMASZ");
  const bool outside = d.style.arrow == ArrowForm::filled && a.distanceTo(b) < 2.5 * arrow;
  d.sketch.lineBesideText(a, b);
  if (outside) {
    d.sketch.line(a - along * (2 * arrow), a - along * arrow);
    d.sketch.line(b + along * arrow, b + along * (2 * arrow));
  }
  d.sketch.arrow(a, outside ? along : -along);
  d.sketch.arrow(b, outside ? -along : along);
}

void linear(const Drawn& d, double angle) {
  const AcGeVector2d along{std::cos(angle), std::sin(angle)};
  const double oblique = d.groups.radians(52);
  AcGeVector2d up = along.perpVector();
  if (oblique != 0) up = {std::cos(oblique), std::sin(oblique)};
  const double across = up.dotProduct(along.perpVector());
  if (std::abs(across) < 1e-9) return;
  const AcGePoint2d on = d.point(10), from = d.point(13), to = d.point(14);
  const auto tip = [&](const AcGePoint2d& p) { return p + up * ((on - p).dotProduct(along.perpVector()) / across); };
  const AcGePoint2d a = tip(from), b = tip(to);
  const std::string text = shown(d, d.style.lengthText(measured(d.record).value_or(0)));
  // A text that is too long for the line stands behind its end, beyond the arrow.
  const double width = d.sketch.textWidth(text), length = a.distanceTo(b), arrow = d.style.size("DIMASZ");
  const AcGeVector2d ahead = length > 0 ? (b - a).normal() : along;
  const bool fits = d.textIsPlaced() || width <= length;
  textAlong(d, text, fits ? a + (b - a) * 0.5 : b + ahead * (2 * arrow + width / 2), angle);
  if (!fits) d.sketch.line(b, b + ahead * (2 * arrow + width));
  extension(d, from, a, "DIMSE1");
  extension(d, to, b, "DIMSE2");
  if (length > 0) lineWithArrows(d, a, b);
}

void radial(const Drawn& d, bool diameter) {
  const AcGePoint2d near = d.point(15), other = d.point(10);
  const AcGeVector2d out = (near - other).normal();
  const std::string text = shown(d, (diameter ? "Ø" : "R") + d.style.lengthText(near.distanceTo(other)));
  textAlong(d, text, other + (near - other) * 0.5, out.angle());
  // The line goes on to a text that stands beyond the circle.
  const double beyond = d.textIsPlaced() ? (d.textMiddle() - near).dotProduct(out) : 0;
  d.sketch.lineBesideText(other, near);
  if (beyond > 0) d.sketch.lineBesideText(near, near + out * beyond);
  d.sketch.arrow(near, out);
  if (diameter) d.sketch.arrow(other, -out);
}

// An arc about the vertex through a point; the angle is the one between the two directions that holds the arc's point.
struct Sector {
  AcGePoint2d vertex, first, second;  // measured points
  AcGePoint2d onArc;
};

double turned(double angle) {
  angle = std::fmod(angle, 2 * kPi);
  return angle < 0 ? angle + 2 * kPi : angle;
}

void angular(const Drawn& d, const Sector& s, bool bothWays) {
  const double radius = s.vertex.distanceTo(s.onArc), at = (s.onArc - s.vertex).angle();
  double a = (s.first - s.vertex).angle(), b = (s.second - s.vertex).angle();
  // Of two whole lines each may be measured on either side of their meeting.
  if (bothWays) {
    double best = 2 * kPi, from = a, to = b;
    for (const double x : {a, a + kPi})
      for (const double y : {b, b + kPi})
        for (const auto& [low, high] : {std::pair{x, y}, std::pair{y, x}})
          if (const double span = turned(high - low); span < best && turned(at - low) <= span)
            best = span, from = low, to = high;
    a = from, b = to;
  } else if (turned(at - a) > turned(b - a)) {
    std::swap(a, b);
  }
  const double span = turned(b - a), middle = a + span / 2;
  const auto onArc = [&](double angle) { return s.vertex + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius; };
  textAlong(d, shown(d, d.style.angleText(span * 180 / kPi)), onArc(middle), middle + kPi / 2);
  d.sketch.arc(s.vertex, radius, turned(a), turned(b));
  const AcGeVector2d startsTo{std::sin(a), -std::cos(a)}, endsTo{-std::sin(b), std::cos(b)};
  d.sketch.arrow(onArc(a), startsTo);
  d.sketch.arrow(onArc(b), endsTo);
  for (const auto& [point, angle, suppressed] : {std::tuple{s.first, a, "DIMSE1"}, std::tuple{s.second, b, "DIMSE2"}})
    if (point.distanceTo(s.vertex) < radius) extension(d, point, onArc(angle), suppressed);
}

void betweenLines(const Drawn& d) {
  const AcGePoint2d a = d.point(13), b = d.point(14), c = d.point(15), e = d.point(10);
  const AcGeVector2d u = b - a, v = e - c;
  const double cross = u.x * v.y - u.y * v.x;
  if (std::abs(cross) < 1e-12 * u.length() * v.length() || !(u.length() > 0) || !(v.length() > 0)) return;
  const AcGeVector2d w = c - a;
  const AcGePoint2d vertex = a + u * ((w.x * v.y - w.y * v.x) / cross);
  const auto farther = [&](const AcGePoint2d& p, const AcGePoint2d& q) {
    return p.distanceTo(vertex) > q.distanceTo(vertex) ? p : q;
  };
  const AcGePoint2d onArc{d.groups.point(16).x, d.groups.point(16).y};
  angular(d, {vertex, farther(a, b), farther(c, e), onArc}, true);
}

void ordinate(const Drawn& d, bool abscissa) {
  const AcGePoint2d from = d.point(13), end = d.point(14);
  const std::string text = shown(d, d.style.lengthText(measured(d.record).value_or(0)));
  const double angle = abscissa ? kPi / 2 : 0;
  const AcGeVector2d along{std::cos(angle), std::sin(angle)};
  const double side = (end - from).dotProduct(along) < 0 ? -1 : 1;
  textAlong(d, text, end + along * (side * (d.style.size("DIMGAP") + d.sketch.textWidth(text) / 2)), angle);
  // A leader with two knees where it ends beside the feature.
  const AcGePoint2d knee = end - along * (side * 2 * d.style.size("DIMASZ"));
  const AcGePoint2d foot = from + along * (knee - from).dotProduct(along);
  extension(d, from, foot, "DIMSE1");
  d.sketch.line(foot, knee);
  d.sketch.line(knee, end);
}

}  // namespace

std::vector<Record> dimensionParts(AcDbImpDatabase& database, const Record& dimension) {
  constexpr int kKinds = 7, kAbscissa = 64;
  const Groups groups(dimension);
  const DimensionStyle style(database, dimension);
  const AcGeVector3d normal = groups.normal();
  DimensionSketch sketch(database, style, normal, toPlane(groups.point(10), normal).z);
  const Drawn d{groups, dimension, style, normal, sketch};
  const std::int64_t flags = groups.integer(70);
  switch (flags & kKinds) {
    case 0: linear(d, groups.radians(50)); break;
    case 1: linear(d, (d.point(14) - d.point(13)).angle()); break;
    case 2: betweenLines(d); break;
    case 3: radial(d, true); break;
    case 4: radial(d, false); break;
    case 5: angular(d, {d.point(15), d.point(13), d.point(14), d.point(10)}, false); break;
    case 6: ordinate(d, (flags & kAbscissa) != 0); break;
    default: break;
  }
  return std::move(sketch.parts);
}

}  // namespace atelier
