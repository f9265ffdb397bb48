#include "sqlite/almacen.h"

namespace sqlite {

void Prestada::Devolver() noexcept {
  if (!sentencia_) return;
  sqlite3_reset(sentencia_.get());
  entrada_->Libres.push_back(std::move(sentencia_));
}

// Prepared before it is kept, so that a text that the engine refuses leaves nothing behind.
std::shared_ptr<Entrada> Almacen::EntradaDe(std::string_view texto) {
  if (const auto hallada = entradas_.find(texto); hallada != entradas_.end()) {
    return hallada->second;
  }
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
  return Tomar(EntradaDe(texto));
}

}  // namespace sqlite
