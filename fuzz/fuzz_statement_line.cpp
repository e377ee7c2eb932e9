// Any bytes as a broker statement of either kind: read and classified into
// the grid without a crash; each row has a date cell.
#include "import/importar_op.h"
#include "store/session.h"
#include "store/ui.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

using namespace tesorel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static QTemporaryDir dir;
    const bool scl = size > 0 && (data[0] & 1);
    const QString ruta = dir.filePath(scl ? "x.SCL" : "x.TXT");
    QDir(dir.path()).removeRecursively();
    QDir().mkpath(dir.path());
    {
        QFile f(ruta);
        if (!f.open(QIODevice::WriteOnly))
            return 0;
        f.write(scl ? "Fecha operaci\xf3n\r\n" : " Fecha operaci\xf3n \r\n");
        f.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    ScriptedUi ui;
    Session s(ui, dir.path());
    ImportarOp v(s);
    v.Text1 = dir.path();
    v.esperar = [&] {
        for (const FilaOp &fila : v.filas)
            if (v.filas.size() > 1 && fila.Fecha.isEmpty())
                std::abort();
        v.Salir_Click();
    };
    v.Command2_Click();
    const QString linea = QString::fromLatin1(reinterpret_cast<const char *>(data), qsizetype(size));
    const int n = ContarPalabras(linea);
    if (n > 0 && Palabra(linea, n).isEmpty())
        std::abort();
    return 0;
}
