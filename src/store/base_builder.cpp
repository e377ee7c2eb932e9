#include "store/base_builder.h"
#include "store/conexion.h"

#include "core/runtime_error.h"
#include "store/database.h"
#include "store/query.h"
#include "store/sqlite_steps.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVariant>
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

double codeOf(Database &db, const char *ticker)
{
    Query q(db, "select Codigo from Codigo_Empresas where ABREVIATURA3 = ?");
    q.bind(1, QString::fromLatin1(ticker));
    return q.next() ? q.number(0) : 0;
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

// The user, then the two rows that pre-select it and fill in its password
// at the login. Close and both averages drawn, the list "Todos", the RSI,
// operations on the chart.
double addDemoUserRows(Database &db)
{
    Query user(db, "insert into Usuario (NOMBRE, Password, Configuracion, Maximo_dias) values (?, ?, ?, ?)");
    const QString name = QString::fromLatin1(kDemoUser);
    user.bind(1, name).bind(2, name).bind(3, QStringLiteral("001110101")).bind(4, 250.0).exec();
    const double demo = double(user.lastInsertId());
    for (const char *password : {"738nomlib2", "sinllav627"})
        user.bind(2, QString::fromLatin1(password)).bind(3, QVariant()).bind(4, QVariant()).exec();
    return demo;
}

void addDemoFavouritesAndNotes(Database &db, double demo)
{
    Query follow(db, "insert into faboritos (Usuario, VALOR) values (?, ?)");
    for (const char *ticker : {"BBVA", "ITX", "AENA", "REP", "AMS"})
        follow.bind(1, demo).bind(2, codeOf(db, ticker)).exec();

    const std::pair<const char *, const char *> notes[] = {
        {"SAN", "Dividendo en efectivo en mayo y noviembre. Vigilar el soporte de la media de 200 sesiones."},
        {"TEF", "Posición a largo plazo; revisar tras los resultados del trimestre."},
        {kZeroCloseTicker, "Cotización suspendida algunos días: cierres a cero."},
    };
    Query note(db, "insert into comentarios (codigo, Comentario) values (?, ?)");
    for (const auto &[ticker, text] : notes)
        note.bind(1, codeOf(db, ticker)).bind(2, QString::fromUtf8(text)).exec();
}

// The session opens on the newest day, with the last month as interval.
void openDemoSession(Database &db, double demo)
{
    Query last(db, "select max(FECHA) from bolsa where VALOR < 34000");
    last.next();
    const QDate newest = last.date(0);
    Query monthBefore(db, "select min(FECHA) from bolsa where FECHA >= ?");
    monthBefore.bind(1, newest.addMonths(-1));
    monthBefore.next();
    Query session(db, "update Usuario_Actual set USUARIO_ACTUAL = ?, fecha_Actual = ?, fecha_inicial = ?, "
                      "fecha_final = ?");
    session.bind(1, demo).bind(2, newest).bind(3, monthBefore.text(0)).bind(4, newest).exec();
}

} // namespace

double addDemoUser(Database &db)
{
    Transaction t(db);
    const double demo = addDemoUserRows(db);
    addDemoFavouritesAndNotes(db, demo);
    openDemoSession(db, demo);
    t.commit();
    return demo;
}

void buildBase(const QString &outPath, const BaseBuildOptions &options)
{
    if (QFileInfo::exists(outPath))
        throw RuntimeError(kFileAlreadyExists, QStringLiteral("El archivo ya existe: '%1'.").arg(outPath));
    if (!QFileInfo::exists(QDir(options.dataDir).filePath("schema.sql")))
        throw RuntimeError(err::FileNotFound, QStringLiteral("No se encuentra el archivo '%1'.")
                                                  .arg(QDir(options.dataDir).filePath("schema.sql")));
    std::shared_ptr<Database> db = Database::create(outPath);
    try {
        // A half-built file is removed below, so the build needs no journal on disk.
        db->executeNative("PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
        loadSchema(conexionDe(*db), options.dataDir);
        loadReferenceTables(conexionDe(*db), options.dataDir);
        if (options.sample) {
            insertSampleQuotes(conexionDe(*db), sampleQuoteOptions(conexionDe(*db), options));
            const double demo = addDemoUser(*db);
            if (options.demoLedger)
                options.demoLedger(*db, demo);
        }
        db->executeNative("ANALYZE");
        db.reset();
    } catch (...) {
        db.reset();
        QFile::remove(outPath);
        throw;
    }
}

} // namespace tesorel
