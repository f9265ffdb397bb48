#pragma once

#include <cstddef>

// The positions, from 0, of the leading columns that a stored table and its working mirror share,
// and of those behind them that load and commit name. Both copy by position, up to one of these.

namespace store::tabla {

struct ProvFacturas {
  enum Posicion : std::size_t {
    NConcepto,
    Factura,
    Anio,
    Fecha,
    Total,
    forpago,
    NRecibos,
    Dias1Vto,
    BIRPF,
    TipoIRPF,
    IRPF,
    Cadencia,
    Actualizado
  };
};

struct ProvBasesIva {
  enum Posicion : std::size_t { NConcepto, NFactura, Anio, Tipo, Base, Importe, Exento };
};

struct ProvVencimientos {
  enum Posicion : std::size_t {
    NConcepto,
    NFactura,
    Anio,
    FechaVto,
    Importe,
    Pagado,
    Fechapago,
    Actualizado
  };
};

/// Of the working table, whose description stands where the stored one has `Actualizado`.
struct TempProvPrevisionPagos {
  enum Posicion : std::size_t { NConcepto, Fecha1Vto, Cada, Tipo, Importe, Descripcion };
};

struct CajaPagos {
  enum Posicion : std::size_t {
    idSucursal,
    FechaHora,
    Tipo,
    Importe,
    Observaciones,
    Factura,
    Anio,
    Usuario,
    Actualizado,
    ModificadoPor
  };
};

}  // namespace store::tabla
