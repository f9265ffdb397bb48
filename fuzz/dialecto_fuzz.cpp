#include <cstdint>
#include <cstdlib>
#include <string>

#include "dialecto/traductor.h"
#include "valores/error.h"

// Any bytes at all are either refused with an error of the system or become one statement of the
// engine, with no literal left in it, a value for each of its parameters, and no two of them
// compared with each other.

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
                        {3}};
  dialecto::Tabla vtos_{
      "Vtos", {{"Año"}, {"Importe", services::TipoColumna::Moneda}}, {"rowid"}, {0}};
};

constexpr dialecto::Motor Motor = {.Comilla = '"',
                                   .Recorte = {"trim(", ")"},
                                   .RecorteIzquierdo = {"ltrim(", ")"},
                                   .RecorteDerecho = {"rtrim(", ")"},
                                   .NumeroDeFila = "rowid",
                                   .Reunidos = {"numerar(", ")"},
                                   .Numeros = {"numeros((", "))"},
                                   .NumerosEnOrden = {"numeros_en_orden((", "))"},
                                   .JuntaEnOrden = " CROSS JOIN "};

void Comprobar(const dialecto::Sentencia& sentencia) {
  bool entreComillas = false;
  std::size_t huecos = 0;
  std::string sinNombres;
  for (const char c : sentencia.Texto) {
    if (c == '"') entreComillas = !entreComillas;
    if (entreComillas) continue;
    sinNombres += c;
    huecos += c == '?' ? 1 : 0;
    if (c == '\'' || c == ';' || c == '#' || (c >= '0' && c <= '9')) std::abort();
  }
  if (sinNombres.find("? = ?") != std::string::npos) std::abort();
  if (entreComillas || huecos != sentencia.Parametros.size()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cuantos) {
  static DosTablas catalogo;
  static dialecto::Traductor traductor(Motor, catalogo);
  static dialecto::Sentencia sentencia;
  try {
    traductor.Traducir({reinterpret_cast<const char*>(datos), cuantos}, cuantos % 2 == 0,
                       sentencia);
    Comprobar(sentencia);
    if (sentencia.Que == dialecto::Verbo::Select && traductor.Columnas().empty()) std::abort();
  } catch (const services::ErrorEjecucion&) {
    return 0;
  }
  return 0;
}
