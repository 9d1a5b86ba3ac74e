// Dialogs as models without a toolkit, and the functions that show them.
// The module fills a model and runs it; a presenter reads its controls and changes them as a user would.
#pragma once
#include <limits>

#include "hote/controles.h"

namespace dialogues {

inline constexpr int kOk = 1, kCancel = 2;

// A dialog's controls are usually members of the derived class; they must live as long as the dialog.
class Dialog {
 public:
  explicit Dialog(std::wstring title, int width = 400, int height = 300)
      : title_(std::move(title)), width_(width), height_(height) {}
  virtual ~Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  const std::wstring& title() const { return title_; }
  int width() const { return width_; }  // pixels at 96 to the inch, a hint
  int height() const { return height_; }
  const std::vector<Control*>& controls() const { return controls_; }  // in the order of the Tab key
  void add(Control& control, Place place, std::wstring frame = {}) {
    control.place_ = place;
    control.frame_ = std::move(frame);
    control.onTouched_ = [this](Control& touched) {
      if (onTouched) onTouched(touched);
    };
    controls_.push_back(&control);
  }

  // Closes the running dialog with kOk or kCancel as its result. Presenters close it with kCancel.
  void end(int result) {
    result_ = result;
    fire(onEnd);
  }
  std::optional<int> result() const { return result_; }  // empty while it runs
  // While a modal dialog is hidden, the user can work in the host and answer prompts there.
  void setShown(bool shown) {
    shown_ = shown;
    fire(onShown);
  }
  bool shown() const { return shown_; }
  void restart() {
    result_.reset();
    shown_ = true;
  }

  // Calls to the presenter while it runs the dialog; it clears them before it returns.
  std::function<void(Control&)> onTouched;
  std::function<void()> onShown, onEnd;

 private:
  static void fire(const std::function<void()>& event) {
    if (event) event();
  }
  const std::wstring title_;
  const int width_, height_;
  std::vector<Control*> controls_;
  std::optional<int> result_;
  bool shown_ = true;
};

// Shows the dialog until it ends and gives its result; kCancel when there is nobody to answer.
int runDialog(Dialog& dialog);

// Reads the number in an edit, with a decimal point or comma. When there is none, or it is outside the limits, the framework tells the user, value is
// unchanged and the result is false: an OK button then doesn't close the dialog.
bool readNumber(Edit& edit, double& value, double least = -std::numeric_limits<double>::max(),
                double most = std::numeric_limits<double>::max());

struct FileRequest {
  bool save = false;
  std::wstring title, filter;    // the filter as the user reads it: "Fichier resultat (*.xlsx)"
  std::wstring extension;        // without a point; given to a name that has none
  std::wstring name;             // proposed
  bool overwritePrompt = false;  // saving asks before a file is replaced
  bool pathMustExist = false;
};
// The chosen path, or nothing when the user cancels.
std::optional<std::wstring> chooseFile(const FileRequest& request);

enum class Icon { none, information, question, warning, error };
// A message with the button OK, or Yes and No (kOk for Yes).
int messageBox(const std::wstring& text, const std::wstring& title, Icon icon = Icon::none, bool yesNo = false);

}  // namespace dialogues
