// HATCH: areas within closed curves, by a point inside or by the curves themselves.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/entities/pattern_definitions.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/selecting/flat_path.h"
#include "atelier/shaping/boundaries.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

double areaOf(const Stroke& stroke) {
  double twice = 0;
  for (std::size_t i = 0; i < stroke.points.size(); ++i) {
    const AcGePoint3d &a = stroke.points[i], &b = stroke.points[(i + 1) % stroke.points.size()];
    twice += a.x * b.y - b.x * a.y;
  }
  return std::abs(twice) / 2;
}

// A closed curve of the current space.
struct Outline {
  Boundary path;
  Stroke stroke;
  bool contains(const AcGePoint3d& point) const { return insidePolygon(point, stroke.points); }
};

std::vector<Outline> outlines(const Command& c) {
  std::vector<Outline> found;
  AcDbStub* space = c.document.database().currentSpaceId();
  if (!space || !space->children) return found;
  LayerStates layers(c.document.imp());
  for (AcDbStub* stub : *space->children) {
    if (stub->is(AcDbStub::kErased) || layers.isFrozen(*stub)) continue;
    const AcDbEntityPointer entity{AcDbObjectId(stub)};
    if (entity.openStatus() != Acad::eOk) continue;
    auto path = boundaryOf(*entity.object());
    const std::vector<Stroke> strokes = path && path->closed ? strokesOf(*entity.object()) : std::vector<Stroke>();
    if (strokes.size() == 1) found.push_back({std::move(*path), strokes.front()});
  }
  return found;
}

// The smallest closed curve about the point, and those within it that leave the point outside.
std::vector<Boundary> around(const Command& c, const AcGePoint3d& point) {
  const std::vector<Outline> all = outlines(c);
  const Outline* outer = nullptr;
  for (const Outline& outline : all)
    if (outline.contains(point) && (!outer || areaOf(outline.stroke) < areaOf(outer->stroke))) outer = &outline;
  if (!outer) c.fail("Aucune courbe fermée n'entoure ce point.");
  std::vector<Boundary> paths = {outer->path};
  for (const Outline& outline : all)
    if (&outline != outer && insidePolygon(std::vector<Stroke>{outline.stroke}, outer->stroke.points))
      paths.push_back(outline.path);
  return paths;
}

// --- the pattern

struct Pattern {
  std::string name;
  PatternPlacing placing;
  std::vector<PatternLine> lines;  // empty: solid
};

std::vector<PatternLine> linesOf(const Command& c, const std::string& name) {
  if (equalNoCase(name, "SOLID") || equalNoCase(name, "SOLIDE")) return {};
  if (auto common = commonPattern(name)) return *common;
  if (const auto file = c.document.interpreter().search().find(name + ".pat"))
    if (const auto text = lisp::readWholeFile(*file))
      if (auto lines = patternIn(*text, name)) return *lines;
  c.fail("Motif inconnu: " + name +
         ". SOLID, ANSI31, ANSI32, ANSI33, ANSI37, ANSI38, LINE, NET, NET3, DOTS, DASH, CROSS, "
         "EARTH ou un fichier " +
         name + ".pat est attendu.");
}

// Parallel lines at a distance, crossed on request.
std::vector<PatternLine> ownLines(double spacing, bool crossed) {
  std::vector<PatternLine> lines = {{0, {}, {0, spacing}, {}}};
  if (crossed) lines.push_back({90, {}, {0, spacing}, {}});
  return lines;
}

void addHatch(const Command& c, const std::vector<Boundary>& loops, const Pattern& pattern) {
  auto hatch = std::make_unique<AcDbHatch>();
  for (std::size_t i = 0; i < loops.size(); ++i) {
    AcGePoint2dArray points;
    AcGeDoubleArray bulges;
    for (const PolylineVertex& v : loops[i].vertices) {
      points.append(v.point);
      bulges.append(v.bulge);
    }
    hatch->appendLoop(i == 0 ? AcDbHatch::kExternal : AcDbHatch::kDefault, points, bulges);
  }
  if (pattern.lines.empty()) hatch->setPattern(AcDbHatch::kPreDefined, L"SOLID");
  else setPatternLines(*hatch, pattern.name, pattern.lines, pattern.placing);
  c.add(std::move(hatch));
}

