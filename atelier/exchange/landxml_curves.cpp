// Vertical curves between two grades: how far they reach, and whether they overlap.
// References: LandXML 1.2, ProfAlign; a circle of radius R between grades p and q opens by atan q - atan p.
#include "atelier/exchange/landxml_curves.h"

#include <charconv>
#include <cmath>

namespace atelier::exchange {
namespace {

using Curve = Vertex::Curve;

constexpr double kSameStation = 1e-6;  // metres
// Stations and lengths are often written to the millimetre: curves that touch may overlap by as much.
constexpr double kRounding = 2.5e-3;
// An arc and a radius that differ by more metres give a warning.
constexpr double kArcDisagrees = 0.05;

double opening(double in, double out) { return std::abs(std::atan(out) - std::atan(in)); }

double gradeBetween(const Vertex& a, const Vertex& b) {
  return (b.at.level - a.at.level) / (b.at.station - a.at.station);
}

void shrink(Vertex& vertex, double factor) {
  vertex.length *= factor;
  vertex.lengthOut *= factor;
  vertex.radius *= factor;
}

// The horizontal lengths of a vertical curve before and after its vertex.
struct Reach {
  double before = 0, after = 0;
};

Reach reachOf(const Vertex& vertex, double gradeIn, double gradeOut) {
  switch (vertex.curve) {
    case Curve::none: return {};
    case Curve::parabola: return {vertex.length / 2, vertex.length / 2};
    case Curve::unsymmetric: return {vertex.length, vertex.lengthOut};
    case Curve::circle: break;
  }
  const double tangent = vertex.radius * std::tan(opening(gradeIn, gradeOut) / 2);
  return {tangent * std::cos(std::atan(gradeIn)), tangent * std::cos(std::atan(gradeOut))};
}

// Completes a circle: from its radius, or from its arc when the radius is missing.
std::optional<std::string> completeCircle(Vertex& v, double in, double out, const std::string& where,
                                          std::vector<std::string>& warnings) {
  const double angle = opening(in, out);
  if (v.radius == 0) v.radius = v.length / angle;
  if (!std::isfinite(v.radius)) return "pas de rayon: les deux pentes sont les mêmes";
  const double arc = v.radius * angle;
  if (v.length > 0 && std::abs(arc - v.length) > kArcDisagrees)
    warnings.push_back(where + ", station " + metresText(v.at.station) + ": l'arc de " + metresText(v.length) +
                       " m ne va pas avec le rayon; le rayon de " + metresText(v.radius) + " m est gardé");
  return std::nullopt;
}

std::optional<CurveFault> complete(Project& project, const std::string& where, std::vector<std::string>& warnings) {
  auto& v = project.vertices;
  for (std::size_t i = 1; i < v.size(); ++i)
    if (v[i].at.station - v[i - 1].at.station < kSameStation)
      return CurveFault{i, "la station ne va pas en croissant", false};
  for (const std::size_t end : {std::size_t{0}, v.size() - 1})
    if (v[end].curve != Curve::none) return CurveFault{end, "raccordement au premier ou au dernier sommet"};
  for (std::size_t i = 1; i + 1 < v.size(); ++i) {
    if (v[i].curve == Curve::none) continue;
    const double in = gradeBetween(v[i - 1], v[i]), out = gradeBetween(v[i], v[i + 1]);
    // Some programs write a curve where the grade doesn't change.
    if (std::abs(out - in) < 1e-9) {
      v[i].curve = Curve::none;
    } else if (v[i].curve == Curve::circle) {
      if (const auto fault = completeCircle(v[i], in, out, where, warnings)) return CurveFault{i, *fault};
    }
  }
  return std::nullopt;
}

Reach reachAt(const std::vector<Vertex>& v, std::size_t i) {
  if (i == 0 || i + 1 == v.size() || v[i].curve == Curve::none) return {};
  return reachOf(v[i], gradeBetween(v[i - 1], v[i]), gradeBetween(v[i], v[i + 1]));
}

}  // namespace

std::string metresText(double value) {
  char buffer[400];  // the greatest double has 309 digits before the point
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 3).ptr};
}

std::optional<CurveFault> checkCurves(Project& project, const std::string& where, std::vector<std::string>& warnings) {
  if (project.vertices.size() < 2) return CurveFault{0, "deux sommets au moins sont attendus", false};
  if (auto fault = complete(project, where, warnings)) return fault;
  auto& v = project.vertices;
  for (std::size_t i = 0; i + 1 < v.size(); ++i) {
    const double taken = reachAt(v, i).after + reachAt(v, i + 1).before;
    const double overlap = taken - (v[i + 1].at.station - v[i].at.station);
    if (overlap <= 0) continue;
    const std::size_t culprit = v[i + 1].curve == Curve::none ? i : i + 1;
    if (overlap > kRounding)
      return CurveFault{culprit, "les raccordements se chevauchent de " + metresText(overlap) +
                                     " m entre les stations " + metresText(v[i].at.station) + " et " +
                                     metresText(v[i + 1].at.station)};
    shrink(v[i], 1 - overlap / taken);
    shrink(v[i + 1], 1 - overlap / taken);
  }
  return std::nullopt;
}

}  // namespace atelier::exchange
