// The interactive command line on a terminal.
#pragma once

namespace atelier {
class Document;
}

namespace atelier::console {

bool isTerminal();  // stdin and stdout both
// Runs until QUIT or the end of the input. Ctrl-C stops the running program or cancels the prompt.
void runTerminal(Document& document);

}  // namespace atelier::console
