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
  Escritura(services::Sesion& sesion, RejillaPagos& rejilla)
      : sesion_(sesion),
        rejilla_(rejilla),
        hoy_(sesion.Utiles().Almacenada(services::TextoDeFecha(sesion.Ahora()))),
        mismasFilas_(rejilla.MsfPagos2.Rows == rejilla.MSFPagos.Rows),
        copiaAlDia_(rejilla.CopiaAlDia) {}

  [[nodiscard]] bool Hacer();

 private:
  [[nodiscard]] bool HaCambiado(int fila) const;
  [[nodiscard]] bool SirveLaCopia(int fila) const;
  [[nodiscard]] bool YaLoTiene(Recordset& vencimiento, int fila) const;
  [[nodiscard]] std::string Sentencia(int fila) const;
  [[nodiscard]] bool EscribirFila(Recordset& vencimiento, int fila);
  void Asignar(Recordset& vencimiento, const std::string& pagado);
  [[nodiscard]] bool Actualizar(Recordset& vencimiento);
  [[nodiscard]] const std::string& Celda(int fila, int columna) const {
    return rejilla_.MSFPagos.TextMatrix(fila, columna);
  }

  services::Sesion& sesion_;
  RejillaPagos& rejilla_;
  const std::string hoy_;
  const bool mismasFilas_;
  const bool copiaAlDia_;
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
/// own due date is looked at, a row that the snapshot doesn't speak for.
bool Escritura::HaCambiado(int fila) const {
  return !mismasFilas_ || !SirveLaCopia(fila) ||
         Celda(fila, columna::Pagado) != rejilla_.MsfPagos2.TextMatrix(fila, columna::Pagado);
}

/// The snapshot has another line there after a change of order; and after amounts that were written
/// and then not saved it no longer tells what the due dates hold.
bool Escritura::SirveLaCopia(int fila) const {
  return copiaAlDia_ && rejilla_.EsLaMismaLinea(fila);
}

bool Escritura::YaLoTiene(Recordset& vencimiento, int fila) const {
  return mismasFilas_ && !SirveLaCopia(fila) &&
         services::Mascara(vencimiento.Collect("Pagado")) == Celda(fila, columna::Pagado);
}

std::string Escritura::Sentencia(int fila) const {
  const Linea linea = rejilla_.LineaDe(fila);
  return "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
         "TempProvVencimientos.NConcepto like '" +
         linea.NConcepto + "' And Trim(TempProvVencimientos.NFactura) like '" +
         std::string(services::Trim(linea.NFactura)) +
         "' AND TempProvVencimientos.FechaVto like '" +
         sesion_.Utiles().Almacenada(linea.FechaVto) + "' And TempProvVencimientos.Año like '" +
         linea.Anio + "'";
}

bool Escritura::EscribirFila(Recordset& vencimiento, int fila) {
  if (YaLoTiene(vencimiento, fila)) return true;
  const std::string& pagado = Celda(fila, columna::Pagado);
  Asignar(vencimiento, pagado);
  const services::Valor importe = vencimiento.Collect("Importe");
  if (!importe.EsNulo() && importe.Numero() < rejilla_.ImporteDe(fila, columna::Pagado)) {
    sesion_.Aviso().Rechazar("El Importe Pagado no puede ser mayor que el Importe del Recibo");
    return false;
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
    rejilla_.CopiaAlDia = false;
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, "Error al grabar Línea");
    vencimiento.CancelUpdate();
    return false;
  }
}

}  // namespace

bool EscribirPagados(services::Sesion& sesion, RejillaPagos& rejilla) {
  return Escritura(sesion, rejilla).Hacer();
}

}  // namespace list
