#include "sample_base.h"
#include "store/query.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

int ledger(const QStringList &args, QString *out = nullptr)
{
    const SalidaCli o = correrCli(QStringList{"ledger"} + args);
    if (out)
        *out = o.out;
    return o.codigo;
}

// Which rows, in which order, is the ledger model's (LedgerFixture.*): here options and format.
TEST(LedgerCommand, RowsFilteredAndSortedAsTheWindowShowsThem)
{
    CopiaDeMuestra c;
    const struct {
        QStringList opciones;
        QString salida;
    } casos[] = {
        {{"--value", "santander", "--order", "valor"},
         "12/02/2024\tcompré\t300\tSANTANDER\t2,27\t689,20\ten Bankinter\n"
         "13/01/2025\tcompré\t200\tSANTANDER\t3,22\t652,30\ten Bankinter\n"},
        {{"--before-2006"}, ""},
        {{"--order", "valor", "--value", "IBERDROLA"},
         "16/09/2024\tcompré\t500\tIBERDROLA\t40,46\t20273,46\ten Bankinter\n"
         "15/09/2025\tvendí\t200\tIBERDROLA\t35,09\t7001,26\ten Bankinter\n"},
    };
    for (const auto &caso : casos) {
        SCOPED_TRACE(caso.opciones.join(' ').toStdString());
        QString out;
        ASSERT_EQ(ledger(QStringList{c.base, "--user", "1"} + caso.opciones, &out), 0);
        EXPECT_EQ(out, caso.salida);
    }
    EXPECT_EQ(ledger({c.base, "--user", "1", "--order", "nombre"}), 2);
    EXPECT_EQ(ledger({c.base, "--user", "1", "--txe", c.dir.path()}), 2);
}

TEST(LedgerCommand, ReportAndTaxExportOfTheListedRows)
{
    CopiaDeMuestra c;
    const QString html = c.dir.filePath("h.htm");
    ASSERT_TRUE(QDir(c.dir.path()).mkpath("AEAT/txe2005"));
    QString out;
    for (int vez = 0; vez < 2; ++vez)
        ASSERT_EQ(ledger({c.base, "--user", "1", "--value", "SANTANDER", "--html", html, "--txe",
                          c.dir.path(), "--titular", "ANA"},
                         &out),
                  0);
    EXPECT_TRUE(out.endsWith("mensaje\tExportación realizada con exito, compruebe los importes\n"));
    QFile f(html);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray texto = f.readAll();
    EXPECT_TRUE(
        texto.contains("<TD ALIGN = \"RIGHT\" VALIGN=\"TOP\"><P>compr\xe9&nbsp;&nbsp; </P></TD>\r\n"));
    EXPECT_TRUE(texto.endsWith("</TR>\r\n</BODY></HTML>\r\n"));

    // What the export writes is the ledger model's (LedgerFixture.TaxExport*): here both runs reach it.
    auto txe = Database::open(c.dir.filePath("AEAT/txe2005/Carteras2005.mdb"));
    EXPECT_EQ(scalar(*txe, "select count(*) from operaciones").toInt(), 4);

    // No export folder: the error is reported, the closing message still shows.
    ASSERT_EQ(ledger({c.base, "--user", "1", "--txe", c.dir.filePath("nada"), "--titular", "X"}, &out), 0);
    EXPECT_TRUE(out.contains("error\t3044\t"));
    EXPECT_TRUE(out.endsWith("mensaje\tExportación realizada con exito, compruebe los importes\n"));
    EXPECT_FALSE(QFile::exists(c.dir.filePath("nada/AEAT/txe2005/Carteras2005.mdb")));
}

} // namespace
} // namespace tesorel::testing
