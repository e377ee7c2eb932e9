#include <gtest/gtest.h>

#include "core/texto_1252.h"
#include "import/cmessage.h"
#include "import/mail_harvest.h"
#include "import_fixture.h"

namespace tesorel::testing
{
namespace
{

TEST(CMessageTexto, CamposCuerpoYCabeceras)
{
    struct Caso {
        const char *nombre;
        QString texto;
        QString CMessage::*campo;
        QString esperado;
    };
    const QString cuerpo = QStringLiteral("\r\nline\r\n\r\nmore");
    const Caso casos[] = {
        {"names in any case", "FROM: \"Tesorel\" <a@b>\r\nsUbJeCt: x\r\n\r\nb", &CMessage::From,
         "\"Tesorel\" <a@b>"},
        {"value trimmed of blanks only", "Subject:  \t hola  \r\n\r\n", &CMessage::Subject, "\t hola"},
        {"later line overwrites", "Received: a\r\nReceived: b\r\n\r\n", &CMessage::Received, "b"},
        {"line without colon ignored", "Subject\r\nSubject: s\r\n\r\n", &CMessage::Subject, "s"},
        {"folded line is a line of its own", "To: a,\r\n to: b\r\n\r\n", &CMessage::MessageTo, "a,"},
        {"colon in the value", "Date: 23 Nov 2026 10:00:00\r\n\r\n", &CMessage::SendDate,
         "23 Nov 2026 10:00:00"},
        {"unknown names dropped", "X-Mailer: m\r\nMessage-ID: <i>\r\n\r\n", &CMessage::MessageID, "<i>"},
        {"body after the first empty line", "A: 1\r\n\r\n" + cuerpo, &CMessage::MessageBody, cuerpo},
        {"headers before it", "A: 1\r\nB: 2\r\n\r\nx\r\n\r\ny", &CMessage::Headers, "A: 1\r\nB: 2"},
        {"empty headers", "\r\n\r\nsolo", &CMessage::MessageBody, "solo"},
    };
    for (const Caso &c : casos) {
        CMessage m;
        m.CreateFromText(c.texto);
        EXPECT_EQ(m.*c.campo, c.esperado) << c.nombre;
        EXPECT_EQ(m.MessageText, c.texto) << c.nombre;
        EXPECT_EQ(m.Size(), c.texto.size()) << c.nombre;
    }
}

TEST(CMessageTexto, SinLineaVaciaFormatoInvalido)
{
    for (const QString &texto :
         {QString(), QStringLiteral("Subject: x\r\n"), QStringLiteral("a\n\nb\r\n\nc")}) {
        CMessage m;
        try {
            m.CreateFromText(texto);
            ADD_FAILURE() << "no error for " << texto.toStdString();
        } catch (const ErrorDeObjeto &e) {
            EXPECT_EQ(e.number(), -2147220891);
            EXPECT_EQ(e.source(), "CMessage.CreateFromText");
            EXPECT_EQ(e.description(), "Invalid message format");
        }
    }
}

TEST(CMessageTexto, ColeccionGuardaDuplicadosYCuentaDesdeUno)
{
    CMessages c;
    auto a = std::make_shared<CMessage>(), b = std::make_shared<CMessage>();
    EXPECT_EQ(c.Add(a, "<id>"), a);
    c.Add(b, "<id>");
    ASSERT_EQ(c.Count(), 2);
    EXPECT_EQ(c.Item(2), b);
    EXPECT_THROW(c.Item(0), RuntimeError);
    c.Remove(1);
    EXPECT_EQ(c.Item(1), b);
}

TEST(CosechaDeCorreo, RemitenteLineasYAdjunto)
{
    EXPECT_TRUE(esDelRemitente("\"Tesorel\" <c@t>"));
    EXPECT_TRUE(esDelRemitente("'Tesorel"));
    EXPECT_FALSE(esDelRemitente("Tesorel <c@t>"));
    EXPECT_FALSE(esDelRemitente("\"tesorel\" <c@t>"));
    EXPECT_FALSE(esDelRemitente("\"Tesore"));
    EXPECT_EQ(lineasDeTexto("a\r\nb\rc\nd\r\n"), QStringList({"a", "b", "c\nd"}));
    EXPECT_EQ(a1252(desde1252(QByteArray("\x80\x81\xe9\x9f", 4))), QByteArray("\x80\x81\xe9\x9f", 4));

    struct Caso {
        const char *nombre;
        QStringList lineas;
        QString adjunto;
        QStringList copiadas;
        bool conNombre, finDeArchivo;
    };
    const QStringList cab = {"--XX", "ct;", "\tname=\"231124.txt\"", "enc", "disp", "\tfilename=\"x\"", ""};
    const QString n = "231124.txt";
    const Caso casos[] = {
        {"cut at its empty line", cab + QStringList{"a", "b", "", "c"}, n, {"a", "b", ""}, true, false},
        {"blank of spaces ends it", cab + QStringList{"a", "   ", "c"}, n, {"a", "   "}, true, false},
        {"a tab is not blank", cab + QStringList{"\t", ""}, n, {"\t", ""}, true, false},
        {"runs out", cab + QStringList{"a"}, n, {"a"}, true, true},
        {"header runs out", cab.mid(0, 5), n, {}, true, true},
        {"no name line", {"a", "b"}, "", {}, false, true},
        {"name at its fixed place", {"name=\"x.txt\""}, ".txt\"", {}, true, true},
    };
    for (const Caso &c : casos) {
        const Adjunto a = leerAdjunto(c.lineas);
        EXPECT_EQ(a.nombre, c.adjunto) << c.nombre;
        EXPECT_EQ(a.lineas, c.copiadas) << c.nombre;
        EXPECT_EQ(a.conNombre, c.conNombre) << c.nombre;
        EXPECT_EQ(a.finDeArchivo, c.finDeArchivo) << c.nombre;
    }
    for (const char *malo : {"", ".", "..", "../../etc/", "..\\..\\x", "a/b", "c:x", "x.txt\"", "a\tb"})
        EXPECT_FALSE(nombreSeguro(QString::fromLatin1(malo))) << malo;
    EXPECT_TRUE(nombreSeguro("231124.txt"));
}

class Cosecha : public ImportFixture
{
  protected:
    Cosecha() { QDir(carpeta()).mkpath("mail"); }
    void mensaje(const QString &from, const QString &nombre, const QString &datos)
    {
        auto m = std::make_shared<CMessage>();
        m->From = from;
        m->Subject = nombre;
        m->MessageBody = "--XX\r\n\tname=\"" + nombre + "\"\r\nh1\r\nh2\r\nh3\r\n\r\n" + datos;
        lista.Add(m);
    }
    void cosechar()
    {
        Cosechar(s, lista, [this](const QString &a) { asuntos << a; });
    }
    CMessages lista;
    QStringList asuntos;
};

TEST_F(Cosecha, NombreHostilNoSaleDeMail)
{
    mensaje("\"Tesorel\"", "../../evil", "x\r\n\r\n");
    mensaje("\"Tesorel\"", "..\\..\\evi", "x\r\n\r\n");
    mensaje("\"Tesorel\"", "231124.txt", "TEF;1\r\n\r\nfuera");
    cosechar();
    EXPECT_EQ(errores, QList<int>({52, 52}));
    EXPECT_EQ(enMail(), QStringList({"231124.txt"}));
    EXPECT_TRUE(QFile::exists(carpeta() + "/mail/provisio.tx1")); // the work file
    EXPECT_FALSE(QFile::exists(carpeta() + "/../evil"));
    EXPECT_EQ(leer(carpeta() + "/mail/231124.txt"), "TEF;1\r\n\r\n");
}

TEST_F(Cosecha, SinNombreTerminaLaCosecha)
{
    mensaje("\"Otro\"", "111111.txt", "x\r\n\r\n");
    auto sinNombre = std::make_shared<CMessage>();
    sinNombre->From = "\"Tesorel\"";
    sinNombre->MessageBody = "solo texto";
    lista.Add(sinNombre);
    mensaje("\"Tesorel\"", "231124.txt", "x\r\n\r\n");
    cosechar();
    EXPECT_EQ(errores, QList<int>({62}));
    EXPECT_EQ(asuntos.size(), 2); // the third message is never reached
    EXPECT_TRUE(enMail().isEmpty());
}

} // namespace
} // namespace tesorel::testing
