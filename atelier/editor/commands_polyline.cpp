// PEDIT: closing, joining, widths, smoothing and vertices of polylines.
// Lines and arcs, and polylines of the older kind, become lightweight polylines first. A smoothed polyline keeps no
// frame: straightening takes its arcs away.
#include <cmath>
#include <numbers>

#include "atelier/database/polyline_vertices.h"
#include "atelier/editor/command_table.h"
#include "atelier/editor/curve_pieces.h"
#include "atelier/editor/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

using Vertices = std::vector<PolylineVertex>;

// Gives the object's place to a light polyline made of it; false when it is none and can't become one.
bool makeLight(const Command& c, AcDbObjectId id) {
  const AcDbCurve& curve = pickedCurve(c, id);
  if (AcDbPolyline::cast(&curve)) return true;
  auto made = std::make_unique<AcDbPolyline>();
  if (AcDb2dPolyline::cast(&curve)) {
    AcDbEntity* source = const_cast<AcDbCurve*>(&curve);
    if (made->convertFrom(source, false) != Acad::eOk) return false;
  } else {
    const AcDbArc* arc = AcDbArc::cast(&curve);
    AcGePoint3d start, end;
    if ((!arc && !AcDbLine::cast(&curve)) || curve.getStartPoint(start) != Acad::eOk || curve.getEndPoint(end) != Acad::eOk)
      return false;
    const AcGeVector3d normal = arc ? arc->normal() : AcGeVector3d::kZAxis;
    const AcGeMatrix3d toPlane = AcGeMatrix3d().setToPlaneToWorld(normal).inverse();
    const AcGePoint3d a = toPlane * start, b = toPlane * end;
    made->addVertexAt(0, AcGePoint2d(a.x, a.y), arc ? std::tan(arc->totalAngle() / 4) : 0);
    made->addVertexAt(1, AcGePoint2d(b.x, b.y));
    made->setElevation(a.z);
    if (normal.z < 1) made->setNormal(normal);
  }
  CurvePieces pieces;
  pieces.push_back(std::move(made));
  replaceByPieces(c, id, std::move(pieces));
  return true;
}

// Takes in what touches an end, until nothing does.
int join(AcDbPolyline& polyline, const SelectionSet& set, AcDbImpDatabase& database, double reach) {
  std::vector<AcDbStub*> left;
  for (AcDbStub* stub : set.list())
    if (!stub->is(AcDbStub::kErased) && stub != stubOf(&polyline)) left.push_back(stub);
  int joined = 0;
  for (bool again = true; again;) {
    again = false;
    for (auto it = left.begin(); it != left.end() && !polyline.isClosed(); ++it) {
      const AcDbCurve* curve = AcDbCurve::cast(&database.object(**it));
      if (!curve || polyline.joinWith(curve, reach) != Acad::eOk) continue;
      const AcDbEntityPointer used(AcDbObjectId(*it), AcDb::kForWrite);
      if (used.openStatus() == Acad::eOk) used->erase();
      left.erase(it);
      ++joined;
      again = true;
      break;
    }
  }
  return joined;
}

void replaceVertices(AcDbPolyline& polyline, const Vertices& list) {
  PolylineVertices* vertices = changedVertices(&polyline);
  if (vertices && list.size() > 1) vertices->list = list;
}

// --- smoothing

AcGeVector2d tangentAt(const Vertices& list, std::size_t i, bool closed) {
  const std::size_t count = list.size();
  const bool first = i == 0 && !closed, last = i + 1 == count && !closed;
  if (count < 3) return list[1].point - list[0].point;
  const AcGePoint2d &a = list[first ? 0 : last ? count - 3 : (i + count - 1) % count].point, &b = list[first ? 1 : last ? count - 2 : i].point,
                    &d = list[first ? 2 : last ? count - 1 : (i + 1) % count].point;
  const AcGeVector2d u = b - a, v = d - b;
  // The circle through three points has the turn of its chords spread by their lengths.
  const double turn = std::remainder(v.angle() - u.angle(), 2 * std::numbers::pi);
  const double share = u.length() / (u.length() + v.length());
  const double angle = first ? u.angle() - turn * share : last ? v.angle() + turn * (1 - share) : u.angle() + turn * share;
  return {std::cos(angle), std::sin(angle)};
}

double bulgeTo(const AcGeVector2d& tangent, const AcGeVector2d& chord) {
  return std::tan(std::remainder(chord.angle() - tangent.angle(), 2 * std::numbers::pi) / 2);
}

