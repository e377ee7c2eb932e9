#pragma once
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "support/test_base.h"

namespace tesorel::testing
{

// A session of user 1 on a fresh base, with helpers to fill and read it;
// every error the session files is kept in `errores`.
class ImportFixture : public ::testing::Test
{
  protected:
    SesionDePrueba sp;
    Session &s = sp.s;
    ScriptedUi &ui = sp.ui;
    QList<int> errores;

    ImportFixture()
    {
        s.Usuario_Numero = 1;
        s.alRegistrarError = [this](const RuntimeError &e) { errores << e.number(); };
    }
    Database &db() { return *s.Base_Datos; }
    QString carpeta() const { return sp.base.folder(); }

    void empresa(int codigo, const QString &nombre, const QString &abrev11, const QString &ticker)
    {
        Query q(
            db(),
            "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA11, ABREVIATURA3) values (?, ?, ?, ?)");
        q.bind(1, codigo).bind(2, nombre).bind(3, abrev11).bind(4, ticker).exec();
    }
    double numero(const QString &sql)
    {
        Query q(db(), sql);
        return q.next() ? q.number(0) : -1;
    }
    QString texto(const QString &sql)
    {
        Query q(db(), sql);
        return q.next() ? q.text(0) : QStringLiteral("<none>");
    }
    // The texts of every message box shown, in order.
    QStringList mensajes() const
    {
        QStringList l;
        for (const auto &m : ui.messages)
            l << m.prompt;
        return l;
    }
    // The files of the mail folder, without the harvest's work file.
    QStringList enMail() const
    {
        QStringList l = QDir(carpeta() + "/mail").entryList(QDir::Files, QDir::Name);
        l.removeAll("provisio.tx1");
        return l;
    }
    static QByteArray leer(const QString &ruta)
    {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<none>");
    }
};

} // namespace tesorel::testing
