// Mutated AutoLISP on an empty drawing, without the functions that reach files and the environment.
// A program that goes on for ever is interrupted as Ctrl-C does it. `fuzz_lisp --mots` prints the functions as a dictionary.
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string_view>
#include <thread>

#include "atelier/application/open_drawing.h"

namespace {

// Interrupts the document when a run takes longer than this.
constexpr auto kLongest = std::chrono::milliseconds(200);

class Watchdog {
 public:
  explicit Watchdog(atelier::Document& document) : thread_([this, &document] { watch(document); }) {}
  ~Watchdog() {
    {
      const std::lock_guard lock(mutex_);
      done_ = true;
    }
    ended_.notify_one();
    thread_.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  void watch(atelier::Document& document) {
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, kLongest, [this] { return done_; })) document.interrupt();
  }
  std::mutex mutex_;
  std::condition_variable ended_;
  bool done_ = false;
  std::thread thread_;
};

constexpr const char* kWithheld[] = {
    "OPEN",    "LOAD",    "VL-FILE-DELETE", "VL-FILE-RENAME",    "VL-FILE-COPY", "VL-MKDIR", "SETENV",
    "COMMAND", "VL-CMDF", "COMMAND-S",      "VL-REGISTRY-WRITE", "EXIT",         "QUIT"};

void withhold(atelier::Document& document) {
  for (const char* name : kWithheld) document.interpreter().set(name, atelier::lisp::nil);
}

// A row of libFuzzer's dictionary for each function: its call opened.
constexpr std::string_view kWords = R"((foreach name (acad_strlsort (atoms-family 1))
  (if (member (type (eval (read name))) '(SUBR USUBR EXRXSUBR))
    (princ (strcat "\"(" (strcase name t) " \"\n")))))";

void printWords() {
  atelier::OpenDrawing document([](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); });
  withhold(document);
  document.evaluate(kWords);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  if (*argc < 2 || std::string_view((*argv)[1]) != "--mots") return 0;
  printWords();
  std::fflush(stdout);
  std::exit(0);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  atelier::OpenDrawing document(nullptr);
  withhold(document);
  const Watchdog watchdog(document);
  document.evaluate(std::string_view(reinterpret_cast<const char*>(data), size));
  document.cancelCommand();
  return 0;
}
