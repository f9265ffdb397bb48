#include "print/informe.h"

#include <filesystem>
#include <system_error>

#include "list/color_lista.h"
#include "list/guarda.h"
#include "print/frm_listados.h"
#include "valores/fichero.h"
#include "valores/formato.h"

namespace print {

using services::DestinoInforme;
namespace columna = list::columna;

namespace {

constexpr const char* kLetra = "Bookman Old Style";
constexpr const char* kFondo = "fotos\\fondo.bmp";

constexpr int kAzul = 0xFF0000;
constexpr int kGranate = 128;
constexpr int kNegro = 0;
/// Back colour of a group row. Nothing paints it today, so the list gives no such rows.
constexpr int kFondoDeGrupo = 0xC0E0FF;

/// Where text begins that is meant to stand in the middle: a little left of it.
double CentradoConAire(const DestinoInforme& destino, const std::string& texto) {
  return (destino.ScaleWidth() - (destino.TextWidth(texto) + 2)) / 2;
}

bool HayFondo() {
  std::error_code fallo;
  const std::filesystem::path carpeta = std::filesystem::current_path(fallo);
  return !fallo && services::BuscarFichero(kFondo, carpeta);
}

/// The rows are made current one by one with the list's events off; however that ends, the list
/// then shows the last one as if the user had gone there.
class Recorrido {
 public:
  explicit Recorrido(list::RejillaPagos& rejilla)
      : rejilla_(rejilla), antes_(rejilla.MSFPagos.Row), ocupado_(rejilla.GridOcupado) {}
  ~Recorrido() {
    if (!enMarcha_ || antes_ >= rejilla_.MSFPagos.Rows) return;
    rejilla_.PintarFranja(antes_);
    rejilla_.PintarElegida(rejilla_.MSFPagos.Row);
    rejilla_.FilaElegida = true;
  }
  void Llegar(int fila) {
    rejilla_.MSFPagos.Row = fila;
    enMarcha_ = true;
  }
  Recorrido(const Recorrido&) = delete;
  Recorrido& operator=(const Recorrido&) = delete;

