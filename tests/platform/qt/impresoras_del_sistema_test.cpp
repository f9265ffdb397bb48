#include "qt/impresoras_del_sistema.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>

namespace {

using std::chrono::milliseconds;

TEST(PreguntaConPaciencia, DaLoQueSeContesta) {
  int veces = 0;
  qt::PreguntaConPaciencia pregunta([&veces] { return QStringList{QString::number(++veces)}; },
                                    milliseconds(60000));
  EXPECT_EQ(pregunta.Responder(), QStringList{"1"});
  EXPECT_EQ(pregunta.Responder(), QStringList{"2"}) << "cada vez se pregunta";
}

TEST(PreguntaConPaciencia, LaQueNoLlegaNoSeEsperaDosVeces) {
  // Shared with a thread that may outlive this one.
  const auto servidor = std::make_shared<std::promise<QStringList>>();
  const std::shared_future<QStringList> contesta = servidor->get_future();
  qt::PreguntaConPaciencia pregunta([contesta] { return contesta.get(); }, milliseconds(20));
  EXPECT_EQ(pregunta.Responder(), QStringList());
  EXPECT_EQ(pregunta.Responder(), QStringList());
  servidor->set_value({"Laser"});
  QStringList nombres;
  while (nombres.isEmpty()) nombres = pregunta.Responder();
  EXPECT_EQ(nombres, QStringList{"Laser"}) << "cuando llega, cuenta";
}

TEST(PreguntaConPaciencia, SiLaSiguienteTardaCuentaLaUltima) {
  const auto servidor = std::make_shared<std::promise<QStringList>>();
  const std::shared_future<QStringList> contesta = servidor->get_future();
  const auto veces = std::make_shared<std::atomic<int>>(0);
  qt::PreguntaConPaciencia pregunta(
      [contesta, veces] { return ++*veces == 1 ? QStringList{"Laser"} : contesta.get(); },
      milliseconds(500));
  ASSERT_EQ(pregunta.Responder(), QStringList{"Laser"});
  EXPECT_EQ(pregunta.Responder(), QStringList{"Laser"});
  EXPECT_EQ(pregunta.Responder(), QStringList());
  servidor->set_value({});
}

}  // namespace
