#include "store/grabacion.h"

#include "datos/recordset.h"
#include "store/copia.h"
#include "store/tablas.h"
#include "store/tramo.h"
#include "store/vaciado.h"
#include "valores/texto.h"

namespace store {
namespace {

using services::ModoApertura;
using services::Omision;
using services::Recordset;
using Falta = Tramo::Falta;

/// One commit of a range, step by step.
class Grabacion {
 public:
  Grabacion(services::Sesion& sesion, const Intervalo& rango)
      : sesion_(sesion), rango_(rango), tramo_(sesion, Omision::Tarea::Grabacion) {}

  void BorrarRango();
  void EscribirFacturas();
  void EscribirPrevisiones();
  void EnlazarCaja();
  void Vaciar() {
    tramo_.EnTabla("");
    tramo_.Paso(Falta::Nada, [this] { VaciarTemporales(sesion_.CnTemp()); });
  }

 private:
  void Borrar(const std::string& sentencia);
  void Escribir(const char* tabla, const std::string& almacenada, const std::string& trabajo,
                std::size_t ultima, const Remate& sellar);
  void AnticiparAlmacenados(Recordset& apuntes);
  void EnlazarApunte(Recordset& apunte);
  void Sellar(Recordset& destino);

  services::Sesion& sesion_;
  const Intervalo& rango_;
  Tramo tramo_;
};

void Grabacion::Borrar(const std::string& sentencia) {
  tramo_.Paso(Falta::Borrado, [&] {
    Recordset rs;
    rs.Open(sentencia, sesion_.CnDatos(), ModoApertura::Optimista);
  });
  tramo_.Paso(Falta::Nada, [&] { sesion_.AnotarBorrado(sentencia); });
}

void Grabacion::BorrarRango() {
  Recordset facturas;
  facturas.Open(
      "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
      "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '" +
          rango_.Desde + "' And ProvVencimientos.FechaVto <= '" + rango_.Hasta +
          "' Order By ProvFacturas.Fecha",
      sesion_.CnDatos(), ModoApertura::Lectura);
  services::BorradosJuntos juntos(sesion_.CnDatos());
  for (; !facturas.Eof(); facturas.MoveNext()) {
    const std::string factura(services::Trim(facturas.Collect("Factura").Texto()));
    const std::string concepto = facturas.Collect("NConcepto").Texto();
    const std::string anio = facturas.Collect("Año").Texto();
    Borrar("DELETE From ProvBasesIva WHERE ProvBasesIva.NConcepto like '" + concepto +
           "' and ProvBasesIva.Año like '" + anio +
           "' and RTRIM(LTRIM(ProvBasesIva.NFactura)) like '" + factura + "'");
    Borrar("DELETE From ProvVencimientos WHERE ProvVencimientos.NConcepto like '" + concepto +
           "' and ProvVencimientos.Año like '" + anio +
           "' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like '" + factura + "'");
    Borrar("DELETE FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like '" + factura +
           "' AND ProvFacturas.NConcepto like '" + concepto + "' And ProvFacturas.Año like '" +
           anio + "'");
  }
  juntos.Terminar();
}

void Grabacion::Sellar(Recordset& destino) {
  destino.Collect("Actualizado") = sesion_.Utiles().FechaActualizado(sesion_.Ahora());
  destino.Collect("ModificadoPor") = sesion_.Usuario();
}

void Grabacion::Escribir(const char* tabla, const std::string& almacenada,
                         const std::string& trabajo, std::size_t ultima, const Remate& sellar) {
  Recordset destino;
  Recordset origen;
  tramo_.EnTabla(tabla);
  tramo_.Paso(Falta::Tabla,
              [&] { destino.Open(almacenada, sesion_.CnDatos(), ModoApertura::Optimista); });
  tramo_.Paso(Falta::Tabla, [&] { origen.Open(trabajo, sesion_.CnTemp(), ModoApertura::Lectura); });
  CopiarFilas(origen, destino, tramo_, {ultima, nullptr, sellar});
}

void Grabacion::EscribirFacturas() {
  const Remate sellar = [this](Recordset&, Recordset& destino) { Sellar(destino); };
  Escribir("ProvFacturas", "SELECT ProvFacturas.* FROM ProvFacturas",
           "SELECT TempProvFacturas.* FROM TempProvFacturas", tabla::ProvFacturas::Cadencia,
           sellar);
  Escribir("ProvBasesIva", "SELECT ProvBasesIva.* FROM ProvBasesIva",
           "SELECT TempProvBasesIva.* From TempProvBasesIva", tabla::ProvBasesIva::Exento, sellar);
  Escribir("ProvVencimientos", "SELECT ProvVencimientos.* FROM ProvVencimientos",
           "SELECT TempProvVencimientos.* From TempProvVencimientos",
           tabla::ProvVencimientos::Fechapago, sellar);
}

void Grabacion::EscribirPrevisiones() {
  tramo_.EnTabla("ProvPrevisionPagos");
  Borrar("DELETE FROM ProvPrevisionPagos WHERE ProvPrevisionPagos.Fecha1Vto <= '" + rango_.Hasta +
         "'");
  // The statement leaves `ModificadoPor` out, so that a forecast never gets it; its assignment
  // fails and is passed over whether or not a row was written before.
  const Remate sellar = [this](Recordset&, Recordset& destino) {
    Tramo sinColumna(sesion_, Omision::Tarea::Grabacion);
    sinColumna.EnTabla("ProvPrevisionPagos");
    sinColumna.Activar();
    sinColumna.Paso(Falta::Nada, [&] { Sellar(destino); });
  };
  Escribir("ProvPrevisionPagos",
           "SELECT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, "
           "ProvPrevisionPagos.Cada, ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe, "
           "ProvPrevisionPagos.Actualizado FROM ProvPrevisionPagos",
           "SELECT TempProvPrevisionPagos.* From TempProvPrevisionPagos",
           tabla::TempProvPrevisionPagos::Importe, sellar);
}

void Grabacion::EnlazarCaja() {
  Recordset apuntes;
  tramo_.EnTabla("CajaPagos");
  tramo_.Paso(Falta::Tabla, [&] {
    apuntes.Open("SELECT TempCajaPagos.* From TempCajaPagos", sesion_.CnTemp(),
                 ModoApertura::Lectura);
  });
  if (apuntes.State()) AnticiparAlmacenados(apuntes);
  tramo_.ConFila(&apuntes);
  while (apuntes.State() && !apuntes.Eof()) {
    EnlazarApunte(apuntes);
    apuntes.MoveNext();
  }
  tramo_.ConFila(nullptr);
}

std::string Almacenado(Recordset& apunte) {
  return "SELECT CajaPagos.* FROM CajaPagos WHERE CajaPagos.idSucursal like '" +
         apunte.Collect("idSucursal").Texto() + "' And CajaPagos.FechaHora like '" +
         apunte.Collect("FechaHora").Texto() + "' And CajaPagos.Tipo like " +
         apunte.Collect("Tipo").Texto();
}

void Grabacion::AnticiparAlmacenados(Recordset& apuntes) {
  sesion_.CnDatos().Anticipar([&] { return SentenciasDe(apuntes, Almacenado); },
                              ModoApertura::Optimista);
}

void Grabacion::EnlazarApunte(Recordset& apunte) {
  Recordset almacenado;
  tramo_.Paso(Falta::Fila, [&] {
    almacenado.Open(Almacenado(apunte), sesion_.CnDatos(), ModoApertura::Optimista);
  });
  bool encontrado = false;
  tramo_.Paso(Falta::Fila, [&] { encontrado = almacenado.State() && !almacenado.Eof(); });
  if (!encontrado) return;
  tramo_.Paso(Falta::Valor, [&] {
    // Joined to an empty text: an entry without invoice is written as "", not as Null.
    almacenado.Collect("Factura") = apunte.Collect("Factura").Texto();
    almacenado.Collect("Año") = apunte.Collect("Año").Texto();
    Sellar(almacenado);
  });
  tramo_.Activar();
  if (tramo_.Paso(Falta::Fila, [&] { almacenado.Update(); })) return;
  tramo_.Paso(Falta::Nada, [&] { almacenado.CancelUpdate(); });
}

}  // namespace

void GrabarTemporales(services::Sesion& sesion, const Intervalo& rango,
                      const std::function<void()>& alQuedarGrabado) {
  Grabacion grabacion(sesion, rango);
  grabacion.BorrarRango();
  grabacion.EscribirFacturas();
  grabacion.EscribirPrevisiones();
  grabacion.EnlazarCaja();
  // The working side first: both then say the same, and a process killed before the working tables
  // are empty leaves nothing there that seems not to have been saved.
  sesion.CnTemp().TerminarUnidad();
  sesion.CnDatos().TerminarUnidad();
  alQuedarGrabado();
  grabacion.Vaciar();
}

}  // namespace store
