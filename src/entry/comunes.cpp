#include "entry/comunes.h"

#include "entry/edicion_vencimiento.h"
#include "forms/entrada.h"

namespace entry {
namespace {

using services::TextBox;
using services::Widget;
namespace color = services::color;

void UnirLlegada(TextBox& campo, EdicionVencimiento& edicion, bool recuerda) {
  campo.GotFocus = [&campo, &edicion, recuerda] {
    RecibirFoco(campo, edicion);
    if (recuerda) campo.Tag = campo.Text();
  };
}

}  // namespace

void Habilitar(Widget& campo, bool estado) {
  campo.Enabled = estado;
  estado ? PintarBlanco(campo) : PintarInhabilitado(campo);
}

void PintarBlanco(Widget& campo) {
  campo.BackColor = color::Blanco;
}

void PintarInhabilitado(Widget& campo) {
  campo.BackColor = color::Inhabilitado;
}

void PasarAlPrimero(const std::vector<Widget*>& cadena) {
  for (Widget* campo : cadena) {
    if (campo->Enabled) return campo->SetFocus();
  }
}

int Filtrar(services::Sesion& sesion, TextBox& campo, Tecleo tecleo, int tecla) {
  switch (tecleo) {
    case Tecleo::Fecha:
      return sesion.Utiles().TeclaFecha(campo, tecla);
    case Tecleo::Importe:
      return sesion.Utiles().TeclaImporte(campo, tecla, false);
    case Tecleo::Entero:
      return sesion.Utiles().TeclaImporte(campo, tecla, true);
  }
  return tecla;
}

void RecibirFoco(TextBox& campo, EdicionVencimiento& edicion) {
  edicion.CerrarEdicionVencimiento();
  campo.BackColor = color::ConFoco;
  campo.SeleccionarTodo();
}

void UnirFoco(Campos& c, EdicionVencimiento& edicion) {
  for (TextBox* campo :
       {&c.TxtNFra, &c.TxtB16, &c.TxtI16, &c.TxtB7, &c.TxtI7, &c.TxtB4, &c.TxtI4, &c.TxtB0,
        &c.TxtTipoIRPF, &c.TxtBIRPF, &c.TxtIRPF, &c.TxtIPrev, &c.TxtCada, &c.TxtDesde}) {
    UnirLlegada(*campo, edicion, false);
  }
  // Those of the payment terms keep the text that they had.
  for (TextBox* campo : {&c.TxtFFra, &c.TxtFVista, &c.TxtNRecibos, &c.TxtDias, &c.TxtCadencia}) {
    UnirLlegada(*campo, edicion, true);
  }
  for (services::CheckBox* caja : {&c.Chk16, &c.Chk7, &c.Chk4, &c.Chk0, &c.Chk15, &c.OptGenerar}) {
    caja->GotFocus = [&edicion] { edicion.CerrarEdicionVencimiento(); };
  }
  c.CboPlazo.GotFocus = [&c] { c.CboPlazo.BackColor = color::ConFoco; };
  for (TextBox* campo : {&c.TxtNFra, &c.TxtTipoIRPF, &c.TxtCada}) {
    campo->LostFocus = [campo] { PintarBlanco(*campo); };
  }
}

bool Rechazar(services::Sesion& sesion, const std::string& motivo, Widget& campo) {
  sesion.Aviso().Rechazar(motivo);
  campo.SetFocus();
  return false;
}

void UnirTecleo(services::Sesion& sesion, TextBox& campo, Tecleo tecleo,
                std::initializer_list<Widget*> cadena) {
  campo.KeyPress = [&sesion, &campo, tecleo, cadena = std::vector(cadena)](int& codigo) {
    codigo = Filtrar(sesion, campo, tecleo, codigo);
    if (codigo == services::tecla::Intro) PasarAlPrimero(cadena);
  };
}

}  // namespace entry
