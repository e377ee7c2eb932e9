#include "store/base_builder.h"

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/sqlite_steps.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QVariant>
#include <algorithm>
#include <cmath>
#include <sqlite3.h>

namespace tesorel
{

namespace
{

constexpr int kFileAlreadyExists = 58;

QString quoted(const QString &name)
{
    return '"' + QString(name).replace('"', "\"\"") + '"';
}

QByteArray readFile(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw RuntimeError(err::FileNotFound, QStringLiteral("No se encuentra el archivo '%1'.").arg(path));
    return f.readAll();
}

int codeOf(sqlite3 *db, const QString &ticker)
{
    Statement s(db, "SELECT Codigo FROM Codigo_Empresas WHERE ABREVIATURA3 = ?");
    s.bind(1, ticker);
    return s.step() ? static_cast<int>(s.whole(0)) : 0;
}

} // namespace

CsvTable parseCsv(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);

    QVector<QStringList> records;
    QStringList record;
    QString field;
    bool inQuotes = false;
    bool fieldStarted = false; // distinguishes a blank line from a record of one empty field
    auto endField = [&] {
        record.append(field);
        field.clear();
    };
    auto endRecord = [&] {
        if (fieldStarted || !record.isEmpty() || !field.isEmpty()) {
            endField();
            records.append(record);
        }
        record.clear();
        field.clear();
        fieldStarted = false;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (inQuotes) {
            if (c == '"') {
                if (i + 1 < text.size() && text[i + 1] == '"') {
                    field.append('"');
                    ++i;
                } else {
                    inQuotes = false;
                }
            } else {
                field.append(c);
            }
            continue;
        }
        if (c == '"') {
            inQuotes = true;
            fieldStarted = true;
        } else if (c == ',') {
            endField();
            fieldStarted = true;
        } else if (c == '\n') {
            endRecord();
        } else if (c == '\r') {
            if (i + 1 < text.size() && text[i + 1] == '\n')
                continue;
            endRecord();
        } else {
            field.append(c);
            fieldStarted = true;
        }
    }
    endRecord();

    CsvTable table;
    if (!records.isEmpty()) {
        table.header = records.takeFirst();
        for (QString &name : table.header)
            name = name.trimmed();
        table.rows = std::move(records);
    }
    return table;
}

void loadSchema(sqlite3 *db, const QString &dataDir)
{
    runSql(db, QString::fromUtf8(readFile(QDir(dataDir).filePath("schema.sql"))));
}

long loadReferenceTables(sqlite3 *db, const QString &dataDir)
{
    const QStringList files = QDir(dataDir).entryList({"*.csv"}, QDir::Files, QDir::Name);
    return inTransaction(db, [&] {
        long written = 0;
        for (const QString &file : files) {
            const QString table = QFileInfo(file).completeBaseName();
            const CsvTable csv = parseCsv(readFile(QDir(dataDir).filePath(file)));
            if (csv.header.isEmpty())
                continue;
            QStringList columns, marks;
            for (const QString &name : csv.header) {
                columns.append(quoted(name));
                marks.append("?");
            }
            Statement insert(db, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                     .arg(quoted(table), columns.join(", "), marks.join(", ")));
            for (const QStringList &row : csv.rows) {
                for (int i = 0; i < csv.header.size(); ++i) {
                    const QString value = i < row.size() ? row[i] : QString();
                    insert.bind(i + 1, value.isEmpty() ? QVariant() : QVariant(value));
                }
                insert.execute();
                ++written;
            }
        }
        return written;
    });
}

SampleQuoteOptions sampleQuoteOptions(sqlite3 *db, const BaseBuildOptions &options)
{
    SampleQuoteOptions q;
    q.firstDay = options.sampleFirstDay;
    q.lastDay = options.sampleLastDay;
    q.seed = options.seed;
    Statement values(db, "SELECT Codigo, NOMBRE FROM Codigo_Empresas WHERE Codigo < 34000 ORDER BY Codigo");
    while (values.step()) {
        const int code = static_cast<int>(values.whole(0));
        q.values.append(code);
        const QString name = values.text(1).toUpper();
        if (name.startsWith("IBEX ") || name.startsWith("INDICE "))
            q.indexValues.append(code);
    }
    q.splitValue = codeOf(db, kSplitTicker);
    q.splitDay = kSplitDay;
    q.zeroCloseValue = codeOf(db, kZeroCloseTicker);
    q.zeroCloseDays = {QDate(2024, 3, 12), QDate(2024, 3, 13), QDate(2025, 10, 7)};
    return q;
}

