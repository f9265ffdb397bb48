#include "odbc/diagnostico.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace odbc {
namespace {

namespace error = services::error;

enum class Causa {
  Bloqueada,
  Deshecha,
  Perdida,
  NoSeLlega,
  NoDejaEntrar,
  SinSesion,
  SinSitio,
  SoloLectura,
  SinPermiso,
  Repetida,
  FaltaValor,
  NoAdmite,
  NoCabe,
  SinTabla,
  SinColumna,
  NoSeEntiende,
  SinControlador,
  Falla,
};
using enum Causa;

struct Explicacion {
  std::int32_t Numero;
  std::string_view Frase;
};

Explicacion ExplicacionDe(Causa causa) {
  switch (causa) {
    case Bloqueada:
      return {error::FalloDeConexion, "La base de datos está bloqueada por otro programa"};
    case Deshecha:
      return {error::FalloDeConexion,
              "Otro programa escribía en las mismas filas y el servidor ha deshecho los últimos "
              "cambios"};
    case Perdida:
      return {error::FalloDeConexion, "Se ha perdido la conexión con el servidor"};
    case NoSeLlega:
      return {error::FalloDeConexion, "No se llega al servidor"};
    case NoDejaEntrar:
      return {error::FalloDeConexion, "El servidor no deja entrar"};
    case SinSesion:
      return {error::FalloDeConexion, "El servidor no admite el usuario o la contraseña"};
    case SinSitio:
      return {error::FalloDeConexion, "No queda sitio en el servidor de la base de datos"};
    case SoloLectura:
      return {error::FalloDeConexion, "El servidor de la base de datos es de solo lectura"};
    case SinPermiso:
      return {error::SentenciaRechazada,
              "El usuario no tiene permiso para hacerlo en la base de datos"};
    case Repetida:
      return {error::RepetidoONoCabe, "Ya existe una fila con la misma clave"};
    case FaltaValor:
      return {error::RepetidoONoCabe, "Falta un valor que la tabla exige"};
    case NoAdmite:
      return {error::RepetidoONoCabe, "La tabla no admite el valor"};
    case NoCabe:
      return {error::RepetidoONoCabe, "El valor no cabe en su columna"};
    case SinTabla:
      return {error::TablaDesconocida, "No existe la tabla"};
    case SinColumna:
      return {error::ColumnaDesconocida, "No existe la columna"};
    case NoSeEntiende:
      return {error::SentenciaRechazada, "La base de datos no entiende la sentencia"};
    case SinControlador:
      return {error::FalloDeConexion, "No se puede usar el controlador ODBC"};
    case Falla:
      break;
  }
  return {error::FalloDeConexion, "Falla la base de datos"};
}

struct DeEstado {
  std::string_view Estado;  ///< whole, or the beginning that a class of them shares
  Causa Suya;
};

struct DeNumero {
  int Nativo;
  Causa Suya;
};

/// Numbers of a server whose states are too few to tell these apart.
constexpr auto PorNumero = std::to_array<DeNumero>({
    {1021, SinSitio},   {1044, SinPermiso},  {1040, NoDejaEntrar}, {1049, NoDejaEntrar},
    {2005, Perdida},    {1022, Repetida},    {1047, Perdida},      {1048, FaltaValor},
    {1053, Perdida},    {1054, SinColumna},  {1062, Repetida},     {1114, SinSitio},
    {1142, SinPermiso}, {1143, SinPermiso},  {1146, SinTabla},     {1205, Bloqueada},
    {1213, Deshecha},   {1264, NoCabe},      {1265, NoCabe},       {1290, SoloLectura},
    {1292, NoCabe},     {1364, FaltaValor},  {1366, NoCabe},       {1406, NoCabe},
    {1644, NoAdmite},   {1792, SoloLectura}, {1836, SoloLectura},  {1927, Perdida},
    {2002, Perdida},    {2003, Perdida},     {2006, Perdida},      {2013, Perdida},
    {2055, Perdida},    {4025, NoAdmite},
});

/// The first that fits counts.
constexpr auto PorEstado = std::to_array<DeEstado>({
    {"22", NoCabe},         {"23502", FaltaValor}, {"23505", Repetida},   {"23", NoAdmite},
    {"25006", SoloLectura}, {"40", Deshecha},      {"42501", SinPermiso}, {"42P01", SinTabla},
    {"42S02", SinTabla},    {"42703", SinColumna}, {"42S22", SinColumna}, {"42", NoSeEntiende},
    {"53100", SinSitio},    {"55P03", Bloqueada},  {"57P", Perdida},      {"08", Perdida},
    {"HYT", Perdida},       {"P0001", NoAdmite},   {"45000", NoAdmite},   {"IM", SinControlador},
});

struct DeTexto {
  std::string_view Dicho;
  Causa Suya;
};

/// Of who has one state for whatever fails. The first that fits counts.
constexpr auto PorTexto = std::to_array<DeTexto>({
    {"Can't open lib", SinControlador},
    {"UNIQUE constraint", Repetida},
    {"NOT NULL constraint", FaltaValor},
    {"constraint", NoAdmite},
    {"locked", Bloqueada},
    {"readonly", SoloLectura},
});

Causa CausaPorTexto(const Diagnostico& diagnostico) {
  const auto texto = std::ranges::find_if(PorTexto, [&](const DeTexto& uno) {
    return diagnostico.Texto.find(uno.Dicho) != std::string::npos;
  });
  return texto == PorTexto.end() ? Falla : texto->Suya;
}

Causa CausaPorCodigo(const Diagnostico& diagnostico) {
  const auto numero = std::ranges::find(PorNumero, diagnostico.Nativo, &DeNumero::Nativo);
  if (numero != PorNumero.end()) return numero->Suya;
  const auto estado = std::ranges::find_if(
      PorEstado, [&](const DeEstado& uno) { return diagnostico.Estado.starts_with(uno.Estado); });
  return estado == PorEstado.end() ? CausaPorTexto(diagnostico) : estado->Suya;
}

Causa CausaDe(const Diagnostico& diagnostico) {
  if (diagnostico.Perdida) return Perdida;
  if (EsDeSesion(diagnostico)) return SinSesion;
  const Causa suya = CausaPorCodigo(diagnostico);
  if (!diagnostico.AlConectar || suya != Perdida) return suya;
  const bool haContestado = diagnostico.Texto.find("FATAL:") != std::string::npos;
  return haContestado ? NoDejaEntrar : NoSeLlega;
}

/// Without who passed it on, in brackets before it, nor what was being done, in lines behind.
std::string EnLimpio(std::string_view texto) {
  while (texto.starts_with('[')) {
    const auto fin = texto.find(']');
    if (fin == std::string_view::npos) break;
    texto.remove_prefix(fin + 1);
  }
  texto = texto.substr(0, texto.find_first_of("\r\n"));
  while (texto.ends_with(' ') || texto.ends_with(';')) texto.remove_suffix(1);
  return std::string(texto);
}

/// In the languages that a server here speaks: it has no state of its own for it.
bool HablaDeContrasena(std::string_view texto) {
  return texto.find("password") != std::string_view::npos ||
         texto.find("contraseña") != std::string_view::npos;
}

}  // namespace

