#pragma once

#include <string>

#include "apoyo/negocio_de_prueba.h"

namespace medidas {

/// Adds to a store as many times its invoices again, in other years.
inline void Ampliar(const apoyo::NegocioDePrueba& negocio, int veces) {
  const auto datos = negocio.AbrirDatos();
  for (int i = 1; i <= veces; ++i) {
    const std::string anio = "'" + std::to_string(2005 + i) + "'";
    const std::string vence = anio + " || substr(FechaVto, 5)";
    datos->Ejecutar(
        "BEGIN; "
        "INSERT INTO ProvFacturas SELECT NConcepto, Factura || '-' || " +
        anio + ", " + anio +
        ", Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, IRPF, Cadencia, "
        "Actualizado, ModificadoPor FROM ProvFacturas WHERE Año = '2005'; "
        "INSERT INTO ProvBasesIva SELECT NConcepto, NFactura || '-' || " +
        anio + ", " + anio +
        ", Tipo, Base, Importe, Exento, Actualizado, ModificadoPor FROM ProvBasesIva "
        "WHERE Año = '2005'; "
        "INSERT INTO ProvVencimientos SELECT NConcepto, NFactura || '-' || " +
        anio + ", " + anio + ", " + vence +
        ", Importe, Pagado, Fechapago, Actualizado, ModificadoPor FROM ProvVencimientos "
        "WHERE Año = '2005'; COMMIT");
  }
  datos->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
}

}  // namespace medidas
