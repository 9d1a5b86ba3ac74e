// Lines from a terminal through Readline: history, editing, completion of symbols.
// The history is kept in the user's state folder.
#include "atelier/console/terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <readline/history.h>
#include <readline/readline.h>

#include "atelier/document/document.h"

namespace atelier::console {
namespace {

namespace fs = std::filesystem;

std::string historyFile() {
  const char* state = std::getenv("XDG_STATE_HOME");
  const char* home = std::getenv("HOME");
  const fs::path folder = state && *state ? fs::path(state) : fs::path(home ? home : ".") / ".local" / "state";
  std::error_code error;
  fs::create_directories(folder / "kavel", error);
  return (folder / "kavel" / "historique").string();
}

char* completion(const char* text, int state) {
  static std::vector<std::string> names;
  static std::size_t next;
  if (state == 0) {
    names = Document::needed().interpreter().boundNames();
    next = 0;
  }
  const std::string wanted = upperCase(text);
  for (; next < names.size(); ++next) {
    std::string name = names[next];
    if (name.starts_with("C:") && !wanted.starts_with("C:")) name = name.substr(2);
    if (!name.starts_with(wanted)) continue;
    ++next;
    for (char& c : name) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    return strdup(name.c_str());
  }
  return nullptr;
}

// The terminal opened a second time: setting it not to wait must not affect the shell, which shares ours.
int keys() {
  static const int file = open("/proc/self/fd/0", O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  return file;
}

// Waits for a key or a signal, even one that came just before.
void awaitKey() {
  sigset_t interrupt, before;
  sigemptyset(&interrupt);
  sigaddset(&interrupt, SIGINT);
  sigprocmask(SIG_BLOCK, &interrupt, &before);
  pollfd waiting{keys(), POLLIN, 0};
  if (!rl_pending_signal() && !Document::needed().interpreter().interrupted()) ppoll(&waiting, 1, nullptr, &before);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

// Ctrl-C ends the line at once: the typed text is dropped and the prompt cancelled. Readline by itself would first wait
// for another key. At Ctrl-C the terminal drops keys that haven't been read, so that one may be missing.
int readKey(FILE* stream) {
  if (keys() < 0) return rl_getc(stream);
  for (;;) {
    rl_check_signals();
    if (Document::needed().interpreter().interrupted()) {
      rl_done = 1;
      return '\n';
    }
    awaitKey();
    unsigned char key = 0;
    const ssize_t got = read(keys(), &key, 1);
    if (got == 1) return key;
    if (got == 0 || (errno != EAGAIN && errno != EINTR)) return EOF;
  }
}

class TerminalSource : public InputSource {
 public:
  Input next(const PromptInfo& prompt) override {
    // Prompts other than the command prompt have been printed already; Readline gets the last line, to redraw it.
    const std::size_t last = prompt.text.rfind('\n');
    const std::string shown = last == std::string::npos ? prompt.text : prompt.text.substr(last + 1);
    if (!prompt.isCommand && !shown.empty()) std::printf("\r");
    else if (!Document::needed().atLineStart()) Document::needed().print("\n");
    std::fflush(stdout);
    char* line = readline((prompt.text.empty() ? std::string("Commande: ") : shown).c_str());
    if (Document::needed().interpreter().interrupted()) {
      std::free(line);
      rl_clear_pending_input();
      Document::needed().interpreter().clearInterrupt();
      Input cancelled;
      cancelled.kind = Input::Kind::cancel;
      return cancelled;
    }
    if (!line) {
      std::printf("\n");
      // At the command prompt Ctrl-D is QUIT, which asks before work is lost. The end of a file that stands for the terminal,
      // where no one answers, is the end all the same.
      if (prompt.isCommand && Document::needed().imp().modified && !std::exchange(ended_, true))
        return Input::line("QUIT");
      return {};
    }
    ended_ = false;
    std::string text(line);
    std::free(line);
    if (!text.empty()) add_history(text.c_str());
    return Input::line(text);
  }
  bool isPerson() const override { return true; }
  bool echoes() const override { return true; }

 private:
  bool ended_ = false;  // the last line was the end of the input
};

}  // namespace

bool isTerminal() { return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO); }

void runTerminal(Document& document) {
  rl_completion_entry_function = completion;
  rl_getc_function = readKey;
  rl_completer_word_break_characters = const_cast<char*>(" \t\n\"'()");
  const std::string history = historyFile();
  read_history(history.c_str());
  TerminalSource source;
  document.run(source);
  stifle_history(2000);
  write_history(history.c_str());
}

}  // namespace atelier::console
