#include <gmock/gmock.h>

#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <memory>
#include <sstream>

#include "jornada/partida.h"
#include "platform/qt/dia_en_pantalla.h"

// The same keys and clicks on the real screen and in the runner, compared after each.

namespace {

using pruebas::DiaEnPantalla;

/// All that keys can change: the cells, the current one, the editor, the focus and the order.
std::string Estado(shell::FrmTesvaraGastos& form) {
  const services::MSFlexGrid& lista = form.Rejilla.MSFPagos;
  std::ostringstream estado;
  for (int f = 0; f < lista.Rows; ++f) {
    for (int c = 0; c < lista.Cols(); ++c) {
      estado << lista.TextMatrix(f, c) << lista.ImagenDe(f, c) << '/' << lista.FondoDe(f, c) << '|';
    }
    estado << '\n';
  }
  const services::Widget* foco = form.Escritorio().Foco();
  estado << "celda " << lista.Row << ' ' << lista.Col << " editor " << form.Edicion.TxtMsf.Visible
         << " '" << form.Edicion.TxtMsf.Text() << "' orden " << form.Lista.OptFecha.Value << ' '
         << form.Rejilla.LblPendiente.Caption() << " foco "
         << (foco ? foco->Nombre() : std::string("ninguno"));
  return estado.str();
}

/// Every message is accepted, as the runner does.
class AvisoAceptado final : public services::Aviso {
 public:
  int Mostrar(const std::string&, int, const std::string&) override {
    return services::mensaje::Aceptar;
  }
};

class Teclas : public DiaEnPantalla {
 protected:
  Teclas() {
    plataforma.CrearAviso = [] { return std::make_unique<AvisoAceptado>(); };
    static_cast<void>(runner.Jugar(jornada::kEmpresa + "cargar\n"));
    static_cast<void>(jornada::Partida(opciones).Jugar(jornada::kEmpresa));
    Abrir();
    SeguirSinGrabar();
    Paso("foco MSFPagos");
  }
  ~Teclas() override {
    clase = nullptr;
    QCoreApplication::processEvents();
  }

  /// What the window asks before payments would be lost, and nobody asks the runner.
  void SeguirSinGrabar() {
    QObject::connect(&preguntas, &QTimer::timeout, ventana, [] {
      if (QWidget* pregunta = QApplication::activeModalWidget()) {
        QTest::keyClick(pregunta, Qt::Key_N);
      }
    });
    preguntas.start(10);
  }

  /// One line of a scenario, played on both sides.
  void Paso(const std::string& linea) {
    SCOPED_TRACE(linea);
    EXPECT_EQ(runner.Jugar(linea + "\n").Errores, "");
    EnPantalla(linea);
    EXPECT_EQ(Estado(dynamic_cast<shell::FrmTesvaraGastos&>(pantallas->Principal())),
              Estado(runner.Pantalla()));
  }

  void EnPantalla(const std::string& linea) {
    std::istringstream palabras(linea);
    std::string orden;
    std::string que;
    palabras >> orden >> que;
    if (orden == "foco") {
      Vista<QWidget>(que.c_str()).setFocus();
    } else if (orden == "tecla") {
      QTest::keyClick(ventana->window()->focusWidget(), kTeclas.at(que));
    } else if (orden == "anadir") {
      if (auto* caja = qobject_cast<QLineEdit*>(ventana->window()->focusWidget())) caja->end(false);
      for (const char letra : que) QTest::keyClick(ventana->window()->focusWidget(), letra);
    } else {
      int fila = 0;
      int columna = 0;
      palabras >> fila >> columna;
      orden == "doble" ? DobleCelda(fila, columna) : Celda(fila, columna);
      QTest::qWait(QApplication::doubleClickInterval() + 50);
    }
  }

  inline static const std::map<std::string, Qt::Key> kTeclas = {
      {"Intro", Qt::Key_Return},     {"Escape", Qt::Key_Escape}, {"Tab", Qt::Key_Tab},
      {"Borrar", Qt::Key_Backspace}, {"Arriba", Qt::Key_Up},     {"Abajo", Qt::Key_Down},
      {"Izquierda", Qt::Key_Left},   {"Derecha", Qt::Key_Right}, {"Espacio", Qt::Key_Space}};

  jornada::Partida runner;
  QTimer preguntas;
};

TEST_F(Teclas, EspacioIntroYTeclearHacenLoMismoEnLaVentanaYEnElGuion) {
  for (const char* linea :
       {"tecla Abajo",   "tecla Abajo",   "tecla Abajo",     "tecla Derecha", "tecla Derecha",
        "tecla Derecha", "tecla Derecha", "tecla Derecha",   "tecla Espacio", "tecla Espacio",
        "tecla Intro",   "anadir 7",      "tecla Izquierda", "anadir 7",      "anadir ,5",
        "tecla Borrar",  "tecla Escape",  "tecla Intro",     "tecla Borrar",  "anadir 20",
        "tecla Tab",     "tecla Abajo",   "anadir 3",        "tecla Abajo",   "anadir 1.2.3",
        "tecla Abajo",   "tecla Borrar",  "anadir 999",      "tecla Tab",     "tecla Escape",
        "tecla Tab"}) {
    Paso(linea);
  }
}

TEST_F(Teclas, ElDobleClicEnUnRellenoHaceLoMismoEnLaVentanaYEnElGuion) {
  for (const char* linea : {"celda MSFPagos 2 4", "doble MSFPagos 15 4", "anadir 7", "tecla Escape",
                            "tecla Arriba", "doble MSFPagos 2 4", "tecla Escape"}) {
    Paso(linea);
  }
}

TEST_F(Teclas, LasFlechasEntreLasOpcionesHacenLoMismoEnLaVentanaYEnElGuion) {
  for (const char* linea : {"foco OptFecha", "tecla Abajo", "tecla Arriba", "tecla Derecha",
                            "foco MSFPagos", "tecla Abajo"}) {
    Paso(linea);
  }
}

}  // namespace
