#include "mensajes/teclas_de_mensaje.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPushButton>

namespace mensajes {
namespace {

/// Who goes on typing for so long has seen it.
constexpr std::chrono::milliseconds kComoMucho{3000};

/// Keeps from a message the keys that weren't meant for it.
class TeclasAdelantadas final : public QObject {
 public:
  TeclasAdelantadas(QDialog& mensaje, std::chrono::milliseconds antesDeLeer)
      : QObject(&mensaje), antesDeLeer_(antesDeLeer) {
    EmpezarAContar();
    Vigilar(mensaje);
  }
  void Vigilar(QObject& objeto) { objeto.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    switch (evento->type()) {
      case QEvent::Show:
        if (objeto == parent()) EmpezarAContar();
        return false;
      case QEvent::ShortcutOverride:
        // Accepted, it comes as a key and not as a shortcut.
        if (!EsAdelantada(*static_cast<QKeyEvent*>(evento))) return false;
        evento->accept();
        return true;
      case QEvent::KeyPress: {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        if (!EsAdelantada(tecla)) return false;
        if (!tecla.isAutoRepeat()) sinTeclas_.start();
        return true;
      }
      default:
        return false;
    }
  }

 private:
  [[nodiscard]] bool EsAdelantada(const QKeyEvent& tecla) const {
    const bool deCorrido =
        sinTeclas_.elapsed() < antesDeLeer_.count() && !aLaVista_.hasExpired(kComoMucho.count());
    return tecla.isAutoRepeat() || deCorrido;
  }
  void EmpezarAContar() {
    aLaVista_.start();
    sinTeclas_.start();
  }

  std::chrono::milliseconds antesDeLeer_;
  QElapsedTimer aLaVista_;
  QElapsedTimer sinTeclas_;
};

}  // namespace

void DarTeclas(QDialog& mensaje, const QList<QPushButton*>& botones,
               std::chrono::milliseconds antesDeLeer) {
  auto* adelantadas = new TeclasAdelantadas(mensaje, antesDeLeer);
  for (QPushButton* boton : botones) {
    boton->setShortcut(QKeySequence(boton->text().front()));
    adelantadas->Vigilar(*boton);
  }
}

}  // namespace mensajes
