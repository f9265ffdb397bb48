#include "datos/filas.h"

#include <algorithm>
#include <limits>

namespace services {

namespace {

constexpr bool CabeEnEntero(std::int64_t valor) {
  return valor >= std::numeric_limits<std::int32_t>::min() &&
         valor <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

Valor Filas::En(std::size_t fila, std::size_t columna) const {
  const Celda& celda = celdas_[fila * columnas_ + columna];
  switch (celda.clase) {
    case Clase::Nulo:
      return {};
    case Clase::Logico:
      return Valor(celda.entero != 0);
    case Clase::Entero:
      if (CabeEnEntero(celda.entero)) return Valor(static_cast<std::int32_t>(celda.entero));
      return Valor(static_cast<double>(celda.entero));
    case Clase::Numero:
      return Valor(celda.numero);
    case Clase::Fecha:
      return Valor(celda.fecha);
    case Clase::Texto:
      return Valor(Texto(celda));
  }
  return {};
}

void Filas::AnadirNulo() {
  celdas_.push_back({{.entero = 0}, Clase::Nulo});
}

void Filas::AnadirLogico(bool valor) {
  celdas_.push_back({{.entero = valor ? 1 : 0}, Clase::Logico});
}

void Filas::AnadirEntero(std::int64_t valor) {
  celdas_.push_back({{.entero = valor}, Clase::Entero});
}

void Filas::AnadirNumero(double valor) {
  celdas_.push_back({{.numero = valor}, Clase::Numero});
}

void Filas::AnadirFecha(FechaHora valor) {
  celdas_.push_back({{.fecha = valor}, Clase::Fecha});
}

void Filas::AnadirTexto(std::string_view valor) {
  const Tramo tramo{static_cast<std::uint32_t>(textos_.size()),
                    static_cast<std::uint32_t>(valor.size())};
  textos_.append(valor);
  celdas_.push_back({{.texto = tramo}, Clase::Texto});
}

void Filas::Anadir(const Valor& valor) {
  if (const auto* texto = valor.Si<std::string>()) {
    AnadirTexto(*texto);
  } else if (const auto* numero = valor.Si<double>()) {
    AnadirNumero(*numero);
  } else if (const auto* entero = valor.Si<std::int32_t>()) {
    AnadirEntero(*entero);
  } else if (const auto* logico = valor.Si<bool>()) {
    AnadirLogico(*logico);
  } else if (const auto* momento = valor.Si<FechaHora>()) {
    AnadirFecha(*momento);
  } else {
    AnadirNulo();
  }
}

void Filas::AnadirCelda(const Filas& otras, std::size_t fila, std::size_t columna) {
  const Celda& celda = otras.celdas_[fila * otras.columnas_ + columna];
  if (celda.clase == Clase::Texto) {
    AnadirTexto(otras.Texto(celda));
  } else {
    celdas_.push_back(celda);
  }
}

std::optional<std::string_view> Filas::TextoEn(std::size_t fila, std::size_t columna) const {
  const Celda& celda = celdas_[fila * columnas_ + columna];
  if (celda.clase != Clase::Texto) return std::nullopt;
  return Texto(celda);
}

// Within the cells, so that they aren't held twice: a row is put aside, each place that becomes
// free takes the row that belongs there, and the last one takes that which was put aside.
void Filas::Reordenar(std::span<const std::uint32_t> orden) {
  std::vector<Celda> apartada;
  std::vector<char> puesta(orden.size());
  for (std::size_t primera = 0; primera < orden.size(); ++primera) {
    if (puesta[primera] || orden[primera] == primera) continue;
    const auto suya = Fila(primera);
    apartada.assign(suya.begin(), suya.end());
    std::size_t hueco = primera;
    for (std::size_t fila = orden[hueco]; fila != primera; fila = orden[hueco]) {
      std::ranges::copy(Fila(fila), Fila(hueco).begin());
      puesta[hueco] = 1;
      hueco = fila;
    }
    std::ranges::copy(apartada, Fila(hueco).begin());
    puesta[hueco] = 1;
  }
}

std::int64_t Filas::Entero(std::size_t fila, std::size_t columna) const {
  return celdas_[fila * columnas_ + columna].entero;
}

}  // namespace services
