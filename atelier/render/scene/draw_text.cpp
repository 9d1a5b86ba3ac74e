// Texts, attributes and paragraphs.
// A justified text is placed from its alignment point with our own metrics: the stored position fits the fonts of the
// program that wrote the file.
#include <cmath>

#include "atelier/database/entities/text_measure.h"
#include "atelier/database/records/flags.h"
#include "atelier/fonts/mtext.h"
#include "atelier/render/scene/colours.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

namespace {

constexpr double kDescender = 1.0 / 3.0;  // below the baseline, in capital heights

struct Setting {
  fonts::FontStyle style;
  double height = 0, rotation = 0;
  Pt at;      // drawing point, in the plane of the entity
  Pt offset;  // of the start of the text from it, along and across the text
};

Box inkOf(SceneBuilder& scene, const Setting& s, std::string_view text) {
  return scene.font(s.style).extents(text, s.height).ink;
}

double ratioToFit(SceneBuilder& scene, const Setting& s, std::string_view text, double length) {
  const double width = inkOf(scene, s, text).width();
  return width > 0 && length > 0 ? length / width : 1;
}

Setting settingOf(SceneBuilder& scene, const Entity& e, std::string_view text, int verticalCode) {
  const Groups& g = e.groups;
  Setting s;
  s.style = scene.properties().textStyle(g.text(7, "Standard")).font;
  s.style.widthFactor = g.real(41, 1);
  s.style.oblique = g.radians(51);
  s.height = g.real(40);
  s.rotation = g.radians(50);
  const std::int64_t horizontal = g.integer(72), vertical = g.integer(verticalCode);
  const AcGePoint3d first = g.point(10), second = g.has(11) ? g.point(11) : first;
  s.at = {first.x, first.y};
  if (horizontal == AcDb::kTextAlign || horizontal == AcDb::kTextFit) {
    const Pt along = Pt{second.x, second.y} - s.at;
    const double length = std::hypot(along.x, along.y);
    if (length == 0) return s;
    s.rotation = std::atan2(along.y, along.x);
    (horizontal == AcDb::kTextAlign ? s.height : s.style.widthFactor) *= ratioToFit(scene, s, text, length);
    if (const Box ink = inkOf(scene, s, text); !ink.empty()) s.offset.x = -ink.xMin;
    if (g.integer(71) & TextMirror::kBackwards) s.at = {second.x, second.y};  // read from there to the first
    return s;
  }
  if (horizontal == AcDb::kTextLeft && vertical == AcDb::kTextBase) return s;
  s.at = {second.x, second.y};
  // Placed by its ink, as extents are measured: a text that fills its cell then has equal room on both sides.
  if (const Box ink = inkOf(scene, s, text); !ink.empty()) {
    if (horizontal == AcDb::kTextCenter || horizontal == AcDb::kTextMid) s.offset.x = -(ink.xMin + ink.xMax) / 2;
    if (horizontal == AcDb::kTextRight) s.offset.x = -ink.xMax;
  }
  if (horizontal == AcDb::kTextMid || vertical == AcDb::kTextVertMid) s.offset.y = -s.height / 2;
  else if (vertical == AcDb::kTextTop) s.offset.y = -s.height;
  else if (vertical == AcDb::kTextBottom) s.offset.y = kDescender * s.height;
  return s;
}

void drawString(SceneBuilder& scene, const Entity& e, std::string_view text, int verticalCode) {
  const Setting s = settingOf(scene, e, text, verticalCode);
  const std::int64_t mirror = e.groups.integer(71);
  const fonts::Font& font = scene.font(s.style);
  const Affine map =
      e.plane(e.groups.point(10).z) * Affine::translation(s.at.x, s.at.y) * Affine::rotation(s.rotation) *
      Affine::scaling(mirror & TextMirror::kBackwards ? -1 : 1, mirror & TextMirror::kUpsideDown ? -1 : 1) *
      Affine::translation(s.offset.x, s.offset.y) * font.shape(s.height);
  scene.add(e, GlyphRun{font.layout(text), map, e.look.colour});
}

fonts::MTextStyle mtextStyle(SceneBuilder& scene, const Groups& g) {
  const TextStyle& style = scene.properties().textStyle(g.text(7, "Standard"));
  fonts::MTextStyle out;
  out.format.font = style.font;
  out.format.height = g.real(40, style.height);
  out.wrapWidth = g.real(41);
  out.attachment = static_cast<int>(g.integer(71, 1));
  out.lineSpacing = g.real(44, 1);
  out.exactSpacing = g.integer(73, 1) == LineSpacing::kExact;
  return out;
}

// From the frame of the paragraph to the drawing: x along group 11 (a world direction) or at the angle of
// group 50.
Affine mtextFrame(const Entity& e) {
  const AcGeVector3d normal = e.groups.normal().normal();
  AcGeVector3d x = e.groups.point(11).asVector();
  if (x.length() == 0) {
    const double angle = e.groups.radians(50);
    x = AcGeMatrix3d().setToPlaneToWorld(normal) * AcGeVector3d(std::cos(angle), std::sin(angle), 0);
  }
  x.normalize();
  const AcGeVector3d u = e.at.toWorld * x, v = e.at.toWorld * normal.crossProduct(x);
  const Pt o = e.world(e.groups.point(10));
  return {u.x, u.y, v.x, v.y, o.x, o.y};
}

Colour pieceColour(const Entity& e, const fonts::MTextFormat& format) {
  Colour colour = e.look.colour;
  if (format.colourRgb) colour = trueColour(*format.colourRgb);
  else if (format.colourIndex && *format.colourIndex > 0 && *format.colourIndex < 256)
    colour = aciColour(*format.colourIndex);
  colour.alpha = e.look.colour.alpha;
  return colour;
}

// Group 90: 1 a colour of its own (63, 421), 2 the colour of the sheet; 45 how far it goes beyond the text.
void drawMask(SceneBuilder& scene, const Entity& e, const fonts::MTextLayout& layout, double height,
              const Affine& frame) {
  const std::int64_t mask = e.groups.integer(90);
  if (!(mask & 3) || layout.ink.empty()) return;
  const double margin = (std::fmax(e.groups.real(45, 1.5), 1) - 1) * height;
  const Box& ink = layout.ink;
  const Path area = fonts::rectangle({ink.xMin - margin, ink.yMin - margin, ink.xMax + margin, ink.yMax + margin});
  Colour colour = kBackground;
  if (!(mask & 2))
    colour = e.groups.has(421) ? trueColour(static_cast<std::uint32_t>(e.groups.integer(421)))
                               : aciColour(static_cast<int>(e.groups.integer(63, 7)));
  scene.fill(e, area.mapped(frame), true, colour);
}

}  // namespace

