#include "store/jet_functions.h"

#include "core/numbers.h"
#include "store/jet_sql.h"

#include <QDate>
#include <QString>
#include <sqlite3.h>

namespace tesorel
{

namespace
{

QString textArg(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

void resultText(sqlite3_context *ctx, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(ctx, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

bool anyNull(int argc, sqlite3_value **argv)
{
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            return true;
    return false;
}

void likeFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    sqlite3_result_int(ctx, jet::likeMatch(textArg(argv[0]), textArg(argv[1])) ? 1 : 0);
}

template <QString (*F)(const QString &)>
void textFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    resultText(ctx, F(textArg(argv[0])));
}

QString upper(const QString &s)
{
    return s.toUpper();
}
QString lower(const QString &s)
{
    return s.toLower();
}

void lenFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    sqlite3_result_int64(ctx, textArg(argv[0]).size());
}

void leftFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    resultText(ctx, textArg(argv[0]).left(qMax<qsizetype>(0, sqlite3_value_int64(argv[1]))));
}

void rightFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    resultText(ctx, textArg(argv[0]).right(qMax<qsizetype>(0, sqlite3_value_int64(argv[1]))));
}

void midFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    const qsizetype start = qMax<qsizetype>(1, sqlite3_value_int64(argv[1])) - 1;
    const qsizetype length = argc > 2 ? qMax<qsizetype>(0, sqlite3_value_int64(argv[2])) : -1;
    resultText(ctx, textArg(argv[0]).mid(start, length));
}

template <int Part> void datePart(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    const QDate date = QDate::fromString(textArg(argv[0]).left(10), Qt::ISODate);
    if (!date.isValid())
        return sqlite3_result_null(ctx);
    sqlite3_result_int(ctx, Part == 0 ? date.year() : Part == 1 ? date.month() : date.day());
}

void nzFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) != SQLITE_NULL)
        return sqlite3_result_value(ctx, argv[0]);
    if (argc > 1)
        return sqlite3_result_value(ctx, argv[1]);
    sqlite3_result_int(ctx, 0);
}

void valFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    sqlite3_result_double(ctx, Numero_Val(textArg(argv[0])));
}

using Function = void (*)(sqlite3_context *, int, sqlite3_value **);

void add(sqlite3 *db, const char *name, int args, Function f)
{
    sqlite3_create_function_v2(db, name, args, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, f, nullptr,
                               nullptr, nullptr);
}

} // namespace

void registerJetFunctions(sqlite3 *db)
{
    // Replacing like() changes what the LIKE operator means on this
    // connection: the pattern stays as the dialect wrote it.
    add(db, "like", 2, likeFunction);
    add(db, "ucase", 1, textFunction<upper>);
    add(db, "lcase", 1, textFunction<lower>);
    add(db, "len", 1, lenFunction);
    add(db, "left", 2, leftFunction);
    add(db, "right", 2, rightFunction);
    add(db, "mid", 2, midFunction);
    add(db, "mid", 3, midFunction);
    add(db, "year", 1, datePart<0>);
    add(db, "month", 1, datePart<1>);
    add(db, "day", 1, datePart<2>);
    add(db, "nz", 1, nzFunction);
    add(db, "nz", 2, nzFunction);
    add(db, "val", 1, valFunction);
}

} // namespace tesorel
