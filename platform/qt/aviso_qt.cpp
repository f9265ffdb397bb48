#include "qt/aviso_qt.h"

#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <vector>

#include "qt/colocacion.h"
#include "qt/textos_qt.h"

namespace qt {
namespace {

namespace mensaje = services::mensaje;

struct Boton {
  const char* Rotulo;
  int Respuesta;
  QMessageBox::ButtonRole Papel;
};

/// The low bits of the flags tell the buttons, the next ones the icon.
constexpr int kBotones = 0x0F;
constexpr int kIcono = 0x70;
constexpr int kPregunta = 32;

std::vector<Boton> BotonesDe(int flags) {
  constexpr Boton kSi{"Sí", mensaje::Si, QMessageBox::YesRole};
  constexpr Boton kNo{"No", mensaje::No, QMessageBox::NoRole};
  // A question of yes or no has no way out but an answer: this part of the box isn't taken for one.
  constexpr Boton kNoSolo{"No", mensaje::No, QMessageBox::DestructiveRole};
  constexpr Boton kCancelar{"Cancelar", mensaje::Cancelar, QMessageBox::RejectRole};
  constexpr Boton kAceptar{"Aceptar", mensaje::Aceptar, QMessageBox::AcceptRole};
  switch (flags & kBotones) {
    case mensaje::SiNo:
      return {kSi, kNoSolo};
    case mensaje::SiNoCancelar:
      return {kSi, kNo, kCancelar};
    case kAceptarCancelar:
      return {kAceptar, kCancelar};
    default:
      return {kAceptar};
  }
}

QMessageBox::Icon IconoDe(int flags) {
  switch (flags & kIcono) {
    case mensaje::Alto:
      return QMessageBox::Critical;
    case kExclamacion:
      return QMessageBox::Warning;
    case kInformacion:
      return QMessageBox::Information;
    case kPregunta:
      return QMessageBox::Question;
    default:
      return BotonesDe(flags).size() > 1 ? QMessageBox::Question : QMessageBox::NoIcon;
  }
}

/// Untitled, the toolkit would name the program's file.
constexpr const char* kSinTitulo = "Tesvara de Pagos";

/// Leaves on sight what it is about.
class Caja final : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void showEvent(QShowEvent* evento) override {
    QMessageBox::showEvent(evento);
    if (parentWidget()) ColocarSobreSuVentana(*this, LoTratado(*parentWidget()->window()));
  }
};

}  // namespace

int AvisoQt::Mostrar(const std::string& texto, int flags, const std::string& titulo) {
  Caja caja(VentanaDelUsuario());
  caja.setWindowTitle(titulo.empty() ? kSinTitulo : Texto(titulo));
  caja.setTextFormat(Qt::PlainText);
  caja.setText(Texto(texto));
  caja.setIcon(IconoDe(flags));
  const std::vector<Boton> botones = BotonesDe(flags);
  QList<QPushButton*> puestos;
  for (const Boton& boton : botones) {
    puestos.push_back(caja.addButton(QString::fromUtf8(boton.Rotulo), boton.Papel));
  }
  mensajes::DarTeclas(caja, puestos, antesDeLeer_);
  caja.setDefaultButton(puestos.front());
  caja.exec();
  const auto pulsado = std::find(puestos.begin(), puestos.end(), caja.clickedButton());
  // None is pressed when the program ends meanwhile.
  if (pulsado == puestos.end()) return botones.back().Respuesta;
  return botones[static_cast<std::size_t>(pulsado - puestos.begin())].Respuesta;
}

void MostrarError(services::Aviso& aviso, const services::ErrorEjecucion& fallo) {
  if (fallo.Numero() == services::error::OperacionCancelada) {
    aviso.Mostrar(fallo.Descripcion(), kInformacion, "");
    return;
  }
  aviso.Mostrar("Nº Error: " + std::to_string(fallo.Numero()) + "\n" + fallo.Descripcion(),
                mensaje::Alto, "Error");
}

}  // namespace qt
