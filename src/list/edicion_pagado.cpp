#include "list/edicion_pagado.h"

#include "forms/entrada.h"
#include "list/color_lista.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace list {
namespace {

using services::Mascara;
using services::Valor;
namespace tecla = services::tecla;

/// The number that a typed amount gives once it is rounded by its mask; throws 13 where it is none.
double Redondeado(const std::string& texto) {
  return services::Numero(Mascara(Valor("0" + texto)));
}

/// A typed amount under its mask: empty stays empty, and a lone comma is as good as a zero.
std::string Enmascarado(const std::string& texto) {
  return texto.empty() || services::EsNumero(texto) ? Mascara(Valor(texto))
                                                    : Mascara(Redondeado(texto));
}

/// Sets a guard for as long as it lives.
class Mientras {
 public:
  explicit Mientras(bool& guarda) : guarda_(guarda) { guarda_ = true; }
  ~Mientras() { guarda_ = false; }
  Mientras(const Mientras&) = delete;
  Mientras& operator=(const Mientras&) = delete;

 private:
  bool& guarda_;
};

}  // namespace

EdicionPagado::EdicionPagado(services::Form& form, services::PictureBox& panel,
                             services::Sesion& sesion, RejillaPagos& rejilla,
                             const services::Widget& PicNuevo,
                             const services::Widget& BotonModificar)
    : TxtMsf(form, "TxtMsf",
             {.Width = 1600,
              .Height = 340,
              .Contenedor = &panel,
              .Visible = false,
              .FontSize = 10,
              .FontBold = true}),
      sesion_(sesion),
      rejilla_(rejilla),
      MSFPagos_(rejilla.MSFPagos),
      PicNuevo_(PicNuevo),
      BotonModificar_(BotonModificar) {
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
  MSFPagos_.CellPicture = rejilla_.ImgCheck.Picture();
  rejilla_.TotalPendiente +=
      rejilla_.ImporteDe(fila, columna::Pagado) - rejilla_.ImporteDe(fila, columna::Importe);
  MSFPagos_.TextMatrix(fila, columna::Pagado, MSFPagos_.TextMatrix(fila, columna::Importe));
  rejilla_.MostrarPendiente();
  TxtMsf.Text = "";
}

void EdicionPagado::QuitarPago(int fila) {
  Ocultar();
  MSFPagos_.CellPicture = "";
  // A part payment that was stored before comes back; a full one goes.
  const std::string& antes = rejilla_.MsfPagos2.TextMatrix(fila, columna::Pagado);
  const bool entera = antes == rejilla_.MsfPagos2.TextMatrix(fila, columna::Importe);
  MSFPagos_.TextMatrix(fila, columna::Pagado, antes.empty() || entera ? "0,00" : antes);
  rejilla_.TotalPendiente +=
      rejilla_.ImporteDe(fila, columna::Importe) - rejilla_.ImporteDe(fila, columna::Pagado);
  rejilla_.MostrarPendiente();
}

void EdicionPagado::MSFPagos_DblClick() {
  if (rejilla_.EsPagable(MSFPagos_.Row)) {
    ActivarEdicionPagado(tecla::Espacio);
  } else if (MSFPagos_.Col == columna::Pagado || MSFPagos_.Col == columna::Marca) {
    services::Widget::Disparar(BotonModificar_.Click);
  }
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
  {
    const Mientras ocupado(rejilla_.GridOcupado);
    const int columna = MSFPagos_.Col;
    rejilla_.PintarFila(color::FondoElegida, color::TextoElegida, "", "", true);
    MSFPagos_.Col = columna;
  }
  rejilla_.FilaElegida = true;
}

void EdicionPagado::ComprometerImporte() {
  const int fila = MSFPagos_.Row;
  const std::string tecleado = TxtMsf.Text;
  if (rejilla_.ImporteDe(fila, columna::Importe) == Redondeado(tecleado)) {
    MSFPagos_.CellPicture = rejilla_.ImgCheck.Picture();
    rejilla_.TotalPendiente +=
        rejilla_.ImporteDe(fila, columna::Pagado) - rejilla_.ImporteDe(fila, columna::Importe);
    MSFPagos_.TextMatrix(fila, columna::Pagado, MSFPagos_.TextMatrix(fila, columna::Importe));
  } else {
    MSFPagos_.CellPicture = "";
    rejilla_.TotalPendiente += rejilla_.ImporteDe(fila, columna::Pagado);
    const std::string pagado = Enmascarado(tecleado);
    MSFPagos_.TextMatrix(fila, columna::Pagado, pagado.empty() ? "0" : pagado);
    rejilla_.TotalPendiente -= rejilla_.ImporteDe(fila, columna::Pagado);
  }
  rejilla_.MostrarPendiente();
}

