#include <gmock/gmock.h>

#include "platform/qt/componente_en_ventana.h"

// The frame that the host gives for the screen, and another one later.

namespace {

using services::IUnknown;
using services::Ref;
namespace hr = services::hr;

class MarcoDelAnfitrion : public pruebas::ComponenteEnVentana {
 protected:
  [[nodiscard]] QWidget& Ventana() {
    return *static_cast<QWidget*>(pantallas.Principal().VentanaNativa());
  }
  services::HRESULT CargarCon(const Ref<IUnknown>& otro) {
    contexto->Marco = otro;
    Ref<services::IDatosClase> como(contexto);
    return clase->Cargar(como);
  }
};

TEST_F(MarcoDelAnfitrion, LaPantallaPasaAlMarcoDelSegundoCargar) {
  Cargar();
  QWidget& ventana = Ventana();
  EXPECT_EQ(ventana.parentWidget(), &marco);
  QWidget otro;
  otro.resize(800, 500);
  otro.show();
  ASSERT_EQ(CargarCon(Ref<IUnknown>(services::Crear<pruebas::MarcoDePrueba>(otro))), hr::Bien);
  EXPECT_EQ(&Ventana(), &ventana);
  EXPECT_EQ(ventana.parentWidget(), &otro);
  EXPECT_TRUE(ventana.isVisible());
  EXPECT_EQ(ventana.geometry(), otro.rect());
  // It follows the new one alone.
  marco.resize(600, 400);
  EXPECT_EQ(ventana.geometry(), otro.rect());
  otro.resize(900, 600);
  EXPECT_EQ(ventana.geometry(), otro.rect());
  EXPECT_EQ(clase->Cerrar(), hr::Bien);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(CargarCon(Ref<IUnknown>(services::Crear<pruebas::MarcoDePrueba>(marco))), hr::Bien);
}

TEST_F(MarcoDelAnfitrion, ConUnMarcoQueNoLoEsSigueEnElSuyo) {
  Cargar();
  for (const Ref<IUnknown>& malo :
       {Ref<IUnknown>(), Ref<IUnknown>(Ref<services::IDatosClase>(contexto))}) {
    EXPECT_EQ(CargarCon(malo), hr::SinInterfaz);
    EXPECT_STREQ(clase->Descripcion(),
                 "Lo que el anfitrión entrega como FrmMarco no es un formulario");
    EXPECT_EQ(Ventana().parentWidget(), &marco);
    EXPECT_TRUE(Ventana().isVisible());
  }
  contexto->Marco = nullptr;  // it would keep itself alive
}

}  // namespace
