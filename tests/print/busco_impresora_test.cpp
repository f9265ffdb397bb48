#include <gmock/gmock.h>

#include "print/con_impresion.h"

namespace {

using print::frmBuscoImpresora;
using services::Raton;
namespace entrada = services::entrada;
namespace tecla = services::tecla;

class BuscoImpresora : public pruebas::ConImpresion {
 protected:
  void Cargar(int impresoras) {
    for (int i = 1; i <= impresoras; ++i) {
      enMarcha.Entorno().Printers.push_back("Impresora " + std::to_string(i));
    }
    ConImpresion::Cargar();
  }
  static int Elegido(const frmBuscoImpresora& busco) {
    int elegido = -1;
    for (int i = 0; i < busco.Img.Count(); ++i) {
      if (busco.Img(i).Tag->empty()) continue;
      EXPECT_EQ(elegido, -1) << "uno solo";
      elegido = i;
    }
    return elegido;
  }
  static std::vector<int> AlaVista(const frmBuscoImpresora& busco) {
    std::vector<int> cuales;
    for (int i = 0; i < busco.Img.Count(); ++i) {
      EXPECT_EQ(busco.Img(i).Visible(), busco.LblImpre(i).Visible());
      if (busco.Img(i).Visible) cuales.push_back(i);
    }
    return cuales;
  }
};

using testing::ElementsAre;

TEST_F(BuscoImpresora, SinImpresorasSoloEstaLaPantalla) {
  Cargar(0);
  Imprimir([](frmBuscoImpresora& busco) {
    EXPECT_EQ(busco.Img.Count(), 1);
    EXPECT_EQ(busco.LblImpre(0).Caption, "Pantalla");
    EXPECT_EQ(Elegido(busco), 0);
    EXPECT_EQ(busco.Img(0).Picture, busco.ImgPantalla.Picture());
  });
}

TEST_F(BuscoImpresora, AceptarSinMasDaLaPantalla) {
  Cargar(2);
  Imprimir([](frmBuscoImpresora& busco) { entrada::Pulsar(busco.Boton1); });
  EXPECT_EQ(Imprenta().Impresora, "Pantalla");
  EXPECT_EQ(vistas, 1);
}

TEST_F(BuscoImpresora, CancelarOCerrarNoDaNingunaYNoSeImprime) {
  Cargar(2);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton2);
  });
  EXPECT_EQ(Imprenta().Impresora, "Null Impresora");
  Imprimir([](frmBuscoImpresora& busco) { entrada::CerrarBarra(busco.Barra1); });
  EXPECT_EQ(Imprenta().Impresora, "Null Impresora");
  Imprimir([](frmBuscoImpresora& busco) { entrada::Tecla(busco.LblImpre(0), tecla::Escape); });
  EXPECT_EQ(Imprenta().Impresora, "Null Impresora");
  EXPECT_TRUE(Trazos().empty());
  EXPECT_EQ(vistas, 0);
}

TEST_F(BuscoImpresora, PulsarElNombreHaceLoQuePulsarElIcono) {
  Cargar(2);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.LblImpre(2));
    EXPECT_EQ(Elegido(busco), 2);
    EXPECT_EQ(busco.Img(0).Picture, busco.ImgPantDesactiva.Picture());
    EXPECT_EQ(busco.Img(1).Picture, busco.ImgImprDesactiva.Picture());
    EXPECT_EQ(busco.Img(2).Picture, busco.ImgImpresora.Picture());
    entrada::Pulsar(busco.Img(1));
    EXPECT_EQ(Elegido(busco), 1);
    entrada::Pulsar(busco.Boton1);
  });
  EXPECT_EQ(Imprenta().Impresora, "Impresora 1");
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Impresora, "Impresora 1");
}

