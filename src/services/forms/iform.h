#pragma once

#include <cstdint>

#include "valores/objeto.h"

namespace services {

/// Twips of a logical pixel.
inline constexpr int kTwips = 15;
inline constexpr int kTwipsPorPulgada = 1440;
inline constexpr double kTwipsPorCentimetro = kTwipsPorPulgada / 2.54;

/// Place and size on the desktop, in twips.
struct Rectangulo {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
};

/// The form interface: what a screen of the suite, the host's or the component's own, offers to the
/// others.
struct IForm : IUnknown {
  static constexpr GUID IID{
      0x91B7A6E2, 0x3C0D, 0x4E58, {0x8A, 0x43, 0x0B, 0xD6, 0x5C, 0x77, 0x19, 0xF2}};
  virtual Rectangulo Geometria() noexcept = 0;
  /// 0 normal, 1 minimised, 2 maximised.
  virtual std::int32_t WindowState() noexcept = 0;
  virtual void PonerWindowState(std::int32_t estado) noexcept = 0;
  virtual void Refresh() noexcept = 0;
  /// The toolkit's own window, by which another screen can be laid into this one; null where there
  /// is none.
  virtual void* VentanaNativa() noexcept = 0;

 protected:
  ~IForm() = default;
};

}  // namespace services
