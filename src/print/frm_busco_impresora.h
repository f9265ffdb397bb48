#pragma once

#include <cstdint>

#include "forms/controles.h"
#include "forms/form.h"
#include "forms/matriz_controles.h"
#include "services/sesion.h"

namespace print {

/// The answer of the chooser when nothing was chosen, and the one that asks for the preview.
inline constexpr const char* kNingunDestino = "Null Impresora";
inline constexpr const char* kPantalla = "Pantalla";

/// "Selección Impresora": where a report goes, the screen or one of the printers. Its answer is
/// `Imprenta::Impresora`: the name of the chosen destination, or "Null Impresora".
class frmBuscoImpresora final : public services::Form {
 public:
  frmBuscoImpresora(services::Escritorio& escritorio, services::Sesion& sesion);

  services::Cintilla Barra1;
  /// The strip of destinations lies in `PicImpre`, which clips it.
  services::PictureBox PicImpre;
  services::PictureBox PicImpresoras;

  // A destination is one element of each, 0 the screen. The `Tag` of the chosen one's picture is
  // "1".
  services::MatrizControles<services::Image> Img;
  services::MatrizControles<services::Label> LblImpre;

  // The drawings of a destination, chosen and not.
  services::Image ImgPantalla;
  services::Image ImgPantDesactiva;
  services::Image ImgImpresora;
  services::Image ImgImprDesactiva;

  services::Image ImgIzq;
  services::Image ImgDer;
  services::Pulsador Boton1;
  services::Pulsador Boton2;

 private:
  void Form_Activate() override { Refresh(); }
  void Form_Load() override;
  void Form_Unload() override;

  void CargarDestinos();
  void UnirDestino(int destino);
  void MostrarDestinos();
  void ElegirDestino(int elegido);
  [[nodiscard]] bool SeVe(int destino) const;
  [[nodiscard]] int Elegido() const;
  [[nodiscard]] int ConFoco() const;
  [[nodiscard]] int Parada() const;
  void UnaSolaParada();

  void ImgIzq_Click();
  void ImgDer_Click();
  void Boton1_Click();
  void LblImpre_KeyDown(int tecla);
  void LlevarA(int destino);

  void Barra1_Pulsada(const services::Raton& raton);
  void Barra1_Movida(const services::Raton& raton);
  void Barra1_Soltada();

  services::Sesion& sesion_;
  /// The first destination on sight.
  std::int16_t PrimeraVisible_ = 0;

  // The window is dragged by its title bar, from where the press began.
  bool arrastrando_ = false;
  double x_ = 0;
  double y_ = 0;
};

}  // namespace print
