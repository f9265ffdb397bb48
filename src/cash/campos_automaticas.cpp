#include "cash/campos_automaticas.h"

#include <array>

#include "services/largos.h"

namespace cash {

using services::Diseno;
namespace largo = services::largo;

namespace {

/// The rates in the order of the list, exempt first.
constexpr std::array<const entry::TipoIva*, 4> kTipos{nullptr, &entry::kIva16, &entry::kIva7,
                                                      &entry::kIva4};

constexpr Diseno Rotulo(int izquierda, int arriba, int ancho = 1200) {
  return {izquierda, arriba + 40, ancho, 240};
}

constexpr Diseno Campo(int izquierda, int arriba, int ancho, int orden) {
  return Diseno{izquierda, arriba, ancho, 300}.Tab(orden).Cuerpo(10);
}

}  // namespace

CamposAutomaticas::CamposAutomaticas(services::Form& pantalla)
    : LblFacturar(pantalla, "LblFacturar", "Facturar:", Rotulo(240, 600)),
      OptTodo(pantalla, "OptTodo", "Todo", Campo(1500, 600, 1200, 0)),
      OptConcepto(pantalla, "OptConcepto", "Concepto", Campo(2880, 600, 1500, 1)),
      LblNombre(pantalla, "LblNombre", " Concepto: ", Rotulo(240, 1080)),
      TxtConcepto(pantalla, "TxtConcepto", Campo(1500, 1080, 4800, 2)),
      CmdCon(pantalla, "CmdCon", "...", Campo(6360, 1080, 420, 3)),
      TxtNConcepto(pantalla, "TxtNConcepto", Diseno{6840, 1080, 300, 300}.Oculto()),
      TxtBusco(pantalla, "TxtBusco", Diseno{6840, 1440, 300, 300}.Oculto()),
      DivFecha(pantalla, "DivFecha", Diseno{240, 1620, 6540, 900}),
      LblFecha2(pantalla, "LblFecha2", "Fechas ", Rotulo(600, 1620)),
      Lbl(pantalla, "Lbl", "Hasta:", Rotulo(3840, 1980, 900)),
      CbxFDesde(pantalla, "CbxFDesde", Campo(1500, 1980, 1300, 5)),
      CbxFHasta(pantalla, "CbxFHasta", Campo(4800, 1980, 1300, 6)),
      lblFecha(pantalla, "lblFecha", "", Diseno{240, 1620, 6540, 900}.Tab(4).ConTeclado()),
      LblDatos(pantalla, "LblDatos", "Datos Factura:", Rotulo(240, 2760, 1500)),
      TxtFFra(pantalla, "TxtFFra", Campo(1500, 3120, 1300, 7)),
      TxtNFra(pantalla, "TxtNFra", Campo(4800, 3120, 1900, 8)),
      CboIVA(pantalla, "CboIVA", {"Exento", "16%", "7%", "4%"}, Campo(1500, 3600, 1300, 9)),
      BtnAceptar(pantalla, "BtnAceptar", "Generar", Diseno{3480, 4560, 1560, 480}.Tab(10)),
      BtnCancelar(pantalla, "BtnCancelar", "Cancelar", Diseno{5220, 4560, 1560, 480}.Tab(11)),
      PicTexto(pantalla, "PicTexto", Diseno{900, 1800, 5400, 1500}.Oculto()),
      LblTitulo(PicTexto, "LblTitulo", "Buscando Importes  ....", {300, 240, 4800, 285}),
      ProgressBar(PicTexto, "ProgressBar", {300, 720, 4800, 360}) {
  Lbl.Anadir(pantalla, "Lbl", "Fecha Fra.:", Rotulo(240, 3120));
  Lbl.Anadir(pantalla, "Lbl", "Nº Factura:", Rotulo(3540, 3120));
  Lbl.Anadir(pantalla, "Lbl", "Tipo Iva:", Rotulo(240, 3600));
  Lbl.Anadir(pantalla, "Lbl", "Desde:", Rotulo(600, 1980, 800));
  DivFecha.Anadir(pantalla, "DivFecha", Diseno{360, 1680, 180, 180}.Oculto());
  TxtConcepto.MaxLength = largo::Concepto;
  TxtNFra.MaxLength = largo::Factura;
  for (services::TextBox* fecha : {&CbxFDesde, &CbxFHasta, &TxtFFra}) {
    fecha->MaxLength = largo::Fecha;
  }
  BtnCancelar.TomaFoco = false;
  BtnCancelar.Cancela = true;
}

const entry::TipoIva* CamposAutomaticas::Tipo() const {
  return kTipos.at(static_cast<std::size_t>(CboIVA.ListIndex()));
}

}  // namespace cash
