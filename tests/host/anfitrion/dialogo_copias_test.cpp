#include "anfitrion/dialogo_copias.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "anfitrion/fechas.h"
#include "host/anfitrion/custodia_de_prueba.h"
#include "mensajes/teclas_de_mensaje.h"

// The window of the copies, and the one of a long text.

namespace {

using anfitrion::PreguntaConTexto;
using pruebas::CustodiaTest;
using salvaguarda::Comienzo;
using testing::ElementsAre;
using testing::HasSubstr;

/// The window of the copies, with one of them made before all due dates were paid.
class VentanaDeCopias : public CustodiaTest {
 protected:
  VentanaDeCopias() {
    Comenzar(Comienzo::Tarea::Carga);
    Comenzar(Comienzo::Tarea::Grabacion);
    datos.Almacenados->Base().AbandonarUnidad();
    datos.Almacenados->Base().Ejecutar("UPDATE ProvVencimientos SET Pagado = Importe + 1");
  }
  /// Once the window is there the user chooses the copy, and says yes.
  void Elegir() {
    QTimer::singleShot(0, &ventana, [] {
      auto* dialogo = QApplication::activeModalWidget();
      QTimer::singleShot(0, dialogo, [] {
        for (auto* boton : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
          if (boton->text() == "Sí") boton->click();
        }
      });
      for (auto* boton : dialogo->findChildren<QPushButton*>()) {
        if (boton->text() == "&Recuperar") boton->click();
      }
    });
  }
};

TEST_F(VentanaDeCopias, DiceQueHariaCadaUna) {
  anfitrion::DialogoCopias dialogo(ventana, custodia.Guardia());
  const auto* tabla = dialogo.findChild<QTableWidget*>();
  ASSERT_EQ(tabla->rowCount(), 1);
  EXPECT_EQ(tabla->item(0, 1)->text(), "ANA");
  EXPECT_EQ(tabla->item(0, 2)->text(), anfitrion::FechaMostrada(todo.Desde));
  EXPECT_EQ(tabla->item(0, 6)->text(), tabla->item(0, 5)->text()) << "todos sus vencimientos";
  EXPECT_THAT(dialogo.findChild<QPlainTextEdit*>()->toPlainText().toStdString(),
              HasSubstr("Vuelven a ser como eran"));
}

TEST_F(VentanaDeCopias, LaElegidaSeRepone) {
  int cierres = 0;
  Elegir();
  custodia.Recuperar([&] { return ++cierres > 0; });
  EXPECT_EQ(cierres, 1);
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("La copia está recuperada")));
  EXPECT_EQ(datos.Almacenados->Base()
                .Consultar("SELECT count(*) FROM ProvVencimientos WHERE Pagado = "
                           "Importe + 1")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

TEST_F(VentanaDeCopias, LoQueSeGrabaAlCerrarSePreguntaOtraVez) {
  Elegir();
  respuesta = 1;
  custodia.Recuperar([&] {
    datos.Almacenados->Base().Ejecutar("UPDATE ProvFacturas SET Total = -7");
    datos.Almacenados->Base().TerminarUnidad();
    return true;
  });
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("Lo grabado ha cambiado desde que eligió la copia")));
  EXPECT_EQ(datos.Almacenados->Base()
                .Consultar("SELECT count(*) FROM ProvFacturas WHERE Total <> -7")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

TEST_F(VentanaDeCopias, SinCerrarLoAbiertoNoSeReponeNada) {
  QTimer::singleShot(0, &ventana,
                     [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
  custodia.Recuperar([] { return false; });
  EXPECT_GT(datos.Almacenados->Base()
                .Consultar("SELECT count(*) FROM ProvVencimientos WHERE Pagado = "
                           "Importe + 1")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

TEST_F(CustodiaTest, SinNingunaCopiaLaVentanaLoDice) {
  anfitrion::DialogoCopias dialogo(ventana, custodia.Guardia());
  EXPECT_EQ(dialogo.findChild<QTableWidget*>()->rowCount(), 0);
  for (const auto* boton : dialogo.findChildren<QPushButton*>()) {
    if (boton->text() != "&Recuperar") continue;
    EXPECT_FALSE(boton->isEnabled());
  }
}

TEST_F(CustodiaTest, UnaCarpetaDeCopiasQueNoLoEsSeDice) {
  std::filesystem::remove_all(carpeta.Fichero("copias"));
  std::ofstream(carpeta.Fichero("copias")) << "una carta";
  custodia.Recuperar([] { return true; });
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("No se puede usar la carpeta de las copias")));
}

TEST(PreguntaDeTexto, EscapeEsDejarlaEnterLaDeSiempreYLaPrimeraLetraLaSuya) {
  QWidget ventana;
  const PreguntaConTexto pregunta{"Algo", {"Sí", "Abrir", "No"}, 0, 2};
  const auto con = [&](Qt::Key tecla) {
    QTimer::singleShot(mensajes::kAntesDeLeer + std::chrono::milliseconds(50), &ventana,
                       [tecla] { QTest::keyClick(QApplication::activeModalWidget(), tecla); });
    return anfitrion::Preguntar(ventana, pregunta);
  };
  EXPECT_EQ(con(Qt::Key_Escape), 2);
  EXPECT_EQ(con(Qt::Key_Return), 0);
  EXPECT_EQ(con(Qt::Key_A), 1);
}

}  // namespace
