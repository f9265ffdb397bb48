#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "guion/el_programa.h"
#include "sqlite/conexion_sqlite.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kUnVencimiento =
    "datos INSERT INTO ProvConceptos VALUES ('400','Luz')\n"
    "datos INSERT INTO ProvFacturas (NConcepto,Factura,Año,Fecha) VALUES "
    "('400','F1','2005','20050110')\n"
    "datos INSERT INTO ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) VALUES "
    "('400','F1','2005','20050310',10)\n"
    "reloj 2005-03-15 10:00:00\nsesion 2 reloj 2005-03-16 10:00:00\n";

/// The program itself with texts of more than one session.
class ElProgramaDeVarias : public pruebas::ElPrograma {
 protected:
  /// A text that is expected to go well, and to leave nothing behind.
  std::string Salida(const std::string& texto) {
    const pruebas::Corrida corrida = Correr("x.guion", texto);
    EXPECT_EQ(corrida.Estado, 0) << corrida.Salida;
    EXPECT_EQ(corrida.Errores, "");
    EXPECT_TRUE(fs::is_empty(temporales));
    return corrida.Salida;
  }
};

std::set<std::string> NombresEn(const fs::path& carpeta) {
  std::set<std::string> nombres;
  for (const auto& uno : fs::directory_iterator(carpeta)) nombres.insert(uno.path().filename());
  return nombres;
}

TEST_F(ElProgramaDeVarias, CadaLineaDiceSuSesionYVaEnElOrdenDelTexto) {
  EXPECT_EQ(Salida("pantallas\nsesion 2\ncargar\npantallas\nsesion 1 pantallas\n"
                   "sesion 1 datos INSERT INTO ProvConceptos VALUES ('1','a' || char(10) || 'b')\n"
                   "consulta datos SELECT * FROM ProvConceptos\n"
                   "sesion 1\nconsulta datos SELECT count(*) FROM ProvConceptos"),
            "2> FrmTesvaraGastos 1\n2> 1|a\n2> b\n2> (1 filas)\n1\n(1 filas)\n");
}

TEST_F(ElProgramaDeVarias, CadaUnaTieneSuAnfitrionSuRelojYSuFicheroDeTrabajo) {
  EXPECT_EQ(Salida(std::string(kUnVencimiento) +
                   "cargar\nsesion 2 usuario EVA\nsesion 2 cargar\n"
                   "sesion 2 celda MSFPagos 1 5\nespera celda MSFPagos 1 4 \"\"\n"
                   "sesion 2 pulsar BotonAceptar\npulsar BotonAceptar\n"
                   "consulta datos SELECT Pagado, Actualizado, ModificadoPor FROM "
                   "ProvVencimientos\n"),
            "NULL|2005-03-15 10:00:00|ANA\n(1 filas)\n");
}

TEST_F(ElProgramaDeVarias, UnaSigueMientrasOtraEsperaEnUnaModal) {
  EXPECT_EQ(Salida("cargar\npulsar BtnAutCaja\npantallas\nsesion 2 cargar\nsesion 2 pantallas\n"
                   "sesion 2 pulsar BtnAutCaja\nbarra FrmFraAutomaticas\npantallas\n"
                   "sesion 2 pantallas\n"),
            "FrmTesvaraGastos 1\nFrmFraAutomaticas 1\n2> FrmTesvaraGastos 1\nFrmTesvaraGastos 1\n"
            "2> FrmTesvaraGastos 1\n2> FrmFraAutomaticas 1\n");
}

TEST_F(ElProgramaDeVarias, UnReclamoFallidoDiceSuLineaYDaUno) {
  const pruebas::Corrida corrida =
      Correr("x.guion", "foco?\nsesion 2 espera error 13\nsesion 2 foco?\n");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida,
            "ninguno\n2> FALLO line 2: esperado 13, obtenido ninguno\n2> ninguno\n");
  EXPECT_EQ(corrida.Errores, "");
}

