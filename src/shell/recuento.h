#pragma once

#include <cstdint>

#include "services/anfitrion.h"

namespace shell {

/// Tells the host's main form how many payments are not saved, when that changes and the form wants
/// to know. When the screen goes there are none.
class Recuento {
 public:
  Recuento() = default;
  ~Recuento() { Avisar(0); }
  Recuento(const Recuento&) = delete;
  Recuento& operator=(const Recuento&) = delete;

  /// A main form that another one takes the place of has none any more.
  void Decir(std::int32_t cuantos, const services::Ref<services::IForm>& principal);

 private:
  void Avisar(std::int32_t cuantos);

  services::Ref<services::IForm> principal_;
  std::int32_t dicho_ = 0;
};

}  // namespace shell
