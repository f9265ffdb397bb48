#pragma once

#include <span>
#include <string_view>

namespace dialecto {

/// The statements of the system that have conditions, with any values in them.
[[nodiscard]] std::span<const std::string_view> Sentencias();

}  // namespace dialecto