TEST_F(ElProgramaDeVarias, LoQueUnaNoEntiendeAcabaConTodasYNoDejaNada) {
  const pruebas::Corrida corrida = Correr(
      "x.guion", "cargar\npulsar BtnAutCaja\nsesion 2\nfoco?\nver TxtTotal\nfoco?\nsesion 1 foco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "2> ninguno\n");
  EXPECT_EQ(corrida.Errores, "línea 5: la pantalla FrmTesvaraGastos no está cargada\n");
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElProgramaDeVarias, ElFicheroLocalDeCadaUnaEstaJuntoAlDeLaPrimera) {
  const std::string texto =
      "local INSERT INTO TempTesvaraBorrar VALUES ('1','20050301',1)\n"
      "sesion 2 consulta local SELECT count(*) FROM TempTesvaraBorrar\n"
      "sesion 3 foco?\n";
  const fs::path aparte = carpeta.Ruta() / "aparte";
  fs::create_directory(aparte);
  const pruebas::Corrida corrida = Correr("--local aparte/mi.caja.db x.guion", texto);
  EXPECT_EQ(corrida.Estado, 0) << corrida.Errores;
  EXPECT_EQ(corrida.Salida, "2> 0\n2> (1 filas)\n3> ninguno\n");
  EXPECT_EQ(NombresEn(aparte),
            (std::set<std::string>{"mi.caja.db", "mi.caja-2.db", "mi.caja-3.db"}));
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElProgramaDeVarias, MantenerConservaLosFicherosDeTodas) {
  const pruebas::Corrida corrida = Correr("--mantener x.guion", "foco?\nsesion 2 foco?\n");
  EXPECT_EQ(corrida.Estado, 0);
  const fs::path hecha = fs::directory_iterator(temporales)->path();
  EXPECT_EQ(corrida.Errores, "bases de datos en " + hecha.string() + "\n");
  EXPECT_EQ(NombresEn(hecha),
            (std::set<std::string>{"datos.sqlite", "local.sqlite", "local-2.sqlite"}));
}

TEST_F(ElProgramaDeVarias, LaBaseLocalDeUnaEnUsoPorOtroAcabaConTodas) {
  const std::string suya = (carpeta.Ruta() / "mia-2.db").string();
  const auto otro = sqlite::AbrirConexion(suya, {.Crear = true, .Exclusiva = true});
  const pruebas::Corrida corrida =
      Correr("--local mia.db x.guion", "foco?\nsesion 2 foco?\nfoco?\n");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "ninguno\n");
  EXPECT_NE(corrida.Errores.find("mia-2.db está en uso por otro programa"), std::string::npos)
      << corrida.Errores;
  EXPECT_TRUE(fs::is_empty(temporales));
}

TEST_F(ElProgramaDeVarias, MatarDejaElFicheroDeTrabajoComoEstabaYLibre) {
  EXPECT_EQ(Salida(std::string(kUnVencimiento) +
                   "sesion 2\ncargar\npulsar BtnAutCaja\nmatar\npantallas\n"
                   "consulta local SELECT FechaVto FROM TempProvVencimientos\n"
                   "sesion 1 matar\nsesion 1 pantallas\ncargar\npantallas\n"),
            "2> 20050310\n2> (1 filas)\n2> FrmTesvaraGastos 1\n");
}

TEST_F(ElProgramaDeVarias, QuienEscribeEsperaAlOtroYFallaOSigue) {
  const pruebas::Corrida corrida = Correr(
      "x.guion", std::string(kUnVencimiento) +
                     "cargar\ncelda MSFPagos 1 5\nsesion 2\n"
                     "datos BEGIN IMMEDIATE; UPDATE ProvFacturas SET Total = 7\n"
                     "sesion 1 pulsar BotonAceptar\nsesion 1 espera error -2147467259\n"
                     "sesion 1 espera celda MSFPagos 1 4 \"10,00\"\nmatar\n"
                     "sesion 1 pulsar BotonAceptar\n"
                     "consulta datos SELECT Pagado, Total FROM ProvVencimientos, ProvFacturas\n");
  EXPECT_EQ(corrida.Estado, 0) << corrida.Errores;
  EXPECT_EQ(corrida.Salida.find("error -2147467259 \"La base de datos está bloqueada"), 0U);
  EXPECT_EQ(corrida.Salida.find("\nerror"), std::string::npos) << corrida.Salida;
  EXPECT_TRUE(corrida.Salida.ends_with("\n2> 10|NULL\n2> (1 filas)\n")) << corrida.Salida;
}

}  // namespace
