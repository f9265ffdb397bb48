#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

#include "apoyo/componente_en_marcha.h"
#include "esquema/esquema_sqlite.h"
#include "guion/carpeta_temporal.h"
#include "platform/qt/frm_prueba.h"
#include "platform/qt/plataforma_sin_demora.h"
#include "sorvex/utiles_sorvex.h"
#include "sqlite/conexion_sqlite.h"

namespace pruebas {

inline constexpr int kReposo = 150;  // ms, many times what a round of events takes

/// The component's own screen in a frame of the host, over two empty databases.
class ComponenteEnVentana : public testing::Test {
 protected:
  ComponenteEnVentana() {
    plataforma.CrearUtiles = &sorvex::CrearUtiles;
    plataforma.ErrorNoControlado = [this](const services::ErrorEjecucion& fallo) {
      errores.push_back(fallo.Descripcion());
    };
    contexto->Marco = services::Ref<services::IUnknown>(services::Crear<MarcoDePrueba>(marco));
    contexto->Principal = contexto->Marco;
    marco.resize(1024, 700);
    marco.show();
  }
  ~ComponenteEnVentana() override {
    EXPECT_EQ(clase->Cerrar(), services::hr::Bien) << clase->Descripcion();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  services::Ref<services::Conexion> Abrir(const char* fichero,
                                          void (*crearTablas)(sqlite::Conexion&)) {
    auto conexion = sqlite::AbrirConexion((carpeta.Ruta() / fichero).string(), {.Crear = true});
    crearTablas(*conexion);
    return conexion;
  }
  void Cargar() {
    services::Ref<services::IDatosClase> como(contexto);
    ASSERT_EQ(clase->Cargar(como), services::hr::Bien) << clase->Descripcion();
    QTest::qWait(kReposo);
  }
  void Repintar() {
    pantallas.Principal().Refresh();
    QTest::qWait(kReposo);
  }

  guion::CarpetaTemporal carpeta{false};
  services::Plataforma plataforma = PlataformaSinDemora();
  services::Ref<apoyo::ContextoDeAnfitrion> contexto = services::Crear<apoyo::ContextoDeAnfitrion>(
      Abrir("datos", &esquema::CrearAlmacenadas), Abrir("trabajo", &esquema::CrearDeTrabajo));
  std::vector<std::string> errores;
  QWidget marco;
  shell::DatosComunes sesion{plataforma};
  shell::Pantallas pantallas{sesion};
  services::Ref<shell::ClassTesvara> clase =
      services::Crear<shell::ClassTesvara>(sesion, pantallas);
};

}  // namespace pruebas
