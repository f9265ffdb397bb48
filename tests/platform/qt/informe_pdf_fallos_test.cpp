#include <sys/resource.h>
#include <unistd.h>

#include <QBuffer>
#include <csignal>
#include <fstream>

#include "platform/qt/informe_en_papel.h"
#include "qt/pdf_acabado.h"
#include "valores/error.h"

// A PDF appears whole or not at all, and the user is told why.

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

class FallosDelPdf : public pruebas::InformeEnPapel {
 protected:
  FallosDelPdf() { std::ofstream(carpeta.Ruta() / "pagos.pdf") << "el del mes pasado"; }
  /// What the error says; empty when there was none.
  template <class Accion>
  static std::string Fallo(const Accion& accion) {
    try {
      accion();
    } catch (const services::ErrorEjecucion& fallo) {
      EXPECT_EQ(fallo.Numero(), services::error::ErrorDeImpresora);
      return fallo.Descripcion();
    }
    return "";
  }
  std::string AlAbrir(const char* nombre) {
    return Fallo([&] { const qt::InformePdf informe(Ruta(nombre), "Prueba"); });
  }
  void SigueElDeAntes() const {
    EXPECT_EQ(EnLaCarpeta(), QStringList{"pagos.pdf"});
    std::ifstream fichero(carpeta.Ruta() / "pagos.pdf");
    const std::string texto(std::istreambuf_iterator<char>(fichero), {});
    EXPECT_EQ(texto, "el del mes pasado");
  }
};

void Llenar(services::DestinoInforme& informe, int hojas) {
  for (int hoja = 0; hoja < hojas; ++hoja) {
    for (int i = 0; i < 40; ++i) informe.Print("Fila " + std::to_string(hoja * 100 + i), true);
    informe.NewPage();
  }
}

TEST_F(FallosDelPdf, UnaCarpetaQueNoExisteONoEsCarpeta) {
  EXPECT_THAT(AlAbrir("falta/pagos.pdf"),
              AllOf(HasSubstr("falta/pagos.pdf»"), HasSubstr("no existe la carpeta «")));
  EXPECT_THAT(AlAbrir("pagos.pdf/otro.pdf"), HasSubstr("no es una carpeta"));
  EXPECT_THAT(AlAbrir("."), HasSubstr("es el de una carpeta"));
  EXPECT_THAT(Fallo([] { const qt::InformePdf informe("/dev/null", "Prueba"); }),
              HasSubstr("ese nombre no es de un fichero"));
  SigueElDeAntes();
}

