#include <gtest/gtest.h>

#include "apoyo/negocio_de_prueba.h"
#include "apoyo/sesion_sin_pantalla.h"

// What load and commit ask of the engine doesn't grow with the rows: time is measured elsewhere,
// here is counted.

namespace {

struct Cuentas {
  sqlite::Estadistica Datos;
  sqlite::Estadistica Temp;
};

sqlite::Estadistica operator-(const sqlite::Estadistica& a, const sqlite::Estadistica& b) {
  return {a.Preparadas - b.Preparadas, a.Transacciones - b.Transacciones};
}

/// The component at work on a business of so many invoices, two cash entries for each.
class Trabajo {
 public:
  explicit Trabajo(int facturas) : negocio_(apoyo::Tamano{facturas, 2 * facturas}) {}

  Cuentas Cargar() {
    return Contar([&] { sesion_.Cargar(); });
  }
  Cuentas Grabar() {
    return Contar([&] { sesion_.Grabar(); });
  }
  /// Counted over connections of their own, so that counting isn't counted.
  int EnLaCopia(const std::string& tabla) const {
    return Numero(*negocio_.AbrirTemp(), "SELECT count(*) FROM " + tabla);
  }
  int Selladas() const {
    return Numero(*negocio_.AbrirDatos(),
                  "SELECT count(*) FROM ProvFacturas WHERE ModificadoPor = 'ANA'");
  }

 private:
  static int Numero(sqlite::Conexion& conexion, const std::string& sql) {
    return static_cast<int>(conexion.Consultar(sql).Filas.En(0, 0).Numero());
  }
  template <class Accion>
  Cuentas Contar(Accion&& accion) {
    const Cuentas antes{datos_->Cuenta(), temp_->Cuenta()};
    accion();
    return {datos_->Cuenta() - antes.Datos, temp_->Cuenta() - antes.Temp};
  }

  apoyo::NegocioDePrueba negocio_;
  services::Ref<sqlite::Conexion> datos_ = negocio_.AbrirDatos();
  services::Ref<sqlite::Conexion> temp_ = negocio_.AbrirTemp();
  apoyo::SesionSinPantalla sesion_{services::Ref<services::Conexion>(datos_),
                                   services::Ref<services::Conexion>(temp_), apoyo::kMarzo,
                                   apoyo::kRangoDeMarzo};
};

void EsperarIguales(const Cuentas& pocas, const Cuentas& muchas) {
  EXPECT_EQ(pocas.Datos.Preparadas, muchas.Datos.Preparadas);
  EXPECT_EQ(pocas.Temp.Preparadas, muchas.Temp.Preparadas);
  EXPECT_EQ(pocas.Datos.Transacciones, muchas.Datos.Transacciones);
  EXPECT_EQ(pocas.Temp.Transacciones, muchas.Temp.Transacciones);
}

TEST(Cuentas, LaCargaDeMilFacturasPideLoQueLaDeDiez) {
  Trabajo diez(10);
  Trabajo mil(1000);
  const Cuentas pocas = diez.Cargar();
  const Cuentas muchas = mil.Cargar();
  ASSERT_EQ(diez.EnLaCopia("TempProvFacturas"), 10);
  ASSERT_EQ(diez.EnLaCopia("TempCajaPagos"), 20);
  ASSERT_EQ(mil.EnLaCopia("TempProvFacturas"), 1000);
  ASSERT_EQ(mil.EnLaCopia("TempProvVencimientos"), 3000);
  ASSERT_EQ(mil.EnLaCopia("TempCajaPagos"), 2000);
  EsperarIguales(pocas, muchas);
  EXPECT_GT(muchas.Datos.Preparadas, 0U);
  EXPECT_EQ(muchas.Datos.Transacciones, 0U);
  EXPECT_EQ(muchas.Temp.Transacciones, 1U);
}

TEST(Cuentas, LaGrabacionDeMilFacturasPideLoQueLaDeDiez) {
  Trabajo diez(10);
  Trabajo mil(1000);
  diez.Cargar();
  mil.Cargar();
  const Cuentas pocas = diez.Grabar();
  const Cuentas muchas = mil.Grabar();
  ASSERT_EQ(diez.Selladas(), 10);
  ASSERT_EQ(mil.Selladas(), 1000);
  EsperarIguales(pocas, muchas);
  EXPECT_EQ(muchas.Datos.Transacciones, 1U);
  EXPECT_EQ(muchas.Temp.Transacciones, 1U);
}

}  // namespace
