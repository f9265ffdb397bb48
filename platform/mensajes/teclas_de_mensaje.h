#pragma once

#include <QList>
#include <chrono>

class QDialog;
class QPushButton;

namespace mensajes {

/// Nobody reads a question in less.
inline constexpr std::chrono::milliseconds kAntesDeLeer{400};

/// Gives the buttons of a message their keys: each its first letter. What is typed before anyone
/// can have read it was meant for the screen behind, with all that follows without a pause, and
/// answers nothing; nor does a key that is held down.
void DarTeclas(QDialog& mensaje, const QList<QPushButton*>& botones,
               std::chrono::milliseconds antesDeLeer = kAntesDeLeer);

}  // namespace mensajes
