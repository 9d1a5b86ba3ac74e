// Prompts that ask for a file, as the host and the front-end word them.
#pragma once
#include <optional>

#include "atelier/desktop/document/desktop_source.h"
#include "atelier/desktop/forms/file_choice.h"

namespace atelier::desktop {

struct FilePrompt {
  QString question, suggested;  // the default that the prompt names; empty for none
  FileUse use;
};
// Nothing for a prompt that asks for something else.
std::optional<FilePrompt> filePrompt(const PromptInfo& prompt);

}  // namespace atelier::desktop
