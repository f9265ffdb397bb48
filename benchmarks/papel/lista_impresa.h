#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "jornada/partida.h"

namespace medidas {

/// A list of so many receipts, printed by the component itself as often as is asked.
class ListaImpresa {
 public:
  using Abrir = std::function<std::unique_ptr<services::DestinoInforme>()>;

  explicit ListaImpresa(int recibos) {
    partida_.Plataforma().AbrirImpresora = [this](const services::TrabajoDeImpresion&) {
      return abrir_();
    };
    Jugar(
        "reloj 2005-03-15 10:00:00\nimpresora \"Papel\"\n"
        "datos INSERT INTO ProvConceptos VALUES('1','Papelería Núñez'),('2','Ñandú, S.A.'),"
        "('3','Güell (oficina fija y calefacción)')\n" +
        Llenar("ProvFacturas", recibos, "'20050301', 10.5 + i * 37.25, '1', 1, 0, 0, 0, 0, 0") +
        Llenar("ProvVencimientos", recibos,
               "printf('200503%02d', 1 + i % 28), 10.5 + i * 37.25, "
               "CASE i % 3 WHEN 0 THEN 10.5 + i * 37.25 END, "
               "CASE i % 3 WHEN 0 THEN '20050310' ELSE '' END") +
        "cargar\n");
  }

  void Imprimir(Abrir abrir) {
    abrir_ = std::move(abrir);
    Jugar(
        "pulsar ImgImpresora\npulsar frmBuscoImpresora.LblImpre(1)\n"
        "pulsar frmBuscoImpresora.Boton1\n");
  }

 private:
  static std::string Llenar(const std::string& tabla, int recibos, const std::string& valores) {
    return "datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(recibos) + ") INSERT INTO " + tabla +
           " SELECT 1 + i % 3, printf('F%05d', i), '2005', " + valores + ", 'x', 'y' FROM n\n";
  }
  void Jugar(const std::string& texto) {
    const auto jugada = partida_.Jugar(texto);
    if (jugada.Estado != 0 || !jugada.Salida.empty()) {
      throw std::runtime_error(jugada.Errores + jugada.Salida);
    }
  }

  Abrir abrir_;
  jornada::Partida partida_;
};

}  // namespace medidas
