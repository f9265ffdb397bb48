#pragma once

#include <map>
#include <string>
#include <vector>

namespace list {

/// Which rows of the list hold a payment that is in their cells alone: those whose `Pagado` is
/// another amount than when the list was last built. Nothing at all is as good as a zero, so that a
/// payment that was taken back is none.
class PagosSinGrabar {
 public:
  /// The `Pagado` of a row goes from one text to another.
  void Anotar(int fila, const std::string& de, const std::string& a);
  /// The row is taken out; those below move up.
  void QuitarFila(int fila);
  /// The list is about to be built anew.
  void Olvidar() { alConstruir_.clear(); }

  [[nodiscard]] std::vector<int> Filas() const;
  [[nodiscard]] int Cuantos() const { return static_cast<int>(alConstruir_.size()); }
  /// How many they would be after such an `Anotar`.
  [[nodiscard]] int CuantosTras(int fila, const std::string& de, const std::string& a) const;

 private:
  [[nodiscard]] bool Cambia(int fila, const std::string& de, const std::string& a) const;

  /// What those rows held then.
  std::map<int, std::string> alConstruir_;
};

}  // namespace list
