#include "entry/campos.h"

#include "services/largos.h"

namespace entry {
namespace {

using services::Diseno;
using services::TextBox;
namespace largo = services::largo;

constexpr const char* kNueva = "Nueva Tesvara";
constexpr const char* kModificacion = "Modificar Tesvara";

constexpr int kAlto = 300;

/// A field, by its place in the panel's order of the Tab key.
constexpr Diseno Campo(int izquierda, int arriba, int ancho, int orden) {
  return Diseno{izquierda, arriba, ancho, kAlto}.Tab(100 + orden).Cuerpo(10);
}

constexpr Diseno Rotulo(int izquierda, int arriba, int ancho) {
  return Diseno{izquierda, arriba + 40, ancho, kAlto - 60};
}

/// A title that stands in the frame of its group.
constexpr Diseno Grupo(int izquierda, int arriba, int ancho) {
  return Diseno{izquierda, arriba, ancho, 240}.Negrita();
}

void Limitar(int largo, std::initializer_list<TextBox*> campos) {
  for (TextBox* campo : campos) campo->MaxLength = largo;
}

}  // namespace

Campos::Campos(services::Form& pantalla)
    : PicNuevo(pantalla, "PicNuevo", Diseno{0, 0, 11000, 7200}.Oculto()),
      Label1(PicNuevo, "Label1", kNueva, Diseno{240, 120, 10500, 360}.Cuerpo(12).Negrita()),
      LblNombre(PicNuevo, "LblNombre", " Concepto: ", Rotulo(240, 600, 1200)),
      TxtConcepto(PicNuevo, "TxtConcepto", Campo(1500, 600, 5400, 0)),
      CmdCon(PicNuevo, "CmdCon", "...", Campo(6960, 600, 420, 1)),
      TxtNConcepto(PicNuevo, "TxtNConcepto", Diseno{7500, 600, 600, kAlto}.Oculto()),
      TxtBusco(PicNuevo, "TxtBusco", Diseno{8160, 600, 600, kAlto}.Oculto()),
      Label2(PicNuevo, "Label2", "Fecha Fra:", Rotulo(240, 1020, 1200)),
      TxtFFra(PicNuevo, "TxtFFra", Campo(1500, 1020, 1300, 2)),
      Label3(PicNuevo, "Label3", "NºFra:", Rotulo(3000, 1020, 700)),
      TxtNFra(PicNuevo, "TxtNFra", Campo(3780, 1020, 2400, 3)),
      Label5(PicNuevo, "Label5", "Importe:", Rotulo(6480, 1020, 900)),
      TxtIFra(PicNuevo, "TxtIFra", Campo(7440, 1020, 1700, 4)),
      Label8(PicNuevo, "Label8", "  Importes de Iva  ", Grupo(360, 1500, 2400)),
      Label9(PicNuevo, "Label9", "Base", Rotulo(1740, 1740, 1600)),
      Label10(PicNuevo, "Label10", " Iva", Rotulo(3420, 1740, 1400)),
      Chk16(PicNuevo, "Chk16", "16%", Campo(480, 2040, 1200, 5)),
      TxtB16(PicNuevo, "TxtB16", Campo(1740, 2040, 1600, 6)),
      TxtI16(PicNuevo, "TxtI16", Campo(3420, 2040, 1400, 7)),
      Chk7(PicNuevo, "Chk7", "  7%", Campo(480, 2400, 1200, 8)),
      TxtB7(PicNuevo, "TxtB7", Campo(1740, 2400, 1600, 9).Inhabilitado()),
      TxtI7(PicNuevo, "TxtI7", Campo(3420, 2400, 1400, 10).Inhabilitado()),
      Chk4(PicNuevo, "Chk4", "  4%", Campo(480, 2760, 1200, 11)),
      TxtB4(PicNuevo, "TxtB4", Campo(1740, 2760, 1600, 12).Inhabilitado()),
      TxtI4(PicNuevo, "TxtI4", Campo(3420, 2760, 1400, 13).Inhabilitado()),
      Chk0(PicNuevo, "Chk0", "Exento de IVA:", Campo(480, 3120, 1200, 14)),
      TxtB0(PicNuevo, "TxtB0", Campo(1740, 3120, 1600, 15).Inhabilitado()),
      Label18(PicNuevo, "Label18", "  Importe de I.R.P.F:", Rotulo(720, 3540, 2400)),
      Chk15(PicNuevo, "Chk15", "I.R.P.F.", Campo(480, 3540, 240, 16)),
      LblTipo(PicNuevo, "LblTipo", "Tipo:", Rotulo(480, 3900, 480).Inhabilitado()),
      TxtTipoIRPF(PicNuevo, "TxtTipoIRPF", Campo(960, 3900, 720, 17).Inhabilitado()),
      TxtBIRPF(PicNuevo, "TxtBIRPF", Campo(1740, 3900, 1600, 18).Inhabilitado()),
      TxtIRPF(PicNuevo, "TxtIRPF", Campo(3420, 3900, 1400, 19).Inhabilitado()),
      Label11(PicNuevo, "Label11", "  Formas de Pago  ", Grupo(5280, 1500, 2400)),
      OptVista(PicNuevo, "OptVista", "A la Vista: ", Campo(5400, 1800, 1300, 20)),
      TxtFVista(PicNuevo, "TxtFVista", Campo(6780, 1800, 1300, 21)),
      OptAplazado(PicNuevo, "OptAplazado", "Aplazado:", Campo(5400, 2160, 1300, 22)),
      Label4(PicNuevo, "Label4", "NºRecibos:", Rotulo(6780, 2160, 1000)),
      TxtNRecibos(PicNuevo, "TxtNRecibos", Campo(7800, 2160, 560, 23)),
      Label6(PicNuevo, "Label6", "Días 1º Vto:", Rotulo(8520, 2160, 1100)),
      TxtDias(PicNuevo, "TxtDias", Campo(9660, 2160, 640, 24)),
      Label7(PicNuevo, "Label7", "Cadencia:", Rotulo(8520, 2520, 1100)),
      TxtCadencia(PicNuevo, "TxtCadencia", Campo(9660, 2520, 640, 25)),
      TxtDias1(PicNuevo, "TxtDias1", Diseno{10320, 2160, 300, kAlto}.Oculto()),
      TxtCadencia1(PicNuevo, "TxtCadencia1", Diseno{10320, 2520, 300, kAlto}.Oculto()),
      Label12(PicNuevo, "Label12", "   Vencimientos Pago Aplazado  ", Grupo(5280, 2880, 3600)),
      MSFVencimientos(PicNuevo, "MSFVencimientos", columna::Cuantas,
                      Diseno{5400, 3180, 5200, 1740}.Tab(126).Cuerpo(10)),
      MsfVencimientos2(PicNuevo, "MsfVencimientos2", columna::Cuantas,
                       Diseno{5400, 3180, 5200, 600}.Oculto()),
      TxtMsf2(PicNuevo, "TxtMsf2", Diseno{5400, 3180, 1600, kAlto}.Cuerpo(10).Oculto()),
      OptGenerar(PicNuevo, "OptGenerar", "Generar Previsión cada:", Campo(480, 5160, 2500, 27)),
      TxtCada(PicNuevo, "TxtCada", Campo(3060, 5160, 640, 28).Inhabilitado()),
      CboPlazo(PicNuevo, "CboPlazo", {"Días", "Meses", "Años"},
               Campo(3780, 5160, 1300, 29).Inhabilitado()),
      Label13(PicNuevo, "Label13", "desde", Rotulo(5220, 5160, 600)),
      TxtDesde(PicNuevo, "TxtDesde", Campo(5880, 5160, 1300, 30).Inhabilitado()),
      Label15(PicNuevo, "Label15", "  Crear Previsión por un Importe de:", Rotulo(480, 5580, 3400)),
      TxtIPrev(PicNuevo, "TxtIPrev", Campo(3960, 5580, 1700, 31).Inhabilitado()),
      BotonCaja(PicNuevo, "BotonCaja", "De Caja", Diseno{240, 6480, 1560, 480}.Tab(132)),
      BtnAceptar(PicNuevo, "BtnAceptar", "Aceptar", Diseno{7500, 6480, 1560, 480}.Tab(133)),
      BtnCancelar(PicNuevo, "BtnCancelar", "Cancelar", {9200, 6480, 1560, 480}) {
  // A click on it doesn't take the focus, so that the field being left raises no complaint.
  BtnCancelar.TomaFoco = false;
  BtnCancelar.Cancela = true;
  Limitar(largo::Fecha, {&TxtFFra, &TxtFVista, &TxtDesde});
  Limitar(largo::Importe, {&TxtIFra, &TxtB16, &TxtI16, &TxtB7, &TxtI7, &TxtB4, &TxtI4, &TxtB0,
                           &TxtBIRPF, &TxtIRPF, &TxtIPrev, &TxtMsf2});
  Limitar(largo::Factura, {&TxtNFra});
  Limitar(largo::Concepto, {&TxtConcepto});
  Limitar(largo::Recibos, {&TxtNRecibos});
  Limitar(largo::Dias, {&TxtDias, &TxtCadencia, &TxtCada});
  Limitar(largo::Tanto, {&TxtTipoIRPF});
}

bool Campos::EsNueva() const {
  return Label1.Caption() == kNueva;
}

std::array<Tramo, 3> Campos::Tramos() {
  return {Tramo{kIva16, Chk16, TxtB16, TxtI16}, Tramo{kIva7, Chk7, TxtB7, TxtI7},
          Tramo{kIva4, Chk4, TxtB4, TxtI4}};
}

void Campos::TitularNueva() {
  Label1.Caption = kNueva;
}

void Campos::TitularModificacion() {
  Label1.Caption = kModificacion;
}

}  // namespace entry
