// Works out the look of an entity from its groups and the tables.
// Transparency (group 440, XDATA of layers): the highest byte is its kind, the lowest the opacity.
#include "atelier/render/scene/properties.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/records/flags.h"
#include "atelier/render/scene/colours.h"

namespace atelier::render {

namespace {

constexpr double kDefaultWeightMm = 0.25;
constexpr std::uint32_t kAlphaByBlock = 0x01, kAlphaByValue = 0x02;

// Line weights are hundredths of a millimetre; negative ones other than "by layer" and "by block" mean the default.
double weightMm(std::int64_t stored) { return stored < 0 ? kDefaultWeightMm : static_cast<double>(stored) / 100; }

void setAlpha(Colour& colour, std::int64_t transparency) {
  const auto bits = static_cast<std::uint32_t>(transparency);
  if (bits >> 24 == kAlphaByValue) colour.alpha = static_cast<std::uint8_t>(bits);
}

// Alternating dashes and gaps from elements of any sign: neighbours of equal sign are joined, a leading gap is moved to
// the end.
std::vector<double> alternating(const std::vector<double>& elements) {
  std::vector<double> out;
  bool dash = false;  // kind of the last element of out
  double leadingGap = 0;
  for (const double e : elements) {
    if (!std::isfinite(e)) return {};
    if (out.empty() && e < 0) leadingGap -= e;
    else if (!out.empty() && dash == (e >= 0)) out.back() += std::abs(e);
    else out.push_back(std::abs(e));
    if (!out.empty()) dash = e >= 0;
  }
  if (out.empty()) return {};
  if (dash) out.push_back(0);
  out.back() += leadingGap;
  double gaps = 0;
  for (std::size_t i = 1; i < out.size(); i += 2) gaps += out[i];
  return gaps > 0 ? out : std::vector<double>{};
}

}  // namespace

Properties::Properties(AcDbImpDatabase& database, const SceneOptions& options)
    : database_(database),
      paper_(options.paper),
      frozen_(options.frozen),
      scale_(database.header.real("$LTSCALE", 1)) {}

std::string_view Properties::key(std::string_view name) { return key_ = upperCase(name); }

const Record* Properties::record(std::string_view table, std::string_view name) {
  AcDbStub* stub = database_.tableRecord(table, name);
  return stub ? &AcDbImpObject::of(&database_.object(*stub)).settled() : nullptr;
}

const Layer& Properties::layer(std::string_view name) {
  if (const auto known = layers_.find(key(name)); known != layers_.end()) return known->second;
  Layer& layer = layers_[key_];
  layer.plotted = !equalNoCase(name, "Defpoints");
  const Record* stored = record("LAYER", name);
  if (!stored) return layer;
  const Groups groups(*stored);
  const std::int64_t colour = groups.integer(62, 7);
  layer.colour = groups.has(420) ? trueColour(static_cast<std::uint32_t>(groups.integer(420)), colour)
                                 : aciColour(static_cast<int>(std::abs(colour)));
  for (const Group& group : xdataOf(*stored, "AcCmTransparency"))
    if (group.code() == 1071) setAlpha(layer.colour, group.integer());
  layer.off = colour < 0;
  layer.frozen = (groups.integer(70) & LayerFlags::kFrozen) != 0 || frozen_.contains(key_);
  layer.plotted = layer.plotted && groups.integer(290, 1) != 0;
  layer.weightMm = weightMm(groups.integer(370, AcDb::kLnWtByLwDefault));
  layer.pattern = pattern(groups.text(6, "CONTINUOUS"));
  return layer;
}

const Layer& Properties::layerOf(const Groups& entity, const Inherited& from) {
  const std::string_view name = entity.text(8, "0");
  return name == "0" && from.layer ? *from.layer : layer(name);
}

Look Properties::look(const Groups& entity, const Inherited& from) {
  const Layer& layer = layerOf(entity, from);
  Look look;
  look.frozen = layer.frozen || (paper_ && !layer.plotted) || entity.integer(60) != 0;
  look.hidden = look.frozen || layer.off;

  const std::int64_t index = entity.integer(62, 256);
  if (entity.has(420)) look.colour = trueColour(static_cast<std::uint32_t>(entity.integer(420)), index);
  else if (index == 0) look.colour = from.look.colour;
  else look.colour = index == 256 ? layer.colour : aciColour(static_cast<int>(index));
  const std::int64_t transparency = entity.integer(440);
  look.colour.alpha = transparency >> 24 == kAlphaByBlock ? from.look.colour.alpha : layer.colour.alpha;
  setAlpha(look.colour, transparency);

  const std::int64_t weight = entity.integer(370, AcDb::kLnWtByLayer);
  look.weightMm = weight == AcDb::kLnWtByLayer   ? layer.weightMm
                  : weight == AcDb::kLnWtByBlock ? from.look.weightMm
                                                 : weightMm(weight);

  const std::string_view type = entity.text(6, "BYLAYER");
  if (equalNoCase(type, "BYLAYER")) look.pattern = layer.pattern;
  else look.pattern = equalNoCase(type, "BYBLOCK") ? from.look.pattern : pattern(type);
  look.patternScale = scale_ * entity.real(48, 1);
  return look;
}

const Pattern* Properties::pattern(std::string_view name) {
  if (name.empty() || equalNoCase(name, "CONTINUOUS")) return nullptr;
  const auto known = patterns_.find(key(name));
  Pattern& made = known != patterns_.end() ? known->second : patterns_[key_];
  if (const Record* stored = known == patterns_.end() ? record("LTYPE", name) : nullptr) {
    const std::vector<double> elements = Groups(*stored).reals(49);
    made.dashes = alternating(elements);
    for (const double element : elements) made.period += std::abs(element);
    made.marks = readLineMarks(database_, *stored, made.absent);
    // The dashes begin with the first one: a gap before it has gone to the end.
    double gap = 0;
    for (std::size_t i = 0; i < elements.size() && elements[i] < 0; ++i) gap -= elements[i];
    for (LineMark& mark : made.marks) mark.along += mark.along < gap ? made.period - gap : -gap;
  }
  return made.dashes.empty() && made.marks.empty() && made.absent.empty() ? nullptr : &made;
}

const TextStyle& Properties::textStyle(std::string_view name) {
  if (const auto known = styles_.find(key(name)); known != styles_.end()) return known->second;
  TextStyle& style = styles_[key_];
  const Record* stored = record("STYLE", name);
  if (!stored) return style;
  const Groups groups(*stored);
  style.height = groups.real(40);
  style.font.widthFactor = groups.real(41, 1);
  style.font.oblique = groups.radians(50);
  style.font.file = groups.text(3, "txt");
  // A style made from a family rather than a file names it in XDATA.
  for (const Group& group : xdataOf(*stored, "ACAD")) {
    if (group.code() == 1000 && !group.text().empty()) style.font.file = group.text();
    if (group.code() != 1071) continue;
    style.font.bold = (group.integer() & FontBits::kBold) != 0;
    style.font.italic = (group.integer() & FontBits::kItalic) != 0;
  }
  return style;
}

Dashes Properties::dashes(const Pattern* pattern, double scale) {
  if (!pattern || pattern->dashes.empty() || !(scale > 0) || !std::isfinite(scale)) return nullptr;
  Dashes& made = dashes_[{pattern, scale}];
  if (!made) {
    std::vector<double> lengths(pattern->dashes);
    for (double& length : lengths) length *= scale;
    made = std::make_shared<const std::vector<double>>(std::move(lengths));
  }
  return made;
}

}  // namespace atelier::render
