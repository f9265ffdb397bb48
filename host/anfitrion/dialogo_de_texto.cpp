#include "anfitrion/dialogo_de_texto.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "mensajes/teclas_de_mensaje.h"

namespace anfitrion {
namespace {

/// A question may come while the component shows that it is busy.
class CursorDeSiempre {
 public:
  CursorDeSiempre() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~CursorDeSiempre() { QApplication::restoreOverrideCursor(); }
  CursorDeSiempre(const CursorDeSiempre&) = delete;
  CursorDeSiempre& operator=(const CursorDeSiempre&) = delete;
};

/// As wide as a message, as high as its lines, and never higher than two thirds of the screen.
QPlainTextEdit* Texto(const QString& texto, const QScreen& pantalla) {
  auto* caja = new QPlainTextEdit(texto);
  caja->setReadOnly(true);
  caja->setTabChangesFocus(true);
  caja->setAccessibleName("Mensaje");
  caja->setFrameShape(QFrame::NoFrame);
  caja->viewport()->setAutoFillBackground(false);
  const QFontMetrics letra = caja->fontMetrics();
  const int ancho =
      std::min(letra.averageCharWidth() * 84, pantalla.availableSize().width() * 4 / 5);
  const QRect ocupa =
      letra.boundingRect(0, 0, ancho - letra.averageCharWidth() * 4, 0, Qt::TextWordWrap, texto);
  const int alto = ocupa.height() + letra.lineSpacing() * 2;
  const int cabe = pantalla.availableSize().height() * 2 / 3;
  caja->setMinimumSize(ancho, std::min(alto, cabe));
  if (alto <= cabe) caja->setMaximumHeight(alto);
  return caja;
}

}  // namespace

int Preguntar(QWidget& ventana, const PreguntaConTexto& pregunta) {
  const CursorDeSiempre cursor;
  QDialog dialogo(QApplication::activeModalWidget() ? QApplication::activeModalWidget() : &ventana);
  dialogo.setWindowTitle("Sorvex");
  dialogo.setAccessibleDescription(pregunta.Texto);
  auto* botones = new QDialogButtonBox;
  QList<QPushButton*> puestos;
  int respuesta = pregunta.AlDejarla;
  for (int i = 0; i < pregunta.Respuestas.size(); ++i) {
    QPushButton* boton = botones->addButton(
        pregunta.Respuestas[i],
        i == pregunta.AlDejarla ? QDialogButtonBox::RejectRole : QDialogButtonBox::AcceptRole);
    boton->setAutoDefault(true);
    puestos << boton;
    QObject::connect(boton, &QPushButton::clicked, &dialogo, [&, i] {
      respuesta = i;
      dialogo.accept();
    });
  }
  auto* columna = new QVBoxLayout(&dialogo);
  columna->addWidget(Texto(pregunta.Texto, *ventana.screen()));
  columna->addWidget(botones);
  mensajes::DarTeclas(dialogo, puestos);
  puestos[pregunta.PorDefecto]->setDefault(true);
  puestos[pregunta.PorDefecto]->setFocus();
  dialogo.exec();
  return respuesta;
}

}  // namespace anfitrion
