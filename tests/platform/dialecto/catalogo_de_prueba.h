#pragma once

#include <vector>

#include "dialecto/catalogo.h"
#include "dialecto/motor.h"

namespace pruebas {

/// Three tables with a column of each type, and an engine whose marks are easy to tell apart.
class CatalogoDePrueba : public dialecto::Catalogo {
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

 protected:
  std::vector<dialecto::Tabla> tablas_;
};

/// A table more, and a key in each but the cash entries.
class CatalogoConClaves : public CatalogoDePrueba {
 public:
  CatalogoConClaves() {
    tablas_[1].Columnas.push_back({"Importe", services::TipoColumna::Moneda});
    tablas_[1].Clave = {0, 1, 2, 3};
    tablas_[2].Clave = {0};
    tablas_.push_back(
        {"Facturas", {{"NConcepto"}, {"Factura"}, {"Año"}, {"Fecha"}}, {}, {0, 1, 2}});
    for (dialecto::Tabla& tabla : tablas_) tabla.Numerada = true;
  }
};

inline constexpr dialecto::Motor MotorDePrueba = {.Comilla = '"',
                                                  .Recorte = {"RECORTE(", ")"},
                                                  .RecorteIzquierdo = {"IZQ(", ")"},
                                                  .RecorteDerecho = {"DER(", ")"}};

}  // namespace pruebas