// Two arcs from each vertex to the next, with one tangent at every vertex.
Vertices fitted(const Vertices& list, bool closed) {
  Vertices made;
  const std::size_t count = list.size();
  for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
    const AcGePoint2d &a = list[i].point, &b = list[(i + 1) % count].point;
    const AcGeVector2d t0 = tangentAt(list, i, closed), t1 = tangentAt(list, (i + 1) % count, closed), chord = b - a;
    const AcGeVector2d sum = t0 + t1;
    // Equal legs: the joint lies where the tangents' ways of that length meet halfway.
    const double q = 2 * (1 - t0.dotProduct(t1)), p = chord.dotProduct(sum), square = chord.dotProduct(chord);
    const double leg = q < 1e-12 ? square / (2 * p) : (-p + std::sqrt(p * p + q * square)) / q;
    const AcGePoint2d joint = a + (chord + (t0 - t1) * leg) * 0.5;
    PolylineVertex begin = list[i], middle = list[i];
    begin.bulge = bulgeTo(t0, joint - a);
    middle.point = joint;
    middle.bulge = -bulgeTo(AcGeVector2d(-t1.x, -t1.y), a + (joint - a) - b);
    if (!std::isfinite(begin.bulge) || !std::isfinite(middle.bulge) || !std::isfinite(joint.x)) begin.bulge = 0;
    made.push_back(begin);
    if (std::isfinite(joint.x) && std::isfinite(middle.bulge)) made.push_back(middle);
  }
  if (!closed) made.push_back(list.back());
  return made;
}

// The uniform B-spline over the vertices as its frame, of the degree that SPLINETYPE names, as chords.
Vertices splined(const Vertices& list, bool closed, int degree, int chords) {
  const int count = static_cast<int>(list.size());
  degree = std::min(degree, count - 1);
  std::vector<double> knots;
  const int points = closed ? count + degree : count;
  for (int i = 0; i <= points + degree; ++i) knots.push_back(closed ? i : std::clamp(i - degree, 0, points - degree));
  const auto at = [&](double t) {
    int span = degree;
    while (span + 1 < points && t >= knots[static_cast<std::size_t>(span) + 1]) ++span;
    std::vector<AcGePoint2d> p;
    for (int i = 0; i <= degree; ++i) p.push_back(list[static_cast<std::size_t>((span - degree + i) % count)].point);
    for (int r = 1; r <= degree; ++r)
      for (int i = degree; i >= r; --i) {
        const double low = knots[static_cast<std::size_t>(span - degree + i)], high = knots[static_cast<std::size_t>(span + 1 + i - r)];
        const double part = high > low ? (t - low) / (high - low) : 0;
        const auto k = static_cast<std::size_t>(i);
        p[k] = p[k - 1] + (p[k] - p[k - 1]) * part;
      }
    return p[static_cast<std::size_t>(degree)];
  };
  const double from = knots[static_cast<std::size_t>(degree)], to = knots[static_cast<std::size_t>(points)];
  const int steps = chords * (closed ? count : count - 1);
  Vertices made;
  for (int i = 0; i < steps + (closed ? 0 : 1); ++i) {
    PolylineVertex v;
    v.point = i == steps ? list.back().point : at(from + (to - from) * i / steps);
    made.push_back(v);
  }
  return made;
}

void straighten(AcDbPolyline& polyline) {
  for (unsigned i = 0; i < polyline.numVerts(); ++i) polyline.setBulgeAt(i, 0);
}

void smooth(const Command& c, AcDbPolyline& polyline, bool arcs) {
  const Vertices list = verticesOf(&polyline).list;
  if (list.size() < 3) return;
  const SystemVariables& variables = c.document.variables();
  const int chords = std::clamp(std::abs(variables.integer("SPLINESEGS", 8)), 1, 1000);
  replaceVertices(polyline, arcs ? fitted(list, polyline.isClosed())
                                 : splined(list, polyline.isClosed(), variables.integer("SPLINETYPE", 6) == 5 ? 2 : 3, chords));
}

// The polyline open for as long as one change takes, so that a question never finds it open.
class Opened {
 public:
  Opened(const Command& c, AcDbObjectId id) : pointer_(id, AcDb::kForWrite) {
    if (pointer_.openStatus() != Acad::eOk) c.fail("L'objet ne peut pas être modifié.");
  }
  AcDbPolyline* operator->() const { return pointer_.object(); }
  AcDbPolyline& operator*() const { return *pointer_.object(); }

