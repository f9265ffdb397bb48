#pragma once

#include <QMainWindow>
#include <functional>

#include "datos.h"
#include "opciones_suite.h"
#include "services/anfitrion.h"

namespace anfitrion {

/// The suite's window: a frame for the screens of its components, a menu that opens them, and who
/// works on what in the status bar.
class VentanaPrincipal final : public QMainWindow {
 public:
  VentanaPrincipal(const Opciones& opciones, const Datos& datos);

  /// Opens "Tesvara de Pagos". When it fails the user is told and the suite goes on; whether it
  /// opened.
  bool AbrirPagos();
  [[nodiscard]] QWidget& Marco() { return *marco_; }

  /// Shows a failure to the user.
  std::function<void(const QString&)> AlFallar;

 protected:
  void closeEvent(QCloseEvent* evento) override;

 private:
  using Operacion = services::HRESULT (services::IClassTesvara::*)() noexcept;

  void ComponerMenu();
  void ComponerEstado(const Opciones& opciones, const Datos& datos);
  bool Hacer(Operacion operacion);
  bool Comprobar(services::HRESULT resultado);
  void Fallo(const QString& texto);

  QWidget* marco_;
  services::Ref<services::IDatosClase> contexto_;
  services::Ref<services::IClassTesvara> pagos_;
};

}  // namespace anfitrion
