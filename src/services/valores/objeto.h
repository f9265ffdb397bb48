#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <utility>

// Counted objects and their interfaces: the part of the automation's binary interface that
// everything else stands on. Every operation that crosses the border of the library returns an
// HRESULT and throws nothing.

namespace services {

using HRESULT = std::int32_t;

namespace hr {
inline constexpr HRESULT Bien = 0;
inline constexpr HRESULT No = 1;
constexpr HRESULT Codigo(std::uint32_t hex) {
  return static_cast<HRESULT>(hex);
}
inline constexpr HRESULT SinInterfaz = Codigo(0x80004002);
inline constexpr HRESULT PunteroNulo = Codigo(0x80004003);
inline constexpr HRESULT Fallo = Codigo(0x80004005);
/// The thread that asks isn't the one that the object belongs to.
inline constexpr HRESULT OtroHilo = Codigo(0x8001010E);
inline constexpr HRESULT SinAgregacion = Codigo(0x80040110);
inline constexpr HRESULT ClaseDesconocida = Codigo(0x80040111);
inline constexpr HRESULT ClaseNoRegistrada = Codigo(0x80040154);
[[nodiscard]] constexpr bool Fallido(HRESULT resultado) {
  return resultado < 0;
}
}  // namespace hr

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];

  friend bool operator==(const GUID& a, const GUID& b) {
    return std::memcmp(&a, &b, sizeof(GUID)) == 0;
  }
};

/// Counted object. A pointer handed out by QueryInterface carries one count of its own.
struct IUnknown {
  static constexpr GUID IID{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  virtual HRESULT QueryInterface(const GUID& interfaz, void** objeto) noexcept = 0;
  virtual std::uint32_t AddRef() noexcept = 0;
  virtual std::uint32_t Release() noexcept = 0;

 protected:
  ~IUnknown() = default;
};

/// Counted pointer to an interface.
template <class I>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(I* objeto) : objeto_(objeto) {
    if (objeto_) objeto_->AddRef();
  }
  Ref(const Ref& otra) : Ref(otra.objeto_) {}
  Ref(Ref&& otra) noexcept : objeto_(std::exchange(otra.objeto_, nullptr)) {}
  template <class Derivada>
  requires std::convertible_to<Derivada*, I*> Ref(const Ref<Derivada>& otra) : Ref(otra.get()) {}
  ~Ref() {
    if (objeto_) objeto_->Release();
  }
  Ref& operator=(Ref otra) noexcept {
    std::swap(objeto_, otra.objeto_);
    return *this;
  }

  /// Takes over a pointer that already carries its count.
  [[nodiscard]] static Ref Adoptar(I* objeto) {
    Ref ref;
    ref.objeto_ = objeto;
    return ref;
  }

  [[nodiscard]] I* get() const { return objeto_; }
  I* operator->() const { return objeto_; }
  I& operator*() const { return *objeto_; }
  explicit operator bool() const { return objeto_ != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) { return a.objeto_ == b.objeto_; }

  /// The same object under another interface; empty where it doesn't offer it.
  template <class Otra>
  [[nodiscard]] Ref<Otra> Como() const {
    void* otra = nullptr;
    if (!objeto_ || hr::Fallido(objeto_->QueryInterface(Otra::IID, &otra))) return {};
    return Ref<Otra>::Adoptar(static_cast<Otra*>(otra));
  }

 private:
  I* objeto_ = nullptr;
};

/// Counting and QueryInterface for a class that offers the interfaces `I...`. It starts without a
/// count; `Crear` gives the first.
template <class... I>
class ObjetoContado : public I... {
 public:
  HRESULT QueryInterface(const GUID& interfaz, void** objeto) noexcept override {
    if (!objeto) return hr::PunteroNulo;
    *objeto = nullptr;
    (Ofrecer<I>(interfaz, objeto), ...);
    if (!*objeto && interfaz == IUnknown::IID) *objeto = static_cast<IUnknown*>(Primera<I...>());
    if (!*objeto) return hr::SinInterfaz;
    AddRef();
    return hr::Bien;
  }
  std::uint32_t AddRef() noexcept override { return ++cuenta_; }
  std::uint32_t Release() noexcept override {
    const std::uint32_t quedan = --cuenta_;
    if (quedan == 0) delete this;
    return quedan;
  }

 protected:
  ObjetoContado() = default;
  ObjetoContado(const ObjetoContado&) = delete;
  ObjetoContado& operator=(const ObjetoContado&) = delete;
  virtual ~ObjetoContado() = default;

 private:
  template <class Una>
  void Ofrecer(const GUID& interfaz, void** objeto) {
    if (!*objeto && interfaz == Una::IID) *objeto = static_cast<Una*>(this);
  }
  template <class Una, class...>
  Una* Primera() {
    return static_cast<Una*>(this);
  }

  std::atomic<std::uint32_t> cuenta_{0};
};

template <class Objeto, class... Argumentos>
[[nodiscard]] Ref<Objeto> Crear(Argumentos&&... argumentos) {
  return Ref<Objeto>(new Objeto(std::forward<Argumentos>(argumentos)...));
}

}  // namespace services
