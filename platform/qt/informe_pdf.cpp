#include "qt/informe_pdf.h"

#include <QDir>
#include <QFileInfo>
#include <exception>

#include "qt/cursor_de_espera.h"
#include "qt/motivo_de_fichero.h"
#include "qt/pdf_acabado.h"
#include "qt/textos_qt.h"
#include "valores/error.h"

namespace qt {
namespace {

/// Why no file can be put there, as far as it can be told beforehand; empty otherwise. The
/// toolkit's own texts for these aren't for users.
QString Impedimento(const QFileInfo& fichero) {
  const QFileInfo carpeta(fichero.absolutePath());
  const QString nombre = QDir::toNativeSeparators(carpeta.filePath());
  if (fichero.isDir()) return QStringLiteral("ese nombre es el de una carpeta");
  // Not a device, which would give way to the file.
  if (fichero.exists() && !fichero.isFile()) {
    return QStringLiteral("ese nombre no es de un fichero");
  }
  if (!carpeta.exists()) return QStringLiteral("no existe la carpeta «%1»").arg(nombre);
  if (!carpeta.isDir()) return QStringLiteral("«%1» no es una carpeta").arg(nombre);
  if (!carpeta.isWritable()) {
    return QStringLiteral("no hay permiso para escribir en la carpeta «%1»").arg(nombre);
  }
  if (fichero.exists() && !fichero.isWritable()) {
    return QStringLiteral("no hay permiso para cambiar el que ya existe");
  }
  return {};
}

}  // namespace

InformePdf::InformePdf(const QString& fichero, const QString& titulo,
                       std::function<void()> alGuardar)
    : fichero_(fichero), alGuardar_(std::move(alGuardar)) {
  AbrirDestino();
  Exigir(borrador_.open(), borrador_);
  escritor_.emplace(&borrador_);
  escritor_->setResolution(kTwipsPorPulgada);
  escritor_->setPageSize(QPageSize(QPageSize::A4));
  escritor_->setPageMargins({});
  escritor_->setTitle(titulo);
  escritor_->setCreator(QStringLiteral("Tesvara de Pagos"));
  Exigir(prensa_.Empezar(*escritor_), borrador_);
}

/// Before anything is drawn, so that the user is told at once.
void InformePdf::AbrirDestino() {
  const QString impedimento = Impedimento(QFileInfo(fichero_));
  if (!impedimento.isEmpty()) Fallar(impedimento);
  destino_.emplace(fichero_);
  Exigir(destino_->open(QIODevice::WriteOnly), *destino_);
}

void InformePdf::Entregar(const services::LaminaInforme& hoja) {
  Exigir(prensa_.Pintar(hoja) && borrador_.error() == QFileDevice::NoError, borrador_);
}

void InformePdf::EndDoc() {
  if (!prensa_.EnMarcha()) return;
  Acabar();
  if (alGuardar_) alGuardar_();
}

void InformePdf::Acabar() {
  const CursorDeEspera espera;
  PasarHoja();
  Exigir(prensa_.Acabar() && borrador_.flush(), borrador_);
  try {
    AcabarPdf(borrador_, *destino_);
  } catch (const std::exception& fallo) {
    Exigir(destino_->error() == QFileDevice::NoError, *destino_);
    Fallar(QString::fromLocal8Bit(fallo.what()));
  }
  // What is still in memory is written by the commit too, which doesn't tell whether it could.
  Exigir(destino_->flush() && destino_->commit(), *destino_);
  Cerrar();
}

void InformePdf::KillDoc() {
  if (prensa_.EnMarcha()) static_cast<void>(prensa_.Acabar());
  Cerrar();
}

/// What isn't committed by now is gone.
void InformePdf::Cerrar() {
  escritor_.reset();
  destino_.reset();
  borrador_.remove();
}

void InformePdf::Exigir(bool bien, QFileDevice& fichero) const {
  if (!bien) Fallar(MotivoDe(fichero));
}

void InformePdf::Fallar(const QString& motivo) const {
  QString texto = QStringLiteral("No se ha podido guardar el informe en «%1»")
                      .arg(QDir::toNativeSeparators(fichero_));
  if (!motivo.isEmpty()) texto += QStringLiteral(": ") + motivo;
  throw services::ErrorEjecucion(services::error::ErrorDeImpresora, Utf8(texto));
}

}  // namespace qt
