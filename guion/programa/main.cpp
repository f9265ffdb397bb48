#include <iostream>

#include "guion/programa.h"

namespace {

/// The component's object, made the way any host makes it.
services::Ref<services::IClassTesvara> CrearComponente() {
  using services::IClassFactory;
  using services::IClassTesvara;
  void* objeto = nullptr;
  if (services::hr::Fallido(
          services::DllGetClassObject(IClassTesvara::CLSID, IClassFactory::IID, &objeto))) {
    return {};
  }
  const auto fabrica = services::Ref<IClassFactory>::Adoptar(static_cast<IClassFactory*>(objeto));
  if (services::hr::Fallido(fabrica->CreateInstance(nullptr, IClassTesvara::IID, &objeto))) {
    return {};
  }
  return services::Ref<IClassTesvara>::Adoptar(static_cast<IClassTesvara*>(objeto));
}

}  // namespace

int main(int argc, char** argv) {
  return guion::Programa({argv + 1, argv + argc}, {std::cin, std::cout, std::cerr},
                         CrearComponente);
}
