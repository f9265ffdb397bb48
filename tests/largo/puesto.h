#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "guion/bases.h"
#include "guion/mundo.h"
#include "largo/contexto_que_retoma.h"
#include "salvaguarda/guardia.h"
#include "shell/class_tesvara.h"
#include "shell/datos_comunes.h"
#include "shell/pantallas.h"
#include "sqlite/conexion_sqlite.h"

namespace largo {

/// A user's workplace over the files of one folder, as the suite puts it together: the component,
/// its two connections, and the guard on both. Everything is played in this process.
class Puesto {
 public:
  /// What is put between the component and a connection: it is given the one behind.
  using Puerta =
      std::function<services::Ref<services::Conexion>(services::Ref<services::Conexion> detras)>;
  struct Puertas {
    Puerta Datos;
    Puerta Local;
  };

  /// Throws what opening the files throws.
  explicit Puesto(const std::filesystem::path& carpeta);
  Puesto(const std::filesystem::path& carpeta, const Puertas& puertas);

  [[nodiscard]] static std::string FicheroDatos(const std::filesystem::path& carpeta) {
    return carpeta / "datos.sqlite";
  }
  [[nodiscard]] static std::string FicheroFoto(const std::filesystem::path& carpeta) {
    return salvaguarda::FicheroDeFoto(FicheroLocal(carpeta));
  }
  [[nodiscard]] static std::string FicheroLocal(const std::filesystem::path& carpeta) {
    return carpeta / "local.sqlite";
  }
  /// The working file as a program opens it.
  [[nodiscard]] static services::Ref<sqlite::Conexion> AbrirLocal(
      const std::filesystem::path& carpeta);

  /// How many files bear the name of a copy of the guard and are none.
  [[nodiscard]] static int CopiasAMedias(const std::filesystem::path& carpeta);

  [[nodiscard]] guion::Mundo& Mundo() { return mundo_; }
  [[nodiscard]] salvaguarda::Guardia& Guardia() { return *guardia_; }
  [[nodiscard]] sqlite::Conexion& Local() { return *local_; }
  [[nodiscard]] salvaguarda::Almacen& Almacen() { return *almacen_; }
  /// The range of the working copy that the next screen goes on with; none for a fresh load.
  [[nodiscard]] std::optional<salvaguarda::Rango>& PorRetomar() { return contexto_->PorRetomar; }

  /// What the user answers to the guard.
  std::function<bool(const std::string& pregunta)> Preguntar = [](const std::string&) {
    return true;
  };

 private:
  [[nodiscard]] std::string ApartarDejada(const std::filesystem::path& carpeta);

  guion::Ficheros ficheros_;
  guion::Bases bases_{ficheros_, 1};
  services::Ref<sqlite::Conexion> datos_;
  services::Ref<sqlite::Conexion> local_;
  std::shared_ptr<salvaguarda::Almacen> almacen_;
  std::shared_ptr<salvaguarda::Guardia> guardia_;
  std::unique_ptr<guion::Base> deDatos_;
  std::unique_ptr<guion::Base> deLocal_;
  guion::Mundo mundo_;
  services::Ref<ContextoQueRetoma> contexto_{
      services::Crear<ContextoQueRetoma>(mundo_.DatosClase())};
  services::Plataforma plataforma_;
  shell::DatosComunes sesion_{plataforma_};
  shell::Pantallas pantallas_{sesion_};
};

}  // namespace largo
