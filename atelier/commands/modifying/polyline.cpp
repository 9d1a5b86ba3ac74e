// PEDIT: closing, joining, widths, smoothing and vertices of polylines.
// Lines, arcs and polylines of the older kind first become lightweight polylines. A smoothed polyline doesn't keep its
// frame: straightening it only removes arcs.
#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/modifying/joining.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "atelier/shaping/curve_pieces.h"
#include "atelier/shaping/polyline_smoothing.h"

namespace atelier {
namespace {

using Vertices = std::vector<PolylineVertex>;

void replaceVertices(AcDbPolyline& polyline, const Vertices& list) {
  PolylineVertices* vertices = changedVertices(&polyline);
  if (vertices && list.size() > 1) vertices->list = list;
}

// --- options

void straighten(AcDbPolyline& polyline) {
  for (unsigned i = 0; i < polyline.numVerts(); ++i) polyline.setBulgeAt(i, 0);
}

void smooth(const Command& c, AcDbPolyline& polyline, bool arcs) {
  const Vertices list = verticesOf(&polyline).list;
  if (list.size() < 3) return;
  const SystemVariables& variables = c.document.variables();
  const int chords = std::clamp(std::abs(variables.integer("SPLINESEGS", 8)), 1, 1000);
  replaceVertices(
      polyline, arcs ? fittedByArcs(list, polyline.isClosed())
                     : framedCurve(list, polyline.isClosed(), variables.integer("SPLINETYPE", 6) == 5 ? 2 : 3, chords));
}

// Holds the polyline open for one change only, so that it isn't open during a question.
class Opened {
 public:
  Opened(const Command& c, AcDbObjectId id) : pointer_((checkInterruption(), id), AcDb::kForWrite) {
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

bool isSimple(const Command& c, AcDbObjectId id) {
  checkInterruption();
  const AcDbObject& object = c.document.imp().object(*id);
  return AcDbLine::cast(&object) || AcDbArc::cast(&object);
}

// Sets whether the dashes of the line type continue over vertices: bit 128 of the polyline's flags.
void setTypeAlong(AcDbPolyline& polyline, bool along) {
  constexpr std::int64_t kAlong = 128;
  constexpr Field kFlags = integerField("AcDbPolyline", 70);
  AcDbImpObject& imp = AcDbImpObject::of(&polyline);
  const std::int64_t flags = imp.record.integer(kFlags);
  imp.setInteger(kFlags, along ? flags | kAlong : flags & ~kAlong);
}

// Applies an option without questions to one polyline.
void apply(const Command& c, const std::string& option, AcDbObjectId id) {
  const Opened polyline(c, id);
  if (option == "Close" || option == "Open") polyline->setClosed(option == "Close");
  if (option == "Fit" || option == "Spline") smooth(c, *polyline, option == "Fit");
  if (option == "Decurve") straighten(*polyline);
  if (option == "Reverse") polyline->reverseCurve();
}

constexpr const char* kOptions =
    "\nOption [Clore/Ouvrir/Joindre/LArgeur/Sommet/LIsser/courBe/Redresser/Typeligne/INverser/Quitter] <Q>: ";
constexpr const char* kWords =
    "Clore Ouvrir Joindre LArgeur Sommet LIsser courBe Redresser Typeligne INverser Quitter "
    "_Close Open Join Width Edit Fit Spline Decurve Ltype Reverse eXit";
constexpr const char* kVertexWords =
    "Suivant Précédent Insérer Déplacer Effacer LArgeur Quitter _Next Previous Insert Move Straighten Width eXit";

CommandTask pedit(Command& c) {
  std::vector<AcDbObjectId> ids;
  const auto picked = co_await c.entity("\nPolyligne ou [Multiple]: ", "Multiple _Multiple");
  const bool many = picked.is("Multiple");
  if (many) {
    const auto chosen = co_await c.objects();
    if (chosen.given())
      for (AcDbStub* stub : (*chosen)->list()) {
        checkInterruption();
        if (AcDbCurve::cast(&c.document.imp().object(*stub)) && !isLocked(c.document, AcDbObjectId(stub)))
          ids.emplace_back(stub);
      }
  } else if (picked.given()) {
    pickedCurve(c.document, picked->id);
    refuseLocked(c.document, picked->id);
    ids.push_back(picked->id);
  }
  const bool asks = c.document.variables().integer("PEDITACCEPT", 0) == 0;
  if (asks && std::any_of(ids.begin(), ids.end(), [&](AcDbObjectId id) { return isSimple(c, id); })) {
    const auto convert =
        co_await c.keyword("\nTout n'est pas polyligne. Convertir lignes et arcs? [Oui/Non] <O>: ", "Oui Non _Yes No");
    if (convert.is("No")) std::erase_if(ids, [&](AcDbObjectId id) { return isSimple(c, id); });
  }
  const std::size_t chosenCount = ids.size();
  std::erase_if(ids, [&](AcDbObjectId id) { return !makeLight(c.document, id); });
  if (ids.empty() && chosenCount > 0) c.fail("L'objet ne devient pas une polyligne.");
  unsigned vertex = 0;
  for (bool editing = false; !ids.empty();) {
    const AcDbObjectId id = ids.front();
    if (!editing) {
      const auto option = co_await c.keyword(kOptions, kWords);
      if (option.is("Join") && many) {
        const auto reach = co_await c.distanceOrEnter("\nDistance d'approximation <0>: ");
        const int count = joinAmong(c, ids, std::max(reach.valueOr(0), 1e-6));
        c.print("\n" + std::to_string(count) + " segment(s) ajouté(s).");
      } else if (option.is("Join")) {
        const auto chosen = co_await c.objects();
        if (!chosen.given()) continue;
        const int count = joinTo(*Opened(c, id), **chosen, c.document.imp(), 1e-6);
        c.print("\n" + std::to_string(count) + " segment(s) ajouté(s).");
      } else if (option.is("Width")) {
        const auto width = co_await c.distanceOrEnter("\nLargeur de toute la polyligne: ");
        for (const AcDbObjectId each : ids)
          if (width.given()) Opened(c, each)->setConstantWidth(*width);
      } else if (option.is("Ltype")) {
        const auto on = co_await c.keyword("\nType de ligne suivi sur toute la polyligne [ACtif/Inactif]: ",
                                           "ACtif Inactif _ON OFF");
        for (const AcDbObjectId each : ids)
          if (on.isKeyword()) setTypeAlong(*Opened(c, each), on.is("ON"));
      } else if (option.is("Edit") && !many) {
        editing = true;
        vertex = 0;
      } else if (!option.isKeyword() || option.is("eXit")) {
        co_return;
      } else {
        for (const AcDbObjectId each : ids) apply(c, option.keyword(), each);
      }
      continue;
    }
    const std::string prompt = "\nSommet " + std::to_string(vertex + 1) +
                               " [Suivant/Précédent/Insérer/Déplacer/Effacer/LArgeur/Quitter] <S>: ";
    const auto option = co_await c.keyword(prompt, kVertexWords);
    const unsigned count = Opened(c, id)->numVerts();
    if (option.is("eXit")) {
      editing = false;
    } else if (option.is("Previous")) {
      vertex = (vertex + count - 1) % count;
    } else if (option.is("Insert") || option.is("Move")) {
      const auto place = co_await c.pointOrEnter("\nEmplacement du sommet: ");
      if (!place.given()) continue;
      const Opened polyline(c, id);
      const AcGePoint2d p = inPlane(*polyline, *place);
      if (option.is("Move")) polyline->setPointAt(vertex, p);
      else polyline->addVertexAt(vertex + 1, p);
    } else if (option.is("Straighten")) {
      if (count > 2) Opened(c, id)->removeVertexAt(vertex);
      vertex = std::min(vertex, count - 2);
    } else if (option.is("Width")) {
      const auto from = co_await c.distanceOrEnter("\nLargeur de départ: ");
      if (!from.given()) continue;
      const auto to = co_await c.distanceOrEnter("\nLargeur de fin <celle de départ>: ");
      Opened(c, id)->setWidthsAt(vertex, *from, to.valueOr(*from));
    } else {
      vertex = (vertex + 1) % count;
    }
  }
}

constexpr CommandRow kTable[] = {
    {"PEDIT", "PE EDITPOLY", pedit, "Modifie une polyligne."},
};

}  // namespace

std::span<const CommandRow> polylineCommands() { return kTable; }

}  // namespace atelier
