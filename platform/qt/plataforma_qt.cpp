#include "qt/plataforma_qt.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QPrinterInfo>
#include <QScreen>
#include <utility>

#include "forms/form.h"
#include "qt/aviso_qt.h"
#include "qt/medidas.h"
#include "qt/selector_conceptos_qt.h"
#include "qt/textos_qt.h"
#include "qt/ventana_qt.h"

namespace qt {
namespace {

services::MedidaPantalla MedirPantalla() {
  const QScreen* pantalla = QGuiApplication::primaryScreen();
  const QSize puntos = pantalla ? pantalla->size() : QSize();
  return {puntos.width() * kTwips, puntos.height() * kTwips};
}

void MostrarEspera(bool ocupado) {
  ocupado ? QGuiApplication::setOverrideCursor(Qt::WaitCursor)
          : QGuiApplication::restoreOverrideCursor();
}

std::vector<std::string> Impresoras() {
  std::vector<std::string> nombres;
  for (const QString& nombre : QPrinterInfo::availablePrinterNames()) {
    nombres.push_back(Utf8(nombre));
  }
  nombres.emplace_back(kGuardarComoPdf);
  return nombres;
}

}  // namespace

services::FechaHora Ahora() {
  const QDateTime momento = QDateTime::currentDateTime();
  const QDate dia = momento.date();
  const QTime hora = momento.time();
  return services::HacerFecha(dia.year(), dia.month(), dia.day(), hora.hour(), hora.minute(),
                              hora.second());
}

services::Plataforma CrearPlataforma(Disenos disenos) {
  services::Plataforma plataforma;
  plataforma.CrearVentana = [disenos = std::move(disenos)](services::Form& form) {
    const auto diseno = disenos.find(form.Nombre());
    if (diseno == disenos.end()) {
      throw services::ErrorEjecucion(services::error::ObjetoNoEstablecido,
                                     "La pantalla " + form.Nombre() + " no tiene diseño");
    }
    return std::make_unique<VentanaQt>(form, diseno->second);
  };
  plataforma.CrearAviso = [] { return std::make_unique<AvisoQt>(); };
  plataforma.CrearSelectorConceptos = [](services::Sesion& sesion) {
    return std::make_unique<SelectorConceptosQt>(sesion);
  };
  plataforma.ErrorNoControlado = &MostrarError;
  plataforma.Ocupado = &MostrarEspera;
  plataforma.Ahora = &Ahora;
  plataforma.Pantalla = &MedirPantalla;
  plataforma.Printers = &Impresoras;
  return plataforma;
}

}  // namespace qt
