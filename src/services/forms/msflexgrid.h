#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/widget.h"

namespace services {

/// A grid of text cells with its first row as a fixed header. Rows and columns count from 0, row 0
/// being the header; data starts at row 1. Measures are in twips.
///
/// There is one current cell, to which the `Cell...` properties and `Text` refer. Making another
/// cell current fires `LeaveCell` with the old one still current, moves, and fires `RowColChange`.
/// A handler that itself moves the current cell does so at once; the outer move then goes on to its
/// own target. A row or column that the grid hasn't is error 381 and nothing moves.
class MSFlexGrid : public Widget {
 public:
  MSFlexGrid(Sitio sitio, std::string nombre, int columnas, const Diseno& diseno = {});

  Evento RowColChange;
  Evento LeaveCell;

 private:
  [[nodiscard]] int LeerRows() const { return filas_; }
  void PonerRows(int filas);
  [[nodiscard]] int LeerRow() const { return fila_; }
  void PonerRow(int fila) { MoverA(fila, columna_); }
  [[nodiscard]] int LeerCol() const { return columna_; }
  void PonerCol(int columna) { MoverA(fila_, columna); }
  [[nodiscard]] std::string LeerText() const { return TextMatrix(fila_, columna_); }
  void PonerText(std::string texto) { TextMatrix(fila_, columna_, std::move(texto)); }
  [[nodiscard]] int LeerCellBackColor() const { return FondoDe(fila_, columna_); }
  void PonerCellBackColor(int valor);
  [[nodiscard]] int LeerCellForeColor() const { return ColorDe(fila_, columna_); }
  void PonerCellForeColor(int valor);
  [[nodiscard]] std::string LeerCellPicture() const { return ImagenDe(fila_, columna_); }
  void PonerCellPicture(std::string imagen) { PonerImagen(fila_, columna_, imagen); }
  [[nodiscard]] int LeerCellAlignment() const { return AlineacionDe(fila_, columna_); }
  void PonerCellAlignment(int valor);
  [[nodiscard]] double LeerCellFontSize() const { return CuerpoDe(fila_, columna_); }
  void PonerCellFontSize(double puntos);
  [[nodiscard]] bool LeerCellFontBold() const { return NegritaDe(fila_, columna_); }
  void PonerCellFontBold(bool negrita);

  template <class T, T (MSFlexGrid::*leer)() const, void (MSFlexGrid::*poner)(T)>
  using De = PropiedadCalculada<MSFlexGrid, T, leer, poner>;

 public:
  /// How many rows, the header counted; at least 1. Fewer rows drop the last ones, and a current
  /// cell below them moves inside silently; more rows come empty. Once there are rows below it, the
  /// header is not current.
  De<int, &MSFlexGrid::LeerRows, &MSFlexGrid::PonerRows> Rows{*this};
  De<int, &MSFlexGrid::LeerRow, &MSFlexGrid::PonerRow> Row{*this};
  De<int, &MSFlexGrid::LeerCol, &MSFlexGrid::PonerCol> Col{*this};
  De<std::string, &MSFlexGrid::LeerText, &MSFlexGrid::PonerText> Text{*this};
  /// Of a cell that was given none: the grid's own, or the header's.
  De<int, &MSFlexGrid::LeerCellBackColor, &MSFlexGrid::PonerCellBackColor> CellBackColor{*this};
  De<int, &MSFlexGrid::LeerCellForeColor, &MSFlexGrid::PonerCellForeColor> CellForeColor{*this};
  /// Name of the drawing in the cell, beside its text; empty for none.
  De<std::string, &MSFlexGrid::LeerCellPicture, &MSFlexGrid::PonerCellPicture> CellPicture{*this};
  /// One of `alineacion`.
  De<int, &MSFlexGrid::LeerCellAlignment, &MSFlexGrid::PonerCellAlignment> CellAlignment{*this};
  De<double, &MSFlexGrid::LeerCellFontSize, &MSFlexGrid::PonerCellFontSize> CellFontSize{*this};
  De<bool, &MSFlexGrid::LeerCellFontBold, &MSFlexGrid::PonerCellFontBold> CellFontBold{*this};

