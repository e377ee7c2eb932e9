#include <gtest/gtest.h>

#include <QFile>
#include <cmath>

#include "core/numbers.h"

#include "store/coleccion.h"
#include "store/error_routine.h"
#include "store/helpers.h"
#include "store/quote_cursor.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"
#include "support/test_base.h"

using namespace tesorel;

namespace
{

TEST(RecordSeto, BoundsAreTestedOnlyByTheFields)
{
    RecordSeto rs;
    rs.setRecordcount(0);
    rs.Movefirst();
    EXPECT_TRUE(rs.Eof());
    EXPECT_THROW(rs.Ultimo(), RuntimeError);

    rs.setRecordcount(2.5); // rounds half to even
    EXPECT_EQ(rs.recordcount(), 2);
    rs.setRecordcount(3.5);
    EXPECT_EQ(rs.recordcount(), 4);

    rs.MoveLast();
    EXPECT_FALSE(rs.Eof());
    rs.setUltimo(7.5);
    rs.Movenext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_THROW(rs.setUltimo(1), RuntimeError);
    rs.MovePrevious();
    EXPECT_EQ(rs.Ultimo(), 7.5);
    rs.Movefirst();
    rs.MovePrevious();
    EXPECT_EQ(rs.AbsolutePosition(), 0);
    EXPECT_THROW(rs.Fecha(), RuntimeError);

    rs.setRecordcount(4); // earlier contents are lost
    rs.MoveLast();
    EXPECT_EQ(rs.Ultimo(), 0);
}

TEST(RecordSeto, FillReadsEachFieldByItsOwnRule)
{
    tesorel::testing::TestBase base;
    base.db->execute(
        "insert into bolsa (valor, fecha, anterior, ultimo, dif, volumen, maximo, minimo, efect) "
        "values (7, #03/04/24#, 10, 10.5, 5, 1500, 10.75, 9.875, 15750.5)");
    base.db->execute(
        "insert into bolsa (valor, fecha, anterior, ultimo, dif, volumen, maximo, minimo, efect) "
        "values (7, #03-01-2024#, 9.5, 10, null, 2000.75, 10, 9.5, 1.5E-07)");
    base.db->execute("insert into bolsa (valor, fecha, ultimo) values (7, null, 0.1)");
    auto rs = base.db->openRecordset("Select * from bolsa where valor = 7 order by fecha");

    RecordSeto cursor;
    cursor.fillFrom(*rs);
    ASSERT_EQ(cursor.recordcount(), 3);

    cursor.Movefirst(); // the null date sorts first and stays empty
    EXPECT_FALSE(cursor.Fecha().isValid());
    EXPECT_EQ(cursor.Ultimo(), 0.1);
    EXPECT_EQ(cursor.Volumen(), 0);

    cursor.Movenext();
    EXPECT_EQ(cursor.Fecha(), QDate(2024, 3, 1));
    EXPECT_EQ(cursor.Dif(), 0); // null change
    EXPECT_EQ(cursor.Anterior(), 9.5);
    // Volumes pass through the screen's text and the point rule: the
    // decimal comma ends the number.
    EXPECT_EQ(cursor.Volumen(), 2000);
    EXPECT_EQ(cursor.Efect(), 1); // "1,5E-07" reads as 1

    cursor.Movenext();
    EXPECT_EQ(cursor.Fecha(), QDate(2024, 3, 4));
    EXPECT_EQ(cursor.Valor(), 7);
    EXPECT_EQ(cursor.Ultimo(), 10.5);
    EXPECT_EQ(cursor.Maximo(), 10.75);
    EXPECT_EQ(cursor.minimo(), 9.875);
    EXPECT_EQ(cursor.Dif(), 5);
    EXPECT_EQ(cursor.Efect(), 15750);
    cursor.Movenext();
    EXPECT_TRUE(cursor.Eof());
}

struct Item {
    int id;
};

TEST(Coleccion, AppendsCountButPlacesDoNot)
{
    Coleccion<Item> c;
    c.Add(std::make_shared<Item>(Item{9}), 5);
    EXPECT_EQ(c.Count(), 0);
    EXPECT_EQ(c.Item(5), nullptr);

    c.Add(std::make_shared<Item>(Item{1}));
    c.Add(std::make_shared<Item>(Item{2}), 0);
    EXPECT_EQ(c.Count(), 2);
    EXPECT_EQ(c.Item(2)->id, 2);
    c.Add(std::make_shared<Item>(Item{3}), 1);
    EXPECT_EQ(c.Item(1)->id, 3);
    EXPECT_EQ(c.Count(), 2);

    EXPECT_THROW(c.Item(0), RuntimeError);
    EXPECT_THROW(c.Add(nullptr, 1001), RuntimeError);
    EXPECT_EQ(c.Item(3), nullptr);
}

TEST(Texts, ReplaceAllStartsAgainAfterEachReplacement)
{
    QString t = "a--b--c";
    EXPECT_EQ(Reemplazar_Todo(t, "--", "-"), "a-b-c");
    EXPECT_EQ(t, "a-b-c");
    QString shrinking = "xxxx";
    EXPECT_EQ(Reemplazar_Todo(shrinking, "xx", "x"), "x"); // a fresh search each time

    QString first = "1.234.567";
    EXPECT_EQ(Reemplazar_Primero(first, ".", ""), "1234.567");
    EXPECT_EQ(first, "1234.567");
    QString none = "abc";
    EXPECT_EQ(Reemplazar_Primero(none, "z", "y"), "abc");
    QString empty;
    EXPECT_EQ(Reemplazar_Primero(empty, "a", "b"), "");
}

TEST(Texts, TextoNuloWritesAsTheScreenDoes)
{
    EXPECT_EQ(Texto_Nulo(QVariant()), "");
    EXPECT_EQ(Texto_Nulo(12.5), "12,5");
    EXPECT_EQ(Texto_Nulo(qlonglong(34001)), "34001");
    EXPECT_EQ(Texto_Nulo(QDate(2024, 3, 4)), "04/03/2024");
    EXPECT_EQ(Texto_Nulo(QString("x")), "x");
}

struct ErrorReporting : ::testing::Test, tesorel::testing::SesionDePrueba {
    RuntimeError failure{3021, "No hay registro activo."};

