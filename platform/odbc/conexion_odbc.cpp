#include "odbc/conexion_odbc.h"

#include <utility>

#include "odbc/consulta.h"
#include "odbc/cursor.h"
#include "valores/error.h"

namespace odbc {

using services::ModoApertura;

namespace {

/// Those that are run; none where any is.
std::optional<dialecto::Formas> FormasDe(const Opciones& opciones) {
  if (opciones.CualquierSentencia) return std::nullopt;
  return dialecto::Formas({});
}

}  // namespace

Conexion::Conexion(const TextoDeConexion& texto, const Opciones& opciones)
    : enlace_(texto, opciones.Esquema),
      unidad_(enlace_, almacen_, opciones.UnidadDeTrabajo),
      interprete_(enlace_.Motor().Dialecto, catalogo_, FormasDe(opciones)) {}

Conexion::~Conexion() {
  unidad_.Abandonar();
}

/// What was looked up on another connection than this may be others' by now.
void Conexion::Exigir() {
  enlace_.Exigir();
  if (std::exchange(vez_, enlace_.Vez()) == enlace_.Vez()) return;
  interprete_.Olvidar();
  propias_.Olvidar();
  catalogo_.Olvidar();
}

/// For which tables may be looked up.
dialecto::Sentencia Conexion::Entender(dialecto::Interprete& interprete, std::string_view sentencia,
                                       ModoApertura modo) try {
  Exigir();
  return interprete.Leer(sentencia, modo);
} catch (const services::ErrorEjecucion& fallo) {
  unidad_.AlFallarOtraCosa(fallo);
  throw;
}

std::unique_ptr<services::Cursor> Conexion::Abrir(std::string_view sentencia, ModoApertura modo) {
  return AbrirLeida(sentencia, Entender(interprete_, sentencia, modo), modo);
}

std::unique_ptr<services::Cursor> Conexion::AbrirPropia(std::string_view sentencia,
                                                        ModoApertura modo) {
  return AbrirLeida(sentencia, Entender(propias_, sentencia, modo), modo);
}

std::unique_ptr<services::Cursor> Conexion::AbrirLeida(std::string_view sentencia,
                                                       dialecto::Sentencia leida,
                                                       ModoApertura modo) {
  std::string texto(enlace_.Motor().ComoSeEscriben ? sentencia : leida.Traducida->Texto);
  if (leida.Traducida->Que == dialecto::Verbo::Delete) {
    Borrar(leida, texto);
    return nullptr;
  }
  if (!anticipadas_.Ninguna()) pendientes_.Escribir();
  auto halladas = anticipadas_.Tomar(sentencia, leida, modo);
  return std::make_unique<Cursor>(*this, std::move(texto), std::move(leida), modo,
                                  std::move(halladas));
}

void Conexion::Borrar(const dialecto::Sentencia& leida, const std::string& texto) {
  Parametros parametros = ParametrosDe(leida);
  if (juntaBorrados_ && unidad_.Agrupa() && !parametros.Ninguno()) {
    pendientes_.Borrar(leida.Traducida->Borra, texto, std::move(parametros));
  } else {
    Escribir(texto, parametros);
  }
}

services::Filas Conexion::Leer(const std::string& texto, Parametros& parametros,
                               const std::vector<services::Columna>& columnas) {
  pendientes_.Escribir();
  return unidad_.Leer(texto, parametros, columnas);
}

std::size_t Conexion::Escribir(const std::string& texto, Parametros& parametros) {
  pendientes_.Escribir();
  return unidad_.Escribir(texto, parametros);
}

void Conexion::JuntarBorrados(bool juntar) {
  juntaBorrados_ = juntar;
  if (!juntar) pendientes_.Escribir();
}

void Conexion::Anticipar(const std::function<std::vector<std::string>()>& sentencias,
                         ModoApertura modo) {
  if (!enlace_.Motor().ComoSeEscriben) anticipadas_.Poner(sentencias(), modo);
}

void Conexion::TerminarUnidad() {
  anticipadas_.Olvidar();
  try {
    pendientes_.Escribir();
  } catch (const services::ErrorEjecucion&) {
    AbandonarUnidad();
    throw;
  }
  unidad_.Terminar();
}

void Conexion::AbandonarUnidad() noexcept {
  anticipadas_.Olvidar();
  pendientes_.Olvidar();
  unidad_.Abandonar();
}

void Conexion::TerminarLectura() noexcept {
  anticipadas_.Olvidar();
  unidad_.TerminarLectura();
}

std::vector<services::Columna> Conexion::ColumnasDe(std::string_view tabla) {
  Exigir();
  return catalogo_.Exigir(tabla).Columnas;
}

void Conexion::Ejecutar(const std::string& sql) {
  pendientes_.Escribir();
  unidad_.TerminarLectura();
  almacen_.Olvidar();
  interprete_.Olvidar();
  propias_.Olvidar();
  catalogo_.Olvidar();
  enlace_.Ejecutar(sql);
}

Resultado Conexion::Consultar(const std::string& sql) {
  pendientes_.Escribir();
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
