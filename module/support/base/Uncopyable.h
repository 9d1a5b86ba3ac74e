// Uncopyable: a base that forbids copying and has nothing else.
// Numberers and streams derive from it.
#pragma once

namespace plv {

class Uncopyable {
 public:
  Uncopyable(const Uncopyable&) = delete;
  Uncopyable& operator=(const Uncopyable&) = delete;

 protected:
  Uncopyable() = default;
  ~Uncopyable() = default;
};

}  // namespace plv
