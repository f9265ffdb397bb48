#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "datos/filtro.h"
#include "datos/recordset.h"

namespace services {

/// What a recordset holds while it is open: its rows, where it stands, and the pending edit.
class Recordset::Abierto {
 public:
  Abierto(Conexion& conexion, std::unique_ptr<Cursor> cursor, ModoApertura modo);

  [[nodiscard]] const std::vector<Columna>& Columnas() const { return cursor_->Columnas(); }
  /// Throws 0x800A0CC1 for a name that no column has.
  [[nodiscard]] std::size_t Posicion(std::string_view nombre);
  [[nodiscard]] std::size_t Posicion(std::size_t posicion) const;

  void LeerFilas();
  [[nodiscard]] bool Eof();
  void MoveNext();
  void Filtrar(const Filtro& filtro);
  [[nodiscard]] std::int64_t RecordCount() const;
  [[nodiscard]] std::int64_t AbsolutePosition();

  [[nodiscard]] Valor Leer(std::size_t columna);
  void Asignar(std::size_t columna, const Valor& valor);
  void AddNew();
  void Update();
  void CancelUpdate();
  void UpdateLuego(const AlNoInsertar& alNoEscribir);
  void EscribirPendientes() { conexion_->EscribirPendientes(); }
  void IrA(std::int64_t posicion);

 private:
  /// Where it stands when no new row is being added: on a row of `filas_`, on a row that it added
  /// itself, or past the end of everything.
  enum class Lugar { EnFilas, Anadida, AlFinal };
  enum class Edicion { Ninguna, Cambio, Alta };

  /// Throws 0x800A0CC1 for a name that no column has.
  [[nodiscard]] std::size_t Buscar(std::string_view nombre) const;
  void ExigirEscritura() const;
  void ExigirFila();
  void AsegurarFilas();
  [[nodiscard]] bool Pasa(std::size_t fila) const;
  void IrALaPrimera();
  void SaltarLasQueNoPasan();
  /// The row as it is stored: one of `filas_`, or the copy kept of a row written here.
  [[nodiscard]] const Filas& Origen(std::size_t& fila);
  void PrepararValores();
  void EmpezarCambio();
  void ConvertirAsignados();
  void EscribirAlta();
  void EscribirCambio();
  [[nodiscard]] Filas ConLoEscrito(const Filas& antes, std::size_t fila) const;
  void OlvidarEdicion();

  Ref<Conexion> conexion_;
  std::unique_ptr<Cursor> cursor_;
  ModoApertura modo_;

  Filas filas_;
  bool leidas_ = false;
  bool escritas_ = false;  ///< `filas_` no longer tells all that this recordset has written
  Lugar lugar_ = Lugar::EnFilas;
  std::size_t fila_ = 0;
  std::int64_t ordinal_ = 1;
  std::optional<Filas> escrita_;

  std::size_t columnaFiltro_ = 0;
  std::optional<Valor> textoFiltro_;

  Edicion edicion_ = Edicion::Ninguna;
  std::vector<Valor> nuevos_;
  std::vector<char> asignado_;
  std::vector<Valor> convertidos_;
  std::vector<Asignacion> asignaciones_;
  /// The column that was named last, and of each the one that was named after it.
  std::size_t nombrada_ = 0;
  std::vector<std::size_t> siguientes_;
};

}  // namespace services