TEST_F(BuscoImpresora, LasFlechasMuevenLaTiraDeUnoEnUno) {
  Cargar(6);
  Imprimir([](frmBuscoImpresora& busco) {
    EXPECT_THAT(AlaVista(busco), ElementsAre(0, 1, 2, 3, 4));
    entrada::Pulsar(busco.ImgIzq);
    EXPECT_THAT(AlaVista(busco), ElementsAre(0, 1, 2, 3, 4)) << "al principio no hace nada";
    entrada::Pulsar(busco.ImgDer);
    EXPECT_THAT(AlaVista(busco), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(busco.Img(1).Left, 0);
    EXPECT_EQ(busco.LblImpre(1).Left, 65);
    EXPECT_EQ(busco.Img(2).Left, busco.Img(1).Width());
    EXPECT_EQ(Elegido(busco), 0) << "lo elegido lo sigue siendo fuera de la vista";
    for (int i = 0; i < 9; ++i) entrada::Pulsar(busco.ImgDer);
    EXPECT_THAT(AlaVista(busco), ElementsAre(4, 5, 6)) << "la tira se pasa de llena";
    entrada::Pulsar(busco.ImgIzq);
    EXPECT_THAT(AlaVista(busco), ElementsAre(3, 4, 5, 6));
    entrada::Pulsar(busco.Boton1);
  });
  EXPECT_EQ(Imprenta().Impresora, "Pantalla");
}

TEST_F(BuscoImpresora, ConMenosDeCuatroNoSeMueve) {
  Cargar(2);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.ImgDer);
    EXPECT_THAT(AlaVista(busco), ElementsAre(0, 1, 2));
  });
}

TEST_F(BuscoImpresora, LasFlechasDelTecladoEligenYTraenALaVista) {
  Cargar(7);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Enfocar(busco.LblImpre(0));
    for (int i = 0; i < 6; ++i) {
      entrada::Tecla(busco.LblImpre(i), tecla::Derecha);
      EXPECT_TRUE(busco.LblImpre(i + 1).TieneFoco());
      EXPECT_EQ(Elegido(busco), i + 1);
    }
    EXPECT_THAT(AlaVista(busco), ElementsAre(2, 3, 4, 5, 6));
    entrada::Tecla(busco.LblImpre(6), tecla::Inicio);
    EXPECT_TRUE(busco.LblImpre(0).TieneFoco());
    EXPECT_THAT(AlaVista(busco), ElementsAre(0, 1, 2, 3, 4));
    entrada::Tecla(busco.LblImpre(0), tecla::Izquierda);
    EXPECT_TRUE(busco.LblImpre(0).TieneFoco());
    entrada::Tecla(busco.LblImpre(0), tecla::Fin);
    EXPECT_EQ(Elegido(busco), 7);
    entrada::Tecla(busco.LblImpre(7), tecla::Intro);
  });
  EXPECT_EQ(Imprenta().Impresora, "Impresora 7");
}

TEST_F(BuscoImpresora, ElTabuladorParaUnaVezEnLaTira) {
  Cargar(3);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(2));
    entrada::Tabular(busco, false);
    EXPECT_TRUE(busco.LblImpre(2).TieneFoco());
    entrada::Tabular(busco, false);
    EXPECT_TRUE(busco.Boton1.TieneFoco());
    entrada::Tabular(busco, false);
    EXPECT_TRUE(busco.Boton2.TieneFoco());
    entrada::Tabular(busco, false);
    EXPECT_TRUE(busco.LblImpre(2).TieneFoco());
  });
}

TEST_F(BuscoImpresora, LasFlechasSiguenDesdeLoElegidoConElRaton) {
  Cargar(7);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Enfocar(busco.LblImpre(0));
    entrada::Pulsar(busco.LblImpre(3));
    EXPECT_TRUE(busco.LblImpre(3).TieneFoco()) << "la tira que tiene el foco lo lleva consigo";
    entrada::Tecla(busco.LblImpre(3), tecla::Derecha);
    EXPECT_EQ(Elegido(busco), 4);
    entrada::Enfocar(busco.Boton1);
    entrada::Pulsar(busco.Img(1));
    EXPECT_TRUE(busco.Boton1.TieneFoco()) << "y la que no, no";
  });
}

