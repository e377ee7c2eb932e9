#include "charts/quote_loader.h"
#include "charts/split.h"
#include "core/paleta.h"
#include "price_chart_fixture.h"
#include "store/quote_cursor.h"
#include "store/recordset.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

using Kind = RecordingSurface::Kind;

TEST(PriceChart, WindowReadsOneRecordMoreThanItDraws)
{
    ChartFixture f;
    f.serie(ChartFixture::kValor, 500);
    f.s.Maximo_Dias_Sesion = 100;
    f.g.DibujarGrafica();
    EXPECT_EQ(f.g.GraficaPrecio.NumPoints(), 100);
    EXPECT_EQ(f.g.GraficaVolumen.NumPoints(), 100);
    EXPECT_EQ(f.g.puntosEscritos(), 101);
    // Read from position 400: the newest is point 101, counted in the extremes.
    EXPECT_EQ(f.g.GraficaPrecio.fechaDe(1), QDate(2024, 1, 1).addDays(399));
    EXPECT_EQ(f.g.GraficaPrecio.fechaDe(101), QDate(2024, 1, 1).addDays(499));
    EXPECT_EQ(f.g.etiquetas.Fecha_Inicio.texto, QDate(2024, 1, 1).addDays(399).toString("dd/MM/yyyy"));
    EXPECT_EQ(f.g.etiquetas.Etiqueta_Maximo.texto, QStringLiteral("509,50 €"));
    EXPECT_EQ(f.g.etiquetas.Etiqueta_Minimo.texto, QStringLiteral("408,50 €"));
    // First close 409, last 509.
    EXPECT_EQ(f.g.etiquetas.Etiqueta_Porcentaje_total.texto, QStringLiteral("24,45"));
    EXPECT_FALSE(f.g.dibujando());
}

TEST(PriceChart, PercentageLabelByWindow)
{
    struct Caso {
        double dias;
        QString etiqueta;
    } casos[] = {
        {0, QStringLiteral("14,00")}, // the whole series shows the last close
        {9, QStringLiteral("40,00")}, // a window past the count: all, against the first
        {3, QStringLiteral("27,27")}, // 14 against 11
        {1, QStringLiteral("7,69")},  // 14 against 13
    };
    for (const Caso &c : casos) {
        ChartFixture f;
        f.serie(ChartFixture::kValor, 5);
        f.s.Maximo_Dias_Sesion = c.dias;
        f.g.DibujarGrafica();
        EXPECT_EQ(f.g.etiquetas.Etiqueta_Porcentaje_total.texto, c.etiqueta) << c.dias;
    }
}

TEST(PriceChart, HeadLabelsFromTheLastRecord)
{
    ChartFixture f;
    f.insertar(7, Fila{QDate(2024, 3, 1), 0, 10, 0, 1000, 10, 10, 20});
    f.insertar(7, Fila{QDate(2024, 3, 4), 10, 9.5, -5, 1000, 10, 9, 25});
    f.g.DibujarGrafica();
    const EtiquetasGrafica &e = f.g.etiquetas;
    EXPECT_EQ(e.porciento.texto, QStringLiteral("-5,0 %"));
    EXPECT_EQ(e.porciento.color, paleta::RojoOscuro);
    EXPECT_EQ(e.Ultimo_Cierre.texto, QStringLiteral("9,50 €"));
    // The average price rose from 0.02 to 0.025.
    EXPECT_EQ(e.Porciento_2.texto, QStringLiteral("+25,00 %"));
    EXPECT_EQ(e.Porciento_2.color, paleta::AzulOscuro);
    EXPECT_EQ(e.Fecha_Fin.texto, QStringLiteral("04/03/2024"));
    EXPECT_EQ(e.Titulo.texto, QStringLiteral("ACME"));
    EXPECT_TRUE(e.Etiqueta_Media.texto.isEmpty());
    EXPECT_FALSE(e.relojDeArena);
}

TEST(PriceChart, EmptyValueShowsTheZeroDateAndKeepsTheHead)
{
    ChartFixture f;
    f.g.etiquetas.porciento.texto = QStringLiteral("antes");
    f.g.controles.Text1 = QStringLiteral("OTRA");
    f.g.DibujarGrafica();
    EXPECT_EQ(f.g.etiquetas.Fecha_Inicio.texto, QStringLiteral("30/12/1899"));
    EXPECT_EQ(f.g.etiquetas.Fecha_Fin.texto, QStringLiteral("30/12/1899"));
    EXPECT_EQ(f.g.etiquetas.porciento.texto, QStringLiteral("antes"));
    EXPECT_EQ(f.g.puntosEscritos(), 0);
}

