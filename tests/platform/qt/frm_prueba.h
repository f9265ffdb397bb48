#pragma once

#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "qt/plataforma_qt.h"
#include "qt/rejilla_qt.h"

namespace pruebas {

/// A screen with a widget of each kind, which writes down its events.
class FrmPrueba : public services::Form {
 public:
  explicit FrmPrueba(services::Escritorio& escritorio);

  services::Cintilla Barra1;
  services::PictureBox PicPanel;
  services::Label LblFecha;
  services::TextBox TxtFecha;
  services::TextBox TxtImporte;
  services::CheckBox ChkUno;
  services::OptionButton OptA;
  services::OptionButton OptB;
  services::ComboBox Lista;
  services::Pulsador BotonGrabar;
  services::Pulsador BtnCancelar;
  services::VScrollBar Desplazar;
  services::MSFlexGrid Rejilla;
  services::TextBox TxtCelda;
  services::ProgressBar Progreso;
  services::Image ImgMarca;

  std::vector<std::string> sucesos;
  int pintados = 0;
  int redimensionados = 0;

  /// What the screen does when it is repainted.
  std::function<void()> AlPintar;
  void Form_Paint() override {
    ++pintados;
    if (AlPintar) AlPintar();
  }
  void Form_Resize() override { ++redimensionados; }

 private:
  void Anotar(services::Widget& widget);
};

/// The surface of a host's frame with the screen in it.
class Escena {
 public:
  Escena();
  ~Escena();
  Escena(const Escena&) = delete;

  template <class V>
  V& Vista(const char* nombre) {
    return *marco.findChild<V*>(nombre);
  }
  /// What has the toolkit's focus in the window.
  [[nodiscard]] QString Enfocada() const;
  /// Fills the grid with that many data rows.
  void Llenar(int filas);

  QWidget marco;
  std::vector<services::ErrorEjecucion> errores;
  /// What is done with an error, once it has been written down.
  std::function<void()> AlFallar;

 private:
  services::Plataforma plataforma_;
  std::unique_ptr<services::Escritorio> escritorio_;

 public:
  services::Ref<FrmPrueba> form;
};

/// A host's form around a widget of the toolkit.
class MarcoDePrueba final : public services::ObjetoContado<services::IForm> {
 public:
  explicit MarcoDePrueba(QWidget& marco) : marco_(marco) {}
  services::Rectangulo Geometria() noexcept override { return {}; }
  std::int32_t WindowState() noexcept override { return 0; }
  void PonerWindowState(std::int32_t) noexcept override {}
  void Refresh() noexcept override { marco_.update(); }
  void* VentanaNativa() noexcept override { return &marco_; }

 private:
  QWidget& marco_;
};

}  // namespace pruebas
