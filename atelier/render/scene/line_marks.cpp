// A mark stands at the end of the element (49) that it follows in the pattern.
#include "atelier/render/scene/line_marks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/pictures/shape_files.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/scene/scene_builder.h"
#include "atelier/render/shapes/flatten.h"

namespace atelier::render {
namespace {

enum Kind { kAbsolute = 1, kText = 2, kShape = 4 };
constexpr double kMostPlaces = 5000;  // of one line
constexpr double kRounding = 1e-9;
constexpr double kFlatness = 1e-3;  // chords of curves, as a share of the pattern

// The style that a mark points to: its name for texts, its file for shapes.
struct Style {
  std::string name, file;
};
Style styleOf(AcDbImpDatabase& database, std::uint64_t handle) {
  AcDbStub* stub = handle ? database.stubOf(handle) : nullptr;
  if (!stub || stub->is(AcDbStub::kErased)) return {"Standard", {}};
  const Record& record = AcDbImpObject::of(&database.object(*stub)).record;
  return {database.recordName(*stub), record.text(textField("AcDbTextStyleTableRecord", 3))};
}

// One mark while its groups are read.
struct Reading {
  int kind = 0, number = 0;
  std::uint64_t style = 0;
  LineMark mark;
};

void finish(AcDbImpDatabase& database, Reading& reading, std::vector<LineMark>& marks, std::string& absent) {
  if (!(reading.kind & (kText | kShape))) return;
  const Style style = styleOf(database, reading.style);
  reading.mark.absolute = (reading.kind & kAbsolute) != 0;
  reading.mark.style = style.name;
  if (reading.kind & kShape) {
    const auto file = shapeFile(database, style.file);
    const auto strokes = file ? file->shape(reading.number) : std::nullopt;
    if (!strokes) {
      absent = style.file.empty() ? "de formes" : style.file;
      return;
    }
    reading.mark.strokes = *strokes;
  }
  marks.push_back(std::move(reading.mark));
}

}  // namespace

std::vector<LineMark> readLineMarks(AcDbImpDatabase& database, const Record& linetype, std::string& absent) {
  std::vector<LineMark> marks;
  Reading reading;
  double along = 0;
  const Groups groups(linetype);
  for (const Group* group : groups.all()) switch (group->code()) {
      case 49:
        reading.mark.room = std::max(-group->real(), 0.0);
        finish(database, reading, marks, absent);
        reading = {};
        along += std::abs(group->real());
        reading.mark.along = along;
        break;
      case 74: reading.kind = static_cast<int>(group->integer()); break;
      case 75: reading.number = static_cast<int>(group->integer()); break;
      case 340: reading.style = group->handle(); break;
      case 46: reading.mark.scale = group->real(); break;
      case 50: reading.mark.turn = group->real() * std::numbers::pi / 180; break;
      case 44: reading.mark.offset.x = group->real(); break;
      case 45: reading.mark.offset.y = group->real(); break;
      case 9: reading.mark.text = group->text(); break;
      default: break;
    }
  finish(database, reading, marks, absent);
  return marks;
}

std::vector<Affine> placesAlong(const Path& path, const LineMark& mark, double pattern, double scale) {
  const double period = pattern * scale, first = mark.along * scale, room = mark.room * scale;
  std::vector<Affine> places;
  if (!(period > 0)) return places;
  for (const FlatPath& line : flattened(path, kFlatness * period)) {
    std::vector<Pt> points = line.points;
    if (line.closed && !points.empty()) points.push_back(points.front());
    double before = 0, next = first, whole = 0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
      whole += std::hypot(points[i + 1].x - points[i].x, points[i + 1].y - points[i].y);
    const double last = whole - room * (1 - kRounding);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
      const Pt step = points[i + 1] - points[i];
      const double length = std::hypot(step.x, step.y);
      if (!(length / period < kMostPlaces)) return {};
      for (; next <= std::min(before + length, last) && length > 0; next += period) {
        const Pt u = 1 / length * step, at = points[i] + (next - before) * u;
        places.push_back({u.x, u.y, -u.y, u.x, at.x, at.y});
        if (static_cast<double>(places.size()) > kMostPlaces) return {};
      }
      before += length;
    }
  }
  return places;
}

void SceneBuilder::marks(const Entity& e, const Path& path) {
  const Pattern& pattern = *e.look.pattern;
  const double scale = e.look.patternScale;
  if (!pattern.absent.empty())
    cannotShow("type de ligne à formes, sans elles : fichier " + pattern.absent + " introuvable");
  for (const LineMark& mark : pattern.marks) {
    const TextStyle& style = properties_.textStyle(mark.style);
    const double size = scale * mark.scale * (mark.text.empty() || style.height <= 0 ? 1 : style.height);
    for (const Affine& place : placesAlong(path, mark, pattern.period, scale)) {
      const Pt at = place(scale * mark.offset);
      const Affine along = mark.absolute ? Affine{} : Affine{place.xx, place.yx, place.xy, place.yy, 0, 0};
      const Affine frame = Affine::translation(at.x, at.y) * along * Affine::rotation(mark.turn);
      for (const fonts::PenStroke& stroke : mark.strokes) {
        Path drawn;
        for (const Pt p : stroke) drawn.lineTo(frame(size * p));
        add(e, Stroke{std::move(drawn), {e.look.colour, e.look.weightMm, nullptr}});
      }
      if (mark.text.empty()) continue;
      const fonts::Font& letters = font(style.font);
      add(e, GlyphRun{letters.layout(mark.text), frame * letters.shape(size), e.look.colour});
    }
  }
}

}  // namespace atelier::render
