// A question for a file begins with one of these words; a file to be written is told by others.
#include "atelier/desktop/files/file_prompts.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace atelier::desktop {

std::optional<FilePrompt> filePrompt(const PromptInfo& prompt) {
  static const QStringList kBeginnings{"Fichier ", "Nom du fichier", "Nom du dessin à ", "Enregistrer le dessin sous"};
  static const QStringList kWritten{"à écrire", "à remplir", "PDF", "Enregistrer", "Nom du fichier"};
  const QString text = QString::fromStdString(prompt.text).trimmed();
  const auto begins = [&text](const QString& word) { return text.startsWith(word); };
  const auto has = [&text](const QString& word) { return text.contains(word); };
  if (!prompt.takesSpaces || prompt.isCommand || std::ranges::none_of(kBeginnings, begins)) return {};
  static const QRegularExpression kDefault("<([^<>]+\\.[^<>]+)>");
  return FilePrompt{text, kDefault.match(text).captured(1),
                    std::ranges::any_of(kWritten, has) ? FileUse::toWrite : FileUse::toRead};
}

}  // namespace atelier::desktop
