// DIMLINEAR DIMALIGNED DIMRADIUS DIMDIAMETER: dimensions with a block of their own, by the drawing's style and settings.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/commands/command_table.h"
#include "atelier/commands/drawing/dimensions.h"
#include "atelier/database/dimensions/dimension_block.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

constexpr std::string_view kDimension = "AcDbDimension";
constexpr int kOwnBlock = 32, kTextByUser = 128;

}  // namespace

AcDbObjectId addDimension(const Command& c, int kind, const AcGePoint3d& definition,
                          const std::vector<std::vector<Group>>& more, const Wording& wording,
                          const std::optional<AcGePoint3d>& text) {
  Record record = Record::fresh("DIMENSION");
  record.setPoint(pointField(kDimension, 10), definition);
  record.setInteger(integerField(kDimension, 70), kind | kOwnBlock | (text ? kTextByUser : 0));
  if (text) record.setPoint(pointField(kDimension, 11), *text);
  record.setText(textField(kDimension, 3), currentDimensionStyle(c.document.imp()));
  record.setText(textField(kDimension, 1), wording.text);
  if (wording.turn != 0) record.setReal(realField(kDimension, 53), wording.turn * 180 / std::numbers::pi);
  for (const auto& groups : more) record.groups.insert(record.groups.end(), groups.begin(), groups.end());
  const AcDbObjectId id = c.add(entityOf(std::move(record)));
  const AcDbObjectPointer<AcDbDimension> dimension(id, AcDb::kForWrite);
  if (dimension.openStatus() != Acad::eOk) return id;
  takeDimensionSettings(*dimension.object());
  drawDimensionBlock(*dimension.object());
  return id;
}

AcDbObjectId addLinear(const Command& c, const Measured& points, double angle, const AcGePoint3d& place,
                       const Wording& wording) {
  const AcGeVector3d up(-std::sin(angle), std::cos(angle), 0);
  const AcGePoint3d definition = points.second + up * (place - points.second).dotProduct(up);
  return addDimension(c, kRotated, definition,
                      {{Group::text(100, "AcDbAlignedDimension")},
                       ordinates(13, points.first),
                       ordinates(14, points.second),
                       {Group::real(50, angle * 180 / std::numbers::pi), Group::text(100, "AcDbRotatedDimension")}},
                      wording);
}

