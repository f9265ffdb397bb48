#pragma once

#include <string>
#include <utility>
#include <vector>

#include "guion/base.h"
#include "guion/texto_guion.h"

namespace pruebas {

/// A connection whose driver calls are noted; every SELECT finds one row with one text.
class ConexionDeMentira final : public services::ObjetoContado<services::Conexion> {
 public:
  std::vector<std::string> Llamadas;

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura) override {
    Llamadas.push_back("abrir " + std::string(sentencia));
    if (sentencia.starts_with("DELETE")) return nullptr;
    return std::make_unique<Cursor>(*this);
  }
  void TerminarUnidad() override { Llamadas.emplace_back("terminar"); }
  void AbandonarUnidad() noexcept override { Llamadas.emplace_back("abandonar"); }

 private:
  class Cursor final : public services::Cursor {
   public:
    explicit Cursor(ConexionDeMentira& conexion) : conexion_(conexion) {}
    [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
      return columnas_;
    }
    [[nodiscard]] services::Filas Leer() override {
      conexion_.Llamadas.emplace_back("leer");
      return UnaFila();
    }
    void Insertar(std::span<const services::Asignacion>) override {
      conexion_.Llamadas.emplace_back("insertar");
    }
    [[nodiscard]] services::Filas LeerInsertada() override { return UnaFila(); }
    void Actualizar(const services::Filas&, std::size_t,
                    std::span<const services::Asignacion>) override {
      conexion_.Llamadas.emplace_back("actualizar");
    }

   private:
    [[nodiscard]] services::Filas UnaFila() const {
      services::Filas filas(columnas_.size());
      filas.AnadirTexto("x");
      return filas;
    }
    ConexionDeMentira& conexion_;
    std::vector<services::Columna> columnas_{{"Texto"}};
  };
};

/// A database that notes what is run on it and gives the same two rows to every query.
class BaseDeMentira final : public guion::Base {
 public:
  std::vector<std::string> Ejecutadas;
  services::Ref<ConexionDeMentira> Interior = services::Crear<ConexionDeMentira>();

  [[nodiscard]] services::Ref<services::Conexion> Conexion() override { return Interior; }
  void Agrupar(bool porEvento) override {
    Ejecutadas.emplace_back(porEvento ? "unidad evento" : "unidad sentencia");
  }
  void Ejecutar(const std::string& sql) override {
    if (sql == "MAL") throw guion::NoSeEntiende("el motor no quiere");
    Ejecutadas.push_back(sql);
  }
  [[nodiscard]] std::vector<Fila> Consultar(const std::string& sql) override {
    Ejecutar(sql);
    return {{"1", "NULL"}, {"2", "dos"}};
  }
};

}  // namespace pruebas
