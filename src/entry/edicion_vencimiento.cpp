#include "entry/edicion_vencimiento.h"

#include "forms/entrada.h"
#include "list/editor_en_celda.h"
#include "list/guarda.h"
#include "valores/formato.h"

namespace entry {

using services::Mascara;
namespace tecla = services::tecla;

EdicionVencimiento::EdicionVencimiento(Campos& campos, services::Sesion& sesion,
                                       Vencimientos& vencimientos, const list::RejillaPagos& lista)
    : rejilla_(campos.MSFVencimientos),
      TxtMsf2_(campos.TxtMsf2),
      sesion_(sesion),
      vencimientos_(vencimientos),
      lista_(lista) {
  rejilla_.Click = [this] { MSFVencimientos_Click(); };
  rejilla_.DblClick = [this] { ActivarEdicionVencimiento(tecla::Espacio); };
  rejilla_.RowColChange = [this] { MSFVencimientos_RowColChange(); };
  rejilla_.LeaveCell = [this] { MSFVencimientos_LeaveCell(); };
  TxtMsf2_.GotFocus = [this] { TxtMsf2_.SeleccionarTodo(); };
  TxtMsf2_.KeyDown = [this](int& codigo) { TxtMsf2_KeyDown(codigo); };
  TxtMsf2_.KeyPress = [this](int& codigo) { TxtMsf2_KeyPress(codigo); };
}

void EdicionVencimiento::MSFVencimientos_Click() {
  const int fila = rejilla_.Row;
  if (!vencimientos_.TieneFecha(fila) || rejilla_.Col == columna::Fecha) {
    Ocultar();
  } else if (rejilla_.Col == columna::Marca) {
    vencimientos_.EstaMarcada(fila) ? QuitarPago(fila) : PagarEntero(fila);
  } else if (TxtMsf2_.Visible && PagaDeMas()) {
    AvisarQueSupera();
  } else {
    AbrirEdicionVencimiento();
  }
}

void EdicionVencimiento::PagarEntero(int fila) {
  Ocultar();
  vencimientos_.Anotar(fila, {vencimientos_.ReciboDe(fila).Importe, true});
}

/// Whether there was a payment before is asked of the list's snapshot at the same row, which is
/// another due date as a rule; what comes back is of the receipt itself.
void EdicionVencimiento::QuitarPago(int fila) {
  Ocultar();
  const services::MSFlexGrid& copia = lista_.MsfPagos2;
  const bool sinPago = fila >= copia.Rows || copia.TextMatrix(fila, list::columna::Pagado).empty();
  const list::Recibo antes = vencimientos_.ReciboAceptado(fila);
  const bool entero = antes.Pagado == antes.Importe;
  vencimientos_.Anotar(fila, {sinPago || entero ? "0,00" : antes.Pagado});
}

void EdicionVencimiento::MSFVencimientos_RowColChange() {
  if (MoviendoColumnaVto_ && rejilla_.Col == columna::Marca) ComprometerImporte();
}

/// A text that is left empty leaves the cell empty.
void EdicionVencimiento::ComprometerImporte() {
  const std::string& tecleado = TxtMsf2_.Text();
  list::Pago pago = list::Entrar(vencimientos_.ReciboDe(rejilla_.Row), tecleado);
  if (!pago.Marca && tecleado.empty()) pago.Pagado = "";
  vencimientos_.Anotar(rejilla_.Row, pago);
}

/// What is no amount, or can't be compared with its receipt's, fails before anything moves.
void EdicionVencimiento::MoverAMarca() {
  static_cast<void>(list::Entrar(vencimientos_.ReciboDe(rejilla_.Row), TxtMsf2_.Text));
  const list::Mientras moviendo(MoviendoColumnaVto_);
  rejilla_.Col = columna::Marca;
}

void EdicionVencimiento::MSFVencimientos_LeaveCell() {
  if (MoviendoColumnaVto_ || TxtMsf2_.Text().empty()) return;
  if (rejilla_.Col == columna::Pagado) {
    MoverAMarca();
  } else if (rejilla_.Col != columna::Marca && TxtMsf2_.Visible) {
    TomarEnSuCelda();
  }
}

void EdicionVencimiento::TomarEnSuCelda() {
  const std::string& tecleado = TxtMsf2_.Text();
  rejilla_.Text = rejilla_.Col == columna::Importe ? list::Enmascarado(tecleado) : tecleado;
}

void EdicionVencimiento::CerrarEdicionVencimiento() {
  if (!TxtMsf2_.Visible) return;
  if (rejilla_.Col == columna::Pagado) {
    MoverAMarca();
  } else {
    // In whatever column it stands: an open date would be taken for an amount.
    rejilla_.Text = Mascara(services::Importe(TxtMsf2_.Text));
  }
  Ocultar();
}

void EdicionVencimiento::AbrirEdicionVencimiento() {
  const bool editable = rejilla_.Col == columna::Importe || rejilla_.Col == columna::Pagado;
  if (!editable || !vencimientos_.TieneFecha(rejilla_.Row)) return Ocultar();
  const int arriba = sesion_.PantallaDeReferencia() ? 20 : 10;
  list::AbrirSobreCelda(TxtMsf2_, rejilla_, {.Izquierda = 10, .Arriba = arriba});
}

void EdicionVencimiento::ActivarEdicionVencimiento(int) {
  AbrirEdicionVencimiento();
}

void EdicionVencimiento::TxtMsf2_KeyDown(int& codigo) {
  // As in the list: Tab takes the amount and stays on the grid.
  if (codigo == tecla::Tabulador) {
    PagaDeMas() ? AvisarQueSupera() : CerrarEdicionVencimiento();
    codigo = 0;
  }
  if (codigo != tecla::Arriba && codigo != tecla::Abajo) return;
  MoverFilaVencimiento(codigo == tecla::Arriba ? "Arr" : "Aba");
  codigo = 0;
}

void EdicionVencimiento::TxtMsf2_KeyPress(int& codigo) {
  if (codigo == tecla::Escape) {
    Ocultar();
    codigo = 0;  // it closes the editor, not the panel
  } else if (codigo == tecla::Intro) {
    PagaDeMas() ? AvisarQueSupera() : Aceptar();
  } else {
    codigo = sesion_.Utiles().TeclaImporte(TxtMsf2_, codigo, false);
  }
}

void EdicionVencimiento::Aceptar() {
  if (rejilla_.Col == columna::Pagado) {
    ComprometerImporte();
  } else if (!TxtMsf2_.Text().empty()) {
    TomarEnSuCelda();
  }
  const int siguiente = rejilla_.Row + 1;
  if (siguiente >= rejilla_.Rows || !vencimientos_.TieneFecha(siguiente)) return;
  rejilla_.Row = siguiente;
  AbrirEdicionVencimiento();
  TxtMsf2_.SeleccionarTodo();
}

void EdicionVencimiento::MoverFilaVencimiento(std::string_view direccion) {
  const int distancia = BuscarFilaVencimiento(direccion);
  // With nowhere to go what was typed stays.
  if (distancia != 0) {
    rejilla_.Row = rejilla_.Row + distancia;
    AbrirEdicionVencimiento();
  }
  TxtMsf2_.SeleccionarTodo();
}

int EdicionVencimiento::BuscarFilaVencimiento(std::string_view direccion) const {
  return list::DistanciaHasta(rejilla_, direccion, [this](int fila) {
    return vencimientos_.TieneFecha(fila) && !vencimientos_.ReciboDe(fila).Importe.empty();
  });
}

bool EdicionVencimiento::PagaDeMas() const {
  return rejilla_.Col == columna::Pagado &&
         list::Supera(vencimientos_.ReciboDe(rejilla_.Row), TxtMsf2_.Text);
}

/// A click on the cell has taken the focus out of its editor, and Escape there would close the
/// panel.
void EdicionVencimiento::AvisarQueSupera() {
  sesion_.Aviso().Rechazar(list::kSuperaElRecibo);
  TxtMsf2_.SetFocus();
}

void EdicionVencimiento::Ocultar() {
  if (TxtMsf2_.TieneFoco()) rejilla_.SetFocus();
  list::Cerrar(TxtMsf2_);
}

}  // namespace entry
