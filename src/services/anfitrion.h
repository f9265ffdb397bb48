#pragma once

#include <cstdint>
#include <string>

#include "services/automatizacion.h"
#include "services/conexion.h"
#include "services/recordset.h"

// What the host of the component offers.

namespace services {

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

/// The public class of the component, `Tesvara.ClassTesvara`. After a failure the object's
/// `IDescripcionError` tells it in words.
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
