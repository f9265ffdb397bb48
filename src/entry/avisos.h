#pragma once

// What is said wherever an invoice is made: on the panel, and out of cash entries.

namespace entry {

inline constexpr const char* kConceptoEnBlanco = "El Concepto no puede estar en blanco";
inline constexpr const char* kConceptoSinCrear = "Debe Crear el concepto para continuar";

/// Of a row whose key is taken, or whose values don't fit.
inline constexpr const char* kFacturaYaExiste = "Esta Factura ya exite ";
inline constexpr const char* kBasesYaExisten = "Error al grabar las bases de Iva ya exite ";
inline constexpr const char* kRecibosSinGenerar = "Error al Generar Recibos ";

}  // namespace entry
