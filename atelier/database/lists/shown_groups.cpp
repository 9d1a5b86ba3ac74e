// A walk over the record, section by section; before each group come the shown fields that should stand before it.
#include "atelier/database/lists/shown_groups.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <span>
#include <unordered_map>
#include <vector>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/entities/measured_dimension.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/database/objects/layouts.h"

namespace atelier {
namespace {

constexpr int kMark = 100, kEmbedded = 101;
constexpr std::string_view kPolyline = "AcDbPolyline", kSpline = "AcDbSpline";

// The layout an entity stands in; those inside blocks are said to be in the model.
std::string layoutOf(const AcDbStub& stub) {
  AcDbStub* owner = stub.owner;
  while (owner && owner->is(AcDbStub::kEntity)) owner = owner->owner;
  const std::string name = owner ? layoutNameOf(*owner) : std::string();
  return name.empty() ? "Model" : name;
}

// The fields that are shown of one section, for its first, second ... time in a record.
struct SectionFields {
  static constexpr std::size_t kNowhere = 255, kCodes = 512;
  std::string_view section;
  int turn = 1;
  std::vector<std::vector<Group>> defaults;  // of each field its groups
  std::array<unsigned char, kCodes> places;  // of a code its field

  SectionFields(std::string_view name, int time) : section(name), turn(time) { places.fill(kNowhere); }
  void add(const Field& field) {
    if (places[static_cast<std::size_t>(field.code)] == kNowhere)
      places[static_cast<std::size_t>(field.code)] = static_cast<unsigned char>(defaults.size());
    appendDefault(defaults.emplace_back(), field);
  }
  std::size_t placeOf(int code) const {
    return code < 0 || code >= static_cast<int>(kCodes) ? kNowhere : places[static_cast<std::size_t>(code)];
  }
};

std::vector<SectionFields> gatherSections(const RecordFormat& format) {
  std::vector<SectionFields> sections;
  for (const Field& field : format.fields) {
    const std::size_t hash = field.subclass.find('#');
    const std::string_view name = field.subclass.substr(0, hash);
    const int turn = hash == std::string_view::npos ? 1 : field.subclass[hash + 1] - '0';
    auto own =
        std::ranges::find_if(sections, [&](const SectionFields& s) { return s.turn == turn && s.section == name; });
    if (own == sections.end()) own = sections.emplace(sections.end(), name, turn);
    if (field.presence != Presence::optional && field.kind != FieldKind::handle) own->add(field);
  }
  return sections;
}

// Gathered once for each format: programs ask for lists of thousands of objects.
const std::vector<SectionFields>& sectionsOf(const RecordFormat& format) {
  static thread_local std::unordered_map<const RecordFormat*, std::vector<SectionFields>> known;
  const auto at = known.find(&format);
  return at != known.end() ? at->second : known.emplace(&format, gatherSections(format)).first->second;
}

// Builds the list of one object.
class Shown {
 public:
  Shown(AcDbStub& stub, const Record& record) : stub_(stub), record_(record) {
    if (const RecordFormat* format = formatOf(record.type())) sections_ = sectionsOf(*format);
  }

  GroupList list() {
    const std::size_t end = record_.xdataStart();
    const auto& groups = record_.groups;
    out_.reserve(end + 24);
    const auto endsSection = [](const Group& g) { return g.code() == kMark || g.code() == kEmbedded; };
    const auto last = groups.begin() + static_cast<std::ptrdiff_t>(end);
    std::string_view section;
    for (auto begin = groups.begin();;) {
      const auto mark = std::find_if(begin, last, endsSection);
      add(section, static_cast<std::size_t>(begin - groups.begin()), static_cast<std::size_t>(mark - groups.begin()));
      if (mark == last) break;
      if (mark->code() == kEmbedded) {
        keep(static_cast<std::size_t>(mark - groups.begin()), end);
        break;
      }
      out_.keep(*mark);
      section = mark->text();
      begin = mark + 1;
    }
    return std::move(out_);
  }

 private:
  void keep(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) out_.keep(record_.groups[i]);
  }

  // Groups [begin, end) stand behind the mark of that section; the head has no name.
  void add(std::string_view section, std::size_t begin, std::size_t end) {
    if (section == kPolyline) return addPolyline(begin, end);
    if (section == kSpline) return addSpline(begin, end);
    if (section == "AcDbDimension") {
      addFields(section, begin, end);
      if (const auto value = measured(record_); value && !has(begin, end, 42)) out_.add(Group::real(42, *value));
      return;
    }
    const std::size_t from = out_.size();
    addFields(section, begin, end);
    if (section == "AcDbMText") addInk(begin, end);
    if (section != "AcDbEntity") return;
    static const Group kModel = Group::text(410, "Model");
    std::string layout = layoutOf(stub_);
    const bool inModel = layout == kModel.text();
    for (std::size_t i = from; i < out_.size() && !inModel && !has(begin, end, 67); ++i)
      if (out_[i].code() == 67) out_.replace(i, Group::integer(67, 1));
    if (has(begin, end, 410)) return;
    if (inModel) out_.keep(kModel);
    else out_.add(Group::text(410, std::move(layout)));
  }

  // The width and height that a paragraph has as it is drawn.
  void addInk(std::size_t begin, std::size_t end) {
    const auto* text = AcDbMText::cast(&stub_.database->object(stub_));
    if (!text || (has(begin, end, 42) && has(begin, end, 43))) return;
    const fonts::Box ink = paragraphInk(*text);
    if (!has(begin, end, 42)) out_.add(Group::real(42, ink.empty() ? 0 : ink.xMax - ink.xMin));
    if (!has(begin, end, 43)) out_.add(Group::real(43, ink.empty() ? 0 : ink.yMax - ink.yMin));
  }

