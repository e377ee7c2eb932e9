#include "core/runtime_error.h"
#include "store_fixture.h"

#include <set>

using namespace tesorel;
using namespace tesorel::testing;
using tesorel::testing_store::SmallBase;

namespace
{

// The same rows seen through each kind of source: a table walked by rowid,
// a SELECT with ORDER BY (updatable) and a stored query (read-only).
struct SourceCase {
    const char *source;
    bool dateOrder; // rows come by FECHA ascending; else in insertion order
};

const SourceCase kSources[] = {{"quotes", false},
                               {"select * from quotes", false},
                               {"Select * from QUOTES where valor > 0", false},
                               {"select * from quotes order by fecha", true},
                               {"select * from (select * from quotes) order by fecha", true}};

class Navigation : public SmallBase, public ::testing::WithParamInterface<std::tuple<SourceCase, int>>
{
  protected:
    std::unique_ptr<Recordset> open()
    {
        fill(std::get<1>(GetParam()));
        return base->openRecordset(QString::fromUtf8(std::get<0>(GetParam()).source));
    }
    int n() const { return std::get<1>(GetParam()); }
    // VALOR of the row at 0-based position p.
    qlonglong valorAt(long p) const { return std::get<0>(GetParam()).dateOrder ? p + 1 : n() - p; }
};

TEST_P(Navigation, WalksBothWaysWithBofAndEof)
{
    auto rs = open();
    if (n() == 0) {
        EXPECT_TRUE(rs->Bof());
        EXPECT_TRUE(rs->Eof());
        EXPECT_EQ(rs->RecordCount(), 0);
        EXPECT_EQ(rs->AbsolutePosition(), -1);
        EXPECT_EQ(errorNumber([&] { rs->MoveNext(); }), err::NoCurrentRecord);
        EXPECT_EQ(errorNumber([&] { rs->MoveFirst(); }), err::NoCurrentRecord);
        EXPECT_EQ(errorNumber([&] { rs->field(0); }), err::NoCurrentRecord);
        return;
    }
    EXPECT_FALSE(rs->Bof());
    EXPECT_FALSE(rs->Eof());
    EXPECT_EQ(rs->RecordCount(), 1); // only what has been reached
    long seen = 0;
    for (; !rs->Eof(); rs->MoveNext(), ++seen) {
        EXPECT_EQ(rs->AbsolutePosition(), seen);
        EXPECT_EQ(rs->field(QStringLiteral("valor")).toLongLong(), valorAt(seen));
    }
    EXPECT_EQ(seen, n());
    EXPECT_FALSE(rs->Bof());
    EXPECT_EQ(rs->AbsolutePosition(), -1);
    EXPECT_EQ(errorNumber([&] { rs->MoveNext(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rs->field(QStringLiteral("valor")); }), err::NoCurrentRecord);

    rs->MovePrevious(); // from the end back onto the last row
    EXPECT_EQ(rs->field(0).toLongLong(), valorAt(n() - 1));
    for (long p = n() - 1; !rs->Bof(); rs->MovePrevious(), --p)
        EXPECT_EQ(rs->field(0).toLongLong(), valorAt(p));
    EXPECT_FALSE(rs->Eof());
    EXPECT_EQ(errorNumber([&] { rs->MovePrevious(); }), err::NoCurrentRecord);
    rs->MoveNext();
    EXPECT_EQ(rs->field(0).toLongLong(), valorAt(0));
}

TEST_P(Navigation, RecordCountExactAfterMoveLastAndMoveByN)
{
    auto rs = open();
    if (n() == 0) {
        EXPECT_EQ(errorNumber([&] { rs->MoveLast(); }), err::NoCurrentRecord);
        EXPECT_EQ(rs->RecordCount(), 0);
        return;
    }
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), n());
    EXPECT_EQ(rs->AbsolutePosition(), n() - 1);
    EXPECT_EQ(rs->field(0).toLongLong(), valorAt(n() - 1));
    rs->MoveFirst();
    EXPECT_EQ(rs->AbsolutePosition(), 0);
    EXPECT_EQ(rs->RecordCount(), n());

