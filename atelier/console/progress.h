// The progress of long work: a bar on a terminal, lines of JSON for other programs, nothing in a pipe.
// It goes to stderr, results to stdout.
#pragma once
#include <chrono>
#include <cstddef>
#include <string>

#include "atelier/console/options.h"

namespace atelier::console {

// The steps of a run (opening, each action), one after the other. JSON: {"step":2,"of":5,"action":"plot",
// "argument":"a.pdf","seconds":0.12} when a step has ended. Runs that end at once show no bar.
class ProgressReport {
 public:
  ProgressReport(Progress wanted, std::size_t steps);
  ~ProgressReport();
  ProgressReport(const ProgressReport&) = delete;
  ProgressReport& operator=(const ProgressReport&) = delete;
  // Begins a step; the previous one, if any, has ended.
  void begin(const std::string& action, const std::string& argument);

 private:
  void end();
  void clear();
  const bool bar_, json_;
  const std::size_t steps_;
  std::size_t step_ = 0;
  std::string action_, argument_;
  std::chrono::steady_clock::time_point run_, begun_;
  bool shown_ = false;
};

}  // namespace atelier::console
