// Switches stacks with ucontext (POSIX.1-2001); the address sanitizer is told of each switch.
#include "atelier/lisp/evaluator/machine_stack.h"

#include <pthread.h>
#include <sys/mman.h>
#include <ucontext.h>

#include <exception>

#if !defined(__SANITIZE_ADDRESS__) && defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace atelier::lisp {
namespace {

// Address space; memory is used only as far as the stack grows. It has room for some hundred thousand nested calls, not
// more, because an error or an interrupt has to unwind them all.
constexpr std::size_t kSize = std::size_t{40} << 20;
constexpr std::size_t kGuard = std::size_t{64} << 10;

StackBounds threadBounds() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return {};
  void* low = nullptr;
  std::size_t size = 0;
  pthread_attr_getstack(&attributes, &low, &size);
  pthread_attr_destroy(&attributes);
  return {static_cast<char*>(low), static_cast<char*>(low) + size};
}

thread_local StackBounds currentBounds;

struct Switch {
  const std::function<void()>* work;
  std::exception_ptr failure;
  ucontext_t inside, outside;
};
thread_local Switch* switching = nullptr;

#ifdef __SANITIZE_ADDRESS__
void leaving(void** fakeStack, const void* low, std::size_t size) {
  __sanitizer_start_switch_fiber(fakeStack, low, size);
}
void arrived(void* fakeStack, const void** low, std::size_t* size) {
  __sanitizer_finish_switch_fiber(fakeStack, low, size);
}
#else
void leaving(void**, const void*, std::size_t) {}
void arrived(void*, const void**, std::size_t*) {}
#endif

void enter() {
  const void* low = nullptr;
  std::size_t size = 0;
  arrived(nullptr, &low, &size);
  Switch& current = *switching;
  try {
    (*current.work)();
  } catch (...) {
    current.failure = std::current_exception();
  }
  leaving(nullptr, low, size);
}

}  // namespace

StackBounds MachineStack::current() {
  if (!currentBounds.high) currentBounds = threadBounds();
  return currentBounds;
}

MachineStack::MachineStack() {
  void* memory = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) return;
  memory_ = static_cast<char*>(memory);
  mprotect(memory_, kGuard, PROT_NONE);
}

MachineStack::~MachineStack() {
  if (memory_) munmap(memory_, kSize);
}

void MachineStack::run(const std::function<void()>& work) {
  if (running_ || !memory_) return work();
  const StackBounds before = current();
  Switch now{&work, nullptr, {}, {}};
  outer_ = {static_cast<const char*>(static_cast<const void*>(&now)), before.high};  // `now` holds the registers
  getcontext(&now.inside);
  now.inside.uc_stack.ss_sp = memory_ + kGuard;
  now.inside.uc_stack.ss_size = kSize - kGuard;
  now.inside.uc_link = &now.outside;
  makecontext(&now.inside, enter, 0);
  Switch* const enclosing = switching;
  switching = &now;
  running_ = true;
  currentBounds = {memory_ + kGuard, memory_ + kSize};
  void* fakeStack = nullptr;
  leaving(&fakeStack, memory_ + kGuard, kSize - kGuard);
  swapcontext(&now.outside, &now.inside);
  arrived(fakeStack, nullptr, nullptr);
  currentBounds = before;
  running_ = false;
  switching = enclosing;
  if (now.failure) std::rethrow_exception(now.failure);
}

}  // namespace atelier::lisp
