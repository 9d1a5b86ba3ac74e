// The interactive command line on a terminal.
#pragma once

namespace atelier {
class Document;
}

namespace atelier::console {

bool isTerminal();  // stdin and stdout both
// Runs until QUIT or the end of the input. Ctrl-C breaks off the running program or prompt.
void runTerminal(Document& document);

}  // namespace atelier::console
