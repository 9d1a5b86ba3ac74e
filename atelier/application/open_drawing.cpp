// The one place that knows every room of an open drawing.
#include "atelier/application/open_drawing.h"

#include "atelier/commands/command_table.h"
#include "atelier/commands/commands.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/plugin/published.h"
#include "atelier/selecting/pick.h"
#include "atelier/variables/variable_table.h"

namespace atelier {
namespace {

const Services& everyRoom() {
  static const Services all = {
      .builtins = {entityBuiltins(), tableBuiltins(), dictionaryBuiltins(), promptBuiltins(), screenBuiltins(),
                   selectionBuiltins(), variableBuiltins(), commandBuiltins(), failureBuiltins(), sharedBuiltins(),
                   curveBuiltins(), dialogBuiltins(), dclBuiltins(), dclImageBuiltins()},
      .variables = {variableRow, computedVariable},
      .attachments = {[](Document& document) -> std::unique_ptr<Attachment> {
        return std::make_unique<PublishedFunctions>(document);
      }},
      .pick = pickAt,
      .runCommand = runBuiltinCommand,
      .knowsCommand = [](const std::string& name) { return commandRow(name) != nullptr; },
      .isTransparent = isTransparent,
  };
  return all;
}

}  // namespace

OpenDrawing::OpenDrawing(Printer printer, const std::string& path, std::vector<std::string>* messages)
    : Document(everyRoom(), std::move(printer), path, messages) {}

}  // namespace atelier
