#include "ventana_principal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>

#include "automation/servidores.h"
#include "contexto.h"
#include "formulario.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

constexpr int kTwips = 15;  // of a logical pixel

services::Ref<services::IForm> ComoForm(QWidget& ventana) {
  return services::Crear<Formulario>(ventana);
}

QLabel* EnEstado(const QString& texto, const QString& detalle) {
  auto* rotulo = new QLabel(texto);
  rotulo->setTextFormat(Qt::PlainText);
  rotulo->setToolTip(detalle);
  rotulo->setContentsMargins(6, 0, 6, 0);
  return rotulo;
}

}  // namespace

VentanaPrincipal::VentanaPrincipal(const Opciones& opciones, const Datos& datos)
    : marco_(new QWidget(this)) {
  setWindowTitle("Sorvex");
  marco_->setObjectName("marco");
  marco_->setMinimumSize(620, 320);
  setCentralWidget(marco_);
  ComponerMenu();
  ComponerEstado(opciones, datos);

  const QSize pantalla = QGuiApplication::primaryScreen()->size();
  const Opciones::Medida real{pantalla.width() * kTwips, pantalla.height() * kTwips};
  const Opciones::Medida referencia = opciones.Referencia.value_or(real);
  contexto_ = services::Crear<Contexto>(Sesion{datos.Almacenados, datos.DeTrabajo,
                                               ComoForm(*marco_), ComoForm(*this), referencia.Ancho,
                                               referencia.Alto, opciones.Usuario.toStdString()});
}

void VentanaPrincipal::ComponerMenu() {
  QMenu* pagos = menuBar()->addMenu("&Pagos");
  pagos->addAction("&Tesvara de Pagos", QKeySequence(Qt::CTRL | Qt::Key_T), this,
                   [this] { AbrirPagos(); });
  pagos->addAction("&Ocultar", this, [this] { Hacer(&services::IClassTesvara::Ocultar); });
  pagos->addAction("&Cerrar", this, [this] { Hacer(&services::IClassTesvara::Cerrar); });
  pagos->addSeparator();
  pagos->addAction("&Salir", QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
}

void VentanaPrincipal::ComponerEstado(const Opciones& opciones, const Datos& datos) {
  const auto nombre = [](const std::string& fichero) {
    return QFileInfo(QString::fromStdString(fichero)).fileName();
  };
  statusBar()->addWidget(EnEstado("Usuario: " + opciones.Usuario, "Firma los cambios"));
  statusBar()->addWidget(EnEstado("Empresa: " + nombre(datos.NombreAlmacenados),
                                  QString::fromStdString(datos.NombreAlmacenados)));
  statusBar()->addWidget(EnEstado("Trabajo: " + nombre(datos.NombreDeTrabajo),
                                  QString::fromStdString(datos.NombreDeTrabajo)));
}

bool VentanaPrincipal::AbrirPagos() {
  try {
    if (!pagos_) {
      pagos_ = automation::CrearObjeto<services::IClassTesvara>(services::IClassTesvara::ProgId);
    }
  } catch (const services::ErrorEjecucion& fallo) {
    Fallo(QString::fromStdString(fallo.Descripcion()));
    return false;
  }
  return Comprobar(pagos_->Cargar(contexto_));
}

/// Asked to hide or close a screen that isn't there, the component would make one first.
bool VentanaPrincipal::Hacer(Operacion operacion) {
  const bool hayPantalla = marco_->findChild<QWidget*>() != nullptr;
  return !pagos_ || !hayPantalla || Comprobar((pagos_.get()->*operacion)());
}

bool VentanaPrincipal::Comprobar(services::HRESULT resultado) {
  if (!services::hr::Fallido(resultado)) return true;
  QString texto = "Tesvara de Pagos no ha podido completar la operación";
  if (const auto descrito = pagos_.Como<services::IDescripcionError>()) {
    texto = QString::fromUtf8(descrito->Descripcion());
  }
  Fallo(texto);
  return false;
}

void VentanaPrincipal::Fallo(const QString& texto) {
  if (AlFallar) return AlFallar(texto);
  QMessageBox caja(QMessageBox::Critical, "Sorvex", texto, QMessageBox::NoButton, this);
  caja.setTextFormat(Qt::PlainText);
  caja.addButton("Aceptar", QMessageBox::AcceptRole);
  caja.exec();
}

/// The screen asks about unsaved changes as it goes.
void VentanaPrincipal::closeEvent(QCloseEvent* evento) {
  Hacer(&services::IClassTesvara::Cerrar);
  evento->accept();
}

}  // namespace anfitrion
