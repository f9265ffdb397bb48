#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "forms/ventana.h"

// A platform for tests of models: its windows show nothing and write down what they are told.

namespace apoyo {

struct Registro {
  std::vector<std::string> lineas;

  void operator()(std::string linea) { lineas.push_back(std::move(linea)); }
  /// What was written since the last call.
  std::vector<std::string> Tomar() { return std::exchange(lineas, {}); }
};

/// What happens while a modal form or a message waits: the user's part, played by the test.
using Espera = std::function<void(services::Form&)>;
/// What the user answers before a gesture of his; not set, it goes through.
using Consentimiento = std::function<bool(services::Widget&, services::Gesto)>;

class VentanaDePrueba final : public services::Ventana {
 public:
  VentanaDePrueba(services::Form& form, Registro& registro, const Espera& espera,
                  const Consentimiento& consentimiento)
      : form_(form), registro_(registro), espera_(espera), consentimiento_(consentimiento) {}

  void Mostrar(bool modal) override { Anotar(modal ? "Mostrar modal" : "Mostrar"); }
  void Ocultar() override { Anotar("Ocultar"); }
  void EsperarModal() override {
    Anotar("EsperarModal");
    if (espera_) espera_(form_);
  }
  void Refrescar() override { Anotar("Refrescar"); }
  void* Nativa() override { return nullptr; }
  void Cambiada(services::Widget& widget, services::Aspecto) override {
    Anotar("Cambiada " + widget.NombreCompleto());
  }
  void Anadido(services::Widget& widget) override { Anotar("Anadido " + widget.NombreCompleto()); }
  void Quitado(services::Widget& widget) override { Anotar("Quitado " + widget.NombreCompleto()); }
  void CeldaCambiada(services::MSFlexGrid& rejilla, int fila, int columna) override {
    Anotar("CeldaCambiada " + rejilla.Nombre() + " " + std::to_string(fila) + " " +
           std::to_string(columna));
  }
  void FilasCambiadas(services::MSFlexGrid& rejilla) override {
    Anotar("FilasCambiadas " + rejilla.Nombre());
  }
  void CeldaActual(services::MSFlexGrid& rejilla) override {
    Anotar("CeldaActual " + rejilla.Nombre() + " " + std::to_string(rejilla.Row) + " " +
           std::to_string(rejilla.Col));
  }
  void Foco(services::Widget* widget) override {
    Anotar("Foco " + (widget ? widget->NombreCompleto() : "ninguno"));
  }
  bool Consiente(services::Widget& widget, services::Gesto gesto) override {
    return !consentimiento_ || consentimiento_(widget, gesto);
  }
  void FinDeEvento() override { Anotar("FinDeEvento"); }
  void AntesDePreguntar() override { Anotar("AntesDePreguntar"); }

 private:
  void Anotar(const std::string& que) { registro_(form_.Nombre() + ": " + que); }

  services::Form& form_;
  Registro& registro_;
  const Espera& espera_;
  const Consentimiento& consentimiento_;
};

/// The platform, its desktop, and what they were told.
class PlataformaDePrueba {
 public:
  PlataformaDePrueba() {
    plataforma_.CrearVentana = [this](services::Form& form) {
      return std::make_unique<VentanaDePrueba>(form, ventanas, espera, consentimiento);
    };
    plataforma_.ErrorNoControlado = [this](const services::ErrorEjecucion& fallo) {
      errores.push_back(fallo);
    };
    plataforma_.Ocupado = [this](bool ocupado) { ocupaciones.push_back(ocupado); };
  }
  PlataformaDePrueba(const PlataformaDePrueba&) = delete;

  Registro ventanas;
  Espera espera;
  Consentimiento consentimiento;
  std::vector<services::ErrorEjecucion> errores;
  std::vector<bool> ocupaciones;  // each time the user was told of a wait, or of its end

 private:
  services::PlataformaDeForms plataforma_;

 public:
  services::Escritorio escritorio{plataforma_};
};

}  // namespace apoyo
