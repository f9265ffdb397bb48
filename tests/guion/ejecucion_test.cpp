#include "guion/ejecucion.h"

#include <gtest/gtest.h>

#include <sstream>

#include "base_de_mentira.h"
#include "componente_de_mentira.h"
#include "guion/corrida.h"

namespace {

class UnGuion : public testing::Test {
 protected:
  pruebas::BaseDeMentira datos;
  pruebas::BaseDeMentira local;

  pruebas::Corrida Correr(const std::string& texto) {
    std::ostringstream salida;
    std::ostringstream errores;
    guion::Mundo* el = nullptr;
    guion::Mundo mundo(
        datos, local, [&el] { return services::Crear<pruebas::ClaseDeMentira>(el->Plataforma()); });
    el = &mundo;
    guion::Ejecucion ejecucion(mundo, salida, errores);
    const int estado = ejecucion.Correr(guion::Seguidas(guion::Analizar(texto)));
    return {estado, salida.str(), errores.str()};
  }

  /// A text of which everything is expected to go well.
  std::string Salida(const std::string& texto) {
    const pruebas::Corrida corrida = Correr(texto);
    EXPECT_EQ(corrida.Estado, 0) << corrida.Salida << corrida.Errores;
    EXPECT_EQ(corrida.Errores, "");
    return corrida.Salida;
  }
};

TEST_F(UnGuion, LaSesionLlevaSusValoresPorOmision) {
  EXPECT_EQ(Salida("cargar\nver LblResultado"),
            "LblResultado Caption=\"ANA TESVARA 15360x11520 Página Pantalla\" Tag=\"\" Enabled=1 "
            "Visible=1 BackColor=-2147483633\n");
}

TEST_F(UnGuion, SinGuardiaParaEstasBasesLaOrdenNoSeEntiende) {
  const pruebas::Corrida corrida = Correr("guardia\ncargar");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Errores, "línea 1: estas bases de datos no tienen guardia\n");
}

TEST_F(UnGuion, LaSesionLlevaLoQueElTextoDice) {
  EXPECT_EQ(Salida("usuario \"EVA MAR\"\nclave K\ntexto Pagina Hoja\ntexto Pantalla Vista\n"
                   "referencia 12000 9000\ncargar\n"
                   "espera LblResultado.Caption \"EVA MAR K 12000x9000 Hoja Vista\""),
            "");
}

TEST_F(UnGuion, TeclearSustituyeElTextoYAnadirLoSigue) {
  Salida(
      "cargar\nteclear TxtA \"añ o\"\nespera foco TxtA\nanadir \"s\"\nespera TxtA.Text \"añ os\"\n"
      "teclear TxtA \"x\"\nespera TxtA.Text x\nteclear TxtA \"\"\nespera TxtA.Text \"\"");
}

TEST_F(UnGuion, LasTeclasSiguenAlFocoQueUnManejadorMueve) {
  Salida("cargar\nteclear TxtA \"123\"\nespera TxtA.Text 12\nespera TxtB.Text 3\nespera foco TxtB");
}

TEST_F(UnGuion, NoSeTecleaDondeElFocoNoLlega) {
  Salida(
      "cargar\nfoco TxtA\nteclear TxtOculto \"x\"\nespera TxtOculto.Text \"\"\n"
      "espera TxtA.Text \"\"\nespera foco TxtA");
}

TEST_F(UnGuion, LasTeclasConNombreHacenLoSuyo) {
  Salida(
      "cargar\nteclear TxtA \"ab\"\ntecla Borrar\nespera TxtA.Text a\ntecla Espacio\n"
      "espera TxtA.Text \"a \"\ntecla Tab\nespera foco TxtB\nfoco BotonModal\ntecla Tab\n"
      "espera foco BotonAviso\ntecla Intro\nespera aviso \"Fecha incorrecta\"\n"
      "celda MSFPagos 1 0\ntecla Abajo\ntecla Derecha\nespera celda MSFPagos 2 1 Agua");
  EXPECT_EQ(Salida("cargar\ncelda MSFPagos 1 0\ntecla Abajo\ntecla Derecha\nrejilla MSFPagos"),
            "MSFPagos filas=3 fila=2 columna=1\n0: |\n1: 15/03/2005|Luz\n2: 16/03/2005|Agua\n");
}

TEST_F(UnGuion, LaListaLaBarraYElDobleClicSeMueven) {
  Salida(
      "cargar\nelegir CmbTipo Meses\nespera CmbTipo.ListIndex 1\nespera CmbTipo.Text Meses\n"
      "valor Scroll 7\nespera Scroll.Value 7\nespera marca MSFPagos 2 1 0\n"
      "doble MSFPagos 2 1\nespera LblResultado.Caption Agua\nespera marca MSFPagos 2 1 1");
}

