#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "guion/el_programa.h"
#include "guion/opciones_guion.h"
#include "guion/texto_guion.h"
#include "sqlite/conexion_sqlite.h"

namespace fs = std::filesystem;
using pruebas::ElPrograma;

namespace {

TEST_F(ElPrograma, TodoBienDaCeroYNoDejaNada) {
  const pruebas::Corrida corrida = Correr("x.guion", "cargar\npantallas\n");
  EXPECT_EQ(corrida.Estado, 0);
  EXPECT_EQ(corrida.Salida, "FrmTesvaraGastos 1\n");
  EXPECT_EQ(corrida.Errores, "");
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElPrograma, LaBaseLocalEnUsoPorOtroSeDiceYNoSeCorreNada) {
  const std::string local = (carpeta.Ruta() / "local.sqlite").string();
  const auto otro = sqlite::AbrirConexion(local, {.Crear = true, .Exclusiva = true});
  const pruebas::Corrida corrida = Correr("--local " + local + " x.guion", "foco?\n");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "");
  EXPECT_NE(corrida.Errores.find(local + " está en uso por otro programa"), std::string::npos)
      << corrida.Errores;
}

TEST_F(ElPrograma, LeeLaEntradaConUnGuion) {
  EXPECT_EQ(Correr("-", "foco?\n").Salida, "ninguno\n");
}

TEST_F(ElPrograma, UnReclamoFallidoDaUno) {
  const pruebas::Corrida corrida = Correr("x.guion", "espera error 13\npantallas\nfoco?");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida, "FALLO line 1: esperado 13, obtenido ninguno\nninguno\n");
}

TEST_F(ElPrograma, UnTextoQueNoSeEntiendeDaDosYNoCorreNada) {
  const pruebas::Corrida corrida = Correr("x.guion", "foco?\nbailar\n");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "");
  EXPECT_EQ(corrida.Errores, "línea 2: orden desconocida: bailar\n");
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElPrograma, LoQueElMotorRechazaDaDosYTampocoDejaNada) {
  const pruebas::Corrida corrida =
      Correr("x.guion", "foco?\ndatos INSERT INTO NoEsta VALUES (1)\nfoco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "ninguno\n");
  EXPECT_EQ(corrida.Errores.substr(0, 10), "línea 2: ");
  EXPECT_NE(corrida.Errores.find("NoEsta"), std::string::npos);
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElPrograma, MantenerConservaLoHechoYDiceDonde) {
  const pruebas::Corrida corrida =
      Correr("--mantener x.guion", "datos INSERT INTO ProvConceptos VALUES ('1','Luz')");
  EXPECT_EQ(corrida.Estado, 0);
  ASSERT_FALSE(fs::is_empty(temporales));
  const fs::path hecha = fs::directory_iterator(temporales)->path();
  EXPECT_EQ(corrida.Errores, "bases de datos en " + hecha.string() + "\n");
  const std::string ficheros = "--datos sqlite:" + (hecha / "datos.sqlite").string() + " --local " +
                               (hecha / "local.sqlite").string() + " x.guion";
  EXPECT_EQ(Correr(ficheros, "consulta datos SELECT * FROM ProvConceptos").Salida,
            "1|Luz\n(1 filas)\n");
}

TEST_F(ElPrograma, UnFicheroDadoSeHaceYSeQueda) {
  EXPECT_EQ(
      Correr("--datos mia.db x.guion", "datos INSERT INTO ProvConceptos VALUES ('1','Luz')").Estado,
      0);
  EXPECT_EQ(
      Correr("--datos mia.db x.guion", "consulta datos SELECT count(*) FROM ProvConceptos").Salida,
      "1\n(1 filas)\n");
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElPrograma, LoQueNoEsUnaBaseDaDos) {
  std::ofstream(carpeta.Ruta() / "no.db") << "esto no es una base de datos, ni lo parece";
  const pruebas::Corrida corrida = Correr("--datos no.db x.guion", "foco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "");
  EXPECT_NE(corrida.Errores, "");
}

TEST_F(ElPrograma, LasOpcionesMalPuestasDanDosYElUso) {
  for (const char* opciones : {"", "--datos", "--otra x.guion", "x.guion y.guion", "--local"}) {
    const pruebas::Corrida corrida = Correr(opciones, "foco?");
    EXPECT_EQ(corrida.Estado, 2) << opciones;
    EXPECT_NE(corrida.Errores.find("uso: tesvara-guion"), std::string::npos) << opciones;
  }
  EXPECT_EQ(Correr("noesta.guion", "foco?").Errores, "no se puede leer noesta.guion\n");
}

TEST_F(ElPrograma, NingunFalloDeUnaBaseTumbaLaPantalla) {
  const std::string antes =
      "reloj 2005-03-15 10:00:00\n"
      "datos INSERT INTO ProvConceptos VALUES ('400','Luz')\n"
      "datos INSERT INTO ProvFacturas (NConcepto,Factura,Año,Fecha,Total) VALUES "
      "('400','F1','2005','20050110',10)\n"
      "datos INSERT INTO ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) VALUES "
      "('400','F1','2005','20050310',10)\ncargar\ncelda MSFPagos 1 5\n";
  for (const char* base : {"datos", "local"}) {
    for (int n = 1; n <= 30; ++n) {
      const pruebas::Corrida corrida = Correr(
          "x.guion", antes + "fallo " + base + " " + std::to_string(n) +
                         "\npulsar BotonAceptar\nresponder si\ncerrar\ncargar\ncargar\npantallas");
      EXPECT_EQ(corrida.Estado, 0) << base << " " << n << "\n" << corrida.Errores;
      EXPECT_TRUE(corrida.Salida.ends_with("FrmTesvaraGastos 1\n")) << base << " " << n << "\n"
                                                                    << corrida.Salida;
    }
  }
}

TEST(Opciones, UnaConexionEsDeUnFicheroODeUnServidor) {
  EXPECT_EQ(guion::LeerOpciones({"--datos", "sqlite:a=b;c.db", "x"}).Datos, "a=b;c.db");
  EXPECT_EQ(guion::LeerOpciones({"--datos", "/tmp/a:b.db", "x"}).Datos, "/tmp/a:b.db");
  EXPECT_EQ(guion::LeerOpciones({"--datos", "DSN=Gestion", "x"}).Servidor, "DSN=Gestion");
  EXPECT_EQ(guion::LeerOpciones({"--datos", "odbc:DSN=Gestion", "x"}).Servidor, "DSN=Gestion");
  EXPECT_EQ(guion::LeerOpciones({"--datos", "DSN=Gestion", "x"}).Datos, "");
  EXPECT_THROW(static_cast<void>(guion::LeerOpciones({"--datos", "postgresql://x/y", "x"})),
               guion::NoSeEntiende);
}

TEST_F(ElPrograma, UnServidorQueNoEstaSeDice) {
  const auto corrida = Correr("--datos 'Driver={No Hay};Server=x' x.guion", "foco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_THAT(corrida.Errores, testing::StartsWith("No se puede abrir la base de datos x: "));
}

}  // namespace
