#include "booking_fixture.h"

#include "portfolio/serie_cartera.h"
#include "store/valor.h"

namespace tesorel::testing
{
namespace
{

const QDate d1(2024, 1, 2);

struct FilaLeida {
    QDate fecha;
    double anterior, ultimo, volumen, maximo, efect;
};

struct Serie : CarteraBase {
    QDate dia(int n) const { return d1.addDays(n - 1); }
    std::vector<FilaLeida> serie()
    {
        Query q(db, "select FECHA, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, EFECT from bolsa where VALOR = ? order "
                    "by FECHA, rowid");
        q.bind(1, valor::codigoCartera(s.Usuario_Numero));
        std::vector<FilaLeida> r;
        while (q.next())
            r.push_back({q.date(0), q.number(1), q.number(2), q.number(3), q.number(4), q.number(5)});
        return r;
    }
};

TEST_F(Serie, RowsStartWithTheFirstPurchaseAndNewMoneyMovesAnteriorAndUltimoAlike)
{
    for (int n = 1; n <= 5; ++n) {
        cotizacion(1, dia(n), n < 3 ? 10 + n : 13, 0, 1000 * n); // 11 12 13 13 13
        cotizacion(2, dia(n), 20, 0, 3000);
    }
    apunte(1, dia(3), 100, 1300);   // worth its money at the close
    apunte(2, dia(4), 50, 1000);    // new money worth exactly 1000
    apunte(1, dia(5), -100, -1500); // sold at the close
    int relojes = 0;
    Generar_Serie_Cartera(s, 0, {[&](bool on) { relojes += on ? 1 : 10; }, {}});
    EXPECT_EQ(relojes, 11) << "the hourglass goes on and off once";
    EXPECT_EQ(ui.eventsYielded, 5) << "one yield a date";
    const auto r = serie();
    ASSERT_EQ(r.size(), 3u);
    struct Caso {
        QDate fecha;
        double anterior, ultimo, volumen;
    } casos[] = {
        {dia(3), 1.3, 1.3, 3000},
        {dia(4), 2.3, 2.3, (4000 + 3000) / 2},
        {dia(5), 2.3 - 1.5, 1.0, 3000}, // the sale's money leaves Anterior
    };
    for (size_t i = 0; i < r.size(); ++i) {
        EXPECT_EQ(r[i].fecha, casos[i].fecha) << i;
        EXPECT_DOUBLE_EQ(r[i].anterior, casos[i].anterior) << i;
        EXPECT_DOUBLE_EQ(r[i].ultimo, casos[i].ultimo) << i;
        EXPECT_DOUBLE_EQ(r[i].volumen, casos[i].volumen) << i;
        EXPECT_DOUBLE_EQ(r[i].efect, casos[i].volumen * r[i].ultimo / 1000) << i;
    }
    // A rebuild replaces the series.
    s.Fechas_Serie = {};
    Generar_Serie_Cartera(s, 0);
    EXPECT_EQ(serie().size(), 3u);
}

TEST_F(Serie, AHoldingWithoutAQuoteIsLeftOutOfTheDay)
{
    cotizacion(1, dia(1), 10);
    cotizacion(2, dia(1), 5);
    cotizacion(1, dia(2), 11); // no quote of 2 that day
    apunte(1, dia(1), 10, 100);
    apunte(2, dia(1), 10, 50);
    Generar_Serie_Cartera(s, 0);
    const auto r = serie();
    ASSERT_EQ(r.size(), 2u);
    EXPECT_DOUBLE_EQ(r[0].ultimo, 0.15);
    EXPECT_DOUBLE_EQ(r[1].ultimo, 0.11);
}

TEST_F(Serie, ModeOneAddsTheNewDaysAndReturnsAtOnceWhenItHasSeenTheLastDay)
{
    cotizacion(1, dia(1), 10);
    cotizacion(1, dia(2), 11);
    apunte(1, dia(1), 10, 100);
    Generar_Serie_Cartera(s, 1);
    ASSERT_EQ(serie().size(), 2u);
    EXPECT_EQ(s.Fechas_Serie[1], dia(2));

    cotizacion(1, dia(3), 12);
    s.Fechas_Serie = {};
    Generar_Serie_Cartera(s, 1);
    const auto r = serie();
    ASSERT_EQ(r.size(), 4u) << "the series' last day is computed again and stored once more";
    EXPECT_EQ(r[1].fecha, dia(2));
    EXPECT_EQ(r[2].fecha, dia(2));
    EXPECT_DOUBLE_EQ(r[2].anterior, 0.1) << "its first day starts from the money of all the past";
    EXPECT_DOUBLE_EQ(r[3].anterior, 0.11);
    EXPECT_DOUBLE_EQ(r[3].ultimo, 0.12);

    Generar_Serie_Cartera(s, 1); // learns that the series reaches the last day
    const int yields = ui.eventsYielded;
    const size_t filas = serie().size();
    int relojes = 0;
    Generar_Serie_Cartera(s, 1, {[&](bool) { ++relojes; }, {}});
    EXPECT_EQ(ui.eventsYielded, yields);
    EXPECT_EQ(serie().size(), filas);
}

TEST_F(Serie, FiftyValuesAtOnceAndAFreedSlotReused)
{
    for (int v = 1; v <= 52; ++v) {
        empresa(v, QString("V%1").arg(v));
        cotizacion(v, dia(1), 1);
        cotizacion(v, dia(2), 1);
        cotizacion(v, dia(3), 1);
    }
    for (int v = 1; v <= 50; ++v)
        apunte(v, dia(1), 1, 1);
    apunte(1, dia(2), -1, -1); // frees a slot
    apunte(51, dia(2), 1, 1);  // takes it
    Generar_Serie_Cartera(s, 0);
    EXPECT_TRUE(errores.isEmpty());
    EXPECT_DOUBLE_EQ(serie()[1].ultimo, 0.05);

    apunte(52, dia(3), 1, 1); // a 51st value at once
    s.Fechas_Serie = {};
    Generar_Serie_Cartera(s, 0);
    EXPECT_EQ(errores, QStringList({QString::number(err::SubscriptOutOfRange)}));
    EXPECT_DOUBLE_EQ(serie()[2].ultimo, 0.05) << "the 51st is left out";
}

TEST_F(Serie, NoStoredDatesIsReported)
{
    Generar_Serie_Cartera(s, 0);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "error generando cartera");
    EXPECT_EQ(ui.messages[0].title, "Atención");
}

} // namespace
} // namespace tesorel::testing
