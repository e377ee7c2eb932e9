#pragma once
// What every command that drives a window needs: its options read the same
// way, a Ui that prints what the window would show, and a session opened on
// BASE as the program opens it, with the user and the day of the run.
#include <QDate>
#include <QHash>
#include <QStringList>
#include <deque>
#include <memory>

#include "store/session.h"
#include "store/ui.h"

namespace tesorel::cli
{

// The words of a command line: free words in order, options with their values.
class Argumentos
{
  public:
    // `aridad` gives each option's number of values (0 for a flag). False
    // for an unknown option or one short of values.
    bool leer(const QStringList &args, const QHash<QString, int> &aridad);

    QStringList libres;
    bool tiene(const QString &opcion) const { return opciones_.contains(opcion); }
    QString valor(const QString &opcion, const QString &siFalta = {}) const;
    QStringList valores(const QString &opcion) const { return opciones_.value(opcion); }

  private:
    QHash<QString, QStringList> opciones_;
};

// Message boxes become lines "mensaje<TAB>TEXT" on standard output and a
// question is answered Yes; an input box takes the next scripted answer.
class CliUi : public Ui
{
  public:
    std::deque<QString> respuestas; // input box answers, in order; "" when none is left
    bool imprimirPitidos = false;   // "beep" lines (the import commands)
    QStringList abiertos;           // addresses handed to the desktop
    bool terminado = false;

    int MsgBox(const QString &prompt, int style, const QString &title) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &deflt) override;
    void Beep() override;
    bool OpenUrl(const QString &address) override;
    void DoEvents() override;
    void EndProgram() override { terminado = true; }
};

// One line of the machine form: fields joined by tabs, then a line end.
void imprimirLinea(const QStringList &campos);
// A number in the shortest text that reads back exactly, with a point.
QString numeroMaquina(double valor);
// A day as YYYY-MM-DD; a null day as \N.
QString diaMaquina(const QDate &dia);

// A session on BASE as the program opens it: the data folder is BASE's
// folder, the companies are read, the current date is the newest day of
// the quotes, the user is `--user N` (or the one the login pre-selects)
// and `--today D` stands for the clock. Every report of the error routine
// is printed as "error<TAB>NUMBER<TAB>DESCRIPTION". Throws RuntimeError
// when the base cannot be opened.
class SesionCli
{
  public:
    explicit SesionCli(const Argumentos &a, const QString &rutaBase);
    Session &s() { return *s_; }
    CliUi ui;

  private:
    std::unique_ptr<Session> s_;
};

// The options every session command takes, to merge into its own table.
QHash<QString, int> opcionesDeSesion(QHash<QString, int> propias);

} // namespace tesorel::cli
