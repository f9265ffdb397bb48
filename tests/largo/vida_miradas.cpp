#include <algorithm>
#include <iterator>

#include "guion/salida.h"
#include "largo/modelo.h"
#include "largo/vida.h"
#include "shell/frm_tesvara_gastos.h"

// What must hold after a command.

namespace largo {

void Vida::Mirar() {
  const bool sano = !dicho_;
  if (!orden_.empty()) {
    const std::string_view nombre = orden_.front().Nombre;
    const std::string primero = SobreQue();
    if (grabacion_) {
      MirarGrabacion(sano);
    } else if (nombre == "datos" || quedan_ % 25 == 0) {
      MirarReposo();
    }
    const bool nadaMas = nombre == "cargar" || nombre == "foco" || primero == "BotonAceptar" ||
                         primero == "BotonCancelar";
    if (cargado_ && sano && nadaMas) MirarCarga();
    if (cargado_) retomada_ = false;
    if (nombre == "cargar") MirarRetomada(sano);
    if (dicho_) desdeLaCarga_.ApuntarFallo();
  }
  dicho_ = false;
  cargado_ = false;
  grabacion_.reset();
}

/// Nothing is stored but by a commit, and by somebody else.
void Vida::MirarReposo() {
  const Tablas ahora = LeerAlmacenadas(*grabado_);
  if (orden_.front().Nombre != "datos" && ahora != reposo_) {
    Hallar("se ha grabado sin grabar:" + Diferencia(reposo_, ahora));
  }
  reposo_ = ahora;
  decir_("QUEDA " + std::to_string(Huella(ahora)));
}

void Vida::MirarGrabacion(bool sano) {
  const Tablas ahora = LeerAlmacenadas(*grabado_);
  if (sano) {
    if (ahora != grabacion_->Espera) {
      Hallar("grabado otra cosa:" + Diferencia(grabacion_->Espera, ahora));
    }
    MirarRecibos();
    MirarLoDeOtros();
    if (cargado_ && oferta_.Buscar()) Hallar("ofrece lo que ya se grabó");
    Dice(retomada_ ? "grabado como debe, lo retomado" : "grabado como debe");
  }
  reposo_ = ahora;
  decir_("QUEDA " + std::to_string(Huella(ahora)));
}

/// Nothing has lost its invoice, and receipts make up their totals, where they did.
void Vida::MirarRecibos() {
  std::vector<Fila> nuevas;
  std::ranges::set_difference(Huerfanas(*grabado_), grabacion_->Huerfanas,
                              std::back_inserter(nuevas));
  for (const Fila& fila : nuevas) {
    grabacion_->TrasFallo ? Dice("sin su factura, tras un error que se dijo")
                          : Hallar("sin su factura: " + guion::FilaUnida(fila));
  }
  nuevas.clear();
  std::ranges::set_difference(Descuadradas(*grabado_), grabacion_->Descuadradas,
                              std::back_inserter(nuevas));
  for (const Fila& fila : nuevas) {
    grabacion_->TocaRecibos || grabacion_->TrasFallo
        ? Dice("descuadre que el usuario ha podido hacer")
        : Hallar("los recibos no suman su factura: " + guion::FilaUnida(fila));
  }
}

/// What others have stored since the load is written over by nobody who wasn't asked.
void Vida::MirarLoDeOtros() {
  if (grabacion_->DeOtros.empty()) return;
  if (grabacion_->Preguntado) return Dice("sobre lo de otros, tras preguntar");
  grabacion_->TrasFallo
      ? Dice("sobre lo de otros, tras un error que se dijo")
      : Hallar("sobre lo de otros sin preguntar:" + Diferencia(grabacion_->DeOtros, {}));
}

/// The screen that goes on with a working copy leaves it as it stood, and shows it.
void Vida::MirarRetomada(bool sano) {
  const auto& esperada = oferta_.Retomada();
  if (esperada && sano) {
    if (cargado_) Hallar("lo retomado se ha vuelto a cargar");
    const Tablas ahora = LeerDeTrabajo(puesto_.Local());
    if (ahora != *esperada) Hallar("lo retomado es otra cosa:" + Diferencia(*esperada, ahora));
    rango_ = puesto_.PorRetomar();
    retomada_ = true;
    MirarLista();
    Dice("retomado y listado como debe");
  }
  oferta_.Terminar();
}

void Vida::MirarCarga() {
  const auto* form = puesto_.Mundo().Entorno().Buscar("FrmTesvaraGastos");
  if (!form || !form->Visible()) return;
  const std::string carga = DiferenciaDeCarga(*grabado_, puesto_.Local(), *rango_);
  if (!carga.empty()) Hallar("cargado otra cosa: " + carga);
  MirarLista();
  Dice("cargado y listado como debe");
}

void Vida::MirarLista() {
  const auto& pantalla = dynamic_cast<const shell::FrmTesvaraGastos&>(
      *puesto_.Mundo().Entorno().Buscar("FrmTesvaraGastos"));
  const Filtros filtros{*rango_, pantalla.Lista.OptFecha.Value, pantalla.Lista.ChkPagados.Value,
                        pantalla.Lista.ChkPrevisiones.Value};
  const std::string lista = DiferenciaDeLista(pantalla.Rejilla.MSFPagos, puesto_.Local(), filtros);
  if (!lista.empty()) Hallar("la lista no es la copia de trabajo: " + lista);
}

}  // namespace largo
