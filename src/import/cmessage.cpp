#include "import/cmessage.h"

namespace tesorel
{

namespace
{
// Blanks only, as the headers are trimmed; tabs stay.
QString sinBlancos(QStringView v)
{
    qsizetype a = 0, b = v.size();
    while (a < b && v[a] == u' ')
        ++a;
    while (b > a && v[b - 1] == u' ')
        --b;
    return v.mid(a, b - a).toString();
}
} // namespace

QString *CMessage::campo(const QString &nombre)
{
    struct Par {
        const char *nombre;
        QString CMessage::*campo;
    };
    static constexpr Par tabla[] = {
        {"return-path", &CMessage::ReturnPath},
        {"received", &CMessage::Received},
        {"date", &CMessage::SendDate},
        {"message-id", &CMessage::MessageID},
        {"to", &CMessage::MessageTo},
        {"from", &CMessage::From},
        {"subject", &CMessage::Subject},
        {"reply-to", &CMessage::ReplyTo},
        {"sender", &CMessage::Sender},
        {"cc", &CMessage::CC},
        {"bcc", &CMessage::BCC},
        {"in-reply-to", &CMessage::InReplyTo},
        {"references", &CMessage::References},
        {"keywords", &CMessage::Keywords},
        {"comments", &CMessage::Comments},
        {"encrypted", &CMessage::Encrypted},
    };
    for (const Par &p : tabla)
        if (nombre == QLatin1String(p.nombre))
            return &(this->*p.campo);
    return nullptr;
}

void CMessage::CreateFromText(const QString &text)
{
    const qsizetype vacia = text.indexOf(QLatin1String("\r\n\r\n"));
    if (vacia < 0)
        throw ErrorDeObjeto(ErrorFormato, QStringLiteral("CMessage.CreateFromText"),
                            QStringLiteral("Invalid message format"));
    Headers = text.left(vacia);
    MessageBody = text.mid(vacia + 4);
    MessageText = text;

    qsizetype inicio = 0;
    while (inicio <= Headers.size()) {
        qsizetype fin = Headers.indexOf(QLatin1String("\r\n"), inicio);
        if (fin < 0)
            fin = Headers.size();
        const QStringView linea = QStringView(Headers).mid(inicio, fin - inicio);
        inicio = fin + 2;
        const qsizetype dosPuntos = linea.indexOf(u':');
        // A line without ":" has an empty name, which no field bears.
        if (dosPuntos <= 0)
            continue;
        if (QString *destino = campo(linea.left(dosPuntos).toString().toLower()))
            *destino = sinBlancos(linea.mid(dosPuntos + 1));
    }
}

std::shared_ptr<CMessage> CMessages::Add(std::shared_ptr<CMessage> message, const QString &)
{
    lista_.push_back(message);
    return message;
}

std::shared_ptr<CMessage> CMessages::Item(int index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(err::SubscriptOutOfRange, QStringLiteral("El subíndice está fuera del intervalo"));
    return lista_[size_t(index - 1)];
}

void CMessages::Remove(int index)
{
    Item(index);
    lista_.erase(lista_.begin() + (index - 1));
}

} // namespace tesorel
