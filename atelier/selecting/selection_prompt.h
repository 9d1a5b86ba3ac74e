// The prompt for objects: picks, windows, and the words W C WP CP F L P ALL A R U, until Enter.
// It keeps its state between answers, so that a command can wait for more of them.
#pragma once
#include <vector>

#include "atelier/document/prompter.h"
#include "atelier/selecting/selections.h"

namespace atelier {

class SelectionPrompt {
 public:
  SelectionPrompt(Document& document, SelectionFilter filter, bool single, std::string prompt = "\nChoix des objets: ")
      : document_(document), filter_(std::move(filter)), single_(single), prompt_(std::move(prompt)) {}
  // Goes on asking. value: something is selected; none: Enter with nothing selected; cancel.
  Answer run();
  const std::shared_ptr<SelectionSet>& set() const { return set_; }

 private:
  enum class Stage { objects, corner, secondCorner, polygon };
  PromptInfo prompt() const;
  bool take(const Input& input);  // false: not understood
  bool takeValue(std::string_view expression);
  bool takeWord(std::string_view word);
  bool takePoint(const AcGePoint3d& point);
  void takeObjects(const SelectionSet& found);
  void finishPolygon();
  bool finished() const { return done_ || (single_ && !set_->list().empty()); }

  Document& document_;
  SelectionFilter filter_;
  bool single_;
  std::string prompt_;
  Stage stage_ = Stage::objects;
  bool removing_ = false, crossing_ = false, byDirection_ = false, done_ = false;
  PolygonMode polygon_ = PolygonMode::window;
  std::vector<AcGePoint3d> points_;
  std::vector<std::vector<AcDbStub*>> steps_;  // what each answer added, for U
  std::shared_ptr<SelectionSet> set_ = std::make_shared<SelectionSet>();
};

// The objects selected before the command, which uses them without asking (PICKFIRST); null when it has to ask. A
// command with answers from AutoLISP always asks: programs rely on the prompt.
std::shared_ptr<SelectionSet> takeSelectedBefore(Document& document);

}  // namespace atelier