// Days of Anterior and Ultimo from 2024-01-01. A zero close is skipped and is no previous close: 10
// against 20 is a split of 2, doubled in the walk and halved back. The portfolio keeps its zeros.
TEST(PriceChart, ZeroClosesSplitsAndThePortfolioSeries)
{
    const QString dia2 = QStringLiteral("martes, 2 de enero de 2024 : Split x  2\r\n"),
                  dia3 = QStringLiteral("miércoles, 3 de enero de 2024 : Split x  ");
    struct Caso {
        const char *nombre;
        double valor;
        std::vector<std::pair<double, double>> dias;
        int splita, puntos;
        double split;
        QString noticias;
        std::vector<double> cierres; // from point 1
    } casos[] = {
        {"zero close", 7, {{0, 20}, {20, 0}, {10, 10.5}}, 1, 2, 2, dia3 + "2\r\n", {10, 10.5}},
        {"two splits", 7, {{0, 20}, {10, 12}, {4, 4}}, 1, 3, 6, dia2 + dia3 + "3\r\n", {20.0 / 6, 4, 4}},
        {"unticked", 7, {{0, 20}, {10, 12}, {4, 4}}, 0, 3, 1, "", {20, 12, 4}},
        {"portfolio", 34001, {{0, 100}, {100, 0}, {0, 0}, {0, 110}}, 0, 3, 1, "", {100, 0, 110}},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        ChartFixture f;
        for (std::size_t d = 0; d < c.dias.size(); ++d)
            f.insertar(c.valor,
                       Fila{QDate(2024, 1, 1).addDays(qint64(d)), c.dias[d].first, c.dias[d].second});
        f.g.controles.Text1 = c.valor == 7 ? QStringLiteral("ACME") : QStringLiteral("Cartera");
        f.g.controles.Splita = c.splita;
        f.g.DibujarGrafica();
        EXPECT_EQ(f.g.Codigo_Valor, c.valor);
        EXPECT_EQ(f.g.GraficaPrecio.NumPoints(), c.puntos);
        EXPECT_EQ(f.g.GraficaPrecio.Split(), c.split);
        EXPECT_EQ(f.g.etiquetas.Noticias, c.noticias);
        for (std::size_t p = 0; p < c.cierres.size(); ++p)
            EXPECT_DOUBLE_EQ(f.g.GraficaPrecio.valor(1, double(p + 1)), c.cierres[p]) << p + 1;
    }
}

TEST(PriceChart, UntickedSeriesAreWrittenAsZero)
{
    ChartFixture f;
    f.serie(7, 3);
    f.g.controles.Check2 = {0, 0, 1, 1, 0, 0, 0};
    f.g.DibujarGrafica();
    EXPECT_EQ(f.g.GraficaPrecio.valor(2, 2), 0);    // high
    EXPECT_EQ(f.g.GraficaPrecio.valor(1, 2), 11);   // close
    EXPECT_EQ(f.g.GraficaPrecio.valor(3, 2), 10.5); // low
    EXPECT_EQ(f.g.GraficaPrecio.valor(7, 2), 0);    // second average
    EXPECT_EQ(f.g.GraficaPrecio.valor(8, 2), 0);    // day's average
    // The extremes follow the data whether ticked or not.
    EXPECT_EQ(f.g.etiquetas.Etiqueta_Maximo.texto, QStringLiteral("12,50 €"));
}

TEST(PriceChart, ScaleLinesFollowTheLadder)
{
    ChartFixture f;
    f.serie(7, 5); // lows 9.5, highs up to 14.5: a range of 5, step 0.5
    f.g.DibujarGrafica();
    std::vector<float> ys;
    for (const auto &c : f.p1.callsOf(Kind::Line))
        if (c.x1 == -5 && c.x2 == 1005)
            ys.push_back(c.y1);
    ASSERT_GE(ys.size(), 9u);
    const std::vector<float> escala(ys.end() - 9, ys.end());
    EXPECT_EQ(escala, (std::vector<float>{10, 10.5, 11, 11.5, 12, 12.5, 13, 13.5, 14}));
}

TEST(PriceChart, LadderAndTicksTables)
{
    const std::pair<double, double> pasos[] = {
        {150, 20},   {100, 10},      {61, 10},       {60, 5},       {31, 5},     {30, 4},
        {21, 4},     {20, 2.5},      {16, 2.5},      {15, 2},       {11, 2},     {10, 1},
        {6, 1},      {5, 0.5},       {3, 0.5},       {2.5, 0.25},   {2, 0.25},   {1.5, 0.2},
        {1.2, 0.2},  {1, 0.1},       {0.6, 0.1},     {0.5, 0.05},   {0.3, 0.05}, {0.25, 0.04},
        {0.2, 0.04}, {0.18, 0.0025}, {0.01, 0.0025}, {0.005, 0.01}, {0, 0.01}};
    for (auto [rango, paso] : pasos)
        EXPECT_EQ(pasoLineasEscala(rango), paso) << rango;
    const std::pair<double, double> ticks[] = {{0, 0}, {99, 0}, {100, 1}, {1999, 19}, {2000, 10}, {1e7, 19}};
    for (auto [rango, t] : ticks)
        EXPECT_EQ(ticksAutomaticos(rango), t) << rango;
}

