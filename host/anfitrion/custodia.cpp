#include "anfitrion/custodia.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <utility>

#include "anfitrion/dialogo_copias.h"
#include "anfitrion/fechas.h"
#include "anfitrion/texto_de_rescate.h"
#include "salvaguarda/aparte.h"
#include "salvaguarda/conexion_con_guardia.h"
#include "salvaguarda/fallo_de_fichero.h"
#include "salvaguarda/noticia.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

namespace fs = std::filesystem;

/// The answers to the offer, the harmless one first.
enum { kAparte, kSinElla, kComoEstaba };

QStringList RespuestasA(const salvaguarda::Rescate& rescate) {
  QStringList respuestas{"Guardarla aparte", "Seguir sin ella"};
  if (rescate.SePuedeAbrir()) respuestas << "Abrirla como estaba";
  return respuestas;
}

constexpr const char* kSinCopia = "Ese fichero no tiene ninguna copia de trabajo.";

/// What the engine keeps beside a file. Opening one drops the locks of whoever in this process has
/// that file open.
bool EsDelMotor(const std::string& fichero) {
  return fichero.ends_with("-wal") || fichero.ends_with("-shm");
}

}  // namespace

Custodia::Custodia(QWidget& ventana, const Datos& datos, const Opciones& opciones)
    : ventana_(ventana), datos_(datos) {
  // The component may keep the guard's connection for longer than there is a window.
  const QPointer<Custodia> yo(this);
  const fs::path deTrabajo = datos.NombreDeTrabajo;
  guardia_ = std::make_shared<salvaguarda::Guardia>(
      salvaguarda::Guardia::Bases{datos.Almacenados, datos.DeTrabajo,
                                  salvaguarda::FicheroDeFoto(datos.NombreDeTrabajo)},
      salvaguarda::Guardia::Lugares{datos.Copias, deTrabajo.parent_path() / "registro.txt"},
      opciones.Usuario.toStdString(),
      salvaguarda::Trato{
          &Ahora,
          [yo](const std::string& pregunta) {
            return yo && yo->Elegir({QString::fromStdString(pregunta), {"Sí", "No"}, 1, 1}) == 0;
          },
          [yo] {
            if (yo) yo->ContarDespues();
          },
          opciones.AvisarDeOtros,
          [yo] {
            if (yo) return ApartarDejada(yo->datos_, yo->porAbrir_).string();
            throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                           "la ventana se ha cerrado");
          },
          [yo](const std::string& texto) {
            if (yo) yo->AlDejar(QString::fromStdString(texto));
          }});
  almacenados_ =
      services::Crear<salvaguarda::ConexionGuardada>(datos.Almacenados->Conexion(), guardia_);
  deTrabajo_ = services::Crear<salvaguarda::ConexionDeTrabajo>(datos.DeTrabajo, guardia_);
  Elegir = [this](const PreguntaConTexto& pregunta) { return Preguntar(ventana_, pregunta); };
}

void Custodia::Decir(const QString& texto) {
  Elegir({texto, {"Aceptar"}});
}

/// Once the event that it came up in is over.
void Custodia::ContarDespues() {
  if (!std::exchange(porContar_, true)) QTimer::singleShot(0, this, &Custodia::ContarSinEstorbar);
}

/// An event that waits for the user isn't over yet.
void Custodia::ContarSinEstorbar() {
  constexpr std::chrono::milliseconds kOtraVez{100};
  if (!porContar_) return;
  if (!QApplication::activeModalWidget()) return Contar();
  QTimer::singleShot(kOtraVez, this, &Custodia::ContarSinEstorbar);
}

void Custodia::Contar(bool abierta) try {
  porContar_ = false;
  const salvaguarda::Relato relato = guardia_->Contar();
  if (relato.Parrafos.empty()) return;
  QStringList parrafos;
  for (const std::string& parrafo : relato.Parrafos) parrafos << QString::fromStdString(parrafo);
  const QString texto = parrafos.join("\n\n");
  if (!relato.BorrariaFilas || !abierta) return Decir(texto);
  if (Elegir({texto, {"Seguir", "Cerrar sin grabar"}}) == 1) CerrarSinGrabar();
} catch (const std::exception& fallo) {
  Decir("No se ha podido mirar lo que no se ha cargado o grabado: " +
        QString::fromUtf8(fallo.what()));
}

