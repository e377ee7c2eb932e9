#pragma once
#include <QFile>
#include <QTemporaryDir>
#include <memory>

#include "store/database.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel::testing
{

// A fresh base with the real schema in a temporary folder, which is also
// the application folder of a test session.
struct TestBase {
    QTemporaryDir dir;
    std::shared_ptr<Database> db;

    TestBase()
    {
        db = Database::create(path());
        QFile schema(TESOREL_SOURCE_DIR "/data/schema.sql");
        if (!schema.open(QIODevice::ReadOnly))
            throw std::runtime_error("data/schema.sql not found");
        db->executeNative(QString::fromUtf8(schema.readAll()));
    }
    QString folder() const { return dir.path(); }
    QString path() const { return dir.path() + "/base1.mdb"; }
};

// A session on a fresh base, with scripted dialogs: the ground of most
// fixtures.
struct SesionDePrueba {
    TestBase base;
    ScriptedUi ui;
    Session s{ui, base.folder()};
    SesionDePrueba() { s.Base_Datos = base.db; }
};

} // namespace tesorel::testing
