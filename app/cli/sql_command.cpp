#include "commands.h"

#include "store/database.h"
#include "store/recordset.h"

#include <QDate>
#include <QDateTime>
#include <QRegularExpression>
#include <QVariant>
#include <charconv>
#include <cstdio>

namespace tesorel::cli
{

namespace
{

// Shortest text that reads back as the same double, with a decimal point.
QString numberText(double value)
{
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, static_cast<qsizetype>(result.ptr - buffer));
}

QString cellText(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return QStringLiteral("\\N");
    switch (v.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return numberText(v.toDouble());
    case QMetaType::QDate:
        return v.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return v.toDateTime().date().toString(Qt::ISODate);
    case QMetaType::Bool:
        return v.toBool() ? QStringLiteral("-1") : QStringLiteral("0"); // the engine's true is -1
    default:
        return v.toString();
    }
}

// Statements that change the base; anything else opens a recordset (a
// SELECT, or a table or stored query by its bare name).
bool changesRows(const QString &statement)
{
    static const QRegularExpression verb(QStringLiteral("^\\s*(delete|update|insert|create|drop|alter)\\b"),
                                         QRegularExpression::CaseInsensitiveOption);
    return verb.match(statement).hasMatch();
}

void printLine(const QStringList &cells)
{
    const QByteArray line = cells.join('\t').toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
}

} // namespace

int sqlCommand(const QStringList &args)
{
    if (args.size() != 2)
        return usage();
    const auto db = Database::open(args[0]);
    const QString &statement = args[1];
    if (changesRows(statement)) {
        const int changed = db->execute(statement);
        std::fprintf(stderr, "%d\n", changed);
        return kOk;
    }
    const auto rs = db->openRecordset(statement);
    QStringList cells;
    for (int i = 0; i < rs->fieldCount(); ++i)
        cells.append(rs->fieldName(i));
    printLine(cells);
    while (!rs->Eof()) {
        cells.clear();
        for (int i = 0; i < rs->fieldCount(); ++i)
            cells.append(cellText(rs->field(i)));
        printLine(cells);
        rs->MoveNext();
    }
    std::fflush(stdout);
    return kOk;
}

namespace
{
const CommandRegistration registro{
    {"sql", "sql BASE STATEMENT                       run one statement, print its rows", sqlCommand, false}};
} // namespace

} // namespace tesorel::cli
