#include "sample_base.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace tesorel;
using tesorel::testing::SampleBase;

using tesorel::testing::correrCli;
using Outcome = tesorel::testing::SalidaCli;

TEST(CliProgram, ExitCodesAndMessages)
{
    const QString base = SampleBase::instance().path();
    const struct {
        QStringList args;
        int exitCode;
        const char *stderrPattern;
    } cases[] = {
        {{}, 2, "^Uso: tesorel-cli"},
        {{"nosuchcommand"}, 2, "^Uso: "},
        {{"sql", base}, 2, "^Uso: "},
        {{"makebase"}, 2, "^Uso: "},
        {{"makebase", "x.mdb", "--data"}, 2, "^Uso: "},
        {{"makebase", "x.mdb", "--bogus"}, 2, "^Uso: "},
        {{"makebase", base, "--data", SampleBase::dataDir()}, 1, "^Error 58: "},
        {{"sql", base, "select * from nosuchtable"}, 1, "^Error \\d+: \\S"},
        {{"sql", SampleBase::instance().tempFile("missing.mdb"), "Fechas"}, 1, "^Error 3024: "},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const Outcome o = correrCli(c.args);
        EXPECT_EQ(o.codigo, c.exitCode);
        EXPECT_TRUE(QRegularExpression(c.stderrPattern).match(o.err).hasMatch()) << o.err.toStdString();
        EXPECT_TRUE(o.out.isEmpty()) << o.out.toStdString();
    }
    EXPECT_FALSE(QFile::exists(SampleBase::instance().tempFile("missing.mdb")));
}

TEST(CliProgram, RowsAsTabSeparatedText)
{
    const QString base = SampleBase::instance().path();
    const struct {
        const char *statement;
        const char *output;
    } cases[] = {
        {"select codigo, nombre, invertia from codigo_empresas where codigo <= 2 order by codigo",
         "Codigo\tNOMBRE\tInvertia\n1\tIBEX 35\t\\N\n2\tINDICE GENERAL MADRID\t\\N\n"},
        {"Ultimodia", "Máxdefecha\n2026-11-20\n"},
        {"select tanto, minimo, desde, hasta from comisiones where entidad = 1 and desde > 3000",
         "Tanto\tminimo\tdesde\tHasta\n0.2\t9\t3000.01\t50000\n0.15\t0\t50000.01\t999999999\n"},
        {"select * from codigo_empresas where codigo = 0",
         "Codigo\tNOMBRE\tABREVIATURA3\tABREVIATURA11\tInvertia\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.statement);
        const Outcome o = correrCli({"sql", base, c.statement});
        EXPECT_EQ(o.codigo, 0) << o.err.toStdString();
        EXPECT_EQ(o.out, QString::fromUtf8(c.output));
    }
}

TEST(CliProgram, StatementsThatChangeRowsPrintNoRows)
{
    const tesorel::testing::CopiaDeMuestra copia;
    const Outcome del = correrCli({"sql", copia.base, "delete * from bolsa where [fecha] = #11-20-26#"});
    EXPECT_EQ(del.codigo, 0) << del.err.toStdString();
    EXPECT_TRUE(del.out.isEmpty());
    const Outcome last = correrCli({"sql", copia.base, "Ultimodia"});
    EXPECT_EQ(last.out, QString::fromUtf8("Máxdefecha\n2026-11-19\n"));
}