namespace
{

struct Operation {
    const char *ticker;
    QDate day;
    double shares; // negative for a sale
    int broker;
};

// Sum of the bands of the broker and of the one its link row names, as the
// buy and sell windows charge them, each charge rounded to cents.
double commission(sqlite3 *db, int broker, double amount)
{
    int linked = -1;
    {
        Statement link(db, "SELECT o.codigo FROM comisiones c JOIN operadores o ON o.NOMBRE = c.NOMBRE "
                           "WHERE c.Entidad = ? ORDER BY c.rowid LIMIT 1");
        link.bind(1, broker);
        if (link.step())
            linked = static_cast<int>(link.whole(0));
    }
    Statement bands(db, "SELECT Tanto, minimo FROM comisiones WHERE (Entidad = ? OR Entidad = ?) "
                        "AND desde <= ? AND Hasta >= ? ORDER BY rowid");
    bands.bind(1, broker).bind(2, linked).bind(3, amount).bind(4, amount);
    double total = 0;
    while (bands.step()) {
        const double rate = bands.number(0), least = bands.number(1);
        if (rate == 0 && least == 0)
            continue; // a link row charges nothing itself
        total += std::round(std::max(amount * rate / 100, least) * 100) / 100;
    }
    return total;
}

struct Position {
    double shares = 0, price = 0, cost = 0;
    QDate bought;
};

} // namespace

