#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "services/anfitrion.h"
#include "services/plataforma.h"
#include "services/sesion.h"
#include "shell/imprenta_de_sesion.h"
#include "store/intervalo.h"

namespace shell {

/// The session that the host hands over, and the objects that all screens share. Kept for the life
/// of the process.
class DatosComunes final : public services::Sesion {
 public:
  explicit DatosComunes(const services::Plataforma& plataforma);
  ~DatosComunes() override;

  /// Takes the session from the host's context. Throws the failure of `EntregarSesion`, 0x80004002
  /// for a form that is none, 91 for a connection that wasn't handed over, and 0x80040E21 for a
  /// user whose name the stored tables can't hold; what the session held before then stays.
  void RecibirSesion(services::Ref<services::IDatosClase> datos);
  /// The range of the working copy that the host wants to be gone on with; none for a fresh load.
  [[nodiscard]] std::optional<store::Intervalo> CopiaPorRetomar() const;
  /// Has the host draw around the main screen and its own; keeps the forms it hands back.
  void Repintar(services::Form& pantalla);

  /// Whether the thread that asks is the one that made the session: no other may use it.
  [[nodiscard]] bool EnSuHilo() const { return hilo_ == std::this_thread::get_id(); }

  [[nodiscard]] services::Escritorio& Escritorio() { return escritorio_; }
  [[nodiscard]] const services::Ref<services::IForm>& FrmMarco() const { return FrmMarco_; }
  [[nodiscard]] const services::Ref<services::IForm>& FrmPrincipal() const override {
    return FrmPrincipal_;
  }

  [[nodiscard]] services::Conexion& CnDatos() const override;
  [[nodiscard]] services::Conexion& CnTemp() const override;
  [[nodiscard]] const std::string& Usuario() const override { return valores_.Usuario; }
  void AnotarBorrado(const std::string& sentencia) override;
  void PasadoPorAlto(const services::Omision& omision) noexcept override;
  [[nodiscard]] std::string TextoDe(const char* columna) const override;
  [[nodiscard]] services::Imprenta& Imprenta() override { return imprenta_; }
  [[nodiscard]] std::int32_t AnchoReferencia() const override { return valores_.AnchoReferencia; }
  [[nodiscard]] std::int32_t AltoReferencia() const override { return valores_.AltoReferencia; }
  services::Utiles& Utiles() override;
  services::Aviso& Aviso() override;
  [[nodiscard]] std::unique_ptr<services::SelectorConceptos> CrearSelectorConceptos() override {
    return plataforma_.CrearSelectorConceptos(*this);
  }
  services::Ref<services::IDatosClase>& DatosClase() override { return DatosClase_; }
  [[nodiscard]] services::FechaHora Ahora() const override { return plataforma_.Ahora(); }
  [[nodiscard]] int AnchoPantalla() const override { return plataforma_.Pantalla().Ancho; }
  [[nodiscard]] int AltoPantalla() const override { return plataforma_.Pantalla().Alto; }

 private:
  /// The fifteen values, in the order in which the host is asked for them.
  struct Valores {
    services::Ref<services::Conexion> CnDatos;
    services::Ref<services::IUnknown> ObjSesion2;
    services::Ref<services::Conexion> CnTemp;
    services::Ref<services::IUnknown> ObjSesion4;
    services::Ref<services::IUnknown> ObjSesion5;
    std::int32_t AnchoReferencia = 0;
    std::int32_t AltoReferencia = 0;
    double ValorSesion10 = 0;
    services::Ref<services::Recordset> RsSesion11;
    services::Ref<services::Recordset> RsTextos;
    services::Ref<services::Recordset> RsSesion13;
    std::string ClaveBorrado;
    std::string Usuario;
  };

  void TerminarUnidades();
  void DeshacerAlmacenado();

  const std::thread::id hilo_ = std::this_thread::get_id();
  const services::Plataforma& plataforma_;
  services::Escritorio escritorio_;
  ImprentaDeSesion imprenta_;
  services::Ref<services::IDatosClase> DatosClase_;
  Valores valores_;
  /// Why the writes of the event under way are gone, with a connection that another took the place
  /// of. Nothing more is written in it: no half of it must stay.
  std::optional<services::ErrorEjecucion> perdida_;
  services::Ref<services::IForm> FrmMarco_;
  services::Ref<services::IForm> FrmPrincipal_;
  std::unique_ptr<services::Utiles> utiles_;
  std::unique_ptr<services::Aviso> aviso_;
};

}  // namespace shell