TEST_F(UnGuion, LasLineasSiguientesSeJueganDentroDeLaModal) {
  EXPECT_EQ(Salida("cargar\npulsar BotonModal\npantallas\nfoco FrmModal.TxtBusco\nfoco?\n"
                   "espera LblResultado.Caption \"ANA TESVARA 15360x11520 Página Pantalla\"\n"
                   "pulsar FrmModal.BotonSalir\npantallas\nespera LblResultado.Caption vuelta"),
            "FrmTesvaraGastos 1\nFrmModal 1\nFrmModal.TxtBusco\nFrmTesvaraGastos 1\n");
}

TEST_F(UnGuion, LaBarraDeLaModalTambienLaCierra) {
  EXPECT_EQ(Salida("cargar\npulsar BotonModal\nbarra FrmModal\nespera LblResultado.Caption vuelta\n"
                   "pantallas"),
            "FrmTesvaraGastos 1\nFrmModal 0\n");
}

TEST_F(UnGuion, DetrasDeUnaModalNadaSeAlcanza) {
  Salida(
      "cargar\npulsar BotonModal\npulsar BotonAviso\nteclear TxtA \"x\"\nbarra FrmTesvaraGastos\n"
      "pulsar FrmModal.BotonSalir\nespera sin avisos\nespera TxtA.Text \"\"\npulsar BotonAviso\n"
      "espera aviso \"Fecha incorrecta\"");
}

TEST_F(UnGuion, ElTextoPuedeAcabarDentroDeUnaModal) {
  EXPECT_EQ(Correr("cargar\npulsar BotonModal").Estado, 0);
}

TEST_F(UnGuion, LoOcultoNoSeAlcanza) {
  Salida(
      "cargar\nocultar\npulsar BotonAviso\nespera sin avisos\ncargar\npulsar BotonAviso\n"
      "espera aviso \"Fecha incorrecta\"");
}

TEST_F(UnGuion, LosAvisosSeImprimenUnaVez) {
  EXPECT_EQ(Salida("cargar\npulsar BotonAviso\nresponder no\npulsar BotonPregunta\navisos\navisos\n"
                   "espera sin avisos\nespera LblResultado.Caption no"),
            "aviso \"Fecha incorrecta\" 16 \"Atención\" -> aceptar\n"
            "aviso \"¿Seguro?\" 4 \"Atención\" -> no\n");
}

TEST_F(UnGuion, UnAvisoReclamadoAunSeImprime) {
  EXPECT_EQ(Salida("cargar\npulsar BotonAviso\nespera aviso \"Fecha incorrecta\"\n"
                   "espera sin avisos\navisos"),
            "aviso \"Fecha incorrecta\" 16 \"Atención\" -> aceptar\n");
}

TEST_F(UnGuion, UnaPreguntaSinRespuestaTerminaLaFuncion) {
  const pruebas::Corrida corrida = Correr("cargar\npulsar BotonPregunta\nfoco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "");
  EXPECT_EQ(corrida.Errores, "línea 2: pregunta sin respuesta: ¿Seguro?\n");
}

TEST_F(UnGuion, LosErroresSeImprimenYLaFuncionSigue) {
  EXPECT_EQ(Salida("cargar\npulsar BotonError\nespera error 13\ncerrar\nespera error 91\n"
                   "foco TxtA\nespera foco TxtA"),
            "error 13 \"No coinciden los tipos\"\nerror 91 \"No hay pantalla\"\n");
}

TEST_F(UnGuion, ElErrorDeUnaOrdenAnteriorNoVale) {
  const pruebas::Corrida corrida = Correr("cargar\npulsar BotonError\nfoco TxtA\nespera error 13");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida,
            "error 13 \"No coinciden los tipos\"\nFALLO line 4: esperado 13, obtenido ninguno\n");
}

TEST_F(UnGuion, ElFalloPedidoLlegaAlAnfitrion) {
  EXPECT_EQ(Salida("fallo datos 1\ncargar\nespera error -2147467259\nfallo datos 2 0x80040E21\n"
                   "cargar\nespera error 0x80040E21\ncargar\npantallas"),
            "error -2147467259 \"Fallo provocado en la conexión datos\"\n"
            "error -2147217887 \"Fallo provocado en la conexión datos\"\nFrmTesvaraGastos 1\n");
}

TEST_F(UnGuion, LasSentenciasSeImprimenUnaVez) {
  EXPECT_EQ(Salida("cargar\nsentencias\nsentencias\nborrados"),
            "datos lectura \"SELECT T.* FROM T\"\n");
}

