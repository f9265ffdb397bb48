#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QTest>
#include <string>
#include <vector>

#include "apoyo/form_de_prueba.h"
#include "platform/qt/dia_en_pantalla.h"

namespace pruebas {

inline const std::string kUno = "Hay 1 pago sin grabar, que se perdería. ¿Grabarlo antes?";
inline const std::string kDos = "Hay 2 pagos sin grabar, que se perderían. ¿Grabarlos antes?";

class FormQueCuenta final : public apoyo::FormDePrueba<services::IPagosSinGrabar> {
 public:
  void Contar(std::int32_t cuantos) noexcept override { Cuentas.push_back(cuantos); }

  std::vector<int> Cuentas;
};

/// March of 2005: rows 2, 5 and 9 are receipts to pay, row 3 is one paid in part, row 1 a forecast.
class PagosSinGrabar : public DiaEnPantalla {
 protected:
  PagosSinGrabar() {
    principal = services::Ref<services::IUnknown>(static_cast<services::IForm*>(quienCuenta.get()));
    EXPECT_EQ(jornada::Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
    Abrir();
    ventana->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(ventana));
  }
  ~PagosSinGrabar() override {
    if (!clase) return;
    // What is left of a test is not to be saved.
    if (Pantalla().Campos.PicNuevo.Visible) Boton("BtnCancelar");
    Boton("BotonCancelar");
    Cerrar();
  }

  [[nodiscard]] shell::FrmTesvaraGastos& Pantalla() const { return pantallas->Principal(); }
  [[nodiscard]] const services::MSFlexGrid& Lista() const { return Pantalla().Rejilla.MSFPagos; }
  [[nodiscard]] const std::string& Factura() const { return Lista().TextMatrix(Lista().Row, 2); }
  [[nodiscard]] std::string Enfocada() const {
    return ventana->window()->focusWidget()->objectName().toStdString();
  }
  /// By key, once a message that was closed has given the window back.
  void Ir(QWidget& vista) {
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
    vista.setFocus();
  }
  void PagarDos() {
    Celda(2, 5);
    Celda(5, 5);
  }
  /// A box or an option is pressed on its left, where its mark is.
  void Marca(const char* nombre) {
    auto& vista = Vista<QAbstractButton>(nombre);
    QTest::mouseClick(&vista, Qt::LeftButton, {}, {8, vista.height() / 2});
  }

  services::Ref<FormQueCuenta> quienCuenta = services::Crear<FormQueCuenta>();
  const std::vector<const char*> marcas = {"OptFecha", "OptConcepto", "ChkPrevisiones",
                                           "ChkPagados"};
  const std::vector<const char*> botones = {"BotonNuevo", "BotonModificar", "BotonBorrar",
                                            "BtnAutCaja"};
};

}  // namespace pruebas
