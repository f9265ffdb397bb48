#include "odbc/enlace.h"

#include <array>
#include <optional>

#include "odbc/celdas.h"
#include "odbc/consulta.h"
#include "valores/error.h"

namespace odbc {

using services::ErrorEjecucion;

namespace {

constexpr SQLULEN kEsperaAlConectar = 10;  // seconds

[[noreturn]] void SinGestor() {
  throw ErrorEjecucion(services::error::FalloDeConexion,
                       "No se puede usar el gestor de controladores ODBC");
}

std::string NoSeAbre(const TextoDeConexion& texto, const ErrorEjecucion& fallo) {
  return "No se puede abrir la base de datos " + texto.Nombre() + ": " + fallo.Descripcion();
}

}  // namespace

Enlace::Enlace(const TextoDeConexion& texto, std::string esquema)
    : textos_(texto.PorServidor()),
      esquema_(std::move(esquema)),
      entorno_(SQL_HANDLE_ENV, nullptr) {
  if (!entorno_) SinGestor();
  SQLSetEnvAttr(entorno_.get(), SQL_ATTR_ODBC_VERSION, ComoPuntero(SQL_OV_ODBC3), 0);
  Conectar();
}

/// The first server that can be reached. What is told of none is what the last one said, or the
/// first one that doesn't let the user in.
void Enlace::Conectar() {
  std::string motivo;
  std::optional<SinEntrada> sinEntrada;
  for (const TextoDeConexion& texto : textos_) {
    try {
      ConectarCon(texto);
      ++vez_;
      return;
    } catch (const SinEntrada& fallo) {
      perdido_ = true;
      if (!sinEntrada) sinEntrada.emplace(fallo.Numero(), NoSeAbre(texto, fallo));
    } catch (const ErrorEjecucion& fallo) {
      perdido_ = true;
      motivo = NoSeAbre(texto, fallo);
    }
  }
  if (sinEntrada) throw SinEntrada(*sinEntrada);
  throw ErrorEjecucion(services::error::FalloDeConexion, motivo);
}

/// What its driver is to be told besides is known once it has said what it is.
void Enlace::ConectarCon(const TextoDeConexion& texto) {
  perdido_ = false;
  Abrir(texto);
  motor_ = Dato(SQL_DBMS_NAME);
  servidor_ = &ServidorDe(motor_);
  if (!servidor_->Atributos.empty()) {
    TextoDeConexion conLoSuyo = texto;
    for (const auto& [nombre, valor] : servidor_->Atributos) conLoSuyo.Poner(nombre, valor);
    Abrir(conLoSuyo);
  }
  EmpezarSesion();
  if (textos_.size() > 1) ExigirQueSirva();
}

/// A node of a cluster that isn't part of it now fails at whatever it is asked.
void Enlace::ExigirQueSirva() {
  if (servidor_->SoloLectura.empty()) return;
  const ManejoDeOrden orden = NuevaOrden();
  ContarViaje();
  Comprobar(SQLExecDirect(orden.get(), Texto(std::string(servidor_->SoloLectura).c_str()), SQL_NTS),
            orden.Suyo);
  if (LeerTextos(*this, orden, {1}).at(0).at(0) != "1") return;
  throw ErrorEjecucion(services::error::FalloDeConexion, "El servidor es de solo lectura");
}

void Enlace::Abrir(const TextoDeConexion& texto) {
  linea_ = std::make_shared<Linea>(entorno_.get());
  if (!linea_->Conexion) SinGestor();
  const SQLHDBC conexion = linea_->Conexion.get();
  SQLSetConnectAttr(conexion, SQL_ATTR_LOGIN_TIMEOUT, ComoPuntero(kEsperaAlConectar), 0);
  const std::string completo = texto.Texto();
  const SQLRETURN resultado = SQLDriverConnect(conexion, nullptr, Texto(completo.c_str()), SQL_NTS,
                                               nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  ContarViaje();
  linea_->Abierta = SQL_SUCCEEDED(resultado);
  if (linea_->Abierta) return;
  Diagnostico diagnostico = Diagnosticar(linea_->Conexion);
  diagnostico.AlConectar = true;
  const ErrorEjecucion fallo = ErrorDe(diagnostico, "ODBC");
  if (EsDeSesion(diagnostico)) throw SinEntrada(fallo.Numero(), fallo.Descripcion());
  throw ErrorEjecucion(fallo);
}

void Enlace::EmpezarSesion() {
  catalogo_ = Dato(SQL_DATABASE_NAME);
  if (!esquema_.empty()) EntrarEnEsquema();
  for (const std::string_view sentencia : servidor_->AlConectar) Ejecutar(std::string(sentencia));
  for (const std::string_view sentencia : servidor_->SiSabe) {
    try {
      Ejecutar(std::string(sentencia));
    } catch (const ErrorEjecucion&) {
      if (perdido_) throw;
    }
  }
}

void Enlace::EntrarEnEsquema() {
  if (!servidor_->EntrarEnEsquema.empty()) {
    return Ejecutar(std::string(servidor_->EntrarEnEsquema) + esquema_);
  }
  Comprobar(SQLSetConnectAttr(linea_->Conexion.get(), SQL_ATTR_CURRENT_CATALOG,
                              Texto(esquema_.c_str()), SQL_NTS),
            linea_->Conexion);
  catalogo_ = esquema_;
}

std::string Enlace::Dato(SQLUSMALLINT cual) const {
  std::array<char, 256> texto{};
  SQLSMALLINT largo = 0;
  SQLGetInfo(linea_->Conexion.get(), cual, texto.data(), static_cast<SQLSMALLINT>(texto.size()),
             &largo);
  return texto.data();
}

void Enlace::Exigir() {
  if (perdido_) Conectar();
}

ManejoDeOrden Enlace::NuevaOrden() {
  Exigir();
  ManejoDeOrden orden{linea_, Manejo(SQL_HANDLE_STMT, linea_->Conexion.get())};
  if (!orden.Suyo) Comprobar(SQL_ERROR, linea_->Conexion);
  return orden;
}

void Enlace::Comprobar(SQLRETURN resultado, const Manejo& manejo) {
  if (SQL_SUCCEEDED(resultado) || resultado == SQL_NO_DATA) return;
  Diagnostico diagnostico = Diagnosticar(manejo);
  if (EsDeConexionPerdida(diagnostico) || Muerta()) {
    perdido_ = true;
    diagnostico.Perdida = true;
  }
  // Another of them may have taken its place.
  if (EsDeSoloLectura(diagnostico) && textos_.size() > 1) perdido_ = true;
  if (EsDeOtrasTablas(diagnostico)) {
    perdido_ = true;
    throw TablasCambiadas();
  }
  const ErrorEjecucion fallo = ErrorDe(diagnostico, motor_);
  if (EsDeOtro(diagnostico)) throw UnidadDeshecha(fallo.Numero(), fallo.Descripcion());
  throw ErrorEjecucion(fallo);
}

/// A driver may tell of it by no more than that something failed.
bool Enlace::Muerta() const {
  SQLUINTEGER muerta = SQL_CD_FALSE;
  SQLGetConnectAttr(linea_->Conexion.get(), SQL_ATTR_CONNECTION_DEAD, &muerta, sizeof muerta,
                    nullptr);
  return muerta == SQL_CD_TRUE;
}

void Enlace::Ejecutar(const std::string& sql) {
  const ManejoDeOrden orden = NuevaOrden();
  ContarViaje();
  SQLRETURN resultado = SQLExecDirect(orden.get(), Texto(sql.c_str()), SQL_NTS);
  do {
    Comprobar(resultado, orden.Suyo);
    resultado = SQLMoreResults(orden.get());
  } while (resultado != SQL_NO_DATA);
}

}  // namespace odbc