// The pattern by its name, then its scale and angle, or the angle, distance and crossing of the user's own lines.
CommandTask askPattern(Command& c, const std::string& given, Pattern& pattern) {
  const std::string name = commandName(given);
  const bool own = name == "U" || name == "UTILISATEUR" || name == "USER";
  pattern.name = name == "S" || name == "SOLIDE" ? "SOLID" : given;
  pattern.lines = own ? ownLines(1, false) : linesOf(c, pattern.name);
  if (own) {
    const auto angle = co_await c.angleOrEnter("\nAngle des lignes <0>: ");
    const auto spacing = co_await c.distanceOrEnter("\nÉcart des lignes <1>: ");
    if (!(spacing.valueOr(1) > 0)) c.fail("L'écart doit être positif.");
    const auto crossed = co_await c.keyword("\nLignes croisées? [Oui/Non] <N>: ", "Oui Non _Yes No");
    pattern.placing = {1, angle.valueOr(0)};
    pattern.lines = ownLines(spacing.valueOr(1), crossed.is("Yes"));
  } else if (!pattern.lines.empty()) {
    const auto scale = co_await c.realOrEnter("\nÉchelle du motif <1>: ");
    if (!(scale.valueOr(1) > 0)) c.fail("L'échelle du motif doit être positive.");
    const auto angle = co_await c.angleOrEnter("\nAngle du motif <0>: ");
    pattern.placing = {scale.valueOr(1), angle.valueOr(0)};
  }
}

CommandTask askOutlines(Command& c, std::vector<Boundary>& loops) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  std::vector<Boundary> paths;
  for (AcDbStub* stub : (*chosen)->list()) {
    const AcDbEntityPointer entity{AcDbObjectId(stub)};
    if (entity.openStatus() != Acad::eOk) continue;
    if (auto path = boundaryOf(*entity.object())) paths.push_back(std::move(*path));
  }
  if (paths.empty() || !closeBoundaries(paths)) c.fail("Les objets choisis ne forment pas de contour fermé.");
  loops.insert(loops.end(), paths.begin(), paths.end());
}

// Programs also answer the questions of the command's first form: a pattern's name at once, and objects as the end.
CommandTask hatch(Command& c) {
  Pattern pattern;
  pattern.name = std::get<std::string>(*c.document.variables().value("HPNAME"));
  pattern.placing = {c.document.variables().real("HPSCALE", 1), c.document.variables().real("HPANG", 0)};
  pattern.lines = linesOf(c, pattern.name);
  std::vector<Boundary> loops;
  for (;;) {
    const auto given = co_await c.pointOrWord("\nPoint intérieur ou [Propriétés/Sélectionner] <fin>: ",
                                              "Propriétés Sélectionner _Properties Select");
    if (given.is("Properties")) {
      const auto name = co_await c.word("\nMotif ou [Solide/Utilisateur] <ANSI31>: ");
      const std::string chosen = name.value.empty() ? "ANSI31" : name.value;
      co_await askPattern(c, chosen, pattern);
    } else if (given.is("Select")) {
      co_await askOutlines(c, loops);
    } else if (given.isKeyword()) {
      co_await askPattern(c, given.keyword(), pattern);
      co_await askOutlines(c, loops);
      break;
    } else if (given.given()) {
      for (Boundary& path : around(c, *given)) loops.push_back(std::move(path));
    } else {
      break;
    }
  }
  if (loops.empty()) co_return;
  addHatch(c, loops, pattern);
  c.document.variables().set("HPNAME", pattern.name);
  c.document.variables().set("HPSCALE", pattern.placing.scale);
  c.document.variables().set("HPANG", pattern.placing.angle);
}

// The smallest closed curve about each point, as a polyline.
CommandTask boundary(Command& c) {
  for (;;) {
    const auto given = co_await c.pointOrEnter("\nPoint intérieur <fin>: ");
    if (!given.given()) co_return;
    for (const Boundary& path : around(c, *given)) {
      auto made = std::make_unique<AcDbPolyline>();
      unsigned index = 0;
      for (const PolylineVertex& v : path.vertices) made->addVertexAt(index++, v.point, v.bulge);
      made->setClosed(true);
      c.add(std::move(made));
    }
  }
}

constexpr CommandRow kTable[] = {
    {"-BOUNDARY", "BOUNDARY BO BPOLY CONTOUR -CONTOUR", boundary,
     "Dessine en polylignes la courbe fermée autour d'un point, et celles qu'elle contient."},
    {"HATCH", "-HATCH BHATCH -BHATCH H HACHURES -HACHURES", hatch, "Hachure l'intérieur de courbes fermées."},
};

}  // namespace

std::span<const CommandRow> hatchCommands() { return kTable; }

}  // namespace atelier
