#pragma once

#include <memory>

#include "platform/banco.h"
#include "platform/servidores_de_prueba.h"

namespace pruebas {

[[nodiscard]] std::unique_ptr<Banco> CrearBancoOdbc(const ServidorDePrueba& servidor);

}  // namespace pruebas
