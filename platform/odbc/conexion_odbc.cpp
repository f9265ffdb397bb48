#include "odbc/conexion_odbc.h"

#include "odbc/consulta.h"
#include "odbc/cursor.h"
#include "valores/error.h"

namespace odbc {

using services::ModoApertura;
using services::TipoColumna;

namespace {

/// Those that are run; none where any is.
std::optional<dialecto::Formas> FormasDe(const Opciones& opciones) {
  if (opciones.CualquierSentencia) return std::nullopt;
  return dialecto::Formas(opciones.Propias);
}

}  // namespace

Conexion::Conexion(const TextoDeConexion& texto, const Opciones& opciones)
    : enlace_(texto, opciones.Esquema),
      unidad_(enlace_, almacen_, opciones.UnidadDeTrabajo),
      interprete_(enlace_.Motor().Dialecto, catalogo_, FormasDe(opciones)) {}

Conexion::~Conexion() {
  unidad_.Abandonar();
}

std::unique_ptr<services::Cursor> Conexion::Abrir(std::string_view sentencia, ModoApertura modo) {
  enlace_.Exigir();
  auto leida = interprete_.Leer(sentencia, modo);
  std::string texto(enlace_.Motor().ComoSeEscriben ? sentencia : leida.Traducida->Texto);
  if (leida.Traducida->Que == dialecto::Verbo::Select) {
    return std::make_unique<Cursor>(*this, std::move(texto), std::move(leida), modo);
  }
  Parametros parametros = ParametrosDe(leida);
  unidad_.Escribir(texto, parametros);
  return nullptr;
}

std::vector<services::Columna> Conexion::ColumnasDe(std::string_view tabla) {
  enlace_.Exigir();
  return catalogo_.Exigir(tabla).Columnas;
}

void Conexion::Ejecutar(const std::string& sql) {
  unidad_.TerminarLectura();
  almacen_.Olvidar();
  interprete_.Olvidar();
  catalogo_.Olvidar();
  enlace_.Ejecutar(sql);
}

Resultado Conexion::Consultar(const std::string& sql) {
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLExecDirect(orden.get(), Texto(sql.c_str()), SQL_NTS), orden.Suyo);
  auto columnas = Descritas(enlace_, orden);
  Celdas celdas(columnas);
  enlace_.Comprobar(celdas.Enlazar(orden.get()), orden.Suyo);
  services::Filas filas(columnas.size());
  SQLRETURN resultado = SQL_SUCCESS;
  do {
    resultado = celdas.Traer(orden.get(), filas);
    enlace_.Comprobar(resultado, orden.Suyo);
  } while (resultado != SQL_NO_DATA);
  return {std::move(columnas), std::move(filas)};
}

services::Ref<Conexion> AbrirConexion(const std::string& texto, const Opciones& opciones) {
  return services::Crear<Conexion>(TextoDeConexion(texto), opciones);
}

}  // namespace odbc
