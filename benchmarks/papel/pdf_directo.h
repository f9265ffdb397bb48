#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

#include "services/destino_informe.h"

namespace medidas {

/// What is on the pages of a report, ready to be painted with nothing left to work out.
struct PaginaDirecta {
  struct Texto {
    QPointF Donde;
    QFont Letra;
    QColor Color;
    QString Que;
  };
  std::vector<QRectF> Bandas;
  std::vector<QRectF> Lineas;
  std::vector<Texto> Textos;
};
[[nodiscard]] PaginaDirecta Preparar(const services::LaminaInforme& hoja);

/// A bare loop of the toolkit's painter over them, finished as every other file.
void EscribirPdf(const std::vector<PaginaDirecta>& paginas, const QString& fichero);

}  // namespace medidas
