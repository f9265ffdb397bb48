#pragma once

namespace services {

/// A picture that a panel can show; what is in it is known to who made it and to who shows it.
struct Lamina {
  virtual ~Lamina() = default;
};

}  // namespace services
