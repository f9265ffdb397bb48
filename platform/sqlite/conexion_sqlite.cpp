#include "sqlite/conexion_sqlite.h"

#include "sqlite/celdas.h"
#include "sqlite/cursor.h"
#include "sqlite/dialecto_sqlite.h"
#include "valores/error.h"

namespace sqlite {

namespace {

/// Those that are run; none where any is.
std::optional<dialecto::Formas> FormasDe(const Opciones& opciones) {
  if (opciones.CualquierSentencia) return std::nullopt;
  return dialecto::Formas(opciones.Propias);
}

}  // namespace

Conexion::Conexion(const std::string& fichero, const Opciones& opciones)
    : base_(fichero, opciones),
      unidad_(base_, almacen_, opciones.UnidadDeTrabajo),
      interprete_(DialectoSqlite, catalogo_, FormasDe(opciones)) {}

Conexion::~Conexion() {
  unidad_.Abandonar();
}

std::unique_ptr<services::Cursor> Conexion::Abrir(std::string_view sentencia,
                                                  services::ModoApertura modo) {
  auto leida = interprete_.Leer(sentencia, modo);
  auto entrada = almacen_.EntradaDe(leida.Traducida->Texto);
  if (leida.Traducida->Que == dialecto::Verbo::Select) {
    return std::make_unique<Cursor>(*this, std::move(entrada), std::move(leida), modo);
  }
  const Prestada borrado = almacen_.Tomar(entrada);
  int indice = 0;
  for (const auto& valor : leida.Parametros) Enlazar(borrado.get(), ++indice, valor);
  unidad_.Escribir(borrado.get());
  return nullptr;
}

std::vector<services::Columna> Conexion::ColumnasDe(std::string_view tabla) {
  return catalogo_.Exigir(tabla).Columnas;
}

// Its tables may be others afterwards.
void Conexion::Ejecutar(const std::string& sql) {
  unidad_.TerminarLectura();
  almacen_.Olvidar();
  interprete_.Olvidar();
  catalogo_.Olvidar();
  base_.Ejecutar(sql);
}

// One that can't be attached isn't among the files that an error names.
void Conexion::Adjuntar(const std::string& fichero, std::string_view nombre) {
  const Prestada sentencia = almacen_.Tomar("ATTACH ? AS " + std::string(nombre));
  sqlite3_bind_text(sentencia.get(), 1, fichero.data(), static_cast<int>(fichero.size()),
                    SQLITE_STATIC);
  if (sqlite3_step(sentencia.get()) == SQLITE_DONE) return;
  Lanzar(sqlite3_extended_errcode(base_.Motor()), sqlite3_errmsg(base_.Motor()), fichero);
}

void Conexion::CopiarEn(const std::string& fichero) {
  Base destino(fichero, {.Crear = true});
  destino.Ejecutar("PRAGMA journal_mode = OFF");  // a log would take as much room again
  sqlite3_backup* copia = sqlite3_backup_init(destino.Motor(), "main", base_.Motor(), "main");
  if (!copia) Lanzar(destino.Motor());
  const int paso = sqlite3_backup_step(copia, -1);
  const int fin = sqlite3_backup_finish(copia);
  // Otherwise whoever looks into it, be it only to read, leaves a log beside it.
  if (paso == SQLITE_DONE && fin == SQLITE_OK) {
    return destino.Ejecutar("PRAGMA journal_mode = DELETE");
  }
  // That it had to wait in vain is no error of its end.
  Lanzar(destino.Motor(), paso == SQLITE_DONE ? fin : paso, "");
}

Resultado Conexion::Consultar(std::string_view sql) {
  const Preparada sentencia = base_.Preparar(sql);
  Resultado resultado;
  const int cuantas = sqlite3_column_count(sentencia.get());
  for (int i = 0; i < cuantas; ++i) {
    const char* declarado = sqlite3_column_decltype(sentencia.get(), i);
    resultado.Columnas.push_back(
        ColumnaDeclarada(sqlite3_column_name(sentencia.get(), i), declarado ? declarado : ""));
  }
  resultado.Filas = services::Filas(static_cast<std::size_t>(cuantas));
  int codigo = SQLITE_OK;
  while ((codigo = sqlite3_step(sentencia.get())) == SQLITE_ROW) {
    AnadirFila(sentencia.get(), resultado.Columnas, resultado.Filas);
  }
  if (codigo != SQLITE_DONE) Lanzar(base_.Motor());
  return resultado;
}

services::Ref<Conexion> AbrirConexion(const std::string& fichero, const Opciones& opciones) {
  return services::Crear<Conexion>(fichero, opciones);
}

}  // namespace sqlite
