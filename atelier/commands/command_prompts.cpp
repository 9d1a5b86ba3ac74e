// The questions of commands, asked through the prompter.
// Each sets its keywords every time it is asked, because the prompter keeps them for one prompt only.
#include "atelier/commands/command_prompts.h"

#include <cmath>

#include "atelier/base/interruption.h"
#include "atelier/database/entities/carried_transform.h"
#include "atelier/database/objects/clone.h"
#include "atelier/document/adding.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/selecting/selection_prompt.h"

namespace atelier {

namespace {

// A question of each kind, with the flags of its prompt.
template <template <class> class REPLY>
Asked<AcGePoint3d, REPLY> askPoint(int flags, std::string prompt, Command::Base base, std::string keywords) {
  return Asked<AcGePoint3d, REPLY>(
      [flags, base, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, AcGePoint3d& value) {
        p.initGet(flags, keywords);
        return p.getPoint(base, prompt, value);
      });
}
template <template <class> class REPLY>
Asked<double, REPLY> askDistance(int flags, std::string prompt, Command::Base base, std::string keywords) {
  return Asked<double, REPLY>(
      [flags, base, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, double& value) {
        p.initGet(flags, keywords);
        return p.getDistance(base, prompt, value);
      });
}
template <template <class> class REPLY>
Asked<double, REPLY> askAngle(int flags, std::string prompt, Command::Base base, std::string keywords) {
  return Asked<double, REPLY>(
      [flags, base, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, double& value) {
        p.initGet(flags, keywords);
        return p.getAngle(base, prompt, value);
      });
}
template <template <class> class REPLY>
Asked<double, REPLY> askReal(int flags, std::string prompt, std::string keywords) {
  return Asked<double, REPLY>(
      [flags, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, double& value) {
        p.initGet(flags, keywords);
        return p.getReal(prompt, value);
      });
}
template <template <class> class REPLY>
Asked<int, REPLY> askInteger(int flags, std::string prompt, std::string keywords) {
  return Asked<int, REPLY>(
      [flags, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, int& value) {
        p.initGet(flags, keywords);
        return p.getInteger(prompt, value);
      });
}

}  // namespace

Asked<AcGePoint3d> Command::point(std::string prompt, Base base, std::string keywords) const {
  return askPoint<Reply>(RSG_NONULL, std::move(prompt), base, std::move(keywords));
}
MaybeAsked<AcGePoint3d> Command::pointOrEnter(std::string prompt, Base base, std::string keywords) const {
  return askPoint<MaybeReply>(0, std::move(prompt), base, std::move(keywords));
}
MaybeAsked<AcGePoint3d> Command::pointOrWord(std::string prompt, std::string keywords) const {
  return askPoint<MaybeReply>(RSG_OTHER, std::move(prompt), {}, std::move(keywords));
}
Asked<AcGePoint3d> Command::corner(std::string prompt, const AcGePoint3d& opposite, std::string keywords) const {
  return Asked<AcGePoint3d>(
      [opposite, prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, AcGePoint3d& value) {
        p.initGet(RSG_NONULL, keywords);
        return p.getPoint(opposite, prompt, value, true);
      });
}
Asked<double> Command::distance(std::string prompt, Base base, std::string keywords) const {
  return askDistance<Reply>(RSG_NONULL, std::move(prompt), base, std::move(keywords));
}
MaybeAsked<double> Command::distanceOrEnter(std::string prompt, Base base, std::string keywords) const {
  return askDistance<MaybeReply>(0, std::move(prompt), base, std::move(keywords));
}
Asked<double> Command::angle(std::string prompt, Base base, std::string keywords) const {
  return askAngle<Reply>(RSG_NONULL, std::move(prompt), base, std::move(keywords));
}
MaybeAsked<double> Command::angleOrEnter(std::string prompt, Base base, std::string keywords) const {
  return askAngle<MaybeReply>(0, std::move(prompt), base, std::move(keywords));
}
Asked<double> Command::real(std::string prompt, std::string keywords) const {
  return askReal<Reply>(RSG_NONULL, std::move(prompt), std::move(keywords));
}
MaybeAsked<double> Command::realOrEnter(std::string prompt, std::string keywords) const {
  return askReal<MaybeReply>(0, std::move(prompt), std::move(keywords));
}
Asked<int> Command::integer(std::string prompt, std::string keywords) const {
  return askInteger<Reply>(RSG_NONULL, std::move(prompt), std::move(keywords));
}
MaybeAsked<int> Command::integerOrEnter(std::string prompt, std::string keywords) const {
  return askInteger<MaybeReply>(0, std::move(prompt), std::move(keywords));
}
Asked<std::string> Command::word(std::string prompt) const {
  return Asked<std::string>(
      [prompt = std::move(prompt)](Prompter& p, std::string& value) { return p.getText(false, prompt, value); });
}
Asked<std::string> Command::line(std::string prompt) const {
  return Asked<std::string>(
      [prompt = std::move(prompt)](Prompter& p, std::string& value) { return p.getText(true, prompt, value); });
}
MaybeAsked<int> Command::keyword(std::string prompt, std::string keywords) const {
  return MaybeAsked<int>([prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, int&) {
    p.initGet(0, keywords);
    return p.getKeyword(prompt);
  });
}
MaybeAsked<PickedEntity> Command::entity(std::string prompt, std::string keywords) const {
  return MaybeAsked<PickedEntity>(
      [prompt = std::move(prompt), keywords = std::move(keywords)](Prompter& p, PickedEntity& value) {
        p.initGet(0, keywords);
        const AcGePoint3d nowhere(HUGE_VAL, HUGE_VAL, HUGE_VAL);
        value.point = nowhere;
        const Answer answer = p.getEntity(prompt, value.id, value.point);
        value.byPoint = value.point.x != HUGE_VAL;
        if (!value.byPoint) value.point = {};
        return answer;
      });
}
MaybeAsked<std::shared_ptr<SelectionSet>> Command::objects(bool single) const {
  if (!single)
    if (auto chosen = takeSelectedBefore(document))
      return MaybeAsked<std::shared_ptr<SelectionSet>>::answered(std::move(chosen));
  const auto prompt = std::make_shared<SelectionPrompt>(document, SelectionFilter(), single);
  return MaybeAsked<std::shared_ptr<SelectionSet>>([this, prompt](Prompter&, std::shared_ptr<SelectionSet>& set) {
    const Answer answer = prompt->run();
    if (answer == Answer::value) set = document.previousSelection = prompt->set();
    return answer;
  });
}

void Command::print(std::string_view text) const { document.print(text); }
void Command::fail(const std::string& message) const { throw Error(message); }

AcDbObjectId Command::add(std::unique_ptr<AcDbEntity> entity) const { return addEntity(document, std::move(entity)); }

AcDbObjectId Command::addAsIs(std::unique_ptr<AcDbEntity> entity) const {
  return addEntityAsIs(document, std::move(entity));
}

void Command::copies(const SelectionSet& set, const AcGeMatrix3d& matrix, AcDbObjectId block) const {
  std::vector<AcDbStub*> sources;
  for (AcDbStub* stub : set.list())
    if (!stub->is(AcDbStub::kErased)) sources.push_back(stub);
  AcDbStub* owner = block.isNull() ? document.database().currentSpaceId() : block;
  if (!owner) fail("Les objets n'ont pas pu être copiés.");
  needTransformable(set, matrix);
  cloneAll(document.imp(), sources, *owner, [&](AcDbEntity& copy) { copy.transformBy(matrix); });
}

void Command::transform(const SelectionSet& set, const AcGeMatrix3d& matrix) const {
  needTransformable(set, matrix);
  change(set, [&](AcDbEntity& entity) { entity.transformBy(matrix); });
}

void Command::needTransformable(const SelectionSet& set, const AcGeMatrix3d& matrix) const {
  for (AcDbStub* stub : set.list()) {
    if (stub->is(AcDbStub::kErased)) continue;
    const auto* entity = AcDbEntity::cast(&document.imp().object(*stub));
    if (entity && !canTransform(*entity, matrix))
      fail(std::string(document.imp().typeName(*stub)) + " (" + handleText(stub->handle) +
           ") ne peut pas être transformé ainsi: rien n'a été modifié.");
  }
}

void Command::change(const SelectionSet& set, const std::function<void(AcDbEntity&)>& work) const {
  LayerStates layers(document.imp());
  int locked = 0;
  for (AcDbStub* stub : set.list()) {
    checkInterruption();
    if (stub->is(AcDbStub::kErased)) continue;
    if (layers.isLocked(*stub)) {
      ++locked;
      continue;
    }
    const AcDbEntityPointer entity(AcDbObjectId(stub), AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOk) work(*entity);
  }
  if (locked > 0) print("\n" + std::to_string(locked) + " objet(s) sur un calque verrouillé.");
}

}  // namespace atelier
