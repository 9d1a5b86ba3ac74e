// DIVIDE MEASURE: points or blocks along a curve.
// The curve itself isn't cut; what was put along it is the previous selection afterwards.
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

// What is put along the curve: points, or references of a block, turned along the curve or not.
struct Marks {
  AcDbObjectId block;
  bool aligned = false;
  std::shared_ptr<SelectionSet> put = std::make_shared<SelectionSet>();
};

AcDbObjectId blockNamed(const Command& c, const std::string& name) {
  AcDbStub* block = c.document.imp().tableRecord("BLOCK_RECORD", name);
  if (!block || name.starts_with('*')) c.fail("Bloc inconnu: " + name);
  return idOf(block);
}

void mark(const Command& c, const AcDbCurve& curve, const Marks& marks, double distance) {
  AcGePoint3d at;
  double param = 0;
  if (curve.getPointAtDist(distance, at) != Acad::eOk || curve.getParamAtDist(distance, param) != Acad::eOk) return;
  if (marks.block.isNull()) {
    marks.put->add(c.add(std::make_unique<AcDbPoint>(at)));
    return;
  }
  auto reference = std::make_unique<AcDbBlockReference>(at, marks.block);
  AcGeVector3d along;
  if (marks.aligned && curve.getFirstDeriv(param, along) == Acad::eOk)
    reference->setRotation(std::atan2(along.y, along.x));
  marks.put->add(c.add(std::move(reference)));
}

CommandTask askBlock(Command& c, Marks& marks) {
  const auto name = co_await c.word("\nNom du bloc: ");
  marks.block = blockNamed(c, name.value);
  const auto align = co_await c.keyword("\nAligner le bloc sur l'objet? [Oui/Non] <O>: ", "Oui Non _Yes No");
  marks.aligned = !align.is("No");
}

struct Measured {
  const AcDbCurve* curve;
  double length = 0;
};

Measured measured(const Command& c, const AcDbObjectPointer<AcDbCurve>& curve) {
  Measured result{curve.openStatus() == Acad::eOk ? curve.object() : nullptr};
  double end = 0;
  if (!result.curve || curve->getEndParam(end) != Acad::eOk || curve->getDistAtParam(end, result.length) != Acad::eOk ||
      !(result.length > 0) || !std::isfinite(result.length))
    c.fail("L'objet choisi n'est pas une courbe qui a une longueur.");
  return result;
}

CommandTask divide(Command& c) {
  const auto picked = co_await c.entity("\nObjet à diviser: ");
  if (!picked.given()) co_return;
  Marks marks;
  auto number = co_await c.integer("\nNombre de segments ou [Bloc]: ", "Bloc _Block");
  if (number.is("Block")) {
    co_await askBlock(c, marks);
    number = co_await c.integer("\nNombre de segments: ");
  }
  constexpr int kMost = 32767;
  if (number.value < 2 || number.value > kMost) c.fail("De 2 à 32767 segments sont attendus.");
  const AcDbObjectPointer<AcDbCurve> curve(picked->id);
  const Measured whole = measured(c, curve);
  // A closed curve is marked at its start, too.
  for (int i = whole.curve->isClosed() ? 0 : 1; i < number.value; ++i)
    mark(c, *whole.curve, marks, whole.length * i / number.value);
  c.document.previousSelection = marks.put;
}

CommandTask measure(Command& c) {
  const auto picked = co_await c.entity("\nObjet à mesurer: ");
  if (!picked.given()) co_return;
  Marks marks;
  auto step = co_await c.distance("\nLongueur des segments ou [Bloc]: ", {}, "Bloc _Block");
  if (step.is("Block")) {
    co_await askBlock(c, marks);
    step = co_await c.distance("\nLongueur des segments: ");
  }
  if (!(step.value > 0)) c.fail("La longueur doit être positive.");
  const AcDbObjectPointer<AcDbCurve> curve(picked->id);
  const Measured whole = measured(c, curve);
  constexpr double kMost = 100000, kRounding = 1e-9;
  if (whole.length / step.value > kMost) c.fail("Cette longueur donnerait plus de 100000 segments.");
  // From the end that is nearer to the pick.
  AcGePoint3d start, end;
  const bool back = whole.curve->getStartPoint(start) == Acad::eOk && whole.curve->getEndPoint(end) == Acad::eOk &&
                    picked->byPoint && picked->point.distanceTo(end) < picked->point.distanceTo(start);
  for (double along = step.value; along < whole.length * (1 - kRounding); along += step.value)
    mark(c, *whole.curve, marks, back ? whole.length - along : along);
  c.document.previousSelection = marks.put;
}

constexpr CommandRow kTable[] = {
    {"DIVIDE", "DIV DIVISER", divide, "Place des points ou des blocs qui divisent une courbe en parties égales."},
    {"MEASURE", "ME MESURER", measure, "Place des points ou des blocs à intervalles réguliers le long d'une courbe."},
};

}  // namespace

std::span<const CommandRow> divideCommands() { return kTable; }

}  // namespace atelier
