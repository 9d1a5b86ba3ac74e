// ELLIPSE POLYGON DONUT SOLID RAY XLINE: figures given by a few points.
// Geometry is made in the plane of the world.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/document/document.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

void addEllipse(const Command& c, const AcGePoint3d& centre, AcGeVector3d axis, double other) {
  const double half = axis.length();
  if (!(half > 0) || !(other > 0)) c.fail("Les axes d'une ellipse ont une longueur.");
  // The longer of the two is the major one.
  double ratio = other / half;
  if (ratio > 1) {
    axis = AcGeVector3d(-axis.y, axis.x, 0) * ratio;
    ratio = 1 / ratio;
  }
  c.add(std::make_unique<AcDbEllipse>(centre, AcGeVector3d(0, 0, 1), axis, ratio));
}

CommandTask ellipse(Command& c) {
  const auto first = co_await c.point("\nExtrémité d'un axe ou [Centre]: ", {}, "Centre _Center");
  if (first.is("Center")) {
    const auto centre = co_await c.point("\nCentre de l'ellipse: ");
    const auto end = co_await c.point("\nExtrémité de l'axe: ", centre.value);
    const auto other = co_await c.distance("\nLongueur de l'autre demi-axe: ", centre.value);
    addEllipse(c, centre.value, end.value - centre.value, other.value);
    co_return;
  }
  const auto end = co_await c.point("\nAutre extrémité de l'axe: ", first.value);
  const AcGePoint3d centre = first.value + (end.value - first.value) * 0.5;
  const auto other = co_await c.distance("\nLongueur de l'autre demi-axe: ", centre);
  addEllipse(c, centre, end.value - centre, other.value);
}

CommandTask polygon(Command& c) {
  const int known = c.document.variables().integer("POLYSIDES", 4);
  const std::string prompt = "\nNombre de côtés <" + std::to_string(known) + ">: ";
  const auto number = co_await c.integerOrEnter(prompt);
  const int sides = number.valueOr(known);
  if (sides < 3 || sides > 1024) c.fail("De 3 à 1024 côtés sont attendus.");
  c.document.variables().set("POLYSIDES", sides);
  const auto centre = co_await c.point("\nCentre du polygone: ");
  const auto how =
      co_await c.keyword("\nOption [Inscrit/Circonscrit] <I>: ", "Inscrit Circonscrit _Inscribed Circumscribed");
  const auto radius = co_await c.distance("\nRayon du cercle: ", centre.value);
  if (!(radius.value > 0)) c.fail("Le rayon doit être positif.");
  const double half = std::numbers::pi / sides;
  const double reach = how.is("Circumscribed") ? radius.value / std::cos(half) : radius.value;
  auto made = std::make_unique<AcDbPolyline>();
  for (int i = 0; i < sides; ++i) {
    const double angle = -std::numbers::pi / 2 - half + 2 * half * i;  // a side lies below
    made->addVertexAt(static_cast<unsigned>(i),
                      {centre.value.x + reach * std::cos(angle), centre.value.y + reach * std::sin(angle)});
  }
  made->setClosed(true);
  made->setElevation(centre.value.z);
  c.add(std::move(made));
}

CommandTask donut(Command& c) {
  const double inner = c.document.variables().real("DONUTID", 0.5), outer = c.document.variables().real("DONUTOD", 1);
  const std::string insidePrompt = "\nDiamètre intérieur <" + realText(inner) + ">: ",
                    outsidePrompt = "\nDiamètre extérieur <" + realText(outer) + ">: ";
  const auto inside = co_await c.distanceOrEnter(insidePrompt);
  const auto outside = co_await c.distanceOrEnter(outsidePrompt);
  const double a = inside.valueOr(inner), b = outside.valueOr(outer);
  if (a < 0 || !(b > a)) c.fail("Le diamètre extérieur doit dépasser l'intérieur.");
  c.document.variables().set("DONUTID", a);
  c.document.variables().set("DONUTOD", b);
  for (;;) {
    const auto centre = co_await c.pointOrEnter("\nCentre de l'anneau <fin>: ");
    if (!centre.given()) co_return;
    const double middle = (a + b) / 4, width = (b - a) / 2;
    auto made = std::make_unique<AcDbPolyline>();
    made->addVertexAt(0, {centre->x - middle, centre->y}, 1, width, width);
    made->addVertexAt(1, {centre->x + middle, centre->y}, 1, width, width);
    made->setClosed(true);
    made->setElevation(centre->z);
    c.add(std::move(made));
  }
}

