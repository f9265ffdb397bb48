#pragma once

#include <sstream>
#include <stdexcept>
#include <string>

#include "guion/bases.h"
#include "guion/ejecucion.h"
#include "guion/gramatica.h"
#include "guion/mundo.h"
#include "shell/class_tesvara.h"
#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"

// Scenarios played inside the test's own process, so that a failure at every one of some hundred
// driver calls can be tried in seconds.

namespace jornada {

/// A component with databases of its own, over which texts are played one after the other.
class Partida {
 public:
  explicit Partida(const guion::Opciones& opciones = {}) : ficheros_(opciones) {}

  struct Jugada {
    int Estado;
    std::string Salida;
    std::string Errores;
  };
  Jugada Jugar(const std::string& texto) {
    std::ostringstream salida;
    std::ostringstream errores;
    const int estado =
        guion::Ejecucion(mundo_, salida, errores).Correr(guion::Seguidas(guion::Analizar(texto)));
    return {estado, salida.str(), errores.str()};
  }

  /// The loaded main screen; throws when there is none.
  [[nodiscard]] shell::FrmTesvaraGastos& Pantalla() {
    services::Form* form = mundo_.Entorno().Buscar("FrmTesvaraGastos");
    if (!form) throw std::logic_error("la pantalla no está cargada");
    return dynamic_cast<shell::FrmTesvaraGastos&>(*form);
  }
  /// To be changed before what is asked of it is.
  [[nodiscard]] services::Plataforma& Plataforma() { return plataforma_; }
  [[nodiscard]] guion::Anfitrion& Anfitrion() { return mundo_.Anfitrion(); }

 private:
  guion::Ficheros ficheros_;
  guion::Bases bases_{ficheros_, 1};
  guion::Mundo mundo_{bases_.Datos(), bases_.Local(), [this] {
                        return services::Ref<services::IClassTesvara>(
                            services::Crear<shell::ClassTesvara>(datos_, pantallas_));
                      }};
  services::Plataforma plataforma_ = mundo_.Plataforma();
  shell::DatosComunes datos_{plataforma_};
  shell::Pantallas pantallas_{datos_};
};

/// A business of a few invoices in March 2005, forecasts and cash entries.
inline const std::string kEmpresa = R"(
reloj 2005-03-15 10:00:00
datos INSERT INTO ProvConceptos VALUES('12','Papelería Núñez'),('20','Alquiler'),('31','Ñandú, S.A.')
datos INSERT INTO ProvFacturas VALUES('12','F1','2005','20050301',116,'2',2,9,0,0,0,10,'x','y'),('12','F2','2005','20050302',232,'1',1,0,NULL,NULL,NULL,0,'x','y'),('31',' F3 ','2005','20050303',50,'1',1,0,50,15,7.5,0,'x','y'),('31','F4','2005','20050228',30,'2',3,0,0,0,0,30,'x','y')
datos INSERT INTO ProvBasesIva VALUES('12','F1','2005','1',100,16,0,'x','y'),('12','F2','2005','1',200,32,0,'x','y'),('31',' F3 ','2005','0',0,0,50,'x','y')
datos INSERT INTO ProvVencimientos VALUES('12','F1','2005','20050310',58,NULL,'','x','y'),('12','F1','2005','20050320',58,NULL,'','x','y'),('12','F2','2005','20050312',232,32,'20050305','x','y'),('31',' F3 ','2005','20050325',50,50,'20050310','x','y'),('31','F4','2005','20050228',10,10,'20050228','x','y'),('31','F4','2005','20050330',10,NULL,'','x','y'),('31','F4','2005','20050429',10,NULL,'','x','y')
datos INSERT INTO ProvPrevisionPagos VALUES('20','20050105',7,1,600,'x','y'),('12','20050401',1,2,10.5,'x','y')
datos INSERT INTO CajaPagos VALUES('1','2005-03-02 09:30:00',12,232,NULL,'F2','2005','EVA','x','y'),('1','2005-03-04 12:00:00',12,8.4,'sobres',NULL,NULL,'EVA','x','y'),('2','2005-03-05 17:45:10',31,20,NULL,'','','EVA','x','y')
)";

/// A day of work: payments in full and in part, one taken back, a line deleted, the order and the
/// filters changed, another range without and with saving, and the end.
inline const std::string kTrabajo = R"(
responder no no si si si si si si
cargar
celda MSFPagos 2 5
celda MSFPagos 5 4
doble MSFPagos 5 4
teclear TxtMsf "20,50"
tecla Intro
tecla Escape
celda MSFPagos 3 5
celda MSFPagos 3 5
celda MSFPagos 9 3
pulsar BotonBorrar
celda MSFPagos 4 3
pulsar BotonBorrar
pulsar BotonAceptar
pulsar OptConcepto
pulsar ChkPagados
pulsar ChkPagados
pulsar OptFecha
celda MSFPagos 3 5
teclear TxtFPrevision "30/04/2005"
foco MSFPagos
celda MSFPagos 1 3
pulsar BotonBorrar
pulsar BotonCancelar
celda MSFPagos 3 5
pulsar BotonAceptar
celda MSFPagos 3 5
ocultar
cargar
cerrar
)";

