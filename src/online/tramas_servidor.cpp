#include "online/tramas_servidor.h"

#include "online/chat_tramas.h"

namespace tesorel
{

bool LectorTramas::valida(const QByteArray &trama)
{
    return trama.size() >= 3 && empiezaBien(trama);
}

// What has come of a frame so far could still be one: a known command (once
// its three letters are there), no control byte, not too long.
bool LectorTramas::empiezaBien(const QByteArray &trama)
{
    if (trama.size() > kTramaMaxima)
        return false;
    for (char c : trama) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 || b == 0x7F)
            return false;
    }
    if (trama.size() < 3)
        return true;
    const QByteArray orden = trama.left(3).toLower();
    return orden == "nik" || orden == "say" || orden == "ver" || orden == "spl";
}

LectorTramas::Resultado LectorTramas::leer(const QByteArray &llegado, std::vector<QByteArray> &tramas)
{
    if (primera_ && !llegado.isEmpty()) {
        primera_ = false;
        conSeparador_ = llegado.contains(kSeparadorChat);
    }
    pendiente_ += llegado;
    qsizetype desde = 0;
    for (;;) {
        const qsizetype hasta = pendiente_.indexOf(kSeparadorChat, desde);
        if (hasta < 0)
            break;
        if (hasta > desde) { // two separators in a row carry nothing
            QByteArray trama = pendiente_.mid(desde, hasta - desde);
            if (!valida(trama))
                return Resultado::Basura;
            tramas.push_back(std::move(trama));
        }
        desde = hasta + 1;
    }
    pendiente_.remove(0, desde);
    if (!conSeparador_ && !pendiente_.isEmpty()) {
        if (!valida(pendiente_))
            return Resultado::Basura;
        tramas.push_back(pendiente_);
        pendiente_.clear();
    }
    return empiezaBien(pendiente_) ? Resultado::Bien : Resultado::Basura;
}

} // namespace tesorel
