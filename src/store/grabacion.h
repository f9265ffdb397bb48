#pragma once

#include <functional>

#include "services/sesion.h"
#include "store/intervalo.h"

namespace store {

/// Replaces the stored rows of a range by the working tables: every stored invoice with a due date
/// in `rango`, which must be the range that was loaded, goes with its bases and due dates, and
/// every invoice of the working copy is written; the same with the forecasts that begin no later
/// than its end; the cash entries take the invoice links of the working copy. Then
/// `alQuedarGrabado` is called, and the working tables are emptied.
///
/// A failure before the first row is written goes to the caller, with part of the range deleted
/// until the event's end undoes it, or for good where each statement stands by itself; after it, a
/// row that can't be written is dropped without a message. What the working tables hold is made
/// durable before the stored ones, and they are emptied only once these are; when they can't be,
/// the error goes to the caller.
void GrabarTemporales(services::Sesion& sesion, const Intervalo& rango,
                      const std::function<void()>& alQuedarGrabado);

}  // namespace store
