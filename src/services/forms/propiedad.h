#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace services {

/// Which property of a widget changed.
enum class Aspecto {
  Text,
  Caption,
  Value,
  ListIndex,
  Min,
  Max,
  Tag,
  Enabled,
  Visible,
  BackColor,
  ForeColor,
  Geometria,
  Fuente,
  Seleccion,  ///< the selected stretch of a text
  Tecleo,     ///< whether a text can be typed, and how long
  Elementos,  ///< the items of a list
  Picture,
  Stretch,
};

/// Who is told that one of its properties was given another value.
class Dueno {
 public:
  /// By an assignment: it is shown, and what the assignment fires runs.
  virtual void Cambiada(Aspecto aspecto) = 0;
  /// Without a word: it is shown, and that is all.
  virtual void Mostrar(Aspecto aspecto) = 0;

 protected:
  ~Dueno() = default;
};

/// A property that reads and assigns like a variable. Assigning the value it already has does
/// nothing; another value is kept, and then its owner is told.
template <class T>
class Propiedad {
 public:
  Propiedad(Dueno& dueno, Aspecto aspecto, T valor = T())
      : dueno_(dueno), aspecto_(aspecto), valor_(std::move(valor)) {}
  Propiedad(const Propiedad&) = delete;

  Propiedad& operator=(T valor) {
    if (Guardar(std::move(valor))) dueno_.Cambiada(aspecto_);
    return *this;
  }
  Propiedad& operator=(const Propiedad& otra) { return *this = otra.valor_; }

  operator const T&() const { return valor_; }
  operator std::string_view() const requires std::same_as<T, std::string> { return valor_; }
  const T& operator()() const { return valor_; }
  const T* operator->() const { return &valor_; }

  /// Assigns and fires nothing. Whether the value is another one.
  bool PonerEnSilencio(T valor) {
    if (!Guardar(std::move(valor))) return false;
    dueno_.Mostrar(aspecto_);
    return true;
  }

  template <class U>
  friend bool operator==(const Propiedad& a, const U& b) {
    return a.valor_ == b;
  }
  friend bool operator==(const Propiedad& a, const Propiedad& b) { return a.valor_ == b.valor_; }

 private:
  bool Guardar(T valor) {
    if (valor_ == valor) return false;
    valor_ = std::move(valor);
    return true;
  }

  Dueno& dueno_;
  Aspecto aspecto_;
  T valor_;
};

inline std::string operator+(std::string_view a, const Propiedad<std::string>& b) {
  return std::string(a) + b();
}
inline std::string operator+(const Propiedad<std::string>& a, std::string_view b) {
  return a() + std::string(b);
}

/// A property whose reading and assigning are operations of its owner.
template <class D, class T, T (D::*leer)() const, void (D::*poner)(T)>
class PropiedadCalculada {
 public:
  explicit PropiedadCalculada(D& dueno) : dueno_(dueno) {}
  PropiedadCalculada(const PropiedadCalculada&) = delete;

  PropiedadCalculada& operator=(T valor) {
    (dueno_.*poner)(std::move(valor));
    return *this;
  }
  PropiedadCalculada& operator=(const PropiedadCalculada& otra) { return *this = otra(); }

  operator T() const { return (dueno_.*leer)(); }
  T operator()() const { return (dueno_.*leer)(); }

 private:
  D& dueno_;
};

}  // namespace services
