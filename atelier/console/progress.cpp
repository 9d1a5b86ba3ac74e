// The bar and the lines of progress.
// A bar is drawn over itself and wiped before anything else is printed.
#include "atelier/console/progress.h"

#include <unistd.h>

#include <cstdio>

#include "atelier/base/text.h"

namespace atelier::console {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::size_t kCells = 24;
constexpr auto kPatience = std::chrono::milliseconds(500);

double seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

std::string quoted(const std::string& text) {
  std::string json = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') json += '\\';
    if (byte >= 0x20) {
      json += c;
      continue;
    }
    char code[8];
    std::snprintf(code, sizeof code, "\\u%04x", byte);
    json += code;
  }
  return json + "\"";
}

}  // namespace

ProgressReport::ProgressReport(Progress wanted, std::size_t steps)
    : bar_(wanted == Progress::automatic && isatty(STDERR_FILENO)),
      json_(wanted == Progress::json),
      steps_(steps),
      run_(Clock::now()) {}

ProgressReport::~ProgressReport() {
  end();
  clear();
}

void ProgressReport::clear() {
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

void ProgressReport::end() {
  if (step_ == 0 || !json_) return;
  std::fprintf(stderr, "{\"step\":%zu,\"of\":%zu,\"action\":%s,\"argument\":%s,\"seconds\":%s}\n", step_, steps_,
               quoted(action_).c_str(), quoted(argument_).c_str(), realText(seconds(Clock::now() - begun_)).c_str());
}

void ProgressReport::begin(const std::string& action, const std::string& argument) {
  end();
  clear();
  ++step_;
  action_ = action;
  argument_ = argument;
  begun_ = Clock::now();
  if (!bar_ || steps_ < 2 || (step_ > 1 && begun_ - run_ < kPatience)) return;
  const std::size_t full = kCells * (step_ - 1) / steps_;
  std::fprintf(stderr, "\r[%s%s] %zu/%zu %s %s", std::string(full, '#').c_str(),
               std::string(kCells - full, '.').c_str(), step_, steps_, action_.c_str(), argument_.c_str());
  std::fflush(stderr);
  shown_ = true;
}

}  // namespace atelier::console
