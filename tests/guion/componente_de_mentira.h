#pragma once

#include <memory>
#include <string>
#include <utility>

#include "datos/recordset.h"
#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "services/anfitrion.h"
#include "services/plataforma.h"
#include "services/utiles.h"

// A component of two screens, with which the runner can be tried without the real one.

namespace pruebas {

class FrmModal final : public services::Form {
 public:
  explicit FrmModal(services::Escritorio& escritorio) : Form(escritorio, "FrmModal", 100, 100) {
    BotonSalir.Click = [this] { Unload(); };
    Barra1.Cerrar = [this] { Hide(); };
  }
  services::Cintilla Barra1{*this, "Barra1", "Modal", {}};
  services::TextBox TxtBusco{*this, "TxtBusco", {.TabIndex = 0}};
  services::Pulsador BotonSalir{*this, "BotonSalir", "Salir", {.TabIndex = 1}};
};

class FrmGastos final : public services::Form {
 public:
  FrmGastos(services::Escritorio& escritorio, services::Aviso& aviso)
      : Form(escritorio, "FrmTesvaraGastos", 1000, 1000), aviso_(aviso) {
    Conectar();
    MSFPagos.AnadirFila({"15/03/2005", "Luz"});
    MSFPagos.AnadirFila({"16/03/2005", "Agua"});
  }

  services::Cintilla Barra1{*this, "Barra1", "Gastos", {}};
  services::TextBox TxtA{*this, "TxtA", {.TabIndex = 0}};
  services::TextBox TxtB{*this, "TxtB", {.TabIndex = 1}};
  services::TextBox TxtOculto{*this, "TxtOculto", {.TabIndex = 2, .Visible = false}};
  services::Pulsador BotonModal{*this, "BotonModal", "Abrir", {.TabIndex = 3}};
  services::Pulsador BotonAviso{*this, "BotonAviso", "Avisar", {.TabIndex = 4}};
  services::Pulsador BotonPregunta{*this, "BotonPregunta", "Preguntar", {.TabIndex = 5}};
  services::Pulsador BotonError{*this, "BotonError", "Fallar", {.TabIndex = 6}};
  services::Label LblResultado{*this, "LblResultado", "", {}};
  services::ComboBox CmbTipo{*this, "CmbTipo", {"Días", "Meses"}, {.TabIndex = 7}};
  services::VScrollBar Scroll{*this, "Scroll", {.TabIndex = 8}};
  services::MSFlexGrid MSFPagos{*this, "MSFPagos", 2, {.TabIndex = 9}};
  services::Ref<FrmModal> Modal;

 private:
  void Conectar() {
    TxtA.Change = [this] {
      if (TxtA.Text == "12") TxtB.SetFocus();
    };
    BotonModal.Click = [this] {
      Modal = services::Crear<FrmModal>(Escritorio());
      Modal->ShowModal();
      LblResultado.Caption = "vuelta";
    };
    BotonAviso.Click = [this] { aviso_.Mostrar("Fecha incorrecta", 16, "Atención"); };
    BotonPregunta.Click = [this] {
      const int respuesta = aviso_.Mostrar("¿Seguro?", 4, "Atención");
      LblResultado.Caption = respuesta == services::mensaje::Si ? "sí" : "no";
    };
    BotonError.Click = [] { throw services::ErrorEjecucion(13, "No coinciden los tipos"); };
    MSFPagos.DblClick = [this] {
      MSFPagos.CellPicture = std::string("marca");
      LblResultado.Caption = MSFPagos.Text();
    };
    Barra1.Cerrar = [this] { Unload(); };
  }

  services::Aviso& aviso_;
};

/// The public class over those screens; what it is given by the host shows in `LblResultado`.
class ClaseDeMentira final
    : public services::ObjetoContado<services::IClassTesvara, services::IDescripcionError> {
 public:
  explicit ClaseDeMentira(services::Plataforma plataforma)
      : plataforma_(std::move(plataforma)), aviso_(plataforma_.CrearAviso()) {}

  services::HRESULT Cargar(services::Ref<services::IDatosClase>& datos) noexcept override {
    return Hacer([&] {
      Recibir(datos);
      if (!form_ || !form_->Cargado()) form_ = services::Crear<FrmGastos>(escritorio_, *aviso_);
      form_->Show();
      form_->LblResultado.Caption = sesion_;
    });
  }
  services::HRESULT Ocultar() noexcept override {
    return Hacer([&] { form_->Hide(); });
  }
  services::HRESULT Cerrar() noexcept override {
    return Hacer([&] { throw services::ErrorEjecucion(91, "No hay pantalla"); });
  }
  const char* Descripcion() noexcept override { return descripcion_.c_str(); }
  std::int32_t Numero() noexcept override { return numero_; }

 private:
  void Recibir(services::Ref<services::IDatosClase>& datos) {
    services::Ref<services::Conexion> stored, temp;
    services::Ref<services::IUnknown> nada, marco, principal;
    services::Ref<services::Recordset> otro, textos;
    std::int32_t ancho = 0, alto = 0;
    double valor = 0;
    std::string clave, usuario;
    datos->EntregarSesion(stored, nada, temp, nada, nada, marco, principal, ancho, alto, valor,
                          otro, textos, otro, clave, usuario);
    sesion_ = usuario + " " + clave + " " + std::to_string(ancho) + "x" + std::to_string(alto) +
              " " + textos->Collect("Pagina").Texto() + " " + textos->Collect("Pantalla").Texto();
    services::Recordset rs;
    rs.Open("SELECT T.* FROM T", *stored, services::ModoApertura::Lectura);
  }

  template <class A>
  services::HRESULT Hacer(A accion) noexcept {
    try {
      escritorio_.Operacion(accion);
      return services::hr::Bien;
    } catch (const services::ErrorEjecucion& fallo) {
      numero_ = fallo.Numero();
      descripcion_ = fallo.Descripcion();
      return services::hr::Fallo;
    } catch (const std::exception&) {
      return services::hr::Fallo;
    }
  }

  services::Plataforma plataforma_;
  services::Escritorio escritorio_{plataforma_};
  std::unique_ptr<services::Aviso> aviso_;
  services::Ref<FrmGastos> form_;
  std::string sesion_;
  std::int32_t numero_ = 0;
  std::string descripcion_;
};

}  // namespace pruebas
