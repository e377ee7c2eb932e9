// Writing through a recordset: the row added or changed by Update, and
// Delete, each one statement on the base table by rowid.
#include "store/recordset_impl.h"

#include "store/database.h"
#include "store/engine_errors.h"
#include "store/field_values.h"

#include <sqlite3.h>

namespace tesorel
{

using namespace Qt::StringLiterals;

void Recordset::Impl::requireUpdatable() const
{
    if (!plan.updatable())
        throw RuntimeError(err::ReadOnly,
                           u"No se puede actualizar. La base de datos u objeto es de sólo lectura."_s);
}

void Recordset::Impl::update()
{
    if (editing == Editing::None)
        throw RuntimeError(err::NoEditInProgress,
                           u"Actualizar o CancelarActualización sin AgregarNuevo o Editar."_s);
    QStringList columns;
    QList<QVariant> values;
    for (auto it = buffer.cbegin(); it != buffer.cend(); ++it) {
        const QString &origin = origins[it.key()];
        if (origin.isEmpty())
            requireUpdatable();
        QString quoted = origin;
        quoted.replace(u'"', u"\"\""_s);
        columns.append(u'"' + quoted + u'"');
        values.append(it.value());
    }
    QString sql;
    if (editing == Editing::Adding) {
        QStringList marks;
        for (int i = 0; i < columns.size(); ++i)
            marks.append(u'?' + QString::number(i + 1));
        sql = columns.isEmpty() ? u"INSERT INTO "_s + plan.quotedTable() + u" DEFAULT VALUES"_s
                                : u"INSERT INTO "_s + plan.quotedTable() + u" ("_s + columns.join(u", "_s) +
                                      u") VALUES ("_s + marks.join(u", "_s) + u')';
    } else {
        QStringList sets;
        for (int i = 0; i < columns.size(); ++i)
            sets.append(columns[i] + u" = ?"_s + QString::number(i + 1));
        if (sets.isEmpty())
            return (void)(editing = Editing::None, buffer.clear());
        sql = u"UPDATE "_s + plan.quotedTable() + u" SET "_s + sets.join(u", "_s) + u" WHERE rowid = ?"_s +
              QString::number(columns.size() + 1);
    }
    sqlite3_stmt *s = db->prepareCached(sql);
    for (int i = 0; i < values.size(); ++i)
        bindValue(s, i + 1, values[i]);
    if (editing == Editing::Changing)
        sqlite3_bind_int64(s, int(values.size()) + 1, rowid);
    const int rc = sqlite3_step(s);
    sqlite3_reset(s);
    if (rc != SQLITE_DONE)
        throw engineError(h, plan.statement);
    const Editing done = editing;
    editing = Editing::None;
    buffer.clear();
    if (done == Editing::Adding) {
        const qint64 id = sqlite3_last_insert_rowid(h);
        // A dynaset shows the rows added through it at its end.
        if (!keyset()) {
            if (exhausted)
                rowids.push_back(id);
            else
                added.insert(id);
        }
    } else {
        current = readRow(rowid);
        stmtOnCurrent = false;
    }
}

void Recordset::Impl::remove()
{
    requireUpdatable();
    requireRow();
    if (editing != Editing::None) {
        editing = Editing::None;
        buffer.clear();
    }
    sqlite3_stmt *s = db->prepareCached(u"DELETE FROM "_s + plan.quotedTable() + u" WHERE rowid = ?1"_s);
    sqlite3_bind_int64(s, 1, rowid);
    const int rc = sqlite3_step(s);
    sqlite3_reset(s);
    if (rc != SQLITE_DONE)
        throw engineError(h, plan.statement);
    where = Where::Deleted;
    current.clear();
    if (keyset()) {
        stmtOnCurrent = false;
        reached = std::max(0L, reached - 1);
    } else {
        rowids.erase(rowids.begin() + index);
        if (headIndex == index)
            headIndex = -1;
        else if (headIndex > index)
            --headIndex;
    }
}

} // namespace tesorel