    if (n() >= 5) {
        rs->Move(3);
        EXPECT_EQ(rs->AbsolutePosition(), 3);
        EXPECT_EQ(rs->field(0).toLongLong(), valorAt(3));
        rs->Move(-2);
        EXPECT_EQ(rs->field(0).toLongLong(), valorAt(1));
        rs->setAbsolutePosition(4);
        EXPECT_EQ(rs->field(0).toLongLong(), valorAt(4));
        rs->Move(n()); // past the end
        EXPECT_TRUE(rs->Eof());
        rs->MoveFirst();
        rs->Move(-1);
        EXPECT_TRUE(rs->Bof());
    }
    EXPECT_EQ(errorNumber([&] { rs->setAbsolutePosition(n()); }), 3001);
}

TEST_P(Navigation, FindFirstNextAndNoMatch)
{
    auto rs = open();
    if (n() < 5) {
        // Too few rows for the dates and values below: nothing matches, and
        // the position stays where it was.
        rs->FindFirst(QStringLiteral("Nombre = 'nadie'"));
        EXPECT_TRUE(rs->NoMatch());
        EXPECT_EQ(rs->Eof(), n() == 0);
        return;
    }
    rs->FindFirst(QStringLiteral("FECHA = #03/04/24#"));
    ASSERT_FALSE(rs->NoMatch());
    EXPECT_EQ(rs->field(QStringLiteral("Fecha")), QVariant(QDate(2024, 3, 4)));
    EXPECT_EQ(rs->AbsolutePosition(), std::get<0>(GetParam()).dateOrder ? 3 : n() - 4);

    rs->FindFirst(QStringLiteral("valor > 1 and valor < 4"));
    const qlonglong first = rs->field(QStringLiteral("VALOR")).toLongLong();
    rs->FindNext(QStringLiteral("valor > 1 and valor < 4"));
    ASSERT_FALSE(rs->NoMatch());
    const qlonglong second = rs->field(QStringLiteral("VALOR")).toLongLong();
    EXPECT_EQ(std::set<qlonglong>({first, second}), std::set<qlonglong>({2, 3}));
    rs->FindNext(QStringLiteral("valor > 1 and valor < 4"));
    EXPECT_TRUE(rs->NoMatch());
    EXPECT_EQ(rs->field(QStringLiteral("VALOR")).toLongLong(), second); // left where it was

    rs->FindFirst(QStringLiteral("Nombre = 'nadie'"));
    EXPECT_TRUE(rs->NoMatch());
    EXPECT_EQ(rs->field(QStringLiteral("VALOR")).toLongLong(), second);

    rs->FindLast(QStringLiteral("NOMBRE LIKE 'valor*'"));
    ASSERT_FALSE(rs->NoMatch());
    EXPECT_EQ(rs->field(0).toLongLong(), valorAt(n() - 1));
    rs->FindPrevious(QStringLiteral("NOMBRE LIKE 'valor*'"));
    EXPECT_EQ(rs->field(0).toLongLong(), valorAt(n() - 2));

    EXPECT_EQ(errorNumber([&] { rs->FindFirst(QStringLiteral("nombre = 'D'Oliveira'")); }), err::SyntaxError);

    // A failed search keeps the match state of the one before, both ways.
    rs->FindFirst(QStringLiteral("valor = 2"));
    EXPECT_NE(errorNumber([&] { rs->FindFirst(QStringLiteral("nombre = 'a'b' and valor = 'c'")); }), 0);
    EXPECT_FALSE(rs->NoMatch());
    rs->FindFirst(QStringLiteral("valor = 999"));
    EXPECT_NE(errorNumber([&] { rs->FindFirst(QStringLiteral("nada = 1")); }), 0);
    EXPECT_TRUE(rs->NoMatch());
}

TEST_P(Navigation, FilterThenOpenRecordset)
{
    auto rs = open();
    rs->setFilter(QStringLiteral("[valor] < 3"));
    EXPECT_EQ(rs->Filter(), QStringLiteral("[valor] < 3"));
    auto filtered = rs->OpenRecordset();
    long count = 0;
    for (; !filtered->Eof(); filtered->MoveNext(), ++count)
        EXPECT_LT(filtered->field(QStringLiteral("valor")).toLongLong(), 3);
    EXPECT_EQ(count, std::min(n(), 2));
    rs->setFilter(QString());
    auto all = rs->OpenRecordset();
    if (n() > 0)
        all->MoveLast();
    EXPECT_EQ(all->RecordCount(), n());
}

