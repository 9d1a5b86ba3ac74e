// Running a dialog from the command line, an answer at a time.
// Only the model of a dialog is used here, so that scripts press the same buttons as the desktop shows.
#include "atelier/dialogs/dialogs_command_line.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "atelier/base/text.h"
#include "atelier/dialogs/dialogs_text.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

using dialogues::Control;
using dialogues::Dialog;

bool usable(const Control& control) { return control.visible() && control.enabled(); }

class Run {
 public:
  explicit Run(Dialog& dialog) : dialog_(dialog), document_(Document::needed()) {
    dialog_.onTouched = [this](Control& control) { touched_.push_back(&control); };
    touched_ = dialog_.controls();
  }
  ~Run() { dialog_.onTouched = nullptr; }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  void untilTheEnd() {
    while (!dialog_.result()) {
      show();
      const Input input = document_.prompter().read(prompt());
      if (input.kind != Input::Kind::text) {
        dialog_.end(dialogues::kCancel);
      } else {
        deliver(dialog_, [&] { take(std::string(trimmed(input.text))); });
      }
    }
  }

 private:
  // What changed since it was last shown, frames with their titles, in the dialog's order.
  void show() {
    std::string text, frame;
    for (const Control* control : dialog_.controls()) {
      if (!control->visible() || std::find(touched_.begin(), touched_.end(), control) == touched_.end()) continue;
      const std::string shown = textOf(*control);
      const std::string title = toUtf8(control->frame());
      if (!shown.empty() && title != frame && !title.empty()) text += title + "\n";
      if (!shown.empty()) frame = title;
      text += shown;
    }
    touched_.clear();
    if (!text.empty()) document_.print((document_.atLineStart() ? "" : "\n") + text);
  }

  PromptInfo prompt() const {
    PromptInfo info;
    info.takesSpaces = true;
    for (const Control* control : dialog_.controls())
      if (isPressed(*control) && usable(*control)) info.keywords.push_back(nameOf(*control));
    info.text = "\n" + toUtf8(dialog_.title()) + " [";
    for (const std::string& keyword : info.keywords)
      info.text += (&keyword == info.keywords.data() ? "" : "/") + keyword;
    info.text += "]: ";
    return info;
  }

  void take(const std::string& answer) {
    if (answer.empty()) return pressDefault();
    if (const std::size_t sign = answer.find('='); sign != answer.npos) {
      if (Control* control = find(answer.substr(0, sign), false))
        return change(*control, std::string(trimmed(std::string_view(answer).substr(sign + 1))));
    } else if (Control* button = find(answer, true)) {
      return press(*button);
    } else if (dialogues::List* list = onlyList()) {
      if (const auto rows = rowsOf(answer, static_cast<int>(list->rows().size()))) return list->userSelect(*rows);
    }
    document_.print("\nRéponse non valide: un bouton, nom=valeur ou des numéros de lignes sont attendus.");
  }

  void pressDefault() {
    for (Control* control : dialog_.controls())
      if (control->kind() == Control::Kind::button && usable(*control) &&
          static_cast<dialogues::Button*>(control)->isDefault)
        return static_cast<dialogues::Button*>(control)->userClick();
    touched_ = dialog_.controls();
  }

  // Buttons, and pictures that are one.
  static bool isPressed(const Control& control) {
    return control.kind() == Control::Kind::button ||
           (control.kind() == Control::Kind::picture && static_cast<const dialogues::Picture&>(control).onClick);
  }
  static void press(Control& control) {
    if (control.kind() == Control::Kind::button) static_cast<dialogues::Button&>(control).userClick();
    else static_cast<dialogues::Picture&>(control).userClick();
  }

  // The control with the typed name; null when there is none or several.
  Control* find(const std::string& typed, bool button) const {
    Control* found = nullptr;
    int beginnings = 0;
    for (Control* control : dialog_.controls()) {
      const Control::Kind kind = control->kind();
      if (kind == Control::Kind::text || button != isPressed(*control) || !usable(*control)) continue;
      const Match how = match(typed, nameOf(*control));
      if (how == Match::whole) return control;
      if (how == Match::beginning && ++beginnings > 0) found = control;
    }
    return beginnings == 1 ? found : nullptr;
  }

  dialogues::List* onlyList() const {
    dialogues::List* found = nullptr;
    for (Control* control : dialog_.controls()) {
      if (control->kind() != Control::Kind::list || !usable(*control)) continue;
      if (found) return nullptr;
      found = static_cast<dialogues::List*>(control);
    }
    return found;
  }

