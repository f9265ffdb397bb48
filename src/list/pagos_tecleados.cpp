#include "list/pagos_tecleados.h"

#include <string>

#include "datos/recordset.h"
#include "valores/error.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace list {
namespace {

using services::Recordset;

/// The writing of one list's amounts.
class Escritura {
 public:
  Escritura(services::Sesion& sesion, const RejillaPagos& rejilla, const Orden& orden)
      : sesion_(sesion),
        rejilla_(rejilla),
        orden_(orden),
        hoy_(sesion.Utiles().ConvertirFecha(services::TextoDeFecha(sesion.Ahora()), 2, "D", "R")),
        mismasFilas_(rejilla.MsfPagos2.Rows == rejilla.MSFPagos.Rows) {}

  [[nodiscard]] bool Hacer();

 private:
  [[nodiscard]] bool HaCambiado(int fila) const;
  [[nodiscard]] bool EsLaMismaLinea(int fila) const;
  [[nodiscard]] bool YaLoTiene(Recordset& vencimiento, int fila) const;
  [[nodiscard]] std::string Sentencia(int fila) const;
  [[nodiscard]] bool EscribirFila(Recordset& vencimiento, int fila);
  void Asignar(Recordset& vencimiento, const std::string& pagado);
  [[nodiscard]] bool Actualizar(Recordset& vencimiento);
  [[nodiscard]] const std::string& Celda(int fila, int columna) const {
    return rejilla_.MSFPagos.TextMatrix(fila, columna);
  }
  bool Rechazar(const std::string& texto, const std::string& titulo) {
    sesion_.Aviso().Mostrar(texto, services::mensaje::Alto, titulo);
    return false;
  }

  services::Sesion& sesion_;
  const RejillaPagos& rejilla_;
  const Orden orden_;
  const std::string hoy_;
  const bool mismasFilas_;
};

bool Escritura::Hacer() {
  Recordset vencimiento;
  for (int fila = 1; fila < rejilla_.MSFPagos.Rows; ++fila) {
    if (!HaCambiado(fila)) continue;
    vencimiento.Open(Sentencia(fila), sesion_.CnTemp(), services::ModoApertura::Pesimista);
    if (!vencimiento.Eof() && !EscribirFila(vencimiento, fila)) return false;
    vencimiento.Close();
  }
  return true;
}

/// A snapshot of another length is no use: every row counts as changed then. So does, until its
/// own due date is looked at, a row where the snapshot has another line, as after a change of
/// order.
bool Escritura::HaCambiado(int fila) const {
  return !mismasFilas_ || !EsLaMismaLinea(fila) ||
         Celda(fila, columna::Pagado) != rejilla_.MsfPagos2.TextMatrix(fila, columna::Pagado);
}

bool Escritura::EsLaMismaLinea(int fila) const {
  for (const int c : {0, 1, columna::NFactura, columna::NConcepto, columna::Anio}) {
    if (Celda(fila, c) != rejilla_.MsfPagos2.TextMatrix(fila, c)) return false;
  }
  return true;
}

bool Escritura::YaLoTiene(Recordset& vencimiento, int fila) const {
  return mismasFilas_ && !EsLaMismaLinea(fila) &&
         services::Mascara(vencimiento.Collect("Pagado")) == Celda(fila, columna::Pagado);
}

std::string Escritura::Sentencia(int fila) const {
  return "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
         "TempProvVencimientos.NConcepto like '" +
         Celda(fila, columna::NConcepto) + "' And Trim(TempProvVencimientos.NFactura) like '" +
         std::string(services::Trim(Celda(fila, columna::NFactura))) +
         "' AND TempProvVencimientos.FechaVto like '" +
         sesion_.Utiles().ConvertirFecha(Celda(fila, orden_.Fecha), 2, "D", "R") +
         "' And TempProvVencimientos.Año like '" + Celda(fila, columna::Anio) + "'";
}

bool Escritura::EscribirFila(Recordset& vencimiento, int fila) {
  if (YaLoTiene(vencimiento, fila)) return true;
  const std::string& pagado = Celda(fila, columna::Pagado);
  Asignar(vencimiento, pagado);
  const services::Valor importe = vencimiento.Collect("Importe");
  if (!importe.EsNulo() && importe.Numero() < rejilla_.ImporteDe(fila, columna::Pagado)) {
    return Rechazar("El Importe Pagado no puede ser mayor que el Importe del Recibo", "Atención");
  }
  return Actualizar(vencimiento);
}

void Escritura::Asignar(Recordset& vencimiento, const std::string& pagado) {
  if (!mismasFilas_) {
    // With no snapshot to compare with, every row is dated, also an unpaid one.
    vencimiento.Collect("Fechapago") = hoy_;
    vencimiento.Collect("Pagado") = pagado;
    return;
  }
  vencimiento.Collect("Pagado") = pagado;
  // An amount that was emptied is no number: its error goes to the user before anything is stored.
  vencimiento.Collect("Fechapago") = services::Numero(pagado) > 0 ? hoy_ : std::string();
}

bool Escritura::Actualizar(Recordset& vencimiento) {
  try {
    vencimiento.Update();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    const bool noCabe = fallo.Numero() == services::error::RepetidoONoCabe;
    vencimiento.CancelUpdate();
    if (noCabe) return Rechazar("Error al grabar Línea", "Error");
    return Rechazar("Nº Error:" + std::to_string(fallo.Numero()) + "\n" + fallo.Descripcion(), "");
  }
}

}  // namespace

bool EscribirPagados(services::Sesion& sesion, const RejillaPagos& rejilla, const Orden& orden) {
  return Escritura(sesion, rejilla, orden).Hacer();
}

}  // namespace list
