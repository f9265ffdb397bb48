#include "mensajes/teclas_de_mensaje.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPushButton>

namespace mensajes {
namespace {

/// Keeps from a message the keys that weren't meant for it.
class TeclasAdelantadas final : public QObject {
 public:
  TeclasAdelantadas(QDialog& mensaje, std::chrono::milliseconds antesDeLeer)
      : QObject(&mensaje), antesDeLeer_(antesDeLeer) {
    aLaVista_.start();
    Vigilar(mensaje);
  }
  void Vigilar(QObject& objeto) { objeto.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    switch (evento->type()) {
      case QEvent::Show:
        if (objeto == parent()) aLaVista_.start();
        return false;
      case QEvent::ShortcutOverride:
        // Accepted, it comes as a key and not as a shortcut.
        if (!EsAdelantada(*static_cast<QKeyEvent*>(evento))) return false;
        evento->accept();
        return true;
      case QEvent::KeyPress:
        return EsAdelantada(*static_cast<QKeyEvent*>(evento));
      default:
        return false;
    }
  }

 private:
  [[nodiscard]] bool EsAdelantada(const QKeyEvent& tecla) const {
    return tecla.isAutoRepeat() || aLaVista_.elapsed() < antesDeLeer_.count();
  }

  std::chrono::milliseconds antesDeLeer_;
  QElapsedTimer aLaVista_;
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
