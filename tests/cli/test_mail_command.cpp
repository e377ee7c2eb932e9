// mail against Dovecot on loopback: the user's record gives host and mail
// user, --host replaces the host, a refused password ends the run.
#include "import/dovecot_pop3.h"
#include "sample_base.h"

#include <QFile>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

QStringList correr(const QStringList &args)
{
    const SalidaCli o = correrCli(args);
    EXPECT_EQ(o.codigo, 0) << o.err.toStdString();
    return o.lineas();
}

TEST(MailCommand, DovecotDejaLosDiasEnMail)
{
    correo::DovecotPop3 dovecot;
    dovecot.poner("From: \"Tesorel\" <c@t.example>\nSubject: dia\n\n--XX\n\tname=\"231124.txt\"\n"
                  "a\nb\nc\n\nTEF;1\nSAN;2\n\n--XX--\n");
    const QString fallo = dovecot.arrancar();
    ASSERT_TRUE(fallo.isEmpty()) << fallo.toStdString();

    CopiaDeMuestra trabajo;
    const QString &base = trabajo.base;
    trabajo.open()->execute("update Usuario set Direccion = '" + dovecot.host() +
                            "', CodigoPost = 'demo' where clave = 1");

    EXPECT_EQ(correr({"mail", base, "--user", "1", "--password", "secreto"}), QStringList());
    QFile dia(trabajo.dir.filePath("mail/231124.txt"));
    ASSERT_TRUE(dia.open(QIODevice::ReadOnly));
    EXPECT_EQ(dia.readAll(), "TEF;1\r\nSAN;2\r\n\r\n");

    const QStringList mala =
        correr({"mail", base, "--user", "1", "--password", "otra", "--host", dovecot.host()});
    ASSERT_EQ(mala.size(), 1);
    EXPECT_TRUE(mala[0].startsWith("mensaje\tPOP3 Error: -ERR")) << mala[0].toStdString();
    EXPECT_EQ(correr({"mail", base, "--user", "1", "--password", "x", "--host", ""}),
              QStringList({"mensaje\ttxtHost No puede ser nulo"}));
}

} // namespace
} // namespace tesorel::testing