// The corners of a solid cross over: the third lies opposite the second.
CommandTask solid(Command& c) {
  const auto first = co_await c.point("\nPremier point: ");
  const auto second = co_await c.point("\nDeuxième point: ", first.value);
  const auto third = co_await c.point("\nTroisième point: ");
  const auto fourth = co_await c.pointOrEnter("\nQuatrième point <triangle>: ");
  auto made = std::make_unique<AcDbSolid>();
  AcDbImpObject& imp = AcDbImpObject::of(made.get());
  const AcGePoint3d corners[] = {first.value, second.value, third.value, fourth.valueOr(third.value)};
  for (int i = 0; i < 4; ++i) imp.setPoint(pointField("AcDbTrace", 10 + i), corners[i]);
  c.add(std::move(made));
}

// Faces one after the other: the next one begins with the last side.
CommandTask face(Command& c) {
  const auto a = co_await c.point("\nPremier point: ");
  const auto b = co_await c.point("\nDeuxième point: ", a.value);
  AcGePoint3d first = a.value, second = b.value;
  for (bool more = false;; more = true) {
    const auto third = co_await c.pointOrEnter("\nTroisième point <fin>: ", second);
    if (!third.given() && more) co_return;
    if (!third.given()) c.fail("Trois points au moins sont attendus.");
    const auto fourth = co_await c.pointOrEnter("\nQuatrième point <triangle>: ", *third);
    auto made = std::make_unique<AcDbFace>();
    AcDbImpObject& imp = AcDbImpObject::of(made.get());
    const AcGePoint3d corners[] = {first, second, *third, fourth.valueOr(*third)};
    for (int i = 0; i < 4; ++i) imp.setPoint(pointField("AcDbFace", 10 + i), corners[i]);
    c.add(std::move(made));
    first = corners[2], second = corners[3];
  }
}

CommandTask ray(Command& c) {
  const auto from = co_await c.point("\nPoint de départ: ");
  for (;;) {
    const auto through = co_await c.pointOrEnter("\nPoint de passage <fin>: ", from.value);
    if (!through.given()) co_return;
    if (through->distanceTo(from.value) == 0) c.fail("Les deux points sont confondus.");
    auto made = std::make_unique<AcDbRay>();
    made->setBasePoint(from.value);
    made->setUnitDir((*through - from.value).normal());
    c.add(std::move(made));
  }
}

CommandTask xline(Command& c) {
  const auto from = co_await c.point("\nPoint ou [Horizontale/Verticale]: ", {}, "Horizontale Verticale _Hor Ver");
  for (;;) {
    const auto through = co_await c.pointOrEnter("\nPoint de passage <fin>: ");
    if (!through.given()) co_return;
    AcGeVector3d along = from.is("Hor") ? AcGeVector3d(1, 0, 0) : AcGeVector3d(0, 1, 0);
    if (!from.isKeyword()) along = *through - from.value;
    if (along.length() == 0) c.fail("Les deux points sont confondus.");
    auto made = std::make_unique<AcDbXline>();
    made->setBasePoint(from.isKeyword() ? *through : from.value);
    made->setUnitDir(along.normal());
    c.add(std::move(made));
  }
}

constexpr CommandRow kTable[] = {
    {"ELLIPSE", "EL", ellipse, "Dessine une ellipse."},
    {"POLYGON", "POL POLYGONE", polygon, "Dessine un polygone régulier."},
    {"DONUT", "DO DOUGHNUT ANNEAU", donut, "Dessine des anneaux pleins."},
    {"SOLID", "SO SOLIDE", solid, "Dessine un triangle ou un quadrilatère plein."},
    {"3DFACE", "3F FACE3D", face, "Dessine des faces de trois ou quatre côtés."},
    {"RAY", "DEMIDROITE", ray, "Dessine des demi-droites."},
    {"XLINE", "XL DROITE", xline, "Dessine des droites sans fin."},
};

}  // namespace

std::span<const CommandRow> shapeCommands() { return kTable; }

}  // namespace atelier
