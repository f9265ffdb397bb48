#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace services {

/// The file that a path of the suite means, whose folders are parted by `\\` or `/` and whose case
/// doesn't count, from a folder on; none where there is no such file. Of several that differ in
/// case alone the first by name.
[[nodiscard]] std::optional<std::filesystem::path> BuscarFichero(
    std::string_view ruta, const std::filesystem::path& desde);

}  // namespace services
