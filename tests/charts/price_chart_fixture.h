#pragma once
#include "charts/chart_interaction.h"
#include "charts/chart_operations.h"
#include "charts/price_chart.h"
#include "charts/recording_surface.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/test_base.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace tesorel::testing
{

// One quote row of bolsa.
struct Fila {
    QDate fecha;
    double anterior, ultimo, dif = 0, volumen = 1000, maximo = 0, minimo = 0, efect = 10;
};

// A base with two companies, the main window's three charts on recording
// surfaces, and the operations and interaction models around them.
struct ChartFixture : SesionDePrueba {
    RecordingSurface p1, p2, p3;
    GraficaPrincipal g{s};
    OperacionesGrafica ops{s, g};
    InteraccionGrafica inter{s, g};

    static constexpr double kValor = 7;

    ChartFixture()
    {
        base.db->executeNative(
            QStringLiteral("INSERT INTO Codigo_Empresas VALUES (7,'ACME','ACM','ACME SA','x');"
                           "INSERT INTO Codigo_Empresas VALUES (8,'OTRA','OTR','OTRA SA','y');"));
        Abrir_Empresas(s);
        s.Usuario_Numero = 1;
        g.DefinirGraficas(&p1, &p2, &p3);
        g.controles.Text1 = QStringLiteral("ACME");
        g.VerOperacionesGrafica = [this] { ops.VerOperacionesGrafica(); };
    }

    void insertar(double valor, const Fila &f)
    {
        QStringList v{QString::number(valor), "'" + f.fecha.toString(Qt::ISODate) + "'"};
        for (double x : {f.anterior, f.ultimo, f.dif, f.volumen, f.maximo, f.minimo, f.efect})
            v << QString::number(x, 'g', 17);
        base.db->executeNative("INSERT INTO bolsa VALUES (" + v.join(',') + ")");
    }

    // n days of closes 10, 11, 12... from 2024-01-01, each quoting the one before.
    void serie(double valor, int n, double inicio = 10)
    {
        QDate d(2024, 1, 1);
        double anterior = 0;
        base.db->beginTransaction();
        for (int i = 0; i < n; ++i) {
            const double c = inicio + i;
            insertar(valor, Fila{d.addDays(i), anterior, c, 1, 1000, c + 0.5, c - 0.5, 10});
            anterior = c;
        }
        base.db->commit();
    }
};

} // namespace tesorel::testing