void EdicionPagado::MoverAMarca() {
  // What is no amount has to fail before anything moves, or the next try would find another cell.
  static_cast<void>(Redondeado(TxtMsf.Text));
  const Mientras moviendo(rejilla_.MoviendoColumna);
  MSFPagos_.Col = columna::Marca;
}

void EdicionPagado::MSFPagos_LeaveCell() {
  if (rejilla_.GridOcupado || rejilla_.MoviendoColumna) return;
  static_cast<void>(Redondeado(TxtMsf.Text));
  DespintarFila();
  if (TxtMsf.Text->empty()) return;
  const int fila = MSFPagos_.Row;
  if (rejilla_.EsPagable(fila) && MSFPagos_.Col != columna::Marca) MoverAMarca();
  if (MSFPagos_.Col == columna::Pagado && TxtMsf.Visible && !SuperaElRecibo(fila)) {
    MSFPagos_.TextMatrix(fila, columna::Pagado, Enmascarado(TxtMsf.Text));
  }
}

/// The stripe is taken from the row above, which is never the current one.
void EdicionPagado::DespintarFila() {
  const Mientras ocupado(rejilla_.GridOcupado);
  const int fila = MSFPagos_.Row;
  const int columna = MSFPagos_.Col;
  int fondo = color::FranjaA;
  if (fila > 1) {
    MSFPagos_.Row = fila - 1;
    fondo = color::OtraFranja(MSFPagos_.CellBackColor);
    MSFPagos_.Row = fila;
  }
  rejilla_.PintarFila(fondo, rejilla_.EsPagable(fila) ? color::Texto : color::TextoPrevision, "",
                      "", true);
  MSFPagos_.Col = columna;
}

void EdicionPagado::CerrarEdicionPago() {
  if (!TxtMsf.Visible) return;
  MoverAMarca();
  MSFPagos_.TextMatrix(MSFPagos_.Row, columna::Pagado, Mascara(Valor("0" + TxtMsf.Text)));
  Ocultar();
  MSFPagos_.Col = columna::Pagado;
}

void EdicionPagado::AbrirEdicionPagado() {
  if (!EnPagadoDePagable()) return Ocultar();
  TxtMsf.Text = MSFPagos_.Text();
  TxtMsf.Top = MSFPagos_.Top + MSFPagos_.CellTop() - 20;
  TxtMsf.Left = MSFPagos_.Left + MSFPagos_.CellLeft() - (sesion_.PantallaDeReferencia() ? 10 : 20);
  TxtMsf.Width = MSFPagos_.CellWidth() + 30;
  TxtMsf.Height = MSFPagos_.CellHeight() + 30;
  TxtMsf.Visible = true;
  TxtMsf.SetFocus();
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
  MSFPagos_.Col = columna::Pagado;
  MSFPagos_.Row = fila + 1;
  AbrirEdicionPagado();
}

void EdicionPagado::MoverFilaPago(std::string_view direccion) {
  const int fila = MSFPagos_.Row;
  const int distancia = BuscarFilaPago(direccion);
  if (direccion == "Arr" && fila >= 2) MSFPagos_.Row = fila - distancia;
  if (direccion == "Aba" && fila + 1 < MSFPagos_.Rows) MSFPagos_.Row = fila + distancia;
  if (TxtMsf.Visible) TxtMsf.SeleccionarTodo();
}

int EdicionPagado::BuscarFilaPago(std::string_view direccion) const {
  const int paso = direccion == "Arr" ? -1 : 1;
  const int desde = MSFPagos_.Row;
  for (int fila = desde + paso; fila >= 1 && fila < MSFPagos_.Rows; fila += paso) {
    if (TieneFacturaYFecha(fila) && !MSFPagos_.TextMatrix(fila, 1).empty()) {
      return paso * (fila - desde);
    }
  }
  return 0;
}

bool EdicionPagado::EnPagadoDePagable() const {
  return MSFPagos_.Col == columna::Pagado && rejilla_.EsPagable(MSFPagos_.Row);
}

bool EdicionPagado::TieneFacturaYFecha(int fila) const {
  return rejilla_.EsPagable(fila) && !MSFPagos_.TextMatrix(fila, 0).empty();
}

bool EdicionPagado::SuperaElRecibo(int fila) const {
  return services::Importe(TxtMsf.Text) > rejilla_.ImporteDe(fila, columna::Importe);
}

void EdicionPagado::AvisarQueSupera() {
  sesion_.Aviso().Mostrar("El Importe Pagado no Puede ser mayor que el importe del recibo",
                          services::mensaje::Alto, "Atención");
}

void EdicionPagado::Ocultar() {
  const bool tenia = TxtMsf.TieneFoco();
  TxtMsf.Text = "";
  TxtMsf.Visible = false;
  if (tenia) MSFPagos_.SetFocus();
}

}  // namespace list
