// tesorel-cli portfolio: the portfolio window after its Load, sorted and in
// the currency asked for, printed cell by cell; --html writes its report.
#include "cli_session.h"
#include "commands.h"

#include "portfolio/cartera_valoracion.h"
#include "store/database.h"
#include "store/query.h"

namespace tesorel::cli
{

namespace
{

int portfolioCommand(const QStringList &args)
{
    Argumentos a;
    const QHash<QString, int> propias{{QStringLiteral("--date"), 1},
                                      {QStringLiteral("--sort"), 1},
                                      {QStringLiteral("--asc"), 0},
                                      {QStringLiteral("--pesetas"), 0},
                                      {QStringLiteral("--html"), 1}};
    if (!a.leer(args, opcionesDeSesion(propias)) || a.libres.size() != 1 ||
        !a.tiene(QStringLiteral("--user")))
        return usage();
    static const QStringList claves{QStringLiteral("porcentaje"), QStringLiteral("valor"),
                                    QStringLiteral("beneficio"), QStringLiteral("fecha")};
    const int orden =
        a.tiene(QStringLiteral("--sort")) ? int(claves.indexOf(a.valor(QStringLiteral("--sort")))) + 1 : 4;
    QDate dia;
    if (a.tiene(QStringLiteral("--date"))) {
        dia = QDate::fromString(a.valor(QStringLiteral("--date")), Qt::ISODate);
        if (!dia.isValid())
            return usage();
    }
    if (orden < 1)
        return usage();

    SesionCli sesion(a, a.libres[0]);
    Session &s = sesion.s();
    if (dia.isValid())
        s.paso([&] {
            Query(*s.Base_Datos, QStringLiteral("update Usuario_Actual set fecha_Actual = ?"))
                .bind(1, dia)
                .exec();
        });
    cartera11 v(s, [](const QString &) {});
    v.Form_Load();
    if (orden != 4)
        v.SSOption_Click(orden);
    if (a.tiene(QStringLiteral("--asc")))
        v.SSOption_Click(6);
    if (a.tiene(QStringLiteral("--pesetas")))
        v.setMoneda(QStringLiteral("P"));

    QStringList cabecera;
    for (const QString &h : cartera11::Encabezados)
        cabecera << h.trimmed();
    imprimirLinea(cabecera);
    for (const FilaCartera &f : v.filas) {
        QStringList celdas = f.celdas();
        for (QString &c : celdas)
            c = c.trimmed();
        imprimirLinea(celdas);
    }
    const std::pair<const char *, const QString *> totales[] = {
        {"coste", &v.Label1_1300},     {"valor", &v.Label1_1400},        {"diferencia", &v.Label1_800},
        {"porcentaje", &v.Label1_700}, {"anterior", &v.CarteraLabel[0]}, {"actual", &v.CarteraLabel[1]},
        {"dif", &v.CarteraDif},        {"tanto", &v.CarteraTanto}};
    for (const auto &[nombre, texto] : totales)
        imprimirLinea({QString::fromLatin1(nombre), texto->trimmed()});
    if (a.tiene(QStringLiteral("--html")))
        v.informeHtml(a.valor(QStringLiteral("--html")), false);
    return kOk;
}

const CommandRegistration registro{{"portfolio",
                                    "portfolio BASE --user N [--date YYYY-MM-DD] [--sort "
                                    "porcentaje|valor|beneficio|fecha] [--asc] [--pesetas] "
                                    "[--html OUT] [--today D]   the portfolio window, cell by cell",
                                    portfolioCommand}};

} // namespace

} // namespace tesorel::cli
