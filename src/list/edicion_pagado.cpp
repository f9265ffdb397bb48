#include "list/edicion_pagado.h"

#include "forms/entrada.h"
#include "list/editor_en_celda.h"
#include "list/guarda.h"
#include "services/largos.h"
#include "valores/error.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace list {

namespace tecla = services::tecla;

EdicionPagado::EdicionPagado(services::PictureBox& panel, services::Sesion& sesion,
                             RejillaPagos& rejilla, const services::Widget& PicNuevo,
                             const services::Widget& BotonModificar)
    : TxtMsf(panel, "TxtMsf", services::Diseno{0, 0, 1600, 340}.Cuerpo(10).Negrita().Oculto()),
      sesion_(sesion),
      rejilla_(rejilla),
      MSFPagos_(rejilla.MSFPagos),
      PicNuevo_(PicNuevo),
      BotonModificar_(BotonModificar) {
  TxtMsf.MaxLength = services::largo::Importe;
  const auto salvoConPanel = [this](void (EdicionPagado::*evento)()) {
    return [this, evento] {
      if (!PicNuevo_.Visible) (this->*evento)();
    };
  };
  MSFPagos_.Click = salvoConPanel(&EdicionPagado::MSFPagos_Click);
  MSFPagos_.DblClick = salvoConPanel(&EdicionPagado::MSFPagos_DblClick);
  MSFPagos_.RowColChange = salvoConPanel(&EdicionPagado::MSFPagos_RowColChange);
  MSFPagos_.LeaveCell = salvoConPanel(&EdicionPagado::MSFPagos_LeaveCell);
  TxtMsf.GotFocus = [this] { TxtMsf.SeleccionarTodo(); };
  TxtMsf.KeyDown = [this](int& codigo) { TxtMsf_KeyDown(codigo); };
  TxtMsf.KeyPress = [this](int& codigo) { TxtMsf_KeyPress(codigo); };
}

void EdicionPagado::MSFPagos_Click() {
  const int fila = MSFPagos_.Row;
  if (MSFPagos_.Col == columna::Marca && TieneFacturaYFecha(fila)) {
    MSFPagos_.CellPicture().empty() ? PagarEntera(fila) : QuitarPago(fila);
  } else if (MSFPagos_.Col == columna::Pagado && TieneFacturaYFecha(fila)) {
    if (!TxtMsf.Visible) return;
    SuperaElRecibo(fila) ? AvisarQueSupera() : AbrirEdicionPagado();
  } else {
    Ocultar();
  }
}

void EdicionPagado::PagarEntera(int fila) {
  TxtMsf.Visible = false;
  const Recibo recibo = rejilla_.ReciboDe(fila);
  rejilla_.Anotar(fila, Entrar(recibo, recibo.Importe));
  TxtMsf.Text = "";
}

void EdicionPagado::QuitarPago(int fila) {
  Ocultar();
  rejilla_.Anotar(fila, Devolver(rejilla_.ReciboDe(fila), rejilla_.ReciboAntes(fila)));
}

void EdicionPagado::MSFPagos_DblClick() {
  if (rejilla_.EsPagable(MSFPagos_.Row)) {
    ActivarEdicionPagado(tecla::Espacio);
  } else if (AbreElPanel()) {
    services::Widget::Disparar(BotonModificar_.Click);
  }
}

bool EdicionPagado::AbreElPanel() const {
  const bool enElPago = MSFPagos_.Col == columna::Pagado || MSFPagos_.Col == columna::Marca;
  return enElPago && !rejilla_.EsPagable(MSFPagos_.Row);
}

void EdicionPagado::MSFPagos_RowColChange() {
  if (rejilla_.GridOcupado) return;
  if (!rejilla_.MoviendoColumna) {
    ElegirFila();
  } else if (MSFPagos_.Col == columna::Marca) {
    ComprometerImporte();
  }
}

void EdicionPagado::ElegirFila() {
  if (MSFPagos_.TextMatrix(MSFPagos_.Row, 0).empty()) {
    // The selection cannot go below the first filler row.
    for (int fila = 1; fila < MSFPagos_.Rows; ++fila) {
      if (!MSFPagos_.TextMatrix(fila, 0).empty()) continue;
      MSFPagos_.Row = fila;
      break;
    }
  }
  if (TxtMsf.Visible) {
    AbrirEdicionPagado();
    TxtMsf.SeleccionarTodo();
  }
  rejilla_.PintarElegida(MSFPagos_.Row);
  rejilla_.FilaElegida = true;
}

void EdicionPagado::ComprometerImporte() {
  const int fila = MSFPagos_.Row;
  rejilla_.Anotar(fila, Entrar(rejilla_.ReciboDe(fila), TxtMsf.Text));
}

void EdicionPagado::MoverAMarca() {
  const Mientras moviendo(rejilla_.MoviendoColumna);
  MSFPagos_.Col = columna::Marca;
}

void EdicionPagado::ExigirImporte() const {
  static_cast<void>(Entrar({}, TxtMsf.Text));
}

