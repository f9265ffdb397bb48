#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "dialecto/interprete.h"
#include "valores/error.h"

// Any bytes at all are either refused with an error of the system or become one statement of the
// engine, with no literal left in it, a value for each of its parameters, and no two of them
// compared with each other. One whose form was met before gives the same as when it is met for the
// first time.

namespace {

class DosTablas final : public dialecto::Catalogo {
 public:
  [[nodiscard]] const dialecto::Tabla* Buscar(std::string_view nombre) override {
    if (dialecto::MismoNombre(nombre, "Caja")) return &caja_;
    return dialecto::MismoNombre(nombre, "Vtos") ? &vtos_ : nullptr;
  }

 private:
  dialecto::Tabla caja_{"Caja",
                        {{"FechaHora", services::TipoColumna::FechaHora},
                         {"Tipo", services::TipoColumna::Entero},
                         {"Visible", services::TipoColumna::Logico},
                         {"Factura"}},
                        {"rowid"},
                        {3},
                        true};
  dialecto::Tabla vtos_{
      "Vtos", {{"Año"}, {"Importe", services::TipoColumna::Moneda}}, {"rowid"}, {0}, true};
};

constexpr dialecto::Motor Motor = {.Comilla = '"',
                                   .Recorte = {"trim(", ")"},
                                   .RecorteIzquierdo = {"ltrim(", ")"},
                                   .RecorteDerecho = {"rtrim(", ")"},
                                   .NumeroDeFila = "rowid",
                                   .Reunidos = {"numerar(", ")"},
                                   .Numeros = {"numeros((", "))"},
                                   .NumerosEnOrden = {"numeros_en_orden((", "))"},
                                   .OrdenaQuienLee = true,
                                   .JuntaEnOrden = " CROSS JOIN "};

void Comprobar(const dialecto::Sentencia& sentencia) {
  const dialecto::Traduccion& traducida = *sentencia.Traducida;
  bool entreComillas = false;
  std::size_t huecos = 0;
  std::string sinNombres;
  for (const char c : traducida.Texto) {
    if (c == '"') entreComillas = !entreComillas;
    if (entreComillas) continue;
    sinNombres += c;
    huecos += c == '?' ? 1 : 0;
    if (c == '\'' || c == ';' || c == '#' || (c >= '0' && c <= '9')) std::abort();
  }
  if (sinNombres.find("? = ?") != std::string::npos) std::abort();
  if (traducida.Que == dialecto::Verbo::Select && traducida.Columnas.empty()) std::abort();
  if (entreComillas || huecos != sentencia.Parametros.size()) std::abort();
}

std::optional<dialecto::Sentencia> Leida(dialecto::Interprete& interprete, std::string_view texto,
                                         services::ModoApertura modo) try {
  return interprete.Leer(texto, modo);
} catch (const services::ErrorEjecucion&) {
  return std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cuantos) {
  static DosTablas catalogo;
  static dialecto::Interprete interprete(Motor, catalogo);
  const std::string_view texto(reinterpret_cast<const char*>(datos), cuantos);
  const auto modo =
      cuantos % 2 == 0 ? services::ModoApertura::Optimista : services::ModoApertura::Lectura;
  const auto recordada = Leida(interprete, texto, modo);
  dialecto::Interprete deNuevas(Motor, catalogo);
  const auto nueva = Leida(deNuevas, texto, modo);
  if (recordada.has_value() != nueva.has_value()) std::abort();
  if (!nueva) return 0;
  Comprobar(*nueva);
  const dialecto::Traduccion& una = *recordada->Traducida;
  const dialecto::Traduccion& otra = *nueva->Traducida;
  const bool misma = una.Texto == otra.Texto && una.Orden == otra.Orden &&
                     una.Origenes == otra.Origenes && una.Unica == otra.Unica;
  if (!misma || recordada->Parametros != nueva->Parametros) std::abort();
  return 0;
}
