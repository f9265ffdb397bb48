#include "qt/plataforma_qt.h"

#include <QApplication>
#include <QDateTime>
#include <QScreen>
#include <QThread>
#include <iostream>
#include <utility>

#include "forms/form.h"
#include "qt/avance_qt.h"
#include "qt/aviso_qt.h"
#include "qt/imprenta_qt.h"
#include "qt/medidas.h"
#include "qt/selector_conceptos_qt.h"
#include "qt/textos_qt.h"
#include "qt/ventana_qt.h"

namespace qt {
namespace {

/// Why no window can be made here, empty where one can. The toolkit itself ends the process.
std::string SinVentanas() {
  const auto* aplicacion = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (!aplicacion) return "El anfitrión no ha creado la aplicación de las ventanas (QApplication)";
  if (QThread::currentThread() == aplicacion->thread()) return "";
  return "Se ha llamado desde un hilo que no es el de las ventanas del anfitrión";
}

void ExigirVentanas() {
  const std::string motivo = SinVentanas();
  if (motivo.empty()) return;
  throw services::ErrorEjecucion(services::error::ObjetoNoEstablecido, motivo);
}

void DecirError(services::Aviso& aviso, const services::ErrorEjecucion& fallo) {
  if (SinVentanas().empty()) return MostrarError(aviso, fallo);
  std::cerr << "Nº Error: " << fallo.Numero() << ": " << fallo.Descripcion() << std::endl;
}

services::MedidaPantalla MedirPantalla() {
  ExigirVentanas();
  const QScreen* pantalla = QGuiApplication::primaryScreen();
  const QSize puntos = pantalla ? pantalla->size() : QSize();
  return {puntos.width() * services::kTwips, puntos.height() * services::kTwips};
}

/// Off the windows' thread there is no cursor: whoever asks for a window is told why it fails.
void MostrarEspera(bool ocupado) {
  if (!SinVentanas().empty()) return;
  ocupado ? QGuiApplication::setOverrideCursor(Qt::WaitCursor)
          : QGuiApplication::restoreOverrideCursor();
}

void PonerImprenta(services::Plataforma& plataforma) {
  plataforma.Printers = [] {
    ExigirVentanas();
    return Impresoras();
  };
  plataforma.AbrirImpresora = [](const services::TrabajoDeImpresion& trabajo) {
    ExigirVentanas();
    return AbrirImpresora(trabajo);
  };
  plataforma.CrearHoja = [](int pagina) {
    ExigirVentanas();
    return CrearHoja(pagina);
  };
  plataforma.CrearAvance = [](const std::string& titulo) {
    ExigirVentanas();
    return std::make_unique<AvanceQt>(titulo);
  };
}

}  // namespace

services::FechaHora Ahora() {
  const QDateTime momento = QDateTime::currentDateTime();
  const QDate dia = momento.date();
  const QTime hora = momento.time();
  return services::HacerFecha(dia.year(), dia.month(), dia.day(), hora.hour(), hora.minute(),
                              hora.second());
}

services::Plataforma CrearPlataforma(Disenos disenos, std::chrono::milliseconds antesDeLeer) {
  services::Plataforma plataforma;
  plataforma.CrearAviso = [antesDeLeer] {
    ExigirVentanas();
    return std::make_unique<AvisoQt>(antesDeLeer);
  };
  plataforma.CrearVentana = [disenos = std::move(disenos),
                             crearAviso = plataforma.CrearAviso](services::Form& form) {
    ExigirVentanas();
    const auto diseno = disenos.find(form.Nombre());
    if (diseno == disenos.end()) {
      throw services::ErrorEjecucion(services::error::ObjetoNoEstablecido,
                                     "La pantalla " + form.Nombre() + " no tiene diseño");
    }
    return std::make_unique<VentanaQt>(form, diseno->second, crearAviso);
  };
  plataforma.CrearSelectorConceptos = [](services::Sesion& sesion) {
    ExigirVentanas();
    return std::make_unique<SelectorConceptosQt>(sesion);
  };
  plataforma.ErrorNoControlado = [antesDeLeer](const services::ErrorEjecucion& fallo) {
    AvisoQt aviso(antesDeLeer);
    DecirError(aviso, fallo);
  };
  plataforma.Ocupado = &MostrarEspera;
  plataforma.Ahora = &Ahora;
  plataforma.Pantalla = &MedirPantalla;
  PonerImprenta(plataforma);
  return plataforma;
}

}  // namespace qt
