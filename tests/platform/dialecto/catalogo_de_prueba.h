#pragma once

#include <vector>

#include "dialecto/catalogo.h"
#include "dialecto/motor.h"

namespace pruebas {

/// Three tables with a column of each type, and an engine whose marks are easy to tell apart.
class CatalogoDePrueba final : public dialecto::Catalogo {
 public:
  CatalogoDePrueba() {
    using services::TipoColumna;
    tablas_.push_back({"Caja",
                       {{"FechaHora", TipoColumna::FechaHora},
                        {"Tipo", TipoColumna::Entero},
                        {"Importe", TipoColumna::Moneda},
                        {"Factura", TipoColumna::Texto, 20},
                        {"Año", TipoColumna::Texto, 10},
                        {"Visible", TipoColumna::Logico}},
                       {"fila"}});
    tablas_.push_back({"Vtos", {{"NConcepto"}, {"NFactura"}, {"Año"}, {"FechaVto"}}, {"fila"}});
    tablas_.push_back({"Conceptos", {{"NConcepto"}, {"Descripcion"}}, {"fila"}});
  }

  [[nodiscard]] const dialecto::Tabla* Buscar(std::string_view nombre) override {
    for (const auto& tabla : tablas_) {
      if (dialecto::MismoNombre(tabla.Nombre, nombre)) return &tabla;
    }
    return nullptr;
  }

 private:
  std::vector<dialecto::Tabla> tablas_;
};

inline constexpr dialecto::Motor MotorDePrueba = {.Comilla = '"',
                                                  .Recorte = {"RECORTE(", ")"},
                                                  .RecorteIzquierdo = {"IZQ(", ")"},
                                                  .RecorteDerecho = {"DER(", ")"}};

}  // namespace pruebas