TEST_F(UnGuion, ElSqlVaASuBaseSinPasarPorElComponente) {
  EXPECT_EQ(Salida("datos INSERT 1\nlocal INSERT 2\nconsulta datos SELECT 3\n"
                   "espera consulta local \"SELECT 4\" \"1|NULL\" \"2|dos\"\nsentencias"),
            "1|NULL\n2|dos\n(2 filas)\n");
  EXPECT_EQ(datos.Ejecutadas, (std::vector<std::string>{"INSERT 1", "SELECT 3"}));
  EXPECT_EQ(local.Ejecutadas, (std::vector<std::string>{"INSERT 2", "SELECT 4"}));
}

TEST_F(UnGuion, LaUnidadSeDiceALaBaseAlmacenada) {
  EXPECT_EQ(Salida("unidad sentencia\nunidad evento"), "");
  EXPECT_EQ(datos.Ejecutadas, (std::vector<std::string>{"unidad sentencia", "unidad evento"}));
  EXPECT_TRUE(local.Ejecutadas.empty());
}

TEST_F(UnGuion, LoQueElMotorNoQuiereTerminaLaFuncion) {
  const pruebas::Corrida corrida = Correr("cargar\ndatos MAL\nfoco?");
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Errores, "línea 2: el motor no quiere\n");
  EXPECT_EQ(corrida.Salida, "");
}

TEST_F(UnGuion, SinInformeNoSeImprimeNada) {
  EXPECT_EQ(Salida("informe"), "");
}

TEST_F(UnGuion, LoQueSeBuscaYNoEstaTerminaLaFuncion) {
  EXPECT_EQ(Correr("ver TxtA").Errores, "línea 1: la pantalla FrmTesvaraGastos no está cargada\n");
  EXPECT_EQ(Correr("cargar\nver TxtZ").Errores, "línea 2: FrmTesvaraGastos no tiene TxtZ\n");
  EXPECT_EQ(Correr("cargar\nver FrmOtra.TxtA").Estado, 2);
  EXPECT_EQ(Correr("cargar\nrejilla TxtA").Errores, "línea 2: TxtA no es una rejilla\n");
  EXPECT_EQ(Correr("cargar\nelegir CmbTipo Siglos").Estado, 2);
  EXPECT_EQ(Correr("cargar\ncelda MSFPagos 9 0").Estado, 2);
  EXPECT_EQ(Correr("cargar\nespera TxtA.Value 1").Estado, 2);
}

struct Reclamo {
  const char* Texto;
  const char* Salida;
};

class ReclamoFallido : public UnGuion, public testing::WithParamInterface<Reclamo> {};

TEST_P(ReclamoFallido, DiceLoEsperadoYLoObtenidoYSigue) {
  const pruebas::Corrida corrida = Correr("cargar\n" + std::string(GetParam().Texto) + "\nfoco?");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida, "FALLO line 2: " + std::string(GetParam().Salida) + "\nninguno\n");
}

INSTANTIATE_TEST_SUITE_P(
    Reclamos, ReclamoFallido,
    testing::Values(
        Reclamo{"espera TxtA.Text \"di \\\"no\\\"\"", "esperado \"di \\\"no\\\"\", obtenido \"\""},
        Reclamo{"espera TxtA.Enabled 0", "esperado \"0\", obtenido \"1\""},
        Reclamo{"espera celda MSFPagos 1 1 Agua", "esperado \"Agua\", obtenido \"Luz\""},
        Reclamo{"espera celda MSFPagos 9 1 Agua",
                "esperado \"Agua\", obtenido una celda que no existe"},
        Reclamo{"espera marca MSFPagos 1 1 1", "esperado 1, obtenido 0"},
        Reclamo{"espera aviso \"Hola\"", "esperado \"Hola\", obtenido ninguno"},
        Reclamo{"espera foco TxtA", "esperado TxtA, obtenido ninguno"},
        Reclamo{"espera error 5", "esperado 5, obtenido ninguno"},
        Reclamo{"espera consulta datos \"S\" \"1|NULL\"",
                "esperado \"1|NULL\", obtenido \"1|NULL\" \"2|dos\""},
        Reclamo{"espera consulta datos \"S\"",
                "esperado ninguna fila, obtenido \"1|NULL\" \"2|dos\""}));

TEST_F(UnGuion, UnAvisoDistintoCuentaComoReclamado) {
  const pruebas::Corrida corrida =
      Correr("cargar\npulsar BotonAviso\nespera aviso \"Otro\"\nespera sin avisos");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida, "FALLO line 3: esperado \"Otro\", obtenido \"Fecha incorrecta\"\n");
}

TEST_F(UnGuion, UnAvisoQueSobraHaceFallarSinAvisos) {
  const pruebas::Corrida corrida = Correr("cargar\npulsar BotonAviso\nespera sin avisos");
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida, "FALLO line 3: esperado ninguno, obtenido \"Fecha incorrecta\"\n");
}

}  // namespace
