#pragma once

#include <QScrollBar>
#include <functional>
#include <string>
#include <vector>

#include "forms/controles.h"
#include "platform/qt/pantalla_modal.h"
#include "qt/imagen.h"

namespace pruebas {

/// So many due dates of one concept.
inline std::string Recibos(int cuantos) {
  return R"(
datos INSERT INTO ProvConceptos VALUES('12','Papelería Núñez')
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < )" +
         std::to_string(cuantos) +
         R"() INSERT INTO ProvFacturas SELECT '12','F'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n
datos INSERT INTO ProvVencimientos SELECT NConcepto,Factura,"Año",'20050315',116,NULL,'','x','y' FROM ProvFacturas
)";
}

/// A day on the real screen on which reports are asked for.
class InformeEnPantalla : public PantallaModal {
 protected:
  void AbrirCon(int recibos, std::vector<std::string> impresoras = {}) {
    plataforma.Printers = [impresoras] { return impresoras; };
    PantallaModal::AbrirCon(recibos > 0 ? Recibos(recibos) : "local SELECT 1");
  }
  /// Clicks the image that prints, and does each of these in the next screen that opens.
  void Imprimir(const std::vector<std::function<void()>>& enCadaUna) {
    std::size_t cual = 0;
    const QWidget* anterior = nullptr;
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, &espera, [&] {
      auto* lienzo = dynamic_cast<qt::Lienzo*>(QApplication::activeModalWidget());
      if (!lienzo || lienzo == anterior || !lienzo->isActiveWindow()) return;
      anterior = lienzo;
      modal = lienzo;
      QTest::qWait(30);
      if (cual < enCadaUna.size()) enCadaUna[cual]();
      ++cual;
    });
    espera.start(5);
    QTest::mouseClick(&Vista<qt::ImagenQt>("ImgImpresora"), Qt::LeftButton);
    QTest::qWait(30);
    EXPECT_EQ(cual, enCadaUna.size());
  }
  void VerEnPantalla(const std::function<void()>& enLaVista) {
    Imprimir({[this] { Pulsa(Qt::Key_Return); },
              [this, enLaVista] {
                enLaVista();
                if (modal && modal->isVisible()) Pulsa(Qt::Key_Escape);
              }});
  }
};

}  // namespace pruebas
