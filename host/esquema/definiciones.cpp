#include "esquema/definiciones.h"

#include <array>

namespace esquema {

namespace {

using services::TipoColumna;

constexpr Columna Texto(std::string_view nombre, int longitud) {
  return {nombre, TipoColumna::Texto, longitud};
}
constexpr Columna Codigo(std::string_view nombre) {
  return Texto(nombre, 10);
}
constexpr Columna Moneda(std::string_view nombre) {
  return {nombre, TipoColumna::Moneda, 15};
}
constexpr Columna Entero(std::string_view nombre) {
  return {nombre, TipoColumna::Entero};
}

template <std::size_t N>
constexpr std::array<Columna, N> SinLimites(std::array<Columna, N> columnas) {
  for (Columna& columna : columnas) columna.Longitud = 0;
  return columnas;
}

constexpr Columna Concepto = Codigo("NConcepto");
constexpr Columna Anio = Codigo("Año");
constexpr Columna NFactura = Texto("NFactura", 20);
constexpr Columna Descripcion = Texto("Descripcion", 60);
constexpr Columna Actualizado = Texto("Actualizado", 20);
constexpr Columna ModificadoPor = Texto("ModificadoPor", 30);

constexpr std::array ColumnasFacturas = {
    Concepto,           Texto("Factura", 20), Anio,
    Codigo("Fecha"),    Moneda("Total"),      Codigo("forpago"),
    Entero("NRecibos"), Entero("Dias1Vto"),   Moneda("BIRPF"),
    Entero("TipoIRPF"), Moneda("IRPF"),       Entero("Cadencia"),
    Actualizado,        ModificadoPor};
constexpr std::array ColumnasTempFacturas = [] {
  auto columnas = ColumnasFacturas;
  columnas.back() = Descripcion;
  return SinLimites(columnas);
}();

constexpr std::array ColumnasBases = {Concepto,         NFactura,       Anio,
                                      Codigo("Tipo"),   Moneda("Base"), Moneda("Importe"),
                                      Moneda("Exento"), Actualizado,    ModificadoPor};
constexpr std::array ColumnasTempBases = SinLimites(ColumnasBases);

constexpr std::array ColumnasVencimientos = {Concepto,
                                             NFactura,
                                             Anio,
                                             Codigo("FechaVto"),
                                             Moneda("Importe"),
                                             Moneda("Pagado"),
                                             Codigo("Fechapago"),
                                             Actualizado,
                                             ModificadoPor};
constexpr std::array ColumnasTempVencimientos = SinLimites(std::array{
    Concepto, NFactura, Anio, Codigo("FechaVto"), Moneda("Importe"), Moneda("Pagado"),
    Codigo("Fechapago"), Actualizado, Descripcion, Columna{"Visible", TipoColumna::Logico}});

constexpr std::array ColumnasPrevision = {Concepto,       Codigo("Fecha1Vto"), Entero("Cada"),
                                          Entero("Tipo"), Moneda("Importe"),   Actualizado,
                                          ModificadoPor};
constexpr std::array ColumnasTempPrevision = SinLimites(std::array{
    Concepto, Codigo("Fecha1Vto"), Entero("Cada"), Entero("Tipo"), Moneda("Importe"), Descripcion});

constexpr std::array ColumnasCaja = {Codigo("idSucursal"),
                                     Columna{"FechaHora", TipoColumna::FechaHora},
                                     Entero("Tipo"),
                                     Moneda("Importe"),
                                     Texto("Observaciones", 255),
                                     Texto("Factura", 20),
                                     Anio,
                                     Texto("Usuario", 30),
                                     Actualizado,
                                     ModificadoPor};

constexpr std::array ColumnasTempCaja = SinLimites(ColumnasCaja);

constexpr std::array ColumnasConceptos = {Concepto, Descripcion};

// The suite's own record takes whatever it is told: a deletion must not fail by it.
constexpr std::array ColumnasBorrados = {Texto("Clave", 0),
                                         Columna{"Momento", TipoColumna::FechaHora},
                                         Texto("Usuario", 0), Texto("Sentencia", 0)};

constexpr std::array ColumnasLista = SinLimites(
    std::array{Texto("Concepto", 60), Codigo("FechaVto"), NFactura, Moneda("Importe"),
               Moneda("Pagado"), Concepto, Anio, Columna{"Prevision", TipoColumna::Logico}});

constexpr std::array ColumnasBorrar =
    SinLimites(std::array{Concepto, Codigo("FechaVto"), Moneda("Importe")});

using Nombre = std::string_view;
constexpr std::array<Nombre, 3> ClaveFacturas = {"NConcepto", "Factura", "Año"};
constexpr std::array<Nombre, 4> ClaveBases = {"NConcepto", "NFactura", "Año", "Tipo"};
constexpr std::array<Nombre, 4> ClaveVencimientos = {"NConcepto", "NFactura", "Año", "FechaVto"};
constexpr std::array<Nombre, 1> ClaveConcepto = {"NConcepto"};
constexpr std::array<Nombre, 3> ClaveCaja = {"idSucursal", "FechaHora", "Tipo"};

constexpr std::array TablasAlmacenadas = {
    Tabla{"ProvFacturas", ColumnasFacturas, ClaveFacturas},
    Tabla{"ProvBasesIva", ColumnasBases, ClaveBases},
    Tabla{"ProvVencimientos", ColumnasVencimientos, ClaveVencimientos},
    Tabla{"ProvPrevisionPagos", ColumnasPrevision, ClaveConcepto},
    Tabla{"CajaPagos", ColumnasCaja, ClaveCaja},
    Tabla{"ProvConceptos", ColumnasConceptos, ClaveConcepto},
    Tabla{"SorvexBorrados", ColumnasBorrados, {}},
};

constexpr std::array TablasDeTrabajo = {
    Tabla{"TempProvFacturas", ColumnasTempFacturas, ClaveFacturas},
    Tabla{"TempProvBasesIva", std::span(ColumnasTempBases).first(7), ClaveBases},
    Tabla{"TempProvVencimientos", ColumnasTempVencimientos, ClaveVencimientos},
    Tabla{"TempProvPrevisionPagos", ColumnasTempPrevision, ClaveConcepto},
    Tabla{"TempCajaPagos", ColumnasTempCaja, ClaveCaja},
    Tabla{"TempTesvara", ColumnasLista, {}},
    Tabla{"TempTesvaraBorrar", ColumnasBorrar, {}},
};

}  // namespace

std::span<const Tabla> Almacenadas() {
  return TablasAlmacenadas;
}

std::span<const Tabla> DeTrabajo() {
  return TablasDeTrabajo;
}

}  // namespace esquema
