#pragma once

#include <string>

namespace entry {

// The arithmetic of an invoice's amounts: how a total splits into bases, VAT, an exempt part and a
// withholding. Amounts come in as numbers and go out as the text under the mask, two decimals, ties
// away from zero; every comparison is of such texts.

/// A VAT rate.
struct TipoIva {
  const char* Codigo;  ///< `Tipo` of its rows in the table of bases
  double Divisor;      ///< total over base
  int Tanto;           ///< hundredths of the base
};
inline constexpr TipoIva kIva16{"1", 1.16, 16};
inline constexpr TipoIva kIva7{"2", 1.07, 7};
inline constexpr TipoIva kIva4{"3", 1.04, 4};
/// `Tipo` of the exempt part there.
inline constexpr const char* kExento = "0";

struct BaseEIva {
  std::string Base;
  std::string Iva;

  bool operator==(const BaseEIva&) const = default;
};

/// A total that bears one rate only: base and VAT add up to it exactly.
[[nodiscard]] BaseEIva SepararTotal(double total, const TipoIva& tipo);
/// What the other rates leave of a total: the VAT is that of the rounded base, and the sum may miss
/// `resto` by a cent.
[[nodiscard]] BaseEIva SepararResto(double resto, const TipoIva& tipo);

/// The VAT of a base.
[[nodiscard]] std::string IvaDe(double base, const TipoIva& tipo);
/// The withholding of a base; `tanto` in hundredths.
[[nodiscard]] std::string IrpfDe(double base, double tanto);

/// The largest base of that rate that a total can carry, with what is withheld added to it. Throws
/// 13 for a negative one, like the next.
[[nodiscard]] double LimiteDeBase(double total, double irpf, const TipoIva& tipo);
/// The largest base of a withholding that a total can carry.
[[nodiscard]] double LimiteDeIrpf(double total, double tanto);

/// Whether the list can add up an amount: one below zero it can't, nor two without an end.
[[nodiscard]] bool SePuedeSumar(double importe);

/// Whether a sum is a total, one cent either way.
[[nodiscard]] bool Cuadra(double suma, double total);

}  // namespace entry
