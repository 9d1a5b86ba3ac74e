// The display list of one entity, written back as records.
// Areas are cut into trapezoids at the heights of their corners.
#include "atelier/render/scene/old_form.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/records/flags.h"
#include "atelier/database/records/groups.h"
#include "atelier/fonts/text_codes.h"
#include "atelier/render/scene/colours.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/shapes/flatten.h"
#include "hote/dbents.h"

namespace atelier::render {
namespace {

constexpr double kFlatness = 2e-4;  // of chords, as a share of the entity's size
constexpr double kDegree = std::numbers::pi / 180;

bool sameColours(const DisplayList& list) {
  const Colour first = colourOf(list.items().front().shape);
  return std::ranges::all_of(list.items(), [&](const Primitive& p) { return colourOf(p.shape) == first; });
}

class OldRecords {
 public:
  OldRecords(const Record& record, const Box& box)
      : record_(record), groups_(record), tolerance_(kFlatness * std::max({box.width(), box.height(), 1e-9})) {
    elevation_ = groups_.point(10).z;
  }

  std::vector<Group> take() { return std::move(out_); }
  // The colour of what follows; 0: the entity's.
  void colour(int index) { colour_ = index; }

  void operator()(const Stroke& stroke) {
    for (const FlatPath& path : flattened(stroke.path, tolerance_)) {
      if (path.points.size() < 2) continue;
      if (path.points.size() == 2 && !path.closed) line(path.points[0], path.points[1]);
      else polyline(path);
    }
  }
  void operator()(const Fill& fill) {
    if (fill.colour.kind == Colour::Kind::background) return;  // a mask
    for (const Trapezoid& t : trapezoids(flattened(fill.path, tolerance_))) {
      begin("SOLID");
      const Pt corners[] = {{t.left0, t.y0}, {t.right0, t.y0}, {t.left1, t.y1}, {t.right1, t.y1}};
      for (int i = 0; i < 4; ++i) point(10 + i, corners[i]);
      end();
    }
  }
  void operator()(const GlyphRun& run) {
    std::u32string characters;
    for (const auto& [glyph, x] : run.line.glyphs) characters.push_back(glyph->character);
    if (characters.find_first_not_of(U' ') == characters.npos) return;
    const Pt along = run.map.turn({1, 0}), up = run.map.turn({0, 1}), at = run.map({run.line.glyphs[0].x, 0});
    const double length = std::hypot(along.x, along.y), height = std::abs(run.map.determinant()) / length;
    const double lean = (up.x * along.x + up.y * along.y) / length;
    begin("TEXT");
    point(10, at);
    add(Group::real(40, height));
    add(Group::text(1, (run.line.bars.empty() ? "" : "%%u") + fonts::encodeUtf8(characters)));
    add(Group::real(50, std::atan2(along.y, along.x) / kDegree));
    add(Group::real(41, length / height));
    if (std::abs(lean) > 1e-9 * height) add(Group::real(51, std::atan2(lean, height) / kDegree));
    if (groups_.has(7)) add(Group::text(7, std::string(groups_.text(7))));
    end();
  }
  void operator()(const Unbounded&) {}
  void operator()(const Raster& raster) { (*this)(Stroke{raster.shown, {}}); }
  void operator()(const Dot& dot) {
    begin("POINT");
    point(10, dot.at);
    end();
  }

  // A curve in space.
  void spacePolyline(const std::vector<AcGePoint3d>& points) {
    beginPolyline(PolylineFlags::kSpace);
    for (const AcGePoint3d& p : points) vertex(p, VertexFlags::kSpace);
    begin("SEQEND");
  }

 private:
  void add(Group group) { out_.push_back(std::move(group)); }

  void begin(const char* type) {
    add(Group::text(0, type));
    if (out_.size() == 1) add(Group::handle(5, record_.objectHandle()));
    for (const int code : {8, 6, 62, 67}) {
      if (code == 62 && colour_ > 0) add(Group::integer(62, colour_));
      else if (const Group* group = groups_.find(code)) add(*group);
    }
  }
  // Of the first record: the extended data.
  void end() {
    if (!std::exchange(first_, false)) return;
    for (std::size_t i = record_.xdataStart(); i < record_.groups.size(); ++i) add(record_.groups[i]);
  }
  void point(int code, Pt p) {
    add(Group::real(code, p.x));
    add(Group::real(code + 10, p.y));
    add(Group::real(code + 20, elevation_));
  }
  void line(Pt from, Pt to) {
    begin("LINE");
    point(10, from);
    point(11, to);
    end();
  }
  void beginPolyline(int flags) {
    begin("POLYLINE");
    add(Group::integer(66, 1));
    point(10, {0, 0});
    add(Group::integer(70, flags));
    end();
  }
  void vertex(const AcGePoint3d& p, int flags) {
    begin("VERTEX");
    add(Group::real(10, p.x));
    add(Group::real(20, p.y));
    add(Group::real(30, p.z));
    if (flags) add(Group::integer(70, flags));
  }
  void polyline(const FlatPath& path) {
    beginPolyline(path.closed ? PolylineFlags::kClosed : 0);
    for (const Pt p : path.points) vertex({p.x, p.y, elevation_}, 0);
    begin("SEQEND");
  }

  const Record& record_;
  Groups groups_;
  std::vector<Group> out_;
  double tolerance_, elevation_ = 0;
  int colour_ = 0;
  bool first_ = true;
};

// The points of a spline that leaves its plane; empty for any other entity.
std::vector<AcGePoint3d> inSpace(const AcDbObject& object) {
  const auto* spline = AcDbSpline::cast(&object);
  double start = 0, end = 0;
  if (!spline || spline->getStartParam(start) != Acad::eOk || spline->getEndParam(end) != Acad::eOk) return {};
  const int steps = std::clamp(24 * std::max(spline->numControlPoints(), spline->numFitPoints()), 48, 4800);
  std::vector<AcGePoint3d> points;
  double low = INFINITY, high = -INFINITY;
  for (int i = 0; i <= steps; ++i) {
    AcGePoint3d p;
    if (spline->getPointAtParam(start + (end - start) * i / steps, p) != Acad::eOk) continue;
    points.push_back(p);
    low = std::min(low, p.z), high = std::max(high, p.z);
  }
  return high - low > 1e-9 ? points : std::vector<AcGePoint3d>();
}

}  // namespace

std::vector<Group> oldForm(AcDbStub& stub) {
  AcDbImpDatabase& database = *stub.database;
  AcDbObject& object = database.object(stub);
  const Record& record = AcDbImpObject::of(&object).settled();
  SceneOptions options;
  options.paper = false;
  options.hidden = true;
  AcDbStub* const one[] = {&stub};
  const DisplayList list = drawEntities(*object.database(), one, options);
  OldRecords records(record, list.bounds());
  if (const auto points = inSpace(object); !points.empty()) {
    records.spacePolyline(points);
  } else if (!list.items().empty()) {
    const bool alike = sameColours(list);
    for (const Primitive& item : list.items()) {
      if (!alike) records.colour(indexOf(colourOf(item.shape)));
      std::visit(records, item.shape);
    }
  }
  return records.take();
}

}  // namespace atelier::render
