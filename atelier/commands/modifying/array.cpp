// ARRAY and ALIGN: objects repeated in rows or around a centre, and laid onto other points.
// The questions of ARRAY are those of its first form, which programs answer.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr int kMostCopies = 100000;

void checkCount(const Command& c, int count, std::size_t objects) {
  if (count < 1) c.fail("Un nombre positif est attendu.");
  if (static_cast<double>(count) * static_cast<double>(objects) > kMostCopies)
    c.fail("Le réseau ferait plus de " + std::to_string(kMostCopies) + " objets.");
}

CommandTask rectangular(Command& c, const SelectionSet& set) {
  const auto rows = co_await c.integerOrEnter("\nNombre de rangées (---) <1>: ");
  const auto columns = co_await c.integerOrEnter("\nNombre de colonnes (|||) <1>: ");
  const int down = rows.valueOr(1), across = columns.valueOr(1);
  checkCount(c, down, 1);
  checkCount(c, across, static_cast<std::size_t>(down) * set.list().size());
  double dy = 0, dx = 0;
  if (down > 1) {
    const auto distance = co_await c.distance("\nDistance entre les rangées: ");
    dy = distance.value;
  }
  if (across > 1) {
    const auto distance = co_await c.distance("\nDistance entre les colonnes: ");
    dx = distance.value;
  }
  for (int i = 0; i < down; ++i)
    for (int k = 0; k < across; ++k)
      if (i + k > 0) c.copies(set, AcGeMatrix3d::translation({k * dx, i * dy, 0}));
}

// Where an object stands when it isn't turned: its centre, insertion or first point.
AcGePoint3d placeOf(const SelectionSet& set) {
  const AcDbEntityPointer last(AcDbObjectId(set.list().back()));
  if (last.openStatus() != Acad::eOk) return {};
  const Record& record = AcDbImpObject::of(last.object()).record;
  for (std::size_t i = 0; i + 1 < record.groups.size(); ++i)
    if (record.groups[i].code() == 10 && record.groups[i + 1].code() == 20)
      return {record.groups[i].real(), record.groups[i + 1].real(), 0};
  return {};
}

CommandTask polar(Command& c, const SelectionSet& set) {
  const auto given = co_await c.point("\nCentre du réseau: ");
  const AcGePoint3d centre = given.value;
  const auto items = co_await c.integerOrEnter("\nNombre d'objets: ");
  const auto filled = co_await c.angleOrEnter("\nAngle à remplir, + dans le sens trigonométrique <360>: ");
  const bool whole = !filled.given() || std::abs(std::abs(*filled) - kTurn) < 1e-9 || *filled == 0;
  const double angle = whole ? std::copysign(kTurn, filled.valueOr(kTurn)) : *filled;
  double step = 0;
  int count = items.valueOr(0);
  if (items.given()) {
    checkCount(c, count, set.list().size());
    step = whole ? angle / count : angle / std::max(count - 1, 1);
  } else {
    const auto between = co_await c.angle("\nAngle entre les objets: ");
    if (between.value == 0) c.fail("L'angle entre les objets ne peut pas être nul.");
    step = std::copysign(between.value, angle);
    count = static_cast<int>(std::abs(angle / step) + 1e-9) + (whole ? 0 : 1);
    checkCount(c, count, set.list().size());
  }
  const auto turned = co_await c.keyword("\nFaire tourner les objets? [Oui/Non] <O>: ", "Oui Non _Yes No");
  const AcGePoint3d place = placeOf(set);
  for (int i = 1; i < count; ++i) {
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(i * step, AcGeVector3d(0, 0, 1), centre);
    c.copies(set, turned.is("No") ? AcGeMatrix3d::translation(turn * place - place) : turn);
  }
}

CommandTask array(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto kind =
      co_await c.keyword("\nRéseau [Rectangulaire/Polaire] <R>: ", "Rectangulaire Polaire _Rectangular Polar");
  if (kind.is("Polar")) co_await polar(c, **chosen);
  else co_await rectangular(c, **chosen);
}

// From the first pair of points a displacement, from the second a rotation, and a scale where wanted.
CommandTask align(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto from = co_await c.point("\nPremier point d'origine: ");
  const auto to = co_await c.point("\nPremier point d'arrivée: ", from.value);
  AcGeMatrix3d matrix = AcGeMatrix3d::translation(to.value - from.value);
  const auto from2 = co_await c.pointOrEnter("\nDeuxième point d'origine <déplacer seulement>: ");
  if (from2.given()) {
    const auto to2 = co_await c.point("\nDeuxième point d'arrivée: ", *from2);
    const auto third = co_await c.pointOrEnter("\nTroisième point d'origine <continuer>: ");
    if (third.given()) c.fail("ALIGNER: deux paires de points, dans le plan.");
    const auto scaled =
        co_await c.keyword("\nMettre à l'échelle d'après les points? [Oui/Non] <N>: ", "Oui Non _Yes No");
    const AcGeVector3d before = *from2 - from.value, after = to2.value - to.value;
    const AcGeVector2d flatBefore(before.x, before.y), flatAfter(after.x, after.y);
    if (flatBefore.length() == 0 || flatAfter.length() == 0) c.fail("Deux des points sont confondus.");
    matrix = AcGeMatrix3d::rotation(flatAfter.angle() - flatBefore.angle(), AcGeVector3d(0, 0, 1), to.value) * matrix;
    if (scaled.is("Yes")) matrix = AcGeMatrix3d::scaling(flatAfter.length() / flatBefore.length(), to.value) * matrix;
  }
  c.transform(**chosen, matrix);
}

constexpr CommandRow kTable[] = {
    {"-ARRAY", "ARRAY AR -AR RESEAU -RESEAU", array, "Répète des objets en rangées ou autour d'un centre."},
    {"ALIGN", "AL ALIGNER", align, "Déplace, tourne et au besoin agrandit des objets d'après deux paires de points."},
};

}  // namespace

std::span<const CommandRow> arrayCommands() { return kTable; }

}  // namespace atelier
