#pragma once

#include <string>
#include <string_view>

namespace sorvex {

/// The texts of a date: "D", as screens show it, `dd/mm/yyyy`; "R", as tables keep it, `yyyymmdd`,
/// whose order as text is that of the dates.
///
/// Reads `fecha` in the form `desde` and gives it in the form `hacia`; blanks around it don't
/// count.
/// - "D" is read from day, month and year of one or two, one or two, and two or four figures, split
///   by `/`, `-` or `.`, or from 8 figures `ddmmyyyy` or 6 `ddmmyy`; a time behind it, as the
///   clock's default text has one, is left out. Two-figure years 00-29 are 20xx, 30-99 are 19xx.
/// - "R" is read from 8 figures.
/// A day past the month's end is the month's last day, so that day 31 ends any month. What is no
/// date comes back as it is from "D" to "D", and empty otherwise.
[[nodiscard]] std::string ConvertirFecha(std::string_view fecha, std::string_view desde,
                                         std::string_view hacia);

}  // namespace sorvex
