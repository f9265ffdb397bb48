#pragma once

#include "valores/objeto.h"

// In-process automation: what the library and its host agree on, beside the counted objects.

namespace services {

struct IClassFactory : IUnknown {
  static constexpr GUID IID{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  /// `exterior` must be null: no class of the system can be aggregated.
  virtual HRESULT CreateInstance(IUnknown* exterior, const GUID& interfaz,
                                 void** objeto) noexcept = 0;
  virtual HRESULT LockServer(bool bloquear) noexcept = 0;

 protected:
  ~IClassFactory() = default;
};

/// What an object says of its last failed operation. The text lives until the object's next
/// operation.
struct IDescripcionError : IUnknown {
  static constexpr GUID IID{
      0x6D1F2B51, 0x0E5B, 0x4C0A, {0x9B, 0x51, 0x2F, 0x7E, 0x10, 0xC4, 0x8D, 0x31}};
  /// UTF-8, never null; empty after a success.
  virtual const char* Descripcion() noexcept = 0;
  /// The number of the run-time error behind the failure, 0 after a success. The failed result
  /// itself carries a small number, such as 13, in its low half: 0x800A000D.
  virtual std::int32_t Numero() noexcept = 0;

 protected:
  ~IDescripcionError() = default;
};

/// The four entry points that an in-process server exports.
extern "C" {
[[gnu::visibility("default")]] HRESULT DllGetClassObject(const GUID& clase, const GUID& interfaz,
                                                         void** objeto) noexcept;
[[gnu::visibility("default")]] HRESULT DllCanUnloadNow() noexcept;
[[gnu::visibility("default")]] HRESULT DllRegisterServer() noexcept;
[[gnu::visibility("default")]] HRESULT DllUnregisterServer() noexcept;
}

}  // namespace services
