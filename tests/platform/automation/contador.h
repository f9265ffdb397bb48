#pragma once

#include "services/automatizacion.h"

namespace pruebas {

/// What the test server's one class offers.
struct IContador : services::IUnknown {
  static constexpr services::GUID IID{
      0x7A1C0B52, 0x44E1, 0x4D7B, {0x83, 0x19, 0x6C, 0x0E, 0xA5, 0x92, 0x3B, 0xF0}};
  static constexpr services::GUID CLSID{
      0x7A1C0B53, 0x44E1, 0x4D7B, {0x83, 0x19, 0x6C, 0x0E, 0xA5, 0x92, 0x3B, 0xF0}};
  static constexpr const char* ProgId = "Pruebas.Contador";

  virtual int Siguiente() noexcept = 0;

 protected:
  ~IContador() = default;
};

}  // namespace pruebas