INSTANTIATE_TEST_SUITE_P(Sources, Navigation,
                         ::testing::Combine(::testing::ValuesIn(kSources), ::testing::Values(0, 1, 7)),
                         [](const ::testing::TestParamInfo<Navigation::ParamType> &info) {
                             // The source's place in the table (three row counts each) and the rows.
                             return "source" + std::to_string(info.index / 3) + "_rows" +
                                    std::to_string(std::get<1>(info.param));
                         });

TEST_F(SmallBase, FieldsByNameInAnyCaseAndByPositionWithTypes)
{
    fill(1);
    auto rs = base->openRecordset(QStringLiteral("Quotes"));
    ASSERT_EQ(rs->fieldCount(), 4);
    EXPECT_EQ(rs->fieldName(1), QStringLiteral("FECHA"));
    EXPECT_EQ(rs->field(QStringLiteral("fecha")), rs->field(1));
    EXPECT_EQ(rs->field(QStringLiteral("Quotes.Fecha")), rs->field(1));
    EXPECT_EQ(rs->field(1).typeId(), QMetaType::QDate);
    EXPECT_EQ(rs->field(0).typeId(), QMetaType::LongLong);
    EXPECT_EQ(rs->field(QStringLiteral("ultimo")).typeId(), QMetaType::Double);
    EXPECT_EQ(rs->field(3), QVariant(QStringLiteral("Valor 1")));
    const Fallo f = falloDe([&] { rs->field(QStringLiteral("nada")); });
    EXPECT_EQ(f.numero, 3265);
    EXPECT_EQ(f.texto, QStringLiteral("No se encontró el elemento en esta colección."));
    EXPECT_EQ(errorNumber([&] { rs->field(4); }), 3265);

    auto max =
        base->openRecordset(QStringLiteral("select max(fecha) as M, max(valor)+1 as sigue from quotes"));
    EXPECT_EQ(max->field(QStringLiteral("m")), QVariant(QDate(2024, 3, 1)));
    EXPECT_EQ(max->field(QStringLiteral("SIGUE")), QVariant(qlonglong(2)));
}

TEST_F(SmallBase, AddNewEditUpdateDeleteRoundTrip)
{
    auto users = base->openRecordset(QStringLiteral("select * from usuario"));
    EXPECT_TRUE(users->Eof());
    for (const char *name : {"ana", "luis"}) {
        users->AddNew();
        users->setField(QStringLiteral("NOMBRE"), QString::fromUtf8(name));
        users->setField(QStringLiteral("maximo_dias"), 250);
        users->Update();
    }
    auto again = base->openRecordset(QStringLiteral("Usuario"));
    ASSERT_FALSE(again->Eof());
    EXPECT_EQ(again->field(QStringLiteral("clave")), QVariant(qlonglong(1)));
    again->MoveNext();
    EXPECT_EQ(again->field(QStringLiteral("clave")), QVariant(qlonglong(2)));
    EXPECT_EQ(again->field(QStringLiteral("Maximo_dias")), QVariant(250.0));

    again->Edit();
    again->setField(QStringLiteral("nombre"), QVariant()); // null stays null
    again->setField(2, 0.0);
    again->Update();
    EXPECT_FALSE(again->field(QStringLiteral("nombre")).isValid());
    EXPECT_EQ(again->field(2), QVariant(0.0));
    auto check = base->openRecordset(QStringLiteral("select * from Usuario where clave = 2"));
    EXPECT_FALSE(check->field(QStringLiteral("nombre")).isValid());
    EXPECT_EQ(check->field(QStringLiteral("maximo_dias")), QVariant(0.0));

    again->MoveFirst();
    again->Delete();
    EXPECT_EQ(errorNumber([&] { again->field(0); }), 3167);
    again->MoveNext();
    EXPECT_EQ(again->field(QStringLiteral("clave")), QVariant(qlonglong(2)));
    again->MoveLast();
    EXPECT_EQ(again->RecordCount(), 1);

    again->Edit();
    again->CancelUpdate();
    EXPECT_EQ(errorNumber([&] { again->Update(); }), 3020);
    EXPECT_EQ(errorNumber([&] { again->setField(0, 3); }), 3020);
}

