// Server replies cut at random places fed to the mail window's session
// over a socket that only records: no crash, and only the commands of
// the session ever go out.
#include "core/texto_1252.h"
#include "import/import_correo.h"
#include "import/winsock.h"
#include "store/session.h"
#include "store/ui.h"

#include <QDir>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

using namespace tesorel;

namespace
{
struct Grabadora : Winsock {
    QStringList enviados;
    void Connect(const QString &, int) override {}
    void SendData(const QString &t) override { enviados << t; }
    void Close() override {}
    bool abierto() const override { return true; }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static QTemporaryDir dir;
    QDir(dir.path()).mkpath("mail");
    ScriptedUi ui;
    Session s(ui, dir.path());
    auto socket = std::make_unique<Grabadora>();
    Grabadora *g = socket.get();
    ImportCorreo v(s, std::move(socket));
    v.txtHost = "h";
    v.txtUserName = "u";
    v.txtPassword = "p";
    v.cmdCheckMail_Click();
    // The first byte of each piece says how long it is.
    std::size_t i = 0;
    while (i < size && !v.Descargado) {
        const std::size_t n = std::min<std::size_t>(data[i] % 64 + 1, size - i - 1);
        ++i;
        v.Winsock1_DataArrival(
            desde1252(QByteArrayView(reinterpret_cast<const char *>(data + i), qsizetype(n))));
        i += n;
    }
    for (const QString &c : g->enviados) {
        static const QStringList ordenes{"USER ", "PASS ", "STAT", "RETR ", "QUIT"};
        bool conocida = false;
        for (const QString &o : ordenes)
            conocida = conocida || c.startsWith(o);
        if (!conocida || !c.endsWith("\r\n"))
            std::abort();
    }
    return 0;
}
