#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace guion {

/// Where the output of a session goes on its way to the run's: each line begins with the session's
/// number, `2> `, but for those of the first one, which stay as they are.
class SalidaDeSesion final : public std::streambuf {
 public:
  SalidaDeSesion(std::ostream& destino, int sesion)
      : destino_(destino), prefijo_(sesion == 1 ? "" : std::to_string(sesion) + "> ") {}

 protected:
  int_type overflow(int_type caracter) override;
  int sync() override;

 private:
  std::ostream& destino_;
  std::string prefijo_;
  bool al_principio_ = true;
};

}  // namespace guion
