#pragma once

#include <memory>
#include <vector>

#include "services/destino_informe.h"

namespace headless {

/// One thing that a report drew, and on which of its pages, from 1.
struct TrazoGrabado {
  int Pagina = 1;
  services::Trazo Trazo;
};

/// All that a report drew, in its order.
struct Grabacion {
  std::vector<TrazoGrabado> Trazos;

  void Anotar(int pagina, services::Trazo trazo) { Trazos.push_back({pagina, std::move(trazo)}); }
  /// Takes back what was drawn on a page.
  void Borrar(int pagina);
};

/// A printer that keeps what is drawn instead of printing it.
class ImpresoraGrabada final : public services::DestinoInforme {
 public:
  explicit ImpresoraGrabada(std::shared_ptr<Grabacion> grabacion);

  void EndDoc() override {}
  void KillDoc() override { grabacion_->Trazos.clear(); }

 protected:
  void Trazar(services::Trazo trazo) override { grabacion_->Anotar(pagina_, std::move(trazo)); }
  void PasarHoja() override { ++pagina_; }
  void BorrarHoja() override { grabacion_->Borrar(pagina_); }

 private:
  std::shared_ptr<Grabacion> grabacion_;
  int pagina_ = 1;
};

/// A page of the preview that is kept there too.
class HojaGrabada final : public services::HojaInforme {
 public:
  HojaGrabada(std::shared_ptr<Grabacion> grabacion, int pagina);

 protected:
  void Trazar(services::Trazo trazo) override;
  void BorrarHoja() override;

 private:
  std::shared_ptr<Grabacion> grabacion_;
  int pagina_;
};

}  // namespace headless