void addDemoUser(sqlite3 *db)
{
    inTransaction(db, [&] {
        // The demo user, then the two rows that pre-select it and fill in its
        // password at the login.
        Statement user(
            db, "INSERT INTO Usuario (NOMBRE, Password, Configuracion, Maximo_dias) VALUES (?, ?, ?, ?)");
        // Close and both averages drawn, the list "Todos", the RSI, operations on the chart.
        user.bind(1, kDemoUser)
            .bind(2, kDemoUser)
            .bind(3, QStringLiteral("001110101"))
            .bind(4, 250.0)
            .execute();
        const long long demo = sqlite3_last_insert_rowid(db);
        user.bind(1, kDemoUser).bind(2, "738nomlib2").execute();
        user.bind(1, kDemoUser).bind(2, "sinllav627").execute();

        const QVector<Operation> ledger = {
            {"SAN", QDate(2024, 2, 12), 300, 1}, {"ITX", QDate(2025, 7, 14), 150, 2},
            {"IBE", QDate(2024, 9, 16), 500, 1}, {"SAN", QDate(2025, 1, 13), 200, 1},
            {"TEF", QDate(2025, 4, 7), 1000, 4}, {"IBE", QDate(2025, 9, 15), -200, 1},
            {"REP", QDate(2026, 3, 16), 100, 2},
        };
        Statement close(db, "SELECT ULTIMO, FECHA FROM bolsa WHERE VALOR = ? AND FECHA >= ? AND ULTIMO > 0 "
                            "ORDER BY FECHA LIMIT 1");
        Statement abbrev(db, "SELECT ABREVIATURA11 FROM Codigo_Empresas WHERE Codigo = ?");
        Statement entry(
            db, "INSERT INTO historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                "precio_operacion, Fecha_operacion, Total_operacion) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
        QMap<int, Position> held;
        for (const Operation &op : ledger) {
            const int code = codeOf(db, op.ticker);
            close.bind(1, code).bind(2, op.day);
            const bool found = close.step();
            const double price = found ? close.number(0) : 0;
            const QDate day = found ? QDate::fromString(close.text(1), Qt::ISODate) : QDate();
            close.reset();
            if (!found)
                continue; // no quote on or after that day in this history
            abbrev.bind(1, code);
            const QString name = abbrev.step() ? abbrev.text(0) : QString(op.ticker);
            abbrev.reset();

            const double shares = std::abs(op.shares);
            const double gross = shares * price;
            const bool sale = op.shares < 0;
            const double total =
                sale ? gross - commission(db, op.broker, gross) : gross + commission(db, op.broker, gross);
            const QString text = day.toString("dd/MM/yyyy") + (sale ? ": Venta de " : ": Compra de ") +
                                 CStr(shares) + " " + name + " por " + CStr(total);
            entry.bind(1, demo).bind(2, op.shares).bind(3, code).bind(4, sale ? 4 : 2).bind(5, text);
            entry.bind(6, op.broker).bind(7, price).bind(8, day).bind(9, sale ? -total : total).execute();

            // The position as the buy and sell windows keep it: an averaged
            // price without costs, the cost with them, taken off pro rata.
            Position &p = held[code];
            if (!sale) {
                p.price = p.shares == 0 ? price : (p.shares * p.price + shares * price) / (p.shares + shares);
                p.shares += shares;
                p.cost += total;
                p.bought = day;
            } else {
                const double rest = p.shares - shares;
                p.cost = rest * (p.cost / p.shares);
                p.shares = rest;
            }
        }
        Statement position(db, "INSERT INTO cartera (Usuario, VALOR, Cantidad, Precio_Compra, Fecha_Compra, "
                               "Total_Compra) VALUES (?, ?, ?, ?, ?, ?)");
        for (auto it = held.cbegin(); it != held.cend(); ++it) {
            if (it->shares <= 0)
                continue;
            position.bind(1, demo).bind(2, it.key()).bind(3, it->shares).bind(4, it->price);
            position.bind(5, it->bought).bind(6, it->cost).execute();
        }

        Statement follow(db, "INSERT INTO faboritos (Usuario, VALOR) VALUES (?, ?)");
        for (const char *ticker : {"BBVA", "ITX", "AENA", "REP", "AMS"})
            follow.bind(1, demo).bind(2, codeOf(db, ticker)).execute();

        Statement note(db, "INSERT INTO comentarios (codigo, Comentario) VALUES (?, ?)");
        note.bind(1, codeOf(db, "SAN"))
            .bind(2, "Dividendo en efectivo en mayo y noviembre. Vigilar el soporte "
                     "de la media de 200 sesiones.")
            .execute();
        note.bind(1, codeOf(db, "TEF"))
            .bind(2, "Posición a largo plazo; revisar tras los resultados del "
                     "trimestre.")
            .execute();
        note.bind(1, codeOf(db, kZeroCloseTicker))
            .bind(2, "Cotización suspendida algunos días: cierres a cero.")
            .execute();

        // The session opens on the newest day, with the last month as interval.
        Statement last(db, "SELECT MAX(FECHA) FROM bolsa WHERE VALOR < 34000");
        last.step();
        const QDate newest = QDate::fromString(last.text(0), Qt::ISODate);
        Statement monthBefore(db, "SELECT MIN(FECHA) FROM bolsa WHERE FECHA >= ?");
        monthBefore.bind(1, newest.addMonths(-1));
        monthBefore.step();
        Statement session(
            db, "UPDATE Usuario_Actual SET USUARIO_ACTUAL = ?, fecha_Actual = ?, fecha_inicial = ?, "
                "fecha_final = ?");
        session.bind(1, demo).bind(2, newest).bind(3, monthBefore.text(0)).bind(4, newest).execute();
        return 0;
    });
}

void buildBase(const QString &outPath, const BaseBuildOptions &options)
{
    if (QFileInfo::exists(outPath))
        throw RuntimeError(kFileAlreadyExists, QStringLiteral("El archivo ya existe: '%1'.").arg(outPath));
    if (!QFileInfo::exists(QDir(options.dataDir).filePath("schema.sql")))
        throw RuntimeError(err::FileNotFound, QStringLiteral("No se encuentra el archivo '%1'.")
                                                  .arg(QDir(options.dataDir).filePath("schema.sql")));
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(outPath.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr) != SQLITE_OK) {
        const QString text = QString::fromUtf8(db ? sqlite3_errmsg(db) : "out of memory");
        sqlite3_close(db);
        throw RuntimeError(err::EngineError, text);
    }
    try {
        // A half-built file is removed below, so the build needs no journal on disk.
        runSql(db, "PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
        loadSchema(db, options.dataDir);
        loadReferenceTables(db, options.dataDir);
        if (options.sample) {
            insertSampleQuotes(db, sampleQuoteOptions(db, options));
            addDemoUser(db);
        }
        runSql(db, "ANALYZE");
        sqlite3_close(db);
    } catch (...) {
        sqlite3_close(db);
        QFile::remove(outPath);
        throw;
    }
}

} // namespace tesorel
