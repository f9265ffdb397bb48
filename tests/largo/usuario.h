#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "headless/entorno.h"
#include "muestra/azar.h"

namespace largo {

/// A user at random, sensible most of the time: says the next command of a scenario, by what is on
/// sight. The same seed says the same to the same screens.
class Usuario {
 public:
  Usuario(std::uint64_t semilla, headless::Entorno& entorno) : azar_(semilla), entorno_(entorno) {}

  /// The next command; it can be carried out now.
  [[nodiscard]] std::string Siguiente();
  /// One that takes the user nearer to leaving the modal screen that is open.
  [[nodiscard]] std::string SalirDeModal();
  /// What somebody else writes in the stored tables meanwhile, in SQL.
  [[nodiscard]] std::string DeOtro();
  [[nodiscard]] muestra::Azar& Azar() { return azar_; }

 private:
  using Textos = std::initializer_list<const char*>;
  static constexpr const char* kPrincipal = "FrmTesvaraGastos";

  void Planear();
  void PlanearAlta();
  void PlanearModificacion();
  void PlanearPago();
  void PlanearRango();
  void PlanearCaja();
  void PlanearAutomaticas();
  void PlanearInforme();
  void Aceptar();
  void Plazos();
  void Prevision();

  [[nodiscard]] std::string Cualquiera();
  [[nodiscard]] std::string Sobre(services::Widget& widget);
  [[nodiscard]] std::string SobreRejilla(const std::string& nombre, services::Widget& widget);
  [[nodiscard]] bool Posible(const std::string& orden) const;
  [[nodiscard]] services::Form* AlFrente() const;
  [[nodiscard]] std::vector<services::Widget*> Alcanzables() const;

  [[nodiscard]] std::string Uno(Textos textos);
  [[nodiscard]] std::string Fecha();
  [[nodiscard]] std::string Importe();
  [[nodiscard]] std::string Numero();
  [[nodiscard]] std::string Concepto();
  [[nodiscard]] std::string Raro();
  [[nodiscard]] std::string FilaDeLista();
  [[nodiscard]] std::string EnFila(const char* orden, int columna);

  void Di(const std::string& orden) { plan_.push_back(orden); }
  void Teclear(const std::string& widget, const std::string& texto);

  muestra::Azar azar_;
  headless::Entorno& entorno_;
  std::deque<std::string> plan_;
};

}  // namespace largo