  void change(Control& control, const std::string& value) {
    const auto refuse = [&](const char* expected) { document_.print(std::string("\n") + expected); };
    switch (control.kind()) {
      case Control::Kind::edit: return static_cast<dialogues::Edit&>(control).userType(toWide(value));
      case Control::Kind::list: {
        auto& list = static_cast<dialogues::List&>(control);
        const auto rows = rowsOf(value, static_cast<int>(list.rows().size()));
        return rows ? list.userSelect(*rows) : refuse("Des numéros de lignes sont attendus: 2, 1,3-5 ou *.");
      }
      case Control::Kind::check: {
        const bool yes = match(value, "Oui") != Match::no || equalNoCase(value, "o");
        if (!yes && !equalNoCase(value, "non") && !equalNoCase(value, "n")) return refuse("Oui ou Non est attendu.");
        return static_cast<dialogues::Check&>(control).userCheck(yes);
      }
      case Control::Kind::colour: {
        const auto index = parseInteger(value);
        if (!index || *index < 0 || *index > 256) return refuse("Une couleur est attendue: 0 à 256.");
        return static_cast<dialogues::Colour&>(control).userChoose(static_cast<int>(*index));
      }
      default: return choose(static_cast<dialogues::Combo&>(control), value);
    }
  }

  void choose(dialogues::Combo& combo, const std::string& value) {
    for (std::size_t i = 0; i < combo.choices().size(); ++i)
      if (match(value, keywordOf(combo.choices()[i])) != Match::no) return combo.userChoose(static_cast<int>(i));
    std::string text = "\nUn de ces choix est attendu:";
    for (const std::wstring& choice : combo.choices()) text += " " + keywordOf(choice);
    document_.print(text);
  }

  Dialog& dialog_;
  Document& document_;
  std::vector<Control*> touched_;
};

bool confirmed(Document& document, const std::string& question) {
  document.prompter().initGet(0, "Oui Non");
  return document.prompter().getKeyword("\n" + question + " [Oui/Non] <Non>: ") == Answer::keyword &&
         document.prompter().lastKeyword() == "Oui";
}

}  // namespace

void CommandLineDialogs::run(Dialog& dialog) { Run(dialog).untilTheEnd(); }

std::optional<std::string> CommandLineDialogs::chooseFile(const dialogues::FileRequest& request) {
  namespace fs = std::filesystem;
  Document& document = Document::needed();
  std::string answer;
  const std::string title =
      request.title.empty() ? request.save ? "Enregistrer sous" : "Ouvrir" : toUtf8(request.title);
  const std::string proposed = request.name.empty() ? "" : " <" + toUtf8(request.name) + ">";
  const std::string text = "\n" + title + ", " + toUtf8(request.filter) + proposed + ": ";
  if (document.prompter().getText(true, text, answer) != Answer::value) return std::nullopt;
  answer = std::string(trimmed(answer));
  if (answer.empty()) answer = toUtf8(request.name);
  if (answer.empty()) return std::nullopt;
  fs::path path = answer;
  if (path.extension().empty() && !request.extension.empty()) path += "." + toUtf8(request.extension);
  // Printed even when the command line is muted.
  const auto refused = [&](const std::string& why) {
    const bool muted = document.exchangeMuted(false);
    document.fail(why);
    document.exchangeMuted(muted);
    return std::nullopt;
  };
  std::error_code error;
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  if (request.pathMustExist && !fs::is_directory(folder, error))
    return refused("Dossier introuvable: " + folder.string());
  const bool there = fs::exists(path, error);
  if (!request.save && !there) return refused("Fichier introuvable: " + path.string());
  if (request.save && (access(folder.c_str(), W_OK) != 0 || (there && access(path.c_str(), W_OK) != 0)))
    return refused("Écriture impossible: " + path.string());
  if (request.save && request.overwritePrompt && there &&
      !confirmed(document, path.string() + " existe. Le remplacer?"))
    return std::nullopt;
  return path.string();
}

int CommandLineDialogs::message(const std::wstring& text, const std::wstring& title, dialogues::Icon, bool yesNo) {
  Document& document = Document::needed();
  const std::string shown = (title.empty() ? "" : toUtf8(title) + ": ") + toUtf8(text);
  if (yesNo) return confirmed(document, shown) ? dialogues::kOk : dialogues::kCancel;
  document.print((document.atLineStart() ? "" : "\n") + shown + "\n");
  return dialogues::kOk;
}

}  // namespace atelier
