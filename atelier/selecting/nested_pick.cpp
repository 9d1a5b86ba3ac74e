// Finds the part of a block reference at a point.
// At each level of nested blocks it takes the part nearest to the point.
#include "atelier/selecting/pick.h"

#include <limits>

#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/selecting/pick.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

constexpr int kDeepest = 16;

struct Nearest {
  AcDbStub* stub = nullptr;
  double distance = std::numeric_limits<double>::infinity();
};

Nearest nearestOf(const AcDbStub* owner, const AcGePoint3d& point) {
  Nearest nearest;
  if (!owner || !owner->children) return nearest;
  for (AcDbStub* child : *owner->children) {
    const AcDbEntity* entity =
        child->is(AcDbStub::kErased) ? nullptr : AcDbEntity::cast(&owner->database->object(*child));
    if (!entity || AcDbAttributeDefinition::cast(entity)) continue;
    const double distance = distanceTo(*entity, point);
    if (distance < nearest.distance) nearest = {child, distance};
  }
  return nearest;
}

lisp::Value matrixValue(lisp::Interpreter& in, const AcGeMatrix3d& m, MatrixForm form) {
  if (form == MatrixForm::square) {
    const auto row = [&](int r) {
      return in.list({lisp::Value::real(m(r, 0)), lisp::Value::real(m(r, 1)), lisp::Value::real(m(r, 2)),
                      lisp::Value::real(m(r, 3))});
    };
    return in.list({row(0), row(1), row(2), row(3)});
  }
  const auto column = [&](int c) { return in.point(m(0, c), m(1, c), m(2, c)); };
  return in.list({column(0), column(1), column(2), column(3)});
}

}  // namespace

lisp::Value nestedPick(Document& document, AcDbObjectId picked, const AcGePoint3d& point, MatrixForm form) {
  lisp::Interpreter& in = document.interpreter();
  AcDbStub* stub = picked;
  AcGeMatrix3d matrix;
  lisp::Value inserts;
  for (int depth = 0; depth < kDeepest; ++depth) {
    const auto* reference = AcDbBlockReference::cast(&document.imp().object(*stub));
    if (!reference) break;
    const AcGeMatrix3d inner = matrix * reference->blockTransform();
    const Nearest part = nearestOf(reference->blockTableRecord(), inner.isSingular() ? point : inner.inverse() * point);
    const Nearest attribute = nearestOf(stub, matrix.inverse() * point);
    if (attribute.stub && attribute.distance <= part.distance)
      return in.list({entityValue(in, attribute.stub), pointValue(in, point)});
    if (!part.stub) break;
    inserts = in.cons(entityValue(in, stub), inserts);
    matrix = inner;
    stub = part.stub;
  }
  if (inserts.isNil()) return in.list({entityValue(in, stub), pointValue(in, point)});
  return in.list({entityValue(in, stub), pointValue(in, point), matrixValue(in, matrix, form), inserts});
}

}  // namespace atelier
