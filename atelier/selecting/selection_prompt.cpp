// Interactive selection, an answer at a time.
// The words are accepted with and without the leading underscore, and in French where there is a French one.
#include "atelier/selecting/selection_prompt.h"

#include <utility>

#include "atelier/base/interruption.h"
#include "atelier/database/lists/entity_walk.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/selecting/pick.h"

namespace atelier {
namespace {

struct Word {
  std::string_view word, meaning;
};
constexpr Word kWords[] = {
    {"W", "W"},       {"WINDOW", "W"},   {"FENETRE", "W"},   {"FE", "W"},     {"C", "C"},         {"CROSSING", "C"},
    {"CAPTURE", "C"}, {"WP", "WP"},      {"WPOLYGON", "WP"}, {"CP", "CP"},    {"CPOLYGON", "CP"}, {"F", "F"},
    {"FENCE", "F"},   {"TRAJET", "F"},   {"L", "L"},         {"LAST", "L"},   {"D", "L"},         {"DERNIER", "L"},
    {"P", "P"},       {"PREVIOUS", "P"}, {"PRECEDENT", "P"}, {"ALL", "ALL"},  {"TOUT", "ALL"},    {"A", "A"},
    {"ADD", "A"},     {"AJOUTER", "A"},  {"R", "R"},         {"REMOVE", "R"}, {"SUPPRIMER", "R"}, {"U", "U"},
    {"UNDO", "U"},    {"ANNULER", "U"}};

std::string_view meaningOf(std::string_view typed) {
  if (typed.starts_with('_')) typed.remove_prefix(1);
  const std::string word = upperCase(typed);
  for (const Word& row : kWords)
    if (row.word == word) return row.meaning;
  return {};
}

}  // namespace

PromptInfo SelectionPrompt::prompt() const {
  PromptInfo info;
  info.wantsEntity = stage_ == Stage::objects || stage_ == Stage::secondCorner;
  info.wantsPoint = !info.wantsEntity;
  if (!points_.empty()) info.base = points_.back();
  switch (stage_) {
    case Stage::objects: info.text = removing_ ? "\nObjets à retirer: " : prompt_; break;
    case Stage::corner: info.text = "\nPremier coin: "; break;
    case Stage::secondCorner:
      info.text = "\nCoin opposé: ";
      info.isCorner = true;
      break;
    case Stage::polygon: info.text = points_.empty() ? "\nPremier point: " : "\nPoint suivant: "; break;
  }
  return info;
}

void SelectionPrompt::takeObjects(const SelectionSet& found) {
  std::vector<AcDbStub*> step;
  for (AcDbStub* stub : found.list()) {
    checkInterruption();
    if (!stub->is(AcDbStub::kErased) && set_->contains(stub) == removing_ && filter_.matches(*stub))
      step.push_back(stub);
  }
  if (removing_) set_->removeAll(step);
  else
    for (AcDbStub* stub : step) set_->append(stub);
  document_.print("\n" + std::to_string(step.size()) + (removing_ ? " retiré(s), " : " trouvé(s), ") +
                  std::to_string(set_->list().size()) + " au total");
  if (!removing_) steps_.push_back(std::move(step));
}

void SelectionPrompt::finishPolygon() {
  stage_ = Stage::objects;
  if (polygon_ == PolygonMode::crossing) set_->crossed = points_;
  takeObjects(*selectPolygon(document_, points_, polygon_, filter_));
  points_.clear();
}

bool SelectionPrompt::takePoint(const AcGePoint3d& point) {
  document_.prompter().lastPoint = point;
  if (stage_ == Stage::polygon) {
    points_.push_back(point);
    return true;
  }
  if (stage_ == Stage::secondCorner) {
    // Without a word the direction decides: from right to left crosses.
    const bool crossing = byDirection_ ? point.x < points_.front().x : crossing_;
    stage_ = Stage::objects;
    const AcGePoint3d a = points_.front();
    if (crossing) set_->crossed = {a, {point.x, a.y, 0}, point, {a.x, point.y, 0}};
    takeObjects(*selectBox(document_, a, point, crossing, filter_));
    points_.clear();
    return true;
  }
  if (stage_ == Stage::objects) {
    SelectionSet found;
    if (found.add(pickAt(document_, point))) {
      takeObjects(found);
      return true;
    }
    if (single_) {
      document_.print("\nAucun objet à cet endroit.");
      return true;
    }
    byDirection_ = true;
  }
  points_.assign(1, point);
  stage_ = Stage::secondCorner;
  return true;
}

bool SelectionPrompt::takeValue(std::string_view expression) {
  lisp::Value value;
  try {
    value = document_.interpreter().evaluate(expression.starts_with('!') ? expression.substr(1) : expression);
  } catch (const lisp::Error& error) {
    document_.print(std::string("\n") + error.what());
    return false;
  }
  if (value.isSelection()) {
    takeObjects(*static_cast<const SelectionSet*>(value.selection().get()));
    return true;
  }
  SelectionSet found;
  AcDbObjectId id;
  AcGePoint3d at;
  if (entityFromValue(value, id, at)) {
    found.add(id);
    takeObjects(found);
    return true;
  }
  const auto point = pointFromValue(value);
  return point && takePoint(*point);
}

bool SelectionPrompt::takeWord(std::string_view typed) {
  const std::string_view word = meaningOf(typed);
  if (word.empty()) return false;
  SelectionSet last;
  if (word == "W" || word == "C") {
    stage_ = Stage::corner;
    crossing_ = word == "C";
    byDirection_ = false;
  } else if (word == "WP" || word == "CP" || word == "F") {
    stage_ = Stage::polygon;
    points_.clear();
    polygon_ = word == "WP" ? PolygonMode::window : word == "CP" ? PolygonMode::crossing : PolygonMode::fence;
  } else if (word == "L") {
    last.add(lastEntity(document_.imp()));
    takeObjects(last);
  } else if (word == "P") {
    takeObjects(document_.previousSelection ? *document_.previousSelection : last);
  } else if (word == "ALL") {
    AcDbStub* space = document_.database().currentSpaceId();
    if (space && space->children)
      for (AcDbStub* stub : *space->children) last.append(stub);
    takeObjects(last);
  } else if (word == "U") {
    if (!steps_.empty()) {
      set_->removeAll(steps_.back());
      steps_.pop_back();
    }
  } else {
    removing_ = word == "R";
  }
  return true;
}

bool SelectionPrompt::take(const Input& input) {
  if (input.kind == Input::Kind::pick) return takePoint(input.point);
  const std::string_view text = trimmed(input.text);
  if (text.empty()) {
    if (stage_ == Stage::polygon) finishPolygon();
    else if (stage_ != Stage::objects) stage_ = Stage::objects;
    else done_ = true;
    return true;
  }
  if (text.starts_with('(') || text.starts_with('!')) return takeValue(text);
  if (stage_ == Stage::objects && takeWord(text)) return true;
  const auto point = parsePoint(text, document_.prompter().lastPoint);
  return point && takePoint(*point);
}

Answer SelectionPrompt::run() {
  document_.pendingSelection = set_;
  const std::shared_ptr<void> ending(nullptr, [this](void*) { document_.pendingSelection.reset(); });
  while (!finished()) {
    const Input input = document_.prompter().read(prompt());
    if (input.kind == Input::Kind::cancel || input.kind == Input::Kind::end) return Answer::cancel;
    if (take(input)) continue;
    if (document_.prompter().source->takesBack(input)) done_ = true;
    else document_.print("\nRéponse non valide: un point, un objet ou W C WP CP F L P ALL A R U est attendu.");
  }
  return set_->list().empty() ? Answer::none : Answer::value;
}

std::shared_ptr<SelectionSet> takeSelectedBefore(Document& document) {
  const bool byProgram = document.selectedByProgram.lock() == document.firstSelection;
  if (!document.firstSelection || (document.prompter().source->isProgram() && !byProgram) ||
      document.variables().integer("PICKFIRST", 1) == 0)
    return nullptr;
  auto chosen = std::make_shared<SelectionSet>();
  const auto before = std::exchange(document.firstSelection, nullptr);  // often nobody else holds it
  for (AcDbStub* stub : before->list())
    if (!stub->is(AcDbStub::kErased)) chosen->append(stub);
  if (chosen->list().empty()) return nullptr;
  document.print("\n" + std::to_string(chosen->list().size()) + " trouvé(s)");
  return document.previousSelection = chosen;
}

std::shared_ptr<SelectionSet> selectInteractively(Document& document, const SelectionFilter& filter, bool single,
                                                  bool& cancelled) {
  SelectionPrompt prompt(document, filter, single);
  const Answer answer = prompt.run();
  cancelled = answer == Answer::cancel;
  if (answer != Answer::value) return nullptr;
  document.previousSelection = prompt.set();
  return prompt.set();
}

}  // namespace atelier
