#include "portfolio/informe_html.h"

#include "core/runtime_error.h"
#include "core/texto_1252.h"

#include <array>

namespace tesorel
{

void InformeHtml::abrir(const QString &ruta)
{
    archivo_.setFileName(ruta);
    if (!archivo_.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RuntimeError(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
}

void InformeHtml::linea(const QString &texto)
{
    if (!archivo_.isOpen())
        throw RuntimeError(52, QStringLiteral("Nombre o número de archivo incorrecto"));
    const QByteArray bytes = a1252(texto) + "\r\n";
    if (archivo_.write(bytes) != bytes.size())
        throw RuntimeError(61, QStringLiteral("Disco lleno"));
}

void InformeHtml::cerrar()
{
    if (archivo_.isOpen())
        archivo_.close();
}

void aperturaInforme(InformeHtml &f)
{
    f.linea(QStringLiteral("<HTML>"));
    f.linea(QStringLiteral("<HEAD>"));
    f.linea(QStringLiteral("<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">"));
    f.linea(QStringLiteral("<META NAME=\"Generator\" CONTENT=\"Tesorel\">"));
    f.linea(QStringLiteral("</HEAD>"));
    f.linea(QStringLiteral("<BODY LINK=\"#0000ff\" VLINK=\"#800080\">"));
    f.linea(QStringLiteral("<P><FONT SIZE=\"6\"><A HREF=\"") + SitioWeb +
            QStringLiteral("\">Tesorel</A></FONT></P>"));
}

void aperturaTabla(InformeHtml &f)
{
    f.linea(QStringLiteral(
        "<TABLE FRAME=\"BORDER\" CELLSPACING=\"0\" CELLPADDING=\"1\" WIDTH=\"100%\" BORDER=\"1\">"));
    // The missing "=" after ALIGN is how the reports have always come out.
    f.linea(QStringLiteral("<TR ALIGN \"CENTER\" VALIGN=\"Top\">"));
}

void Cabecera(InformeHtml &f, const QString &texto, const QString &ancho)
{
    f.linea(QStringLiteral("<TH WIDTH=\"") + ancho +
            QStringLiteral("\" VALIGN=\"Top\" BGCOLOR=\"#FFFFCC\">"));
    f.linea(QStringLiteral("<P ALIGN=\"CENTER\"><B><FONT "));
    f.linea(QStringLiteral("SIZE=\"2\">") + texto +
            QStringLiteral("</FONT></B><FONT SIZE=\"2\"></FONT></P></TH>"));
}

void celda(InformeHtml &f, Celda tipo, const QString &texto)
{
    struct Marco {
        const char *prefijo, *sufijo;
    };
    static constexpr Marco marcos[] = {
        {"<TD ALIGN = \"CENTER\"  VALIGN=\"TOP\"><P>&nbsp;", "</P></TD>"},
        {"<TD ALIGN = \"RIGHT\" VALIGN=\"TOP\"><P>", "&nbsp;&nbsp; </P></TD>"},
        {"<TD ALIGN=\"RIGHT\"  VALIGN=\"TOP\"><P>", "&nbsp <//P></TD>"},
        {"<TD VALIGN=\"TOP\"><P>&nbsp;", "</P></TD>"},
        {"<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>", "&nbsp;</P></TD>"},
    };
    const Marco &m = marcos[static_cast<int>(tipo)];
    f.linea(QString::fromLatin1(m.prefijo) + texto + QString::fromLatin1(m.sufijo));
}

} // namespace tesorel
