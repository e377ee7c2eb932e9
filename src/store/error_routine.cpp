#include "store/error_routine.h"

#include <QFile>

#include "core/format.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
// A number as a comma-separated record writes it: no leading blank.
QString numberField(double v)
{
    return QString::number(v, 'g', 15);
}
QString quoted(const QString &text)
{
    return '"' + text + '"';
}
} // namespace

QString ErrorRoutine::registro(const QDateTime &when, const RuntimeError &error, double ubicacion)
{
    return quoted(Format(when.date(), "dd/mm/yyyy")) + ',' + quoted(when.time().toString("HH:mm:ss")) + ',' +
           numberField(error.number()) + ',' + quoted(error.description()) + ',' + numberField(ubicacion);
}

bool ErrorRoutine::registrar(Ui &ui, const QString &carpeta, double ubicacion, const RuntimeError &error,
                             const QDateTime &when)
{
    if (ubicacion == mark_)
        return true;

    bool goOn = true;
    const int answer = ui.MsgBox(QString::number(error.number()) + ' ' + error.description(),
                                 mb::Critical | mb::AbortRetryIgnore, QStringLiteral("Atención"));
    if (answer == mb::Abort) {
        ui.EndProgram();
        goOn = false;
    } else if (answer == mb::Ignore) {
        mark_ = ubicacion;
    }

    // Only the last reported failure is kept.
    QFile file(carpeta + "/error.txt");
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        file.write(registro(when, error, ubicacion).toUtf8());
        file.write("\n");
    }
    return goOn;
}

} // namespace tesorel
