#include "store/engine_errors.h"

#include "store/jet_sql.h"

#include <QRegularExpression>
#include <sqlite3.h>

namespace tesorel
{

RuntimeError engineError(sqlite3 *db, const QString &statement)
{
    const QString message = QString::fromUtf8(sqlite3_errmsg(db));
    static const QRegularExpression noTable(QStringLiteral("^no such table: (?:\\w+\\.)?(.+)$"));
    const auto table = noTable.match(message);
    if (table.hasMatch())
        return RuntimeError(
            err::TableNotFound,
            QStringLiteral("El motor de base de datos no puede encontrar la tabla o consulta de "
                           "entrada '%1'.")
                .arg(table.captured(1)));
    if (message.startsWith(u"no such column"))
        return RuntimeError(err::TooFewParameters, QStringLiteral("Pocos parámetros. Se esperaba 1."));
    if (message.contains(u"syntax error") || message.startsWith(u"unrecognized token") ||
        message.startsWith(u"incomplete input"))
        return RuntimeError(err::SyntaxError, jet::syntaxMessage(statement));
    if (sqlite3_extended_errcode(db) == SQLITE_CONSTRAINT_UNIQUE ||
        sqlite3_extended_errcode(db) == SQLITE_CONSTRAINT_PRIMARYKEY)
        return RuntimeError(
            err::DuplicateKey,
            QStringLiteral("Los cambios solicitados en la tabla no se realizaron correctamente "
                           "porque crearían valores duplicados en el índice, clave principal o "
                           "relación."));
    return RuntimeError(err::EngineError, message);
}

sqlite3_stmt *prepareStatement(sqlite3 *db, const QString &sql, const QString &statement, unsigned flags,
                               bool allowParameters)
{
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt *stmt = nullptr;
    const char *tail = nullptr;
    if (sqlite3_prepare_v3(db, text.constData(), int(text.size()), flags, &stmt, &tail) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        throw engineError(db, statement);
    }
    if (!stmt) // only blanks or comments
        throw RuntimeError(err::SyntaxError, jet::syntaxMessage(statement));
    const int parameters = allowParameters ? 0 : sqlite3_bind_parameter_count(stmt);
    const bool trailing = tail && QByteArray(tail).trimmed().size() > 0;
    sqlite3_finalize(parameters > 0 || trailing ? stmt : nullptr);
    if (parameters > 0)
        throw RuntimeError(err::TooFewParameters,
                           QStringLiteral("Pocos parámetros. Se esperaba %1.").arg(parameters));
    if (trailing)
        throw RuntimeError(err::SyntaxError, jet::syntaxMessage(statement));
    return stmt;
}

} // namespace tesorel
