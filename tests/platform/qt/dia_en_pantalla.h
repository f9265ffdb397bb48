#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPointer>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <memory>

#include "apoyo/componente_en_marcha.h"
#include "guion/carpeta_temporal.h"
#include "jornada/partida.h"
#include "platform/qt/plataforma_sin_demora.h"
#include "sorvex/utiles_sorvex.h"
#include "sqlite/conexion_sqlite.h"

namespace pruebas {

/// Ten thousand invoices of three receipts, all in the month.
inline const std::string kTreintaMil = R"(
datos INSERT INTO ProvConceptos VALUES('12','Papelería Núñez')
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 10000) INSERT INTO ProvFacturas SELECT '12','F'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 10000) INSERT INTO ProvVencimientos SELECT '12','F'||i,'2005','200503'||d,116,NULL,'','x','y' FROM n, (SELECT '05' AS d UNION ALL SELECT '15' UNION ALL SELECT '25')
)";

/// The component on the real screen, over databases that a scenario can fill and read.
class DiaEnPantalla : public testing::Test {
 protected:
  DiaEnPantalla() {
    opciones.Datos = (carpeta.Ruta() / "datos.sqlite").string();
    opciones.Local = (carpeta.Ruta() / "local.sqlite").string();
    plataforma.Ahora = [] { return services::HacerFecha(2005, 3, 15, 10, 0, 0); };
    plataforma.Pantalla = [] { return services::MedidaPantalla{15360, 11520}; };
    plataforma.CrearUtiles = &sorvex::CrearUtiles;
    plataforma.ErrorNoControlado = [](const services::ErrorEjecucion& fallo) {
      ADD_FAILURE() << fallo.Descripcion();
    };
  }

  void Abrir() {
    sesion = std::make_unique<shell::DatosComunes>(plataforma);
    pantallas = std::make_unique<shell::Pantallas>(*sesion);
    clase = services::Crear<shell::ClassTesvara>(*sesion, *pantallas);
    auto anfitrion = services::Crear<apoyo::ContextoDeAnfitrion>(
        services::Ref<services::Conexion>(sqlite::AbrirConexion(opciones.Datos)),
        services::Ref<services::Conexion>(sqlite::AbrirConexion(opciones.Local)));
    if (principal) anfitrion->Principal = principal;
    contexto = services::Ref<services::IDatosClase>(anfitrion);
    ASSERT_EQ(clase->Cargar(contexto), services::hr::Bien) << clase->Descripcion();
    ventana = static_cast<QWidget*>(pantallas->Principal().VentanaNativa());
    ASSERT_NE(ventana, nullptr);
    ventana->resize(1024, 700);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ventana));
  }
  void Cerrar() {
    EXPECT_EQ(clase->Cerrar(), services::hr::Bien);
    QCoreApplication::processEvents();
    // The session lets go of the files: the working one belongs to whoever opens it next.
    clase = nullptr;
    contexto = nullptr;
    pantallas = nullptr;
    sesion = nullptr;
  }

  template <class W>
  [[nodiscard]] W& Vista(const char* nombre) const {
    return *ventana->findChild<W*>(nombre);
  }
  [[nodiscard]] QPoint Centro(int fila, int columna) const {
    auto& lista = Vista<QTableView>("MSFPagos");
    return lista.visualRect(lista.model()->index(fila - 1, columna)).center();
  }
  void Celda(int fila, int columna) {
    QTest::mouseClick(Vista<QTableView>("MSFPagos").viewport(), Qt::LeftButton, {},
                      Centro(fila, columna));
  }
  void DobleCelda(int fila, int columna) {
    auto* donde = Vista<QTableView>("MSFPagos").viewport();
    Celda(fila, columna);
    QTest::mouseDClick(donde, Qt::LeftButton, {}, Centro(fila, columna));
  }
  void Boton(const char* nombre) {
    QTest::mouseClick(&Vista<QAbstractButton>(nombre), Qt::LeftButton);
  }
  /// Answers the next messages by their keys, and keeps their texts.
  void Responder(std::vector<Qt::Key> teclas) {
    auto* espera = new QTimer(ventana);
    QPointer<QMessageBox> contestado;  // its button takes a moment to go up again
    const auto contestar = [this, espera, teclas, contestado]() mutable {
      auto* mensaje = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!mensaje || mensaje == contestado) return;
      contestado = mensaje;
      mensajes.push_back(mensaje->text().toStdString());
      const Qt::Key tecla = teclas.front();
      teclas.erase(teclas.begin());
      if (teclas.empty()) {
        espera->stop();
        espera->deleteLater();
      }
      QTest::keyClick(mensaje, tecla);
    };
    QObject::connect(espera, &QTimer::timeout, ventana, contestar);
    espera->start(10);
  }
  void Responder(Qt::Key tecla) { Responder(std::vector{tecla}); }
  /// The texts of the messages since the last call.
  [[nodiscard]] std::vector<std::string> Mensajes() { return std::exchange(mensajes, {}); }

  guion::CarpetaTemporal carpeta{false};
  guion::Opciones opciones;
  services::Plataforma plataforma = PlataformaSinDemora();
  std::unique_ptr<shell::DatosComunes> sesion;
  std::unique_ptr<shell::Pantallas> pantallas;
  services::Ref<shell::ClassTesvara> clase;
  services::Ref<services::IDatosClase> contexto;
  /// The host's main form, where a test has one of its own.
  services::Ref<services::IUnknown> principal;
  std::vector<std::string> mensajes;
  QWidget* ventana = nullptr;
};

}  // namespace pruebas
