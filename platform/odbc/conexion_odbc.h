#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/interprete.h"
#include "odbc/almacen.h"
#include "odbc/anticipadas.h"
#include "odbc/catalogo_odbc.h"
#include "odbc/enlace.h"
#include "odbc/opciones_odbc.h"
#include "odbc/pendientes.h"
#include "odbc/unidad.h"

namespace odbc {

/// What `Consultar` finds.
struct Resultado {
  std::vector<services::Columna> Columnas;
  services::Filas Filas;
};

/// A connection to a server through the driver manager. Serves one thread. One that is lost gives
/// 0x80004005, and the next operation tries once to connect again.
class Conexion final : public services::ObjetoContado<services::Conexion> {
 public:
  Conexion(const TextoDeConexion& texto, const Opciones& opciones);
  ~Conexion() override;

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override;
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) override;
  void EscribirPendientes() override { pendientes_.Escribir(); }
  void JuntarBorrados(bool juntar) override;
  void Anticipar(const std::function<std::vector<std::string>()>& sentencias,
                 services::ModoApertura modo) override;
  void TerminarUnidad() override;
  void AbandonarUnidad() noexcept override;
  bool EmpezarLectura() noexcept override { return unidad_.EmpezarLectura(); }
  void TerminarLectura() noexcept override;
  /// A statement that each unit begins with from now on, and that changes some row.
  void AlEmpezarUnidad(std::string sentencia) { unidad_.AlEmpezar(std::move(sentencia)); }
  /// What whoever opened the connection opens: any well-formed statement, as a component opens one
  /// of the system.
  [[nodiscard]] std::unique_ptr<services::Cursor> AbrirPropia(std::string_view sentencia,
                                                              services::ModoApertura modo);
  /// Begins the unit, unless one is under way.
  void EmpezarUnidad() { unidad_.Empezar(); }
  /// `Opciones::UnidadDeTrabajo` from now on; the unit under way ends.
  void AgruparEnUnidades(bool agrupa) { unidad_.Agrupar(agrupa); }

  /// Runs one statement of the server's own SQL, in the unit under way if there is one. Its tables
  /// may be others afterwards.
  void Ejecutar(const std::string& sql);
  /// Runs one, and gives its rows.
  [[nodiscard]] Resultado Consultar(const std::string& sql);

  [[nodiscard]] bool TieneTabla(std::string_view nombre) {
    return catalogo_.Buscar(nombre) != nullptr;
  }
  /// The engine, as its driver calls it.
  [[nodiscard]] const std::string& NombreDelMotor() const { return enlace_.NombreDelMotor(); }
  [[nodiscard]] const Servidor& Motor() const { return enlace_.Motor(); }

  [[nodiscard]] Estadistica Cuenta() const {
    return {almacen_.Preparadas(), unidad_.Transacciones(), enlace_.Viajes()};
  }

 private:
  friend class Cursor;

  /// What was left for later is written before.
  [[nodiscard]] services::Filas Leer(const std::string& texto, Parametros& parametros,
                                     const std::vector<services::Columna>& columnas);
  std::size_t Escribir(const std::string& texto, Parametros& parametros);
  void Exigir();
  [[nodiscard]] dialecto::Sentencia Entender(dialecto::Interprete& interprete,
                                             std::string_view sentencia,
                                             services::ModoApertura modo);
  [[nodiscard]] std::unique_ptr<services::Cursor> AbrirLeida(std::string_view sentencia,
                                                             dialecto::Sentencia leida,
                                                             services::ModoApertura modo);
  void Borrar(const dialecto::Sentencia& leida, const std::string& texto);

  Enlace enlace_;
  Almacen almacen_{enlace_};
  Unidad unidad_;
  Catalogo catalogo_{enlace_};
  dialecto::Interprete interprete_;
  dialecto::Interprete propias_{enlace_.Motor().Dialecto, catalogo_};
  Pendientes pendientes_{unidad_};
  Anticipadas anticipadas_{unidad_, interprete_};
  bool juntaBorrados_ = false;
  /// The connection on which its tables were looked up.
  std::size_t vez_ = 0;
};

/// Connects. Throws 0x80004005 for a text that isn't understood, and where no server of it can be
/// reached.
[[nodiscard]] services::Ref<Conexion> AbrirConexion(const std::string& texto,
                                                    const Opciones& opciones = {});

}  // namespace odbc
