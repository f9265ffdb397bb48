#include <gtest/gtest.h>

#include <functional>

#include "apoyo/negocio_de_prueba.h"
#include "apoyo/sesion_sin_pantalla.h"

// A load while another saves.

namespace {

/// The driver's connection, through which something happens when a statement is opened.
class ConexionConSuceso final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionConSuceso(services::Ref<services::Conexion> dentro, std::string principio,
                    std::function<void()> suceso)
      : dentro_(std::move(dentro)), principio_(std::move(principio)), suceso_(std::move(suceso)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override {
    if (sentencia.starts_with(principio_)) suceso_();
    return dentro_->Abrir(sentencia, modo);
  }
  void TerminarUnidad() override { dentro_->TerminarUnidad(); }
  void AbandonarUnidad() noexcept override { dentro_->AbandonarUnidad(); }
  bool EmpezarLectura() noexcept override { return dentro_->EmpezarLectura(); }
  void TerminarLectura() noexcept override { dentro_->TerminarLectura(); }

 private:
  services::Ref<services::Conexion> dentro_;
  std::string principio_;
  std::function<void()> suceso_;
};

TEST(CargaDeUnMomento, OtroBorraUnaFacturaAMediasYVieneEntera) {
  for (const char* desde : {"SELECT DISTINCT ProvBasesIva", "SELECT DISTINCT ProvVencimientos"}) {
    const apoyo::NegocioDePrueba negocio(apoyo::Tamano{5, 10});
    int veces = 0;
    const auto borrarLaPrimera = [&] {
      ++veces;
      negocio.AbrirDatos()->Ejecutar(
          "DELETE FROM ProvFacturas WHERE Factura = 'F000000'; "
          "DELETE FROM ProvBasesIva WHERE NFactura = 'F000000'; "
          "DELETE FROM ProvVencimientos WHERE NFactura = 'F000000'");
    };
    apoyo::SesionSinPantalla sesion(
        services::Ref<services::Conexion>(services::Crear<ConexionConSuceso>(
            services::Ref<services::Conexion>(negocio.AbrirDatos()), desde, borrarLaPrimera)),
        services::Ref<services::Conexion>(negocio.AbrirTemp()), apoyo::kMarzo,
        apoyo::kRangoDeMarzo);
    const auto cargada = [&] {
      sesion.Cargar();
      const auto filas = negocio.AbrirTemp()
                             ->Consultar(
                                 "SELECT (SELECT count(*) FROM TempProvFacturas), "
                                 "(SELECT count(*) FROM TempProvBasesIva), "
                                 "(SELECT count(*) FROM TempProvVencimientos)")
                             .Filas;
      return filas.En(0, 0).Texto() + " " + filas.En(0, 1).Texto() + " " + filas.En(0, 2).Texto();
    };
    EXPECT_EQ(cargada(), "5 10 15") << desde;
    EXPECT_EQ(cargada(), "4 8 12") << "la siguiente carga ya ve lo del otro";
    EXPECT_EQ(veces, 2);
  }
}

}  // namespace
