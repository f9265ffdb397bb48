#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "largo/modelo.h"
#include "salvaguarda/sql.h"

namespace largo {
namespace {

/// An amount as the list shows it.
std::string Importe(double valor) {
  const auto centimos = static_cast<long long>(std::llround(std::fabs(valor) * 100));
  std::array<char, 8> resto{};
  std::snprintf(resto.data(), resto.size(), ",%02d", static_cast<int>(centimos % 100));
  std::string texto = std::to_string(centimos / 100);
  for (std::size_t i = texto.size(); i > 3; i -= 3) texto.insert(i - 3, ".");
  return (valor < 0 && centimos > 0 ? "-" : "") + texto + resto.data();
}

/// From the stored form to the shown one.
std::string Mostrada(const std::string& fecha) {
  if (fecha.size() != 8) return "";
  return fecha.substr(6, 2) + "/" + fecha.substr(4, 2) + "/" + fecha.substr(0, 4);
}

namespace calendario = std::chrono;

calendario::year_month_day Leida(const std::string& fecha) {
  return {calendario::year(std::stoi(fecha.substr(0, 4))),
          calendario::month(static_cast<unsigned>(std::stoi(fecha.substr(4, 2)))),
          calendario::day(static_cast<unsigned>(std::stoi(fecha.substr(6, 2))))};
}

std::string Paso(const std::string& fecha, int cada, int tipo) {
  calendario::year_month_day dia = Leida(fecha);
  if (tipo == 1) {
    dia = calendario::sys_days(dia) + calendario::days(cada);
  } else {
    dia = tipo == 2 ? dia + calendario::months(cada) : dia + calendario::years(cada);
    if (!dia.ok()) dia = dia.year() / dia.month() / calendario::last;
  }
  // The zero moment of the platform has no text as a date: a series that steps on it ends there.
  constexpr calendario::year_month_day kCero = calendario::year(1899) / 12 / 30;
  if (dia.year() > calendario::year(9999) || dia == kCero) return "";
  std::array<char, 16> texto{};
  std::snprintf(texto.data(), texto.size(), "%04d%02u%02u", static_cast<int>(dia.year()),
                static_cast<unsigned>(dia.month()), static_cast<unsigned>(dia.day()));
  return texto.data();
}

/// The dates on which a forecast is listed: its first one when the range has not passed it, and
/// those before the end of the range; one that began before loses the first one inside it.
std::vector<std::string> Fechas(const std::string& primera, int cada, int tipo,
                                const salvaguarda::Rango& rango) {
  std::vector<std::string> fechas;
  std::string fecha = primera;
  const auto avanza = [&] {
    if (cada <= 0) fecha.clear();
    if (!fecha.empty()) fecha = Paso(fecha, cada, tipo);
    return !fecha.empty();
  };
  if (fecha >= rango.Desde) {
    fechas.push_back(fecha);
  } else {
    while (fecha < rango.Desde) {
      if (!avanza()) return fechas;
    }
  }
  while (fecha <= rango.Hasta && avanza()) {
    if (fecha < rango.Hasta) fechas.push_back(fecha);
  }
  return fechas;
}

void EsperarVencimientos(sqlite::Conexion& local, bool conPagados, std::vector<Fila>& esperadas) {
  const auto filas =
      local
          .Consultar(
              "SELECT FechaVto, Descripcion, trim(NFactura), Importe, Pagado, NConcepto, "
              "Año FROM TempProvVencimientos WHERE Visible <> 0")
          .Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    const auto importe = [&](std::size_t columna) {
      const services::Valor valor = filas.En(i, columna);
      return valor.EsNulo() ? "" : Importe(valor.Numero());
    };
    const auto texto = [&](std::size_t columna) { return filas.En(i, columna).Texto(); };
    if (!conPagados && (importe(4).empty() || importe(3) == importe(4))) continue;
    esperadas.push_back(
        {Mostrada(texto(0)), texto(1), texto(2), importe(3), importe(4), texto(5), texto(6)});
  }
}

void EsperarPrevisiones(sqlite::Conexion& local, const salvaguarda::Rango& rango,
                        std::vector<Fila>& esperadas) {
  for (const Fila& p : Consultar(local,
                                 "SELECT NConcepto, Fecha1Vto, ifnull(Cada, 0), "
                                 "ifnull(Tipo, 3), ifnull(Importe, 0), Descripcion FROM "
                                 "TempProvPrevisionPagos")) {
    for (const std::string& fecha : Fechas(p[1], std::stoi(p[2]), std::stoi(p[3]), rango)) {
      const std::string borrada = "SELECT count(*) FROM TempTesvaraBorrar WHERE NConcepto = " +
                                  salvaguarda::sql::Texto(p[0]) + " AND FechaVto = '" + fecha + "'";
      if (Uno(local, borrada) != "0") continue;
      esperadas.push_back({Mostrada(fecha), p[5], "", Importe(std::stod(p[4])), "", p[0], ""});
    }
  }
}

}  // namespace

std::string DiferenciaDeLista(const services::MSFlexGrid& lista, sqlite::Conexion& local,
                              const Filtros& filtros) {
  std::vector<Fila> esperadas;
  EsperarVencimientos(local, filtros.Pagados, esperadas);
  // A forecast line was never paid, and shows among what is left out then.
  if (filtros.Previsiones && filtros.Pagados) {
    EsperarPrevisiones(local, filtros.Rango, esperadas);
  }
  std::vector<Fila> halladas;
  for (int fila = 1; fila < lista.Rows; ++fila) {
    const auto celda = [&](int columna) { return lista.TextMatrix(fila, columna); };
    if (celda(3).empty() && celda(6).empty()) continue;
    halladas.push_back({celda(filtros.PorFecha ? 0 : 1), celda(filtros.PorFecha ? 1 : 0), celda(2),
                        celda(3), celda(4), celda(6), celda(7)});
  }
  return Diferencia(std::move(esperadas), std::move(halladas));
}

}  // namespace largo