void EdicionPagado::MSFPagos_LeaveCell() {
  if (rejilla_.GridOcupado || rejilla_.MoviendoColumna) return;
  ExigirImporte();
  const int fila = MSFPagos_.Row;
  rejilla_.PintarFranja(fila);
  if (TxtMsf.Text->empty()) return;
  // What is typed is taken in from the column of the mark, whichever cell is being left.
  if (rejilla_.EsPagable(fila) && MSFPagos_.Col != columna::Marca) MoverAMarca();
}

void EdicionPagado::CerrarEdicionPago() {
  if (!TxtMsf.Visible) return;
  ExigirImporte();
  MoverAMarca();
  const int fila = MSFPagos_.Row;
  rejilla_.Anotar(fila, EntrarAlCerrar(rejilla_.ReciboDe(fila), TxtMsf.Text));
  Ocultar();
  MSFPagos_.Col = columna::Pagado;
}

std::optional<std::string> EdicionPagado::PagadoAlCerrar() const {
  if (!TxtMsf.Visible) return std::nullopt;
  try {
    return EntrarAlCerrar(rejilla_.ReciboDe(MSFPagos_.Row), TxtMsf.Text).Pagado;
  } catch (const services::ErrorEjecucion&) {
    return std::nullopt;
  }
}

int EdicionPagado::PagosSinGrabar() const {
  const list::PagosSinGrabar& anotados = rejilla_.SinGrabar();
  const auto abierto = PagadoAlCerrar();
  if (!abierto) return anotados.Cuantos();
  return anotados.CuantosTras(MSFPagos_.Row, rejilla_.ReciboDe(MSFPagos_.Row).Pagado, *abierto);
}

int EdicionPagado::PagoExcesivo() const {
  const auto abierto = PagadoAlCerrar();
  const auto excede = [&](int fila, double pagado) {
    return pagado > rejilla_.ImporteDe(fila, columna::Importe);
  };
  if (abierto && excede(MSFPagos_.Row, services::Importe(*abierto))) return MSFPagos_.Row;
  for (const int fila : rejilla_.SinGrabar().Filas()) {
    const bool porTomar = abierto && fila == MSFPagos_.Row;
    if (!porTomar && excede(fila, rejilla_.ImporteDe(fila, columna::Pagado))) return fila;
  }
  return 0;
}

void EdicionPagado::AbrirEdicionPagado() {
  if (!EnPagadoDePagable()) return Ocultar();
  const int izquierda = sesion_.PantallaDeReferencia() ? 10 : 20;
  AbrirSobreCelda(TxtMsf, MSFPagos_, {.Izquierda = izquierda, .Arriba = 20});
}

void EdicionPagado::ActivarEdicionPagado(int) {
  AbrirEdicionPagado();
}

void EdicionPagado::TxtMsf_KeyDown(int& codigo) {
  if (codigo == tecla::Tabulador) {
    SuperaElRecibo(MSFPagos_.Row) ? AvisarQueSupera() : CerrarEdicionPago();
    codigo = 0;
  }
  if (codigo != tecla::Arriba && codigo != tecla::Abajo) return;
  MoverFilaPago(codigo == tecla::Arriba ? "Arr" : "Aba");
  codigo = 0;
}

void EdicionPagado::TxtMsf_KeyPress(int& codigo) {
  if (codigo == tecla::Escape) {
    Ocultar();
  } else if (codigo == tecla::Intro) {
    SuperaElRecibo(MSFPagos_.Row) ? AvisarQueSupera() : PasarALaSiguiente();
  } else {
    codigo = sesion_.Utiles().TeclaImporte(TxtMsf, codigo, false);
  }
}

void EdicionPagado::PasarALaSiguiente() {
  const int fila = MSFPagos_.Row;
  if (fila >= MSFPagos_.Rows - 2 || MSFPagos_.Col != columna::Pagado) return;
  if (!TieneFacturaYFecha(fila + 1)) return;
  MSFPagos_.Row = fila + 1;
  AbrirEdicionPagado();
}

void EdicionPagado::MoverFilaPago(std::string_view direccion) {
  MSFPagos_.Row = MSFPagos_.Row + BuscarFilaPago(direccion);
  if (TxtMsf.Visible) TxtMsf.SeleccionarTodo();
}

int EdicionPagado::BuscarFilaPago(std::string_view direccion) const {
  return DistanciaHasta(MSFPagos_, direccion, [this](int fila) {
    return TieneFacturaYFecha(fila) && !MSFPagos_.TextMatrix(fila, 1).empty();
  });
}

bool EdicionPagado::EnPagadoDePagable() const {
  return MSFPagos_.Col == columna::Pagado && rejilla_.EsPagable(MSFPagos_.Row);
}

bool EdicionPagado::TieneFacturaYFecha(int fila) const {
  return rejilla_.EsPagable(fila) && !MSFPagos_.TextMatrix(fila, 0).empty();
}

bool EdicionPagado::SuperaElRecibo(int fila) const {
  return Supera(rejilla_.ReciboDe(fila), TxtMsf.Text);
}

void EdicionPagado::AvisarQueSupera() {
  sesion_.Aviso().Rechazar(kSuperaElRecibo);
}

void EdicionPagado::Ocultar() {
  // The focus goes first: hidden with it, the editor would leave a window to choose who gets it.
  if (TxtMsf.TieneFoco()) MSFPagos_.SetFocus();
  Cerrar(TxtMsf);
}

}  // namespace list
