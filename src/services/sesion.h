#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "services/anfitrion.h"
#include "services/imprenta.h"
#include "services/utiles.h"
#include "valores/fecha.h"

namespace services {

struct Plataforma;

struct Omision;

/// The session values as the blocks of a screen see them.
class Sesion {
 public:
  virtual ~Sesion() = default;

  /// The connection to the stored tables. Throws 91 when the host handed over none.
  [[nodiscard]] virtual Conexion& CnDatos() const = 0;
  /// The connection to the working tables; the same.
  [[nodiscard]] virtual Conexion& CnTemp() const = 0;
  [[nodiscard]] virtual const std::string& Usuario() const = 0;
  /// Tells the suite of a DELETE that ran on the stored tables, by its exact text.
  virtual void AnotarBorrado(const std::string& sentencia) = 0;
  /// Tells whoever stands around of what the working copy passed over. Never throws.
  virtual void PasadoPorAlto(const Omision& omision) noexcept = 0;
  /// A text in the user's language, by its column in the host's row of texts. Throws 91 when there
  /// is no such row, and what the recordset throws.
  [[nodiscard]] virtual std::string TextoDe(const char* columna) const = 0;
  /// The host's main form.
  [[nodiscard]] virtual const Ref<IForm>& FrmPrincipal() const = 0;
  /// Kept for the process, like the session.
  [[nodiscard]] virtual services::Imprenta& Imprenta() = 0;
  /// Twips, like the next.
  [[nodiscard]] virtual std::int32_t AnchoReferencia() const = 0;
  [[nodiscard]] virtual std::int32_t AltoReferencia() const = 0;

  /// Made at their first use, and kept.
  virtual services::Utiles& Utiles() = 0;
  virtual services::Aviso& Aviso() = 0;
  /// One for each screen that searches.
  [[nodiscard]] virtual std::unique_ptr<SelectorConceptos> CrearSelectorConceptos() = 0;
  /// The host's context, by reference, as the chooser is given it.
  virtual Ref<IDatosClase>& DatosClase() = 0;

  [[nodiscard]] virtual FechaHora Ahora() const = 0;
  /// Width of the real screen, twips.
  [[nodiscard]] virtual int AnchoPantalla() const = 0;
  [[nodiscard]] virtual int AltoPantalla() const = 0;

  /// Whether the real screen is as wide as the one that the screens are laid out for.
  [[nodiscard]] bool PantallaDeReferencia() const { return AnchoPantalla() == AnchoReferencia(); }
};

}  // namespace services
