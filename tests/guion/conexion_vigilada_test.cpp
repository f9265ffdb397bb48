#include "guion/conexion_vigilada.h"

#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "base_de_mentira.h"
#include "datos/recordset.h"
#include "guion/utiles_vigilados.h"

using apoyo::NumeroDeError;
using services::ModoApertura;

namespace {

class UnaConexion : public testing::Test {
 protected:
  std::shared_ptr<guion::Registro> registro = std::make_shared<guion::Registro>();
  std::shared_ptr<guion::Vigia> vigia = std::make_shared<guion::Vigia>("datos", registro);
  services::Ref<pruebas::ConexionDeMentira> dentro = services::Crear<pruebas::ConexionDeMentira>();
  services::Ref<services::Conexion> conexion =
      services::Crear<guion::ConexionVigilada>(dentro, vigia);
};

TEST_F(UnaConexion, ApuntaCadaSentenciaTalComoSeEscribe) {
  services::Recordset rs;
  rs.Open("SELECT T.* FROM T", *conexion, ModoApertura::Pesimista);
  rs.Close();
  rs.Open("DELETE T.* FROM T", *conexion, ModoApertura::Optimista);
  ASSERT_EQ(registro->Sentencias.size(), 2U);
  EXPECT_EQ(registro->Sentencias[0].Base, "datos");
  EXPECT_EQ(registro->Sentencias[0].Modo, ModoApertura::Pesimista);
  EXPECT_EQ(registro->Sentencias[1].Texto, "DELETE T.* FROM T");
}

TEST_F(UnaConexion, FallaLaLlamadaPedidaYSoloEsa) {
  vigia->Provocar(2, -7);
  const auto cursor = conexion->Abrir("SELECT T.* FROM T", ModoApertura::Optimista);
  EXPECT_EQ(NumeroDeError([&] { static_cast<void>(cursor->Leer()); }), -7);
  EXPECT_EQ(NumeroDeError([&] { static_cast<void>(cursor->Leer()); }), 0);
  EXPECT_EQ(dentro->Llamadas, (std::vector<std::string>{"abrir SELECT T.* FROM T", "leer"}));
}

TEST_F(UnaConexion, MirarLasColumnasDeUnaTablaNoEsUnaLlamada) {
  vigia->Provocar(1, -7);
  EXPECT_EQ(conexion->ColumnasDe("T").size(), 1U);
  EXPECT_TRUE(registro->Sentencias.empty());
  EXPECT_EQ(NumeroDeError([&] {
              static_cast<void>(conexion->Abrir("SELECT T.* FROM T", ModoApertura::Lectura));
            }),
            -7);
}

TEST_F(UnaConexion, CuentaTodasLasClasesDeLlamada) {
  const services::Filas filas(1);
  for (int n = 1; n <= 5; ++n) {
    vigia->Provocar(n, -n);
    std::vector<std::int32_t> numeros;
    std::unique_ptr<services::Cursor> cursor;
    numeros.push_back(
        NumeroDeError([&] { cursor = conexion->Abrir("SELECT 1", ModoApertura::Lectura); }));
    if (!cursor) cursor = dentro->Abrir("SELECT 1", ModoApertura::Lectura);
    const bool abierta = numeros.front() == 0;
    if (abierta) {
      numeros.push_back(NumeroDeError([&] { static_cast<void>(cursor->Leer()); }));
      numeros.push_back(NumeroDeError([&] { cursor->Insertar({}); }));
      numeros.push_back(NumeroDeError([&] { cursor->Actualizar(filas, 0, {}); }));
      numeros.push_back(NumeroDeError([&] { conexion->TerminarUnidad(); }));
    }
    std::vector<std::int32_t> esperados(abierta ? 5 : 1, 0);
    esperados[static_cast<std::size_t>(n - 1)] = -n;
    EXPECT_EQ(numeros, esperados) << n;
  }
}

TEST_F(UnaConexion, VariosFallosNoSeEstorban) {
  vigia->Provocar(1, -1);
  vigia->Provocar(3, -3);
  EXPECT_EQ(NumeroDeError([&] { conexion->TerminarUnidad(); }), -1);
  EXPECT_EQ(NumeroDeError([&] { conexion->TerminarUnidad(); }), 0);
  EXPECT_EQ(NumeroDeError([&] { conexion->TerminarUnidad(); }), -3);
  EXPECT_EQ(NumeroDeError([&] { conexion->TerminarUnidad(); }), 0);
}

TEST_F(UnaConexion, ElFinDeUnidadQueFallaPierdeLoEscrito) {
  vigia->Provocar(1, -1);
  EXPECT_EQ(NumeroDeError([&] { conexion->TerminarUnidad(); }), -1);
  EXPECT_EQ(dentro->Llamadas, std::vector<std::string>{"abandonar"});
}

/// Keeps the connection that a deletion is noted on.
class UtilesConMemoria final : public services::Utiles {
 public:
  explicit UtilesConMemoria(services::Ref<services::Conexion>& recibida) : recibida_(recibida) {}
  int TeclaFecha(services::TextBox&, int tecla) override { return tecla; }
  int TeclaImporte(services::TextBox&, int tecla, bool) override { return tecla; }
  void SoltarForm(services::Ref<services::Form>&) override {}
  void ImprimirAlineado(services::DestinoInforme&, double, const std::string&, std::string_view,
                        bool) override {}
  std::string ConvertirFecha(std::string_view fecha, int, std::string_view,
                             std::string_view) override {
    return std::string(fecha);
  }
  void AnotarBorrado(const std::string&, services::Ref<services::Conexion>& conexion,
                     const std::string&) override {
    recibida_ = conexion;
  }
  std::string FechaActualizado(services::FechaHora) override { return ""; }

 private:
  services::Ref<services::Conexion>& recibida_;
};

TEST_F(UnaConexion, ElBorradoSeAnotaPorLaConexionDeDetras) {
  services::Ref<services::Conexion> recibida;
  guion::UtilesVigilados utiles(std::make_unique<UtilesConMemoria>(recibida), registro);
  services::Ref<services::Conexion> entregada = conexion;
  utiles.AnotarBorrado("TESVARA", entregada, "DELETE FROM T");
  ASSERT_EQ(registro->Borrados.size(), 1U);
  EXPECT_EQ(registro->Borrados[0].Clave, "TESVARA");
  EXPECT_EQ(registro->Borrados[0].Sentencia, "DELETE FROM T");
  EXPECT_EQ(recibida.get(), dentro.get());
  EXPECT_EQ(entregada.get(), conexion.get());
}

}  // namespace
