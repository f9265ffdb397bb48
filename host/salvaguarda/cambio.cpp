#include "salvaguarda/cambio.h"

#include "salvaguarda/dicho.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

/// As many due dates of an invoice as fit in its line.
constexpr std::size_t kVencimientos = 3;

std::string Dicho(const CambioDeVencimiento& cambio) {
  std::string texto = "vencimiento " + FechaDicha(cambio.Fila.Detalle);
  const std::string importe = Dicho(cambio.Importe);
  if (!importe.empty()) texto += " por " + importe;
  if (!cambio.Estaba) return texto + ": añadido";
  if (!cambio.Esta) return texto + ": borrado";
  const std::string antes = PagadoDicho(cambio.Pagado.Antes);
  const std::string ahora = PagadoDicho(cambio.Pagado.Ahora);
  return antes == ahora ? texto : texto + ": pagado " + ahora + ", antes " + antes;
}

/// Those that explain it, in brackets. A total that is another one explains itself.
std::string Explicacion(const Cambio& cambio) {
  const bool mismo = ImporteDicho(cambio.Importe.Antes) == ImporteDicho(cambio.Importe.Ahora);
  if (!mismo || cambio.Vencimientos.empty()) return "";
  std::string texto;
  for (std::size_t i = 0; i < cambio.Vencimientos.size() && i < kVencimientos; ++i) {
    texto += (i == 0 ? "" : "; ") + Dicho(cambio.Vencimientos[i]);
  }
  if (cambio.Vencimientos.size() > kVencimientos) {
    texto += "; y " + std::to_string(cambio.Vencimientos.size() - kVencimientos) + " más";
  }
  return " (" + texto + ")";
}

std::string Motivo(const Cambio& cambio) {
  const bool apunte = cambio.Fila.Tabla == Apuntes().Nombre;
  const std::string lo = apunte ? "lo" : "la";
  const std::string quien = cambio.Quien.empty() ? "otro usuario" : cambio.Quien;
  if (!cambio.Esta) {
    return std::string("otro usuario la ha borrado, y ") +
           (cambio.EnLaLista ? "se volvería a grabar" : "solo quedarían sus bases de IVA");
  }
  const Consecuencia que = ConsecuenciaDe(cambio);
  if (que == Consecuencia::Topa) return "";
  if (que == Consecuencia::Queda) {
    return "la ha cambiado " + quien + ", y seguiría como está: " +
           (cambio.EnLaLista ? "la de la lista no se grabaría" : "no se borraría");
  }
  if (!cambio.DelRango) {
    return "la ha cambiado " + quien + Explicacion(cambio) +
           ", y lo que ha quitado se volvería a grabar";
  }
  if (!cambio.Estaba) {
    return "la ha añadido " + quien +
           (cambio.EnLaLista ? ", y la de la lista ocuparía su lugar" : ", y se borraría");
  }
  return lo + " ha cambiado " + quien + Explicacion(cambio) +
         (cambio.EnLaLista || apunte ? ", y quedaría como está en la lista" : ", y se borraría");
}

}  // namespace

Consecuencia ConsecuenciaDe(const Cambio& cambio) {
  if (cambio.DelRango) return Consecuencia::Pisa;
  if (!cambio.Estaba) return Consecuencia::Topa;
  if (cambio.SeRepone) return Consecuencia::Pisa;
  return cambio.Esta && cambio.EraDelRango ? Consecuencia::Queda : Consecuencia::Ninguna;
}

std::string Dicho(const AntesYAhora& importe) {
  const bool antes = !importe.Antes.EsNulo();
  const bool ahora = !importe.Ahora.EsNulo();
  if (!antes && !ahora) return "";
  if (!antes) return ImporteDicho(importe.Ahora);
  if (!ahora) return ImporteDicho(importe.Antes);
  const std::string era = ImporteDicho(importe.Antes);
  const std::string es = ImporteDicho(importe.Ahora);
  return era == es ? es : es + ", antes " + era;
}

Fila ComoFila(const Cambio& cambio) {
  Fila fila = cambio.Fila;
  fila.Motivo = Motivo(cambio);
  fila.Importe = Dicho(cambio.Importe);
  return fila;
}

}  // namespace salvaguarda
