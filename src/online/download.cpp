#include "online/download.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSaveFile>
#include <QTimer>

namespace tesorel
{

bool Descargar_Url(const QString &address, const QString &file, int timeoutMs)
{
    QNetworkAccessManager manager;
    QNetworkRequest request{QUrl(address)};
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(timeoutMs);
    QNetworkReply *reply = manager.get(request);

    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(&limit, &QTimer::timeout, reply, &QNetworkReply::abort);
    limit.start(timeoutMs);
    if (!reply->isFinished())
        loop.exec();

    bool ok = false;
    if (reply->error() == QNetworkReply::NoError) {
        QSaveFile out(file);
        if (out.open(QIODevice::WriteOnly)) {
            out.write(reply->readAll());
            ok = out.commit();
        }
    }
    reply->deleteLater();
    return ok && QFileInfo::exists(file);
}

} // namespace tesorel