 private:
  list::RejillaPagos& rejilla_;
  const int antes_;
  const list::Mientras ocupado_;
  bool enMarcha_ = false;
};

}  // namespace

void Informe::Preparar(DestinoInforme& destino) {
  destino.ScaleMode = DestinoInforme::kCentimetros;
  PonerTransparente(destino);
  destino.FillStyle = 1;
}

void Informe::PonerTransparente(DestinoInforme& destino) {
  destino.FontTransparent = true;
  sesion_.Imprenta().ModoDeFondo = destino.SetBkMode(DestinoInforme::kTransparente);
}

bool Informe::ImprimirInforme(DestinoInforme*& destino) {
  EmpezarPagina(*destino);
  if (!ImprimirFilas(destino)) return false;
  destino->FontBold = false;
  ImprimirPie(*destino);
  return true;
}

bool Informe::ImprimirFilas(DestinoInforme*& destino) {
  services::MSFlexGrid& MSFPagos = rejilla_.MSFPagos;
  const auto avance = sesion_.Imprenta().CrearAvance("Preparando el informe");
  const int ultima = MSFPagos.Rows - 1;
  Recorrido recorrido(rejilla_);
  for (int fila = 1; fila <= ultima; ++fila) {
    recorrido.Llegar(fila);
    destino->FontBold = MSFPagos.CellFontBold;
    if (destino->CurrentY + destino->TextHeight("X") >= sesion_.Imprenta().LimiteInforme) {
      PasarPagina(destino);
    }
    ImprimirFila(*destino, fila);
    if (avance && !avance->SeguirSiToca(fila, ultima)) return false;
    if (!MSFPagos.Formulario().Cargado()) return false;
  }
  return true;
}

void Informe::EmpezarPagina(DestinoInforme& destino) {
  ImprimirCabecera(destino);
  destino.Print("", true);
  ImprimirTitulos(destino);
  destino.CurrentY += 0.2;
}

void Informe::PasarPagina(DestinoInforme*& destino) {
  ImprimirPie(*destino);
  if (listados_) {
    destino = &listados_->NuevaHoja();
    destino->Cls();
  } else {
    destino->NewPage();
  }
  EmpezarPagina(*destino);
}

void Informe::ImprimirFila(DestinoInforme& destino, int fila) {
  if (rejilla_.MSFPagos.CellBackColor == kFondoDeGrupo) {
    ImprimirGrupo(destino, fila);
  } else {
    ImprimirDetalle(destino, fila);
  }
}

void Informe::ImprimirGrupo(DestinoInforme& destino, int fila) {
  const std::string& texto = rejilla_.MSFPagos.TextMatrix(fila, 0);
  destino.FontSize = 8;
  destino.CurrentX = CentradoConAire(destino, texto);
  destino.Print(texto, false);
  destino.CurrentY += 0.4;
}

void Informe::ImprimirDetalle(DestinoInforme& destino, int fila) {
  const auto celda = [&](int c) -> const std::string& {
    return rejilla_.MSFPagos.TextMatrix(fila, c);
  };
  destino.ForeColor = rejilla_.EsPagable(fila) ? kNegro : list::color::TextoPrevision;
  destino.FontSize = 10;
  destino.FontBold = false;
  Alinear(destino, 1.2, celda(0), "I", false);
  Alinear(destino, 3.8, celda(1), "I", false);
  Alinear(destino, 13.1, celda(columna::NFactura), "D", false);
  Alinear(destino, 16.4, celda(columna::Importe), "D", false);
  Alinear(destino, destino.ScaleWidth() - 1, celda(columna::Pagado), "D", true);
}

void Informe::ImprimirCabecera(DestinoInforme& destino) {
  const double derecha = destino.ScaleWidth() - 1;
  const std::string titulo = "TESVARA DE GASTOS";
  PonerTransparente(destino);
  destino.FillStyle = 1;
  if (listados_) {
    destino.Caja(0, 0, destino.ScaleWidth() - 0.03, destino.ScaleHeight() - 0.03, kNegro, false);
  }
  PintarFondo(destino);

  destino.CurrentY = 1;
  destino.FontName = kLetra;
  destino.FontSize = 14;
  destino.FontBold = true;
  destino.CurrentX = CentradoConAire(destino, titulo);
  destino.Print(titulo, true);
  destino.Linea(1, destino.CurrentY, derecha, destino.CurrentY, destino.ForeColor);

  destino.FontBold = false;
  destino.FontSize = 12;
  destino.CurrentY += 0.1;
  destino.ForeColor = kAzul;
  Alinear(destino, derecha, services::FechaLarga(sesion_.Ahora()), "D", true);
  destino.ForeColor = kNegro;

  destino.Print("", true);
  destino.CurrentX = 1;
  destino.Print("Previsión Desde:  " + rango_.TxtFPrevisionD.Text +
                    "   Hasta:   " + rango_.TxtFPrevision.Text,
                true);

  destino.Print("", true);
  destino.CurrentX = 1;
  destino.ForeColor = kAzul;
  destino.Print(rejilla_.Label14.Caption + " " + rejilla_.TxtTotal.Text + "  ", false);
  destino.ForeColor = kGranate;
  Alinear(destino, derecha, rejilla_.LblPendiente.Caption, "D", true);
  destino.ForeColor = kNegro;
  sesion_.Imprenta().LimiteInforme = destino.ScaleHeight() - destino.TextHeight("X");
}

/// A report comes out without its background where there is none, without a word.
void Informe::PintarFondo(DestinoInforme& destino) {
  if (!hayFondo_) hayFondo_ = HayFondo();
  if (*hayFondo_) destino.PaintPicture(kFondo, 0, 0);
}

/// The band is drawn first, and the point goes back to where its text begins. The titles are placed
/// for the eye: they don't line up with the columns below.
void Informe::ImprimirTitulos(DestinoInforme& destino) {
  const double derecha = destino.ScaleWidth() - 1;
  const auto titulo = [&](int c) -> const std::string& {
    return rejilla_.MSFPagos.TextMatrix(0, c);
  };
  PonerTransparente(destino);
  destino.FontSize = 9;
  destino.FontBold = true;
  destino.Caja(1, destino.CurrentY - 0.1, derecha, destino.CurrentY + destino.TextHeight("H") + 0.1,
               rejilla_.MSFPagos.BackColorFixed, true);
  destino.CurrentY -= destino.TextHeight("H") + 0.1;
  Alinear(destino, 1.5, titulo(0), "I", false);
  Alinear(destino, 7, titulo(1), "I", false);
  Alinear(destino, 11.5, titulo(columna::NFactura), "I", false);
  Alinear(destino, 15, titulo(columna::Importe), "I", false);
  Alinear(destino, derecha, titulo(columna::Pagado), "D", true);
  destino.FontBold = false;
}

void Informe::ImprimirPie(DestinoInforme& destino) {
  services::Imprenta& imprenta = sesion_.Imprenta();
  ++imprenta.PaginaInforme;
  PonerTransparente(destino);
  destino.FontSize = 9;
  destino.ForeColor = kNegro;
  destino.FontBold = false;
  const std::string texto = "Norvalia Software - Qzlm " + sesion_.TextoDe("Pagina") + " " +
                            std::to_string(imprenta.PaginaInforme);
  destino.CurrentX = (destino.ScaleWidth() - destino.TextWidth(texto)) / 2;
  destino.CurrentY = imprenta.LimiteInforme;
  destino.Print(texto, true);
}

void Informe::Alinear(DestinoInforme& destino, double x, const std::string& texto,
                      const char* alineacion, bool terminaLinea) {
  sesion_.Utiles().ImprimirAlineado(destino, x, texto, alineacion, terminaLinea);
}

}  // namespace print
