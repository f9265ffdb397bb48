#include "guion/gramatica.h"

#include <charconv>

namespace guion {
namespace {

const std::vector<Firma>& Tabla() {
  using enum Clase;
  static const std::vector<Firma> tabla{
      {"reloj", {Fecha, Hora}, 2},
      {"pantalla", {Positivo, Positivo}, 2},
      {"referencia", {Positivo, Positivo}, 2},
      {"usuario", {Texto}, 1},
      {"clave", {Texto}, 1},
      {"texto", {TextoDeSesion, Texto}, 2},
      {"impresora", {Texto}, 1},
      {"datos", {Sql}, 1},
      {"local", {Sql}, 1},
      {"responder", {Respuesta}, 1, true},
      {"concepto", {Texto}, 1},
      {"unidad", {Unidad}, 1},
      {"guardia", {}, 0},
      {"fallo", {Base, Positivo, NumeroDeError}, 2},
      {"matar", {}, 0},

      {"cargar", {}, 0},
      {"ocultar", {}, 0},
      {"cerrar", {}, 0},
      {"foco", {Widget}, 1},
      {"teclear", {Widget, Texto}, 2},
      {"anadir", {Texto}, 1},
      {"tecla", {Tecla}, 1},
      {"pulsar", {Widget}, 1},
      {"elegir", {Widget, Texto}, 2},
      {"celda", {Widget, Natural, Natural}, 3},
      {"doble", {Widget, Natural, Natural}, 3},
      {"valor", {Widget, Entero}, 2},
      {"barra", {Texto}, 1},

      {"ver", {Widget}, 1},
      {"rejilla", {Widget}, 1},
      {"colores", {Widget, Natural}, 2},
      {"foco?", {}, 0},
      {"avisos", {}, 0},
      {"consulta", {Base, Sql}, 2},
      {"borrados", {}, 0},
      {"omitidos", {}, 0},
      {"sentencias", {}, 0},
      {"informe", {}, 0},
      {"pantallas", {}, 0},

      {"espera", {Propiedad, Texto}, 2},
      {"espera celda", {Widget, Natural, Natural, Texto}, 4},
      {"espera marca", {Widget, Natural, Natural, Marca}, 4},
      {"espera aviso", {Texto}, 1},
      {"espera sin", {Avisos}, 1},
      {"espera foco", {Widget}, 1},
      {"espera consulta", {Base, Texto, Texto}, 2, true},
      {"espera error", {NumeroDeError}, 1},
  };
  return tabla;
}

std::optional<std::int64_t> LeerNumero(std::string_view texto, int base) {
  std::int64_t numero = 0;
  const char* fin = texto.data() + texto.size();
  const auto [donde, fallo] = std::from_chars(texto.data(), fin, numero, base);
  if (fallo != std::errc() || donde != fin) return std::nullopt;
  return numero;
}

std::optional<int> LeerEntero(std::string_view texto) {
  const std::optional<std::int64_t> numero = LeerNumero(texto, 10);
  if (!numero || *numero < INT32_MIN || *numero > INT32_MAX) return std::nullopt;
  return static_cast<int>(*numero);
}

std::optional<std::int32_t> LeerNumeroDeError(std::string_view texto) {
  if (!texto.starts_with("0x") && !texto.starts_with("0X")) return LeerEntero(texto);
  const std::optional<std::int64_t> numero = LeerNumero(texto.substr(2), 16);
  if (!numero || *numero < 0 || *numero > UINT32_MAX) return std::nullopt;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(*numero));
}

bool EsEnteroDesde(std::string_view texto, int menor) {
  const std::optional<int> numero = LeerEntero(texto);
  return numero && *numero >= menor;
}

/// What was expected in the place of a word; empty when it is right.
std::string_view LoQueFalta(Clase clase, const std::string& palabra) {
  using enum Clase;
  const auto si = [](bool vale, std::string_view falta) { return vale ? "" : falta; };
  switch (clase) {
    case Texto:
      return "";
    case Widget:
      return si(LeerReferencia(palabra).has_value(), "un nombre de widget");
    case Propiedad:
      return si(LeerPropiedad(palabra).has_value(), "W.Propiedad");
    case Entero:
      return si(LeerEntero(palabra).has_value(), "un número entero");
    case Natural:
      return si(EsEnteroDesde(palabra, 0), "un número entero desde 0");
    case Positivo:
      return si(EsEnteroDesde(palabra, 1), "un número entero desde 1");
    case NumeroDeError:
      return si(LeerNumeroDeError(palabra).has_value(), "un número de error");
    case Marca:
      return si(palabra == "0" || palabra == "1", "0 o 1");
    case Base:
      return si(palabra == "datos" || palabra == "local", "datos o local");
    case Tecla:
      return si(CodigoDeTecla(palabra).has_value(), "el nombre de una tecla");
    case Respuesta:
      return si(CodigoDeRespuesta(palabra).has_value(), "si, no, cancelar o aceptar");
    case Fecha:
      return si(LeerMomento(palabra, "00:00:00").has_value(), "una fecha aaaa-mm-dd");
    case Hora:
      return si(LeerMomento("2000-01-01", palabra).has_value(), "una hora hh:mm:ss");
    case TextoDeSesion:
      return si(palabra == "Pagina" || palabra == "Pantalla", "Pagina o Pantalla");
    case Avisos:
      return si(palabra == "avisos", "avisos");
    case Unidad:
      return si(palabra == "evento" || palabra == "sentencia", "evento o sentencia");
    case Sesion:
      return si(palabra.size() == 1 && palabra[0] >= '1' && palabra[0] <= '9',
                "un número de sesión, de 1 a 9");
    case Sql:
      return si(!palabra.empty(), "una sentencia");
  }
  return "";
}

}  // namespace

void Comprobar(Clase clase, const std::string& palabra) {
  const std::string_view falta = LoQueFalta(clase, palabra);
  if (falta.empty()) return;
  throw NoSeEntiende("se esperaba " + std::string(falta) + " en lugar de \"" + palabra + "\"");
}

int Orden::Entero(std::size_t i) const {
  return LeerEntero(Texto(i)).value();
}

std::int32_t Orden::NumeroDeError(std::size_t i) const {
  return LeerNumeroDeError(Texto(i)).value();
}

std::span<const Firma> Firmas() {
  return Tabla();
}

}  // namespace guion
