#pragma once
#include <QDate>
#include <QString>
#include <QVariant>

struct sqlite3_stmt;

namespace tesorel
{

class Database;

// A statement of the dialect whose values are bound, never pasted into its
// text: every read or write that carries data from a file, a mail, a web
// page or the keyboard goes through one of these. Each '?' outside a text
// is one value, numbered from 1. Prepared once per text and kept by the
// base, so a booking or an import that repeats a shape pays for it once.
//
//     Query q(db, "insert into historico (usuario, valor, fecha) values (?, ?, ?)");
//     q.bind(1, usuario).bind(2, valor).bind(3, fecha).exec();
//
//     Query r(db, "select FECHA, ULTIMO from bolsa where VALOR = ? order by FECHA");
//     r.bind(1, valor);
//     while (r.next()) use(r.date(0), r.number(1));
//
// Failures are RuntimeError with the engine's message, as for execute().
class Query
{
  public:
    Query(Database &db, const QString &jetSql);
    ~Query();
    Query(const Query &) = delete;
    Query &operator=(const Query &) = delete;

    // A null QVariant binds the store's null; a QDate is stored as ISO text.
    Query &bind(int parameter, const QVariant &value);
    Query &bind(int parameter, double value);
    Query &bind(int parameter, qint64 value);
    Query &bind(int parameter, int value) { return bind(parameter, qint64(value)); }
    Query &bind(int parameter, const QString &value);
    Query &bind(int parameter, const QDate &value);

    // Steps once: true while there is a row to read.
    bool next();
    // Runs the statement to its end and returns the rows it changed; the
    // bindings stay, so the same statement can run again with new values.
    int exec();
    // Back to before the first row, keeping the bindings.
    void reset();

    int columnCount() const;
    bool isNull(int column) const;
    double number(int column) const; // null reads 0
    qint64 whole(int column) const;
    QString text(int column) const;   // null reads ""
    QDate date(int column) const;     // ISO text; null or not a day reads a null date
    QVariant value(int column) const; // as a recordset field reads it

    qint64 lastInsertId() const;

  private:
    Database &db_;
    QString jetSql_;
    sqlite3_stmt *stmt_ = nullptr;
    bool owned_ = false; // a statement of its own, when another Query holds the cached one
    bool done_ = false;
};

// Groups writes. Commits when asked; leaving the scope otherwise undoes the
// group, or, for an importer, keeps what was written before a failure:
// rows read before a bad line stay in the base, as they always have.
class Transaction
{
  public:
    enum class OnLeave { RollBack, KeepWritten };
    explicit Transaction(Database &db, OnLeave onLeave = OnLeave::RollBack);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit();

  private:
    Database &db_;
    OnLeave onLeave_;
    bool open_ = true;
};

} // namespace tesorel
