// ERASE MOVE COPY ROTATE SCALE MIRROR: changes to objects.
// Objects on locked layers are not changed.
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/modifying/displacement.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "hote/dbpl.h"

namespace atelier {

CommandTask askDisplacement(Command& c, AcGeVector3d& by) {
  const auto base = co_await c.point("\nPoint de base ou [Déplacement]: ", {}, "Déplacement _Displacement");
  if (base.is("Displacement")) {
    const auto vector = co_await c.point("\nDéplacement: ");
    by = vector.value.asVector();
  } else {
    const auto to = co_await c.pointOrEnter("\nDeuxième point <le premier est le déplacement>: ", base.value);
    by = to.given() ? *to - base.value : base.value.asVector();
  }
}

namespace {

CommandTask select(Command& c) { co_await c.objects(); }

CommandTask erase(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  c.document.lastErased.clear();
  c.change(**chosen, [&](AcDbEntity& entity) {
    if (entity.erase() == Acad::eOk) c.document.lastErased.push_back(entity.objectId());
  });
}

CommandTask move(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  AcGeVector3d by;
  co_await askDisplacement(c, by);
  c.transform(**chosen, AcGeMatrix3d::translation(by));
}

// A program makes one copy unless it asks for Multiple; a user one for each point given.
CommandTask copy(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  auto base = co_await c.point("\nPoint de base ou [Déplacement/Multiple]: ", {},
                               "Déplacement Multiple _Displacement Multiple");
  const bool one = c.document.prompter().source->isProgram() && !base.is("Multiple");
  if (base.is("Multiple")) base = co_await c.point("\nPoint de base: ");
  if (base.is("Displacement")) {
    const auto vector = co_await c.point("\nDéplacement: ");
    c.copies(**chosen, AcGeMatrix3d::translation(vector.value.asVector()));
    co_return;
  }
  for (bool first = true;; first = false) {
    const auto to = co_await c.pointOrEnter("\nDeuxième point <fin>: ", base.value);
    if (!to.given() && !first) co_return;
    c.copies(**chosen, AcGeMatrix3d::translation(to.given() ? *to - base.value : base.value.asVector()));
    if (!to.given() || one) co_return;
  }
}

// What is kept stays as it is: its handles are known to others, and its layer may be locked.
void transform(const Command& c, const SelectionSet& set, const AcGeMatrix3d& matrix, bool keepOriginal) {
  if (keepOriginal) c.copies(set, matrix);
  else c.transform(set, matrix);
}

CommandTask rotate(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto base = co_await c.point("\nPoint de base: ");
  bool keep = false;
  double from = 0;
  for (;;) {
    const auto turn =
        co_await c.angle("\nAngle de rotation ou [Copier/Référence]: ", base.value, "Copier Référence _Copy Reference");
    if (turn.is("Copy")) {
      keep = true;
    } else if (turn.is("Reference")) {
      const auto reference = co_await c.angleOrEnter("\nAngle de référence <0>: ", base.value);
      from = reference.valueOr(0);
    } else {
      transform(c, **chosen, AcGeMatrix3d::rotation(turn.value - from, AcGeVector3d(0, 0, 1), base.value), keep);
      co_return;
    }
  }
}

CommandTask scale(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto base = co_await c.point("\nPoint de base: ");
  bool keep = false;
  double unit = 1;
  for (;;) {
    const auto factor = co_await c.distance("\nFacteur d'échelle ou [Copier/Référence]: ", base.value,
                                            "Copier Référence _Copy Reference");
    if (factor.is("Copy")) {
      keep = true;
    } else if (factor.is("Reference")) {
      const auto length = co_await c.distanceOrEnter("\nLongueur de référence <1>: ", base.value);
      unit = length.valueOr(1);
    } else {
      if (!(factor.value > 0) || !(unit > 0)) c.fail("Le facteur d'échelle doit être positif.");
      transform(c, **chosen, AcGeMatrix3d::scaling(factor.value / unit, base.value), keep);
      co_return;
    }
  }
}

AcGeMatrix3d mirrorMatrix(const AcGePoint3d& a, const AcGePoint3d& b) {
  const double angle = 2 * AcGeVector2d(b.x - a.x, b.y - a.y).angle();
  AcGeMatrix3d reflection;
  reflection(0, 0) = std::cos(angle);
  reflection(0, 1) = reflection(1, 0) = std::sin(angle);
  reflection(1, 1) = -std::cos(angle);
  return AcGeMatrix3d::translation(a.asVector()) * reflection * AcGeMatrix3d::translation(-a.asVector());
}

CommandTask mirror(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto a = co_await c.point("\nPremier point de l'axe: ");
  const auto b = co_await c.point("\nDeuxième point de l'axe: ", a.value);
  if (a.value.distanceTo(b.value) == 0) c.fail("Les deux points de l'axe sont confondus.");
  const auto answer = co_await c.keyword("\nEffacer les objets d'origine? [Oui/Non] <N>: ", "Oui Non _Yes No");
  transform(c, **chosen, mirrorMatrix(a.value, b.value), !answer.is("Yes"));
}

constexpr CommandRow kTable[] = {
    {"SELECT", "SELECTION", select, "Choisit des objets: ils deviennent la sélection précédente."},
    {"ERASE", "E EFFACER DELETE", erase, "Efface des objets."},
    {"MOVE", "M DEPLACER", move, "Déplace des objets."},
    {"COPY", "CO CP COPIER", copy, "Copie des objets."},
    {"ROTATE", "RO ROTATION", rotate, "Tourne des objets."},
    {"SCALE", "SC ECHELLE", scale, "Agrandit ou réduit des objets."},
    {"MIRROR", "MI MIROIR", mirror, "Retourne des objets autour d'un axe."},
};

}  // namespace

std::span<const CommandRow> editingCommands() { return kTable; }

}  // namespace atelier