Diagnostico Diagnosticar(const Manejo& manejo) {
  std::array<SQLCHAR, 6> estado{};
  std::array<SQLCHAR, 1024> texto{};
  SQLINTEGER nativo = 0;
  SQLSMALLINT largo = 0;
  const SQLRETURN dicho =
      SQLGetDiagRec(manejo.Clase(), manejo.get(), 1, estado.data(), &nativo, texto.data(),
                    static_cast<SQLSMALLINT>(texto.size()), &largo);
  if (!SQL_SUCCEEDED(dicho)) return {};
  return {reinterpret_cast<const char*>(estado.data()), nativo,
          EnLimpio(reinterpret_cast<const char*>(texto.data()))};
}

bool EsDeSesion(const Diagnostico& diagnostico) {
  constexpr std::array kNativos = {1045, 1698};
  const bool sinConexion = diagnostico.Estado.starts_with("08");
  return diagnostico.Estado.starts_with("28") ||
         std::ranges::find(kNativos, diagnostico.Nativo) != kNativos.end() ||
         (sinConexion && HablaDeContrasena(diagnostico.Texto));
}

bool EsDeConexionPerdida(const Diagnostico& diagnostico) {
  return CausaDe(diagnostico) == Perdida;
}

// One server refuses the plan that it has kept; the other's driver reads rows of one width as rows
// of another, and loses its place.
bool EsDeOtrasTablas(const Diagnostico& diagnostico) {
  constexpr std::array kNativos = {2014, 2027, 2057};
  const bool plan = diagnostico.Estado == "0A000";
  return plan || std::ranges::find(kNativos, diagnostico.Nativo) != kNativos.end();
}

bool EsDeSoloLectura(const Diagnostico& diagnostico) {
  return CausaDe(diagnostico) == SoloLectura;
}

bool EsDeOtro(const Diagnostico& diagnostico) {
  return CausaDe(diagnostico) == Deshecha;
}

services::ErrorEjecucion ErrorDe(const Diagnostico& diagnostico, std::string_view motor) {
  const Explicacion explicacion = ExplicacionDe(CausaDe(diagnostico));
  std::string descripcion(explicacion.Frase);
  descripcion.append(" (").append(motor).append(" ").append(diagnostico.Estado);
  if (diagnostico.Nativo > 1) descripcion.append("-").append(std::to_string(diagnostico.Nativo));
  if (!diagnostico.Texto.empty()) descripcion.append(": ").append(diagnostico.Texto);
  return {explicacion.Numero, descripcion + ")"};
}

}  // namespace odbc
