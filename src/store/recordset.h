#pragma once
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>

struct sqlite3_stmt;

namespace tesorel
{

class Database;
struct SourcePlan;

// A dynaset over a table, stored query or SELECT, with the navigation model
// of the engine the system was written for. Field values are QVariant: an
// invalid QVariant is the null of the store; numbers come as double (or
// qlonglong for whole-number columns), text as QString, dates as QDate.
//
// Rows are not read on open: the statement is prepared and stepped only as
// far as the cursor goes. RecordCount is therefore the number of rows
// reached so far (1 right after opening a non-empty set), exact after
// MoveLast, as the engine counts a dynaset.
class Recordset
{
  public:
    Recordset(std::shared_ptr<Database> db, const QString &source);
    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    bool Bof() const; // ("EOF" is a C macro, hence these names)
    bool Eof() const;
    long RecordCount();
    long AbsolutePosition() const; // 0-based, -1 when on no row
    void setAbsolutePosition(long position);

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void Move(long rows);

    void FindFirst(const QString &criteria);
    void FindNext(const QString &criteria);
    void FindLast(const QString &criteria);
    void FindPrevious(const QString &criteria);
    bool NoMatch() const;

    QString Filter() const;
    void setFilter(const QString &criteria);
    // The same source with the filter applied.
    std::unique_ptr<Recordset> OpenRecordset();

    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    void Delete();

    int fieldCount() const;
    QString fieldName(int index) const;
    // Any case; unknown name -> RuntimeError(3265, "No se encontró el elemento en esta colección.")
    QVariant field(const QString &name) const;
    QVariant field(int index) const;
    void setField(const QString &name, const QVariant &value);
    void setField(int index, const QVariant &value);
    // Reading a field with no current row -> RuntimeError(err::NoCurrentRecord, "No hay registro activo.")

    QString source() const { return source_; }

  private:
    Recordset(std::shared_ptr<Database> db, SourcePlan plan, const QString &source);
    struct Impl;
    std::unique_ptr<Impl> d;
    QString source_;
};

} // namespace tesorel