 private:
  AcDbObjectPointer<AcDbPolyline> pointer_;
};

AcGePoint2d inPlane(const AcDbPolyline& polyline, const AcGePoint3d& p) {
  const AcGePoint3d q = AcGeMatrix3d().setToPlaneToWorld(polyline.normal()).inverse() * p;
  return {q.x, q.y};
}

constexpr const char* kOptions =
    "\nOption [Clore/Ouvrir/Joindre/LArgeur/Sommet/LIsser/courBe/Redresser/Inverser/Quitter] <Q>: ";
constexpr const char* kWords =
    "Clore Ouvrir Joindre LArgeur Sommet LIsser courBe Redresser Inverser Quitter "
    "_Close Open Join Width Edit Fit Spline Decurve Reverse eXit";

CommandTask pedit(Command& c) {
  const auto picked = co_await c.entity("\nPolyligne: ");
  if (!picked.given()) co_return;
  const AcDbObjectId id = picked.value.id;
  const AcDbCurve& before = pickedCurve(c, id);
  const bool simple = AcDbLine::cast(&before) || AcDbArc::cast(&before);
  if (simple && c.document.variables().integer("PEDITACCEPT", 0) == 0) {
    const auto convert = co_await c.keyword("\nL'objet n'est pas une polyligne. Le convertir? [Oui/Non] <O>: ", "Oui Non _Yes No");
    if (convert.is("No")) co_return;
  }
  if (!makeLight(c, id)) c.fail("L'objet ne devient pas une polyligne.");
  unsigned vertex = 0;
  for (bool editing = false;;) {
    if (!editing) {
      const auto option = co_await c.keyword(kOptions, kWords);
      if (option.is("Join")) {
        const auto chosen = co_await c.objects();
        if (!chosen.given()) continue;
        const Opened polyline(c, id);
        const int count = join(*polyline, *chosen.value, c.document.imp(), 1e-6);
        c.print("\n" + std::to_string(count) + " segment(s) ajouté(s).");
      } else if (option.is("Width")) {
        const auto width = co_await c.distance("\nLargeur de toute la polyligne: ");
        if (width.given()) Opened(c, id)->setConstantWidth(width.value);
      } else if (option.is("Close") || option.is("Open")) {
        Opened(c, id)->setClosed(option.is("Close"));
      } else if (option.is("Fit") || option.is("Spline")) {
        smooth(c, *Opened(c, id), option.is("Fit"));
      } else if (option.is("Decurve")) {
        straighten(*Opened(c, id));
      } else if (option.is("Reverse")) {
        Opened(c, id)->reverseCurve();
      } else if (option.is("Edit")) {
        editing = true;
        vertex = 0;
      } else {
        co_return;
      }
      continue;
    }
    const std::string prompt = "\nSommet " + std::to_string(vertex + 1) + " [Suivant/Précédent/Insérer/Déplacer/Effacer/LArgeur/Quitter] <S>: ";
    const auto option = co_await c.keyword(prompt, "Suivant Précédent Insérer Déplacer Effacer LArgeur Quitter "
                                                   "_Next Previous Insert Move Straighten Width eXit");
    const unsigned count = Opened(c, id)->numVerts();
    if (option.is("eXit")) {
      editing = false;
    } else if (option.is("Previous")) {
      vertex = (vertex + count - 1) % count;
    } else if (option.is("Insert") || option.is("Move")) {
      const auto place = co_await c.point("\nEmplacement du sommet: ");
      if (!place.given()) continue;
      const Opened polyline(c, id);
      const AcGePoint2d p = inPlane(*polyline, place.value);
      if (option.is("Move")) polyline->setPointAt(vertex, p);
      else polyline->addVertexAt(vertex + 1, p);
    } else if (option.is("Straighten")) {
      if (count > 2) Opened(c, id)->removeVertexAt(vertex);
      vertex = std::min(vertex, count - 2);
    } else if (option.is("Width")) {
      const auto from = co_await c.distance("\nLargeur de départ: ");
      const auto to = co_await c.distance("\nLargeur de fin <celle de départ>: ");
      if (from.given()) Opened(c, id)->setWidthsAt(vertex, from.value, to.valueOr(from.value));
    } else {
      vertex = (vertex + 1) % count;
    }
  }
}

constexpr CommandRow kTable[] = {
    {"PEDIT", "PE EDITPOLY", pedit, "Modifie une polyligne."},
};

}  // namespace

std::span<const CommandRow> polylineCommands() {
  return kTable;
}

}  // namespace atelier
