#include "booking_fixture.h"
#include "core/numbers.h"
#include "portfolio/historico.h"
#include "portfolio/modif_historico.h"
#include "store/historico_lectura.h"
#include "store/recordset.h"

#include <QDir>
#include <QFile>

using namespace tesorel;

namespace
{

// The ledger window opened on five lines.
struct LedgerFixture : tesorel::testing::CarteraBase {
    Historico h{s};

    void SetUp() override
    {
        db.execute("insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3, ABREVIATURA11) values "
                   "(7, 'TELEFONICA', 'TEF', 'TELEFONICA'), (8, 'REPSOL YPF', 'REP', 'REPSOL')");
        db.execute("insert into operadores (codigo, NOMBRE) values (1, 'BANCO')");
        Abrir_Empresas(s);
        //      valor cantidad tipo  broker  precio  fecha        total
        linea(7, 100, 2, 1, 10, QDate(2005, 3, 1), 1006.35);
        linea(8, 50, 2, 9, 20, QDate(2005, 1, 10), 1010); // broker deleted since
        linea(7, -40, 4, 1, 12, QDate(2006, 2, 1), -470.5);
        linea(7, 10, 5, 1, 1, QDate(2004, 5, 5), 10);      // an unknown kind
        linea(7, 10, 2, 1, 1, QDate(2004, 5, 5), 10, 2.0); // another user
        h.Form_Load();
    }

    void linea(double valor, double cantidad, int tipo, int broker, double precio, QDate fecha, double total,
               double usuario = 1)
    {
        escribir(
            "insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
            "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, 'texto', ?, ?, ?, ?)",
            usuario, cantidad, valor, tipo, broker, precio, fecha, total);
    }

    QStringList primeras()
    {
        QStringList r;
        for (const auto &f : h.filas)
            r << f.Fecha + " " + f.Valor;
        return r;
    }
    int cuenta() { return int(numero("select count(*) from historico")); }
};

} // namespace

TEST_F(LedgerFixture, RowsReadAsSentencesAndFiltersOutliveSortChanges)
{
    EXPECT_EQ(h.Filtro_Lista, QStringList({"TELEFONICA", "REPSOL"}));
    ASSERT_EQ(h.filas.size(), 4u);
    EXPECT_EQ(h.filas[0].celdas(),
              QStringList({"05/05/2004", "", "10", "TELEFONICA", "1,00", "10,00", "en BANCO"}));
    EXPECT_EQ(h.filas[1].celdas(),
              QStringList({"10/01/2005", "compré", "50", "REPSOL", "20,00", "1010,00", "en "}));
    EXPECT_EQ(h.filas[3].celdas(),
              QStringList({"01/02/2006", "vendí", "40", "TELEFONICA", "12,00", "470,50", "en BANCO"}));
    EXPECT_EQ(h.filas[3].Importe_ForeColor, Historico::ColorVenta);

    const struct {
        std::function<void()> accion;
        QStringList filas;
    } pasos[] = {
        {[&] { h.Option1_Click(1); },
         {"05/05/2004 TELEFONICA", "01/03/2005 TELEFONICA", "01/02/2006 TELEFONICA", "10/01/2005 REPSOL"}},
        {[&] {
             h.Filtro = "telefonica";
             h.Filtro_Click();
         },
         {"05/05/2004 TELEFONICA", "01/03/2005 TELEFONICA", "01/02/2006 TELEFONICA"}},
        {[&] { h.Option1_Click(0); },
         {"05/05/2004 TELEFONICA", "01/03/2005 TELEFONICA", "01/02/2006 TELEFONICA"}},
        {[&] { h.Command2_Click(); },
         {"05/05/2004 TELEFONICA", "10/01/2005 REPSOL", "01/03/2005 TELEFONICA"}},
    };
    for (const auto &p : pasos) {
        p.accion();
        EXPECT_EQ(primeras(), p.filas);
    }
}

TEST_F(LedgerFixture, TheReaderTakesAUsersValueByDateThenAsWritten)
{
    linea(7, -5, 4, 1, 1, QDate(2005, 3, 1), -5); // the day of a purchase, written after it
    const auto lineas = leerHistorico(db, 1, 7.0);
    std::vector<double> totales;
    for (const auto &l : lineas)
        totales.push_back(l.total);
    EXPECT_EQ(totales, (std::vector<double>{10, 1006.35, -5, -470.5}));
    EXPECT_EQ(lineas[2].fecha, QDate(2005, 3, 1));
    EXPECT_EQ(lineas[2].operacion, "texto");
    EXPECT_EQ(leerHistorico(db, 1).size(), 5u);
}

TEST_F(LedgerFixture, DeletingOneOrAllShownAsksFirst)
{
    ui.answers = {mb::No};
    h.Borrar_Click(2);
    EXPECT_EQ(cuenta(), 5);
    ui.answers = {mb::Yes};
    h.Borrar_Click(2); // REPSOL
    EXPECT_EQ(cuenta(), 4);
    EXPECT_EQ(primeras(),
              QStringList({"05/05/2004 TELEFONICA", "01/03/2005 TELEFONICA", "01/02/2006 TELEFONICA"}));
    h.Command2_Click();
    ui.answers = {mb::Yes};
    h.BorrarTodo_Click();
    EXPECT_EQ(cuenta(), 2); // the 2006 sale and the other user's line stay
    EXPECT_TRUE(h.filas.empty());
}

