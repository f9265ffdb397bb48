#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>

#include "forms/form.h"
#include "platform/qt/dia_en_pantalla.h"
#include "qt/lienzo.h"

namespace pruebas {

/// So many cash entries of one concept, a minute from each other.
inline std::string Apuntes(int cuantos) {
  return R"(
datos INSERT INTO ProvConceptos VALUES('400','Luz'),('401','Agua')
datos WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i < )" +
         std::to_string(cuantos - 1) +
         R"() INSERT INTO CajaPagos (idSucursal,FechaHora,Tipo,Importe,Observaciones) SELECT '1', datetime('2005-03-01 10:00:00', '+'||i||' minutes'), 400, 1, 'Apunte '||i FROM n
)";
}

/// A day on the real screen in which others are opened over it.
class PantallaModal : public DiaEnPantalla {
 protected:
  void AbrirCon(const std::string& datos) {
    ASSERT_EQ(jornada::Partida(opciones).Jugar(datos).Errores, "");
    Abrir();
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
  }
  /// Presses that button, which opens a screen, and does that in it once it is there.
  template <class Accion>
  void Dentro(const char* boton, Accion accion) {
    constexpr int kIntentos = 500;
    int intentos = 0;
    bool hecho = false;
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, &espera, [&] {
      auto* lienzo = dynamic_cast<qt::Lienzo*>(QApplication::activeModalWidget());
      const bool lista = lienzo && lienzo->isActiveWindow();
      if (!lista && ++intentos < kIntentos) return;
      espera.stop();
      if (!lienzo) return;
      QTest::qWait(20);
      modal = lienzo;
      if (lista) accion();
      hecho = lista;
      if (!modal || !modal->isVisible()) return;
      ADD_FAILURE() << "sigue abierta";
      Modelo().Hide();
    });
    espera.start(10);
    Boton(boton);
    EXPECT_TRUE(hecho);
    QTest::qWait(20);
  }
  template <class W>
  [[nodiscard]] W& En(const QString& nombre) const {
    auto* vista = modal->findChild<W*>(nombre);
    if (!vista) throw std::logic_error("no está " + nombre.toStdString());
    return *vista;
  }
  [[nodiscard]] services::Form& Modelo() const { return *modal->Formulario(); }
  template <class W>
  [[nodiscard]] W& ModeloDe(const char* nombre) const {
    return dynamic_cast<W&>(*Modelo().Buscar(nombre));
  }
  [[nodiscard]] std::string Foco() const {
    const QWidget* foco = QApplication::focusWidget();
    return foco ? foco->objectName().toStdString() : "";
  }
  /// Of the screen behind, which the desktop may not have made the active one again.
  [[nodiscard]] std::string FocoDetras() const {
    const QWidget* foco = ventana->window()->focusWidget();
    return foco ? foco->objectName().toStdString() : "";
  }
  void Pulsa(Qt::Key tecla, int veces = 1) const {
    for (int i = 0; i < veces; ++i) QTest::keyClick(QApplication::focusWidget(), tecla);
  }

  QPointer<qt::Lienzo> modal;
};

}  // namespace pruebas