  bool has(std::size_t begin, std::size_t end, int code) const {
    return std::any_of(record_.groups.begin() + static_cast<std::ptrdiff_t>(begin),
                       record_.groups.begin() + static_cast<std::ptrdiff_t>(end),
                       [code](const Group& group) { return group.code() == code; });
  }

  // A second section of the same name counts as its own.
  const SectionFields* fieldsOf(std::string_view section) {
    if (sections_.empty() || section.empty()) return nullptr;
    const std::string_view wanted = section == "AcDbMInsertBlock" ? "AcDbBlockReference" : section;
    turns_ = wanted == last_ ? turns_ + 1 : 1;
    last_ = wanted;
    for (const SectionFields& fields : sections_)
      if (fields.turn == turns_ && fields.section == wanted) return &fields;
    return nullptr;
  }

  void addFields(std::string_view section, std::size_t begin, std::size_t end) {
    const auto& groups = record_.groups;
    const SectionFields* fields = fieldsOf(section);
    if (!fields) return keep(begin, end);
    const std::size_t count = fields->defaults.size();
    std::bitset<SectionFields::kNowhere + 1> there;
    for (std::size_t i = begin; i < end; ++i) there.set(fields->placeOf(groups[i].code()));
    std::size_t shown = 0;
    const auto showUpTo = [&](std::size_t place) {
      for (; shown < place; ++shown)
        if (!there.test(shown))
          for (const Group& group : fields->defaults[shown]) out_.keep(group);
    };
    for (std::size_t i = begin; i < end; ++i) {
      if (const std::size_t place = fields->placeOf(groups[i].code()); place != SectionFields::kNowhere)
        showUpTo(place);
      out_.keep(groups[i]);
    }
    showUpTo(count);
  }

  void addPolyline(std::size_t begin, std::size_t end) {
    static const Group kZero[] = {Group::real(38, 0), Group::real(39, 0), Group::real(40, 0),
                                  Group::real(41, 0), Group::real(42, 0), Group::real(43, 0)};
    static const Group kUpwards[] = {Group::real(210, 0), Group::real(220, 0), Group::real(230, 1)};
    const auto& groups = record_.groups;
    std::size_t vertices = begin;
    while (vertices < end && groups[vertices].code() != 10) ++vertices;
    const Group* constant = record_.get(realField(kPolyline, 43));
    bool widths = false, normal = false;
    for (std::size_t i = vertices; i < end; ++i) {
      widths |= (groups[i].code() == 40 || groups[i].code() == 41) && groups[i].real() != 0;
      normal |= groups[i].code() == 210;
    }
    for (std::size_t i = begin; i < vertices; ++i) {
      out_.keep(groups[i]);
      normal |= groups[i].code() == 210;
    }
    if (!constant && !widths) out_.keep(kZero[43 - 38]);
    for (const int code : {38, 39})
      if (!has(begin, end, code)) out_.keep(kZero[code - 38]);
    const bool wide = constant && constant->real() != 0;
    for (std::size_t i = vertices; i < end;) {
      if (groups[i].code() != 10) {
        out_.keep(groups[i++]);
        continue;
      }
      std::size_t next = i + 1;
      const auto isPart = [](int code) { return code == 20 || code == 91 || (code >= 40 && code <= 42); };
      while (next < end && isPart(groups[next].code())) ++next;
      const Group* parts[] = {nullptr, nullptr, nullptr};
      for (std::size_t k = i; k < next; ++k) {
        const int code = groups[k].code();
        if (code >= 40 && code <= 42) parts[code - 40] = &groups[k];
        else out_.keep(groups[k]);
      }
      for (const int code : {40, 41, 42}) {
        if (const Group* given = parts[code - 40]) out_.keep(*given);
        else if (wide && code != 42) out_.add(Group::real(code, constant->real()));
        else out_.keep(kZero[code - 38]);
      }
      i = next;
    }
    if (!normal)
      for (const Group& ordinate : kUpwards) out_.keep(ordinate);
  }

  void addSpline(std::size_t begin, std::size_t end) {
    if (has(begin, end, 10) || !has(begin, end, 11)) return addFields(kSpline, begin, end);
    const auto* spline = AcDbSpline::cast(&stub_.database->object(stub_));
    const Nurbs data = spline ? nurbsOf(*spline) : Nurbs();
    if (data.points.empty()) return addFields(kSpline, begin, end);
    const std::size_t from = out_.size();
    addFields(kSpline, begin, end);
    out_.erase(from, 40);  // knots without control points say nothing
    std::size_t fit = out_.size();
    for (std::size_t i = out_.size(); i-- > from;) {
      if (out_[i].code() == 71) out_.replace(i, Group::integer(71, data.degree));
      if (out_[i].code() == 72) out_.replace(i, Group::integer(72, static_cast<std::int64_t>(data.knots.size())));
      if (out_[i].code() == 73) out_.replace(i, Group::integer(73, static_cast<std::int64_t>(data.points.size())));
      if (out_[i].code() == 11) fit = i;
    }
    std::vector<Group> curve;
    for (const double knot : data.knots) curve.push_back(Group::real(40, knot));
    for (const AcGePoint3d& p : data.points)
      curve.insert(curve.end(), {Group::real(10, p.x), Group::real(20, p.y), Group::real(30, p.z)});
    out_.insert(fit, std::move(curve));
  }

  AcDbStub& stub_;
  const Record& record_;
  std::span<const SectionFields> sections_;
  GroupList out_;
  std::string_view last_;
  int turns_ = 0;
};

}  // namespace

GroupList shownGroups(AcDbStub& stub) {
  const Record& record = AcDbImpObject::of(&stub.database->object(stub)).settled();
  return Shown(stub, record).list();
}

}  // namespace atelier