TEST_F(LedgerFixture, ReportCopiesTheRowsWithTheCommissionByThePointRule)
{
    h.Command1_Click(2);
    const QString ruta = s.carpeta + "/historico.htm";
    EXPECT_EQ(ui.opened, QStringList({ruta}));
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QList<QByteArray> lineas = f.readAll().split('\n');
    EXPECT_EQ(lineas[2], "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">\r");
    EXPECT_EQ(lineas[7], "<P><FONT SIZE=\"2\">Operaciones \r");
    // The purchase of 100 at 10 for 1006,35: "1006,35" reads 1006 by the point rule.
    const int fila = lineas.indexOf("<TD ALIGN = \"CENTER\"  VALIGN=\"TOP\"><P>&nbsp;01/03/05</P></TD>\r");
    ASSERT_GT(fila, 0);
    EXPECT_EQ(lineas[fila + 1], "<TD ALIGN = \"RIGHT\" VALIGN=\"TOP\"><P>compr\xe9&nbsp;&nbsp; </P></TD>\r");
    EXPECT_EQ(lineas[fila + 5], "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>6,&nbsp;</P></TD>\r");
    EXPECT_EQ(lineas[fila + 6], "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>1006,35&nbsp;</P></TD>\r");
    EXPECT_EQ(lineas.at(lineas.size() - 2), "</BODY></HTML>\r");
    f.close();

    // A row whose day cannot be read loses only its date cell.
    db.execute("update historico set Fecha_operacion = null where Total_operacion = 1010");
    h.Form_Load();
    h.informeHtml(ruta, false);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray texto = f.readAll();
    EXPECT_EQ(texto.count("<TR>"), 4);
    EXPECT_EQ(texto.count("<TD ALIGN = \"CENTER\""), 3);
    EXPECT_TRUE(texto.endsWith("</BODY></HTML>\r\n"));
}

TEST_F(LedgerFixture, TaxExportAddsATitularEachRunAndSkipsOtherVerbs)
{
    h.letra = s.carpeta;
    // A missing folder: the error is reported, the closing message shows, no file.
    ui.inputs = {"ANA"};
    h.exportarTxe();
    EXPECT_FALSE(QFile::exists(s.carpeta + "/AEAT/txe2005/Carteras2005.mdb"));
    EXPECT_EQ(ui.messages.back().title, "TXE");

    ASSERT_TRUE(QDir(s.carpeta).mkpath("AEAT/txe2005"));
    ui.inputs = {"ANA", "ANA"};
    h.exportarTxe();
    h.exportarTxe();
    auto txe = Database::open(s.carpeta + "/AEAT/txe2005/Carteras2005.mdb");
    Query q(*txe, "select t.NOMBRE, o.Descripcion, o.Fecha, o.Operacion, o.ntitulos1, o.importee from "
                  "operaciones o, Titulares t where o.IDTitular = t.IDTitular order by t.IDTitular, o.Fecha");
    QStringList filas;
    while (q.next())
        filas << QStringList{q.text(0), q.text(1),        q.date(2).toString(Qt::ISODate),
                             q.text(3), Str(q.number(4)), Str(q.number(5))}
                     .join('|');
    const QStringList una = {"ANA [TXE]|REPSOL|2005-01-10|AD| 50| 101000",
                             "ANA [TXE]|TELEFONICA|2005-03-01|AD| 100| 100600",
                             "ANA [TXE]|TELEFONICA|2006-02-01|TR| 40| 47000"};
    EXPECT_EQ(filas, una + una);
}

TEST_F(LedgerFixture, EditorRewritesTheLineAsTyped)
{
    struct Caso {
        const char *nombre;
        int fila;
        std::function<void(ModifHistorico &)> cambiar;
        const char *mensaje;
        double cantidad, total, entidad;
    };
    const Caso casos[] = {
        {"a sale made a purchase turns positive", 4, [](ModifHistorico &m) { m.Operacion = "Compra"; },
         nullptr, 40, 470.5, 1},
        {"an unknown kind zeroes the amounts", 1, [](ModifHistorico &m) { EXPECT_EQ(m.Operacion, ""); },
         "Operación no reconocida", 0, 0, 1},
        {"a deleted broker shows blank and saves 0", 2, [](ModifHistorico &m) { EXPECT_EQ(m.Entidad, " "); },
         nullptr, 50, 1010, 0},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        h.Llenar_tabla(QString(), Historico::OrdenFecha);
        s.Historico_rs->setAbsolutePosition(c.fila - 1);
        ModifHistorico m(s);
        m.Form_Load();
        c.cambiar(m);
        ui.messages.clear();
        EXPECT_TRUE(m.Aceptar_Click());
        EXPECT_EQ(ui.messages.empty() ? QString() : ui.messages[0].prompt, c.mensaje ? c.mensaje : "");
        h.Llenar_tabla(QString(), Historico::OrdenFecha);
        s.Historico_rs->setAbsolutePosition(c.fila - 1);
        EXPECT_EQ(s.Historico_rs->field("Cantidad").toDouble(), c.cantidad);
        EXPECT_EQ(s.Historico_rs->field("Total_operacion").toDouble(), c.total);
        EXPECT_EQ(s.Historico_rs->field("Entidad").toDouble(), c.entidad);
    }

    ModifHistorico m(s);
    m.Form_Load();
    m.Fecha = "31/02/2005";
    EXPECT_FALSE(m.Aceptar_Click());
    EXPECT_EQ(m.foco, "Fecha");
    m.Fecha = "02/03/2005";
    m.Operacion = "Venta";
    m.CambiarEtiqueta();
    EXPECT_EQ(m.Descripcion, "02/03/2005: Venta de 50 REPSOL por 1010");
}