namespace {

// Above or below the measured points a dimension is horizontal, beside them vertical.
double orientation(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& place) {
  const double x = std::max(std::min(a.x, b.x) - place.x, place.x - std::max(a.x, b.x));
  const double y = std::max(std::min(a.y, b.y) - place.y, place.y - std::max(a.y, b.y));
  return y >= x ? 0 : std::numbers::pi / 2;
}

Measured endsOf(const Command& c, AcDbObjectId id) {
  const AcDbObjectPointer<AcDbCurve> curve(id);
  Measured ends;
  if (curve.openStatus() != Acad::eOk || curve->isClosed() || curve->getStartPoint(ends.first) != Acad::eOk ||
      curve->getEndPoint(ends.second) != Acad::eOk)
    c.fail("Une ligne, un arc ou une courbe ouverte est attendue.");
  return ends;
}

void addAligned(const Command& c, const Measured& ends, const AcGePoint3d& place, const Wording& wording) {
  const AcGeVector3d along = ends.second - ends.first;
  const double length = std::hypot(along.x, along.y);
  if (!(length > 0)) c.fail("Les deux points sont confondus.");
  const AcGeVector3d up(-along.y / length, along.x / length, 0);
  addDimension(c, kAligned, ends.second + up * (place - ends.second).dotProduct(up),
               {{Group::text(100, "AcDbAlignedDimension")}, ordinates(13, ends.first), ordinates(14, ends.second)},
               wording);
}

struct Round {
  AcGePoint3d centre;
  double radius = 0;
};

Round roundOf(const Command& c, AcDbObjectId id) {
  const AcDbObjectPointer<AcDbEntity> entity(id);
  if (entity.openStatus() == Acad::eOk) {
    if (const auto* arc = AcDbArc::cast(entity.object())) return {arc->center(), arc->radius()};
    if (const auto* circle = AcDbCircle::cast(entity.object())) return {circle->center(), circle->radius()};
  }
  c.fail("Un arc ou un cercle est attendu.");
}

void addRound(const Command& c, int kind, const Round& round, const AcGePoint3d& place, const Wording& wording) {
  const AcGeVector3d toPlace = place - round.centre;
  const double length = toPlace.length();
  const AcGeVector3d out = length > 0 ? toPlace * (round.radius / length) : AcGeVector3d(round.radius, 0, 0);
  const bool whole = kind == kDiameter;
  addDimension(c, kind, whole ? round.centre - out : round.centre,
               {{Group::text(100, whole ? "AcDbDiametricDimension" : "AcDbRadialDimension")},
                ordinates(15, round.centre + out),
                {Group::real(40, 0)}},
               wording, place);
}

CommandTask dimension(Command& c, int kind) {
  Measured ends;
  Round round;
  const bool isRound = kind == kRadius || kind == kDiameter;
  if (isRound) {
    const auto picked = co_await c.entity("\nArc ou cercle: ");
    if (!picked.given()) co_return;
    round = roundOf(c, picked->id);
  } else if (const auto first = co_await c.pointOrEnter("\nOrigine de la première attache ou <choisir l'objet>: ");
             first.given()) {
    ends.first = *first;
    const auto second = co_await c.point("\nOrigine de la deuxième attache: ", ends.first);
    ends.second = second.value;
  } else {
    const auto picked = co_await c.entity("\nObjet à coter: ");
    if (!picked.given()) co_return;
    ends = endsOf(c, picked->id);
  }
  Wording wording;
  std::optional<double> direction;
  std::string prompt = "\nEmplacement de la ligne de cote ou [texteMultiligne/Texte/Angle";
  prompt += kind == kRotated ? "/Horizontale/Verticale/Rotation]: " : "]: ";
  const std::string words = kind == kRotated ? "Multiligne Texte Angle Horizontale Verticale Rotation "
                                               "_Mtext Text Angle Horizontal Vertical Rotated"
                                             : "Multiligne Texte Angle _Mtext Text Angle";
  while (true) {
    const auto place = co_await c.point(prompt, {}, words);
    if (place.is("Mtext") || place.is("Text")) {
      const auto text = co_await c.line("\nTexte de la cote <mesure>: ");
      wording.text = text.value;
    } else if (place.is("Angle")) {
      const auto turn = co_await c.angle("\nAngle du texte: ");
      wording.turn = turn.value;
    } else if (place.is("Horizontal")) {
      direction = 0;
    } else if (place.is("Vertical")) {
      direction = std::numbers::pi / 2;
    } else if (place.is("Rotated")) {
      const auto turn = co_await c.angle("\nAngle de la ligne de cote: ");
      direction = turn.value;
    } else {
      if (isRound) addRound(c, kind, round, place.value, wording);
      else if (kind == kAligned) addAligned(c, ends, place.value, wording);
      else
        addLinear(c, ends, direction.value_or(orientation(ends.first, ends.second, place.value)), place.value, wording);
      co_return;
    }
  }
}

CommandTask linear(Command& c) { return dimension(c, kRotated); }
CommandTask aligned(Command& c) { return dimension(c, kAligned); }
CommandTask radius(Command& c) { return dimension(c, kRadius); }
CommandTask diameter(Command& c) { return dimension(c, kDiameter); }

constexpr CommandRow kTable[] = {
    {"DIMLINEAR", "DLI COTLIN", linear, "Cote une distance horizontale, verticale ou dans une direction."},
    {"DIMALIGNED", "DAL COTALI", aligned, "Cote la distance de deux points."},
    {"DIMRADIUS", "DRA COTRAYON", radius, "Cote un rayon."},
    {"DIMDIAMETER", "DDI COTDIA", diameter, "Cote un diamètre."},
};

}  // namespace

std::span<const CommandRow> dimensionCommands() { return kTable; }

}  // namespace atelier
