#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "forms/form.h"

namespace largo {

/// Hears of each handler that a widget's event reaches, by screen, widget and event.
using AlAtender = std::function<void(const std::string& manejador)>;

/// Has the handlers of a screen's widgets told of, those that it has by now; once for each.
/// `alHaber` hears of all that there are.
void ContarManejadores(services::Form& form, const AlAtender& alHaber, const AlAtender& alAtender);

}  // namespace largo