/// Number, total and two rates of an entry, accepted.
inline const std::string kDosTipos = R"(
teclear TxtNFra "N1"
teclear TxtIFra "223"
foco TxtNFra
pulsar Chk7
teclear TxtB7 "100"
foco TxtIFra
foco TxtNFra
pulsar BtnAceptar
)";

/// A day of entries: an invoice with two rates, its terms changed and one of its receipts paid, an
/// occurrence of a forecast made into an invoice, a forecast alone, an entry accepted as it was, a
/// forecast deleted, a payment saved with all of that, one entry given up, and the end.
inline const std::string kEntradas = R"(
responder si si si si si si si si
cargar
pulsar BotonNuevo
teclear TxtConcepto "31"
)" + kDosTipos + R"(
celda MSFPagos 4 1
pulsar BotonModificar
pulsar OptAplazado
teclear TxtNRecibos "3"
tecla Intro
teclear TxtDias "1"
tecla Intro
teclear TxtCadencia "5"
tecla Intro
celda MSFVencimientos 1 3
pulsar BtnAceptar
celda MSFPagos 1 1
pulsar BotonModificar
teclear TxtFFra "09/03/2005"
tecla Intro
teclear TxtNFra "A1"
tecla Intro
teclear TxtIFra "600"
tecla Intro
pulsar BtnAceptar
pulsar BotonNuevo
teclear TxtConcepto "31"
foco TxtFFra
pulsar OptGenerar
teclear TxtIPrev "40"
teclear TxtCada "1"
elegir CboPlazo "Meses"
foco TxtDesde
pulsar BtnAceptar
pulsar BtnCancelar
celda MSFPagos 3 1
pulsar BotonModificar
pulsar BtnAceptar
celda MSFPagos 2 1
pulsar BotonBorrar
celda MSFPagos 3 5
pulsar BotonAceptar
pulsar BotonNuevo
teclear TxtConcepto "12"
tecla Escape
cerrar
)";

/// A day at the till: an entry paid by marked cash entries, automatic invoices of one concept and
/// of all, a mark taken off again, and an invoice deleted, which lets go of what it was paid by.
inline const std::string kCaja = R"(
responder si si si si si si si si
cargar
pulsar BotonNuevo
teclear TxtConcepto "12"
foco TxtNFra
pulsar BotonCaja
pulsar FrmPagosCaja.LblSeleccion(0)
pulsar FrmPagosCaja.BtnFacturar
teclear TxtNFra "C1"
pulsar BtnAceptar
pulsar BtnAutCaja
pulsar FrmFraAutomaticas.OptConcepto
teclear FrmFraAutomaticas.TxtConcepto "31"
pulsar FrmFraAutomaticas.lblFecha
teclear FrmFraAutomaticas.CbxFDesde "01/03/2005"
teclear FrmFraAutomaticas.CbxFHasta "31/03/2005"
teclear FrmFraAutomaticas.TxtNFra "AUTO"
elegir FrmFraAutomaticas.CboIVA "16%"
pulsar FrmFraAutomaticas.BtnAceptar
pulsar BotonAceptar
celda MSFPagos 3 1
pulsar BotonModificar
pulsar BotonCaja
pulsar FrmPagosCaja.LblSeleccion(0)
pulsar FrmPagosCaja.BtnAceptar
pulsar BtnAceptar
pulsar BtnAutCaja
teclear FrmFraAutomaticas.TxtNFra "TODAS"
pulsar FrmFraAutomaticas.BtnAceptar
celda MSFPagos 5 1
pulsar BotonBorrar
pulsar BotonAceptar
cerrar
)";

/// An invoice entered and another one modified, which leave the lines before them where they are.
/// Neither asks or says anything.
inline const std::string kDosEntradas = R"(
pulsar BotonNuevo
teclear TxtConcepto "12"
teclear TxtFFra "31/03/2005"
)" + kDosTipos + R"(
celda MSFPagos 2 1
pulsar BotonModificar
pulsar Chk16
pulsar Chk0
pulsar BtnAceptar
)";

/// All stored tables as texts.
inline const std::string kTablas = R"(
consulta datos SELECT * FROM ProvFacturas ORDER BY NConcepto, Factura, Año
consulta datos SELECT * FROM ProvBasesIva ORDER BY NConcepto, NFactura, Año, Tipo
consulta datos SELECT * FROM ProvVencimientos ORDER BY NConcepto, NFactura, Año, FechaVto
consulta datos SELECT * FROM ProvPrevisionPagos ORDER BY NConcepto
consulta datos SELECT * FROM CajaPagos ORDER BY idSucursal, FechaHora, Tipo
)";

}  // namespace jornada
