// The functions of hote/dialogues.h, answered by the current document's presenter.
// Messages about numbers are the framework's own texts.
#include "atelier/dialogs/dialogs.h"

#include <charconv>
#include <cmath>

#include "atelier/base/text.h"
#include "atelier/dialogs/dialogs_command_line.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

DialogPresenter& presenter() {
  static CommandLineDialogs commandLine;
  DialogPresenter* own = Document::needed().dialogPresenter;
  return own ? *own : commandLine;
}

// A limit as the framework writes it: "0", "1e+38".
std::wstring limitText(double limit) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, limit, std::chars_format::general, 6).ptr;
  return toWide(std::string_view(text, end));
}

// A number as users type it: one comma may stand for the decimal point.
std::optional<double> typedNumber(std::string text) {
  if (const auto comma = text.find(','); comma != std::string::npos && text.find('.') == std::string::npos)
    text[comma] = '.';
  return parseReal(text);
}

}  // namespace

void deliver(dialogues::Dialog& dialog, const std::function<void()>& action) {
  try {
    action();
  } catch (const Interrupted&) {
    Document::needed().interrupt();
    dialog.end(dialogues::kCancel);
  } catch (const std::exception& error) {
    presenter().message(toWide(error.what()), dialog.title(), dialogues::Icon::error, false);
  }
}

}  // namespace atelier

namespace dialogues {

using namespace atelier;

int runDialog(Dialog& dialog) {
  dialog.restart();
  presenter().run(dialog);
  if (Document::needed().interpreter().interrupted()) throw Interrupted();
  return dialog.result().value_or(kCancel);
}

bool readNumber(Edit& edit, double& value, double least, double most) {
  const auto complain = [](const std::wstring& text) {
    messageBox(text, L"", Icon::warning);
    return false;
  };
  const auto number = typedNumber(toUtf8(edit.value()));
  if (!number || !std::isfinite(*number)) return complain(L"Entrez un nombre.");
  if (*number < least || *number > most)
    return complain(L"Entrez un nombre compris entre " + limitText(least) + L" et " + limitText(most) + L".");
  value = *number;
  return true;
}

std::optional<std::wstring> chooseFile(const FileRequest& request) {
  const auto path = presenter().chooseFile(request);
  return path ? std::optional(toWide(*path)) : std::nullopt;
}

int messageBox(const std::wstring& text, const std::wstring& title, Icon icon, bool yesNo) {
  return presenter().message(text, title, icon, yesNo);
}

}  // namespace dialogues