void Custodia::CopiarElDia() {
  try {
    guardia_->CopiarElDia();
  } catch (const std::exception& fallo) {
    guardia_->Anotar(std::string("No se ha podido copiar el fichero entero: ") + fallo.what());
    Decir("No se ha podido guardar la copia de hoy de las tablas de la empresa: " +
          QString::fromUtf8(fallo.what()));
  }
}

bool Custodia::OfrecerRescate() {
  porRetomar_.reset();
  std::optional<salvaguarda::Rescate> rescate;
  try {
    rescate = RescateEn(*datos_.DeTrabajo);
  } catch (const std::exception& fallo) {
    return ApartarSinMirar(QString::fromUtf8(fallo.what()));
  }
  try {
    if (rescate) Ofrecer(*rescate);
    return true;
  } catch (const std::exception& fallo) {
    Decir(
        "No se ha podido guardar aparte la copia de trabajo que quedó, y no se abre para no "
        "perderla: " +
        QString::fromUtf8(fallo.what()));
    return false;
  }
}

void Custodia::Ofrecer(const salvaguarda::Rescate& rescate) {
  guardia_->Anotar(
      ParaAnotar({"Quedó una copia de trabajo sin grabar", rescate.Filas}, guardia_->Conceptos()));
  const int respuesta =
      Elegir({TextoDeLaQueQuedo(rescate, guardia_->Conceptos()), RespuestasA(rescate), 0, 0});
  if (respuesta == kSinElla) return guardia_->Anotar("Se sigue sin la copia de trabajo que quedó");
  // Also when it is opened: what is closed without saving is then still there.
  const std::string aparte = Apartar();
  guardia_->DarPorVisto();
  if (respuesta == kAparte) return DecirDondeQueda(aparte);
  try {
    Retomar(rescate);
  } catch (const std::exception& fallo) {
    Decir("No se ha podido abrir la copia de trabajo que quedó: " +
          QString::fromUtf8(fallo.what()));
    DecirDondeQueda(aparte);
  }
}

std::optional<salvaguarda::Rescate> Custodia::RescateEn(sqlite::Conexion& deTrabajo) const {
  return salvaguarda::BuscarRescate(deTrabajo, *datos_.Almacenados,
                                    salvaguarda::FicheroDeFoto(datos_.NombreDeTrabajo));
}

void Custodia::Retomar(const salvaguarda::Rescate& rescate) {
  guardia_->AlRetomar(rescate);
  porRetomar_ = rescate.Copia.Rango;
}

bool Custodia::HayAlgoSinGrabar() {
  try {
    return guardia_->HayAlgoSinGrabar();
  } catch (const std::exception& fallo) {
    guardia_->Anotar(std::string("No se ha podido mirar si queda algo sin grabar: ") +
                     fallo.what());
    return true;
  }
}

void Custodia::AbrirAparte(const std::string& fichero, const std::function<bool()>& cerrar) {
  porRetomar_.reset();
  // What closing keeps aside must not push out the one that is picked.
  const QScopedValueRollback<fs::path> mientras(porAbrir_, fichero);
  try {
    if (EsLaAbierta(fichero)) return Decir("Esa es la copia de trabajo que está abierta.");
    if (EsDelMotor(fichero)) return Decir(kSinCopia);
    if (!QuiereAbrir(*sqlite::AbrirConexion(fichero, {.SoloLectura = true})) || !cerrar()) return;
    // One that was left behind and not offered yet.
    if (RescateEn(*datos_.DeTrabajo)) DecirDondeQueda(Apartar());
    salvaguarda::TraerCopia(*datos_.DeTrabajo, fichero);
    // What was saved as the screen closed isn't missing any more.
    if (const auto rescate = RescateEn(*datos_.DeTrabajo)) Retomar(*rescate);
    guardia_->Anotar("Se abre la copia de trabajo guardada en " + fichero);
  } catch (const std::exception& fallo) {
    Decir("No se ha podido abrir la copia: " + QString::fromUtf8(fallo.what()));
  }
}