  /// Alignments: left, centre or right, each at top, centre or bottom; by content puts texts left
  /// and numbers right.
  struct alineacion {
    static constexpr int IzquierdaArriba = 0;
    static constexpr int IzquierdaCentro = 1;
    static constexpr int IzquierdaAbajo = 2;
    static constexpr int CentroCentro = 4;
    static constexpr int DerechaCentro = 7;
    static constexpr int General = 9;
  };

  /// Makes a cell current in one move.
  void MoverA(int fila, int columna);

  [[nodiscard]] int Cols() const { return columnas_; }
  [[nodiscard]] const std::string& TextMatrix(int fila, int columna) const;
  void TextMatrix(int fila, int columna, std::string texto);

  /// Back and text colour of all cells of a row. The current cell stays where it is.
  void PintarFila(int fila, int fondo, int texto);
  /// The drawing of any cell; `CellPicture` is that of the current one.
  void PonerImagen(int fila, int columna, const std::string& imagen);

  /// Appends a row of those texts, whatever signs they hold, in these colours or, told none, the
  /// grid's; texts past the last column are dropped, cells without one stay empty.
  void AnadirFila(std::vector<std::string> celdas, int fondo = kSinColor, int texto = kSinColor);
  /// Takes a row out; those below move up with all they have. The header can't be taken out.
  void RemoveItem(int fila);

  [[nodiscard]] int ColWidth(int columna) const;
  void ColWidth(int columna, int ancho);
  /// Of the data cells of a column, where a cell hasn't its own.
  [[nodiscard]] int ColAlignment(int columna) const;
  void ColAlignment(int columna, int valor);
  /// Of the column's header cell.
  [[nodiscard]] int FixedAlignment(int columna) const;
  void FixedAlignment(int columna, int valor);

  Propiedad<int> RowHeightMin{*this, Aspecto::Geometria, 240};
  Propiedad<int> BackColorFixed{*this, Aspecto::BackColor, color::Panel};
  /// The first data row on sight; the view keeps it.
  Propiedad<int> TopRow{*this, Aspecto::Seleccion, 1};

  /// Place and size of the current cell inside the grid.
  [[nodiscard]] int CellLeft() const;
  [[nodiscard]] int CellTop() const;
  [[nodiscard]] int CellWidth() const { return ColWidth(columna_); }
  [[nodiscard]] int CellHeight() const { return RowHeightMin; }

  [[nodiscard]] int FondoDe(int fila, int columna) const;
  [[nodiscard]] int ColorDe(int fila, int columna) const;
  [[nodiscard]] const std::string& ImagenDe(int fila, int columna) const;
  [[nodiscard]] int AlineacionDe(int fila, int columna) const;
  [[nodiscard]] double CuerpoDe(int fila, int columna) const;
  [[nodiscard]] bool NegritaDe(int fila, int columna) const;

  [[nodiscard]] bool AdmiteFoco() const override { return true; }

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }

 private:
  static constexpr int kSinColor = -1;
  static constexpr std::int8_t kSinAlineacion = -1;

  struct Celda {
    std::string texto;
    int fondo = kSinColor;
    int color = kSinColor;
    float cuerpo = 0;  // 0: the grid's
    std::int8_t alineacion = kSinAlineacion;
    std::int8_t negrita = -1;  // -1: the grid's
    std::uint8_t imagen = 0;   // place in imagenes_, whose first is no drawing
  };
  struct Columna {
    int ancho = 960;
    int alineacion = alineacion::General;
    int fija = alineacion::IzquierdaCentro;
  };

  [[nodiscard]] const Celda& En(int fila, int columna) const;
  [[nodiscard]] Celda& En(int fila, int columna);
  [[nodiscard]] Celda& Actual() { return En(fila_, columna_); }
  [[nodiscard]] const Columna& DeColumna(int columna) const;
  [[nodiscard]] Columna& DeColumna(int columna);
  void AvisarCelda(int fila, int columna);
  void AvisarFilas();
  void SalirDeLaCabecera();

  int filas_ = 1;
  int columnas_;
  int fila_ = 0;
  int columna_ = 0;
  std::vector<Celda> celdas_;  // row by row
  std::vector<Columna> de_columna_;
  std::vector<std::string> imagenes_{""};
};

}  // namespace services
