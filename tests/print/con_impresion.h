#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "forms/entrada.h"

namespace pruebas {

namespace entrada = services::entrada;

/// Notes the screens that it is given back.
class UtilesQueSueltan final : public sorvex::Utiles {
 public:
  UtilesQueSueltan(services::Sesion& sesion, std::vector<std::string>& soltadas)
      : Utiles([&sesion] { return sesion.Usuario(); }, [&sesion] { return sesion.Ahora(); }),
        soltadas_(soltadas) {}
  void SoltarForm(services::Ref<services::Form>& form) override {
    soltadas_.push_back(form->Nombre());
    Utiles::SoltarForm(form);
  }

 private:
  std::vector<std::string>& soltadas_;
};

/// The main screen over a business, and what is printed of it.
class ConImpresion : public testing::Test {
 protected:
  explicit ConImpresion(int facturas = 0) : negocio{apoyo::Tamano{facturas, 0}} {}

  void Cargar() { ASSERT_EQ(enMarcha.Cargar(), ""); }
  [[nodiscard]] shell::FrmTesvaraGastos& Principal() { return enMarcha.Pantalla(); }
  [[nodiscard]] services::MSFlexGrid& Lista() { return Principal().Rejilla.MSFPagos; }
  [[nodiscard]] services::Imprenta& Imprenta() { return enMarcha.Sesion().Imprenta(); }

  using EnLaEleccion = std::function<void(print::frmBuscoImpresora&)>;
  using EnLaVista = std::function<void(print::frmListados&)>;
  /// Clicks the image, and does that in each of the screens that come.
  void Imprimir(const EnLaEleccion& enLaEleccion, const EnLaVista& enLaVista = {}) {
    enMarcha.Entorno().AlEsperarModal = [&](services::Form& form) {
      if (auto* busco = dynamic_cast<print::frmBuscoImpresora*>(&form)) enLaEleccion(*busco);
      if (auto* listados = dynamic_cast<print::frmListados*>(&form)) {
        ++vistas;
        if (enLaVista) enLaVista(*listados);
        entrada::CerrarBarra(listados->Barra1);
      }
    };
    entrada::Pulsar(Principal().Impresion.ImgImpresora);
    enMarcha.Entorno().AlEsperarModal = nullptr;
  }
  void ImprimirEn(int destino) {
    Imprimir([destino](auto& busco) {
      entrada::Pulsar(busco.Img(destino));
      entrada::Pulsar(busco.Boton1);
    });
  }
  void VerEnPantalla(const EnLaVista& enLaVista) {
    Imprimir([](auto& busco) { entrada::Pulsar(busco.Boton1); }, enLaVista);
  }

  [[nodiscard]] const std::vector<headless::TrazoGrabado>& Trazos() {
    static const std::vector<headless::TrazoGrabado> ninguno;
    const auto* informe = enMarcha.Entorno().UltimoInforme();
    return informe ? informe->Trazos : ninguno;
  }
  /// The text drawn, wherever it is; fails where there is none.
  [[nodiscard]] services::Trazo TrazoDe(const std::string& texto) {
    for (const auto& [pagina, trazo] : Trazos()) {
      if (trazo.Texto == texto) return trazo;
    }
    ADD_FAILURE() << "no está " << texto;
    return {};
  }
  [[nodiscard]] int Paginas() { return Trazos().empty() ? 0 : Trazos().back().Pagina; }

  apoyo::NegocioDePrueba negocio;
  services::Ref<sqlite::Conexion> datos = negocio.AbrirDatos();
  services::Ref<sqlite::Conexion> temp = negocio.AbrirTemp();
  /// The screens handed to the suite as they are unloaded.
  std::vector<std::string> soltadas;
  apoyo::ComponenteEnMarcha enMarcha{services::Ref<services::Conexion>(datos),
                                     services::Ref<services::Conexion>(temp), apoyo::kMarzo,
                                     [this](services::Sesion& sesion) {
                                       return std::make_unique<UtilesQueSueltan>(sesion, soltadas);
                                     }};
  int vistas = 0;
};

}  // namespace pruebas
