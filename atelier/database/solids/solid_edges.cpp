// An edge names its vertices, its curve, and whether it runs against the curve.
#include "atelier/database/solids/solid_edges.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/geometry/bspline.h"

namespace atelier::solid {
namespace {

constexpr double kSplineChord = 1e-4;  // of the curve's size

// The numbers at the end of a record; other versions of the format have further numbers before them.
std::vector<double> last(const std::vector<double>& reals, std::size_t count) {
  if (reals.size() < count) return {};
  return {reals.end() - static_cast<std::ptrdiff_t>(count), reals.end()};
}

std::optional<AcGePoint3d> vertexOf(const Table& table, const Record& edge, std::size_t which) {
  const Record* vertex = pointed(table, edge, "vertex", which);
  // An edge that closes on itself may name its vertex once.
  if (!vertex) vertex = pointed(table, edge, "vertex");
  const Record* point = vertex ? pointed(table, *vertex, "point") : nullptr;
  const std::vector<double> v = point ? last(point->reals(), 3) : std::vector<double>();
  if (v.empty()) return std::nullopt;
  return AcGePoint3d(v[0], v[1], v[2]);
}

// Centre, normal, major half axis, ratio, and a number for each bound of the parameter that is finite.
std::optional<EllipticEdge> ellipse(const Record& curve, const AcGePoint3d& from, const AcGePoint3d& to, bool against) {
  const std::vector<double> reals = curve.reals();
  const std::size_t bounds = curve.count("F") + curve.count("reversed");
  const std::vector<double> n = last(reals, 10 + bounds);
  if (n.empty()) return std::nullopt;
  EllipticEdge edge;
  edge.centre = {n[0], n[1], n[2]};
  edge.u = {n[6], n[7], n[8]};
  edge.v = AcGeVector3d(n[3], n[4], n[5]).crossProduct(edge.u) * n[9];
  const auto angle = [&](const AcGePoint3d& p) {
    const AcGeVector3d d = p - edge.centre;
    return std::atan2(d.dotProduct(edge.v) / edge.v.dotProduct(edge.v),
                      d.dotProduct(edge.u) / edge.u.dotProduct(edge.u));
  };
  edge.start = angle(from);
  double turn = angle(to) - edge.start;
  constexpr double kFull = 2 * std::numbers::pi, kHair = 1e-9;
  if (against) turn = -turn;
  while (turn <= kHair) turn += kFull;
  while (turn > kFull + kHair) turn -= kFull;
  edge.sweep = against ? -turn : turn;
  return edge;
}

// "nubs" or, with weights, "nurbs"; degree, open or closed, the number of knots, each with how often it counts (once less at
// both ends), then the points.
std::optional<Nurbs> nurbsOf(const Record& curve) {
  auto at = std::ranges::find_if(curve.tokens, [](const Token& token) {
    const std::string* word = std::get_if<std::string>(&token);
    return word && (*word == "nubs" || *word == "nurbs");
  });
  if (at == curve.tokens.end()) return std::nullopt;
  const bool rational = std::get<std::string>(*at++) == "nurbs";
  const auto number = [&]() -> double {
    const double* value = at != curve.tokens.end() ? std::get_if<double>(&*at) : nullptr;
    return value ? ++at, *value : NAN;
  };
  Nurbs made;
  const double degree = number();
  if (at != curve.tokens.end()) ++at;  // open or closed, a word or its number
  const double knots = number();
  constexpr double kMost = 1e5;
  if (!(knots >= 2 && knots < kMost && degree >= 1 && degree < kMost)) return std::nullopt;
  made.degree = static_cast<int>(degree);
  for (int k = 0; k < static_cast<int>(knots); ++k) {
    const double knot = number(), times = number();
    if (!(times >= 1 && times <= degree + 1)) return std::nullopt;
    made.knots.insert(made.knots.end(), static_cast<std::size_t>(times), knot);
  }
  made.knots.insert(made.knots.begin(), made.knots.front());
  made.knots.push_back(made.knots.back());
  if (made.knots.size() < static_cast<std::size_t>(made.degree) + 2) return std::nullopt;
  for (std::size_t left = made.knots.size() - static_cast<std::size_t>(made.degree) - 1; left > 0; --left) {
    const double x = number(), y = number(), z = number();
    made.points.emplace_back(x, y, z);
    if (rational) made.weights.push_back(number());
  }
  return makesSense(made) ? std::optional(made) : std::nullopt;
}

std::optional<SplineEdge> spline(const Record& curve, const AcGePoint3d& from, const AcGePoint3d& to) {
  const std::optional<Nurbs> nurbs = nurbsOf(curve);
  if (!nurbs) return std::nullopt;
  double size = 0;
  for (const AcGePoint3d& p : nurbs->points) size = std::fmax(size, p.distanceTo(nurbs->points.front()));
  std::vector<AcGePoint3d> points = sampleNurbs(*nurbs, kSplineChord * size);
  if (points.size() < 2) return std::nullopt;
  const auto nearest = [&](const AcGePoint3d& p) {
    return std::ranges::min_element(points, {}, [&](const AcGePoint3d& q) { return q.distanceTo(p); });
  };
  if (!(from == to)) {
    auto first = nearest(from), second = nearest(to);
    const bool back = second < first;
    if (back) std::swap(first, second);
    points = {first, second + 1};
    if (back) std::ranges::reverse(points);
  }
  if (points.size() < 2) return std::nullopt;
  points.front() = from, points.back() = to;
  return SplineEdge{std::move(points)};
}

}  // namespace

std::optional<Edge> readEdge(const Table& table, const Record& edge) {
  const Record* curve = pointed(table, edge, "*-curve");
  const auto from = vertexOf(table, edge, 0), to = vertexOf(table, edge, 1);
  if (!curve || !from || !to) return std::nullopt;
  Edge made{*from, *to, StraightEdge{}};
  if (curve->type == "straight-curve") return made;
  if (curve->type == "ellipse-curve") {
    const auto arc = ellipse(*curve, *from, *to, edge.count("reversed") > 0);
    if (!arc) return std::nullopt;
    made.curve = *arc;
    return made;
  }
  const auto smooth = spline(*curve, *from, *to);
  if (!smooth) return std::nullopt;
  made.curve = *smooth;
  return made;
}

// Rotation (nine numbers, the images of the axes), shift (three) and scale; the binary form has them as one text.
Placing placingOf(const Table& table) {
  Placing placing;
  const auto record = std::ranges::find(table, "transform", &Record::type);
  if (record == table.end()) return placing;
  std::vector<double> n = last(record->reals(), 13);
  for (const Token& token : record->tokens)
    if (const std::string* text = std::get_if<std::string>(&token))
      if (const std::vector<double> numbers = numbersIn(*text); numbers.size() >= 13) n = numbers;
  if (n.empty()) return placing;
  placing.scale = n[12];
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column)
      placing.matrix(row, column) = n[static_cast<std::size_t>(3 * column + row)] * placing.scale;
    placing.matrix(row, 3) = n[static_cast<std::size_t>(9 + row)];
  }
  return placing;
}

Table tableOf(const atelier::Record& entity, const AcDbImpDatabase* database) {
  std::string text;
  for (const Group& group : entity.groups)
    if (group.kind() == GroupKind::text && (group.code() == 1 || group.code() == 3)) {
      if (group.code() == 1 && !text.empty()) text += '\n';
      text += revealed(group.text());
    }
  if (!text.empty()) return readText(text + '\n');
  if (!database || !database->source) return {};
  return readBinary(database->source->solidData(entity.objectHandle()));
}

}  // namespace atelier::solid
