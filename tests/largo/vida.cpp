#include "largo/vida.h"

#include <algorithm>
#include <csignal>
#include <iterator>

#include "dialecto/formas.h"
#include "forms/controles.h"
#include "guion/salida.h"
#include "largo/contador.h"
#include "largo/modelo.h"
#include "salvaguarda/rescate.h"
#include "services/utiles.h"
#include "shell/frm_tesvara_gastos.h"

namespace largo {
namespace {

using services::Omision;

/// What a forecast's row always passes over: the one column that its statement leaves out.
bool EsDeSiempre(const Omision& omision) {
  return omision.Que == Omision::Falta::Nada && omision.Tabla == "ProvPrevisionPagos" &&
         omision.Fallo.Numero() == services::error::CampoDesconocido;
}

bool EsPregunta(int flags) {
  return flags == services::mensaje::SiNo || flags == services::mensaje::SiNoCancelar;
}

/// Whether a message tells of a failure, and not of something that the user did wrong.
bool CuentaUnFallo(const headless::AvisoMostrado& aviso) {
  return aviso.Texto.starts_with("Nº Error") || aviso.Titulo == "Error" ||
         aviso.Texto.starts_with("Error");
}

std::string FormaDe(std::string_view sentencia) {
  std::vector<dialecto::Token> tokens;
  dialecto::Trocear(sentencia, tokens);
  return dialecto::Forma(sentencia, tokens);
}

}  // namespace

Vida::Vida(const std::filesystem::path& carpeta, std::uint64_t semilla, int acciones,
           const ProcesoAparte::Decir& decir)
    : carpeta_(carpeta),
      decir_(decir),
      puesto_(carpeta, Puertas()),
      usuario_(semilla, puesto_.Mundo().Entorno()),
      grabado_(sqlite::AbrirConexion(Puesto::FicheroDatos(carpeta))),
      quedan_(acciones),
      llamadasHastaMorir_(usuario_.Azar().DeCada100(60) ? usuario_.Azar().Entre(50, 6'000) : -1) {
  vigilante_->AlLlamar = [this] { AlLlamar(); };
  vigilante_->AlAbrir = [this](std::string_view sentencia) { AlAbrir(sentencia); };
  puesto_.Mundo().Entorno().PararReloj(services::HacerFecha(2005, 3, 15, 10));
  puesto_.Preguntar = [this](const std::string& pregunta) {
    const bool adelante = usuario_.Azar().DeCada100(70);
    Dice("la guardia pregunta " + pregunta.substr(0, 60));
    return adelante;
  };
}

Puesto::Puertas Vida::Puertas() {
  const auto puerta = [vigilante = vigilante_](services::Ref<services::Conexion> detras) {
    return Vigilar(std::move(detras), vigilante);
  };
  return {puerta, puerta};
}

std::string Vida::EnUna(std::string texto) {
  std::ranges::replace(texto, '\n', ' ');
  return texto;
}

void Vida::Dice(const std::string& que) {
  decir_("DICE " + EnUna(que));
}

void Vida::AlLlamar() {
  if (llamadasHastaMorir_ < 0 || --llamadasHastaMorir_ > 0) return;
  const bool omite = !std::ranges::all_of(puesto_.Mundo().Entorno().Omisiones, EsDeSiempre);
  decir_(omite ? "MATA tras omitir" : "MATA");
  std::raise(SIGKILL);
}

void Vida::AlAbrir(std::string_view sentencia) {
  ++formas_[FormaDe(sentencia)];
  const auto comienzo = salvaguarda::Reconocer(sentencia);
  if (!comienzo) return;
  if (comienzo->Que == salvaguarda::Comienzo::Tarea::Carga) {
    cargado_ = true;
    rango_ = comienzo->Rango;
    return;
  }
  const Tablas antes = LeerAlmacenadas(*grabado_);
  espera_ = TrasGrabar(Puesto::FicheroDatos(carpeta_), puesto_.Local(), comienzo->Rango);
  huerfanas_ = Huerfanas(*grabado_);
  descuadradas_ = Descuadradas(*grabado_);
  decir_("GRABA " + std::to_string(Huella(antes)) + " " + std::to_string(Huella(*espera_)));
}

int Vida::Vivir(const Herencia& herencia) {
  Empezar(herencia);
  guion::Ejecucion ejecucion(puesto_.Mundo(), salida_, salida_);
  const int estado = ejecucion.Correr([this](int) { return Orden(); });
  if (estado != guion::kBien) Hallar("la partida se rompe: " + salida_.str());
  return 0;
}

void Vida::Empezar(const Herencia& herencia) {
  reposo_ = LeerAlmacenadas(*grabado_);
  const std::uint64_t huella = Huella(reposo_);
  if (herencia.Antes && huella != *herencia.Antes &&
      (!herencia.Despues || huella != *herencia.Despues)) {
    Hallar("lo grabado no es lo de antes ni lo de después");
  }
  decir_("QUEDA " + std::to_string(huella));
  if (Uno(*grabado_, "PRAGMA integrity_check") != "ok") Hallar("integrity_check de lo grabado");
  if (Uno(puesto_.Local(), "PRAGMA integrity_check") != "ok") {
    Hallar("integrity_check de lo de trabajo");
  }
  if (Puesto::CopiasAMedias(carpeta_) != 0) Hallar("una copia a medias con su nombre");
  puesto_.Guardia().CopiarElDia();
  const auto rescate = salvaguarda::BuscarRescate(puesto_.Local(), Puesto::FicheroDatos(carpeta_),
                                                  Puesto::FicheroFoto(carpeta_));
  if (rescate) Dice("rescate de " + rescate->Copia.Usuario);
}

bool Vida::EnModal() {
  const services::Form* principal = puesto_.Mundo().Entorno().Buscar("FrmTesvaraGastos");
  return principal && principal->Visible() && !puesto_.Mundo().Entorno().AlAlcance(*principal);
}

/// Called when the one before is done, or has opened a modal screen.
const guion::Orden* Vida::Orden() {
  Escuchar();
  enModal_ = EnModal() ? enModal_ + 1 : 0;
  if (enModal_ == 0) Mirar();
  ContarLoAlcanzado();
  if (--quedan_ < 0 && enModal_ == 0) return nullptr;
  const std::string texto = Elegir();
  decir_("ORDEN " + texto);
  orden_ = guion::Analizar(texto);
  return &orden_.front();
}

void Vida::ContarLoAlcanzado() {
  for (const auto& [forma, veces] : std::exchange(formas_, {})) {
    decir_("ABRE " + std::to_string(veces) + " " + EnUna(forma));
  }
  for (services::Form* form : puesto_.Mundo().Entorno().Pantallas()) {
    ContarManejadores(
        *form, [this](const std::string& nombre) { decir_("HAY " + nombre); },
        [this](const std::string& nombre) { decir_("ATIENDE " + nombre); });
  }
}

std::string Vida::Elegir() {
  constexpr int kDeSobra = 8;
  if (respuestas_ - preguntas_ < kDeSobra) {
    std::string texto = "responder";
    for (int i = 0; i < kDeSobra; ++i) texto += usuario_.Azar().DeCada100(65) ? " si" : " no";
    respuestas_ += kDeSobra;
    return texto;
  }
  constexpr int kPaciencia = 40;
  return quedan_ < 0 || enModal_ > kPaciencia ? usuario_.SalirDeModal() : usuario_.Siguiente();
}

/// What was told during the command: messages, errors and what was passed over.
void Vida::Escuchar() {
  const auto& mensajes = puesto_.Mundo().Entorno().Mensajes.Mostrados();
  for (; avisosVistos_ < mensajes.size(); ++avisosVistos_) {
    const headless::AvisoMostrado& aviso = mensajes[avisosVistos_];
    Dice("aviso " + aviso.Texto);
    preguntas_ += EsPregunta(aviso.Flags) ? 1 : 0;
    dicho_ = dicho_ || CuentaUnFallo(aviso);
  }
  if (!salida_.str().empty()) {
    dicho_ = true;
    Dice(salida_.str());
    salida_.str("");
  }
  for (const Omision& omision : std::exchange(puesto_.Mundo().Entorno().Omisiones, {})) {
    if (EsDeSiempre(omision)) continue;
    dicho_ = true;
    Dice(guion::LineaDeOmision(omision.Fallo) + " " + omision.Tabla);
  }
  for (const std::string& parrafo : puesto_.Guardia().Contar().Parrafos) {
    Dice("la guardia: " + parrafo.substr(0, 60));
  }
}

void Vida::Mirar() {
  const bool sano = !dicho_;
  if (!orden_.empty()) {
    const std::string_view nombre = orden_.front().Nombre;
    const std::string primero =
        orden_.front().Argumentos.empty() ? "" : orden_.front().Argumentos.front();
    falloDesdeLaCarga_ = falloDesdeLaCarga_ || dicho_;
    tocaRecibos_ = tocaRecibos_ || primero == "BotonBorrar" || primero == "MSFVencimientos" ||
                   primero == "TxtMsf2";
    if (espera_) {
      MirarGrabacion(sano);
    } else if (nombre == "datos" || quedan_ % 25 == 0) {
      MirarReposo();
    }
    const bool nadaMas = nombre == "cargar" || nombre == "foco" || primero == "BotonAceptar" ||
                         primero == "BotonCancelar";
    if (cargado_ && sano && nadaMas) MirarCarga();
    if (cargado_) {
      tocaRecibos_ = false;
      falloDesdeLaCarga_ = dicho_;
    }
  }
  dicho_ = false;
  cargado_ = false;
  espera_.reset();
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
  if (sano && ahora != *espera_) Hallar("grabado otra cosa:" + Diferencia(*espera_, ahora));
  if (sano) {
    std::vector<Fila> nuevas;
    std::ranges::set_difference(Huerfanas(*grabado_), huerfanas_, std::back_inserter(nuevas));
    for (const Fila& fila : nuevas) {
      falloDesdeLaCarga_ ? Dice("sin su factura, tras un error que se dijo")
                         : Hallar("sin su factura: " + guion::FilaUnida(fila));
    }
    nuevas.clear();
    std::ranges::set_difference(Descuadradas(*grabado_), descuadradas_, std::back_inserter(nuevas));
    for (const Fila& fila : nuevas) {
      const std::string cual = guion::FilaUnida(fila);
      tocaRecibos_ || falloDesdeLaCarga_ ? Dice("descuadre que el usuario ha podido hacer")
                                         : Hallar("los recibos no suman su factura: " + cual);
    }
    Dice("grabado como debe");
  }
  reposo_ = ahora;
  decir_("QUEDA " + std::to_string(Huella(ahora)));
}

void Vida::MirarCarga() {
  auto* form = puesto_.Mundo().Entorno().Buscar("FrmTesvaraGastos");
  if (!form || !form->Visible()) return;
  const auto& pantalla = dynamic_cast<shell::FrmTesvaraGastos&>(*form);
  const std::string carga = DiferenciaDeCarga(*grabado_, puesto_.Local(), *rango_);
  if (!carga.empty()) Hallar("cargado otra cosa: " + carga);
  const Filtros filtros{*rango_, pantalla.Lista.OptFecha.Value, pantalla.Lista.ChkPagados.Value,
                        pantalla.Lista.ChkPrevisiones.Value};
  const std::string lista = DiferenciaDeLista(pantalla.Rejilla.MSFPagos, puesto_.Local(), filtros);
  if (!lista.empty()) Hallar("la lista no es la copia de trabajo: " + lista);
  Dice("cargado y listado como debe");
}

}  // namespace largo
