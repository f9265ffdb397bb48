#include "print/impresion.h"

#include <algorithm>
#include <cmath>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "print/informe.h"

namespace print {

using services::DestinoInforme;

namespace {

/// From the centimetres of a sheet to the twips of a screen.
int Twips(double centimetros) {
  return static_cast<int>(std::lround(centimetros * 1440 / 2.54));
}

/// Year and month of a stored date, as file names have them: 2026-11.
std::string MesDeFichero(const std::string& almacenada) {
  constexpr std::size_t kAnio = 4;
  return almacenada.substr(0, kAnio) + "-" + almacenada.substr(kAnio, 2);
}

}  // namespace

Impresion::Impresion(services::PictureBox& panel, const services::Diseno& diseno,
                     services::Sesion& sesion, list::RejillaPagos& rejilla,
                     list::EdicionPagado& edicion, const list::RangoFechas& rango,
                     const services::Widget& PicNuevo)
    : ImgImpresora(panel, "ImgImpresora", "impresora", diseno),
      sesion_(sesion),
      rejilla_(rejilla),
      edicion_(edicion),
      rango_(rango),
      PicNuevo_(PicNuevo) {
  ImgImpresora.Click = [this] { ImgImpresora_Click(); };
}

void Impresion::Descargar() {
  if (auto* abierta = buscoImpresora_.Si()) abierta->Unload();
  if (auto* abierta = listados_.Si()) abierta->Unload();
}

void Impresion::ImgImpresora_Click() {
  if (PicNuevo_.Visible) return;
  services::Form& pantalla = ImgImpresora.Formulario();
  buscoImpresora_.Pedir(pantalla.Escritorio(), sesion_).ShowModal();
  if (const auto& principal = sesion_.FrmPrincipal()) principal->Refresh();
  pantalla.Refresh();
  edicion_.CerrarEdicionPago();
  const std::string elegida = sesion_.Imprenta().Impresora;
  if (elegida == kNingunDestino) return;
  elegida == kPantalla ? ImprimirEnPantalla() : ImprimirEnPapel(elegida);
}

/// A preview that fails, or that is left, is not kept: the next one starts from one empty page.
void Impresion::ImprimirEnPantalla() {
  services::Escritorio& escritorio = ImgImpresora.Formulario().Escritorio();
  frmListados& listados = listados_.Pedir(escritorio, sesion_);
  listados.Load();
  PicHoja& primera = listados.PicList(0);
  DestinoInforme* destino = &primera.Hoja();
  Informe informe(sesion_, rejilla_, rango_, &listados);
  bool entero = false;
  try {
    const services::Escritorio::Ocupacion ocupacion(escritorio);
    informe.Preparar(*destino);
    primera.Width = Twips(DestinoInforme::kAncho);
    primera.Height = Twips(DestinoInforme::kAlto);
    primera.Left = (sesion_.AnchoPantalla() - primera.Width) / 2;
    primera.Top = 10;
    sesion_.Imprenta().PaginaInforme = 0;
    entero = informe.ImprimirInforme(destino);
  } catch (...) {
    listados.Unload();
    throw;
  }
  entero ? listados.ShowP() : listados.Unload();
}

/// Nothing is left half printed where that can be had.
void Impresion::ImprimirEnPapel(const std::string& elegida) {
  const auto impresora = sesion_.Imprenta().AbrirImpresora(Trabajo(elegida));
  if (!impresora) return;
  DestinoInforme* destino = impresora.get();
  Informe informe(sesion_, rejilla_, rango_, nullptr);
  services::Escritorio& escritorio = ImgImpresora.Formulario().Escritorio();
  bool entero = false;
  try {
    const services::Escritorio::Ocupacion ocupacion(escritorio);
    informe.Preparar(*destino);
    destino->PaperSize = DestinoInforme::kA4;
    sesion_.Imprenta().PaginaInforme = 0;
    entero = informe.ImprimirInforme(destino);
  } catch (...) {
    impresora->KillDoc();
    throw;
  }
  escritorio.Esperar([&] { entero ? impresora->EndDoc() : impresora->KillDoc(); });
}

/// A printer that is no longer installed is no error: the report goes to whichever is current.
services::TrabajoDeImpresion Impresion::Trabajo(const std::string& elegida) const {
  services::Imprenta& imprenta = sesion_.Imprenta();
  const std::vector<std::string> printers = imprenta.Printers();
  const bool esta = std::find(printers.begin(), printers.end(), elegida) != printers.end();
  if (esta) imprenta.Printer = elegida;
  return {.Impresora = imprenta.Printer,
          .Ausente = esta ? "" : elegida,
          .Titulo = "Tesvara de gastos, del " + rango_.TxtFPrevisionD.Text + " al " +
                    rango_.TxtFPrevision.Text,
          .Fichero = NombreDeFichero()};
}

/// By the months of the range: pagos-2026-11, or pagos-2026-11-a-2027-01.
std::string Impresion::NombreDeFichero() const {
  const store::Intervalo rango = rango_.Intervalo();
  if (rango.Desde.empty() || rango.Hasta.empty()) return "pagos";
  const std::string desde = MesDeFichero(rango.Desde);
  const std::string hasta = MesDeFichero(rango.Hasta);
  return "pagos-" + desde + (desde == hasta ? "" : "-a-" + hasta);
}

}  // namespace print
