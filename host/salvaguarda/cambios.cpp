#include "salvaguarda/cambios.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "salvaguarda/consultas_de_cambios.h"
#include "salvaguarda/distintas.h"

namespace salvaguarda {
namespace {

/// A row of what was found.
class Leida {
 public:
  Leida(const services::Filas& filas, std::size_t fila) : filas_(filas), fila_(fila) {}

  [[nodiscard]] std::string Texto(std::size_t columna) const {
    return filas_.En(fila_, columna).Texto();
  }
  [[nodiscard]] bool Si(std::size_t columna) const { return Texto(columna) == "1"; }
  [[nodiscard]] AntesYAhora Ambos(std::size_t columna) const {
    return {filas_.En(fila_, columna), filas_.En(fila_, columna + 1)};
  }
  [[nodiscard]] Fila ComoFila() const { return {Texto(0), Texto(1), Texto(2), Texto(3), Texto(4)}; }

 private:
  const services::Filas& filas_;
  std::size_t fila_;
};

using PorFactura = std::map<Fila, std::vector<CambioDeVencimiento>, PorSuClave>;

PorFactura LeerVencimientos(sqlite::Conexion& base) {
  PorFactura porFactura;
  const services::Filas filas = base.Consultar(sql::VencimientosCambiados()).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    const Leida leida(filas, i);
    const Fila factura{"ProvFacturas", leida.Texto(1), leida.Texto(2), leida.Texto(3)};
    porFactura[factura].push_back(
        {leida.ComoFila(), leida.Si(5), leida.Si(6), leida.Ambos(7), leida.Ambos(9)});
  }
  return porFactura;
}

void Leer(sqlite::Conexion& base, std::string_view consulta, std::vector<Cambio>& cambios) {
  const services::Filas filas = base.Consultar(consulta).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    const Leida leida(filas, i);
    cambios.push_back({leida.ComoFila(), leida.Si(5), leida.Si(6), leida.Ambos(7), leida.Texto(9),
                       leida.Si(10), leida.Si(11), leida.Si(12), leida.Si(13)});
  }
}

}  // namespace

std::vector<Cambio> LeerCambios(sqlite::Conexion& base, std::string_view antes) {
  if (DicenLoMismo(base, antes)) return {};
  ReunirDistintas(base, antes);
  std::vector<Cambio> cambios;
  Leer(base, sql::FacturasCambiadas(antes), cambios);
  PorFactura vencimientos = LeerVencimientos(base);
  for (Cambio& cambio : cambios) {
    const auto suyos = vencimientos.find(cambio.Fila);
    if (suyos != vencimientos.end()) cambio.Vencimientos = std::move(suyos->second);
  }
  Leer(base, sql::PrevisionesCambiadas(), cambios);
  Leer(base, sql::ApuntesConOtraFactura(), cambios);
  return cambios;
}

}  // namespace salvaguarda
