#pragma once
#include <QDate>
#include <QString>

namespace tesorel
{

class Session;

// The session's user: the date interval and the mail settings. The
// interval is read from the base on every call and always for the
// logged-in user (Usuario_Numero), whatever Numero says.
class Usuario
{
  public:
    explicit Usuario(Session &s) : s_(s) {}

    // The user's interval; without a row or a date there, the first and
    // the last day of the quotes. A null date when even that fails.
    QDate FechaInicial();
    QDate FechaFinal();
    void setFechaInicial(const QDate &fecha);
    void setFechaFinal(const QDate &fecha);
    // True while the interval is open at that end.
    bool Ultimodia();
    bool PrimerDia();

    double Numero() const { return numero_; }
    void setNumero(double n) { numero_ = n; }

    QString email() const { return email_; }
    QString Pop() const { return pop_; }
    QString Smtp() const { return smtp_; }
    QString UsuarioPop() const { return usuarioPop_; }
    // Reads the mail settings of the logged-in user again.
    void Update();

  private:
    QDate leerFecha(const QString &campo, const QString &respaldo, const QString &campoRespaldo);
    void grabarFecha(const QString &campo, const QDate &fecha);
    bool extremoAbierto(const QString &campo);

    Session &s_;
    double numero_ = 0;
    QString email_, pop_, smtp_, usuarioPop_;
};

} // namespace tesorel
