#pragma once

#include <QMainWindow>
#include <QMessageBox>
#include <functional>

#include "anfitrion/custodia.h"
#include "anfitrion/datos.h"
#include "anfitrion/opciones_suite.h"
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
  /// Opens it with a working copy that was kept aside, if the user wants that.
  void AbrirAparte(const std::string& fichero);
  [[nodiscard]] QWidget& Marco() { return *marco_; }
  [[nodiscard]] anfitrion::Custodia& Custodia() { return custodia_; }

  /// Makes "Tesvara de Pagos", the first time that it is opened.
  std::function<services::Ref<services::IClassTesvara>()> CrearPagos;
  /// Tells the user something, in place of a message.
  std::function<void(const QString&)> AlMostrar;
  /// Whether to do what a question asks, in place of putting it to the user.
  std::function<bool(const QString&)> AlPreguntar;

 protected:
  /// When the component can't be closed the window stays, unless the user wants to leave all the
  /// same: then the working file is kept aside first.
  void closeEvent(QCloseEvent* evento) override;
  bool event(QEvent* evento) override;

 private:
  using Operacion = services::HRESULT (services::IClassTesvara::*)() noexcept;

  void ComponerMenu();
  void ComponerEstado(const Opciones& opciones, const Datos& datos);
  void ContarPagos(int cuantos);
  [[nodiscard]] bool HayComponente();
  [[nodiscard]] bool HayPantalla() const;
  bool CargarPagos();
  bool Hacer(Operacion operacion);
  bool Comprobar(services::HRESULT resultado);
  [[nodiscard]] bool SeDejo();
  [[nodiscard]] QString MotivoDePagos();
  void Mostrar(QMessageBox::Icon icono, const QString& texto);
  [[nodiscard]] bool Preguntar(const QString& texto);
  /// Why what is on the screen couldn't be saved as it closes; empty when it could.
  [[nodiscard]] QString MotivoParaNoCerrar();
  bool CerrarPantalla();
  [[nodiscard]] bool CerrarPagos();
  [[nodiscard]] bool ApartarTrabajo();

  void RecuperarUnaCopia();
  void AbrirUnaAparte();

  QWidget* marco_;
  Datos datos_;
  anfitrion::Custodia custodia_;
  /// What was last let go of without saving.
  QString dejado_;
  services::Ref<services::IDatosClase> contexto_;
  services::Ref<services::IClassTesvara> pagos_;
};

}  // namespace anfitrion
