#include "largo/tablas.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "guion/salida.h"

namespace largo {
namespace {

constexpr std::array kColumnas{
    std::pair{"ProvFacturas",
              "NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, "
              "TipoIRPF, IRPF, Cadencia"},
    std::pair{"ProvBasesIva", "NConcepto, NFactura, Año, Tipo, Base, Importe, Exento"},
    std::pair{"ProvVencimientos", "NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago"},
    std::pair{"ProvPrevisionPagos", "NConcepto, Fecha1Vto, Cada, Tipo, Importe"},
    std::pair{"CajaPagos", "idSucursal, FechaHora, Tipo, Importe, Factura, Año"},
};

Tablas Leer(sqlite::Conexion& base, const std::string& prefijo) {
  Tablas tablas;
  for (const auto& [nombre, columnas] : kColumnas) {
    std::vector<Fila>& filas = tablas[nombre] =
        Consultar(base, std::string("SELECT ") + columnas + " FROM " + prefijo + nombre);
    std::ranges::sort(filas);
  }
  return tablas;
}

std::string SoloEn(const std::string& rotulo, const std::vector<Fila>& unas,
                   const std::vector<Fila>& otras) {
  constexpr std::size_t kVistas = 5;
  std::vector<Fila> solas;
  std::ranges::set_difference(unas, otras, std::back_inserter(solas));
  std::string texto;
  for (std::size_t i = 0; i < std::min(kVistas, solas.size()); ++i) {
    texto += " [" + rotulo + " " + guion::FilaUnida(solas[i]) + "]";
  }
  return texto;
}

}  // namespace

std::vector<Fila> Consultar(sqlite::Conexion& base, std::string_view sql) {
  const sqlite::Resultado resultado = base.Consultar(sql);
  std::vector<Fila> filas(resultado.Filas.Cuantas());
  for (std::size_t f = 0; f < filas.size(); ++f) {
    for (std::size_t c = 0; c < resultado.Columnas.size(); ++c) {
      filas[f].push_back(guion::TextoPlano(resultado.Filas.En(f, c)));
    }
  }
  return filas;
}

std::string Uno(sqlite::Conexion& base, std::string_view sql) {
  return Consultar(base, sql).at(0).at(0);
}

Tablas LeerAlmacenadas(sqlite::Conexion& almacenados) {
  return Leer(almacenados, "");
}

Tablas LeerDeTrabajo(sqlite::Conexion& deTrabajo) {
  return Leer(deTrabajo, "Temp");
}

std::uint64_t Huella(const Tablas& tablas) {
  std::uint64_t huella = 14695981039346656037U;
  const auto mezclar = [&huella](std::string_view texto) {
    for (const char c : texto) huella = (huella ^ static_cast<unsigned char>(c)) * 1099511628211U;
    huella = (huella ^ 0x1FFU) * 1099511628211U;
  };
  for (const auto& [nombre, filas] : tablas) {
    mezclar(nombre);
    for (const Fila& fila : filas) {
      for (const std::string& valor : fila) mezclar(valor);
    }
  }
  return huella;
}

std::string Diferencia(const Tablas& esperadas, const Tablas& halladas) {
  std::string texto;
  for (const auto& [nombre, filas] : esperadas) {
    const std::string suyas =
        SoloEn("falta", filas, halladas.at(nombre)) + SoloEn("sobra", halladas.at(nombre), filas);
    if (!suyas.empty()) texto += " " + nombre + suyas;
  }
  return texto;
}

std::string Diferencia(std::vector<Fila> esperadas, std::vector<Fila> halladas) {
  std::ranges::sort(esperadas);
  std::ranges::sort(halladas);
  return Diferencia(Tablas{{"", std::move(esperadas)}}, {{"", std::move(halladas)}});
}

}  // namespace largo