TEST_F(BuscoImpresora, LoElegidoQueSaleDeLaVistaNoSeLlevaElTeclado) {
  Cargar(7);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Enfocar(busco.LblImpre(0));
    entrada::Pulsar(busco.ImgDer);
    entrada::Pulsar(busco.ImgDer);
    EXPECT_TRUE(busco.LblImpre(2).TieneFoco());
    EXPECT_EQ(Elegido(busco), 0);
    entrada::Tabular(busco, false);
    entrada::Tabular(busco, true);
    EXPECT_TRUE(busco.LblImpre(2).TieneFoco());
    entrada::Tecla(busco.LblImpre(2), tecla::Derecha);
    EXPECT_EQ(Elegido(busco), 1);
    EXPECT_TRUE(busco.LblImpre(1).TieneFoco());
    EXPECT_THAT(AlaVista(busco), ElementsAre(1, 2, 3, 4, 5));
  });
}

TEST_F(BuscoImpresora, SeArrastraPorSuBarra) {
  Cargar(0);
  Imprimir([](frmBuscoImpresora& busco) {
    busco.Left = 1000;
    busco.Top = 500;
    entrada::PulsarBarra(busco.Barra1, {.Boton = Raton::Derecho, .X = 10, .Y = 10});
    entrada::MoverEnBarra(busco.Barra1, {.Boton = Raton::Derecho, .X = 110, .Y = 10});
    EXPECT_EQ(busco.Left, 1000) << "solo con el botón izquierdo";
    entrada::PulsarBarra(busco.Barra1, {.Boton = Raton::Izquierdo, .X = 10, .Y = 20});
    EXPECT_EQ(busco.MousePointer, 15);
    entrada::MoverEnBarra(busco.Barra1, {.Boton = Raton::Izquierdo, .X = 110, .Y = 0});
    EXPECT_EQ(busco.Left, 1100);
    EXPECT_EQ(busco.Top, 480);
    entrada::SoltarBarra(busco.Barra1, {.Boton = Raton::Izquierdo, .X = 10, .Y = 20});
    EXPECT_EQ(busco.MousePointer, 0);
    entrada::MoverEnBarra(busco.Barra1, {.X = 500, .Y = 500});
    EXPECT_EQ(busco.Left, 1100);
  });
}

TEST_F(BuscoImpresora, CadaVezSeCargaDeNuevo) {
  Cargar(1);
  Imprimir([](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton2);
  });
  enMarcha.Entorno().Printers.emplace_back("Otra");
  Imprimir([](frmBuscoImpresora& busco) {
    EXPECT_EQ(Elegido(busco), 0);
    EXPECT_EQ(busco.LblImpre.Count(), 3);
    EXPECT_EQ(busco.LblImpre(2).Caption, "Otra");
  });
}

TEST_F(BuscoImpresora, UnaImpresoraQueYaNoEstaNoEsUnError) {
  Cargar(2);
  ImprimirEn(2);
  Imprimir([this](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton1);
    enMarcha.Entorno().Printers.erase(enMarcha.Entorno().Printers.begin());
  });
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Impresora, "Impresora 2") << "la que había";
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Ausente, "Impresora 1");
  EXPECT_EQ(Paginas(), 1);
}

TEST_F(BuscoImpresora, LaUnicaQueHabiaYSeHaIdoTampocoLoEs) {
  Cargar(1);
  ImprimirEn(1);
  Imprimir([this](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton1);
    enMarcha.Entorno().Printers = {"Otra"};
  });
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Impresora, "") << "la del sistema";
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Ausente, "Impresora 1");
}

TEST_F(BuscoImpresora, SinNingunaImpresoraEsUnError) {
  Cargar(1);
  std::int32_t numero = 0;
  enMarcha.Entorno().AlFallar = [&](const services::ErrorEjecucion& fallo) {
    numero = fallo.Numero();
  };
  Imprimir([this](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton1);
    enMarcha.Entorno().Printers.clear();
  });
  EXPECT_EQ(numero, services::error::ErrorDeImpresora);
  EXPECT_TRUE(Trazos().empty());
}

TEST_F(BuscoImpresora, SinQueNadieEligieraNuncaEsLaDelSistema) {
  Cargar(1);
  Imprimir([this](frmBuscoImpresora& busco) {
    entrada::Pulsar(busco.Img(1));
    entrada::Pulsar(busco.Boton1);
    enMarcha.Entorno().Printers = {"Otra"};
  });
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Impresora, "");
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Ausente, "Impresora 1");
}

}  // namespace
