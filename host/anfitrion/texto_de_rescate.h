#pragma once

#include <QString>

#include "salvaguarda/conceptos.h"
#include "salvaguarda/rescate.h"

namespace anfitrion {

/// What the user is told of a working copy that a program left behind, and what can be done with
/// it.
[[nodiscard]] QString TextoDeLaQueQuedo(const salvaguarda::Rescate& rescate,
                                        const salvaguarda::Conceptos& conceptos);
/// What the user is told of one that was kept aside: a question, where it can be opened.
[[nodiscard]] QString TextoDeLaDeAparte(const salvaguarda::Rescate& rescate,
                                        const salvaguarda::Conceptos& conceptos);

}  // namespace anfitrion
