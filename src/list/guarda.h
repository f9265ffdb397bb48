#pragma once

#include <utility>

namespace list {

/// Sets a mark, such as the guard of a grid's events, for as long as it lives, and then puts back
/// what it found.
class Mientras {
 public:
  explicit Mientras(bool& guarda) : guarda_(guarda), antes_(std::exchange(guarda, true)) {}
  ~Mientras() { guarda_ = antes_; }
  Mientras(const Mientras&) = delete;
  Mientras& operator=(const Mientras&) = delete;

 private:
  bool& guarda_;
  const bool antes_;
};

}  // namespace list
