#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "anfitrion/datos.h"
#include "anfitrion/dialogo_de_texto.h"
#include "anfitrion/opciones_suite.h"
#include "salvaguarda/guardia.h"
#include "salvaguarda/rescate.h"

class QWidget;

namespace anfitrion {

/// Keeps the user's data and talks with the user about it, in the suite's window: what was not
/// loaded or not saved, what others have changed, the copies, and what a program that was killed
/// left behind.
class Custodia final : public QObject {
 public:
  Custodia(QWidget& ventana, const Datos& datos, const Opciones& opciones);

  /// What components are to be given for the stored tables, and for the working ones.
  [[nodiscard]] services::Ref<services::Conexion> Almacenados() const { return almacenados_; }
  [[nodiscard]] services::Ref<services::Conexion> DeTrabajo() const { return deTrabajo_; }
  [[nodiscard]] salvaguarda::Guardia& Guardia() const { return *guardia_; }

  /// Copies the whole stored file, at the first start of the day. A failure is told and logged.
  void CopiarElDia();
  /// Offers the working copy that was left behind, if there is one; what can't be looked at is kept
  /// aside. Whether the screen may be loaded, which empties it.
  [[nodiscard]] bool OfrecerRescate();
  /// Brings the working copy of a file that was kept aside back, for the screen to go on with, if
  /// the user wants that when told what is in it. `cerrar` closes the screen before; whether it
  /// did.
  void AbrirAparte(const std::string& fichero, const std::function<bool()>& cerrar);
  /// The range of the one that the user wants to go on with; none for a fresh load.
  [[nodiscard]] const std::optional<salvaguarda::Rango>& PorRetomar() const { return porRetomar_; }
  /// The screen has opened: there is nothing to go on with any more.
  void Abierta() { porRetomar_.reset(); }
  /// Whether the working copy holds anything that isn't stored; also when that can't be told.
  [[nodiscard]] bool HayAlgoSinGrabar();
  /// Tells what there is to be told. `abierta`: whether there is a screen that can still be closed
  /// without saving.
  void Contar(bool abierta = true);
  /// The window of the copies. `cerrar` closes what works on the stored tables before one is put
  /// back; whether it did.
  void Recuperar(const std::function<bool()>& cerrar);

  /// Something accepted was let go of without saving, and is kept in a file.
  std::function<void(const QString&)> AlDejar = [](const QString&) {};
  /// Puts a question to the user; the answer's number, from 0.
  std::function<int(const PreguntaConTexto&)> Elegir;
  /// Closes the component's screen, when the user would rather not go on.
  std::function<void()> CerrarSinGrabar = [] {};

 private:
  void Ofrecer(const salvaguarda::Rescate& rescate);
  [[nodiscard]] std::optional<salvaguarda::Rescate> RescateEn(sqlite::Conexion& deTrabajo) const;
  [[nodiscard]] bool EsLaAbierta(const std::string& fichero) const;
  [[nodiscard]] bool QuiereAbrir(sqlite::Conexion& aparte);
  [[nodiscard]] bool SigueQueriendo(const salvaguarda::Copia& copia,
                                    const salvaguarda::Reposicion& confirmada);
  void Retomar(const salvaguarda::Rescate& rescate);
  std::string Apartar();
  void DecirDondeQueda(const std::string& aparte);
  [[nodiscard]] bool ApartarSinMirar(const QString& motivo);
  void Decir(const QString& texto);
  void ContarDespues();
  void ContarSinEstorbar();

  QWidget& ventana_;
  Datos datos_;
  std::shared_ptr<salvaguarda::Guardia> guardia_;
  services::Ref<services::Conexion> almacenados_;
  services::Ref<services::Conexion> deTrabajo_;
  std::optional<salvaguarda::Rango> porRetomar_;
  /// The file of the copy that is being opened.
  std::filesystem::path porAbrir_;
  bool porContar_ = false;
};

}  // namespace anfitrion
