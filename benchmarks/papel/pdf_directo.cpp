#include "papel/pdf_directo.h"

#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>

#include "qt/letra_de_informe.h"
#include "qt/pdf_acabado.h"
#include "qt/textos_qt.h"

namespace medidas {
namespace {

using services::Trazo;

QRectF Rectangulo(const Trazo& trazo) {
  return QRectF(QPointF(trazo.X1, trazo.Y1) * qt::kTwipsPorCentimetro,
                QPointF(trazo.X2, trazo.Y2) * qt::kTwipsPorCentimetro);
}

void Pintar(QPainter& pintor, const PaginaDirecta& pagina) {
  for (const QRectF& banda : pagina.Bandas) pintor.fillRect(banda, Qt::lightGray);
  pintor.setPen(Qt::black);
  for (const QRectF& linea : pagina.Lineas) pintor.drawLine(linea.topLeft(), linea.bottomRight());
  for (const auto& texto : pagina.Textos) {
    if (pintor.font() != texto.Letra) pintor.setFont(texto.Letra);
    pintor.setPen(texto.Color);
    pintor.drawText(texto.Donde, texto.Que);
  }
}

}  // namespace

PaginaDirecta Preparar(const services::LaminaInforme& hoja) {
  PaginaDirecta pagina;
  for (const Trazo& trazo : hoja.Trazos) {
    if (trazo.Que == Trazo::Clase::Caja) pagina.Bandas.push_back(Rectangulo(trazo));
    if (trazo.Que == Trazo::Clase::Linea) pagina.Lineas.push_back(Rectangulo(trazo));
    if (trazo.Que != Trazo::Clase::Texto) continue;
    const double base = trazo.Y1 + qt::MedidasDeInforme().Ascenso(trazo.Letra);
    pagina.Textos.push_back(
        {QPointF(trazo.X1, base) * qt::kTwipsPorCentimetro, qt::FuenteDeInforme(trazo.Letra),
         QColor(trazo.Color & 0xFF, trazo.Color >> 8 & 0xFF, trazo.Color >> 16 & 0xFF),
         qt::Texto(trazo.Texto)});
  }
  return pagina;
}

void EscribirPdf(const std::vector<PaginaDirecta>& paginas, const QString& fichero) {
  QTemporaryFile borrador;
  QFile destino(fichero);
  if (!borrador.open() || !destino.open(QIODevice::WriteOnly)) qFatal("no hay fichero");
  QPdfWriter escritor(&borrador);
  escritor.setResolution(1440);
  escritor.setPageSize(QPageSize(QPageSize::A4));
  escritor.setPageMargins({});
  QPainter pintor(&escritor);
  for (std::size_t i = 0; i < paginas.size(); ++i) {
    if (i > 0) escritor.newPage();
    Pintar(pintor, paginas[i]);
  }
  pintor.end();
  qt::AcabarPdf(borrador, destino);
}

}  // namespace medidas