void drawText(SceneBuilder& scene, const Entity& e) { drawString(scene, e, e.groups.text(1), 73); }

void drawAttribute(SceneBuilder& scene, const Entity& e) {
  const std::int64_t mode = scene.database().header.integer("$ATTMODE", 1);
  if (mode == 0 || (mode == 1 && (e.groups.integer(70) & AttributeFlags::kInvisible))) return;
  drawString(scene, e, e.groups.text(1), 74);
}

// Outside blocks a definition shows its tag; in a block only a constant one is shown, with its value.
void drawAttributeDefinition(SceneBuilder& scene, const Entity& e) {
  if (e.at.depth == 0) return drawString(scene, e, e.groups.text(2), 74);
  if (e.groups.integer(70) & AttributeFlags::kConstant) drawAttribute(scene, e);
}

void drawMText(SceneBuilder& scene, const Entity& e) {
  std::string contents;
  for (const Group* group : e.groups.all())
    if (group->code() == 3) contents += group->text();
  contents += e.groups.text(1);
  fonts::MTextStyle style = mtextStyle(scene, e.groups);
  style.columns = columnsOf(e.record);
  const fonts::MTextLayout layout = fonts::layoutMText(contents, style);
  const Affine frame = mtextFrame(e);
  drawMask(scene, e, layout, style.format.height, frame);
  for (const fonts::MTextPiece& piece : layout.pieces)
    scene.add(e, GlyphRun{piece.line, frame * piece.map, pieceColour(e, piece.format)});
}

}  // namespace atelier::render