    QString log() const
    {
        QFile f(base.folder() + "/error.txt");
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString("(none)");
    }
};

TEST_F(ErrorReporting, SilentOnTheRememberedMarkAndAfterItIgnoreSilencesTheRestOfTheSession)
{
    s.Registrar_Error(failure);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(log(), "(none)");

    s.Ubicacion_Error = 200204;
    ui.answers = {mb::Ignore};
    s.Registrar_Error(failure);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "3021 No hay registro activo.");
    EXPECT_EQ(ui.messages[0].title, "Atención");
    EXPECT_EQ(ui.messages[0].style, 18);
    EXPECT_TRUE(log().contains(",3021,\"No hay registro activo.\",200204"));

    s.Registrar_Error(RuntimeError(6, "Desbordamiento"));
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_FALSE(ui.ended);
}

TEST_F(ErrorReporting, RetryShowsAgainAndAbortEnds)
{
    s.Ubicacion_Error = 1;
    ui.answers = {mb::Retry, mb::Abort};
    s.Registrar_Error(failure);
    EXPECT_FALSE(ui.ended);
    s.Registrar_Error(RuntimeError(6, "Desbordamiento"));
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_TRUE(ui.ended);
    EXPECT_TRUE(log().contains(",6,\"Desbordamiento\",1")); // only the last failure
    EXPECT_FALSE(log().contains("3021"));
}

TEST(ErrorRecord, FieldsInTheirOrder)
{
    const QDateTime when(QDate(2026, 11, 23), QTime(9, 5, 7));
    EXPECT_EQ(ErrorRoutine::registro(when, RuntimeError(13, "No coinciden los tipos"), 200204),
              "\"23/11/2026\",\"09:05:07\",13,\"No coinciden los tipos\",200204");
}

TEST_F(ErrorReporting, AGuardedStepIsSkippedAndTheProcedureGoesOn)
{
    s.Ubicacion_Error = 3;
    int done = 0;
    EXPECT_FALSE(s.paso([&] { throw RuntimeError(11, "División por cero"); }));
    EXPECT_FALSE(s.paso([&] { throw std::runtime_error("engine"); }));
    EXPECT_TRUE(s.paso([&] { ++done; }));
    EXPECT_EQ(done, 1);
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].prompt, "3000 engine");
}

// The quick readings must give what the long way through the text gives.
TEST(Texts, QuickFieldReadingsAgreeWithTheTextRoute)
{
    std::vector<QVariant> values = {QVariant(),
                                    0.0,
                                    -0.0,
                                    0.1 + 0.2,
                                    0.05,
                                    1.5e-7,
                                    999999.9999999999,
                                    123456.123456789,
                                    1e15,
                                    -1e15 + 1,
                                    1e20,
                                    qlonglong(34001),
                                    qlonglong(-7),
                                    qlonglong(1000000000000000LL),
                                    QString("1,5"),
                                    QString("abc"),
                                    QDate(2024, 3, 4)};
    // And a deterministic spread of prices, volumes and money.
    quint64 x = 0x9E3779B97F4A7C15ull;
    for (int i = 0; i < 20000; ++i) {
        x ^= x << 13, x ^= x >> 7, x ^= x << 17;
        const double unit = double(x >> 11) / double(1ull << 53);
        const int scale = int(x % 9);
        values.emplace_back((unit - 0.2) * std::pow(10.0, scale - 2));
        values.emplace_back(std::round(unit * 1e6) / std::pow(10.0, scale % 5));
    }
    for (const QVariant &v : values) {
        const QString text = Texto_Nulo(v);
        EXPECT_EQ(Lectura_Local(v), Numero_Cdbl(text)) << text.toStdString();
        EXPECT_EQ(Lectura_Punto(v), Numero_Val(text)) << text.toStdString();
    }
}

