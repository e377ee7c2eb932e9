#include "support/full_base.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cmath>
#include <sqlite3.h>
#include <stdexcept>

namespace tesorel::bench
{

namespace
{

QTemporaryDir &folder()
{
    static QTemporaryDir dir;
    return dir;
}

void exec(sqlite3 *db, const QByteArray &sql)
{
    char *message = nullptr;
    if (sqlite3_exec(db, sql.constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        const std::string text = message ? message : "sqlite failure";
        sqlite3_free(message);
        throw std::runtime_error(text);
    }
}

QByteArray schema()
{
    // The schema sits two folders above this file in the source tree.
    QFile file(QFileInfo(QStringLiteral(__FILE__)).absolutePath() + QStringLiteral("/../../data/schema.sql"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("data/schema.sql not found");
    return file.readAll();
}

sqlite3 *makeBase(const QString &path)
{
    QFile::remove(path);
    sqlite3 *db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;");
    exec(db, schema());
    return db;
}

} // namespace

const QList<QDate> &fullBaseDays()
{
    static const QList<QDate> days = [] {
        QList<QDate> list;
        for (QDate d(2000, 1, 3); d < QDate(2025, 1, 1); d = d.addDays(1))
            if (d.dayOfWeek() <= 5)
                list.append(d);
        return list;
    }();
    return days;
}

QString emptyBasePath()
{
    static int made = 0;
    const QString path = folder().filePath(QStringLiteral("empty%1.mdb").arg(++made));
    sqlite3_close(makeBase(path));
    return path;
}

QString fullBasePath()
{
    static const QString path = [] {
        const QString file = folder().filePath(QStringLiteral("full.mdb"));
        sqlite3 *db = makeBase(file);
        exec(db, "BEGIN");
        sqlite3_stmt *insert = nullptr;
        sqlite3_prepare_v2(db,
                           "INSERT INTO bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, "
                           "EFECT) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)",
                           -1, &insert, nullptr);
        quint32 seed = 12345;
        for (const QDate &day : fullBaseDays()) {
            const QByteArray iso = day.toString(Qt::ISODate).toLatin1();
            for (int value = 1; value <= kFullBaseValues; ++value) {
                seed = seed * 1664525u + 1013904223u;
                const double anterior = 5.0 + value % 40;
                // Quotes come with three decimals, money with two, as the
                // exchange publishes them.
                auto round = [](double x, double scale) { return std::round(x * scale) / scale; };
                const double ultimo = round(anterior * (0.97 + (seed >> 8) % 600 / 10000.0), 1000);
                sqlite3_bind_int(insert, 1, value);
                sqlite3_bind_text(insert, 2, iso.constData(), int(iso.size()), SQLITE_STATIC);
                sqlite3_bind_double(insert, 3, anterior);
                sqlite3_bind_double(insert, 4, ultimo);
                sqlite3_bind_double(insert, 5, round((ultimo - anterior) * 100 / anterior, 100));
                sqlite3_bind_double(insert, 6, double(seed % 100000));
                sqlite3_bind_double(insert, 7, round(ultimo * 1.01, 1000));
                sqlite3_bind_double(insert, 8, round(ultimo * 0.99, 1000));
                sqlite3_bind_double(insert, 9, round(ultimo * (seed % 100000) / 1000, 100));
                sqlite3_step(insert);
                sqlite3_reset(insert);
            }
        }
        sqlite3_finalize(insert);
        exec(db, "COMMIT");
        sqlite3_close(db);
        return file;
    }();
    return path;
}

} // namespace tesorel::bench
