#include <gtest/gtest.h>

#include <utility>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/errores.h"
#include "apoyo/negocio_de_prueba.h"
#include "valores/error.h"

// A suite that hands back another connection when it is told of a deletion.

namespace {

using services::Conexion;
using services::Ref;

/// A connection whose unit of work is lost at its end, when asked for.
class ConexionQuePierde final : public services::ObjetoContado<Conexion> {
 public:
  explicit ConexionQuePierde(Ref<Conexion> dentro) : dentro_(std::move(dentro)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override {
    return dentro_->Abrir(sentencia, modo);
  }
  void TerminarUnidad() override {
    if (!Pierde) return dentro_->TerminarUnidad();
    dentro_->AbandonarUnidad();
    throw services::ErrorEjecucion(services::error::FalloDeConexion, "Se ha ido la luz");
  }
  void AbandonarUnidad() noexcept override { dentro_->AbandonarUnidad(); }

  bool Pierde = false;

 private:
  Ref<Conexion> dentro_;
};

/// What is handed back for the connection that a deletion ran on.
using Cambio = std::function<void(Ref<Conexion>&, const std::string& sentencia)>;

class UtilesQueCambian final : public sorvex::Utiles {
 public:
  UtilesQueCambian(services::Sesion& sesion, const Cambio& cambio)
      : sorvex::Utiles([&sesion] { return sesion.Usuario(); },
                       [&sesion] { return sesion.Ahora(); }),
        cambio_(cambio) {}

  void AnotarBorrado(const std::string& clave, Ref<Conexion>& conexion,
                     const std::string& sentencia) override {
    sorvex::Utiles::AnotarBorrado(clave, conexion, sentencia);
    cambio_(conexion, sentencia);
  }

 private:
  const Cambio& cambio_;
};

class OtraConexion : public testing::Test {
 protected:
  OtraConexion() { EXPECT_EQ(componente.Cargar(), ""); }

  [[nodiscard]] Ref<Conexion> Nueva() const {
    return Ref<Conexion>(sqlite::AbrirConexion(negocio.FicheroDatos(), {.EsperaMs = 100}));
  }
  /// "Grabar", as the user presses it. The text of its failure, empty for none.
  [[nodiscard]] std::string Grabar() {
    return apoyo::DescripcionDeError([&] {
      componente.Sesion().Escritorio().Operacion(
          [&] { services::Widget::Disparar(componente.Pantalla().BotonAceptar.Click); });
    });
  }
  [[nodiscard]] int Cuenta(const std::string& sql) const {
    return static_cast<int>(negocio.AbrirDatos()->Consultar(sql).Filas.En(0, 0).Numero());
  }
  [[nodiscard]] int Selladas() const {
    return Cuenta("SELECT count(*) FROM ProvFacturas WHERE ModificadoPor = 'ANA'");
  }
  void ExigirComoAntes() {
    EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas"), 10);
    EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvVencimientos"), 30);
    EXPECT_EQ(Selladas(), 0);
    EXPECT_EQ(Cuenta("SELECT count(*) FROM SorvexBorrados"), 0);
  }

  apoyo::NegocioDePrueba negocio{{.Facturas = 10, .Apuntes = 20}};
  Ref<ConexionQuePierde> primera = services::Crear<ConexionQuePierde>(Nueva());
  Cambio cambio = [](Ref<Conexion>&, const std::string&) {};
  apoyo::ComponenteEnMarcha componente{Ref<Conexion>(primera), Ref<Conexion>(negocio.AbrirTemp()),
                                       apoyo::kMarzo, [this](services::Sesion& sesion) {
                                         return std::make_unique<UtilesQueCambian>(sesion, cambio);
                                       }};
};

TEST_F(OtraConexion, TrasCadaBorradoSeSigueEnLaQueVuelve) {
  cambio = [this](Ref<Conexion>& conexion, const std::string&) { conexion = Nueva(); };
  EXPECT_EQ(Grabar(), "");
  EXPECT_EQ(Selladas(), 10);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvVencimientos"), 30);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM SorvexBorrados"), 31);
  EXPECT_EQ(Grabar(), "");
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas"), 10);
}

TEST_F(OtraConexion, SiLoDeLaViejaSePierdeNoSeSigueEnLaNueva) {
  cambio = [this](Ref<Conexion>& conexion, const std::string&) { conexion = Nueva(); };
  primera->Pierde = true;
  EXPECT_EQ(Grabar(), "Se ha ido la luz");
  ExigirComoAntes();
}

// There failures are passed over, and the writes behind this one would go on alone.
TEST_F(OtraConexion, TampocoSiSePierdeAlReemplazarLasPrevisiones) {
  cambio = [this](Ref<Conexion>& conexion, const std::string& sentencia) {
    if (sentencia.find("ProvPrevisionPagos") == std::string::npos) return;
    primera->Pierde = true;
    conexion = Nueva();
  };
  EXPECT_EQ(Grabar(), "Se ha ido la luz");
  ExigirComoAntes();
  primera->Pierde = false;
  cambio = [](Ref<Conexion>&, const std::string&) {};
  EXPECT_EQ(Grabar(), "");
  EXPECT_EQ(Selladas(), 10);
}

TEST_F(OtraConexion, UnaQueNoVuelveEsUnErrorYQuedaLaQueHabia) {
  cambio = [](Ref<Conexion>& conexion, const std::string&) { conexion = nullptr; };
  EXPECT_NE(Grabar().find("CnDatos"), std::string::npos);
  ExigirComoAntes();
  EXPECT_EQ(&componente.Sesion().CnDatos(), primera.get());
}

}  // namespace
