// What AutoLISP's functions for dialogs keep between two calls: files, open dialogs, the list or picture that is being filled.
// Inner header of the room.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "atelier/dialogs/dcl_dialog.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/session.h"

namespace atelier {

struct DclSession {
  std::map<int, dcl::Definitions> files;
  int lastFile = 0;
  std::vector<std::unique_ptr<dcl::TileDialog>> dialogs;  // the open ones, the one on top last
  struct {
    std::string key;
    dcl::TileDialog::Change change = dcl::TileDialog::Change::all;
    std::size_t index = 0;
    std::vector<std::string> texts;
  } filling;
  struct {
    std::string key;
    std::vector<dialogues::Picture::Stroke> strokes;
  } drawing;
};

inline DclSession& dclSession(lisp::Interpreter& in) {
  auto& kept = in.session().dialogs;
  if (!kept) kept = std::make_shared<DclSession>();
  return *static_cast<DclSession*>(kept.get());
}

// The dialog on top when it has a tile with that key; null otherwise.
inline dcl::TileDialog* dialogWithTile(lisp::Interpreter& in, lisp::Value key) {
  auto& dialogs = dclSession(in).dialogs;
  const std::string name(lisp::stringArgument(in, key));
  return !dialogs.empty() && dialogs.back()->has(name) ? dialogs.back().get() : nullptr;
}

}  // namespace atelier
