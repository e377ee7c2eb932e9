#include "store/historico_lectura.h"
#include "store/query.h"
#include "support/test_base.h"

#include <gtest/gtest.h>

using namespace tesorel;

namespace
{

void apuntar(Database &db, double usuario, double valor, double cantidad, QDate fecha, double total)
{
    Query q(db, "insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    q.bind(1, usuario).bind(2, cantidad).bind(3, valor).bind(4, cantidad > 0 ? 2 : 4);
    q.bind(5, QStringLiteral("linea %1").arg(total)).bind(6, 1).bind(7, 10.0).bind(8, fecha).bind(9, total);
    q.exec();
}

} // namespace

TEST(LeerHistorico, ByDateThenAsWrittenForOneUserAndValue)
{
    tesorel::testing::TestBase base;
    Database &db = *base.db;
    const QDate d1(2005, 3, 1), d2(2005, 2, 1);
    apuntar(db, 1, 7, 100, d1, 1000);
    apuntar(db, 1, 7, -50, d1, -600);
    apuntar(db, 1, 8, 10, d2, 100);
    apuntar(db, 2, 7, 10, d2, 100);
    apuntar(db, 1, 7, 20, d2, 200);

    const auto uno = leerHistorico(db, 1, 7.0);
    ASSERT_EQ(uno.size(), 3u);
    EXPECT_EQ(uno[0].total, 200);
    EXPECT_EQ(uno[1].total, 1000);
    EXPECT_EQ(uno[2].total, -600); // same day: the sale written after the purchase
    EXPECT_EQ(uno[2].fecha, d1);
    EXPECT_EQ(uno[2].operacion, QStringLiteral("linea -600"));
    EXPECT_EQ(leerHistorico(db, 1).size(), 4u);
}
