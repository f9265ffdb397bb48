#include "list/pago.h"

#include "valores/formato.h"
#include "valores/numero.h"

namespace list {
namespace {

using services::Importe;
using services::Mascara;
using services::Valor;

double Redondeado(const std::string& tecleado) {
  return services::Numero(Mascara(Valor("0" + tecleado)));
}

Pago Anotado(const Recibo& recibo, std::string pagado, bool marca) {
  const double cambio = Importe(recibo.Pagado) - Importe(pagado);
  return {std::move(pagado), marca, cambio};
}

}  // namespace

std::string Enmascarado(const std::string& tecleado) {
  return services::EsNumero(tecleado) ? Mascara(Valor(tecleado)) : Mascara(Redondeado(tecleado));
}

Pago Entrar(const Recibo& recibo, const std::string& tecleado) {
  if (Importe(recibo.Importe) == Redondeado(tecleado)) {
    return Anotado(recibo, recibo.Importe, true);
  }
  return Anotado(recibo, tecleado.empty() ? "0" : Enmascarado(tecleado), false);
}

Pago EntrarAlCerrar(const Recibo& recibo, const std::string& tecleado) {
  Pago pago = Entrar(recibo, tecleado);
  pago.Pagado = Mascara(Redondeado(tecleado));
  return pago;
}

Pago Devolver(const Recibo& recibo, const Recibo& antes) {
  const bool parcial = !antes.Pagado.empty() && antes.Pagado != antes.Importe;
  return Anotado(recibo, parcial ? antes.Pagado : "0,00", false);
}

bool Supera(const Recibo& recibo, const std::string& tecleado) {
  return Importe(tecleado) > Importe(recibo.Importe);
}

}  // namespace list
