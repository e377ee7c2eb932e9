#include "portfolio/informe_html.h"

#include "core/runtime_error.h"

#include <array>

namespace tesorel
{

namespace
{

// 0x80..0x9F of windows-1252; 0 where the code page has no character.
constexpr std::array<char16_t, 32> kAltos = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                             0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char unCaracter(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (std::size_t i = 0; i < kAltos.size(); ++i)
        if (kAltos[i] != 0 && kAltos[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QByteArray aWindows1252(const QString &texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (const QChar c : texto)
        bytes.append(unCaracter(c.unicode()));
    return bytes;
}

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
    const QByteArray bytes = aWindows1252(texto) + "\r\n";
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
