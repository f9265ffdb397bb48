#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "apoyo/en_carpeta.h"
#include "apoyo/form_de_prueba.h"
#include "list/color_lista.h"
#include "print/con_impresion.h"

namespace {

namespace entrada = services::entrada;
using headless::TrazoGrabado;
using services::Trazo;

class InformeVacio : public pruebas::ConImpresion {
 protected:
  void SetUp() override {
    enMarcha.Entorno().Printers = {"Láser"};
    Cargar();
  }
};

class Informe : public pruebas::ConImpresion {
 protected:
  Informe() : ConImpresion(80) {}
  void SetUp() override {
    enMarcha.Entorno().Printers = {"Láser"};
    Cargar();
  }
  /// The rows that show as the current one.
  [[nodiscard]] std::vector<int> Elegidas() {
    std::vector<int> filas;
    for (int fila = 1; fila < Lista().Rows; ++fila) {
      if (Lista().FondoDe(fila, 0) == list::color::FondoElegida) filas.push_back(fila);
    }
    return filas;
  }
  [[nodiscard]] std::vector<Trazo> DePagina(int pagina) {
    std::vector<Trazo> trazos;
    for (const TrazoGrabado& trazo : Trazos()) {
      if (trazo.Pagina == pagina) trazos.push_back(trazo.Trazo);
    }
    return trazos;
  }
};

TEST_F(InformeVacio, UnaRejillaConSoloSuTituloDaUnaPaginaConCabeceraTitulosYPie) {
  Lista().Rows = 1;
  ImprimirEn(1);
  EXPECT_EQ(Paginas(), 1);
  EXPECT_EQ(TrazoDe("TESVARA DE GASTOS").Letra, (services::Letra{"Bookman Old Style", 14, true}));
  EXPECT_EQ(TrazoDe("martes, 15 de marzo de 2005").Color, 0xFF0000);
  EXPECT_EQ(TrazoDe("Previsión Desde:  01/03/2005   Hasta:   31/03/2005").Color, 0);
  EXPECT_EQ(TrazoDe("NºFactura").Letra, (services::Letra{"Bookman Old Style", 9, true}));
  const auto pie = TrazoDe("Norvalia Software - Qzlm Página 1");
  EXPECT_NEAR(pie.Y1, 29.7 - 12 * 1.324 * 2.54 / 72, 1e-9);
  EXPECT_EQ(Imprenta().PaginaInforme, 1);
  EXPECT_EQ(Imprenta().ModoDeFondo, 1);
}

TEST_F(InformeVacio, SoloLaVistaPreviaTieneMarco) {
  const auto marcos = [this] {
    return std::count_if(Trazos().begin(), Trazos().end(), [](const TrazoGrabado& trazo) {
      return trazo.Trazo.Que == Trazo::Clase::Caja && !trazo.Trazo.Llena;
    });
  };
  ImprimirEn(1);
  EXPECT_EQ(marcos(), 0);
  VerEnPantalla({});
  EXPECT_EQ(marcos(), 1);
  EXPECT_NEAR(Trazos().front().Trazo.X2, 20.97, 1e-9);
  EXPECT_NEAR(Trazos().front().Trazo.Y2, 29.67, 1e-9);
}

TEST_F(InformeVacio, UnaFilaDeGrupoVaEnMedioYBajaCuatroMilimetros) {
  Lista().Rows = 3;
  for (int fila = 1; fila <= 2; ++fila) {
    Lista().TextMatrix(fila, 0, "Marzo " + std::to_string(fila));
    Lista().MoverA(fila, 0);
    Lista().CellFontBold = fila == 2;
  }
  for (int fila = 1; fila <= 2; ++fila) Lista().PintarFila(fila, 0xC0E0FF, 0);
  ImprimirEn(1);
  const auto primero = TrazoDe("Marzo 1");
  const auto segundo = TrazoDe("Marzo 2");
  EXPECT_EQ(primero.Letra.Puntos, 8);
  EXPECT_FALSE(primero.Letra.Negrita);
  EXPECT_TRUE(segundo.Letra.Negrita) << "como su celda";
  const double ancho = (920 + 580 + 440 + 480 + 560 + 320 + 620) / 1000.0 * 8 * 2.54 / 72;
  EXPECT_NEAR(primero.X1, (21 - (ancho + 2)) / 2, 1e-9) << "a la izquierda del medio";
  EXPECT_NEAR(segundo.Y1 - primero.Y1, 0.4, 1e-9);
}

TEST_F(InformeVacio, ElFondoSeHallaConCualquierCajaYBarra) {
  const pruebas::CarpetaTemporal carpeta;
  const std::filesystem::path ruta = carpeta.Camino();
  std::filesystem::create_directories(ruta / "Fotos");
  const apoyo::EnCarpeta en(ruta);
  ImprimirEn(1);
  const auto imagenes = [this] {
    return std::count_if(Trazos().begin(), Trazos().end(), [](const TrazoGrabado& trazo) {
      return trazo.Trazo.Que == Trazo::Clase::Imagen;
    });
  };
  EXPECT_EQ(imagenes(), 0) << "sin él sale igual";
  EXPECT_EQ(Paginas(), 1);
  std::ofstream(ruta / "Fotos" / "FONDO.bmp") << "BM";
  ImprimirEn(1);
  EXPECT_EQ(imagenes(), 1);
}

TEST_F(InformeVacio, ConElPanelAbiertoNoPasaNada) {
  entrada::Pulsar(Principal().BotonNuevo);
  entrada::Pulsar(Principal().Impresion.ImgImpresora);
  EXPECT_EQ(enMarcha.Entorno().Buscar("frmBuscoImpresora"), nullptr);
  EXPECT_TRUE(Trazos().empty());
}

TEST_F(Informe, LaPaginaSeCortaAntesDeUnaFilaYLaCabeceraSeRepite) {
  ImprimirEn(1);
  ASSERT_GT(Paginas(), 3);
  const auto primera = DePagina(1);
  const auto segunda = DePagina(2);
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_EQ(primera[i].Texto, segunda[i].Texto);
    EXPECT_DOUBLE_EQ(primera[i].Y1, segunda[i].Y1);
  }
  for (int pagina = 1; pagina <= Paginas(); ++pagina) {
    const auto trazos = DePagina(pagina);
    EXPECT_EQ(trazos.back().Texto, "Norvalia Software - Qzlm Página " + std::to_string(pagina));
    for (std::size_t i = 0; i + 1 < trazos.size(); ++i) {
      EXPECT_LE(trazos[i].Y1, Imprenta().LimiteInforme);
    }
  }
}

