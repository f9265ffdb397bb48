#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "apoyo/form_de_prueba.h"
#include "headless/entorno.h"
#include "services/anfitrion.h"
#include "services/datos/conexion_falsa.h"
#include "shell/class_tesvara.h"
#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"
#include "sorvex/utiles_sorvex.h"

// The component as a host loads it, on two connections and without a window.

namespace apoyo {

class ContextoDeAnfitrion final
    : public services::ObjetoContado<services::IDatosClase, services::ICopiaPorRetomar> {
 public:
  ContextoDeAnfitrion(services::Ref<services::Conexion> datos,
                      services::Ref<services::Conexion> temp)
      : datos_(std::move(datos)), temp_(std::move(temp)) {}

  services::HRESULT EntregarSesion(
      services::Ref<services::Conexion>& CnDatos, services::Ref<services::IUnknown>&,
      services::Ref<services::Conexion>& CnTemp, services::Ref<services::IUnknown>&,
      services::Ref<services::IUnknown>&, services::Ref<services::IUnknown>& FrmMarco,
      services::Ref<services::IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
      std::int32_t& AltoReferencia, double&, services::Ref<services::Recordset>&,
      services::Ref<services::Recordset>& RsTextos, services::Ref<services::Recordset>&,
      std::string& ClaveBorrado, std::string& Usuario) noexcept override {
    if (!RsTextos->State()) {
      RsTextos->Open("SELECT", *textos_, services::ModoApertura::Lectura);
    }
    CnDatos = datos_;
    CnTemp = temp_;
    FrmMarco = Marco;
    FrmPrincipal = Principal;
    AnchoReferencia = 15360;
    AltoReferencia = 11520;
    ClaveBorrado = "CLAVE";
    Usuario = "ANA";
    return services::hr::Bien;
  }
  services::HRESULT RepintarForm(services::Ref<services::IUnknown>& form) noexcept override {
    return AlRepintar ? AlRepintar(form) : services::hr::Bien;
  }

  bool HayCopiaPorRetomar(std::string& desde, std::string& hasta) noexcept override {
    if (!PorRetomar) return false;
    desde = PorRetomar->Desde;
    hasta = PorRetomar->Hasta;
    return true;
  }

  /// The working copy that the screen is to go on with.
  std::optional<store::Intervalo> PorRetomar;
  services::Ref<services::IUnknown> Marco{services::Crear<FormDePrueba<>>()};
  services::Ref<services::IUnknown> Principal{services::Crear<FormDePrueba<>>()};
  /// What is done with a form that is to be repainted.
  std::function<services::HRESULT(services::Ref<services::IUnknown>&)> AlRepintar;

 private:
  services::Ref<services::Conexion> datos_;
  services::Ref<services::Conexion> temp_;
  services::Ref<services::Conexion> textos_{services::Crear<pruebas::ConexionFalsa>(
      std::make_shared<pruebas::TablaFalsa>(pruebas::TablaFalsa{
          .Columnas = {{"Pagina"}, {"Pantalla"}}, .FilasGuardadas = {{"Página", "Pantalla"}}}))};
};

class ComponenteEnMarcha {
 public:
  using CrearUtiles = std::function<std::unique_ptr<services::Utiles>(services::Sesion&)>;

  /// With its clock stopped at `ahora`. The screen isn't loaded yet.
  ComponenteEnMarcha(services::Ref<services::Conexion> datos,
                     services::Ref<services::Conexion> temp, services::FechaHora ahora,
                     CrearUtiles crearUtiles = &sorvex::CrearUtiles)
      : contexto_(services::Crear<ContextoDeAnfitrion>(std::move(datos), std::move(temp))) {
    entorno_->PararReloj(ahora);
    entorno_->CrearUtiles = std::move(crearUtiles);
  }

  /// Takes the session without a screen.
  shell::DatosComunes& RecibirSesion() {
    sesion_.RecibirSesion(services::Ref<services::IDatosClase>(contexto_));
    return sesion_;
  }
  /// Shows the main screen on the current month. The text of the failure, empty for none.
  [[nodiscard]] std::string Cargar() {
    services::Ref<services::IDatosClase> contexto(contexto_);
    return Motivo(clase_->Cargar(contexto));
  }
  [[nodiscard]] std::string Cerrar() { return Motivo(clase_->Cerrar()); }

  [[nodiscard]] shell::DatosComunes& Sesion() { return sesion_; }
  [[nodiscard]] shell::ClassTesvara& Clase() { return *clase_; }
  [[nodiscard]] ContextoDeAnfitrion& Contexto() { return *contexto_; }
  [[nodiscard]] headless::Entorno& Entorno() { return *entorno_; }
  [[nodiscard]] shell::FrmTesvaraGastos& Pantalla() { return pantallas_.Principal(); }

 private:
  [[nodiscard]] std::string Motivo(services::HRESULT resultado) {
    return services::hr::Fallido(resultado) ? clase_->Descripcion() : "";
  }

  std::shared_ptr<headless::Entorno> entorno_ = headless::Entorno::Crear();
  services::Plataforma plataforma_ = entorno_->Plataforma();
  services::Ref<ContextoDeAnfitrion> contexto_;
  shell::DatosComunes sesion_{plataforma_};
  shell::Pantallas pantallas_{sesion_};
  services::Ref<shell::ClassTesvara> clase_ =
      services::Crear<shell::ClassTesvara>(sesion_, pantallas_);
};

}  // namespace apoyo
