#include "largo/vida.h"

#include <algorithm>
#include <csignal>

#include "dialecto/formas.h"
#include "forms/controles.h"
#include "guion/salida.h"
#include "largo/contador.h"
#include "largo/modelo.h"
#include "services/utiles.h"

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
      oferta_(carpeta, puesto_, usuario_.Azar()),
      grabado_(sqlite::AbrirConexion(Puesto::FicheroDatos(carpeta))),
      quedan_(acciones),
      llamadasHastaMorir_(usuario_.Azar().DeCada100(60) ? usuario_.Azar().Entre(50, 6'000) : -1),
      desdeLaCarga_(carpeta) {
  vigilante_->AlLlamar = [this] { AlLlamar(); };
  vigilante_->AlAbrir = [this](std::string_view sentencia) { AlAbrir(sentencia); };
  puesto_.Mundo().Entorno().PararReloj(services::HacerFecha(2005, 3, 15, 10));
  puesto_.Preguntar = [this](const std::string& pregunta) {
    const bool adelante = usuario_.Azar().DeCada100(70);
    if (grabacion_) grabacion_->Preguntado = true;
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
  if (omite) desdeLaCarga_.ApuntarFallo();
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
    desdeLaCarga_.Empezar(LeerAlmacenadas(*grabado_));
    return;
  }
  EmpezarGrabacion(comienzo->Rango);
}

void Vida::EmpezarGrabacion(const salvaguarda::Rango& rango) {
  const Tablas antes = LeerAlmacenadas(*grabado_);
  const Tablas espera = TrasGrabar(Puesto::FicheroDatos(carpeta_), puesto_.Local(), rango);
  grabacion_ = {espera,
                Huerfanas(*grabado_),
                Descuadradas(*grabado_),
                desdeLaCarga_.Nuevas(antes, espera),
                desdeLaCarga_.HaFallado(),
                desdeLaCarga_.TocaRecibos()};
  decir_("GRABA " + std::to_string(Huella(antes)) + " " + std::to_string(Huella(espera)));
}

int Vida::Vivir(const Herencia& herencia) {
  Empezar(herencia);
  guion::Ejecucion ejecucion(puesto_.Mundo(), salida_, salida_);
  const int estado = ejecucion.Correr([this](int) { return Orden(); });
  if (estado != guion::kBien) Hallar("la partida se rompe: " + salida_.str());
  return 0;
}

void Vida::Empezar(const Herencia& herencia) {
  const std::uint64_t huella = Huella(LeerAlmacenadas(*grabado_));
  if (herencia.Antes && huella != *herencia.Antes &&
      (!herencia.Despues || huella != *herencia.Despues)) {
    Hallar("lo grabado no es lo de antes ni lo de después");
  }
  EscribirOtros();
  reposo_ = LeerAlmacenadas(*grabado_);
  decir_("QUEDA " + std::to_string(Huella(reposo_)));
  if (Uno(*grabado_, "PRAGMA integrity_check") != "ok") Hallar("integrity_check de lo grabado");
  if (Uno(puesto_.Local(), "PRAGMA integrity_check") != "ok") {
    Hallar("integrity_check de lo de trabajo");
  }
  if (Puesto::CopiasAMedias(carpeta_) != 0) Hallar("una copia a medias con su nombre");
  puesto_.Guardia().CopiarElDia();
}

/// Others have gone on working while there was no program.
void Vida::EscribirOtros() {
  for (int veces = usuario_.Azar().Entre(0, 3); veces > 0; --veces) {
    const std::string sql = usuario_.DeOtro();
    decir_("ORDEN datos " + sql);
    grabado_->Ejecutar(sql);
  }
}

/// As the suite does it whenever it opens the screen.
void Vida::OfrecerRescate() {
  const std::vector<Fila> suyas =
      desdeLaCarga_.Nuevas(LeerDeTrabajo(puesto_.Local()), LeerAlmacenadas(*grabado_));
  const std::string respuesta = oferta_.Hacer();
  if (!respuesta.empty()) Dice("rescate: " + respuesta);
  if (respuesta.empty() && !suyas.empty()) {
    Hallar("no ofrece lo que no se grabó:" + Diferencia({}, suyas));
  }
  if (!oferta_.Reparo().empty()) Hallar(oferta_.Reparo());
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
  const std::string primero = SobreQue();
  if (primero == "BotonBorrar" || primero == "MSFVencimientos" || primero == "TxtMsf2") {
    desdeLaCarga_.ApuntarRecibos();
  }
  if (texto == "cargar" && !puesto_.Mundo().Entorno().Buscar("FrmTesvaraGastos")) OfrecerRescate();
  return &orden_.front();
}

std::string Vida::SobreQue() const {
  return orden_.front().Argumentos.empty() ? "" : orden_.front().Argumentos.front();
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

}  // namespace largo