TEST_F(Informe, CadaFilaDeLaListaSaleUnaVezYEnSuOrden) {
  ImprimirEn(1);
  std::vector<std::string> facturas;
  for (const TrazoGrabado& trazo : Trazos()) {
    if (trazo.Trazo.Letra.Puntos == 10 && trazo.Trazo.X1 > 10 && trazo.Trazo.X1 < 13) {
      facturas.push_back(trazo.Trazo.Texto);
    }
  }
  std::vector<std::string> enLaLista;
  for (int fila = 1; fila < Lista().Rows; ++fila) {
    if (!Lista().TextMatrix(fila, 2).empty()) enLaLista.push_back(Lista().TextMatrix(fila, 2));
  }
  EXPECT_EQ(facturas.size(), 240U);
  EXPECT_EQ(facturas, enLaLista);
}

TEST_F(Informe, LaFilaActualQuedaEnLaUltimaYSoloEsaSeVeElegida) {
  entrada::PulsarCelda(Lista(), 5, 1);
  ASSERT_EQ(Elegidas(), std::vector<int>{5});
  ImprimirEn(1);
  EXPECT_EQ(Lista().Row, Lista().Rows - 1);
  EXPECT_EQ(Lista().Col, 1);
  EXPECT_EQ(Elegidas(), std::vector<int>{Lista().Rows - 1});
  EXPECT_EQ(Lista().FondoDe(5, 0), Lista().FondoDe(7, 0));
  EXPECT_FALSE(Principal().Rejilla.GridOcupado);
}

TEST_F(Informe, UnEditorAbiertoSeTomaAntes) {
  entrada::PulsarCelda(Lista(), 1, 4);
  entrada::DoblePulsarCelda(Lista(), 1, 4);
  ASSERT_TRUE(Principal().Edicion.TxtMsf.Visible);
  entrada::CambiarTexto(Principal().Edicion.TxtMsf, "1,23");
  ImprimirEn(1);
  EXPECT_FALSE(Principal().Edicion.TxtMsf.Visible);
  EXPECT_EQ(TrazoDe("1,23").Letra.Puntos, 10);
}

TEST_F(Informe, LoQueNoEsUnImporteLoDetieneSinImprimirNada) {
  std::int32_t numero = 0;
  enMarcha.Entorno().AlFallar = [&](const services::ErrorEjecucion& fallo) {
    numero = fallo.Numero();
  };
  entrada::DoblePulsarCelda(Lista(), 1, 4);
  entrada::CambiarTexto(Principal().Edicion.TxtMsf, "uno");
  ImprimirEn(1);
  EXPECT_EQ(numero, services::error::TiposNoCoinciden);
  EXPECT_TRUE(Trazos().empty());
}

TEST_F(Informe, NingunTextoTapaLoQueHayDebajo) {
  VerEnPantalla({});
  for (const TrazoGrabado& trazo : Trazos()) EXPECT_FALSE(trazo.Trazo.Opaco) << trazo.Trazo.Texto;
}

TEST_F(Informe, DeUnaListaRecienCargadaTambienQuedaElegidaLaUltima) {
  ImprimirEn(1);
  EXPECT_EQ(Elegidas(), std::vector<int>{Lista().Rows - 1});
  EXPECT_TRUE(Principal().Rejilla.FilaElegida);
}

