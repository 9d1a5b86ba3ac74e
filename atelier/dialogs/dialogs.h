// What shows the models of hote/dialogues.h: a presenter such as the desktop's, or the command line without one.
// A presenter belongs to whoever sets it on a Document; it is asked on the thread that runs the handlers.
#pragma once
#include <functional>
#include <optional>
#include <string>

#include "hote/dialogues.h"

namespace atelier {

class Document;

class DialogPresenter {
 public:
  virtual ~DialogPresenter() = default;
  // Shows the dialog and returns when it has a result. The user's actions go through deliver(). While the dialog is not
  // shown() the prompts of the document take answers as they do without a dialog.
  virtual void run(dialogues::Dialog& dialog) = 0;
  // The path chosen, UTF-8, its extension added; nothing for a cancel.
  virtual std::optional<std::string> chooseFile(const dialogues::FileRequest& request) = 0;
  virtual int message(const std::wstring& text, const std::wstring& title, dialogues::Icon icon, bool yesNo) = 0;
};

// Carries out a user's action on a control (`list.userSelect(...)`, `button.userClick()`). Exceptions of the action are
// caught: a failure is shown as a message; an interruption closes the dialog and is thrown again by runDialog.
void deliver(dialogues::Dialog& dialog, const std::function<void()>& action);

}  // namespace atelier
