#include "anfitrion/ventana_principal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>

#include "anfitrion/contexto.h"
#include "anfitrion/formulario.h"
#include "automation/servidores.h"
#include "ficheros/dialogo.h"
#include "mensajes/teclas_de_mensaje.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

/// How long a message stays in the status bar, in milliseconds.
constexpr int kEnEstado = 30'000;

/// Of a working copy that is left as it is.
constexpr const char* kSeOfrecera =
    "La copia de trabajo se queda como está: si tiene algo sin grabar, la próxima vez se ofrecerá "
    "abrirla. Los pagos que solo están escritos en la lista se perderán.";

/// The sign of what isn't saved goes first: there it shows in a narrow place, too.
constexpr const char* kTitulo = "[*]Sorvex";

QLabel* EnEstado(const QString& texto, const QString& detalle) {
  auto* rotulo = new QLabel(texto);
  rotulo->setTextFormat(Qt::PlainText);
  rotulo->setToolTip(detalle);
  rotulo->setContentsMargins(6, 0, 6, 0);
  return rotulo;
}

/// The surface of the screens, never smaller than they need.
class Superficie final : public QWidget {
 public:
  [[nodiscard]] QSize minimumSizeHint() const override {
    QSize minima;
    for (const QWidget* pantalla : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!pantalla->isHidden()) minima = minima.expandedTo(pantalla->minimumSizeHint());
    }
    return minima;
  }
};

/// In a window that is smaller than the surface one scrolls, and what gets the focus comes to
/// sight.
class AreaDesplazable final : public QScrollArea {
 public:
  explicit AreaDesplazable(QWidget& superficie) {
    setWidget(&superficie);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this, &superficie](QWidget*, QWidget* ahora) {
      if (superficie.isAncestorOf(ahora)) ensureWidgetVisible(ahora);
    });
  }

 protected:
  /// A screen came, went or grew: without a layout of the surface nobody else measures it again.
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    if (objeto == widget() && evento->type() == QEvent::LayoutRequest) event(evento);
    return QScrollArea::eventFilter(objeto, evento);
  }
};

}  // namespace

VentanaPrincipal::VentanaPrincipal(const Opciones& opciones, const Datos& datos)
    : CrearPagos([] {
        return automation::CrearObjeto<services::IClassTesvara>(services::IClassTesvara::ProgId);
      }),
      marco_(new Superficie),
      datos_(datos),
      custodia_(*this, datos, opciones) {
  setWindowTitle(kTitulo);
  marco_->setObjectName("marco");
  setCentralWidget(new AreaDesplazable(*marco_));
  ComponerMenu();
  ComponerEstado(opciones, datos);

  const QSize pantalla = QGuiApplication::primaryScreen()->size();
  const Opciones::Medida real{pantalla.width() * services::kTwips,
                              pantalla.height() * services::kTwips};
  const Opciones::Medida referencia = opciones.Referencia.value_or(real);
  contexto_ = services::Crear<Contexto>(
      Sesion{custodia_.Almacenados(), custodia_.DeTrabajo(), services::Crear<Formulario>(*marco_),
             services::Crear<Formulario>(*this, [this](int cuantos) { ContarPagos(cuantos); }),
             referencia.Ancho, referencia.Alto, opciones.Usuario.toStdString(), &custodia_});
  custodia_.AlDejar = [this](const QString& texto) {
    dejado_ = texto;
    statusBar()->showMessage(texto, kEnEstado);
  };
  custodia_.CerrarSinGrabar = [this] { Hacer(&services::IClassTesvara::Cerrar); };
}

