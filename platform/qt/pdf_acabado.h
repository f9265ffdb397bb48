#pragma once

class QFileDevice;
class QIODevice;

namespace qt {

/// Copies the PDF that the toolkit made, with what it leaves out: the language of its texts, and
/// that its title is the window's. Its small objects go together in packed streams. Throws
/// `std::exception` with the reason when it can't be read or written.
void AcabarPdf(QFileDevice& borrador, QIODevice& destino);

}  // namespace qt
