#pragma once

#include <string>

namespace store {

/// A range of dates in the stored form, both ends part of it.
struct Intervalo {
  std::string Desde;
  std::string Hasta;
};

}  // namespace store
