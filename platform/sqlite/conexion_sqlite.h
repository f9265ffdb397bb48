#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/interprete.h"
#include "sqlite/almacen.h"
#include "sqlite/catalogo_sqlite.h"
#include "sqlite/fichero.h"
#include "sqlite/unidad.h"

namespace sqlite {

/// What `Consultar` finds.
struct Resultado {
  std::vector<services::Columna> Columnas;
  services::Filas Filas;
};

/// A connection to one file of the embedded engine. Serves one thread.
class Conexion final : public services::ObjetoContado<services::Conexion> {
 public:
  Conexion(const std::string& fichero, const Opciones& opciones);
  ~Conexion() override;

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override;
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) override;
  void TerminarUnidad() override { unidad_.Terminar(); }
  void AbandonarUnidad() noexcept override { unidad_.Abandonar(); }
  bool EmpezarLectura() noexcept override { return unidad_.EmpezarLectura(); }
  void TerminarLectura() noexcept override { unidad_.TerminarLectura(); }
  /// Takes the writer's lock for the unit that now begins, or is under way.
  void EmpezarUnidad() { unidad_.Empezar(); }
  /// `Opciones::UnidadDeTrabajo` from now on; the unit under way ends.
  void AgruparEnUnidades(bool agrupa) { unidad_.Agrupar(agrupa); }

  /// Runs the engine's own SQL, any number of statements, in the unit under way if there is one.
  /// Ends a reading of one moment.
  void Ejecutar(const std::string& sql);
  /// Another file under a name of its own, with no unit under way. What is wrong with it names it.
  void Adjuntar(const std::string& fichero, std::string_view nombre);
  /// Writes the whole file, as it is outside any unit under way, to another that isn't there yet.
  void CopiarEn(const std::string& fichero);
  /// Runs one statement of the engine's own SQL and gives its rows, the columns typed as their
  /// tables declare them.
  [[nodiscard]] Resultado Consultar(std::string_view sql);

  [[nodiscard]] bool TieneTabla(std::string_view nombre) {
    return catalogo_.Buscar(nombre) != nullptr;
  }
  /// Whether the rows of a table have a `rowid`.
  [[nodiscard]] bool NumeraFilas(std::string_view tabla) {
    const dialecto::Tabla* hallada = catalogo_.Buscar(tabla);
    return hallada && hallada->Numerada;
  }

  [[nodiscard]] Estadistica Cuenta() const { return {base_.Preparadas(), unidad_.Transacciones()}; }

 private:
  friend class Cursor;

  Base base_;
  Almacen almacen_{base_};
  Unidad unidad_;
  Catalogo catalogo_{base_};
  dialecto::Interprete interprete_;
};

/// Opens a file. Throws 0x80004005 for one that isn't there and isn't to be created, is a folder,
/// is no database, can't be read, or is to be exclusive and is in use.
[[nodiscard]] services::Ref<Conexion> AbrirConexion(const std::string& fichero,
                                                    const Opciones& opciones = {});

}  // namespace sqlite
