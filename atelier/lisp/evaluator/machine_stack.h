// The large stack that programs run on, so that deep recursion has room and its end is known.
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
  // Of the stack that run was called from: the part in use and its end.
  StackBounds outer() const { return outer_; }
  // Of the stack that this code runs on.
  static StackBounds current();
  // What programs must leave free for the functions they call, and for *error* after an overflow.
  static constexpr std::size_t kReserve = std::size_t{1} << 20;

 private:
  char* memory_ = nullptr;  // null when the system gave none: programs then run in place
  bool running_ = false;
  StackBounds outer_;
};

}  // namespace atelier::lisp
