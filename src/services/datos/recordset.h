#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "valores/objeto.h"
#include "valores/valor.h"

namespace services {

/// A recordset: one statement at a time over a connection, forward only.
///
/// Its state is closed, or open on a row, past the last row (`Eof`), or on a new row that is being
/// added. An edit is pending from the first assignment to a field, or from `AddNew`, until `Update`
/// or `CancelUpdate`. One object serves many statements in turn.
///
/// Any member but `Open`, `State`, `Close` and `Filter` throws 0x800A0E78 when it is closed.
class Recordset final : public ObjetoContado<IUnknown> {
 public:
  /// The value of a field of the current row: reads and assigns like a variable. It stands for the
  /// recordset's field, not for a copy, and must not outlive the recordset.
  class Campo {
   public:
    class Acceso {
     public:
      operator Valor() const { return Leer(); }
      Acceso& operator=(const Valor& valor);
      Acceso& operator=(const Acceso& otro);
      Acceso(const Acceso&) = default;

      /// Throws 0x800A0BCD when there is no current row. A field not yet assigned on a new row is
      /// Null.
      [[nodiscard]] Valor Leer() const;
      /// The value joined to an empty text: Null gives "".
      [[nodiscard]] std::string Texto() const { return Leer().Texto(); }
      [[nodiscard]] double Numero() const { return Leer().Numero(); }

     private:
      friend class Campo;
      friend class Recordset;
      Acceso(Recordset& rs, std::size_t posicion) : rs_(&rs), posicion_(posicion) {}
      Recordset* rs_;
      std::size_t posicion_;
    };

    Acceso Value;
    /// The column's name as the statement gives it.
    [[nodiscard]] const std::string& Name() const;

   private:
    friend class Recordset;
    Campo(Recordset& rs, std::size_t posicion) : Value(rs, posicion) {}
  };

  Recordset();
  ~Recordset() override;

  /// Before: closed. After a SELECT: open, on its first row, or at `Eof` when it has none; no edit
  /// pending. After a DELETE: run, and still closed. A failure leaves it closed.
  /// A static recordset fetches its rows here; a dynamic one when it is first asked for a row, so
  /// that opening one only to add rows costs nothing that grows with its table.
  /// Throws 0x800A0E79 when it is open, and what `Conexion::Abrir` throws.
  void Open(std::string_view sentencia, Conexion& conexion, ModoApertura modo);

  /// Whether it is open.
  [[nodiscard]] bool State() const noexcept;
  /// Drops a pending edit. Closing what is closed throws 0x800A0E78.
  void Close();

  /// True past the last row that passes the filter. False on a new row, before and after its
  /// `Update`.
  [[nodiscard]] bool Eof();

  /// Updates first when an edit is pending; when that fails the row stays current and the edit
  /// pending. After the last row, and after a row just added, `Eof` is True. Throws 0x800A0BCD at
  /// `Eof`.
  void MoveNext();

  /// Starts a new row with all its fields Null. Updates first when an edit is pending. Throws
  /// 0x800A0CB3 on a static recordset.
  void AddNew();

  /// Writes the pending edit; without one, nothing. Each value becomes its column's type by the
  /// locale's rules: the empty text becomes Null in a money, whole, Boolean or date column that
  /// takes Null; a text that is no such value, and what the engine finds too long or too large, is
  /// 0x80040E21. After it the row, new or changed, is the current one, its fields hold what was
  /// written, and `Eof` is False. A refused `Update` leaves row and edit as they were: the values
  /// can be assigned anew, or dropped with `CancelUpdate`.
  void Update();

  /// The same for a new row of many, which may be written later, together with others, at the
  /// latest at `EscribirPendientes` or when its connection next reads. The edit is over; who is
  /// passed is told, then or now, when the engine refuses the row, and it then isn't there.
  void UpdateLuego(const AlNoInsertar& alNoEscribir);
  /// Writes what was left for later on its connection.
  void EscribirPendientes();

  /// Drops the pending edit. After a dropped `AddNew` the row that was current before it is current
  /// again. Without an edit, nothing.
  void CancelUpdate();

  /// How many fields a row has.
  [[nodiscard]] std::size_t CuantosFields() const;
  /// By position, from 0. Throws 0x800A0CC1 for a field that the row doesn't have.
  [[nodiscard]] Campo Fields(std::size_t posicion);
  /// By name, without regard to case.
  [[nodiscard]] Campo Fields(std::string_view nombre);

  /// By-name access to a value; the assignment fails with 0x800A0CC1 for a name that the statement
  /// doesn't select. Assigning on a static recordset throws 0x800A0CB3.
  [[nodiscard]] Campo::Acceso Collect(std::string_view nombre);

  /// Keeps only the rows in which a column equals a text, and goes to the first of them: `COLUMN =
  /// 'text'`, blanks optional, a quote in the text doubled. The empty text takes the filter away
  /// and goes to the first row. Comparison is that of `Igual`. Throws 0x800A0BB9 for any other
  /// criteria and 0x800A0CC1 for a column that the row doesn't have, leaving filter and row as they
  /// were. On a closed recordset the criteria are kept for the next `Open`, which looks for the
  /// column then. Drops a pending edit.
  void Filter(std::string_view criterio);

  /// How many rows pass the filter, on a static recordset; -1 on a dynamic one.
  [[nodiscard]] std::int64_t RecordCount() const;
  /// The current row counted from 1 among those that pass the filter; -3 past the last one, and -1
  /// on a new row.
  [[nodiscard]] std::int64_t AbsolutePosition();
  /// Goes to one of them, on a static recordset. Throws 0x800A0BCD where there is none, and then
  /// stays.
  void AbsolutePosition(std::int64_t posicion);

 private:
  class Abierto;
  [[nodiscard]] Abierto& Exigir() const;

  std::unique_ptr<Abierto> abierto_;
  std::string filtroAlAbrir_;
};

}  // namespace services
