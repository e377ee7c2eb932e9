#include "cli_session.h"

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/usuario.h"
#include "users/login.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <cmath>
#include <cstdio>

namespace tesorel::cli
{

bool Argumentos::leer(const QStringList &args, const QHash<QString, int> &aridad)
{
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args[i];
        if (!a.startsWith(QLatin1String("--")) || a.size() == 2) {
            libres << a;
            continue;
        }
        const auto n = aridad.constFind(a);
        if (n == aridad.constEnd() || i + *n >= args.size())
            return false;
        QStringList vals;
        for (int k = 0; k < *n; ++k)
            vals << args[++i];
        opciones_.insert(a, vals);
    }
    return true;
}

QString Argumentos::valor(const QString &opcion, const QString &siFalta) const
{
    const auto it = opciones_.constFind(opcion);
    return it == opciones_.constEnd() || it->isEmpty() ? siFalta : it->first();
}

QHash<QString, int> opcionesDeSesion(QHash<QString, int> propias)
{
    propias.insert(QStringLiteral("--user"), 1);
    propias.insert(QStringLiteral("--today"), 1);
    return propias;
}

namespace
{
QString unaLinea(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    text.replace(QLatin1String("\r\n"), QLatin1String("\\n"));
    text.replace(u'\r', QLatin1String("\\n"));
    text.replace(u'\n', QLatin1String("\\n"));
    return text;
}
} // namespace

void imprimirLinea(const QStringList &campos)
{
    const QByteArray linea = campos.join(u'\t').toUtf8() + '\n';
    std::fwrite(linea.constData(), 1, size_t(linea.size()), stdout);
    std::fflush(stdout);
}

QString numeroMaquina(double valor)
{
    if (valor == 0)
        return QStringLiteral("0");
    if (std::isnan(valor))
        return QStringLiteral("\\N");
    return QString::number(valor, 'g', QLocale::FloatingPointShortest);
}

QString diaMaquina(const QDate &dia)
{
    return dia.isValid() ? dia.toString(Qt::ISODate) : QStringLiteral("\\N");
}

int CliUi::MsgBox(const QString &prompt, int style, const QString &)
{
    imprimirLinea({QStringLiteral("mensaje"), unaLinea(prompt)});
    switch (style & 7) {
    case mb::YesNo:
    case mb::YesNoCancel:
        return mb::Yes;
    case mb::RetryCancel:
        return mb::Retry;
    case mb::AbortRetryIgnore:
        return mb::Ignore;
    default:
        return mb::Ok;
    }
}

QString CliUi::InputBox(const QString &, const QString &, const QString &)
{
    if (respuestas.empty())
        return {};
    QString r = respuestas.front();
    respuestas.pop_front();
    return r;
}

void CliUi::Beep()
{
    if (imprimirPitidos)
        imprimirLinea({QStringLiteral("beep")});
}

bool CliUi::OpenUrl(const QString &address)
{
    abiertos << address;
    return true;
}

void CliUi::DoEvents()
{
    QCoreApplication::processEvents();
}

namespace
{
// Every failure reported becomes an `error` line, shown in a dialog or not.
void imprimirErrores(EstadoDeErrores &errores)
{
    errores.alRegistrarError = [](const RuntimeError &e) {
        imprimirLinea({QStringLiteral("error"), QString::number(e.number()), unaLinea(e.description())});
    };
}

// --today stands for the machine's date wherever a window reads the clock.
void fijarHoy(ValorYFechas &fechas, const Argumentos &a)
{
    if (!a.tiene(QStringLiteral("--today")))
        return;
    const QDate hoy = QDate::fromString(a.valor(QStringLiteral("--today")), Qt::ISODate);
    if (!hoy.isValid())
        throw RuntimeError(err::EngineError, QStringLiteral("Fecha no válida en --today"));
    fechas.hoyFijo = hoy;
}
} // namespace

SesionCli::SesionCli(const Argumentos &a, const QString &rutaBase)
{
    const QFileInfo info(rutaBase);
    s_ = std::make_unique<Session>(ui, info.absolutePath());
    Session &s = *s_;
    imprimirErrores(s);
    fijarHoy(s, a);
    s.abrirBase(info.absoluteFilePath());
    Abrir_Empresas(s);

    // The user: the one named, or the one the login window pre-selects.
    double usuario = 0;
    if (a.tiene(QStringLiteral("--user"))) {
        bool ok = false;
        usuario = a.valor(QStringLiteral("--user")).toDouble(&ok);
        if (!ok)
            throw RuntimeError(err::EngineError, QStringLiteral("Usuario no válido en --user"));
    }
    auto usuarios = s.Base_Datos->openRecordset(QStringLiteral("select * from Usuario"));
    QString elegido;
    for (; !usuarios->Eof(); usuarios->MoveNext()) {
        const double clave = usuarios->field(QStringLiteral("clave")).toDouble();
        const QString nombre = Texto_Nulo(usuarios->field(QStringLiteral("NOMBRE")));
        const bool predeterminado =
            Texto_Nulo(usuarios->field(QStringLiteral("Password"))) == ClaveUsuarioPredeterminado;
        if ((usuario != 0 && clave == usuario) || (usuario == 0 && (predeterminado || elegido.isEmpty()))) {
            elegido = nombre;
            s.Usuario_Numero = clave;
            s.Nombre_Usuario = nombre;
            s.Maximo_Dias_Sesion = Numero_Val(Texto_Nulo(usuarios->field(QStringLiteral("Maximo_dias"))));
            if (usuario != 0 || predeterminado)
                break;
        }
    }
    if (usuario != 0 && s.Usuario_Numero != usuario) {
        s.Usuario_Numero = usuario; // a user without a row still owns a portfolio number
        s.Nombre_Usuario.clear();
    }
    s.Usuario_Sesion = std::make_unique<Usuario>(s);

    // The current user and the current date, as the login and the main window's Load leave them.
    auto actual = s.Base_Datos->openRecordset(QStringLiteral("select * from Usuario_actual"));
    auto fechas = s.Base_Datos->openRecordset(QStringLiteral("Select * from Fechas Order by Fecha"));
    actual->Edit();
    actual->setField(QStringLiteral("usuario_actual"), s.Usuario_Numero);
    if (!fechas->Bof()) {
        fechas->MoveLast();
        actual->setField(QStringLiteral("fecha_Actual"), fechas->field(QStringLiteral("Fecha")));
    }
    actual->Update();
}

} // namespace tesorel::cli