TEST_F(FallosDelPdf, UnaCarpetaSinPermiso) {
  if (::geteuid() == 0) GTEST_SKIP() << "as root every folder can be written to";
  fs::permissions(carpeta.Ruta(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THAT(AlAbrir("nuevo.pdf"), HasSubstr("no hay permiso para escribir en la carpeta «"));
  fs::permissions(carpeta.Ruta(), fs::perms::owner_all);
  SigueElDeAntes();
}

TEST_F(FallosDelPdf, UnInformeQueSeDejaNoQueda) {
  {
    qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
    Llenar(informe, 3);
    informe.KillDoc();
    SigueElDeAntes();
    informe.EndDoc();
  }
  SigueElDeAntes();
  {
    qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
    Llenar(informe, 3);
  }
  SigueElDeAntes();
}

TEST_F(FallosDelPdf, ElDeAntesQuedaHastaElFinal) {
  qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
  Llenar(informe, 3);
  EXPECT_TRUE(QFile::exists(Ruta("pagos.pdf")));
  informe.EndDoc();
  EXPECT_EQ(EnLaCarpeta(), QStringList{"pagos.pdf"});
  EXPECT_TRUE(pruebas::Correr("pdfinfo", {Ruta("pagos.pdf")}).contains("Pages:           4\n"));
}

/// No file of the process can be longer than so much while it lives, as on a full disk.
class DiscoLleno {
 public:
  explicit DiscoLleno(rlim_t octetos) {
    ::getrlimit(RLIMIT_FSIZE, &antes_);
    const rlimit limite{octetos, antes_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limite), 0);
    senal_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~DiscoLleno() {
    ::setrlimit(RLIMIT_FSIZE, &antes_);
    std::signal(SIGXFSZ, senal_);
  }
  DiscoLleno(const DiscoLleno&) = delete;

 private:
  rlimit antes_{};
  void (*senal_)(int) = nullptr;
};

TEST_F(FallosDelPdf, UnDiscoQueSeLlenaMientrasSeDibujaSeDiceEnSuHoja) {
  qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
  int hojas = 0;
  const std::string fallo = Fallo([&] {
    const DiscoLleno lleno(100'000);
    for (; hojas < 1000; ++hojas) Llenar(informe, 1);
  });
  EXPECT_THAT(fallo,
              AllOf(HasSubstr("No se ha podido guardar el informe en «"), HasSubstr("pagos.pdf»: "),
                    HasSubstr("el fichero no puede ser tan grande")));
  EXPECT_GT(hojas, 10);
  EXPECT_LT(hojas, 500);
  informe.KillDoc();
  SigueElDeAntes();
}

TEST_F(FallosDelPdf, UnDiscoQueSeLlenaAlAcabarNoDejaMedioFichero) {
  const std::string fallo = Fallo([&] {
    qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
    Llenar(informe, 3);
    const DiscoLleno lleno(2'000);
    informe.EndDoc();
  });
  EXPECT_THAT(fallo,
              AllOf(HasSubstr("pagos.pdf»: "), HasSubstr("el fichero no puede ser tan grande")));
  SigueElDeAntes();
}

/// Takes so much and no more.
class Lleno final : public QIODevice {
 public:
  explicit Lleno(qint64 cabe) : cabe_(cabe) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char*, qint64 largo) override {
    if (largo > cabe_) {
      setErrorString("no cabe");
      return -1;
    }
    cabe_ -= largo;
    return largo;
  }

 private:
  qint64 cabe_;
};

TEST_F(FallosDelPdf, LoQueNoCabeAlAcabarLoSeDice) {
  qt::InformePdf(Ruta("entero.pdf"), "Prueba").EndDoc();
  QFile entero(Ruta("entero.pdf"));
  ASSERT_TRUE(entero.open(QIODevice::ReadOnly));
  for (const qint64 cabe : {0, 10, 500}) {
    Lleno destino(cabe);
    try {
      qt::AcabarPdf(entero, destino);
      ADD_FAILURE() << cabe;
    } catch (const std::exception& fallo) {
      EXPECT_THAT(fallo.what(), HasSubstr("no cabe"));
    }
  }
}

TEST_F(FallosDelPdf, UnBorradorAlQueLeFaltaUnTrozoNoSeDaPorBueno) {
  qt::InformePdf(Ruta("entero.pdf"), "Prueba").EndDoc();
  QFile entero(Ruta("entero.pdf"));
  ASSERT_TRUE(entero.open(QIODevice::ReadOnly));
  QByteArray datos = entero.readAll();
  QFile roto(Ruta("roto.pdf"));
  ASSERT_TRUE(roto.open(QIODevice::ReadWrite));
  roto.write(datos.remove(datos.size() / 2, 100));
  QBuffer destino;
  destino.open(QIODevice::WriteOnly);
  EXPECT_THROW(qt::AcabarPdf(roto, destino), std::exception);
}

/// By the report itself: the message goes up, and the screen goes on.
TEST_F(FallosDelPdf, ElInformeDiceElFalloYLaPantallaSigue) {
  Recibos(40);
  Imprimir([this](const services::TrabajoDeImpresion&) {
    return std::make_unique<qt::InformePdf>(Ruta("falta/pagos.pdf"), "Prueba");
  });
  EXPECT_THAT(salida, AllOf(HasSubstr("error 482 \"No se ha podido guardar el informe en «"),
                            HasSubstr("falta/pagos.pdf»: no existe la carpeta «")));
  SigueElDeAntes();
  GuardarPdf(Ruta("pagos.pdf"));
  EXPECT_TRUE(pruebas::Correr("pdftotext", {Ruta("pagos.pdf"), "-"}).contains("Papelería"));
}

}  // namespace
