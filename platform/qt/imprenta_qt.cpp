#include "qt/imprenta_qt.h"

#include <QDir>
#include <QFileInfo>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>

#include "qt/aviso_qt.h"
#include "qt/dialogo_guardar.h"
#include "qt/impresora_qt.h"
#include "qt/impresoras_del_sistema.h"
#include "qt/informe_pdf.h"
#include "qt/letra_de_informe.h"
#include "qt/textos_qt.h"
#include "valores/error.h"

namespace qt {
namespace {

namespace mensaje = services::mensaje;

std::string Comillas(const QString& nombre) {
  return "«" + Utf8(nombre) + "»";
}

/// The printer that a work goes to: where it names none, the system's own.
std::string Resolver(const std::string& impresora) {
  if (!impresora.empty()) return impresora;
  const std::vector<std::string> nombres = Impresoras();
  // A server that doesn't answer isn't asked again.
  const QString propia = nombres.size() > 1 ? QPrinterInfo::defaultPrinterName() : QString();
  return propia.isEmpty() ? nombres.front() : Utf8(propia);
}

bool Conforme(const PreguntasDeImprenta& preguntas, const std::string& ausente,
              const std::string& impresora) {
  const std::string adonde = impresora == kGuardarComoPdf
                                 ? "se guardará como PDF."
                                 : "irá a " + Comillas(Texto(impresora)) + ".";
  return preguntas.Mostrar("La impresora " + Comillas(Texto(ausente)) +
                               " no está disponible. El informe " + adonde,
                           kAceptarCancelar | kExclamacion, "Imprimir") == mensaje::Aceptar;
}

/// The file to write, which the user lets go of if it is there already; empty when he backs out.
QString ElegirFichero(const PreguntasDeImprenta& preguntas, const std::string& nombre) {
  const QDir documentos(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  QString fichero = documentos.filePath(Texto(nombre) + QStringLiteral(".pdf"));
  for (;;) {
    fichero = preguntas.PedirFichero(fichero);
    if (fichero.isEmpty()) return {};
    // A date in it isn't an ending.
    if (!fichero.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) {
      fichero += QStringLiteral(".pdf");
    }
    if (!QFileInfo(fichero).isFile() && !QFileInfo(fichero).isSymLink()) return fichero;
    const std::string pregunta =
        "Ya existe " + Comillas(QFileInfo(fichero).fileName()) + ". ¿Desea sustituirlo?";
    if (preguntas.Mostrar(pregunta, mensaje::SiNo, kGuardarComoPdf) == mensaje::Si) return fichero;
  }
}

std::unique_ptr<services::DestinoInforme> AbrirFichero(const services::TrabajoDeImpresion& trabajo,
                                                       const PreguntasDeImprenta& preguntas) {
  const QString fichero = ElegirFichero(preguntas, trabajo.Fichero);
  if (fichero.isEmpty()) return nullptr;
  return std::make_unique<InformePdf>(
      fichero, Texto(trabajo.Titulo), [fichero, mostrar = preguntas.Mostrar] {
        mostrar("El informe se ha guardado en " + Comillas(QDir::toNativeSeparators(fichero)) + ".",
                kInformacion, kGuardarComoPdf);
      });
}

}  // namespace

PreguntasDeImprenta PreguntasEnPantalla() {
  return {&PedirFicheroPdf, [](const std::string& texto, int flags, const std::string& titulo) {
            return AvisoQt().Mostrar(texto, flags, titulo);
          }};
}

std::vector<std::string> Impresoras() {
  std::vector<std::string> nombres;
  for (const QString& nombre : ImpresorasDelSistema()) {
    nombres.push_back(Utf8(nombre));
  }
  nombres.emplace_back(kGuardarComoPdf);
  return nombres;
}

std::unique_ptr<services::DestinoInforme> AbrirImpresora(
    const services::TrabajoDeImpresion& trabajo, const PreguntasDeImprenta& preguntas) {
  const std::string impresora = Resolver(trabajo.Impresora);
  if (!trabajo.Ausente.empty() && !Conforme(preguntas, trabajo.Ausente, impresora)) return nullptr;
  if (impresora == kGuardarComoPdf) return AbrirFichero(trabajo, preguntas);
  return std::make_unique<ImpresoraQt>(Texto(impresora), Texto(trabajo.Titulo));
}

std::unique_ptr<services::HojaInforme> CrearHoja(int) {
  return std::make_unique<services::HojaInforme>(MedidasDeInforme());
}

}  // namespace qt
