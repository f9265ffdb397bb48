#include <algorithm>

#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "guion/salida.h"
#include "largo/usuario.h"

// What the user sets out to do.

namespace largo {

using services::Form;
using services::Widget;

void Usuario::Planear() {
  const Form* form = AlFrente();
  if (!form) {
    Di("cargar");
    return;
  }
  if (form->Nombre() != kPrincipal) {
    if (azar_.DeCada100(35)) Di("barra " + form->Nombre());
    Di(Cualquiera());
    return;
  }
  const Widget* panel = form->Buscar("PicNuevo");
  if (panel && panel->Visible && azar_.DeCada100(70)) return Aceptar();
  switch (azar_.Entre(0, 19)) {
    case 0:
    case 1:
    case 2:
      return PlanearAlta();
    case 3:
    case 4:
      return PlanearModificacion();
    case 5:
    case 6:
    case 7:
      return PlanearPago();
    case 8:
      Di(EnFila("celda", 1));
      return Di("pulsar BotonBorrar");
    case 9:
      return PlanearRango();
    case 10:
      return Di("pulsar " + Uno({"OptConcepto", "OptFecha", "ChkPagados", "ChkPrevisiones"}));
    case 11:
    case 12:
    case 13:
      return Di("pulsar BotonAceptar");
    case 14:
      return PlanearCaja();
    case 15:
      return PlanearAutomaticas();
    case 16:
      return PlanearInforme();
    case 17:
      return Di("datos " + DeOtro());
    case 18:
      Di(Uno({"pulsar BotonCancelar", "ocultar", "cerrar", "barra FrmTesvaraGastos"}));
      return Di("cargar");
    default:
      return Di("fallo " + Uno({"datos", "local"}) + " " + std::to_string(azar_.Entre(1, 120)) +
                Uno({"", "", " 0x80040E21", " 0x80040E14", " 0x80040E38"}));
  }
}

void Usuario::Teclear(const std::string& widget, const std::string& texto) {
  Di("teclear " + widget + " " + guion::Entrecomillar(texto));
}

void Usuario::Aceptar() {
  Di(azar_.DeCada100(75) ? "pulsar BtnAceptar" : Uno({"pulsar BtnCancelar", "tecla Escape"}));
}

void Usuario::PlanearAlta() {
  Di("pulsar BotonNuevo");
  Teclear("TxtConcepto", Concepto());
  Teclear("TxtFFra", Fecha());
  Teclear("TxtNFra", Numero());
  Teclear("TxtIFra", Importe());
  Di("foco TxtNFra");
  if (azar_.DeCada100(40)) {
    Di("pulsar " + Uno({"Chk7", "Chk4", "Chk0"}));
    Teclear(Uno({"TxtB7", "TxtB4", "TxtB0"}), Uno({"1", "10", "25,5", "3,33"}));
    Di("foco TxtIFra");
    Di("foco TxtNFra");
  }
  if (azar_.DeCada100(15)) {
    Di("pulsar Chk15");
    Teclear("TxtBIRPF", Importe());
  }
  if (azar_.DeCada100(50)) Plazos();
  if (azar_.DeCada100(25)) Prevision();
  if (azar_.DeCada100(10)) {
    Di("concepto " + Uno({"12", "31", "cancelar"}));
    Di("pulsar CmdCon");
  }
  if (azar_.DeCada100(25)) {
    Di(Uno({"celda", "doble"}) + " MSFVencimientos 1 " + std::to_string(azar_.Entre(0, 3)));
    Teclear("TxtMsf2", azar_.DeCada100(50) ? Importe() : Fecha());
    Di("tecla Intro");
  }
  Aceptar();
}

void Usuario::Plazos() {
  Di("pulsar " + Uno({"OptAplazado", "OptAplazado", "OptVista"}));
  Teclear("TxtNRecibos", Uno({"1", "2", "3", "5", "12", "0", ""}));
  Di("tecla Intro");
  Teclear("TxtDias", Uno({"0", "1", "10", "30", "400"}));
  Di("tecla Intro");
  Teclear("TxtCadencia", Uno({"0", "1", "7", "30"}));
  Di("tecla Intro");
}

void Usuario::Prevision() {
  Di("pulsar OptGenerar");
  Teclear("TxtIPrev", Importe());
  Teclear("TxtCada", Uno({"1", "2", "15", "0"}));
  Di("elegir CboPlazo " + guion::Entrecomillar(Uno({"Días", "Meses", "Años"})));
  if (azar_.DeCada100(50)) Teclear("TxtDesde", Fecha());
  Di("foco TxtNFra");
}

void Usuario::PlanearModificacion() {
  Di(EnFila("celda", 1));
  Di("pulsar BotonModificar");
  switch (azar_.Entre(0, 6)) {
    case 0:
      Plazos();
      break;
    case 1:
      Teclear("TxtIFra", Importe());
      Di("foco TxtNFra");
      break;
    case 2:
      Teclear("TxtNFra", Numero());
      Teclear("TxtFFra", Fecha());
      Teclear("TxtIFra", Importe());
      Di("foco TxtNFra");
      break;
    case 3:
      Di("celda MSFVencimientos " + std::to_string(azar_.Entre(1, 3)) + " 3");
      break;
    case 4:
      Prevision();
      break;
    case 5:
      Di("pulsar OptGenerar");
      break;
    default:
      PlanearCaja();
  }
  Aceptar();
}

void Usuario::PlanearPago() {
  if (azar_.DeCada100(60)) return Di(EnFila("celda", 5));
  const std::string celda = FilaDeLista() + " 4";
  Di("celda MSFPagos " + celda);
  Di("doble MSFPagos " + celda);
  Teclear("TxtMsf", azar_.DeCada100(70) ? Uno({"1", "2,5", "10", "20,50", "0"}) : Importe());
  Di(Uno({"tecla Intro", "tecla Escape", "tecla Abajo", "foco TxtFPrevision"}));
}

void Usuario::PlanearRango() {
  if (azar_.DeCada100(30)) {
    Teclear(Uno({"TxtFPrevision", "TxtFPrevisionD"}), Fecha());
  } else {
    Teclear("TxtFPrevisionD", Uno({"01/03/2005", "15/02/2005", "01/01/2005", "10/03/2005"}));
    Teclear("TxtFPrevision", Uno({"31/03/2005", "30/04/2005", "15/03/2005", "31/12/2005"}));
  }
  Di("foco MSFPagos");
}

void Usuario::PlanearCaja() {
  if (azar_.DeCada100(60)) {
    Di("pulsar BotonNuevo");
    Teclear("TxtConcepto", Uno({"12", "31"}));
    Di("foco TxtNFra");
  }
  Di("pulsar BotonCaja");
  for (int veces = azar_.Entre(0, 3); veces > 0; --veces) {
    Di("pulsar FrmPagosCaja.LblSeleccion(" + std::to_string(azar_.Entre(0, 3)) + ")");
  }
  Di("pulsar FrmPagosCaja." + Uno({"BtnFacturar", "BtnAceptar"}));
  Di("barra FrmPagosCaja");
  Teclear("TxtNFra", Numero());
  Aceptar();
}

void Usuario::PlanearAutomaticas() {
  const std::string en = "FrmFraAutomaticas.";
  Di("pulsar BtnAutCaja");
  if (azar_.DeCada100(50)) {
    Di("pulsar " + en + "OptConcepto");
    Teclear(en + "TxtConcepto", Concepto());
  }
  if (azar_.DeCada100(40)) {
    Di("pulsar " + en + "lblFecha");
    Teclear(en + "CbxFDesde", Fecha());
    Teclear(en + "CbxFHasta", Fecha());
  }
  if (azar_.DeCada100(50)) Teclear(en + "TxtFFra", Fecha());
  Teclear(en + "TxtNFra", Numero());
  if (azar_.DeCada100(50)) Di("elegir " + en + "CboIVA " + Uno({"16%", "7%", "4%"}));
  Di("pulsar " + en + "BtnAceptar");
  Di("barra FrmFraAutomaticas");
}

void Usuario::PlanearInforme() {
  const std::string en = "frmBuscoImpresora.";
  if (azar_.DeCada100(10)) Di("impresora \"Láser\"");
  Di("pulsar ImgImpresora");
  Di("pulsar " + en + Uno({"ImgDer", "ImgIzq", "Img(0)", "LblImpre(0)", "Img(1)"}));
  Di("pulsar " + en + Uno({"Boton1", "Boton1", "Boton1", "Boton2"}));
  Di("elegir frmListados.CbxPor " +
     guion::Entrecomillar(Uno({"50 %", "100 %", "Encajar en Pantalla"})));
  Di("valor frmListados.Scroll " + std::to_string(azar_.Entre(0, 20)));
  Di("barra frmListados");
  Di("barra frmBuscoImpresora");
}

std::string Usuario::DeOtro() {
  const std::string hora = std::to_string(azar_.Entre(10, 23)) + ":" +
                           std::to_string(azar_.Entre(10, 59)) + ":" +
                           std::to_string(azar_.Entre(10, 59));
  if (azar_.DeCada100(50)) {
    return "INSERT OR IGNORE INTO CajaPagos VALUES('" + Uno({"1", "2"}) + "', '2005-03-" +
           std::to_string(azar_.Entre(10, 28)) + " " + hora + "', " + Uno({"12", "31"}) + ", " +
           std::to_string(azar_.Entre(1, 90)) + ".25, 'sobres', NULL, NULL, 'EVA', 'x', 'y')";
  }
  return "UPDATE ProvFacturas SET Dias1Vto = Dias1Vto + 1, ModificadoPor = 'EVA' WHERE Factura = "
         "'F" +
         std::to_string(azar_.Entre(1, 12)) + "'";
}

std::string Usuario::FilaDeLista() {
  auto* form = entorno_.Buscar(kPrincipal);
  auto* rejilla = form ? dynamic_cast<services::MSFlexGrid*>(form->Buscar("MSFPagos")) : nullptr;
  if (!rejilla || rejilla->Rows < 2) return "1";
  int ocupadas = 1;
  while (ocupadas < rejilla->Rows && !rejilla->TextMatrix(ocupadas, 3).empty()) ++ocupadas;
  return std::to_string(azar_.Entre(1, std::max(1, ocupadas - 1)));
}

std::string Usuario::EnFila(const char* orden, int columna) {
  return std::string(orden) + " MSFPagos " + FilaDeLista() + " " + std::to_string(columna);
}

}  // namespace largo
