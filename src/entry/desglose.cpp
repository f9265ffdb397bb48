#include "entry/desglose.h"

#include "valores/formato.h"
#include "valores/numero.h"

namespace entry {

using services::EnCentimos;
using services::Mascara;

namespace {

constexpr double kCentimo = 0.01;

/// A limit is read as the fields are: below 0 it throws 13.
double Positivo(double importe) {
  return services::Importe(services::TextoDeNumero(importe));
}

}  // namespace

BaseEIva SepararTotal(double total, const TipoIva& tipo) {
  const std::string base = Mascara(total / tipo.Divisor);
  return {base, Mascara(total - services::Numero(base))};
}

BaseEIva SepararResto(double resto, const TipoIva& tipo) {
  const std::string base = Mascara(resto / tipo.Divisor);
  return {base, IvaDe(services::Numero(base), tipo)};
}

std::string IvaDe(double base, const TipoIva& tipo) {
  return Mascara(base * tipo.Tanto / 100);
}

std::string IrpfDe(double base, double tanto) {
  return Mascara(base * tanto / 100);
}

double LimiteDeBase(double total, double irpf, const TipoIva& tipo) {
  return services::Importe(Mascara((total + irpf) / tipo.Divisor));
}

double LimiteDeIrpf(double total, double tanto) {
  return Positivo(EnCentimos(total) + Positivo(EnCentimos(total * tanto) / 100));
}

bool SePuedeSumar(double importe) {
  constexpr double kDoceCifras = 1e12;
  return importe >= 0 && importe < kDoceCifras;
}

bool Cuadra(double suma, double total) {
  return EnCentimos(suma) == total || EnCentimos(suma + kCentimo) == total ||
         EnCentimos(suma - kCentimo) == total;
}

}  // namespace entry
