#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QTimer>
#include <QTranslator>

#include "anfitrion/captura.h"
#include "anfitrion/datos.h"
#include "anfitrion/opciones_suite.h"
#include "anfitrion/preguntas_al_abrir.h"
#include "anfitrion/ventana_principal.h"
#include "automation/registro_clases.h"
#include "automation/servidores.h"
#include "esquema/esquema_de_servidor.h"
#include "services/anfitrion.h"
#include "valores/error.h"

// The example suite "Sorvex": a host for the component, with a business of its own.

namespace {

using anfitrion::Opciones;

constexpr QSize kTamanoDeCaptura(1280, 800);

QTextStream& Salida() {
  static QTextStream salida(stdout);
  return salida;
}

QStringList Argumentos(int argc, char** argv) {
  QStringList argumentos;
  for (int i = 1; i < argc; ++i) argumentos << QString::fromLocal8Bit(argv[i]);
  return argumentos;
}

/// The library beside this program, where a build or an installation puts it.
std::filesystem::path Biblioteca() {
  const QDir programas(QCoreApplication::applicationDirPath());
  return programas.filePath("../lib/libtesvara.so").toStdString();
}

/// The component is put on the user's list unless it is there with this very library: another build
/// of it would not understand this program.
void RegistrarSiFalta() {
  const auto clase = automation::Registro().Buscar(services::IClassTesvara::ProgId);
  const std::filesystem::path biblioteca = Biblioteca();
  std::error_code distinta;
  if (clase && std::filesystem::equivalent(clase->Biblioteca, biblioteca, distinta)) return;
  automation::RegistrarBiblioteca(biblioteca);
}

int Capturar(anfitrion::VentanaPrincipal& ventana, const QString& carpeta) {
  const auto escribir = [](const QString& texto) { QTextStream(stderr) << texto << Qt::endl; };
  ventana.AlMostrar = escribir;
  // There is nobody to ask, and the picture is what it was started for.
  ventana.AlPreguntar = [escribir](const QString& texto) {
    escribir(texto);
    return true;
  };
  ventana.Custodia().Elegir = [escribir](const anfitrion::PreguntaConTexto& pregunta) {
    escribir(pregunta.Texto);
    return pregunta.AlDejarla;
  };
  ventana.resize(kTamanoDeCaptura);
  ventana.show();
  ventana.Custodia().CopiarElDia();
  if (!ventana.AbrirPagos()) return EXIT_FAILURE;
  QCoreApplication::processEvents();
  anfitrion::EscribirLista(ventana, Salida());
  Salida() << anfitrion::GuardarImagen(ventana, carpeta) << Qt::endl;
  return ventana.close() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int Trabajar(anfitrion::VentanaPrincipal& ventana) {
  ventana.showMaximized();
  // The frame has its size once the window is on the screen.
  QTimer::singleShot(0, &ventana, [&ventana] {
    ventana.Custodia().CopiarElDia();
    ventana.AbrirPagos();
  });
  return QApplication::exec();
}

/// The toolkit's own texts, such as those of its file dialog, in the suite's language.
void HablarEnEspanol() {
  auto* textos = new QTranslator(qApp);
  const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (textos->load("qtbase_es", carpeta)) QCoreApplication::installTranslator(textos);
}

int Iniciar(const Opciones& opciones) {
  HablarEnEspanol();
  const bool conAlguien = opciones.Captura.isEmpty();
  anfitrion::AlAbrir alAbrir = conAlguien ? anfitrion::EnVentanas() : anfitrion::AlAbrir();
  if (opciones.Muestra) alAbrir.Confirmar = [](const std::string&) { return true; };
  const anfitrion::Datos datos = anfitrion::AbrirDatos(opciones, alAbrir);
  RegistrarSiFalta();
  anfitrion::VentanaPrincipal ventana(opciones, datos);
  return conAlguien ? Trabajar(ventana) : Capturar(ventana, opciones.Captura);
}

int EscribirTablas(const std::string& motor) {
  try {
    for (const std::string& sentencia : esquema::SentenciasDeCreacion(motor)) {
      Salida() << QString::fromStdString(sentencia) << ";" << Qt::endl;
    }
    return EXIT_SUCCESS;
  } catch (const services::ErrorEjecucion& fallo) {
    QTextStream(stderr) << QString::fromStdString(fallo.Descripcion()) << Qt::endl;
    return EXIT_FAILURE;
  }
}

void MostrarFallo(const QString& texto, bool sinPantalla) {
  QTextStream(stderr) << texto << Qt::endl;
  if (sinPantalla) return;
  QMessageBox caja(QMessageBox::Critical, "Sorvex", texto);
  caja.setTextFormat(Qt::PlainText);
  caja.addButton("Aceptar", QMessageBox::AcceptRole);
  caja.exec();
}

}  // namespace

int main(int argc, char** argv) {
  Opciones opciones;
  try {
    opciones = anfitrion::LeerOpciones(Argumentos(argc, argv));
  } catch (const services::ErrorEjecucion& fallo) {
    QTextStream(stderr) << QString::fromStdString(fallo.Descripcion()) << Qt::endl;
    return EXIT_FAILURE;
  }
  if (opciones.Ayuda) {
    Salida() << anfitrion::TextoDeAyuda() << Qt::endl;
    return EXIT_SUCCESS;
  }
  if (!opciones.Tablas.isEmpty()) return EscribirTablas(opciones.Tablas.toStdString());
  if (!opciones.Captura.isEmpty()) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication aplicacion(argc, argv);
  try {
    return Iniciar(opciones);
  } catch (const services::ErrorEjecucion& fallo) {
    // Who would rather not go on needn't be told so in a window.
    const bool cancelado = fallo.Numero() == services::error::OperacionCancelada;
    MostrarFallo(QString::fromUtf8(fallo.what()), cancelado || !opciones.Captura.isEmpty());
    return EXIT_FAILURE;
  } catch (const std::exception& fallo) {
    MostrarFallo(QString::fromUtf8(fallo.what()), !opciones.Captura.isEmpty());
    return EXIT_FAILURE;
  }
}