void VentanaPrincipal::ComponerMenu() {
  QMenu* archivo = menuBar()->addMenu("&Archivo");
  archivo->addAction("&Recuperar una copia...", this, [this] { RecuperarUnaCopia(); });
  archivo->addAction("&Abrir una copia guardada aparte...", this, [this] { AbrirUnaAparte(); });
  archivo->addSeparator();
  archivo->addAction("&Salir", QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
  QMenu* pagos = menuBar()->addMenu("&Pagos");
  pagos->addAction("&Tesvara de Pagos", QKeySequence(Qt::CTRL | Qt::Key_T), this,
                   [this] { AbrirPagos(); });
  pagos->addAction("&Ocultar", this, [this] { Hacer(&services::IClassTesvara::Ocultar); });
  pagos->addAction("&Cerrar", this, [this] { CerrarPantalla(); });
}

void VentanaPrincipal::ComponerEstado(const Opciones& opciones, const Datos& datos) {
  const auto nombre = [](const std::string& fichero) {
    return QFileInfo(QString::fromStdString(fichero)).fileName();
  };
  statusBar()->addWidget(EnEstado("Usuario: " + opciones.Usuario, "Firma los cambios"));
  const std::string& empresa = datos.Almacenados->Nombre();
  statusBar()->addWidget(EnEstado(
      "Empresa: " + (datos.Almacenados->EnteroEnSuFichero() ? nombre(empresa)
                                                            : QString::fromStdString(empresa)),
      QString::fromStdString(empresa)));
  statusBar()->addWidget(EnEstado("Trabajo: " + nombre(datos.NombreDeTrabajo),
                                  QString::fromStdString(datos.NombreDeTrabajo)));
}

void VentanaPrincipal::ContarPagos(int cuantos) {
  const QString pagos = cuantos == 1 ? QString("1 pago") : QString("%1 pagos").arg(cuantos);
  setWindowTitle(cuantos == 0 ? QString(kTitulo) : kTitulo + (" – " + pagos + " sin grabar"));
  setWindowModified(cuantos > 0);
}

bool VentanaPrincipal::AbrirPagos() {
  return HayComponente() && (HayPantalla() || custodia_.OfrecerRescate()) && CargarPagos();
}

bool VentanaPrincipal::HayComponente() {
  try {
    if (!pagos_) pagos_ = CrearPagos();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    Mostrar(QMessageBox::Critical, QString::fromStdString(fallo.Descripcion()));
    return false;
  }
}

bool VentanaPrincipal::CargarPagos() {
  if (!Comprobar(pagos_->Cargar(contexto_))) return false;
  custodia_.Abierta();
  return true;
}

/// What is open is closed first, with its own questions, and opened anew on what was put back.
void VentanaPrincipal::RecuperarUnaCopia() {
  const bool abierta = HayPantalla();
  bool cerrada = false;
  custodia_.Recuperar([&] { return cerrada = CerrarPantalla(); });
  if (abierta && cerrada) AbrirPagos();
}

void VentanaPrincipal::AbrirUnaAparte() {
  const QString carpeta = QFileInfo(QString::fromStdString(datos_.NombreDeTrabajo)).path();
  const auto dialogo = ficheros::CrearDialogo(this, "Abrir una copia guardada aparte", carpeta,
                                              "Copias de trabajo (trabajo-*.sqlite);;Todos (*)");
  dialogo->setFileMode(QFileDialog::ExistingFile);
  dialogo->setOption(QFileDialog::ReadOnly);  // nothing is renamed or deleted from here
  if (dialogo->exec() != QDialog::Accepted) return;
  AbrirAparte(dialogo->selectedFiles().value(0).toStdString());
}

void VentanaPrincipal::AbrirAparte(const std::string& fichero) {
  bool cerrada = false;
  if (HayComponente()) {
    custodia_.AbrirAparte(fichero, [&] { return cerrada = CerrarPantalla(); });
  }
  if (cerrada) CargarPagos();
}

/// Asked to hide or close a screen that isn't there, the component would make one first.
bool VentanaPrincipal::HayPantalla() const {
  return pagos_ && marco_->findChild<QWidget*>() != nullptr;
}

bool VentanaPrincipal::Hacer(Operacion operacion) {
  return !HayPantalla() || Comprobar((pagos_.get()->*operacion)());
}

bool VentanaPrincipal::Comprobar(services::HRESULT resultado) {
  if (!services::hr::Fallido(resultado)) return true;
  Mostrar(SeDejo() ? QMessageBox::Information : QMessageBox::Critical, MotivoDePagos());
  return false;
}

/// Whether the last operation failed by the user's own answer.
bool VentanaPrincipal::SeDejo() {
  const auto descrito = pagos_.Como<services::IDescripcionError>();
  return descrito && descrito->Numero() == services::error::OperacionCancelada;
}

QString VentanaPrincipal::MotivoDePagos() {
  if (const auto descrito = pagos_.Como<services::IDescripcionError>()) {
    return QString::fromUtf8(descrito->Descripcion());
  }
  return "Tesvara de Pagos no ha podido completar la operación";
}

void VentanaPrincipal::Mostrar(QMessageBox::Icon icono, const QString& texto) {
  if (AlMostrar) return AlMostrar(texto);
  QMessageBox caja(icono, "Sorvex", texto, QMessageBox::NoButton, this);
  caja.setTextFormat(Qt::PlainText);
  mensajes::DarTeclas(caja, {caja.addButton("Aceptar", QMessageBox::AcceptRole)});
  caja.exec();
}

bool VentanaPrincipal::Preguntar(const QString& texto) {
  if (AlPreguntar) return AlPreguntar(texto);
  QMessageBox caja(QMessageBox::Question, "Sorvex", texto, QMessageBox::NoButton, this);
  caja.setTextFormat(Qt::PlainText);
  QPushButton* si = caja.addButton("Sí", QMessageBox::YesRole);
  QPushButton* no = caja.addButton("No", QMessageBox::NoRole);
  caja.setDefaultButton(no);
  caja.setEscapeButton(no);
  mensajes::DarTeclas(caja, {si, no});
  caja.exec();
  return caja.clickedButton() == si;
}

/// A menu that is opened would wipe what the status bar says, with nothing in its place.
bool VentanaPrincipal::event(QEvent* evento) {
  return evento->type() == QEvent::StatusTip || QMainWindow::event(evento);
}

void VentanaPrincipal::closeEvent(QCloseEvent* evento) {
  dejado_.clear();
  const bool cerrada = CerrarPagos();
  custodia_.Contar(!cerrada);
  if (cerrada && !dejado_.isEmpty()) Mostrar(QMessageBox::Information, dejado_);
  evento->setAccepted(cerrada);
}

QString VentanaPrincipal::MotivoParaNoCerrar() {
  if (!HayPantalla()) return "";
  const auto cierre = pagos_.Como<services::ICierre>();
  return cierre ? QString::fromUtf8(cierre->MotivoParaNoCerrar()) : QString();
}

bool VentanaPrincipal::CerrarPantalla() {
  const QString motivo = MotivoParaNoCerrar();
  if (motivo.isEmpty()) return Hacer(&services::IClassTesvara::Cerrar);
  Mostrar(QMessageBox::Warning, motivo);
  return false;
}

/// The screen asks about unsaved changes as it goes. Nobody is held here by what it can't do.
bool VentanaPrincipal::CerrarPagos() {
  const QString motivo = MotivoParaNoCerrar();
  if (!motivo.isEmpty()) {
    return Preguntar(motivo + "\n\n¿Quiere salir sin hacerlo? " + kSeOfrecera);
  }
  if (!HayPantalla()) return true;
  const bool sinPagos = !isWindowModified();
  const services::HRESULT cerrada = pagos_->Cerrar();
  if (!services::hr::Fallido(cerrada) || SeDejo()) return Comprobar(cerrada);
  if (sinPagos && !custodia_.HayAlgoSinGrabar()) {
    Mostrar(QMessageBox::Warning,
            "No se ha podido cerrar bien Tesvara de Pagos, pero no queda nada sin grabar: " +
                MotivoDePagos());
    return true;
  }
  return Preguntar("No se ha podido cerrar Tesvara de Pagos: " + MotivoDePagos() +
                   "\n\n¿Quiere salir de todas formas? La copia de trabajo se guardará aparte; los "
                   "pagos que solo están escritos en la lista se perderán.") &&
         ApartarTrabajo();
}

bool VentanaPrincipal::ApartarTrabajo() {
  try {
    const std::string aparte = ApartarDeTrabajo(datos_).string();
    Mostrar(QMessageBox::Information,
            "La copia de trabajo queda guardada en " + QString::fromStdString(aparte));
    return true;
  } catch (const std::exception& fallo) {
    return Preguntar(
        "No se ha podido guardar aparte la copia de trabajo: " + QString::fromUtf8(fallo.what()) +
        "\n\n¿Quiere salir dejándola donde está? " + kSeOfrecera);
  }
}

}  // namespace anfitrion