TEST_F(SmallBase, AddNewKeepsTheCurrentRowAndShowsTheRowAtTheEnd)
{
    fill(3);
    for (const char *source : {"quotes", "select * from quotes order by fecha"}) {
        auto rs = base->openRecordset(QString::fromUtf8(source));
        rs->MoveNext();
        const QVariant before = rs->field(QStringLiteral("valor"));
        rs->AddNew();
        rs->setField(QStringLiteral("VALOR"), 100);
        rs->setField(QStringLiteral("FECHA"), QDate(2024, 4, 1));
        EXPECT_EQ(rs->field(QStringLiteral("valor")), QVariant(100)); // the row being written
        rs->Update();
        EXPECT_EQ(rs->field(QStringLiteral("valor")), before) << source;
        rs->MoveLast();
        EXPECT_EQ(rs->field(QStringLiteral("valor")).toLongLong(), 100) << source;
        EXPECT_EQ(rs->field(QStringLiteral("fecha")), QVariant(QDate(2024, 4, 1)));
        base->execute(QStringLiteral("delete * from quotes where valor = 100"));
    }
}

TEST_F(SmallBase, StoredQueriesAreReadOnlyAndFoundByAnyCase)
{
    fill(4);
    for (const char *name : {"Los que mas suben", "los QUE mas suben", "[Los que mas suben]",
                             "select * from [los que mas suben]"}) {
        auto rs = base->openRecordset(QString::fromUtf8(name));
        ASSERT_FALSE(rs->Eof()) << name;
        EXPECT_EQ(rs->field(QStringLiteral("valor")), QVariant(qlonglong(4))) << name;
        EXPECT_EQ(errorNumber([&] { rs->AddNew(); }), 3027);
        EXPECT_EQ(errorNumber([&] { rs->Edit(); }), 3027);
    }
    auto joined = base->openRecordset(
        QStringLiteral("select q.valor, u.nombre from quotes q left join usuario u on q.valor = u.clave"));
    EXPECT_EQ(errorNumber([&] { joined->Edit(); }), 3027);
}

TEST_F(SmallBase, MissingTableFailsWithTheEngineMessage)
{
    for (const char *source : {"nada", "select * from nada where x = 1", "Los que menos suben"}) {
        const Fallo f = falloDe([&] { base->openRecordset(QString::fromUtf8(source)); });
        EXPECT_EQ(f.numero, 3078) << source;
        EXPECT_TRUE(f.texto.startsWith(
            QStringLiteral("El motor de base de datos no puede encontrar la tabla o consulta de entrada '")));
    }
}

TEST_F(SmallBase, DeletedRowInTheMiddleOfAKeysetWalk)
{
    fill(5);
    auto rs = base->openRecordset(QStringLiteral("select * from quotes"));
    rs->Move(2);
    const qlonglong gone = rs->field(0).toLongLong();
    rs->Delete();
    rs->MoveNext();
    EXPECT_EQ(rs->field(0).toLongLong(), gone - 1); // rows were inserted newest first
    EXPECT_EQ(rs->AbsolutePosition(), 2);
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 4);
}

// A source opened only to be filtered and opened again is never run: a
// statement that fails in the engine (abs of the smallest whole number)
// fails at the first read of the filtered set, not at either open.
TEST_F(SmallBase, OpeningToFilterRunsNothingUntilTheFirstRead)
{
    fill(3);
    for (const char *source :
         {"select abs(-9223372036854775807 - 1) + valor as x, valor from quotes",
          "select abs(-9223372036854775807 - 1) + valor as x, valor from quotes order by valor"}) {
        std::unique_ptr<Recordset> filtered;
        auto rs = base->openRecordset(QString::fromUtf8(source));
        rs->setFilter(QStringLiteral("[valor] > 0"));
        ASSERT_NO_THROW(filtered = rs->OpenRecordset()) << source;
        EXPECT_NE(errorNumber([&] { filtered->Eof(); }), 0) << source;
    }
}

} // namespace
