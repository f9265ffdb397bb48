#include <algorithm>
#include <optional>

#include "guion/gramatica.h"

// From lines to commands.

namespace guion {
namespace {

const Firma* BuscarFirma(std::string_view nombre) {
  const auto una = std::find_if(Firmas().begin(), Firmas().end(),
                                [&](const Firma& f) { return f.Nombre == nombre; });
  return una == Firmas().end() ? nullptr : &*una;
}

/// The session that a line begins with, its words taken from the reader.
std::optional<int> LeerSesion(Lector& lector) {
  Lector adelantado = lector;
  if (adelantado.Siguiente() != "sesion") return std::nullopt;
  lector = adelantado;
  if (!lector.Quedan()) throw NoSeEntiende("faltan argumentos en sesion");
  const std::string numero = lector.Siguiente();
  Comprobar(Clase::Sesion, numero);
  return numero[0] - '0';
}

/// The signature that a line begins with, its name taken from the reader.
const Firma& LeerNombre(Lector& lector) {
  const std::string nombre = lector.Siguiente();
  Lector adelantado = lector;
  if (nombre == "espera" && adelantado.Quedan()) {
    if (const Firma* firma = BuscarFirma(nombre + " " + adelantado.Siguiente())) {
      lector = adelantado;
      return *firma;
    }
  }
  if (const Firma* firma = BuscarFirma(nombre)) return *firma;
  throw NoSeEntiende("orden desconocida: " + nombre);
}

std::vector<std::string> LeerArgumentos(Lector& lector, const Firma& firma) {
  std::vector<std::string> argumentos;
  const std::size_t cuantos = firma.Argumentos.size();
  const auto clase = [&](std::size_t i) { return firma.Argumentos[std::min(i, cuantos - 1)]; };
  while (argumentos.size() < cuantos || firma.Repite) {
    const bool sql = clase(argumentos.size()) == Clase::Sql;
    if (!sql && !lector.Quedan()) break;
    argumentos.push_back(sql ? lector.Resto() : lector.Siguiente());
    Comprobar(clase(argumentos.size() - 1), argumentos.back());
  }
  if (argumentos.size() < firma.Minimo) {
    throw NoSeEntiende("faltan argumentos en " + std::string(firma.Nombre));
  }
  if (lector.Quedan()) throw NoSeEntiende("sobran argumentos en " + std::string(firma.Nombre));
  return argumentos;
}

/// The command of a line; none where there is only the session that the following lines are for.
std::optional<Orden> LeerOrden(Lector& lector, int numero, int& sesion) {
  const std::optional<int> dicha = LeerSesion(lector);
  if (dicha && !lector.Quedan()) {
    sesion = *dicha;
    return std::nullopt;
  }
  const Firma& firma = LeerNombre(lector);
  return Orden{numero, firma.Nombre, LeerArgumentos(lector, firma), dicha.value_or(sesion)};
}

void ExigirOtraAlMatar(const std::vector<Orden>& ordenes) {
  if (SonDeVarias(ordenes)) return;
  for (const Orden& orden : ordenes) {
    if (orden.Nombre == "matar") throw ErrorDeTexto(orden.Linea, "no hay más sesión que esta");
  }
}

}  // namespace

std::vector<Orden> Analizar(std::string_view texto) {
  std::vector<Orden> ordenes;
  int numero = 0;
  int sesion = 1;
  for (const std::string_view linea : Lineas(texto)) {
    ++numero;
    try {
      if (!EsUtf8(linea)) throw NoSeEntiende("el texto no es UTF-8");
      Lector lector(linea);
      if (!lector.Quedan()) continue;
      if (auto orden = LeerOrden(lector, numero, sesion)) ordenes.push_back(std::move(*orden));
    } catch (const NoSeEntiende& fallo) {
      throw ErrorDeTexto(numero, fallo.what());
    }
  }
  ExigirOtraAlMatar(ordenes);
  return ordenes;
}

bool SonDeVarias(std::span<const Orden> ordenes) {
  return std::any_of(ordenes.begin(), ordenes.end(),
                     [](const Orden& orden) { return orden.Sesion != 1; });
}

}  // namespace guion
