// The public calls of a recordset; the work is done by its Impl
// (recordset_impl.h).
#include "store/conexion.h"
#include "store/recordset_impl.h"

#include "store/database.h"
#include "store/engine_errors.h"
#include "store/jet_sql.h"

#include <sqlite3.h>

namespace tesorel
{

using namespace Qt::StringLiterals;

Recordset::Recordset(std::shared_ptr<Database> db, const QString &source) : d(new Impl), source_(source)
{
    d->db = std::move(db);
    d->h = conexionDe(*d->db);
    d->plan = planSource(d->h, source);
    d->open();
}

Recordset::Recordset(std::shared_ptr<Database> db, SourcePlan plan, const QString &source)
    : d(new Impl), source_(source)
{
    d->db = std::move(db);
    d->h = conexionDe(*d->db);
    d->plan = std::move(plan);
    d->open();
}

Recordset::~Recordset()
{
    if (d)
        sqlite3_finalize(d->stmt);
}

bool Recordset::Bof() const
{
    d->start();
    return d->bof;
}
bool Recordset::Eof() const
{
    d->start();
    return d->eof;
}
long Recordset::RecordCount()
{
    d->start();
    return d->recordCount();
}

long Recordset::AbsolutePosition() const
{
    d->start();
    if (d->where != Impl::Where::OnRow)
        return -1;
    return d->keyset() ? d->keysetPosition() : d->index;
}

void Recordset::setAbsolutePosition(long position)
{
    d->start();
    if (position < 0)
        throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
    if (d->keyset()) {
        const qint64 id = d->singleRowid(u"SELECT rowid"_s + d->plan.fromWhere(u"rowid > ?1"_s) +
                                             u" ORDER BY rowid LIMIT 1 OFFSET ?2"_s,
                                         kNoRowid, position);
        if (id == kNoRowid)
            throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
        return d->landOnRowid(id, position);
    }
    if (!d->fetchUpTo(position))
        throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
    d->landSequential(position);
}

void Recordset::MoveFirst()
{
    d->start();
    d->editing = Impl::Editing::None;
    if (d->keyset()) {
        if (!d->startKeyset(kNoRowid))
            return d->setEmpty(), noCurrentRecord();
        return d->land(0);
    }
    if (!d->fetchUpTo(0))
        return d->setEmpty(), noCurrentRecord();
    d->landSequential(0);
}

void Recordset::MoveLast()
{
    d->start();
    d->editing = Impl::Editing::None;
    if (d->keyset()) {
        const qint64 id = d->singleRowid(u"SELECT rowid"_s + d->plan.fromWhere(u"rowid > ?1"_s) +
                                             u" ORDER BY rowid DESC LIMIT 1"_s,
                                         kNoRowid);
        if (id == kNoRowid)
            return d->setEmpty(), noCurrentRecord();
        d->lastReached = true;
        return d->landOnRowid(id, std::nullopt);
    }
    d->fetchUpTo(std::numeric_limits<long>::max() - 1);
    if (d->reachedRows() == 0)
        return d->setEmpty(), noCurrentRecord();
    d->landSequential(long(d->reachedRows()) - 1);
}

void Recordset::MoveNext()
{
    d->start();
    if (d->eof)
        noCurrentRecord();
    Move(1);
}

void Recordset::MovePrevious()
{
    d->start();
    if (d->bof)
        noCurrentRecord();
    Move(-1);
}

void Recordset::Move(long rows)
{
    d->start();
    using W = Impl::Where;
    d->editing = Impl::Editing::None;
    if (d->where == W::BeforeFirst || d->where == W::AfterLast) {
        // Only the step back into the set from either end is allowed.
        if (d->bof && d->eof)
            noCurrentRecord();
        if (d->where == W::BeforeFirst && rows == 1)
            return MoveFirst();
        if (d->where == W::AfterLast && rows == -1)
            return MoveLast();
        noCurrentRecord();
    }
    if (rows == 0) {
        d->requireRow();
        return;
    }
    if (d->keyset())
        return d->keysetMove(rows);
    const long base = d->index;
    const bool fromDeleted = d->where == W::Deleted;
    d->sequentialGo(fromDeleted && rows > 0 ? base + rows - 1 : base + rows);
}

void Recordset::FindFirst(const QString &criteria)
{
    d->start();
    d->find(criteria, true, true);
}
void Recordset::FindNext(const QString &criteria)
{
    d->start();
    d->find(criteria, true, false);
}
void Recordset::FindLast(const QString &criteria)
{
    d->start();
    d->find(criteria, false, true);
}
void Recordset::FindPrevious(const QString &criteria)
{
    d->start();
    d->find(criteria, false, false);
}
bool Recordset::NoMatch() const
{
    return d->noMatch;
}

QString Recordset::Filter() const
{
    return d->filter;
}
void Recordset::setFilter(const QString &criteria)
{
    d->filter = criteria;
}

std::unique_ptr<Recordset> Recordset::OpenRecordset()
{
    if (d->filter.trimmed().isEmpty())
        return std::unique_ptr<Recordset>(new Recordset(d->db, d->plan, source_));
    const SourcePlan plan = d->plan.filtered(jet::translateCriteria(d->filter));
    return std::unique_ptr<Recordset>(new Recordset(d->db, plan, source_));
}

void Recordset::AddNew()
{
    d->start();
    d->requireUpdatable();
    d->editing = Impl::Editing::Adding;
    d->buffer.clear();
}

void Recordset::Edit()
{
    d->start();
    d->requireUpdatable();
    d->requireRow();
    d->editing = Impl::Editing::Changing;
    d->buffer.clear();
}

void Recordset::Update()
{
    d->start();
    d->update();
}

void Recordset::CancelUpdate()
{
    d->editing = Impl::Editing::None;
    d->buffer.clear();
}

void Recordset::Delete()
{
    d->start();
    d->remove();
}

int Recordset::fieldCount() const
{
    return int(d->names.size());
}

QString Recordset::fieldName(int index) const
{
    d->checkIndex(index);
    return d->names[index];
}

QVariant Recordset::field(const QString &name) const
{
    return field(d->fieldIndex(name));
}

QVariant Recordset::field(int index) const
{
    d->start();
    d->checkIndex(index);
    if (d->editing != Impl::Editing::None) {
        const auto found = d->buffer.constFind(index);
        if (found != d->buffer.constEnd())
            return *found;
        if (d->editing == Impl::Editing::Adding)
            return {};
    }
    d->requireRow();
    return d->current.value(index);
}

void Recordset::setField(const QString &name, const QVariant &value)
{
    setField(d->fieldIndex(name), value);
}

void Recordset::setField(int index, const QVariant &value)
{
    d->checkIndex(index);
    if (d->editing == Impl::Editing::None)
        throw RuntimeError(err::NoEditInProgress,
                           u"Actualizar o CancelarActualización sin AgregarNuevo o Editar."_s);
    d->buffer.insert(index, value.isNull() ? QVariant() : value);
}

} // namespace tesorel
