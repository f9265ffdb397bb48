#pragma once

#include <cstdint>
#include <string>

#include "datos/conexion.h"
#include "datos/recordset.h"
#include "forms/iform.h"
#include "services/automatizacion.h"
#include "services/omision.h"

// What the host of the component offers.

namespace services {

/// The host's context object. Its two operations fail by their result; when the object also offers
/// `IDescripcionError`, the failure's text is asked of it.
struct IDatosClase : IUnknown {
  static constexpr GUID IID{
      0x5E0C8D14, 0x92AF, 0x4B7C, {0xB6, 0x2E, 0x41, 0xF0, 0x9D, 0x38, 0xE5, 0x6A}};

  /// Fills the session. The recordsets come in as live objects, closed the first time and later as
  /// the host left them, which may be opened or replaced; the two forms come in as whatever was
  /// there before and must go out as objects that offer `IForm`.
  virtual HRESULT EntregarSesion(Ref<Conexion>& CnDatos, Ref<IUnknown>& ObjSesion2,
                                 Ref<Conexion>& CnTemp, Ref<IUnknown>& ObjSesion4,
                                 Ref<IUnknown>& ObjSesion5, Ref<IUnknown>& FrmMarco,
                                 Ref<IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
                                 std::int32_t& AltoReferencia, double& ValorSesion10,
                                 Ref<Recordset>& RsSesion11, Ref<Recordset>& RsTextos,
                                 Ref<Recordset>& RsSesion13, std::string& ClaveBorrado,
                                 std::string& Usuario) noexcept = 0;

  /// Draws what the suite draws around a form, and hands back a form in the same variable.
  virtual HRESULT RepintarForm(Ref<IUnknown>& form) noexcept = 0;

 protected:
  ~IDatosClase() = default;
};

/// What a host's context object may offer besides: it hears of what a load or a commit of the
/// working copy passed over, as it happens, in the middle of the user's event. A load that misses a
/// whole table makes "Grabar" refuse; a row that a load misses is deleted by the next "Grabar"; one
/// that a commit misses is gone. To be told to the user when the event has ended.
struct IOidoDeOmisiones : IUnknown {
  static constexpr GUID IID{
      0x7B1D3F52, 0xC80E, 0x4A95, {0x9E, 0x47, 0x15, 0xD2, 0x6C, 0xB8, 0x03, 0xFA}};

  virtual void PasadoPorAlto(const Omision& omision) noexcept = 0;

 protected:
  ~IOidoDeOmisiones() = default;
};

/// What a host's context object may offer besides: the working tables hold a working copy that a
/// program left when it ended, and the main screen is to go on with it instead of loading one. The
/// list shows it as loaded: closing the screen without "Grabar" drops it without a question.
struct ICopiaPorRetomar : IUnknown {
  static constexpr GUID IID{
      0xD94B6A03, 0x2E71, 0x4C5F, {0x8D, 0x10, 0x63, 0xB5, 0x07, 0xEC, 0x94, 0x2A}};

  /// Whether there is one, asked each time that the screen loads; its range then, as it is stored.
  virtual bool HayCopiaPorRetomar(std::string& desde, std::string& hasta) noexcept = 0;

 protected:
  ~ICopiaPorRetomar() = default;
};

/// What the component's object offers besides. Closing asks whether to save, and closes whatever
/// came of a yes: with an entry on its panel nothing is saved, and an amount that is refused, also
/// one in an open editor, takes the others along. When the list has grown since it was loaded,
/// closing fails. A host asks this first.
struct ICierre : IUnknown {
  static constexpr GUID IID{
      0x8A1F65C7, 0x30D4, 0x4E2B, {0xB9, 0x5C, 0x0E, 0x71, 0xA2, 0x4D, 0x96, 0xF8}};

  /// Why a yes couldn't save now what is on the screen, in words for the user; the empty text when
  /// it could, when there is no screen, and from a thread from which closing fails anyway. It holds
  /// until the next call.
  virtual const char* MotivoParaNoCerrar() noexcept = 0;

 protected:
  ~ICierre() = default;
};

/// What the host's main form offers beside `IForm` when it wants to tell the user of payments that
/// were typed in the list and not yet saved, as by a sign in its title bar.
struct IPagosSinGrabar : IUnknown {
  static constexpr GUID IID{
      0x2F7B40C6, 0xD13A, 0x4E95, {0xA8, 0x07, 0x5B, 0xE2, 0x94, 0x1C, 0x63, 0xDF}};
  /// Called when their number is another one, at the end of what the user or the host did: 0 once
  /// they are saved, given up or taken back, and when the screen is unloaded. While it is hidden
  /// they stay, and count.
  virtual void Contar(std::int32_t cuantos) noexcept = 0;

 protected:
  ~IPagosSinGrabar() = default;
};

/// The public class of the component, `Tesvara.ClassTesvara`. After a failure the object's
/// `IDescripcionError` tells it in words. It is of a single thread, the one that made its first
/// object: from any other each operation is 0x8001010E and does nothing.
struct IClassTesvara : IUnknown {
  static constexpr GUID IID{
      0xC3D2A870, 0x1B6E, 0x47F9, {0x95, 0xD8, 0x7A, 0x3F, 0x22, 0xE1, 0x80, 0xBC}};
  static constexpr GUID CLSID{
      0xC3D2A871, 0x1B6E, 0x47F9, {0x95, 0xD8, 0x7A, 0x3F, 0x22, 0xE1, 0x80, 0xBC}};
  static constexpr const char* ProgId = "Tesvara.ClassTesvara";

  /// Takes the session from the context and shows the main screen, loading it when it isn't.
  virtual HRESULT Cargar(Ref<IDatosClase>& datos) noexcept = 0;
  /// Hides the main screen, with all that is in it. This and the next make and load the screen
  /// first when there is none, as any use of it does; without a session that fails.
  virtual HRESULT Ocultar() noexcept = 0;
  /// Unloads the main screen.
  virtual HRESULT Cerrar() noexcept = 0;

 protected:
  ~IClassTesvara() = default;
};

}  // namespace services
