#include "sample_base.h"

#include "core/runtime_error.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tesorel;
using tesorel::testing::escribirArchivo;
using tesorel::testing::SampleBase;
using tesorel::testing::scalar;

TEST(Csv, ParsesFieldsAsTheDataFolderWritesThem)
{
    const struct {
        const char *text;
        QStringList header;
        QVector<QStringList> rows;
    } cases[] = {
        {"a,b\r\n1,2\r\n", {"a", "b"}, {{"1", "2"}}},
        {"\xEF\xBB\xBF"
         "a,b\n1,2",
         {"a", "b"},
         {{"1", "2"}}},                                                 // BOM, no final line end
        {"a,b\n1,\n,2\n", {"a", "b"}, {{"1", ""}, {"", "2"}}},          // empty fields
        {"a\n\"x, y\"\n", {"a"}, {{"x, y"}}},                           // comma in quotes
        {"a\n\"say \"\"hi\"\"\"\n", {"a"}, {{"say \"hi\""}}},           // doubled quotes
        {"a,b\n\"two\nlines\",z\n", {"a", "b"}, {{"two\nlines", "z"}}}, // line end in quotes
        {"a\n\n1\n\n", {"a"}, {{"1"}}},                                 // blank lines skipped
        {"a,b\n\"\",x\n", {"a", "b"}, {{"", "x"}}},
        {"Campo2\nÍndices café\n", {"Campo2"}, {{"Índices café"}}}, // UTF-8
        {"", {}, {}},
        {"a\n\"unterminated\n", {"a"}, {{"unterminated\n"}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        const CsvTable t = parseCsv(QByteArray(c.text));
        EXPECT_EQ(t.header, c.header);
        EXPECT_EQ(t.rows, c.rows);
    }
}

// A failed build leaves the target as it was: a file already there untouched, no file otherwise.
TEST(BuildBase, AFailedBuildLeavesTheTargetAsItWas)
{
    QTemporaryDir dir;
    escribirArchivo(dir.filePath("taken.mdb"), "not a base");
    escribirArchivo(dir.filePath("broken/nosuchtable.csv"), "x\n1\n");
    QFile::copy(SampleBase::dataDir() + "/schema.sql", dir.filePath("broken/schema.sql"));
    const struct {
        const char *target;
        QString dataDir;
        int error;
    } cases[] = {
        {"taken.mdb", SampleBase::dataDir(), 58}, // "file already exists"
        {"never.mdb", dir.filePath("no-such-folder"), err::FileNotFound},
        {"never.mdb", dir.filePath("broken"), err::EngineError},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.dataDir.toStdString());
        const QString path = dir.filePath(c.target);
        const bool existia = QFile::exists(path);
        BaseBuildOptions options;
        options.dataDir = c.dataDir;
        try {
            buildBase(path, options);
            ADD_FAILURE() << "built";
        } catch (const RuntimeError &e) {
            EXPECT_EQ(e.number(), c.error);
        }
        QFile f(path);
        if (existia) {
            ASSERT_TRUE(f.open(QIODevice::ReadOnly));
            EXPECT_EQ(f.readAll(), QByteArray("not a base"));
        } else {
            EXPECT_FALSE(f.exists());
        }
    }
}

TEST(BuildBase, WithoutSampleOnlyReferenceData)
{
    const QString path = SampleBase::instance().tempFile("plain.mdb");
    QFile::remove(path);
    BaseBuildOptions options;
    options.dataDir = SampleBase::dataDir();
    buildBase(path, options);
    const auto db = Database::open(path);
    EXPECT_EQ(scalar(*db, "select count(*) from bolsa").toInt(), 0);
    EXPECT_EQ(scalar(*db, "select count(*) from Usuario").toInt(), 0);
    EXPECT_EQ(scalar(*db, "select count(*) from Usuario_Actual").toInt(), 1);
    EXPECT_EQ(scalar(*db, "select count(*) from Codigo_Empresas").toInt(), 131);
    EXPECT_EQ(scalar(*db, "select count(*) from comisiones").toInt(), 16);
    // Numbers of the CSV files are stored as numbers, empty fields as null.
    EXPECT_EQ(scalar(*db, "select count(*) from comisiones where tanto > 0.1 and tanto < 0.3").toInt(), 5);
    EXPECT_TRUE(scalar(*db, "select invertia from codigo_empresas where codigo = 1").isNull());
    EXPECT_EQ(scalar(*db, "select abreviatura11 from codigo_empresas where abreviatura3 = 'SAN'").toString(),
              "SANTANDER");
}