// A drawing started inside a drawing returns at once, and a failed drawing leaves the guard set.
TEST(PriceChart, GuardStopsADrawingInsideADrawingAndStaysAfterAFailure)
{
    ChartFixture f;
    f.serie(7, 3);
    int finales = 0;
    f.g.PonerQuitarF = [&] { f.g.DibujarGrafica(); };
    f.g.VerOperacionesGrafica = [&] { ++finales; };
    f.g.DibujarGrafica();
    EXPECT_EQ(finales, 1);

    f.serie(8, 3001); // more points than a chart holds
    f.g.controles.Text1 = QStringLiteral("OTRA");
    EXPECT_THROW(f.g.DibujarGrafica(), RuntimeError);
    EXPECT_TRUE(f.g.dibujando());
    f.g.DibujarGrafica(); // returns at once
    EXPECT_EQ(finales, 1);
}

TEST(PriceChart, TheIndicatorDigitChoosesWhatIsDrawnUnder)
{
    ChartFixture f;
    f.serie(7, 20);
    const double series[] = {2, 3, 1, 4}; // MaCD, Rsi, Momentum, Estocástico
    for (int i = 0; i < 4; ++i) {
        f.g.controles.Indicador_Actual = QString::number(i);
        f.g.DibujarGrafica();
        EXPECT_EQ(f.g.GraficaIndicador.NumSets(), series[i]) << i;
    }
    // Momentum: the change over the days seen, 14 at most.
    f.g.controles.Indicador_Actual = QStringLiteral("2");
    f.g.DibujarGrafica();
    EXPECT_EQ(f.g.GraficaIndicador.valor(1, 1), 0);
    EXPECT_EQ(f.g.GraficaIndicador.valor(1, 2), 1);
    EXPECT_EQ(f.g.GraficaIndicador.valor(1, 20), 14);
}

TEST(Splits, FactorBand)
{
    const struct {
        double previo, anterior, factor;
    } casos[] = {{10, 10.2, 1}, {20, 10, 2}, {13, 10, 1.3}, {9.7, 10, 0.97}, {12.9, 10, 1}};
    for (const auto &c : casos)
        EXPECT_DOUBLE_EQ(factorSplit(c.previo, c.anterior), c.factor) << c.previo << "/" << c.anterior;
    EXPECT_NEAR(factorSplit(10, 10.4), 0.9615, 1e-4);
}

TEST(Splits, ReverseSplitWritesItsNoteAndAdjusts)
{
    DetectorSplits d;
    DetectorSplits::Ajustado a;
    QString noticias;
    d.ajustar({QDate(2024, 5, 6), 10, 0, 11, 9, 100}, a, noticias);
    d.ajustar({QDate(2024, 5, 7), 10.3, 10.4, 11, 9, 100}, a, noticias);
    EXPECT_TRUE(noticias.startsWith(QStringLiteral("martes, 7 de mayo de 2024 : Split x  .9615")));
    EXPECT_NEAR(a.cierre, 10.3 * 10 / 10.4, 1e-12);
    EXPECT_NEAR(a.acciones, 100 / (10 / 10.4), 1e-9);
    // A record without Anterior keeps the raw close and the high and low before.
    d.ajustar({QDate(2024, 5, 8), 5, 0, 6, 4, 100}, a, noticias);
    EXPECT_EQ(a.cierre, 5);
    EXPECT_NEAR(a.maximo, 11 * 10 / 10.4, 1e-12);
}

TEST(QuoteLoader, CopiesAsTheCursorFillDoes)
{
    ChartFixture f;
    f.serie(7, 4);
    f.base.db->executeNative(QStringLiteral(
        "INSERT INTO bolsa VALUES "
        "(7,'2024-02-01',NULL,12.9999999999999995,NULL,12.5,'13,5',1e20,0.30000000000000004);"
        "INSERT INTO bolsa VALUES (7,'2024-02-02','abc',0.1,'2',-7.75,1e-5,3,999999.9999999999);"
        "INSERT INTO bolsa VALUES (7,NULL,3,4,5,6,7,8,9);"));
    RecordSeto rapido, lento;
    cargarSerie(*f.base.db, 7, rapido);
    auto rs = f.base.db->openRecordset(sentenciaSerie(7));
    lento.fillFrom(*rs);
    ASSERT_EQ(rapido.recordcount(), lento.recordcount());
    rapido.Movefirst();
    lento.Movefirst();
    for (; !lento.Eof(); rapido.Movenext(), lento.Movenext()) {
        const long p = lento.AbsolutePosition();
        EXPECT_EQ(rapido.Fecha(), lento.Fecha()) << p;
        for (auto campo :
             {&RecordSeto::Dif, &RecordSeto::Ultimo, &RecordSeto::Volumen, &RecordSeto::Efect,
              &RecordSeto::Valor, &RecordSeto::Anterior, &RecordSeto::Maximo, &RecordSeto::minimo})
            EXPECT_EQ((rapido.*campo)(), (lento.*campo)()) << p;
    }
}

} // namespace
} // namespace tesorel::testing
