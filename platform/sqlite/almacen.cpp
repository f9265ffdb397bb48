#include "sqlite/almacen.h"

namespace sqlite {

void Prestada::Devolver() noexcept {
  if (!sentencia_) return;
  sqlite3_reset(sentencia_.get());
  entrada_->Libres.push_back(std::move(sentencia_));
}

std::shared_ptr<Entrada> Almacen::Buscar(std::string_view texto) const {
  const auto hallada = entradas_.find(texto);
  return hallada == entradas_.end() ? nullptr : hallada->second;
}

// Prepared before it is kept, so that a text that the engine refuses leaves nothing behind.
std::shared_ptr<Entrada> Almacen::Crear(std::string_view texto) {
  auto entrada = std::make_shared<Entrada>();
  entrada->Texto = texto;
  entrada->Libres.push_back(base_.Preparar(texto));
  entradas_.insert_or_assign(entrada->Texto, entrada);
  return entrada;
}

Prestada Almacen::Tomar(const std::shared_ptr<Entrada>& entrada) {
  if (entrada->Libres.empty()) return {entrada, base_.Preparar(entrada->Texto)};
  Preparada sentencia = std::move(entrada->Libres.back());
  entrada->Libres.pop_back();
  return {entrada, std::move(sentencia)};
}

Prestada Almacen::Tomar(std::string_view texto) {
  auto entrada = Buscar(texto);
  return Tomar(entrada ? entrada : Crear(texto));
}

}  // namespace sqlite
