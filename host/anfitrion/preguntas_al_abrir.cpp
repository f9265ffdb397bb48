#include "anfitrion/preguntas_al_abrir.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "mensajes/teclas_de_mensaje.h"

namespace anfitrion {
namespace {

constexpr const char* kTituloDePreguntas = "Sorvex";

bool Confirmar(const std::string& pregunta) {
  QMessageBox caja(QMessageBox::Question, kTituloDePreguntas, QString::fromStdString(pregunta));
  caja.setTextFormat(Qt::PlainText);
  QPushButton* si = caja.addButton("Sí", QMessageBox::YesRole);
  QPushButton* no = caja.addButton("No", QMessageBox::NoRole);
  caja.setDefaultButton(no);
  mensajes::DarTeclas(caja, {si, no});
  caja.exec();
  return caja.clickedButton() == si;
}

std::optional<std::string> PedirContrasena(const std::string& pregunta) {
  QInputDialog dialogo;
  dialogo.setWindowTitle(kTituloDePreguntas);
  dialogo.setLabelText(QString::fromStdString(pregunta) + "\n\nContraseña:");
  dialogo.setTextEchoMode(QLineEdit::Password);
  dialogo.setOkButtonText("Aceptar");
  dialogo.setCancelButtonText("Cancelar");
  for (QLabel* texto : dialogo.findChildren<QLabel*>()) texto->setWordWrap(true);
  for (QLineEdit* campo : dialogo.findChildren<QLineEdit*>()) {
    campo->setAccessibleName("Contraseña");
    campo->setMinimumWidth(campo->fontMetrics().averageCharWidth() * 64);
  }
  if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
  return dialogo.textValue().toStdString();
}

}  // namespace

AlAbrir EnVentanas() {
  return {Confirmar, PedirContrasena};
}

}  // namespace anfitrion
