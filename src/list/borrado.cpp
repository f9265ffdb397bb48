#include "list/borrado.h"

#include "datos/recordset.h"

namespace list {
namespace {

using services::ModoApertura;
using services::Recordset;
namespace mensaje = services::mensaje;

}  // namespace

Borrado::Borrado(services::PictureBox& panel, const services::Diseno& diseno,
                 services::Sesion& sesion, RejillaPagos& rejilla, EdicionPagado& edicion,
                 ListaPagos& lista, const services::Widget& PicNuevo)
    : BotonBorrar(panel, "BotonBorrar", "Borrar", diseno),
      sesion_(sesion),
      rejilla_(rejilla),
      edicion_(edicion),
      lista_(lista),
      PicNuevo_(PicNuevo) {
  BotonBorrar.Click = [this] { BotonBorrar_Click(); };
}

Linea Borrado::LineaActual() const {
  return rejilla_.LineaDe(rejilla_.MSFPagos.Row);
}

void Borrado::Ejecutar(const std::string& sentencia) {
  Recordset rs;
  rs.Open(sentencia, sesion_.CnTemp(), ModoApertura::Optimista);
}

void Borrado::BotonBorrar_Click() {
  if (PicNuevo_.Visible) return;
  edicion_.CerrarEdicionPago();
  if (!HayLinea()) return;
  rejilla_.EsPagable(rejilla_.MSFPagos.Row) ? BorrarDeFactura() : BorrarDePrevision();
}

/// After a list that couldn't be built only the header is left.
bool Borrado::HayLinea() const {
  const int fila = rejilla_.MSFPagos.Row;
  return fila != 0 && !rejilla_.MSFPagos.TextMatrix(fila, 0).empty();
}

void Borrado::BorrarDeFactura() {
  const int respuesta = sesion_.Aviso().Mostrar(
      "Pulsar 'Si' para borrar la Factura\nPulsar 'No' para borrar solo la línea Marcada",
      mensaje::SiNoCancelar, "Atención");
  const Linea linea = LineaActual();
  if (respuesta == mensaje::Si) {
    BorrarFactura(linea);
    lista_.CargarGrip();
  } else if (respuesta == mensaje::No) {
    BorrarVencimiento(linea);
    rejilla_.QuitarFila(rejilla_.MSFPagos.Row);
  }
}

void Borrado::BorrarVencimiento(const Linea& linea) {
  const bool porFecha = rejilla_.OrdenActual() == PorFecha;
  Ejecutar(
      "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "Trim(TempProvVencimientos.NFactura) like '" +
      linea.NFactura + "'And TempProvVencimientos.NConcepto like '" + linea.NConcepto +
      "' And TempProvVencimientos.FechaVto like '" + sesion_.Utiles().Almacenada(linea.FechaVto) +
      (porFecha ? "'And TempProvVencimientos.Año like '" : "'and TempProvVencimientos.Año like '") +
      linea.Anio + (porFecha ? "'" : "' "));

  Recordset quedan;
  quedan.Open(
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "Trim(TempProvVencimientos.NFactura) like '" +
          linea.NFactura + "'And TempProvVencimientos.NConcepto like '" + linea.NConcepto +
          "' And TempProvVencimientos.Año like '" + linea.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  if (!quedan.Eof()) return;
  // The invoice goes with its last due date. The cash table has no column of this name: the click
  // ends here with the database's error, after the invoice and its bases have gone. Users know it
  // so, and delete the invoice whole instead.
  BorrarCabecera(linea);
  SoltarCaja(linea, "Fatura");
}

void Borrado::BorrarFactura(const Linea& linea) {
  Ejecutar(
      "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "Trim(TempProvVencimientos.NFactura) like '" +
      linea.NFactura + "'And TempProvVencimientos.NConcepto like '" + linea.NConcepto +
      "' and TempProvVencimientos.Año like '" + linea.Anio + "'");
  BorrarCabecera(linea);
  SoltarCaja(linea, "Factura");
}

void Borrado::BorrarCabecera(const Linea& linea) {
  Ejecutar(
      "DELETE TempProvFacturas.* FROM TempProvFacturas WHERE "
      "RTRIM(LTRIM(TempProvFacturas.Factura)) like '" +
      linea.NFactura + "'And TempProvFacturas.NConcepto like '" + linea.NConcepto +
      "' and TempProvFacturas.Año like '" + linea.Anio + "'");
  Ejecutar(
      "DELETE TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
      "'" +
      linea.NFactura + "'And TempProvBasesIva.NConcepto like '" + linea.NConcepto +
      "' and TempProvBasesIva.Año like '" + linea.Anio + "'");
}

void Borrado::SoltarCaja(const Linea& linea, const char* columnaFactura) {
  Recordset apuntes;
  apuntes.Open(std::string("SELECT TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos "
                           "WHERE Trim(TempCajaPagos.") +
                   columnaFactura + ") like '" + linea.NFactura + "' AND TempCajaPagos.Tipo like " +
                   linea.NConcepto + " AND TempCajaPagos.Año like '" + linea.Anio + "'",
               sesion_.CnTemp(), ModoApertura::Optimista);
  for (; !apuntes.Eof(); apuntes.MoveNext()) {
    apuntes.Collect("Factura") = "";
    apuntes.Collect("Año") = "";
    apuntes.Update();
  }
}

void Borrado::BorrarDePrevision() {
  const int respuesta = sesion_.Aviso().Mostrar(
      "Pulsar 'Si' para borrar toda la Previsión correspondiente al Concepto\nPulsar 'No' para "
      "borrar solo la línea Marcada",
      mensaje::SiNoCancelar, "Atención");
  if (respuesta == mensaje::Si) {
    BorrarPrevision();
    lista_.CargarGrip();
  } else if (respuesta == mensaje::No) {
    AnotarOcurrencia(LineaActual());
    rejilla_.QuitarFila(rejilla_.MSFPagos.Row);
  }
}

void Borrado::BorrarPrevision() {
  const std::string concepto = LineaActual().NConcepto;
  Ejecutar(
      "DELETE TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
      "TempProvPrevisionPagos.NConcepto like '" +
      concepto + "'");
  Ejecutar(
      "DELETE TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like '" +
      concepto + "'");
}

void Borrado::AnotarOcurrencia(const Linea& linea) {
  Recordset borradas;
  borradas.Open("SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar", sesion_.CnTemp(),
                ModoApertura::Optimista);
  borradas.AddNew();
  borradas.Collect("FechaVto") = sesion_.Utiles().Almacenada(linea.FechaVto);
  borradas.Collect("NConcepto") = linea.NConcepto;
  borradas.Collect("Importe") = rejilla_.ReciboDe(rejilla_.MSFPagos.Row).Importe;
  borradas.Update();
}

}  // namespace list
