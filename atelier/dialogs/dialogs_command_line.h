// Dialogs on the command line: lists as tables, buttons as keywords, values as name=value. Inner header of the room.
// An answer is one line: a button's words, `name=value`, rows of the visible list (`2`, `1,3-5`, `*`), or Enter for the
// default button. The end of the input cancels.
#pragma once
#include "atelier/dialogs/dialogs.h"

namespace atelier {

class CommandLineDialogs : public DialogPresenter {
 public:
  void run(dialogues::Dialog& dialog) override;
  // Asks for a path. A folder that doesn't exist or can't be written to gives a message and counts as a failed command.
  std::optional<std::string> chooseFile(const dialogues::FileRequest& request) override;
  int message(const std::wstring& text, const std::wstring& title, dialogues::Icon icon, bool yesNo) override;
};

}  // namespace atelier
