// What commands use: the document and the questions that they may await.
// Keywords are given as "French words _English words"; the answer is the English one. A prompt made of parts is put
// into a variable before it is awaited: gcc 12 destroys temporaries of a conditional in an awaited expression twice.
#pragma once
#include <memory>

#include "atelier/commands/command_task.h"
#include "atelier/document/selection_set.h"
#include "hote/dbents.h"

namespace atelier {

inline AcGePoint2d flat(const AcGePoint3d& p) { return {p.x, p.y}; }

class Command {
 public:
  Command(Document& owner, std::string name) : document(owner), typed(std::move(name)) {}
  Document& document;
  const std::string typed;  // the name that was typed

  using Base = std::optional<AcGePoint3d>;
  // These demand an answer: Enter is refused, and the question asked again.
  Asked<AcGePoint3d> point(std::string prompt, Base base = {}, std::string keywords = {}) const;
  Asked<AcGePoint3d> corner(std::string prompt, const AcGePoint3d& opposite, std::string keywords = {}) const;
  Asked<double> distance(std::string prompt, Base base = {}, std::string keywords = {}) const;
  Asked<double> angle(std::string prompt, Base base = {}, std::string keywords = {}) const;  // radians
  Asked<double> real(std::string prompt, std::string keywords = {}) const;
  Asked<int> integer(std::string prompt, std::string keywords = {}) const;
  // To these Enter is an answer.
  MaybeAsked<AcGePoint3d> pointOrEnter(std::string prompt, Base base = {}, std::string keywords = {}) const;
  // Also takes any other text, which then counts as a keyword.
  MaybeAsked<AcGePoint3d> pointOrWord(std::string prompt, std::string keywords) const;
  MaybeAsked<double> distanceOrEnter(std::string prompt, Base base = {}, std::string keywords = {}) const;
  MaybeAsked<double> angleOrEnter(std::string prompt, Base base = {}, std::string keywords = {}) const;
  MaybeAsked<double> realOrEnter(std::string prompt, std::string keywords = {}) const;
  MaybeAsked<int> integerOrEnter(std::string prompt, std::string keywords = {}) const;
  Asked<std::string> word(std::string prompt) const;  // up to a blank; Enter: empty
  Asked<std::string> line(std::string prompt) const;  // blanks and all
  MaybeAsked<int> keyword(std::string prompt, std::string keywords) const;
  MaybeAsked<PickedEntity> entity(std::string prompt, std::string keywords = {}) const;
  // Asks for objects, which become the previous selection. Enter with nothing selected: no value. `single`: one answer
  // is enough.
  MaybeAsked<std::shared_ptr<SelectionSet>> objects(bool single = false) const;

  void print(std::string_view text) const;
  // Ends the command with a message that counts as a failure.
  [[noreturn]] void fail(const std::string& message) const;

  // Puts a new entity into the current space with the current layer, colour and line type. Takes it over.
  AcDbObjectId add(std::unique_ptr<AcDbEntity> entity) const;
  // The same, with the layer, colour and line type that the entity has.
  AcDbObjectId addAsIs(std::unique_ptr<AcDbEntity> entity) const;
  // Adds transformed copies to the current space or to that block.
  void copies(const SelectionSet& set, const AcGeMatrix3d& matrix, AcDbObjectId block = {}) const;
  // Transforms the objects. Like copies, fails before anything is changed when one can't be brought along.
  void transform(const SelectionSet& set, const AcGeMatrix3d& matrix) const;
  // Calls `work` with each entity of the set that can be changed; those on locked layers are left out, and their number
  // is printed.
  void change(const SelectionSet& set, const std::function<void(AcDbEntity&)>& work) const;

 private:
  void needTransformable(const SelectionSet& set, const AcGeMatrix3d& matrix) const;
};

}  // namespace atelier
