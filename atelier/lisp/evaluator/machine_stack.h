// The large stack on which programs run, so that deep recursion has room and an overflow can be detected.
#pragma once

#include <cstddef>
#include <functional>

namespace atelier::lisp {

// The part of memory that the running thread's current stack occupies.
struct StackBounds {
  const char* low = nullptr;
  const char* high = nullptr;
};

class MachineStack {
 public:
  MachineStack();
  MachineStack(const MachineStack&) = delete;
  MachineStack& operator=(const MachineStack&) = delete;
  ~MachineStack();

  // Calls `work` on the large stack, or in place when it is already on it. Exceptions come through.
  void run(const std::function<void()>& work);
  bool running() const { return running_; }
  // Bounds of the stack from which run() was called, as far as it is in use.
  StackBounds outer() const { return outer_; }
  // Bounds of the stack on which this code runs.
  static StackBounds current();
  // The part that programs must leave free for the functions they call, and for *error* after an overflow.
  static constexpr std::size_t kReserve = std::size_t{1} << 20;

 private:
  char* memory_ = nullptr;  // null when the system gave none: programs then run in place
  bool running_ = false;
  StackBounds outer_;
};

}  // namespace atelier::lisp
