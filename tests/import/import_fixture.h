#pragma once
#include <gtest/gtest.h>

#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "support/test_base.h"

namespace tesorel::testing
{

// A session of user 1 on a fresh base, with helpers to fill and read it.
class ImportFixture : public ::testing::Test
{
  protected:
    SesionDePrueba sp;
    Session &s = sp.s;
    ScriptedUi &ui = sp.ui;

    ImportFixture() { s.Usuario_Numero = 1; }
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
};

} // namespace tesorel::testing
