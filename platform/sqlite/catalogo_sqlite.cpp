#include "sqlite/catalogo_sqlite.h"

#include "sqlite/celdas.h"

namespace sqlite {

namespace {

constexpr const char* kNumero = "rowid";

}  // namespace

const dialecto::Tabla* Catalogo::Buscar(std::string_view nombre) {
  for (const auto& tabla : tablas_) {
    if (dialecto::MismoNombre(tabla->Nombre, nombre)) return tabla.get();
  }
  auto tabla = Leer(nombre);
  if (!tabla) return nullptr;
  return tablas_.emplace_back(std::move(tabla)).get();
}

std::unique_ptr<dialecto::Tabla> Catalogo::Leer(std::string_view nombre) {
  const Preparada sentencia = base_.Preparar(
      "SELECT m.name, c.name, c.type, c.\"notnull\", t.wr FROM sqlite_schema AS m "
      "JOIN pragma_table_list(m.name) AS t ON t.schema = 'main' "
      "JOIN pragma_table_info(m.name) AS c "
      "WHERE m.type = 'table' AND m.name = ? COLLATE ES ORDER BY c.cid");
  sqlite3_bind_text(sentencia.get(), 1, nombre.data(), static_cast<int>(nombre.size()),
                    SQLITE_STATIC);
  std::unique_ptr<dialecto::Tabla> tabla;
  int codigo = SQLITE_OK;
  while ((codigo = sqlite3_step(sentencia.get())) == SQLITE_ROW) {
    if (!tabla) {
      tabla = std::make_unique<dialecto::Tabla>();
      tabla->Nombre = TextoDeCelda(sentencia.get(), 0);
      tabla->Ocultas = {kNumero};
      tabla->Numerada = sqlite3_column_int(sentencia.get(), 4) == 0;
    }
    auto columna = ColumnaDeclarada(std::string(TextoDeCelda(sentencia.get(), 1)),
                                    TextoDeCelda(sentencia.get(), 2));
    columna.AdmiteNulo = sqlite3_column_int(sentencia.get(), 3) == 0;
    if (dialecto::MismoNombre(columna.Nombre, kNumero)) tabla->Numerada = false;
    tabla->Columnas.push_back(std::move(columna));
  }
  if (codigo != SQLITE_DONE) Lanzar(base_.Motor());
  if (tabla) tabla->Clave = LeerClave(*tabla);
  return tabla;
}

std::vector<int> Catalogo::LeerClave(const dialecto::Tabla& tabla) {
  const Preparada sentencia = base_.Preparar(
      "SELECT x.cid, x.coll FROM pragma_index_list(?1) AS i "
      "JOIN pragma_index_xinfo(i.name) AS x WHERE i.origin = 'pk' AND x.key = 1");
  sqlite3_bind_text(sentencia.get(), 1, tabla.Nombre.data(), static_cast<int>(tabla.Nombre.size()),
                    SQLITE_STATIC);
  std::vector<int> clave;
  int codigo = SQLITE_OK;
  while ((codigo = sqlite3_step(sentencia.get())) == SQLITE_ROW) {
    const int posicion = sqlite3_column_int(sentencia.get(), 0);
    const auto& columna = tabla.Columnas.at(static_cast<std::size_t>(posicion));
    const bool texto = columna.Tipo == services::TipoColumna::Texto;
    if (columna.AdmiteNulo || (texto && TextoDeCelda(sentencia.get(), 1) != "ES")) return {};
    clave.push_back(posicion);
  }
  if (codigo != SQLITE_DONE) Lanzar(base_.Motor());
  return clave;
}

}  // namespace sqlite