struct UsuarioTest : ::testing::Test, tesorel::testing::SesionDePrueba {
    void SetUp() override
    {
        base.db->executeNative(
            "INSERT INTO bolsa (VALOR, FECHA, ULTIMO) VALUES (1, '2024-01-02', 10),"
            "(1, '2024-03-28', 11), (2, '2024-02-15', 5);"
            "INSERT INTO Usuario (clave, NOMBRE, Password, email, Direccion, Poblacion, CodigoPost)"
            " VALUES (3, 'ana', 'clave', 'ana@yahoo.es', 'pop.x', 'smtp.x', 'ana');");
        s.Usuario_Numero = 3;
    }
};

TEST_F(UsuarioTest, IntervalFallsBackToTheQuotesEnds)
{
    const QDate primero(2024, 1, 2), ultimo(2024, 3, 28), propio(2024, 2, 1);
    struct Caso {
        const char *fila; // the user's interval row, or none
        QDate inicial, final_;
        bool primerDiaAbierto, ultimoDiaAbierto;
    } casos[] = {
        {nullptr, primero, ultimo, true, true},
        {"INSERT INTO intervalo VALUES (3, NULL, NULL)", primero, ultimo, true, true},
        {"INSERT INTO intervalo VALUES (3, '2024-02-01', NULL)", propio, ultimo, false, true},
        {"INSERT INTO intervalo VALUES (3, NULL, '2024-02-01')", primero, propio, true, false},
        {"INSERT INTO intervalo VALUES (3, 'no es fecha', 'tampoco')", primero, ultimo, true, true},
        // Another user's row is not this user's interval.
        {"INSERT INTO intervalo VALUES (4, '2024-02-01', '2024-02-01')", primero, ultimo, true, true},
    };
    for (const Caso &c : casos) {
        base.db->executeNative("DELETE FROM intervalo");
        if (c.fila)
            base.db->executeNative(c.fila);
        Usuario u(s);
        SCOPED_TRACE(c.fila ? c.fila : "no row");
        EXPECT_EQ(u.FechaInicial(), c.inicial);
        EXPECT_EQ(u.FechaFinal(), c.final_);
        EXPECT_EQ(u.PrimerDia(), c.primerDiaAbierto);
        EXPECT_EQ(u.Ultimodia(), c.ultimoDiaAbierto);
    }
    // The stored query of the distinct days hops along them in order.
    auto fechas = base.db->openRecordset("Select * From Fechas Order by Fecha");
    QList<QDate> dias;
    for (; !fechas->Eof(); fechas->MoveNext())
        dias << fechas->field("fecha").toDate();
    EXPECT_EQ(dias, QList<QDate>({primero, QDate(2024, 2, 15), ultimo}));
}

TEST_F(UsuarioTest, WritingAnEndAddsTheRowOnceAndThenEditsIt)
{
    Usuario u(s);
    u.setFechaFinal(QDate(2024, 2, 10));
    EXPECT_EQ(u.FechaFinal(), QDate(2024, 2, 10));
    EXPECT_TRUE(u.PrimerDia());
    u.setFechaInicial(QDate(2024, 1, 15));
    u.setFechaFinal(QDate(2024, 2, 20));
    EXPECT_EQ(u.FechaInicial(), QDate(2024, 1, 15));
    EXPECT_EQ(u.FechaFinal(), QDate(2024, 2, 20));
    auto rs = base.db->openRecordset("select count(*) as n from intervalo");
    EXPECT_EQ(rs->field("n").toInt(), 1);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(UsuarioTest, NumeroDoesNotChooseTheUser)
{
    Usuario u(s);
    u.setNumero(99);
    u.Update();
    EXPECT_EQ(u.email(), "ana@yahoo.es");
    EXPECT_EQ(u.Pop(), "pop.x");
    EXPECT_EQ(u.Smtp(), "smtp.x");
    EXPECT_EQ(u.UsuarioPop(), "ana");
    s.Usuario_Numero = 7; // nobody
    u.Update();
    EXPECT_EQ(u.email(), "");
    EXPECT_EQ(u.Pop(), "");
    EXPECT_EQ(u.UsuarioPop(), "");
}

} // namespace
