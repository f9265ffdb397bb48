#include "guion/salida_de_sesion.h"

namespace guion {

SalidaDeSesion::int_type SalidaDeSesion::overflow(int_type caracter) {
  if (traits_type::eq_int_type(caracter, traits_type::eof())) return traits_type::not_eof(caracter);
  if (al_principio_) destino_ << prefijo_;
  const char uno = traits_type::to_char_type(caracter);
  al_principio_ = uno == '\n';
  return destino_.put(uno) ? caracter : traits_type::eof();
}

int SalidaDeSesion::sync() {
  return destino_.flush() ? 0 : -1;
}

}  // namespace guion
