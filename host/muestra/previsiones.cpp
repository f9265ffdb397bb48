#include "muestra/previsiones.h"

#include <algorithm>
#include <array>

namespace muestra {
namespace {

/// A forecast whose first date is told by its month, counted from the current one, and its day.
struct Relativa {
  std::string_view Concepto;
  int Mes;
  int Dia;
  int Cada;
  int Tipo;
  Centimos Importe;
};

constexpr int kDias = 1;
constexpr int kMeses = 2;
constexpr int kAnios = 3;

constexpr std::array kRelativas = {
    Relativa{"109", -3, 4, 7, kDias, 6'200},      Relativa{"404", -2, 10, 10, kDias, 18'500},
    Relativa{"202", 0, 5, 14, kDias, 4'350},      Relativa{"119", -1, 2, 15, kDias, 3'990},
    Relativa{"311", -8, 1, 1, kMeses, 98'000},    Relativa{"312", 0, 5, 1, kMeses, 64'250},
    Relativa{"601", -11, 28, 1, kMeses, 612'345}, Relativa{"602", 0, 30, 1, kMeses, 198'776},
    Relativa{"603", -6, 15, 1, kMeses, 41'217},   Relativa{"401", 0, 20, 2, kMeses, 23'500},
    Relativa{"403", -5, 12, 3, kMeses, 11'840},   Relativa{"402", 1, 8, 1, kMeses, 9'675},
    Relativa{"501", -14, 18, 1, kAnios, 74'500},  Relativa{"604", 0, 25, 1, kAnios, 88'012},
    Relativa{"116", 7, 3, 2, kAnios, 15'600},
};

services::FechaHora DiaDe(const Relativa& relativa, services::FechaHora hoy) {
  const services::FechaHora primero = PrimeroDeMes(hoy, relativa.Mes);
  const auto mes = services::Descomponer(primero);
  return {primero.Dias + std::min(relativa.Dia, services::DiasDelMes(mes.Anio, mes.Mes)) - 1};
}

}  // namespace

std::vector<Prevision> Previsiones(services::FechaHora hoy) {
  std::vector<Prevision> previsiones;
  previsiones.reserve(std::size(kRelativas));
  for (const Relativa& relativa : kRelativas) {
    previsiones.push_back(
        {relativa.Concepto, DiaDe(relativa, hoy), relativa.Cada, relativa.Tipo, relativa.Importe});
  }
  return previsiones;
}

}  // namespace muestra