TEST_F(Informe, TrasElegirSeRefrescanLasDosPantallas) {
  const auto principal = services::Crear<apoyo::FormDePrueba<>>();
  enMarcha.Contexto().Principal = services::Ref<services::IUnknown>(principal);
  ASSERT_EQ(enMarcha.Cargar(), "");
  Imprimir([&](auto& busco) {
    EXPECT_EQ(principal->Refrescos, 0);
    entrada::Pulsar(busco.Boton2);
  });
  EXPECT_EQ(principal->Refrescos, 1) << "también cuando se cancela";
}

TEST_F(Informe, SePuedeDejarAMedias) {
  int dichos = 0;
  entrada::PulsarCelda(Lista(), 5, 1);
  enMarcha.Entorno().AlAvanzar = [&](int hechos, int total) {
    EXPECT_EQ(total, Lista().Rows - 1);
    EXPECT_EQ(hechos, ++dichos);
    return hechos < 100;
  };
  ImprimirEn(1);
  EXPECT_EQ(dichos, 100);
  EXPECT_TRUE(Trazos().empty()) << "no se imprime nada";
  EXPECT_FALSE(Principal().Rejilla.GridOcupado);
  EXPECT_EQ(Elegidas(), std::vector<int>{100});
  dichos = 0;
  VerEnPantalla([](auto&) { ADD_FAILURE() << "no se enseña nada"; });
  EXPECT_EQ(enMarcha.Entorno().Buscar("frmListados"), nullptr);
}

TEST_F(Informe, ElTrabajoLlevaTituloYNombreDeFichero) {
  ImprimirEn(1);
  const auto& trabajo = *enMarcha.Entorno().UltimoTrabajo;
  EXPECT_EQ(trabajo.Titulo, "Tesvara de gastos, del 01/03/2005 al 31/03/2005");
  EXPECT_EQ(trabajo.Fichero, "pagos-2005-03");
  entrada::Enfocar(Principal().Rango.TxtFPrevision);
  entrada::CambiarTexto(Principal().Rango.TxtFPrevision, "15/04/2006");
  entrada::Enfocar(Lista());
  ImprimirEn(1);
  EXPECT_EQ(enMarcha.Entorno().UltimoTrabajo->Fichero, "pagos-2005-03-a-2006-04");
}

TEST_F(Informe, UnFalloAMediasNoDejaNadaNiLaRejillaSorda) {
  std::string dicho;
  enMarcha.Entorno().AlFallar = [&](const services::ErrorEjecucion& fallo) {
    dicho = fallo.Descripcion();
  };
  entrada::PulsarCelda(Lista(), 5, 1);
  enMarcha.Entorno().AlAvanzar = [](int hechos, int) -> bool {
    if (hechos == 50)
      throw services::ErrorEjecucion(services::error::ErrorDeImpresora, "Sin papel");
    return true;
  };
  ImprimirEn(1);
  EXPECT_EQ(dicho, "Sin papel");
  EXPECT_TRUE(Trazos().empty());
  EXPECT_FALSE(Principal().Rejilla.GridOcupado);
  EXPECT_EQ(Elegidas(), std::vector<int>{50});
  VerEnPantalla([](auto&) { ADD_FAILURE() << "no se enseña nada"; });
  EXPECT_EQ(enMarcha.Entorno().Buscar("frmListados"), nullptr);
}

TEST_F(Informe, ElAnfitrionPuedeCerrarMientrasSePrepara) {
  enMarcha.Entorno().AlAvanzar = [this](int hechos, int) {
    if (hechos == 10) {
      EXPECT_EQ(enMarcha.Cerrar(), "");
    }
    return true;
  };
  VerEnPantalla([](auto&) { ADD_FAILURE() << "no se enseña nada"; });
  EXPECT_TRUE(enMarcha.Entorno().Pantallas().empty());
}

TEST_F(Informe, UnaVistaQueNoSePuedeAbrirNoSeGuarda) {
  std::string dicho;
  enMarcha.Entorno().AlFallar = [&](const services::ErrorEjecucion& fallo) {
    dicho = fallo.Descripcion();
  };
  enMarcha.Entorno().AlEsperarModal = [](services::Form& form) {
    if (auto* busco = dynamic_cast<print::frmBuscoImpresora*>(&form)) {
      entrada::Pulsar(busco->Boton1);
    } else {
      throw services::ErrorEjecucion(services::error::ObjetoNoEstablecido, "Sin ventana");
    }
  };
  entrada::Pulsar(Principal().Impresion.ImgImpresora);
  EXPECT_EQ(dicho, "Sin ventana");
  EXPECT_EQ(enMarcha.Entorno().Buscar("frmListados"), nullptr);
}

TEST_F(Informe, CerrarConLaVistaAbiertaSeLaLleva) {
  VerEnPantalla([this](auto&) { EXPECT_EQ(enMarcha.Cerrar(), ""); });
  EXPECT_TRUE(enMarcha.Entorno().Pantallas().empty());
}

}  // namespace
