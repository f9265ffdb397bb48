#pragma once

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace odbc {

/// A handle of the driver manager's, freed with its owner: an environment, a connection or a
/// statement, by its kind.
class Manejo {
 public:
  Manejo() = default;
  /// Null where there is no memory for it, or its parent can't have any more.
  Manejo(SQLSMALLINT clase, SQLHANDLE de) : clase_(clase) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(clase, de, &manejo_))) manejo_ = nullptr;
  }
  Manejo(Manejo&& otro) noexcept
      : clase_(otro.clase_), manejo_(std::exchange(otro.manejo_, nullptr)) {}
  Manejo& operator=(Manejo&& otro) noexcept {
    std::swap(clase_, otro.clase_);
    std::swap(manejo_, otro.manejo_);
    return *this;
  }
  ~Manejo() {
    if (manejo_ != nullptr) SQLFreeHandle(clase_, manejo_);
  }

  [[nodiscard]] SQLHANDLE get() const { return manejo_; }
  [[nodiscard]] SQLSMALLINT Clase() const { return clase_; }
  explicit operator bool() const { return manejo_ != nullptr; }

 private:
  SQLSMALLINT clase_ = 0;
  SQLHANDLE manejo_ = nullptr;
};

/// A text as the driver manager takes it; it doesn't write to it.
[[nodiscard]] inline SQLCHAR* Texto(const char* texto) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(texto));
}

/// A whole number as the driver manager takes it in place of a pointer.
[[nodiscard]] inline SQLPOINTER ComoPuntero(SQLULEN numero) {
  return reinterpret_cast<SQLPOINTER>(numero);
}

}  // namespace odbc
