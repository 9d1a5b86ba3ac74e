// Each block is counted once, whatever refers to it, so that a few kilobytes that stand for billions are known at once.
// A block within itself adds nothing, as when it is drawn.
#include "atelier/render/scene/unfolding.h"

#include <algorithm>
#include <map>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/render/scene/properties.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {
namespace {

constexpr double kMostObjects = 5e6;
constexpr int kDeepest = 1000;  // blocks within blocks: deeper than anything that is drawn

class Unfolding {
 public:
  Unfolding(AcDbImpDatabase& database, const SceneOptions& options)
      : database_(database), properties_(database, options) {}

  double of(const AcDbStub& block) {
    const auto [known, first] = counts_.try_emplace(&block, 0);
    if (!first || !block.children || depth_ > kDeepest) return known->second;
    double sum = 0;
    ++depth_;
    for (AcDbStub* stub : *block.children) sum += ofEntity(*stub);
    --depth_;
    return counts_[&block] = sum;
  }

  double ofEntity(AcDbStub& stub) {
    checkInterruption();
    if (stub.is(AcDbStub::kErased)) return 0;
    const std::string_view type = database_.typeName(stub);
    if (type != "INSERT" && type != "ACAD_TABLE" && !type.ends_with("DIMENSION")) return 1;
    const Groups groups(AcDbImpObject::of(&database_.object(stub)).settled());
    if (properties_.look(groups, {}).frozen) return 0;
    const AcDbStub* block = database_.tableRecord("BLOCK_RECORD", groups.text(2));
    const auto times = [&](int code) {
      return static_cast<double>(std::max<std::int64_t>(groups.integer(code, 1), 1));
    };
    const double within = block ? std::max(of(*block), 1.0) : 1;  // an empty block takes its time, too
    const double attributes = stub.children ? static_cast<double>(stub.children->size()) : 0;
    return (type == "INSERT" ? times(70) * times(71) * within : within) + attributes;
  }

  std::string nameOf(AcDbStub& reference) {
    return std::string(Groups(AcDbImpObject::of(&database_.object(reference)).settled()).text(2));
  }

 private:
  AcDbImpDatabase& database_;
  Properties properties_;
  std::map<const AcDbStub*, double> counts_;
  int depth_ = 0;
};

std::string inWords(double count) {
  if (count >= 1e15) return "plus d'un million de milliards";
  std::string digits = std::to_string(static_cast<std::int64_t>(count));
  for (std::size_t at = digits.size(); at > 3; digits.insert(at, " ")) at -= 3;
  return digits;
}

}  // namespace

void checkUnfolding(const AcDbDatabase& database, const SceneOptions& options) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  const AcDbStub* space = options.space ? options.space : imp.modelSpace();
  if (!space || !space->children) return;
  Unfolding unfolding(imp, options);
  double sum = 0, most = 0;
  AcDbStub* largest = nullptr;
  for (AcDbStub* stub : *space->children) {
    const double count = unfolding.ofEntity(*stub);
    sum += count;
    if (count > most) most = count, largest = stub;
  }
  // A file that holds so many objects itself is large, not a trap.
  if (sum <= kMostObjects || sum <= 2 * static_cast<double>(imp.stubs().size())) return;
  throw PlotError("tracé impossible : les références du dessin se développent en " + inWords(sum) +
                  " objets, attendu au plus " + inWords(kMostObjects) + " ; la plus grande est celle du bloc " +
                  unfolding.nameOf(*largest) + ", " + inWords(most) +
                  " objets (blocs imbriqués ou réseau trop nombreux)");
}

}  // namespace atelier::render