bool Custodia::EsLaAbierta(const std::string& fichero) const {
  return salvaguarda::EnElDisco("abrir " + fichero,
                                [&] { return fs::equivalent(fichero, datos_.NombreDeTrabajo); });
}

void Custodia::DecirDondeQueda(const std::string& aparte) {
  Decir("La copia de trabajo que había queda guardada en " + QString::fromStdString(aparte) +
        ". Puede abrirla con Archivo, Abrir una copia guardada aparte.");
}

bool Custodia::QuiereAbrir(sqlite::Conexion& aparte) {
  if (!salvaguarda::HayCopia(aparte)) {
    Decir(kSinCopia);
    return false;
  }
  const auto rescate = RescateEn(aparte);
  if (!rescate) {
    Decir("En esa copia no hay nada que no esté así en las tablas de la empresa.");
    return false;
  }
  const QString texto = TextoDeLaDeAparte(*rescate, guardia_->Conceptos());
  if (rescate->SePuedeAbrir()) return Elegir({texto, {"Sí", "No"}, 0, 1}) == 0;
  Decir(texto);
  return false;
}

std::string Custodia::Apartar() {
  std::string aparte = ApartarDeTrabajo(datos_).string();
  guardia_->Anotar("La copia de trabajo que quedó se guarda en " + aparte);
  return aparte;
}

/// A load would empty it.
bool Custodia::ApartarSinMirar(const QString& motivo) {
  try {
    Decir("No se ha podido mirar si quedó algo sin grabar: " + motivo +
          "\n\nLa copia de trabajo que había queda guardada en " +
          QString::fromStdString(Apartar()));
    return true;
  } catch (const std::exception& fallo) {
    Decir("No se ha podido mirar si quedó algo sin grabar: " + motivo +
          "\n\nTampoco se puede guardar aparte, y no se abre para no perderlo: " +
          QString::fromUtf8(fallo.what()));
    return false;
  }
}

/// What was saved as the screen closed, or by others since, wasn't among what was confirmed.
bool Custodia::SigueQueriendo(const salvaguarda::Copia& copia,
                              const salvaguarda::Reposicion& confirmada) {
  const salvaguarda::Reposicion ahora = guardia_->Comparar(copia);
  if (ahora == confirmada) return true;
  const QString texto = "Lo grabado ha cambiado desde que eligió la copia. " + Resumen(ahora);
  return Elegir({texto + "\n\n¿Recuperarla de todos modos?", {"Sí", "No"}, 1, 1}) == 0;
}

void Custodia::Recuperar(const std::function<bool()>& cerrar) try {
  DialogoCopias dialogo(ventana_, *guardia_);
  if (dialogo.exec() != QDialog::Accepted) return;
  const salvaguarda::Copia& elegida = dialogo.Elegida();
  guardia_->Reservar(elegida);
  if (!cerrar()) {
    return Decir("No se ha recuperado la copia: Tesvara de Pagos sigue abierto.");
  }
  try {
    if (!SigueQueriendo(elegida, dialogo.Confirmada())) return;
    guardia_->Reponer(elegida);
    guardia_->Anotar("Recuperada la copia " + elegida.Fichero.string());
    Decir("La copia está recuperada. Lo que había hasta ahora queda en otra.");
  } catch (const std::exception& fallo) {
    Decir("No se ha podido recuperar la copia: " + QString::fromUtf8(fallo.what()));
  }
} catch (const std::exception& fallo) {
  Decir("No se han podido leer las copias: " + QString::fromUtf8(fallo.what()));
}

}  // namespace anfitrion
